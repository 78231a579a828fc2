#pragma once

#include "app/stored/programfolder.h"
#include "app/stored/textfile.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

namespace halvane {

/// A temporary program folder with the stored files of `source`; it goes, and the program folder that stood
/// before comes back, with the object.
class TestProgramFolder {
public:
    explicit TestProgramFolder(const std::filesystem::path& source) : before_(program_folder()) {
        std::string pattern = (std::filesystem::temp_directory_path() / "halvane-XXXXXX").string();
        folder_ = ::mkdtemp(pattern.data());
        for (const auto& entry : std::filesystem::directory_iterator(source))
            if (entry.path().extension() == ".vsk")
                std::filesystem::copy_file(entry.path(), folder_ / entry.path().filename());
        set_program_folder(folder_.string());
    }
    TestProgramFolder(const TestProgramFolder&) = delete;
    TestProgramFolder& operator=(const TestProgramFolder&) = delete;
    ~TestProgramFolder() {
        set_program_folder(before_);
        std::filesystem::remove_all(folder_);
    }

    std::string path(const std::string& name) const { return (folder_ / name).string(); }
    bool holds(const std::string& name) const { return std::filesystem::exists(folder_ / name); }
    std::string content(const std::string& name) const { return read_text_file(path(name)); }

private:
    std::filesystem::path folder_;
    std::string before_;
};

/// The folder of a stored golden report: tests/golden/`name`.
inline std::filesystem::path golden_folder(const std::string& name) {
    return std::filesystem::path(HALVANE_TESTS) / "golden" / name;
}

/// The first line that differs, for a message; texts are equal when it is empty.
inline std::string first_difference(const std::string& expected, const std::string& found) {
    if (expected == found)
        return {};
    const auto at = std::mismatch(expected.begin(), expected.end(), found.begin(), found.end());
    const auto offset = static_cast<std::size_t>(at.first - expected.begin());
    const auto line_at = [offset](const std::string& text) {
        const std::size_t begin = offset == 0 ? 0 : text.rfind('\n', std::min(offset, text.size()) - 1) + 1;
        return text.substr(std::min(begin, text.size()), text.find('\n', begin) - begin);
    };
    const auto number = 1 + std::count(expected.begin(), at.first, '\n');
    return "line " + std::to_string(number) + "\nexpected: " + line_at(expected) +
           "\nfound:    " + line_at(found);
}

/// Copies the stored files of tests/golden/`name` into a temporary program folder, runs `run`, and compares
/// the report that it leaves there with the one of the same name in that folder, byte for byte.
inline void expect_golden_report(const std::string& name, const std::string& report,
                                 const std::function<void()>& run) {
    const TestProgramFolder folder(golden_folder(name));
    run();
    ASSERT_TRUE(folder.holds(report)) << name << ": " << report << " was not written";
    EXPECT_EQ(
        first_difference(read_text_file((golden_folder(name) / report).string()), folder.content(report)), "")
        << name;
}

} // namespace halvane
