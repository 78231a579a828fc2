// SPDX-License-Identifier: MIT
#include "calendar/civildate.h"
#include "tests/timetable/otherreckoning.h"
#include "timetable/span.h"

#include <gtest/gtest.h>

namespace halvane {
namespace {

void expect_span(const SpanAnswer& answer, const DateNumbers& first, const DateNumbers& last) {
    ASSERT_FALSE(answer.refused) << answer.refused->english;
    EXPECT_EQ(civil_date(answer.span.first), first);
    EXPECT_EQ(civil_date(answer.span.last), last);
}

TEST(Span, OfCivilMonthsAndYears) {
    expect_span(month_span("2024-02"), {2024, 2, 1}, {2024, 2, 29});
    expect_span(month_span("2026-12"), {2026, 12, 1}, {2026, 12, 31});
    expect_span(year_span("2026"), {2026, 1, 1}, {2026, 12, 31});
    EXPECT_EQ(year_span("2024").span.days(), 366);
    expect_span(month_span("1582-10"), {1582, 10, 1}, {1582, 10, 31});
    EXPECT_EQ(month_span("1582-10").span.days(), 21);
    expect_span(year_span("-44"), {-44, 1, 1}, {-44, 12, 31});
}

// The tabular calendar has 1 Ramadan 1447 on 18 February 2026 and 1 Muharram 1448 on 17 June 2026 (civil
// epoch; 1447 is year 7 of its cycle of 30, a leap year).
TEST(Span, OfHijriMonthsAndYears) {
    expect_span(hijri_month_span("1447-09"), {2026, 2, 18}, {2026, 3, 19});
    EXPECT_EQ(hijri_year_span("1447").span.days(), 355);
    EXPECT_EQ(hijri_year_span("1448").span.days(), 354);
}

// 1 Sha'ban 1447 is 20 January 2026, 1 Ramadan 18 February and 1 Shawwal 20 March in the tabular calendar; by
// the other reckoning Sha'ban and Shawwal begin a day before.
TEST(Span, OfHijriMonthsByAnotherReckoning) {
    const HijriReckoningPointer other = other_reckoning();
    expect_span(hijri_month_span("1447-08", other), {2026, 1, 19}, {2026, 2, 17});
    expect_span(hijri_month_span("1447-09", other), {2026, 2, 18}, {2026, 3, 18});
    expect_span(hijri_month_span("1447-10", other), {2026, 3, 19}, {2026, 4, 17});
    expect_span(hijri_year_span("1447", other), {2025, 6, 27}, {2026, 6, 16});
    EXPECT_TRUE(hijri_month_span("1447-13", other).refused);
    EXPECT_TRUE(hijri_year_span("0", other).refused);
}

TEST(Span, OfHijriMonthsByAnotherReckoningLosesNoDayAndDoublesNone) {
    const HijriReckoningPointer other = other_reckoning();
    double next = hijri_month_span(1440, 1, other).span.first;
    for (int year = 1440; year < 1445; ++year) {
        const DaySpan of_year = hijri_year_span(year, other).span;
        EXPECT_EQ(of_year.first, next) << year;
        for (int month = 1; month <= 12; ++month) {
            const DaySpan span = hijri_month_span(year, month, other).span;
            EXPECT_EQ(span.first, next) << year << ' ' << month;
            EXPECT_EQ(span.days(), month % 2 == 0 ? (month == 12 ? of_year.days() - 324 : 30) : 29);
            next = span.last + 1;
        }
        EXPECT_EQ(of_year.last + 1, next) << year;
    }
}

TEST(Span, OfDates) {
    expect_span(dates_span("2026-02-18", "2026-03-01"), {2026, 2, 18}, {2026, 3, 1});
    EXPECT_EQ(dates_span("2026-02-18", "2026-02-18").span.days(), 1);
}

TEST(Span, RefusesWhatIsNone) {
    for (const char* text :
         {"", "2026", "2026-", "2026-2x", "x-02", "2026-00", "2026-13", "2026--2", "99999-01"})
        EXPECT_TRUE(month_span(text).refused) << text;
    for (const char* text : {"", "20 26", "10000", "-4001", "nan", "1e3"})
        EXPECT_TRUE(year_span(text).refused) << text;
    for (const char* text : {"0", "9601", "1447-09"})
        EXPECT_TRUE(hijri_year_span(text).refused) << text;
    EXPECT_TRUE(dates_span("2026-02-30", "2026-03-01").refused);
    EXPECT_TRUE(dates_span("2026-03-01", "2026-02-28").refused);
    EXPECT_TRUE(dates_span("1582-10-10", "1582-10-20").refused);
    EXPECT_TRUE(dates_span("0001-01-01", "9999-12-31").refused);
    EXPECT_FALSE(dates_span("1950-01-01", "2049-12-31").refused);
}

} // namespace
} // namespace halvane
