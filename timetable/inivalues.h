// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace halvane {

/// The number that a text is, whole; nothing for any other text.
std::optional<double> number_of_text(std::string_view text);

// The values of an INI text. What takes one returns what is wanted in its place ("1 ... 30"); an empty text
// for a good one, which alone changes the target.

std::string take_number(double& target, std::string_view value, double least, double greatest);

/// A word of a file and what it stands for.
template <class Value>
struct Word {
    const char* word;
    Value value;
};

template <class Value, std::size_t count>
std::string take_word(Value& target, std::string_view value, const std::array<Word<Value>, count>& words) {
    std::string wanted;
    for (const Word<Value>& word : words) {
        if (value == word.word) {
            target = word.value;
            return {};
        }
        (wanted += wanted.empty() ? "" : ", ") += word.word;
    }
    return wanted;
}

template <class Value, std::size_t count>
std::vector<std::string> all_words(const std::array<Word<Value>, count>& words) {
    std::vector<std::string> all;
    all.reserve(count);
    for (const Word<Value>& word : words)
        all.emplace_back(word.word);
    return all;
}

template <class Value, std::size_t count>
std::string word_of(Value value, const std::array<Word<Value>, count>& words) {
    for (const Word<Value>& word : words)
        if (value == word.value)
            return word.word;
    return {};
}

} // namespace halvane
