// SPDX-License-Identifier: MIT
#include "platform/windows/linkfields.h"

#include <gtest/gtest.h>

namespace halvane {
namespace {

TEST(LinkFields, TheAlertsShortcutHasItsProgramAsTargetAndIcon) {
    const LinkFields link =
        link_fields({"C:\\Halvane/alert63.exe", "Startup", "Halvane", "C:/Halvane", 0, 0});
    EXPECT_EQ(link.file_name, "Halvane.lnk");
    EXPECT_EQ(link.target, "C:\\Halvane\\alert63.exe");
    EXPECT_EQ(link.working_folder, "C:\\Halvane");
    EXPECT_EQ(link.show_command, 1);
    EXPECT_EQ(link.icon_file, "C:\\Halvane\\alert63.exe");
    EXPECT_EQ(link.icon_number, 0);
}

TEST(LinkFields, TheNumberOfTheIconIsKept) {
    EXPECT_EQ(link_fields({"C:\\a.exe", "Startup", "A", "C:\\", 0, 3}).icon_number, 3);
}

// [MS-SHLLINK] 2.1: SW_SHOWNORMAL 1, SW_SHOWMAXIMIZED 3, SW_SHOWMINNOACTIVE 7; all other values are the
// first.
TEST(LinkFields, OfTheWindowStylesAShortcutKnowsThree) {
    for (int style = -1; style <= 11; ++style)
        EXPECT_EQ(link_fields({"C:\\a.exe", "Startup", "A", "C:\\", style, 0}).show_command,
                  style == 3 || style == 7 ? style : 1)
            << style;
}

} // namespace
} // namespace halvane
