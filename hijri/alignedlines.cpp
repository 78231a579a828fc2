// SPDX-License-Identifier: MIT
#include "hijri/alignedlines.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace halvane {
namespace {

/// How many characters UTF-8 has; those of a table are each as wide as a letter.
std::size_t length(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char octet) {
        return (static_cast<unsigned char>(octet) & 0xC0U) != 0x80U;
    }));
}

std::string line_of(const std::vector<std::string>& row, const std::vector<std::size_t>& widths) {
    constexpr std::size_t between = 2;
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i)
        (line += row[i]).append(widths[i] - length(row[i]) + between, ' ');
    return line.erase(line.find_last_not_of(' ') + 1);
}

} // namespace

void AlignedLines::add(std::vector<std::string> fields) {
    rows_.push_back(std::move(fields));
}

std::string AlignedLines::text() const {
    std::vector<std::size_t> widths;
    for (const std::vector<std::string>& row : rows_) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], length(row[i]));
    }
    std::string text;
    for (const std::vector<std::string>& row : rows_)
        text += line_of(row, widths) + "\n";
    return text;
}

} // namespace halvane
