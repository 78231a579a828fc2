// SPDX-License-Identifier: MIT
#include "tables/ephemeristable.h"

#include "base/failure.h"
#include "calendar/moddeltat.h"
#include "ephemeris/series.h"
#include "routines/seriesloader.h"
#include "routines/tdtinput.h"
#include "stored/pref.h"
#include "tests/golden/goldenreport.h"
#include "tests/golden/recordingprogress.h"

#include <sstream>

namespace halvane {
namespace {

constexpr int second = 0;
constexpr int minute = 1;
constexpr int hour = 2;
constexpr int day = 3;

EphemerisSettings span_of_days(double first_day, double last_day, double interval, int unit) {
    EphemerisSettings settings;
    settings.start_year = settings.end_year = 2024;
    settings.start_month = settings.end_month = 1;
    settings.start_day = first_day;
    settings.end_day = last_day;
    settings.interval = interval;
    settings.unit = unit;
    return settings;
}

class EphemerisTable : public ::testing::Test {
protected:
    EphemerisTable() { load_series(); }

    RunOutcome run(const EphemerisSettings& settings, int cancelled_row = RecordingProgress::never) {
        progress_ = RecordingProgress(cancelled_row);
        const RunPointer run = ephemeris_run(loaded_theory(), settings);
        return run != nullptr ? write_report(*run, progress_) : RunOutcome::refused;
    }
    bool is_written() const { return folder_.has("ephemeris.out"); }
    std::string report() const { return folder_.read("ephemeris.out"); }
    void put_report(const std::string& content) { folder_.write("ephemeris.out", content); }

    /// The lines that start with a clock, without their line ends.
    std::vector<std::string> rows() const {
        std::vector<std::string> found;
        std::istringstream lines(report());
        for (std::string line; std::getline(lines, line);)
            if (line.size() > 8 && line[2] == ':' && line[5] == ':')
                found.push_back(line.substr(0, line.find('\r')));
        return found;
    }
    std::vector<std::string> clocks() const {
        std::vector<std::string> found;
        for (const std::string& row : rows())
            found.push_back(row.substr(0, 19));
        return found;
    }

    RecordingProgress progress_;
    TemporaryProgramFolder folder_{golden_folder("tables/sun-geocentric-ut1-hours")};
};

TEST(TableSpan, AnIntervalOfTwoPointSevenHoursStepsTwoHours) {
    EXPECT_NEAR(table_span(span_of_days(1, 2, 2.7, hour), 0).step, 2.0 / 24, 1e-14);
}

TEST(TableSpan, AnIntervalOfMinusThreeStepsThree) {
    EXPECT_NEAR(table_span(span_of_days(1, 2, -3, minute), 0).step, 3.0 / 1440, 1e-14);
    EXPECT_NEAR(table_span(span_of_days(1, 2, -3.9, day), 0).step, 3.0, 1e-14);
}

TEST(TableSpan, AnIntervalOfZeroStepsOneDayWhateverTheUnit) {
    for (const int unit : {second, minute, hour, day})
        for (const double interval : {0.0, 0.9, -0.9})
            EXPECT_EQ(table_span(span_of_days(1, 2, interval, unit), 0).step, 1.0) << unit << " " << interval;
}

TEST(TableSpan, EachUnitHasItsLength) {
    EXPECT_NEAR(table_span(span_of_days(1, 2, 5, second), 0).step, 5.0 / 86400, 1e-14);
    EXPECT_NEAR(table_span(span_of_days(1, 2, 5, minute), 0).step, 5.0 / 1440, 1e-14);
    EXPECT_NEAR(table_span(span_of_days(1, 2, 5, hour), 0).step, 5.0 / 24, 1e-14);
    EXPECT_NEAR(table_span(span_of_days(1, 2, 5, day), 0).step, 5.0, 1e-14);
}

TEST(TableSpan, TheLocalClockIsAheadByTheZone) {
    EphemerisSettings settings = span_of_days(1, 2, 1, day);
    settings.start_hour = 15;
    settings.start_minute = 30;
    settings.start_second = 36;
    // 2024 January 1, 0 h is Julian day 2460310.5.
    EXPECT_NEAR(table_span(settings, 3).start, 2460310.5 + 12.51 / 24, 1e-9);
    EXPECT_NEAR(table_span(settings, -9.5).start, 2460310.5 + 25.01 / 24, 1e-9);
    EXPECT_NEAR(table_span(settings, 3).end, 2460311.5 - 3.0 / 24, 1e-9);
}

TEST(TableSpan, TheSummerCheckShiftsAWinterDateByAnHour) {
    EphemerisSettings settings = span_of_days(1, 2, 1, day);
    const TableSpan winter = table_span(settings, 2);
    settings.summer_time = 1;
    const TableSpan summer = table_span(settings, 2);
    EXPECT_NEAR(winter.start - summer.start, 1.0 / 24, 1e-9);
    EXPECT_NEAR(winter.end - summer.end, 1.0 / 24, 1e-9);
}

TEST_F(EphemerisTable, TheSummerCheckKeepsTheClockAndMovesTheSky) {
    EphemerisSettings settings = span_of_days(1, 1, 1, day);
    settings.start_hour = settings.end_hour = 13;
    run(settings);
    const std::string winter = rows().at(0);
    settings.start_hour = settings.end_hour = 14;
    settings.summer_time = 1;
    run(settings);
    EXPECT_EQ(clocks().at(0), "14:00:00 01/01/2024");
    EXPECT_EQ(rows().at(0).substr(19), winter.substr(19));
    EXPECT_NE(report().find("- Summer Time is On.\r\n"), std::string::npos);
}

TEST_F(EphemerisTable, TheSummerSpanOfThePreferencesIsNotAsked) {
    const EphemerisSettings settings = span_of_days(1, 1, 1, day);
    Preferences preferences;
    preferences.summer_time = "1";
    preferences.summer_from_month = 1;
    preferences.summer_to_month = 12;
    run(settings);
    const std::string without = report();
    write_pref(preferences);
    run(settings);
    EXPECT_EQ(report(), without);
}

TEST_F(EphemerisTable, AStartEqualToTheEndGivesOneRow) {
    EXPECT_EQ(run(span_of_days(1, 1, 1, second)), RunOutcome::done);
    EXPECT_EQ(rows().size(), 1U);
    EXPECT_EQ(progress_.percents, std::vector<double>{100});
}

TEST_F(EphemerisTable, AnEndBeforeTheStartIsRefusedAndNothingIsWritten) {
    EXPECT_EQ(run(span_of_days(2, 1, 1, day)), RunOutcome::refused);
    EXPECT_FALSE(is_written());
    put_report("an earlier table");
    EXPECT_EQ(run(span_of_days(2, 1, 1, day)), RunOutcome::refused);
    EXPECT_EQ(report(), "an earlier table");
    EXPECT_STREQ(end_before_start.title.english, "Date Error");
    EXPECT_STREQ(end_before_start.text.english, "The end date must be AFTER the beginning date!");
}

TEST_F(EphemerisTable, AnIntervalThatDividesTheSpanKeepsItsLastRow) {
    EphemerisSettings settings = span_of_days(1, 2, 1, minute);
    run(settings);
    EXPECT_EQ(rows().size(), 1441U);
    EXPECT_EQ(clocks().back(), "00:00:00 02/01/2024");
    settings = span_of_days(1, 1, 1, second);
    settings.end_hour = 1;
    run(settings);
    EXPECT_EQ(rows().size(), 3601U);
    EXPECT_EQ(clocks().back(), "01:00:00 01/01/2024");
}

TEST_F(EphemerisTable, RowsDoNotDriftOverAYearOfHours) {
    EphemerisSettings settings = span_of_days(1, 1, 1, hour);
    settings.end_year = 2025;
    run(settings);
    const auto all = clocks();
    ASSERT_EQ(all.size(), 366U * 24 + 1);
    for (const std::string& clock : all)
        ASSERT_EQ(clock.substr(2, 6), ":00:00") << clock;
}

TEST_F(EphemerisTable, AnEmptyLineFollowsEveryFourthRow) {
    run(span_of_days(1, 6, 1, day));
    const std::string text = report();
    const std::size_t fourth = text.find("00:00:00 04/01/2024");
    const std::size_t fifth = text.find("00:00:00 05/01/2024");
    const std::size_t end_of_fourth = text.find("\r\n", fourth);
    EXPECT_EQ(fifth, end_of_fourth + 4);
    const std::size_t sixth = text.find("00:00:00 06/01/2024");
    EXPECT_EQ(text.substr(text.find("\r\n", sixth) + 2, 2), "==");
    run(span_of_days(1, 4, 1, day));
    const std::string short_text = report();
    const std::size_t last = short_text.find("00:00:00 04/01/2024");
    EXPECT_EQ(short_text.substr(short_text.find("\r\n", last), 6), "\r\n\r\n==");
}

TEST_F(EphemerisTable, ACancelledTableHoldsItsRowsAndTheRemarks) {
    EXPECT_EQ(run(span_of_days(1, 20, 1, day), 4), RunOutcome::cancelled);
    EXPECT_EQ(clocks().back(), "00:00:00 04/01/2024");
    EXPECT_EQ(rows().size(), 4U);
    const std::string text = report();
    EXPECT_TRUE(text.ends_with("* DT: Delta T in seconds.\r\n"));
    const std::size_t last = text.find("00:00:00 04/01/2024");
    EXPECT_EQ(text.substr(text.find("\r\n", last), 4), "\r\n==")
        << "the run stops before the group's empty line";
}

TEST_F(EphemerisTable, ProgressIsTheShareOfTheRows) {
    run(span_of_days(1, 5, 1, day));
    // Five rows over four steps: the last share would be 125.
    EXPECT_EQ(progress_.percents, (std::vector<double>{25, 50, 75, 100, 100}));
}

TEST_F(EphemerisTable, TheTimeReferenceIsPutBack) {
    EphemerisSettings settings = span_of_days(1, 1, 1, day);
    settings.local_ut1 = false;
    run(settings);
    EXPECT_EQ(tdtinput, 0);
    const TdtSpan other(1);
    settings.local_ut1 = true;
    run(settings);
    EXPECT_EQ(tdtinput, 1);
}

TEST_F(EphemerisTable, TheOpenReferenceOfAnotherPanelDoesNotReachTheTable) {
    const EphemerisSettings settings = span_of_days(1, 1, 1, day);
    run(settings);
    const std::string alone = report();
    const TdtSpan other(1);
    run(settings);
    EXPECT_EQ(report(), alone);
}

TEST_F(EphemerisTable, AYearBeyondTheTheoriesIsRefusedBeforeTheTableStarts) {
    put_report("an earlier table");
    for (const double year : {-4001.0, 10000.0, 1e15}) {
        EphemerisSettings settings = span_of_days(1, 1, 1, hour);
        settings.start_year = settings.end_year = year;
        ASSERT_TRUE(refused_table(settings)) << year;
        EXPECT_EQ(refused_table(settings)->input, TableInput::start_year);
        EXPECT_EQ(run(settings), RunOutcome::refused);
        settings.start_year = 2024;
        EXPECT_EQ(refused_table(settings)->input, TableInput::end_year);
        EXPECT_EQ(run(settings), RunOutcome::refused);
    }
    EXPECT_EQ(report(), "an earlier table");
    EXPECT_EQ(progress_.yields, 0);
}

TEST_F(EphemerisTable, MoreThanTenMillionRowsAreRefusedBeforeTheTableStarts) {
    // 10^7 seconds are 115 d 17 h 46 min 40 s; the row of the start comes to them.
    EphemerisSettings settings = span_of_days(1, 116, 1, second);
    settings.end_hour = 17;
    settings.end_minute = 46;
    settings.end_second = 39;
    EXPECT_FALSE(refused_table(settings));
    settings.end_second = 40;
    ASSERT_TRUE(refused_table(settings));
    EXPECT_EQ(refused_table(settings)->input, TableInput::interval);
    EXPECT_NE(refused_table(settings)->told.text.english.find("10000001 rows"), std::string::npos);
    EXPECT_NE(refused_table(settings)->told.text.arabic.find("10000001"), std::string::npos);
    EXPECT_EQ(run(settings), RunOutcome::refused);
    EXPECT_FALSE(is_written());
}

TEST_F(EphemerisTable, ADateWithoutAFiniteDayIsRefused) {
    put_report("an earlier table");
    for (const double year : {1e200, -1e200, 1.7e308}) {
        EphemerisSettings settings = span_of_days(1, 1, 1, day);
        settings.start_year = settings.end_year = year;
        for (const int object : {0, 1}) {
            settings.object = object;
            EXPECT_EQ(run(settings), RunOutcome::refused) << year;
        }
    }
    EXPECT_EQ(report(), "an earlier table");
}

TEST_F(EphemerisTable, AYearBeforeTheEraShowsItsSign) {
    EphemerisSettings settings = span_of_days(1, 1, 1, day);
    settings.start_year = settings.end_year = -43;
    settings.start_month = settings.end_month = 3;
    settings.start_day = settings.end_day = 15;
    run(settings);
    EXPECT_EQ(rows().at(0).substr(0, 20), "00:00:00 15/03/-0043");
}

} // namespace
} // namespace halvane
