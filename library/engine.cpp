// SPDX-License-Identifier: MIT
#include "halvane/engine.h"

#include "base/version.h"
#include "finemap/worldoutline.h"
#include "hijri/mainland.h"
#include "library/guarded.h"
#include "library/librarydata.h"
#include "library/parts.h"
#include "stored/textfile.h"
#include "system/path.h"

#include <atomic>
#include <filesystem>

namespace halvane::v1 {
namespace {

constexpr const char* termfull_name = "termfull.vsk";
constexpr const char* term_name = "term.vsk";
constexpr const char* mterm_name = "mterm.vsk";
constexpr const char* elp_name = "elp.vsk";
constexpr const char* world_name = "world.txt";

std::uint64_t next_number() {
    static std::atomic<std::uint64_t> last = 0;
    return ++last;
}

/// In     folder  of the files, for messages only
std::shared_ptr<const Engine::Parts> parts_of_data(const EngineData& data,
                                                   const std::filesystem::path& folder) {
    auto theory = std::make_shared<Theory>();
    theory->complete_sun = read_termfull(data.termfull, (folder / termfull_name).string());
    theory->short_sun = read_term(data.term, (folder / term_name).string());
    theory->periodic_tables = read_mterm(data.mterm, (folder / mterm_name).string());
    theory->lunar_tables = read_elp(data.elp, (folder / elp_name).string());
    auto parts = std::make_shared<Engine::Parts>();
    parts->theory = std::move(theory);
    if (!data.world.empty())
        parts->americas = mainland_of_the_americas(world_of_text(data.world, (folder / world_name).string()));
    parts->number = next_number();
    return parts;
}

std::shared_ptr<const Engine::Parts> parts_of_folder(const std::filesystem::path& folder) {
    const auto text_of = [&folder](const char* name) { return read_text_file((folder / name).string()); };
    const std::string termfull = text_of(termfull_name);
    const std::string term = text_of(term_name);
    const std::string mterm = text_of(mterm_name);
    const std::string elp = text_of(elp_name);
    std::error_code ignored;
    const std::string world =
        std::filesystem::exists(folder / world_name, ignored) ? text_of(world_name) : "";
    return parts_of_data({termfull, term, mterm, elp, world}, folder);
}

/// The first folder that holds the data; the last one where none does.
std::filesystem::path found_data() {
    const std::vector<std::filesystem::path> folders = data_folders();
    std::error_code ignored;
    for (const std::filesystem::path& folder : folders)
        if (std::filesystem::exists(folder / termfull_name, ignored))
            return folder;
    return folders.back();
}

} // namespace

Engine::Engine() : parts_(guarded([] { return parts_of_folder(found_data()); })) {}

Engine::Engine(const std::string& folder)
    : parts_(guarded([&] { return parts_of_folder(path_of(folder)); })) {}

Engine::Engine(const EngineData& data) : parts_(guarded([&] { return parts_of_data(data, {}); })) {}

Ephemeris& ephemeris_of(const Engine& engine) {
    thread_local std::optional<Ephemeris> own;
    thread_local std::uint64_t number = 0;
    const Engine::Parts& parts = engine.parts();
    if (number != parts.number) [[unlikely]] {
        own.emplace(parts.theory);
        number = parts.number;
    }
    return *own;
}

const char* version() {
    return halvane::version;
}

Progress::~Progress() = default;

} // namespace halvane::v1
