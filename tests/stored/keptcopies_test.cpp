// SPDX-License-Identifier: MIT
#include "system/path.h"
#include "tests/stored/watchedcopy.h"

#include <chrono>
#include <gtest/gtest.h>
#include <thread>

namespace halvane {
namespace {

TEST(KeptCopy, IsKeptWhileTheFileIsUnchanged) {
    const TemporaryProgramFolder folder;
    settle();
    const Location* first = &read_loc();
    const unsigned version = loc_version();
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(&read_loc(), first);
    EXPECT_EQ(loc_version(), version);
}

TEST(KeptCopy, IsDroppedWhenTheProgramSaves) {
    const TemporaryProgramFolder folder;
    read_loc();
    write_loc(named("One"));
    EXPECT_EQ(read_loc().name, "One");
    write_loc(named("Two"));
    EXPECT_EQ(read_loc().name, "Two");
}

TEST(KeptCopy, IsDroppedWhenAnotherProgramRewritesTheFile) {
    const TemporaryProgramFolder folder;
    std::string bytes = folder.read("pref.vsk");
    settle();
    EXPECT_EQ(read_pref().fajer_angle, 18);
    bytes.replace(0, 2, "19");
    folder.rewrite("pref.vsk", bytes);
    EXPECT_EQ(read_pref().fajer_angle, 19);
}

TEST(KeptCopy, SeesTwoChangesWithinOneTickOfTheClock) {
    const TemporaryProgramFolder folder;
    std::string bytes = folder.read("pref.vsk");
    for (int angle = 10; angle < 99; ++angle) {
        bytes.replace(0, 2, std::to_string(angle));
        folder.rewrite("pref.vsk", bytes);
        EXPECT_EQ(read_pref().fajer_angle, angle);
    }
}

TEST(KeptCopy, IsDroppedWhenAFileOfTheSameSizeAndTimeTakesItsPlace) {
    const TemporaryProgramFolder folder;
    std::string bytes = folder.read("pref.vsk");
    settle();
    EXPECT_EQ(read_pref().fajer_angle, 18);
    const auto written = std::filesystem::last_write_time(folder / "pref.vsk");
    bytes.replace(0, 2, "17");
    folder.write("other", bytes);
    std::filesystem::last_write_time(folder / "other", written);
    std::filesystem::rename(folder / "other", folder / "pref.vsk");
    EXPECT_EQ(read_pref().fajer_angle, 17);
}

TEST(KeptCopy, IsDroppedWithTheFile) {
    const TemporaryProgramFolder folder;
    settle();
    read_date();
    folder.erase("date.vsk");
    EXPECT_TRUE(failure_words([] { read_date(); }).has_value());
    folder.write("date.vsk", bytes_of(delivered("date.vsk")));
    EXPECT_FALSE(failure_words([] { read_date(); }).has_value());
}

TEST_F(WatchedCopy, IsDroppedWhenTheFileIsReplaced) {
    std::filesystem::rename(other(), own());
    EXPECT_EQ(read_loc().name, "Other");
}

TEST_F(WatchedCopy, IsDroppedWhenTheFileIsRewritten) {
    folder_.rewrite("loc.vsk", bytes_of(other().string()));
    EXPECT_EQ(read_loc().name, "Other");
}

TEST_F(WatchedCopy, IsDroppedWhenTheFileIsMovedAway) {
    std::filesystem::rename(own(), folder_ / "away");
    EXPECT_TRUE(failure_words([] { read_loc(); }).has_value());
    std::filesystem::rename(folder_ / "away", own());
    EXPECT_EQ(read_loc().name, "Own");
}

TEST_F(WatchedCopy, IsDroppedWhenTheFileIsRemoved) {
    std::filesystem::remove(own());
    EXPECT_TRUE(failure_words([] { read_loc(); }).has_value());
}

TEST_F(WatchedCopy, IsDroppedATickAfterAnotherFolderHasTakenThePlace) {
    const std::filesystem::path place = folder_ / "place";
    const std::filesystem::path next = folder_ / "next";
    for (const auto& [path, file] : {std::pair{place, own()}, std::pair{next, other()}}) {
        std::filesystem::create_directory(path);
        std::filesystem::copy_file(file, path / "loc.vsk");
    }
    settle();
    set_program_folder(place.string());
    look();
    std::filesystem::rename(place, folder_ / "away");
    std::filesystem::rename(next, place);
    settle();
    EXPECT_EQ(read_loc().name, "Other");
}

TEST(KeptCopy, BelongsToItsProgramFolder) {
    const TemporaryProgramFolder outer;
    write_loc(named("Outer"));
    {
        const TemporaryProgramFolder inner;
        write_loc(named("Inner"));
        EXPECT_EQ(read_loc().name, "Inner");
    }
    EXPECT_EQ(read_loc().name, "Outer");
}

TEST(SeriesPath, FallsBackToTheExecutablesFolderForAFolderOfSettingsOnly) {
    const TemporaryProgramFolder folder;
    EXPECT_EQ(series_path("elp.vsk"), (folder / "elp.vsk").string());
    for (const char* name : {"termfull.vsk", "term.vsk", "mterm.vsk"})
        folder.erase(name);
    EXPECT_EQ(series_path("term.vsk"), (folder / "term.vsk").string()) << "one of the four is there";
    folder.erase("elp.vsk");
    EXPECT_EQ(series_path("term.vsk"), joined_path(executable_folder(), "term.vsk"));
}

} // namespace
} // namespace halvane
