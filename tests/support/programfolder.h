// SPDX-License-Identifier: MIT
#pragma once

#include "stored/programfolder.h"
#include "tests/support/bytes.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace halvane {

inline void put_bytes(const std::filesystem::path& path, std::string_view bytes) {
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    stream << bytes;
    if (!stream.flush())
        throw std::runtime_error("cannot write " + path.string());
}

/// The delivered files of `data/`.
inline std::filesystem::path delivered(std::string_view name) {
    return std::filesystem::path(HALVANE_DATA) / name;
}

inline constexpr const char* stored_files[]{"pref.vsk",  "loc.vsk",  "loc.txt",  "date.vsk", "phase.vsk",
                                            "visib.vsk", "coor.vsk", "tele.vsk", "alert.vsk"};
inline constexpr const char* series_files[]{"termfull.vsk", "term.vsk", "mterm.vsk", "elp.vsk"};
inline constexpr const char* zone_list_file = "zones.csv";
inline constexpr const char* world_file = "world.txt";

/// An empty folder of its own, gone with the object.
class TemporaryFolder {
public:
    explicit TemporaryFolder(const std::filesystem::path& base = std::filesystem::temp_directory_path()) {
        std::random_device random;
        do
            path_ = base / ("halvane-test-" + std::to_string(random()));
        while (!std::filesystem::create_directory(path_)); // one of that name is there
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
        std::filesystem::remove_all(path_, ignored);
    }

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(std::string_view name) const { return path_ / name; }
    std::string read(std::string_view name) const { return bytes_of(path_ / name); }
    /// A new file in place of the present one, or of a link to a delivered one.
    void write(std::string_view name, std::string_view bytes) const {
        erase(name);
        put_bytes(path_ / name, bytes);
    }
    /// The same file with other content.
    void rewrite(std::string_view name, std::string_view bytes) const { put_bytes(path_ / name, bytes); }
    void erase(std::string_view name) const { std::filesystem::remove(path_ / name); }
    bool has(std::string_view name) const { return std::filesystem::exists(path_ / name); }
    /// The names of all files, in order.
    std::vector<std::string> files() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(path_))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

private:
    std::filesystem::path path_;
};

/// Puts a delivered file into a folder: as a link, or as a copy where the system has no links for users.
inline void put_delivered(const char* file, const std::filesystem::path& folder) {
    std::error_code no_link;
    std::filesystem::create_symlink(delivered(file), folder / file, no_link);
    if (no_link)
        std::filesystem::copy_file(delivered(file), folder / file);
}

/// A program folder of its own with the stored files of `source` and the delivered series files,
/// zones and lines of the world. The program folder of before comes back at its end.
class TemporaryProgramFolder : public TemporaryFolder {
public:
    explicit TemporaryProgramFolder(const std::filesystem::path& source = HALVANE_DATA)
        : before_(program_folder()) {
        for (const char* file : stored_files)
            if (std::filesystem::exists(source / file))
                std::filesystem::copy_file(source / file, path() / file);
        for (const char* file : series_files)
            put_delivered(file, path());
        for (const char* file : {zone_list_file, world_file})
            put_delivered(file, path());
        set_program_folder(path().string());
    }
    TemporaryProgramFolder(const TemporaryProgramFolder&) = delete;
    TemporaryProgramFolder& operator=(const TemporaryProgramFolder&) = delete;
    ~TemporaryProgramFolder() { set_program_folder(before_); }

private:
    std::string before_;
};

} // namespace halvane
