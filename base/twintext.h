// SPDX-License-Identifier: MIT
#pragma once

#include "base/language.h"

#include <string>
#include <utility>

namespace halvane {

/// A constant text in both languages, in UTF-8. Tables of them cost nothing at the start of a program; a
/// std::string would be made there, so texts that are made later have the type TwinWords.
struct TwinText {
    const char* english;
    const char* arabic;

    constexpr const char* in(Language language) const {
        return language == Language::english ? english : arabic;
    }
};

/// A message box's words.
struct TwinMessage {
    TwinText title;
    TwinText text;
};

/// A text in both languages that is made while the program runs.
struct TwinWords {
    std::string english;
    std::string arabic;

    TwinWords() = default;
    TwinWords(std::string english_words, std::string arabic_words)
        : english(std::move(english_words)), arabic(std::move(arabic_words)) {}
    TwinWords(const TwinText& text) : english(text.english), arabic(text.arabic) {} // NOLINT: a text is words
    const std::string& in(Language language) const& {
        return language == Language::english ? english : arabic;
    }
    std::string in(Language language) && {
        return std::move(language == Language::english ? english : arabic);
    }
};

/// What the user is told of a value that has no answer, where it was typed: nothing runs, nothing is stored.
struct Refusal {
    TwinText title;
    TwinWords text;
};

} // namespace halvane
