// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "prayer/highlatitude.h"
#include "prayer/prayerrun.h"
#include "routines/machineclock.h"
#include "routines/seriesloader.h"
#include "tests/golden/goldenreport.h"
#include "tests/golden/recordingprogress.h"
#include "tests/prayer/days.h"
#include "tests/support/clocks.h"
#include "tests/support/places.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace halvane {
namespace {

TEST(NightFraction, FollowsTheTableByLatitude) {
    struct Row {
        double up_to, fraction;
    };
    const std::vector<Row> table{{49.5, 0.190605047}, {50.5, 0.185005721}, {51.5, 0.182066707},
                                 {52.5, 0.181891441}, {53.5, 0.181178348}, {54.5, 0.182046483},
                                 {55.5, 0.182659714}, {56.5, 0.182380892}, {57.5, 0.18457608},
                                 {58.5, 0.185936751}, {59.5, 0.18824565},  {60.5, 0.190677889},
                                 {61.5, 0.193164432}, {62.5, 0.194939368}, {63.5, 0.198701123},
                                 {64.5, 0.201963999}, {65.5, 0.205548098}};
    // A night of ten hours, so that Isha stands ten fractions after Maghreb.
    for (const auto& row : table) {
        EXPECT_NEAR(night_fraction_twilights(row.up_to, 5, 19, 0).isha, 19 + 10 * row.fraction, 1e-12);
        EXPECT_NEAR(night_fraction_twilights(row.up_to - 0.99, 5, 19, 0).fajer, 5 - 10 * row.fraction, 1e-12);
    }
}

TEST(NightFraction, LeavesTheAddedMinutesInIsha) {
    // The Sun sets at 20.5 h; six minutes are added.
    const NightTwilights plain = night_fraction_twilights(52, 4, 20.5, 0);
    const NightTwilights added = night_fraction_twilights(52, 4, 20.6, 6);
    EXPECT_NEAR(plain.fajer, 4 - 0.181891441 * 7.5, 1e-12);
    EXPECT_NEAR(added.fajer, plain.fajer, 1e-9);
    EXPECT_NEAR(added.isha, plain.isha + 0.1, 1e-9);
}

TEST(NightFraction, TakesAMaghrebPastMidnightAsTheNextDays) {
    const NightTwilights early = night_fraction_twilights(60, 3, 0.25, 0);
    EXPECT_NEAR(early.isha, 24.25 + 0.190677889 * (24 - (24.25 - 3)), 1e-12);
    const NightTwilights late = night_fraction_twilights(60, 3, 1.25, 0);
    EXPECT_NEAR(late.isha, 1.25 + 0.190677889 * (24 - (1.25 - 3)), 1e-12)
        << "only the first hour is the next day's";
}

int minutes(const std::string& clock) {
    return clock_at(clock).seconds / 60;
}

/// A made-up year of clocks.
class MadeUpYear {
public:
    explicit MadeUpYear(bool leap) {
        const int lengths[]{31, leap ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        for (int month = 1; month <= 12; ++month)
            for (int day = 1; day <= lengths[month - 1]; ++day) {
                AlternativeDay row;
                row.date = {leap ? 2028.0 : 2026.0, static_cast<double>(month), static_cast<double>(day)};
                row.fajer = minutes("04:00");
                row.isha = minutes("20:00");
                days.push_back(row);
            }
    }
    /// Rows counted from 1, up to the end of the year.
    void from(std::size_t row, const std::string& fajer, const std::string& isha) {
        for (std::size_t k = row - 1; k < days.size(); ++k) {
            days[k].fajer = minutes(fajer);
            days[k].isha = minutes(isha);
        }
    }
    std::vector<AlternativeDay> days;
};

std::string isha(const std::vector<SmoothedDay>& year, std::size_t row) {
    return text_of(year[row - 1].isha.clock);
}
std::string fajer(const std::vector<SmoothedDay>& year, std::size_t row) {
    return text_of(year[row - 1].fajer.clock);
}

TEST(SmoothedYear, WithoutJumpsStaysAsItIs) {
    const MadeUpYear made_up(false);
    const auto year = smoothed_year(made_up.days);
    ASSERT_EQ(year.size(), 365U);
    for (const auto& smoothed : year) {
        EXPECT_EQ(smoothed.isha, (SmoothedTwilight{clock_at("20:00"), TwilightMark::none}));
        EXPECT_EQ(smoothed.fajer.mark, TwilightMark::none);
    }
}

TEST(SmoothedYear, LetsAStepOfTenMinutesPassUntilTheFirstCorrection) {
    MadeUpYear made_up(false);
    made_up.from(50, "04:10", "19:50");
    made_up.from(60, "04:20", "19:40");
    const auto year = smoothed_year(made_up.days);
    EXPECT_EQ(isha(year, 50), "19:50");
    EXPECT_EQ(fajer(year, 60), "04:20");
    EXPECT_EQ(year[49].isha.mark, TwilightMark::none);
}

TEST(SmoothedYear, WalksForwardByFiveMinutesFromAJump) {
    // Isha leaps from 20:00 to 20:30 at row 100 and to 19:40 at row 103; Fajer from 04:00 to 03:49 at row
    // 100.
    MadeUpYear made_up(false);
    made_up.from(100, "03:49", "20:30");
    made_up.from(103, "03:49", "19:40");
    made_up.days[100].by_night_fraction = true;
    made_up.days[110].by_night_fraction = true;
    const auto year = smoothed_year(made_up.days);
    EXPECT_EQ(isha(year, 99), "20:00");
    EXPECT_EQ(isha(year, 100), "19:55");
    EXPECT_EQ(year[99].isha.mark, TwilightMark::corrected);
    EXPECT_EQ(isha(year, 101), "19:50");
    EXPECT_EQ(isha(year, 102), "19:45");
    EXPECT_EQ(isha(year, 103), "19:40") << "five minutes are no jump";
    EXPECT_EQ(year[102].isha.mark, TwilightMark::none);
    EXPECT_EQ(fajer(year, 100), "04:05");
    EXPECT_EQ(fajer(year, 101), "04:10");
    EXPECT_EQ(year[100].fajer.mark, TwilightMark::corrected);
    EXPECT_EQ(year[110].isha.mark, TwilightMark::night_fraction);
}

TEST(SmoothedYear, NarrowsTheLimitOfItsOwnColumnOnly) {
    // Isha jumps at row 100 and again by 8 minutes later; Fajer moves by 8 minutes at the same place.
    MadeUpYear made_up(false);
    made_up.from(100, "04:00", "19:40");
    made_up.from(120, "03:52", "19:32");
    const auto year = smoothed_year(made_up.days);
    EXPECT_EQ(isha(year, 100), "19:55");
    EXPECT_EQ(isha(year, 103), "19:40");
    EXPECT_EQ(isha(year, 120), "19:35") << "8 minutes are a jump for Isha now";
    EXPECT_EQ(isha(year, 121), "19:32");
    EXPECT_EQ(fajer(year, 120), "03:52") << "and none for Fajer";
}

TEST(SmoothedYear, EndsItsForwardPassOn21JuneOfEveryYear) {
    for (const bool leap : {false, true}) {
        MadeUpYear made_up(leap);
        const std::size_t solstice = leap ? 173 : 172;
        ASSERT_EQ(made_up.days[solstice - 1].date, (DateNumbers{leap ? 2028.0 : 2026.0, 6, 21}));
        // From 20 June on half an hour later: the forward pass holds 20 and 21 June, the backward pass
        // nothing.
        made_up.from(solstice - 1, "04:00", "20:30");
        const auto year = smoothed_year(made_up.days);
        // Without the join 20 June is 19:55 and 21 June 19:50; 22 June is 20:30. The join takes g = -40:
        // w = -15; the rows before come 15 minutes later each from 19 June on.
        EXPECT_EQ(isha(year, solstice - 2), "20:00");
        EXPECT_EQ(isha(year, solstice - 1), "20:15");
        EXPECT_EQ(isha(year, solstice), "20:30");
        EXPECT_EQ(year[solstice - 1].isha.mark, TwilightMark::joined);
        EXPECT_EQ(year[solstice - 2].isha.mark, TwilightMark::joined);
        EXPECT_EQ(isha(year, solstice + 1), "20:30");
        EXPECT_EQ(year[solstice].isha.mark, TwilightMark::none);
    }
}

TEST(SmoothedYear, WalksBackwardTo22June) {
    // Half an hour earlier until 22 June: 22 June differs from 23 June by a jump.
    MadeUpYear made_up(false);
    made_up.from(174, "04:30", "19:30");
    const auto year = smoothed_year(made_up.days);
    // Row 173, 22 June: Isha 19:30 - 5 and Fajer 04:30 + 5 by the backward pass; then the joins.
    // Isha: g = 20:00 - 19:25 = 35 > 5, w = 12.5, taken as 12: row 174 = row 175 + 12, row 173 = row 174
    // + 12.
    EXPECT_EQ(isha(year, 174), "19:42");
    EXPECT_EQ(isha(year, 173), "19:54");
    EXPECT_EQ(year[172].isha.mark, TwilightMark::joined);
    EXPECT_EQ(year[173].isha.mark, TwilightMark::joined);
    // Fajer: g = 04:00 - 04:35 = -35, w = -12.5 taken as -12: rows 174 and 173 from row 175.
    EXPECT_EQ(fajer(year, 174), "04:18");
    EXPECT_EQ(fajer(year, 173), "04:06");
    EXPECT_EQ(year[172].fajer.mark, TwilightMark::joined);
    EXPECT_EQ(year[173].fajer.mark, TwilightMark::joined);
    EXPECT_EQ(isha(year, 172), "20:00");
    EXPECT_EQ(fajer(year, 172), "04:00");
}

TEST(SmoothedYear, JoinsAFajerThatFallsBackward) {
    // Forward: Fajer leaps at 20 June to 03:20, so 20 June is 04:05 and 21 June 04:10; 22 June is 03:20.
    MadeUpYear made_up(false);
    made_up.from(171, "03:20", "20:00");
    const auto year = smoothed_year(made_up.days);
    // g = 50, w = 20: row 171 = row 170 - 20, row 172 = row 171 - 20.
    EXPECT_EQ(fajer(year, 170), "04:00");
    EXPECT_EQ(fajer(year, 171), "03:40");
    EXPECT_EQ(fajer(year, 172), "03:20");
    EXPECT_EQ(year[170].fajer.mark, TwilightMark::joined);
    EXPECT_EQ(year[171].fajer.mark, TwilightMark::joined);
    EXPECT_EQ(year[170].isha.mark, TwilightMark::none);
}

TEST(SmoothedYear, LetsIshaPassMidnightOnceGoingBackward) {
    // In autumn, standard time: Isha is 00:03 until 1 September and 23:58 after it.
    MadeUpYear made_up(false);
    made_up.from(1, "04:00", "00:03");
    made_up.from(245, "04:00", "23:48");
    const auto year = smoothed_year(made_up.days);
    EXPECT_EQ(isha(year, 244), "00:03") << "a step of 15 minutes over midnight";
    EXPECT_EQ(year[243].isha.mark, TwilightMark::none);
    // In summer time the texts run an hour behind: 23 and 22.
    for (AlternativeDay& day : made_up.days)
        day.summer = true;
    made_up.from(1, "04:00", "23:03");
    made_up.from(245, "04:00", "22:48");
    const auto summer = smoothed_year(made_up.days);
    EXPECT_EQ(isha(summer, 244), "00:03") << "23:03 and the hour";
    EXPECT_EQ(summer[243].isha.mark, TwilightMark::none);
    // With other hours the same step is corrected.
    made_up.from(1, "04:00", "21:03");
    made_up.from(245, "04:00", "20:48");
    const auto other = smoothed_year(made_up.days);
    EXPECT_EQ(isha(other, 244), "21:43") << "20:43 and the hour";
}

TEST(SmoothedYear, GivesTheSummerHourBack) {
    MadeUpYear made_up(false);
    for (AlternativeDay& day : made_up.days)
        day.summer = true;
    made_up.from(1, "03:00", "23:30");
    const auto year = smoothed_year(made_up.days);
    EXPECT_EQ(fajer(year, 10), "04:00");
    EXPECT_EQ(isha(year, 10), "00:30");
}

TEST(AlternativeDays, RunOnStandardTimeWithMidnightAsTheDaysStart) {
    PrayerDay day;
    day.times.shuroq = time_at("05:00");
    day.times.isha = time_at("24:00");
    AlternativeDay stored = alternative_day(day, {2026, 5, 1});
    EXPECT_EQ(stored.fajer, 0) << "there is none";
    EXPECT_EQ(stored.isha, 0);
    EXPECT_FALSE(stored.by_night_fraction);
    EXPECT_FALSE(stored.summer);
    day.summer_hours = 1;
    day.by_night_fraction = true;
    day.times.fajer = time_at("00:30");
    day.times.isha = NoEvent::none;
    stored = alternative_day(day, {2026, 5, 1});
    EXPECT_EQ(stored.fajer, minutes("23:30"));
    EXPECT_EQ(stored.isha, minutes("23:00"));
    EXPECT_EQ(stored.times.shuroq, time_at("05:00"));
    EXPECT_TRUE(stored.by_night_fraction);
    EXPECT_TRUE(stored.summer);
}

TEST(AlternativeDays, RoundAsTheClocksAreShown) {
    PrayerDay day;
    day.times.fajer = 4 + 29.6 / 60;
    day.times.isha = 24 + 10.4 / 60;
    const AlternativeDay stored = alternative_day(day, {2026, 5, 1});
    EXPECT_EQ(stored.fajer, minutes("04:30"));
    EXPECT_EQ(stored.isha, minutes("00:10")) << "past midnight";
}

TEST(AlternativeDays, WithoutClockTimesAreAFailure) {
    PrayerDay day;
    for (const NoEvent word : {NoEvent::up, NoEvent::down, NoEvent::bright, NoEvent::dark}) {
        day.times.isha = word;
        EXPECT_THROW(alternative_day(day, {2026, 5, 1}), RunTimeFailure);
    }
}

class AlternativeMethod : public DayTest {
protected:
    /// Rows of a report: every line with a date in front.
    std::vector<std::string> rows() const {
        std::vector<std::string> found;
        for (const std::string& line : lines_of(folder.read("results.out")))
            if (line.size() > 11 && (line[2] == '/' || line[3] == '/'))
                found.push_back(line);
        return found;
    }
    RunOutcome run(double latitude, double minutes, double switch_on, DateNumbers start, DateNumbers end,
                   double fajer_angle = 18) const {
        Preferences preferences;
        preferences.high_latitude = switch_on;
        preferences.fajer_angle = preferences.isha_angle = fajer_angle;
        write_pref(preferences);
        Location here = place_at(15, latitude, 1);
        here.latitude_minutes = minutes;
        write_loc(here);
        set_period(start, end);
        RecordingProgress progress;
        return write_report(*prayer_run(loaded_theory(), machine_time()), progress);
    }
};

TEST_F(AlternativeMethod, NeedsMoreThan48AndAHalfDegrees) {
    EXPECT_EQ(run(48, 30, 1, {2026, 6, 20}, {2026, 6, 22}, 19), RunOutcome::done);
    EXPECT_EQ(rows().size(), 3U);
    EXPECT_NE(rows()[0].find("Bright"), std::string::npos);
    EXPECT_EQ(run(48, 31, 1, {2026, 6, 20}, {2026, 6, 22}), RunOutcome::done);
    EXPECT_EQ(rows().size(), 365U);
    EXPECT_EQ(run(48, 31, 0, {2026, 6, 20}, {2026, 6, 22}), RunOutcome::done);
    EXPECT_EQ(rows().size(), 3U) << "switched off";
    EXPECT_EQ(run(-55, 0, 1, {2026, 12, 20}, {2026, 12, 22}), RunOutcome::done);
    EXPECT_EQ(rows().size(), 3U) << "the south has no alternative";
}

TEST_F(AlternativeMethod, IsRefusedAbove65FromTheFirstBrightDay) {
    EXPECT_EQ(run(65, 1, 1, {2026, 1, 1}, {2026, 1, 3}), RunOutcome::done) << "no bright day";
    EXPECT_EQ(rows().size(), 3U);
    EXPECT_EQ(run(65, 1, 1, {2026, 6, 1}, {2026, 6, 3}), RunOutcome::refused);
    EXPECT_EQ(rows().size(), 0U);
    EXPECT_EQ(folder.read("results.out").find("* Remarks:-"), std::string::npos);
    EXPECT_EQ(run(65, 0, 1, {2026, 6, 1}, {2026, 6, 3}), RunOutcome::done);
    EXPECT_EQ(rows().size(), 365U);
}

TEST_F(AlternativeMethod, LeavesWinterDaysAsTheyAreWithTheAngle18) {
    run(50, 0, 1, {2026, 1, 1}, {2026, 1, 31});
    const auto alternative = rows();
    run(50, 0, 0, {2026, 1, 1}, {2026, 1, 31});
    const auto ordinary = rows();
    ASSERT_EQ(ordinary.size(), 31U);
    for (std::size_t i = 0; i < ordinary.size(); ++i)
        EXPECT_EQ(alternative[i], ordinary[i]);
}

TEST_F(AlternativeMethod, IsAFailureOnADayWithoutShuroq) {
    Preferences preferences;
    preferences.high_latitude = 1;
    Location here = place_at(0, {64, 54}, -1.5);
    try {
        // By this clock the Sun rises after one midnight and before the next one, so 5 July has no sunrise.
        day_of(preferences, here, 2025, 7, 5);
        ADD_FAILURE() << "a day without Shuroq has no night to take a fraction of";
    } catch (const RunTimeFailure& failure) {
        EXPECT_NE(std::string(failure.what()).find("Shuroq"), std::string::npos) << failure.what();
    }
}

TEST_F(AlternativeMethod, CoversALeapYear) {
    run(52, 0, 1, {2028, 5, 1}, {2028, 5, 1});
    EXPECT_EQ(rows().size(), 366U);
}

} // namespace
} // namespace halvane
