// SPDX-License-Identifier: MIT
#include "routines/seriesloader.h"

#include "base/twintext.h"
#include "routines/crc32.h"
#include "routines/deliveredseries.h"
#include "stored/programfolder.h"
#include "stored/textfile.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <string_view>

namespace halvane {
namespace {

TheoryPointer current = std::make_shared<const Theory>();
std::map<std::string_view, std::string> undelivered; ///< paths by name

bool is_delivered(std::string_view name, std::string_view text) {
    return std::any_of(std::begin(delivered_series), std::end(delivered_series), [&](const auto& file) {
        return name == file.name && text.size() == file.size && crc32_of(text) == file.crc32;
    });
}

void note_series(const char* name, const std::string& path, std::string_view text) {
    if (is_delivered(name, text))
        undelivered.erase(name);
    else
        undelivered[name] = path;
}

/// Reads the file `name` into its place; the series already handed out stay as they are.
template <class Series>
void load(const char* name, std::shared_ptr<const Series> Theory::*place,
          std::shared_ptr<const Series> (*read)(std::string_view, const std::string&)) {
    const std::string path = series_path(name);
    const std::string text = read_text_file(path);
    note_series(name, path, text);
    auto next = std::make_shared<Theory>(*current);
    (*next).*place = read(text, path);
    current = std::move(next);
}

} // namespace

void load_termfull() {
    load("termfull.vsk", &Theory::complete_sun, read_termfull);
}

void load_term() {
    load("term.vsk", &Theory::short_sun, read_term);
}

void load_mterm() {
    load("mterm.vsk", &Theory::periodic_tables, read_mterm);
}

void load_elp() {
    load("elp.vsk", &Theory::lunar_tables, read_elp);
}

void load_series() {
    load_termfull();
    load_term();
    load_mterm();
    load_elp();
}

TheoryPointer loaded_theory() {
    return current;
}

std::vector<std::string> series_notes(Language language) {
    std::vector<std::string> notes;
    notes.reserve(undelivered.size());
    for (const auto& [name, path] : undelivered)
        notes.push_back(TwinWords("the series file " + path + " is not the delivered one",
                                  "ملف المتسلسلة " + path + " ليس الملف المسلم مع البرنامج")
                            .in(language));
    return notes;
}

} // namespace halvane
