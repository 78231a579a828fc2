#pragma once

#include "app/stored/programfolder.h"
#include "app/stored/textfile.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace halvane {

/// Reports that were checked by hand stand in tests/golden/ROOM/NAME with the stored files they come from.
/// A test needs the definitions HALVANE_TESTS and HALVANE_DATA (see halvane_test).

/// The folder of one golden report.
inline std::filesystem::path golden_folder(const std::string& room, const std::string& name) {
    return std::filesystem::path(HALVANE_TESTS) / "golden" / room / name;
}

/// The names of the golden reports of a room, in order.
inline std::vector<std::string> golden_names(const std::string& room) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(golden_folder(room, "")))
        if (entry.is_directory())
            names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

/// A temporary program folder with copies of the stored files of `source` and the delivered series files.
/// It is the program folder for as long as it lives.
class GoldenProgramFolder {
public:
    explicit GoldenProgramFolder(const std::filesystem::path& source) : before_(program_folder()) {
        std::string pattern = (std::filesystem::temp_directory_path() / "halvane-golden-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr)
            throw std::runtime_error("no temporary folder: " + pattern);
        folder_ = pattern;
        for (const auto& entry : std::filesystem::directory_iterator(source))
            if (entry.path().extension() != ".out")
                std::filesystem::copy(entry.path(), folder_ / entry.path().filename());
        for (const char* name : {"term.vsk", "mterm.vsk", "termfull.vsk", "elp.vsk"})
            std::filesystem::create_symlink(std::filesystem::path(HALVANE_DATA) / name, folder_ / name);
        set_program_folder(folder_.string());
    }
    GoldenProgramFolder(const GoldenProgramFolder&) = delete;
    GoldenProgramFolder& operator=(const GoldenProgramFolder&) = delete;
    ~GoldenProgramFolder() {
        set_program_folder(before_);
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    std::string path(const std::string& name) const { return (folder_ / name).string(); }
    bool has(const std::string& name) const { return std::filesystem::exists(folder_ / name); }
    std::string content(const std::string& name) const { return read_text_file(path(name)); }
    void put(const std::string& name, const std::string& content) const {
        save_text_file(path(name), content);
    }
    /// Every file of the folder, in order.
    std::vector<std::string> files() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder_))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

private:
    std::string before_;
    std::filesystem::path folder_;
};

/// The lines of a text, without their ends.
inline std::vector<std::string> lines_of(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = std::min(text.find("\r\n", start), text.size());
        lines.push_back(text.substr(start, end - start));
        start = end + 2;
    }
    return lines;
}

/// Whether two texts are the same byte for byte; otherwise both lines where they part, with visible blanks
/// and ends.
inline ::testing::AssertionResult same_bytes(const std::string& found, const std::string& expected) {
    if (found == expected)
        return ::testing::AssertionSuccess();
    const auto parted = std::mismatch(found.begin(), found.end(), expected.begin(), expected.end()).first;
    const auto at = static_cast<std::size_t>(parted - found.begin());
    const std::string before = found.substr(0, at);
    const auto line = 1 + std::count(before.begin(), before.end(), '\n');
    const std::size_t last_end = before.rfind('\n');
    const std::size_t start = last_end == std::string::npos ? 0 : last_end + 1;
    const auto shown = [start](const std::string& text) {
        std::string visible;
        for (std::size_t i = start; i < text.size(); ++i) {
            const char c = text[i];
            if (c == '\n')
                return visible + "\\n";
            visible += c == '\r' ? "\\r" : c == ' ' ? "\u00b7" : std::string(1, c);
        }
        return visible + "(end of file)";
    };
    return ::testing::AssertionFailure()
           << "line " << line << ", byte " << at - start + 1 << " differs\n  found    " << shown(found)
           << "\n  expected " << shown(expected);
}

/// Runs `run` on the stored files of a golden folder and compares its report byte for byte.
inline ::testing::AssertionResult gives_golden_report(const std::string& room, const std::string& name,
                                                      const std::string& report,
                                                      const std::function<void()>& run) {
    const std::filesystem::path source = golden_folder(room, name);
    const GoldenProgramFolder folder(source);
    run();
    if (!folder.has(report))
        return ::testing::AssertionFailure() << room << "/" << name << ": no " << report << " was written";
    const ::testing::AssertionResult same =
        same_bytes(folder.content(report), read_text_file((source / report).string()));
    return same ? same : ::testing::AssertionFailure() << room << "/" << name << ": " << same.message();
}

/// The name of a golden report as part of a test's name.
inline std::string golden_test_name(const ::testing::TestParamInfo<std::string>& info) {
    std::string name = info.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

} // namespace halvane
