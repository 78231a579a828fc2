// SPDX-License-Identifier: MIT
#include "stored/programplace.h"
#include "stored/versiontext.h"
#include "system/path.h"
#include "tests/support/programfolder.h"

#include <gtest/gtest.h>
#include <regex>

namespace halvane {
namespace {

/// A folder of programs with the delivered files, and a place for the user's own.
class ProgramPlaceTest : public ::testing::Test {
protected:
    ProgramPlaceTest() {
        programs_.write("pref.vsk", "preferences\r\n");
        programs_.write("loc.vsk", "location\r\n");
        programs_.write("term.vsk", "series\r\n");
        programs_.write("help.txt", "guide\r\n");
    }
    ProgramPlace place(bool takes_files) const { return {programs_.path().string(), takes_files, own()}; }
    std::string own() const { return joined_path(home_.path().string(), "deep/منزل Halvane"); }

    TemporaryFolder programs_;
    TemporaryFolder home_;
};

TEST_F(ProgramPlaceTest, AProgramWorksWhereItStandsAsLongAsFilesCanBeMadeThere) {
    EXPECT_EQ(working_folder(place(true)), programs_.path().string());
    EXPECT_TRUE(home_.files().empty());
}

TEST_F(ProgramPlaceTest, ElsewhereTheUserGetsAFolderWithTheStoredFilesAlone) {
    EXPECT_EQ(working_folder(place(false)), own());
    const std::filesystem::path folder = path_of(own());
    EXPECT_EQ(bytes_of(folder / "pref.vsk"), "preferences\r\n");
    EXPECT_EQ(bytes_of(folder / "loc.vsk"), "location\r\n");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 2);
}

TEST_F(ProgramPlaceTest, WhatTheUserHasStoredStaysAndWhatIsMissingComesAgain) {
    working_folder(place(false));
    put_bytes(path_of(own()) / "pref.vsk", "the user's\r\n");
    std::filesystem::remove(path_of(own()) / "loc.vsk");
    EXPECT_EQ(working_folder(place(false)), own());
    EXPECT_EQ(bytes_of(path_of(own()) / "pref.vsk"), "the user's\r\n");
    EXPECT_EQ(bytes_of(path_of(own()) / "loc.vsk"), "location\r\n");
}

TEST_F(ProgramPlaceTest, WithoutAnotherFolderItIsTheExecutables) {
    ProgramPlace alone = place(false);
    alone.users_folder = std::nullopt;
    EXPECT_EQ(working_folder(alone), programs_.path().string());
    put_bytes(home_ / "deep", "a file where the folder should be");
    EXPECT_EQ(working_folder(place(false)), programs_.path().string());
}

TEST_F(ProgramPlaceTest, TheTestsProgramTakesFilesWhereItStands) {
    EXPECT_EQ(present_place().executable_folder, executable_folder());
    EXPECT_TRUE(present_place().takes_files);
}

TEST(VersionText, BeginsWithNameAndVersionAndTellsTheFolderWhereThatNeedsTelling) {
    const TemporaryProgramFolder folder;
    const std::string text = version_text("halvane");
    const std::string first = text.substr(0, text.find('\n'));
    // A build from a tar knows no commit.
    const std::regex name_version_commit(R"(halvane \d+\.\d+\.\d+( \(commit [0-9a-f]{7,40}(-dirty)?\))?)");
    EXPECT_TRUE(std::regex_match(first, name_version_commit)) << first;
    EXPECT_EQ(text.substr(first.size()),
              told_program_folder() ? "\nFolder of the settings and reports: " + folder.path().string()
                                    : std::string());
}

} // namespace
} // namespace halvane
