// SPDX-License-Identifier: MIT
// The shell's file is read by its published form: Microsoft, [MS-SHLLINK], Shell Link (.LNK) Binary File
// Format.
#include "platform/windows/shortcutfile.h"
#include "system/path.h"
#include "system/windows/widepath.h"
#include "tests/support/programfolder.h"

#include <gtest/gtest.h>
#include <map>

namespace halvane {
namespace {

/// A number of a file, the lowest byte first.
unsigned number(const std::string& file, std::size_t at, int size) {
    unsigned value = 0;
    for (int i = size; i-- > 0;)
        value = value << 8U | static_cast<unsigned char>(file.at(at + static_cast<std::size_t>(i)));
    return value;
}

std::string units(const std::string& file, std::size_t at, std::size_t count) {
    std::wstring text;
    for (std::size_t i = 0; i < count; ++i)
        text += static_cast<wchar_t>(number(file, at + 2 * i, 2));
    while (text.ends_with(L'\0')) // Wine counts the end of a text with it
        text.pop_back();
    return narrow(text);
}

struct ReadLink {
    unsigned header_size = 0, class_begins = 0, icon = 0, show = 0;
    std::map<unsigned, std::string> texts; ///< by their flag, 2.4
};

ReadLink read_link(const std::string& file) {
    ReadLink link;
    link.header_size = number(file, 0, 4);
    link.class_begins = number(file, 4, 4);
    const unsigned flags = number(file, 20, 4);
    link.icon = number(file, 56, 4);
    link.show = number(file, 60, 4);
    std::size_t at = link.header_size;
    if ((flags & 0x01U) != 0)
        at += 2 + number(file, at, 2); // LinkTargetIDList
    if ((flags & 0x02U) != 0)
        at += number(file, at, 4); // LinkInfo
    for (const unsigned text : {0x04U, 0x08U, 0x10U, 0x20U, 0x40U})
        if ((flags & text) != 0) {
            const unsigned count = number(file, at, 2);
            link.texts[text] = units(file, at + 2, count);
            at += 2 + 2 * count;
        }
    return link;
}

TEST(ShortcutFile, HoldsTargetFolderWindowAndIcon) {
    const TemporaryFolder folder;
    const std::string base = joined_path(folder.path().string(), "مواقيت 祈り");
    std::filesystem::create_directory(path_of(base));
    put_bytes(path_of(joined_path(base, "alert63.exe")), "MZ");
    const Shortcut shortcut{joined_path(base, "alert63.exe"), "Startup", "Halvane", base, 7, 2};
    for (int time = 0; time < 2; ++time) {
        write_shortcut(base, link_fields(shortcut));
        const ReadLink link = read_link(bytes_of(path_of(joined_path(base, "Halvane.lnk"))));
        EXPECT_EQ(link.header_size, 0x4CU);
        EXPECT_EQ(link.class_begins, 0x00021401U);
        EXPECT_EQ(link.show, 7U);
        EXPECT_EQ(link.icon, 2U);
        EXPECT_EQ(link.texts.at(0x10U), link_fields(shortcut).working_folder);
        EXPECT_EQ(link.texts.at(0x40U), link_fields(shortcut).target);
    }
}

TEST(ShortcutFile, AFolderThatIsNotThereIsToldToTheCaller) {
    EXPECT_ANY_THROW(write_shortcut("C:\\no such folder", link_fields({"C:\\a.exe", "", "A", "C:\\", 0, 0})));
}

TEST(ShortcutFile, TheStartUpFolderIsThere) {
    EXPECT_TRUE(std::filesystem::is_directory(path_of(startup_folder())));
}

} // namespace
} // namespace halvane
