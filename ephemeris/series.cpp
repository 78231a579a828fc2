#include "ephemeris/series.h"

#include "base/failure.h"
#include "ephemeris/crc32.h"
#include "ephemeris/deliveredseries.h"
#include "stored/programfolder.h"
#include "stored/record.h"
#include "stored/textfile.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <optional>
#include <string_view>
#include <utility>

namespace halvane {
namespace {

std::optional<SunSeries> termfull_series;
std::optional<SunSeries> term_series;
std::optional<PeriodicTables> mterm_tables;
std::optional<MoonSeries> elp_series;
unsigned generation = 0;
std::map<std::string_view, std::string> undelivered; ///< paths by name

/// Reads a group of rows whose columns go to `columns`, and pads it; an empty place is read and not kept.
void read_group(RecordReader& reader, std::size_t rows, const std::vector<Column*>& columns) {
    for (Column* column : columns)
        if (column != nullptr)
            column->reserve(column->size() + padded(rows));
    for (std::size_t row = 0; row < rows; ++row) {
        reader.start_record();
        for (Column* column : columns) {
            const double value = reader.number();
            if (column != nullptr)
                column->push_back(value);
        }
    }
    for (Column* column : columns)
        if (column != nullptr)
            column->resize(padded(column->size()));
}

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

template <class Table>
void load(const char* name, std::optional<Table>& table, void (*fill)(RecordReader&, Table&)) {
    const std::string path = series_path(name);
    const std::string text = read_text_file(path);
    note_series(name, path, text);
    RecordReader reader(text, path);
    Table loaded;
    fill(reader, loaded);
    table = std::move(loaded);
    ++generation;
}

void fill_termfull(RecordReader& reader, SunSeries& series) {
    for (const std::size_t rows : termfull_groups)
        read_group(reader, rows, {&series.amplitude, &series.phase, &series.frequency});
}

void fill_term(RecordReader& reader, SunSeries& series) {
    for (const std::size_t rows : term_groups)
        read_group(reader, rows, {nullptr, &series.amplitude, &series.phase, &series.frequency});
}

void fill_mterm(RecordReader& reader, PeriodicTables& tables) {
    PeriodicTerms& nutation = tables.nutation;
    read_group(reader, nutation_rows,
               {nullptr, &nutation.d, &nutation.m, &nutation.m_prime, &nutation.f, &nutation.omega,
                &nutation.sine, &nutation.sine_rate, &nutation.cosine, &nutation.cosine_rate});
    PeriodicTerms& moon = tables.moon;
    for (int table = 0; table < 2; ++table)
        read_group(reader, moon_rows,
                   {nullptr, &moon.d, &moon.m, &moon.m_prime, &moon.f, &moon.sine, &moon.cosine, nullptr,
                    nullptr, nullptr});
    moon.omega.resize(moon.d.size());
}

void fill_elp(RecordReader& reader, MoonSeries& series) {
    MoonMainTerms& main = series.main;
    MoonSecondaryTerms& secondary = series.secondary;
    for (const auto& rows : elp_blocks) {
        read_group(reader, rows[0],
                   {nullptr, &main.amplitude, &main.a0, &main.a1, &main.a2, &main.a3, &main.a4});
        for (std::size_t block = 1; block < rows.size(); ++block)
            read_group(reader, rows[block], {nullptr, &secondary.amplitude, &secondary.a0, &secondary.a1});
    }
}

template <class Table>
const Table& loaded(const std::optional<Table>& table, const char* name) {
    if (!table)
        throw RunTimeFailure(TwinWords{series_path(name) + ": the series has not been loaded.",
                                       series_path(name) + ": لم تقرأ هذه المتسلسلة."});
    return *table;
}

} // namespace

void load_termfull() {
    load("termfull.vsk", termfull_series, fill_termfull);
}

void load_term() {
    load("term.vsk", term_series, fill_term);
}

void load_mterm() {
    load("mterm.vsk", mterm_tables, fill_mterm);
}

void load_elp() {
    load("elp.vsk", elp_series, fill_elp);
}

void load_series() {
    load_termfull();
    load_term();
    load_mterm();
    load_elp();
}

const SunSeries& termfull() {
    return loaded(termfull_series, "termfull.vsk");
}

const SunSeries& term() {
    return loaded(term_series, "term.vsk");
}

const PeriodicTables& mterm() {
    return loaded(mterm_tables, "mterm.vsk");
}

const MoonSeries& elp() {
    return loaded(elp_series, "elp.vsk");
}

std::vector<std::string> series_notes(bool english) {
    std::vector<std::string> notes;
    for (const auto& [name, path] : undelivered)
        notes.push_back(english ? "the series file " + path + " is not the delivered one"
                                : "ملف المتسلسلة " + path + " ليس الملف المسلم مع البرنامج");
    return notes;
}

unsigned series_generation() {
    return generation;
}

} // namespace halvane
