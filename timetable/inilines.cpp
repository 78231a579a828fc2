// SPDX-License-Identifier: MIT
#include "timetable/inilines.h"

#include <algorithm>

namespace halvane {
namespace {

constexpr std::string_view blanks = " \t\n\v\f\r";

bool is_blank(char c) {
    return blanks.find(c) != std::string_view::npos;
}

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// Where the first of `wanted` stands, or the comment before it: a ';' behind a blank.
std::size_t find_before_comment(std::string_view text, std::string_view wanted) {
    bool is_after_blank = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (wanted.find(text[i]) != std::string_view::npos || (is_after_blank && text[i] == ';'))
            return i;
        is_after_blank = is_blank(text[i]);
    }
    return text.size();
}

std::string_view without_comment(std::string_view text) {
    return trimmed(text.substr(0, find_before_comment(text, {})));
}

} // namespace

IniLines::Found IniLines::take(std::string_view line) {
    const std::string_view words = trimmed(line);
    if (words.empty() || words.front() == ';' || words.front() == '#')
        return Found::nothing;
    if (!name_.empty() && is_blank(line.front())) {
        value_ = words;
        return Found::value;
    }
    return words.front() == '[' ? take_section(words.substr(1)) : take_value(words);
}

IniLines::Found IniLines::take_section(std::string_view words) {
    const std::size_t end = find_before_comment(words, "]");
    if (end == words.size() || words[end] != ']')
        return Found::unreadable;
    section_ = words.substr(0, end);
    name_.clear();
    return Found::nothing;
}

IniLines::Found IniLines::take_value(std::string_view words) {
    const std::size_t end = find_before_comment(words, "=:");
    if (end == words.size() || words[end] == ';')
        return Found::unreadable;
    name_ = trimmed(words.substr(0, end));
    value_ = without_comment(words.substr(end + 1));
    return Found::value;
}

} // namespace halvane
