// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "base/numberformat.h"

#include <clocale>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace halvane {
namespace {

TEST(NumberPattern, ShowsTheDigitsThatItsZerosAskFor) {
    EXPECT_EQ(format_number(7, "##00"), "07");
    EXPECT_EQ(format_number(123, "##00"), "123");
    EXPECT_EQ(format_number(12345, "##00"), "12345");
    EXPECT_EQ(format_number(0, "##00"), "00");
    EXPECT_EQ(format_number(5.25, "###00.0"), "05.2");
    EXPECT_EQ(format_number(0, "###############0.0"), "0.0");
    EXPECT_EQ(format_number(900, "###############0.0"), "900.0");
    EXPECT_EQ(format_number(-3.5, "####0.00"), "-3.50");
    EXPECT_EQ(format_number(2026, "######"), "2026");
    EXPECT_EQ(format_number(75.36, "00.0"), "75.4");
    EXPECT_EQ(format_number(-2.79, "00.0"), "-02.8");
    EXPECT_EQ(format_number(0.125, "0.000"), "0.125");
}

TEST(NumberPattern, WithoutZerosShowsNothingForZero) {
    EXPECT_EQ(format_number(0, "######"), "");
    EXPECT_EQ(format_number(-5, "######"), "-5");
}

TEST(NumberPattern, RoundsHalfToEvenOnTheBinaryValue) {
    EXPECT_EQ(format_number(0.5, "0"), "0");
    EXPECT_EQ(format_number(1.5, "0"), "2");
    EXPECT_EQ(format_number(2.5, "0"), "2");
    EXPECT_EQ(format_number(0.25, "0.0"), "0.2");
    EXPECT_EQ(format_number(0.75, "0.0"), "0.8");
    EXPECT_EQ(format_number(0.35, "0.0"), "0.3") << "0.35 lies below its decimal";
    EXPECT_EQ(format_number(0.45, "0.0"), "0.5") << "0.45 lies above its decimal";
}

TEST(NumberPattern, ShowsTheSignOfANegativeValueThatRoundsToZero) {
    EXPECT_EQ(format_number(-0.01, "00.0"), "-00.0");
    EXPECT_EQ(format_number(-0.0, "00.0"), "00.0");
    EXPECT_EQ(format_number(-0.4, "##00"), "-00");
}

TEST(NumberPattern, OfNoFiniteValueIsAFailure) {
    EXPECT_THROW(format_number(std::nan(""), "0.0"), RunTimeFailure);
    EXPECT_THROW(format_number(std::numeric_limits<double>::infinity(), "0.0"), RunTimeFailure);
}

TEST(NumberPattern, TakesNumbersOfAnySize) {
    EXPECT_EQ(format_number(1e300, "0.0").size(), 303U);
    EXPECT_EQ(format_number(-std::numeric_limits<double>::max(), "##00").size(), 310U);
}

TEST(NumberItem, HasABlankForAPlusSignAndOneAfter) {
    EXPECT_EQ(number_item(18.0), " 18 ");
    EXPECT_EQ(number_item(-2.5), "-2.5 ");
    EXPECT_EQ(number_item(0.0), " 0 ");
    EXPECT_EQ(number_item(-0.0F), " 0 ") << "a zero has no sign";
    EXPECT_EQ(number_item(0.1F), " 0.1 ") << "a short number keeps its own digits";
    EXPECT_EQ(number_item(160.7), " 160.7 ");
}

TEST(NumericPrefix, TakesTheLongestDecimalNumberAtTheStart) {
    EXPECT_EQ(numeric_prefix("12"), 12);
    EXPECT_EQ(numeric_prefix("12abc"), 12);
    EXPECT_EQ(numeric_prefix("-12.5 min"), -12.5);
    EXPECT_EQ(numeric_prefix("+7"), 7);
    EXPECT_EQ(numeric_prefix(".5"), 0.5);
    EXPECT_EQ(numeric_prefix("5."), 5);
    EXPECT_EQ(numeric_prefix("1.2.3"), 1.2);
    EXPECT_EQ(numeric_prefix("1e3"), 1);
    EXPECT_EQ(numeric_prefix("1,5"), 1);
    EXPECT_EQ(numeric_prefix("007"), 7);
}

TEST(NumericPrefix, OfAnythingElseIsZero) {
    for (const char* text :
         {"", " 12", "abc", "-", "+", ".", "-.", "+-1", "--1", "١٢", "#", "e5", "inf", "nan"})
        EXPECT_EQ(numeric_prefix(text), 0) << text;
    EXPECT_EQ(numeric_prefix(std::string(100000, '9')), 0) << "beyond every number";
}

TEST(NumberTexts, DoNotDependOnTheLocale) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* locale : {"de_DE.UTF-8", "ar_JO.UTF-8", "C.UTF-8"})
        if (std::setlocale(LC_ALL, locale) != nullptr) {
            EXPECT_EQ(format_number(1234.5, "####0.00"), "1234.50");
            EXPECT_EQ(numeric_prefix("1.5"), 1.5);
        }
    std::setlocale(LC_ALL, before.c_str());
}

} // namespace
} // namespace halvane
