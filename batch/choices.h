// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace halvane {

/// Names as words of a choice: "a, b or c".
std::string choice_of(const std::vector<std::string>& names);

/// The names that --format takes.
template <class Formats>
std::vector<std::string> format_names(const Formats& formats) {
    std::vector<std::string> names;
    for (const auto format : formats)
        names.emplace_back(name_of(format));
    return names;
}

/// Takes one of the words alone; completions offer them.
CLI::Validator one_of(const std::vector<std::string>& words);

/// A check whose words completions offer, beside which it may take others.
CLI::Validator offering(const std::vector<std::string>& words, CLI::Validator check);

std::vector<std::string> offered_words(const CLI::Validator& check);
/// Those of an option's first check; none where it has none.
std::vector<std::string> offered_words(CLI::Option& option);

/// Adds an option of type NAME that takes one of the words, which stand behind `description`.
CLI::Option* add_choice(CLI::App& command, const char* name, std::string& target,
                        const std::string& description, const std::vector<std::string>& words);

} // namespace halvane
