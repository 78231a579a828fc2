// SPDX-License-Identifier: MIT
#include "batch/tasks.h"
#include "stored/coor.h"
#include "tests/golden/goldenreport.h"
#include "tests/golden/recordingprogress.h"

#include <algorithm>

namespace halvane {
namespace {

class EphemerisTask : public ::testing::Test {
protected:
    static int run_task(Progress& progress) {
        const std::vector<Task> tasks = batch_tasks();
        const auto task =
            std::find_if(tasks.begin(), tasks.end(), [](const Task& t) { return t.name == "ephemeris"; });
        return task == tasks.end() ? -1 : task->run(progress);
    }
    static std::filesystem::path source() { return golden_folder("tables/moon-topocentric-ut1-minutes"); }

    const TemporaryProgramFolder folder{source()};
};

TEST_F(EphemerisTask, WritesTheTableOfTheStoredRecord) {
    RecordingProgress progress;
    ::testing::internal::CaptureStdout();
    EXPECT_EQ(run_task(progress), status_done);
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), (folder / "ephemeris.out").string() + "\n");
    EXPECT_EQ(folder.read("ephemeris.out"), bytes_of(source() / "ephemeris.out"));
}

TEST_F(EphemerisTask, TellsAnEndBeforeTheStartAndFails) {
    EphemerisSettings settings = read_coor();
    settings.end_year = 2023;
    write_coor(settings);
    RecordingProgress progress;
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(run_task(progress), status_failure);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "The end date must be AFTER the beginning date!\n");
    EXPECT_FALSE(folder.has("ephemeris.out"));
}

TEST_F(EphemerisTask, FailsWhenItIsInterrupted) {
    RecordingProgress progress(2);
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(run_task(progress), status_failure);
    ::testing::internal::GetCapturedStdout();
    EXPECT_NE(::testing::internal::GetCapturedStderr(), "");
    EXPECT_TRUE(folder.has("ephemeris.out"));
}

} // namespace
} // namespace halvane
