// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/programfolder.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace halvane {

/// The folder of a stored golden report: tests/golden/`name`.
inline std::filesystem::path golden_folder(const std::string& name) {
    return std::filesystem::path(HALVANE_TESTS) / "golden" / name;
}

/// The names of the golden reports in tests/golden/`room`, in order.
inline std::vector<std::string> golden_names(const std::string& room) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(golden_folder(room)))
        if (entry.is_directory())
            names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

/// The name of a golden report as part of a test's name.
inline std::string golden_test_name(const ::testing::TestParamInfo<std::string>& info) {
    std::string name = info.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

/// The lines of a report, without their ends.
inline std::vector<std::string> lines_of(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find("\r\n", start), text.size());
        lines.push_back(text.substr(start, end - start));
        start = end + 2;
    }
    return lines;
}

/// The first line that differs, with visible blanks and ends, for a message; texts are equal when it is
/// empty.
inline std::string first_difference(const std::string& expected, const std::string& found) {
    if (expected == found)
        return {};
    const auto at = std::mismatch(expected.begin(), expected.end(), found.begin(), found.end());
    const auto offset = static_cast<std::size_t>(at.first - expected.begin());
    const std::size_t end_before = expected.substr(0, offset).rfind('\n');
    const std::size_t begin = end_before == std::string::npos ? 0 : end_before + 1;
    const auto line_at = [begin](const std::string& text) {
        std::string visible;
        for (std::size_t i = begin; i < text.size(); ++i) {
            const char c = text[i];
            if (c == '\n')
                return visible + "\\n";
            visible += c == '\r' ? "\\r" : c == ' ' ? "\u00b7" : std::string(1, c);
        }
        return visible + " (end of file)";
    };
    const auto number = 1 + std::count(expected.begin(), at.first, '\n');
    return "line " + std::to_string(number) + "\nexpected: " + line_at(expected) +
           "\nfound:    " + line_at(found);
}

/// Whether two texts are the same byte for byte.
inline ::testing::AssertionResult same_bytes(const std::string& found, const std::string& expected) {
    const std::string difference = first_difference(expected, found);
    return difference.empty() ? ::testing::AssertionSuccess() : ::testing::AssertionFailure() << difference;
}

/// Copies the stored files of tests/golden/`name` into a temporary program folder, runs `run`, and compares
/// the report that it leaves there with the one of the same name in that folder, byte for byte.
inline void expect_golden_report(const std::string& name, const std::string& report,
                                 const std::function<void()>& run) {
    const TemporaryProgramFolder folder(golden_folder(name));
    run();
    ASSERT_TRUE(folder.has(report)) << name << ": " << report << " was not written";
    EXPECT_EQ(first_difference(bytes_of(golden_folder(name) / report), folder.read(report)), "") << name;
}

} // namespace halvane
