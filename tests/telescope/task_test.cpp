// SPDX-License-Identifier: MIT
#include "batch/tasks.h"
#include "stored/tele.h"
#include "tests/golden/goldenreport.h"
#include "tests/golden/recordingprogress.h"

#include <algorithm>

namespace halvane {
namespace {

class TelescopeTask : public ::testing::Test {
protected:
    /// Runs the task at an hour of 2024 March 11 and keeps what it prints.
    int run(double hour, double minute, int flip_horizontal = 0, int flip_vertical = 0) {
        TelescopeSettings settings;
        settings.year = 2024;
        settings.month = 3;
        settings.day = 11;
        settings.hour = hour;
        settings.minute = minute;
        settings.flip_horizontal = flip_horizontal;
        settings.flip_vertical = flip_vertical;
        write_tele(settings);
        const std::vector<Task> tasks = batch_tasks();
        const auto task =
            std::find_if(tasks.begin(), tasks.end(), [](const Task& t) { return t.name == "telescope"; });
        RecordingProgress progress;
        ::testing::internal::CaptureStdout();
        ::testing::internal::CaptureStderr();
        const int status = task == tasks.end() ? -1 : task->run(progress);
        printed_ = ::testing::internal::GetCapturedStdout();
        told_ = ::testing::internal::GetCapturedStderr();
        return status;
    }

    TemporaryProgramFolder folder_{golden_folder("telescope")};
    std::string printed_;
    std::string told_;
};

TEST_F(TelescopeTask, PrintsTheTwelveReadOutsAndThePicture) {
    EXPECT_EQ(run(18, 30), status_done);
    // Computed by a second program from the same formulae.
    EXPECT_EQ(printed_, "lblsunrav: 23H 29M 06S \n"
                        "lblsundecv: -03°:20':10\"\n"
                        "lblsunaltv: -11°:03':08\"\n"
                        "lblsunazmv: 272:58:38\n"
                        "lblmoonrav: 00H 34M 51S \n"
                        "lblmoondecv: +03°:02':48\"\n"
                        "lblmoonaltv: +06°:16':04\"\n"
                        "lblmoonazmv: 269:41:09\n"
                        "lblcrsrav: 00H 33M 49S \n"
                        "lblcrsdecv: +02°:56':40\"\n"
                        "lblcrsaltv: +05°:59':38\"\n"
                        "lblcrsazmv: 269:44:08\n"
                        "picture: 190.gif\n");
    EXPECT_EQ(told_, "");
}

TEST_F(TelescopeTask, NamesTheFlippedPicture) {
    EXPECT_EQ(run(18, 30, 1, 1), status_done);
    EXPECT_TRUE(printed_.ends_with("picture: 190hv.gif\n"));
}

TEST_F(TelescopeTask, TellsAMoonBelowTheHorizonAndFails) {
    EXPECT_EQ(run(23, 0), status_failure);
    EXPECT_EQ(printed_, "");
    EXPECT_EQ(told_, "Moon is Below Horizon\n");
}

} // namespace
} // namespace halvane
