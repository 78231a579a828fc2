// SPDX-License-Identifier: MIT
// The expected reports of tests/golden were computed by tests/golden/secondreports.py, which shares no code
// with the program, and read line by line.

#include "ephemeris/series.h"
#include "prayer/moonrun.h"
#include "prayer/prayerrun.h"
#include "routines/machineclock.h"
#include "routines/seriesloader.h"
#include "stored/textfile.h"
#include "tests/golden/goldenreport.h"
#include "tests/golden/recordingprogress.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace halvane {
namespace {

class GoldenPrayerReport : public testing::TestWithParam<std::string> {};

TEST_P(GoldenPrayerReport, IsWrittenByteForByte) {
    expect_golden_report("prayer/" + GetParam(), "results.out", [] {
        load_series();
        RecordingProgress progress;
        const RunOutcome outcome = write_report(*prayer_run(loaded_theory(), machine_time()), progress);
        EXPECT_EQ(outcome, GetParam() == "high-latitude-refused" ? RunOutcome::refused : RunOutcome::done);
    });
}

INSTANTIATE_TEST_SUITE_P(Every, GoldenPrayerReport, testing::ValuesIn(golden_names("prayer")),
                         golden_test_name);

class GoldenMoonReport : public testing::TestWithParam<std::string> {};

TEST_P(GoldenMoonReport, IsWrittenByteForByte) {
    expect_golden_report("moon/" + GetParam(), "mresults.out", [] {
        load_series();
        RecordingProgress progress;
        EXPECT_EQ(write_report(*moon_run(loaded_theory(), machine_time()), progress), RunOutcome::done);
    });
}

INSTANTIATE_TEST_SUITE_P(Every, GoldenMoonReport, testing::ValuesIn(golden_names("moon")), golden_test_name);

/// The lines up to row `rows`, and from the rule after the last row on.
std::vector<std::string> with_rows_only_up_to(const std::vector<std::string>& report, int rows) {
    std::vector<std::string> cut;
    std::size_t rules = 0;
    int seen = 0;
    for (const std::string& line : report) {
        rules += line.starts_with("===") ? 1 : 0;
        const bool is_row = rules == 1 && line.size() > 10 && line.find('/') < 4;
        seen += is_row ? 1 : 0;
        const bool before_rows = seen == 0;
        const bool wanted_row = seen <= rows && (is_row || seen < rows);
        if (before_rows || wanted_row || rules == 2)
            cut.push_back(line);
    }
    return cut;
}

TEST(CancelledReport, HoldsTheRowsSoFarTheRuleAndTheRemarks) {
    const TemporaryProgramFolder folder(golden_folder("prayer/amman-seconds"));
    load_series();
    RecordingProgress progress(7);
    EXPECT_EQ(write_report(*prayer_run(loaded_theory(), machine_time()), progress), RunOutcome::cancelled);
    const auto whole =
        lines_of(read_text_file((golden_folder("prayer/amman-seconds") / "results.out").string()));
    EXPECT_EQ(lines_of(folder.read("results.out")), with_rows_only_up_to(whole, 7));
    EXPECT_EQ(progress.yields, 7);
}

TEST(CancelledReport, OfTheMoonHoldsTheRowsSoFarTheRuleAndTheRemarks) {
    const std::string name = "sydney-seconds-wrapping";
    const TemporaryProgramFolder folder(golden_folder("moon/" + name));
    load_series();
    RecordingProgress progress(3);
    EXPECT_EQ(write_report(*moon_run(loaded_theory(), machine_time()), progress), RunOutcome::cancelled);
    const auto whole = lines_of(read_text_file((golden_folder("moon/" + name) / "mresults.out").string()));
    EXPECT_EQ(lines_of(folder.read("mresults.out")), with_rows_only_up_to(whole, 3));
}

TEST(CancelledReport, OfTheAlternativeMethodHasNoRowsYet) {
    const TemporaryProgramFolder folder(golden_folder("prayer/high-latitude-52"));
    load_series();
    RecordingProgress progress(100);
    EXPECT_EQ(write_report(*prayer_run(loaded_theory(), machine_time()), progress), RunOutcome::cancelled);
    const auto whole =
        lines_of(read_text_file((golden_folder("prayer/high-latitude-52") / "results.out").string()));
    EXPECT_EQ(lines_of(folder.read("results.out")), with_rows_only_up_to(whole, 0));
}

TEST(ReportProgress, RunsFromZeroToAHundred) {
    const TemporaryProgramFolder folder(golden_folder("prayer/city-offset-seconds"));
    load_series();
    RecordingProgress progress;
    write_report(*prayer_run(loaded_theory(), machine_time()), progress);
    ASSERT_EQ(progress.percents.size(), 20U);
    EXPECT_EQ(progress.percents.front(), 0);
    EXPECT_NEAR(progress.percents[1], 100.0 / 19, 1e-9);
    EXPECT_EQ(progress.percents.back(), 100);
}

TEST(ReportProgress, OfOneDayIsAHundredAtOnce) {
    const TemporaryProgramFolder folder(golden_folder("moon/one-day"));
    load_series();
    RecordingProgress progress;
    write_report(*moon_run(loaded_theory(), machine_time()), progress);
    EXPECT_EQ(progress.percents, std::vector<double>{100});
}

TEST(DeliveredYear, HasARowForEveryDay) {
    int rows = 0;
    for (const std::string& line :
         lines_of(read_text_file((golden_folder("prayer/delivered-year") / "results.out").string())))
        rows += line.size() == 71 - 1 && line.find("/2026") == 5 ? 1 : 0;
    EXPECT_EQ(rows, 365);
}

} // namespace
} // namespace halvane
