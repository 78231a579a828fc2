// SPDX-License-Identifier: MIT
#include "panel/typednumber.h"
#include "tests/panel/panelharness.h"

namespace halvane {
namespace {

struct Row {
    const char* typed;
    const char* stored;
    bool is_number;
};

// The digits of Unicode's blocks Arabic and Arabic Extended; U+066B and U+066C are its decimal and thousands
// signs, U+060C its comma.
constexpr Row rows[] = {
    {"12", "12", true},
    {"-12.5", "-12.5", true},
    {"+3", "+3", true},
    {".5", ".5", true},
    {"5.", "5.", true},
    {"٠١٢٣٤٥٦٧٨٩", "0123456789", true},
    {"۰۱۲۳۴۵۶۷۸۹", "0123456789", true},
    {"٣٫٥", "3.5", true},
    {"٣،٥", "3.5", true},
    {"3,5", "3.5", true},
    {"١٬٢٣٤٫٥", "1234.5", true},
    {"-٢٫٢٥", "-2.25", true},
    {"\u221212", "-12", true},
    {"\u200f٣\u200e", "3", true},
    {"1.234,5", "1.234.5", false},
    {"", "", false},
    {"abc", "abc", false},
    {"١٢x", "12x", false},
    {" 12", " 12", false},
    {"12 ", "12 ", false},
    {"1e3", "1e3", false},
    {"-", "-", false},
    {".", ".", false},
    {"ثلاثة", "ثلاثة", false},
};

TEST(TypedNumber, EveryWayToTypeANumberGivesTheDigitsThatAreStored) {
    for (const Row& row : rows) {
        const TypedNumber typed = typed_number(QString::fromUtf8(row.typed));
        EXPECT_EQ(typed.text, QString::fromUtf8(row.stored)) << row.typed;
        EXPECT_EQ(typed.is_number, row.is_number) << row.typed;
    }
}

TEST(TypedNumber, MoreDigitsThanANumberHoldsAreNoNumber) {
    EXPECT_TRUE(typed_number(QString(308, u'9')).is_number);
    EXPECT_FALSE(typed_number(QString(400, u'9')).is_number);
}

} // namespace
} // namespace halvane
