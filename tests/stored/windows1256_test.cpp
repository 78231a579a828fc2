// SPDX-License-Identifier: MIT
#include "stored/windows1256.h"

#include <gtest/gtest.h>
#include <string>

namespace halvane {
namespace {

TEST(Windows1256, TurnsArabicLettersToUtf8) {
    // The words as an Arabic Windows stores them (CP1256.TXT of the Unicode Consortium).
    EXPECT_EQ(utf8_of_windows1256("\xE3\xDF\xC9"), "مكة");
    EXPECT_EQ(utf8_of_windows1256("\xDA\xE3\xC7\xE4"), "عمان");
    EXPECT_EQ(utf8_of_windows1256("\xC7\xE1\xDE\xCF\xD3 2"), "القدس 2");
    EXPECT_EQ(utf8_of_windows1256("\x80\xA1\xBA\xBF\xFF"), "€،؛؟ے");
    EXPECT_EQ(utf8_of_windows1256("plain"), "plain");
}

TEST(Windows1256, GivesWellFormedUtf8ForEveryByte) {
    for (int byte = 0; byte < 256; ++byte) {
        const std::string one(1, static_cast<char>(byte));
        const std::string text = utf8_of_windows1256(one);
        EXPECT_TRUE(is_utf8(text)) << byte;
        EXPECT_FALSE(text.empty()) << byte;
    }
}

TEST(IsUtf8, TakesWellFormedSequencesOnly) {
    for (const char* good : {"", "plain", "مكة", "€", "\xF0\x9F\x8C\x99", "\xED\x9F\xBF", "\xF4\x8F\xBF\xBF"})
        EXPECT_TRUE(is_utf8(good)) << good;
    // Lone and missing continuations, overlong forms, surrogates, beyond U+10FFFF.
    for (const char* bad : {"\x80", "\xC3", "\xC3(", "\xC0\xAF", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80",
                            "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xE2\x82", "\xFE"})
        EXPECT_FALSE(is_utf8(bad)) << bad;
}

} // namespace
} // namespace halvane
