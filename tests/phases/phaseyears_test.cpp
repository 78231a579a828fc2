// SPDX-License-Identifier: MIT
#include "phases/phasereport.h"

#include "base/failure.h"
#include "base/numberformat.h"
#include "base/record.h"
#include "calendar/civildate.h"
#include "calendar/moddeltat.h"
#include "calendar/modjul.h"
#include "calendar/yearlimits.h"
#include "ephemeris/series.h"
#include "routines/namedengine.h"
#include "routines/seriesloader.h"
#include "routines/tdtinput.h"
#include "tests/golden/goldenreport.h"
#include "tests/golden/recordingprogress.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

namespace halvane {
namespace {

constexpr std::array<Phase, 4> in_order{Phase::new_moon, Phase::first_quarter, Phase::full_moon,
                                        Phase::last_quarter};

double day_of(double year, double month, double day, double hours = 0) {
    double jd = 0;
    modjul(year, month, day, hours, jd);
    return jd;
}

double year_of(double jd) {
    double year = 0;
    double month = 0;
    double day = 0;
    modjuc(jd + 0.5, year, month, day);
    return year;
}

class PhaseTest : public ::testing::Test {
protected:
    PhaseTest() {
        load_series();
        write_pref({});
    }
    std::string report(const std::string& year, bool geocentric, bool local_ut1,
                       const std::string& delta_t = {}) {
        RecordingProgress progress;
        const PhaseSettings settings{year, geocentric, local_ut1};
        const PhaseYear run = phase_year(settings, delta_t.empty() ? proposed_delta_t(year) : delta_t);
        EXPECT_EQ(write_report(*phase_run(loaded_theory(), run), progress), RunOutcome::done);
        return folder.read("results.out");
    }
    /// The table's rows: what stands between its head and its tail.
    static std::string table(const std::string& text) {
        const std::string rule = std::string(103, '=');
        const std::size_t start = text.find(rule);
        return text.substr(start, text.rfind(rule) - start);
    }
    TemporaryProgramFolder folder;
};

// --- The published series ---------------------------------------------------------------------------------

TEST(PhaseEstimate, GivesTheBooksExamples) {
    // Meeus, Astronomical Algorithms, examples 49.a and 49.b; the constants of the book's first edition stand
    // up to 1.3 s off those of the second.
    EXPECT_NEAR(phase_estimate(Phase::new_moon, -283), 2443192.65118, 0.000015);
    EXPECT_NEAR(phase_estimate(Phase::last_quarter, 544.75), 2467636.49186, 0.000015);
}

TEST(PhaseEstimate, QuartersComeInOrderFromMinus500To3000) {
    const double first = std::floor((-500.0 - 2000) * 12.3685) - 1;
    double before = phase_estimate(Phase::last_quarter, first - 0.25);
    std::array<int, 3501> quarters{};
    double t = 0;
    for (double k = first; year_of(t) <= 3001; ++k)
        for (std::size_t quarter = 0; quarter < in_order.size(); ++quarter) {
            t = phase_estimate(in_order[quarter], k + 0.25 * static_cast<double>(quarter));
            ASSERT_GT(t - before, 6.5) << "k " << k;
            ASSERT_LT(t - before, 8.4) << "k " << k;
            before = t;
            const double year = year_of(t);
            if (year >= -500 && year <= 3000)
                ++quarters[static_cast<std::size_t>(year + 500)];
        }
    // 365.2425 days hold 49.47 quarters.
    for (std::size_t year = 0; year < quarters.size(); ++year)
        EXPECT_TRUE(quarters[year] >= 48 && quarters[year] <= 51) << static_cast<int>(year) - 500;
}

// --- The table --------------------------------------------------------------------------------------------

/// The instants of a year's table, read back from its text.
std::vector<double> printed_instants(const std::string& text) {
    std::vector<double> instants;
    for (std::size_t at = text.find('/'); at != std::string::npos; at = text.find('/', at + 1)) {
        const std::size_t second = text.find('/', at + 1);
        const std::size_t clock = text.find("  ", second) + 2;
        const auto number = [&text](std::size_t from, std::size_t to) {
            return std::stod(text.substr(from, to - from));
        };
        instants.push_back(day_of(number(second + 1, clock - 2), number(at + 1, second), number(at - 2, at),
                                  number(clock, clock + 2) + number(clock + 3, clock + 5) / 60));
        at = second;
    }
    return instants;
}

TEST_F(PhaseTest, TableHoldsEveryQuarterOfItsYearOnceAndInOrder) {
    std::mt19937 engine(1446);
    std::vector<int> years{-500, -499, -4, 0, 1, 1582, 1999, 2000, 2026, 3000};
    for (int i = 0; i < 110; ++i)
        years.push_back(std::uniform_int_distribution<int>(-500, 3000)(engine));
    for (const int year : years) {
        SCOPED_TRACE(year);
        const std::vector<double> instants =
            printed_instants(table(report(std::to_string(year), true, false)));
        ASSERT_FALSE(instants.empty());
        for (std::size_t i = 1; i < instants.size(); ++i) {
            ASSERT_GT(instants[i] - instants[i - 1], 6.5);
            ASSERT_LT(instants[i] - instants[i - 1], 8.4);
        }
        // None is missing at the ends either.
        ASSERT_LT(instants.front() - day_of(year, 1, 1), 8.5);
        ASSERT_LT(day_of(year + 1, 1, 1) - instants.back(), 8.5);
    }
}

TEST_F(PhaseTest, PhasesOfTheDecemberBeforeShowAsNothing) {
    const std::string text = report("2025", true, true);
    EXPECT_EQ(text.find("/2024"), std::string::npos);
    // 2024 December 30 has a New Moon; the table's first phase is the quarter of 6 January.
    EXPECT_EQ(printed_instants(table(text)).front(), day_of(2025, 1, 7, 2 + 56 / 60.0));
}

TEST_F(PhaseTest, LunationsAfterTheYearShowAsNothing) {
    for (const char* year : {"2023", "2024", "2025", "2026", "2027"}) {
        const std::string text = report(year, true, true);
        const std::size_t quarters = printed_instants(table(text)).size();
        EXPECT_TRUE(quarters == 49 || quarters == 50) << year;
        EXPECT_EQ(text.find("/" + std::to_string(std::stoi(year) + 1)), std::string::npos);
    }
}

TEST_F(PhaseTest, OverrideOfZeroGivesTheDynamicalClock) {
    for (const bool geocentric : {true, false})
        EXPECT_EQ(table(report("2026", geocentric, true, "0")), table(report("2026", geocentric, false)));
}

TEST_F(PhaseTest, OverrideShiftsEveryInstantByItsDifference) {
    Preferences seconds;
    seconds.clock_precision = "0";
    write_pref(seconds);
    PhaseYear run = phase_year({"2026", true, true}, "60");
    const double with_60 = local_phase(named_ephemeris(), run, Phase::full_moon, 330.5).jd;
    run.delta_t = 90.5;
    EXPECT_NEAR((with_60 - local_phase(named_ephemeris(), run, Phase::full_moon, 330.5).jd) * 86400, 30.5,
                1e-4);
    EXPECT_NE(report("2026", true, true, "12 s").find("Delta T: 12.00 Second(s)"), std::string::npos);
    EXPECT_NE(report("2026", true, true, "x").find("Delta T: 00.00 Second(s)"), std::string::npos);
}

TEST_F(PhaseTest, TopocentricTimesDifferByTheParallax) {
    const PhaseYear geocentric = phase_year({"2026", true, false}, "0");
    const PhaseYear topocentric = phase_year({"2026", false, false}, "0");
    double largest = 0;
    for (int i = 0; i < 200; ++i) {
        const double k = 300 + 0.25 * i;
        const Phase phase = in_order[static_cast<std::size_t>(i % 4)];
        const double apart = std::fabs(local_phase(named_ephemeris(), geocentric, phase, k).jd -
                                       local_phase(named_ephemeris(), topocentric, phase, k).jd) *
                             24;
        ASSERT_LT(apart, 4);
        largest = std::max(largest, apart);
    }
    EXPECT_GT(largest, 1);
}

TEST_F(PhaseTest, PhaseAroundMidnightOfTheYearsEndFollowsZoneAndSummerTime) {
    Location place = read_loc();
    const auto holds = [&](double zone, const char* summer) {
        place.zone = zone;
        write_loc(place);
        Preferences preferences;
        preferences.summer_time = summer;
        preferences.summer_from_month = 10;
        preferences.summer_to_month = 4;
        write_pref(preferences);
        return report("2014", true, true).find("01/01/2014  ") != std::string::npos;
    };
    // New Moon of 2014 January 1, 11:14 UT1.
    EXPECT_TRUE(holds(0, "0"));
    EXPECT_TRUE(holds(-11, "0"));
    EXPECT_FALSE(holds(-11.5, "0"));
    EXPECT_TRUE(holds(-11.5, "1"));
    EXPECT_FALSE(holds(13, "0"));
}

TEST_F(PhaseTest, SummerMarkStandsWhereItsDateIsInTheSpan) {
    Preferences preferences;
    preferences.summer_time = "1";
    preferences.summer_from_month = 10;
    preferences.summer_from_day = 1;
    preferences.summer_to_month = 4;
    preferences.summer_to_day = 1;
    write_pref(preferences);
    const PhaseYear run = phase_year({"2026", true, true}, proposed_delta_t("2026"));
    int marked = 0;
    for (int i = 0; i < 52; ++i) {
        const LocalPhase phase =
            local_phase(named_ephemeris(), run, in_order[static_cast<std::size_t>(i % 4)], 320 + 0.25 * i);
        double year = 0;
        double month = 0;
        double day = 0;
        modjuc(phase.jd + 0.5 - (run.location.zone + (phase.summer ? 1 : 0)) / 24, year, month, day);
        const bool inside = month >= 10 || month < 4 || (month == 4 && std::floor(day) == 1);
        EXPECT_EQ(phase.summer, inside) << i;
        marked += phase.summer ? 1 : 0;
    }
    EXPECT_GT(marked, 20);
    EXPECT_LT(marked, 32);
}

TEST_F(PhaseTest, YearIsTheNumericPrefixOfItsText) {
    EXPECT_EQ(report("2026 CE", true, true), report("2026", true, true));
    EXPECT_NE(report("year", true, true).find("The Year:  0000 CE"), std::string::npos);
    EXPECT_EQ(report("", true, true), report("0", true, true));
}

TEST_F(PhaseTest, YearWithAFractionHoldsNoPhase) {
    EXPECT_TRUE(printed_instants(table(report("2026.5", true, true))).empty());
}

// A lunation is 29.53 d and its quarters come within 9 d of each other: so do the first and the last phase of
// a year and its ends.
TEST_F(PhaseTest, TheFirstAndTheLastYearHaveWholeTables) {
    for (const double year : {phase_years.first, 0.0, phase_years.last}) {
        const std::string text = plain_number(year);
        const PhaseYear run = phase_year({text, true, true}, proposed_delta_t(text));
        double begin = 0;
        double end = 0;
        modjul(year, 1, 1, 0, begin);
        modjul(year + 1, 1, 1, 0, end);
        double before = begin;
        double k = first_lunation(year);
        for (int i = 0; i < 60; ++i) {
            const double quarter = 0.25 * (i % 4);
            const LocalPhase phase =
                local_phase(named_ephemeris(), run, in_order[static_cast<std::size_t>(i % 4)], k + quarter);
            if (civil_date(phase.jd).year == year) {
                EXPECT_LT(phase.jd - before, 9) << year << " " << i;
                before = phase.jd;
            }
            k += i % 4 == 3 ? 1 : 0;
        }
        EXPECT_LT(end - before, 9) << year;
    }
}

TEST_F(PhaseTest, WhatHasNoAnswerIsRefusedAndNothingIsWritten) {
    RecordingProgress progress;
    for (const char* year : {"-4001", "7001", "99999", "999999999", "-999999999"}) {
        const PhaseYear run = phase_year({year, true, true}, "65");
        EXPECT_TRUE(refused_phase_year(run)) << year;
        EXPECT_EQ(phase_run(loaded_theory(), run), nullptr) << year;
    }
    const std::string endless(308, '9');
    for (const char* delta_t : {"1000001", "-1000001", endless.c_str()}) {
        const PhaseYear run = phase_year({"2026", true, true}, delta_t);
        EXPECT_TRUE(refused_delta_t(run)) << delta_t;
        EXPECT_EQ(phase_run(loaded_theory(), run), nullptr) << delta_t;
        EXPECT_FALSE(refused_delta_t(phase_year({"2026", true, false}, delta_t))) << "it is not used there";
    }
    EXPECT_EQ(progress.yields, 0);
    EXPECT_FALSE(folder.has("results.out"));
}

TEST_F(PhaseTest, CancelledRunKeepsItsRowsAndRemarks) {
    RecordingProgress progress(5);
    const PhaseYear year = phase_year({"2026", true, true}, proposed_delta_t("2026"));
    EXPECT_EQ(write_report(*phase_run(loaded_theory(), year), progress), RunOutcome::cancelled);
    const std::string text = folder.read("results.out");
    EXPECT_TRUE(text.ends_with("refers to Summer Time.\r\n"));
    const std::string whole = table(report("2026", true, true));
    const std::string part = table(text);
    const std::size_t rows = part.find_last_not_of("\r\n") + 1;
    EXPECT_EQ(whole.substr(0, rows), part.substr(0, rows));
    EXPECT_LT(printed_instants(part).size(), 20U);
    EXPECT_EQ(progress.yields, 5);
}

TEST_F(PhaseTest, ProgressCountsSixteenthsUpToFifteen) {
    RecordingProgress progress;
    write_report(*phase_run(loaded_theory(), phase_year({"2026", true, true}, proposed_delta_t("2026"))),
                 progress);
    ASSERT_EQ(progress.percents.size(), 15U);
    EXPECT_EQ(progress.percents.front(), 6.25);
    EXPECT_EQ(progress.percents.back(), 93.75);
}

TEST_F(PhaseTest, RunLeavesTheTimeReferenceAsItWas) {
    report("2026", false, false);
    EXPECT_EQ(tdtinput, 0);
}

TEST(ProposedDeltaT, IsThatOfMidYearToTheHundredth) {
    double delta_t = 0;
    moddeltat(day_of(2026, 6, 15), delta_t);
    EXPECT_NEAR(std::stod(proposed_delta_t("2026")), delta_t * 86400, 0.005);
    // Espenak and Meeus for 2000.455: 63.86 + 0.3345 t - 0.060374 t^2 + 0.0017275 t^3 = 64.00.
    EXPECT_EQ(proposed_delta_t("2000"), "64.00");
    EXPECT_EQ(proposed_delta_t("nothing"), proposed_delta_t("0"));
}

// --- Golden reports ---------------------------------------------------------------------------------------

class PhasesGolden : public ::testing::TestWithParam<std::string> {};

TEST_P(PhasesGolden, ReportIsTheSameByteForByte) {
    expect_golden_report("phases/" + GetParam(), "results.out", [] {
        load_series();
        const PhaseSettings settings = read_phase();
        RecordingProgress progress;
        write_report(*phase_run(loaded_theory(), phase_year(settings, proposed_delta_t(settings.year))),
                     progress);
    });
}

INSTANTIATE_TEST_SUITE_P(Settings, PhasesGolden, ::testing::ValuesIn(golden_names("phases")),
                         golden_test_name);

} // namespace
} // namespace halvane
