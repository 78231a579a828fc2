// SPDX-License-Identifier: MIT
#include "timetable/inilines.h"

#include <gtest/gtest.h>
#include <initializer_list>
#include <string>

namespace halvane {
namespace {

using Found = IniLines::Found;

/// "[section] name = value" of every value that the lines hold; "?" for an unreadable line.
std::string read(std::initializer_list<const char*> texts) {
    IniLines lines;
    std::string found;
    for (const char* text : texts) {
        const Found kind = lines.take(text);
        if (kind == Found::value)
            found += "[" + lines.section() + "]" + lines.name() + "=" + lines.value() + "\n";
        if (kind == Found::unreadable)
            found += "?\n";
    }
    return found;
}

TEST(IniLines, GiveNamesAndValuesOfTheirSections) {
    EXPECT_EQ(read({"a=1\r\n", "[angles]\n", "fajer = 18.5", "\tisha : 17 \n", "[]", "b="}),
              "[]a=1\n[angles]fajer=18.5\n[angles]fajer=isha : 17\n[]b=\n");
}

TEST(IniLines, LeaveOutEmptyLinesAndComments) {
    EXPECT_EQ(read({"", "\n", "  \t", "; a=1", "# a=1", "a=1 ; one", "b=1;2", "c=1 # 2", "[s ;]", "[t] ; s"}),
              "[]a=1\n[]b=1;2\n[]c=1 # 2\n?\n");
}

TEST(IniLines, GoOnWithAnIndentedLineUntilTheNextSection) {
    EXPECT_EQ(read({"columns = fajer,", "  isha ; no comment", "[page]", "  size = A4"}),
              "[]columns=fajer,\n[]columns=isha ; no comment\n[page]size=A4\n");
}

TEST(IniLines, WithoutSignOrBracketAreUnreadable) {
    EXPECT_EQ(read({"a", "[section", "a ;=1", "=1"}), "?\n?\n?\n[]=1\n");
}

} // namespace
} // namespace halvane
