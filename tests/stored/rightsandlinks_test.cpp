// SPDX-License-Identifier: MIT
// What a save does with limits, rights and links of the system.
#include "stored/textfile.h"
#include "tests/stored/storedrecords.h"

#include <csignal>
#include <gtest/gtest.h>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>

namespace halvane {
namespace {

TEST(Saving, KeepsTheOldContentWhenTheDiskTakesNoMore) {
    const TemporaryProgramFolder folder;
    const std::string before = folder.read("loc.txt");
    const auto names = folder.files();
    rlimit old{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &old), 0);
    const rlimit small{1000, old.rlim_max};
    void (*handler)(int) = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const auto words =
        failure_words([&] { save_text_file((folder / "loc.txt").string(), std::string(5000, 'x')); });
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &old), 0);
    std::signal(SIGXFSZ, handler);
    ASSERT_TRUE(words.has_value());
    EXPECT_NE(words->find("Cannot write " + (folder / "loc.txt").string()), std::string::npos) << *words;
    EXPECT_EQ(folder.read("loc.txt"), before);
    EXPECT_EQ(folder.files(), names);
}

TEST(Saving, KeepsTheRightsOfTheFile) {
    const TemporaryProgramFolder folder;
    ASSERT_EQ(::chmod((folder / "loc.vsk").c_str(), 0600), 0);
    write_loc({});
    struct stat status {};
    ASSERT_EQ(::stat((folder / "loc.vsk").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST(Saving, GivesANewFileTheRightsOfTheUmask) {
    const TemporaryProgramFolder folder;
    const mode_t before = ::umask(077);
    folder.erase("loc.vsk");
    write_loc({});
    ::umask(before);
    struct stat status {};
    ASSERT_EQ(::stat((folder / "loc.vsk").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0600U);
}

TEST(Saving, GoesThroughALinkOfTheUsers) {
    const TemporaryProgramFolder folder;
    std::filesystem::create_directory(folder / "settings");
    std::filesystem::rename(folder / "pref.vsk", folder / "settings/pref.vsk");
    std::filesystem::create_symlink("settings/pref.vsk", folder / "pref.vsk");
    Preferences preferences;
    preferences.fajer_angle = 19;
    write_pref(preferences);
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "pref.vsk"));
    EXPECT_TRUE(folder.read("settings/pref.vsk").starts_with("19,"));
    std::filesystem::remove(folder / "pref.vsk");
    std::filesystem::create_symlink("pref.vsk", folder / "pref.vsk");
    const auto words = failure_words([] { write_pref({}); });
    ASSERT_TRUE(words.has_value()) << "a link that leads to itself";
    EXPECT_NE(words->find("Cannot write " + (folder / "pref.vsk").string()), std::string::npos) << *words;
}

} // namespace
} // namespace halvane
