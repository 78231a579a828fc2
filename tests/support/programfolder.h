#pragma once

#include "stored/programfolder.h"
#include "tests/support/bytes.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

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

/// A program folder of the test's own with the delivered stored files and links to the series files. The
/// program folder of before comes back at its end.
class TemporaryProgramFolder {
public:
    TemporaryProgramFolder() : before_(program_folder()) {
        std::string name = (std::filesystem::temp_directory_path() / "halvane-test-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr)
            throw std::runtime_error("cannot make a temporary folder");
        path_ = name;
        for (const char* file : stored_files)
            std::filesystem::copy_file(delivered(file), path_ / file);
        for (const char* file : series_files)
            std::filesystem::create_symlink(delivered(file), path_ / file);
        set_program_folder(path_.string());
    }
    TemporaryProgramFolder(const TemporaryProgramFolder&) = delete;
    TemporaryProgramFolder& operator=(const TemporaryProgramFolder&) = delete;
    ~TemporaryProgramFolder() {
        set_program_folder(before_);
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

private:
    std::string before_;
    std::filesystem::path path_;
};

} // namespace halvane
