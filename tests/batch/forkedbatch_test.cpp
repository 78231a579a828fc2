// SPDX-License-Identifier: MIT
#include "tests/batch/forkedbatch.h"
#include "tests/golden/goldenreport.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <thread>

namespace halvane {
namespace {

TEST_F(ForkedBatch, InAFolderWithoutRightToWriteIsAFailure) {
    if (::geteuid() == 0)
        GTEST_SKIP() << "the administrator may write everywhere";
    std::filesystem::permissions(folder.path(),
                                 std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    expect_failure(run_in_folder({"prayer"}), "Cannot write " + (folder / "results.out").string());
}

TEST_F(ForkedBatch, DrawsTheSameMapPictureInEveryLanguageOfTheSystem) {
    std::vector<std::string> pictures;
    for (const char* language : {"en", "ar", "zh-cn"}) {
        ::setenv("FC_LANG", language, 1);
        EXPECT_EQ(run_in_folder({"map", "--output", (folder / "map-of.gif").string()}).status, 0);
        pictures.push_back(folder.read("map-of.gif"));
    }
    ::unsetenv("FC_LANG");
    EXPECT_TRUE(same_bytes(pictures[1], pictures[0]));
    EXPECT_TRUE(same_bytes(pictures[2], pictures[0]));
}

TEST_F(ForkedBatch, AnInterruptCancelsWithTheRowsSoFar) {
    // A period that lasts far longer than the wait before the interrupt.
    folder.write("date.vsk", "#FALSE#,1000,1,1,9000,1,1,1000,1,1,9000,1,1,2026,1,1,#TRUE#,#FALSE#\r\n");
    const pid_t child = start({"--folder", folder.path().string(), "moon"});
    // The report has been opened beside its place once the signal is taken care of.
    const auto opened = [this] {
        for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
            if (entry.path().filename().string().starts_with(".halvane-save-"))
                return true;
        return false;
    };
    for (int i = 0; i < 1000 && !opened(); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    ::kill(child, SIGINT);
    const Outcome outcome = wait_for(child);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, (folder / "mresults.out").string() + "\n");
    EXPECT_EQ(lines(outcome.errors), 1);
    const auto report = lines_of(folder.read("mresults.out"));
    ASSERT_GT(report.size(), 20U);
    EXPECT_TRUE(std::find_if(report.begin(), report.end(), [](const std::string& line) {
                    return line.starts_with("01/01/1000 ");
                }) != report.end());
    EXPECT_EQ(report[report.size() - 5], std::string(71, '='));
    EXPECT_EQ(report[report.size() - 3], "* Remarks:-");
}

TEST_F(ForkedBatch, ALinkToAFileOfTheProgramIsNotFollowed) {
    std::filesystem::create_symlink(folder / "loc.vsk", folder / "link.gif");
    const std::string place = folder.read("loc.vsk");
    expect_failure(run_in_folder({"map", "--output", (folder / "link.gif").string()}),
                   "a file of the program");
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link.gif"));
    EXPECT_EQ(folder.read("loc.vsk"), place);
}

} // namespace
} // namespace halvane
