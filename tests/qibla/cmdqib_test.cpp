// SPDX-License-Identifier: MIT
#include "qibla/qiblahrun.h"

#include "base/failure.h"
#include "calendar/moddeltat.h"
#include "ephemeris/series.h"
#include "routines/machineclock.h"
#include "routines/seriesloader.h"
#include "routines/tdtinput.h"
#include "stored/date.h"
#include "stored/loc.h"
#include "stored/pref.h"
#include "tests/golden/goldenreport.h"
#include "tests/golden/recordingprogress.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace halvane {
namespace {

/// Thirty days at Medan, some of them without a time.
class CmdqibTest : public ::testing::Test {
protected:
    CmdqibTest() {
        load_term();
        load_mterm();
    }
    ~CmdqibTest() override { use_machine_clock(); }

    RunOutcome run(Progress& progress, QiblahMark mark = QiblahMark::sun) const {
        return write_report(*qiblah_run(loaded_theory(), machine_time(), stored_qiblah_direction(), mark),
                            progress);
    }
    std::string report() const { return folder_.read("results.out"); }
    std::vector<std::string> lines() const { return lines_of(report()); }
    static std::filesystem::path source() { return golden_folder("qibla/sun-medan-solstice-seconds"); }
    static std::string golden() { return bytes_of(source() / "results.out"); }

    TemporaryProgramFolder folder_{source()};
};

TEST_F(CmdqibTest, ProgressGoesFromNothingToAllOverThePeriod) {
    RecordingProgress progress;
    EXPECT_EQ(run(progress), RunOutcome::done);
    ASSERT_EQ(progress.percents.size(), 30U);
    EXPECT_EQ(progress.percents.front(), 0);
    EXPECT_DOUBLE_EQ(progress.percents[1], 100.0 / 29);
    EXPECT_EQ(progress.percents.back(), 100);
    EXPECT_EQ(progress.yields, 30);
}

TEST_F(CmdqibTest, OneDayIsAHundredPercent) {
    CalculationDate date = read_date();
    date.one_day = true;
    date.end = date.start;
    write_date(date);
    RecordingProgress progress;
    EXPECT_EQ(run(progress), RunOutcome::done);
    EXPECT_EQ(progress.percents, std::vector<double>{100});
    EXPECT_EQ(lines()[7], "- Qiblah Direction for:  08/06/2024 CE");
}

TEST_F(CmdqibTest, TheShadowsReportPrintsTheTrueDirection) {
    RecordingProgress progress;
    run(progress, QiblahMark::shadow);
    EXPECT_EQ(lines()[5], "- Qiblah Direction is:   292.8 ° From True North");
    EXPECT_EQ(lines()[6],
              "- Qiblah Time you Chose is The Time At Which the SUN'S SHADOW is at Qiblah Direction");
}

TEST_F(CmdqibTest, TheDirectionIsThatOfThePanelNotOfALocationSavedSince) {
    RecordingProgress progress;
    EXPECT_EQ(write_report(*qiblah_run(loaded_theory(), machine_time(), 100.5F, QiblahMark::sun), progress),
              RunOutcome::done);
    EXPECT_EQ(lines()[5], "- Qiblah Direction is:   100.5 ° From True North");
}

TEST_F(CmdqibTest, ACancelInMidRunKeepsTheRowsSoFarAndTheRemarks) {
    RecordingProgress progress(6);
    EXPECT_EQ(run(progress), RunOutcome::cancelled);
    const std::string whole = golden();
    const std::size_t seventh_row = whole.find("14/06/2024");
    const std::size_t remarks = whole.rfind("====", whole.find("* Remarks")) + 4 - 84;
    EXPECT_EQ(first_difference(whole.substr(0, seventh_row) + whole.substr(remarks), report()), "");
}

TEST_F(CmdqibTest, ACancelAtTheFirstDayKeepsItsRow) {
    RecordingProgress progress(1);
    EXPECT_EQ(run(progress), RunOutcome::cancelled);
    EXPECT_NE(report().find("08/06/2024         17:22:18"), std::string::npos);
    EXPECT_EQ(report().find("09/06/2024  "), std::string::npos);
}

TEST_F(CmdqibTest, AFailureInMidRunLeavesTheEarlierReportUntouched) {
    folder_.write("results.out", "An earlier report\r\n");
    const std::vector<std::string> before = folder_.files();
    RecordingProgress progress;
    progress.at_yield = [](int yield) {
        if (yield == 12)
            throw RunTimeFailure(TwinWords{"a failure in mid-run", "خطأ أثناء الحساب"});
    };
    EXPECT_THROW(run(progress), RunTimeFailure);
    EXPECT_EQ(report(), "An earlier report\r\n");
    EXPECT_EQ(folder_.files(), before);
}

TEST_F(CmdqibTest, SettingsWithoutAFiniteAltitudeLimitAreARunTimeFailure) {
    folder_.write("results.out", "An earlier report\r\n");
    Location location = read_loc();
    location.temperature = -273;
    write_loc(location);
    RecordingProgress progress;
    EXPECT_THROW(run(progress), RunTimeFailure);
    EXPECT_EQ(report(), "An earlier report\r\n");
}

TEST_F(CmdqibTest, AMissingDateFileIsARunTimeFailure) {
    folder_.erase("date.vsk");
    RecordingProgress progress;
    EXPECT_THROW(run(progress), RunTimeFailure);
    EXPECT_FALSE(folder_.has("results.out"));
}

TEST_F(CmdqibTest, TheTimeReferenceOfAnotherPanelDoesNotReachTheRun) {
    const TdtSpan phases_panel(1);
    RecordingProgress progress;
    EXPECT_EQ(run(progress), RunOutcome::done);
    EXPECT_EQ(first_difference(golden(), report()), "");
    EXPECT_EQ(tdtinput, 1);
}

TEST_F(CmdqibTest, SettingsSavedDuringTheRunDoNotReachIt) {
    RecordingProgress progress;
    progress.at_yield = [](int yield) {
        if (yield != 3)
            return;
        Location elsewhere = read_loc();
        elsewhere.longitude_degrees = 10;
        elsewhere.elevation = 4000;
        write_loc(elsewhere);
        Preferences preferences = read_pref();
        preferences.clock_precision = "1";
        preferences.summer_time = "1";
        write_pref(preferences);
    };
    EXPECT_EQ(run(progress), RunOutcome::done);
    EXPECT_EQ(first_difference(golden(), report()), "");
}

TEST_F(CmdqibTest, TheSystemsDateIsTodayForBothEnds) {
    CalculationDate date = read_date();
    date.system_date = true;
    write_date(date);
    MachineTime now;
    now.year = 2024;
    now.month = 7;
    now.day = 4;
    set_machine_time(now);
    RecordingProgress progress;
    EXPECT_EQ(run(progress), RunOutcome::done);
    EXPECT_EQ(lines()[7], "- Qiblah Direction from:  04/07/2024   To:  04/07/2024");
    EXPECT_EQ(lines()[18], "04/07/2024         17:19:56                           18:32:22       ");
    EXPECT_EQ(progress.percents, std::vector<double>{100});
}

TEST_F(CmdqibTest, ThePeriodThatEndsBeforeItStartsHasNoRows) {
    CalculationDate date = read_date();
    std::swap(date.start, date.end);
    write_date(date);
    RecordingProgress progress;
    EXPECT_EQ(run(progress), RunOutcome::done);
    EXPECT_EQ(progress.yields, 0);
    EXPECT_EQ(lines()[18], std::string(84, '='));
}

} // namespace
} // namespace halvane
