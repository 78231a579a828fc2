// SPDX-License-Identifier: MIT
#include "batch/choices.h"

#include <cstddef>
#include <sstream>
#include <utility>

namespace halvane {

std::string choice_of(const std::vector<std::string>& names) {
    std::string words = names.front();
    for (std::size_t i = 1; i < names.size(); ++i)
        words += (i + 1 < names.size() ? ", " : " or ") + names[i];
    return words;
}

CLI::Validator one_of(const std::vector<std::string>& words) {
    return offering(words, CLI::IsMember(words).description(""));
}

// The reader keeps of a check its name, which it shows nowhere.
CLI::Validator offering(const std::vector<std::string>& words, CLI::Validator check) {
    std::string name;
    for (const std::string& word : words)
        name += (name.empty() ? "" : " ") + word;
    return std::move(check.name(name));
}

std::vector<std::string> offered_words(const CLI::Validator& check) {
    std::vector<std::string> words;
    std::istringstream name(check.get_name());
    for (std::string word; name >> word;)
        words.push_back(word);
    return words;
}

std::vector<std::string> offered_words(CLI::Option& option) {
    try {
        return offered_words(*option.get_validator(0));
    } catch (const CLI::OptionNotFound&) {
        return {};
    }
}

CLI::Option* add_choice(CLI::App& command, const char* name, std::string& target,
                        const std::string& description, const std::vector<std::string>& words) {
    return command.add_option(name, target, description + choice_of(words))
        ->type_name("NAME")
        ->check(one_of(words));
}

} // namespace halvane
