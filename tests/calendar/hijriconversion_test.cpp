// SPDX-License-Identifier: MIT
#include "calendar/hijriconversion.h"

#include <chrono>
#include <gtest/gtest.h>

namespace halvane {
namespace {

constexpr ConversionDirection to_civil = ConversionDirection::hijri_to_civil;
constexpr ConversionDirection to_hijri = ConversionDirection::civil_to_hijri;

/// The tabular calendar by counting days: months of 30 and 29 days in turn, and a thirtieth day in the last
/// month of years 2, 5, 7, 10, 13, 16, 18, 21, 24, 26 and 29 of each cycle of 30 years.
class CountedCalendar {
public:
    int year = 1;
    int month = 1;
    int day = 1;

    void next() {
        if (++day <= days_in_month())
            return;
        day = 1;
        if (++month <= 12)
            return;
        month = 1;
        ++year;
    }

private:
    int days_in_month() const {
        const bool long_year = (year * 11 + 14) % 30 < 11;
        return month == 12 ? (long_year ? 30 : 29) : (month % 2 == 1 ? 30 : 29);
    }
};

/// Civil dates by counting days: Julian until 4 October 1582, Gregorian from 15 October 1582 on.
class CountedCivil {
public:
    int year = 622;
    int month = 7;
    int day = 16;

    void next() {
        if (year == 1582 && month == 10 && day == 4) {
            day = 15;
            return;
        }
        if (++day <= days_in_month())
            return;
        day = 1;
        if (++month <= 12)
            return;
        month = 1;
        ++year;
    }

private:
    int days_in_month() const {
        constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        const bool gregorian = year > 1582;
        const bool leap = year % 4 == 0 && (!gregorian || year % 100 != 0 || year % 400 == 0);
        return days[month - 1] + (month == 2 && leap ? 1 : 0);
    }
};

TEST(HijriConversion, EveryDayOfFifteenCenturiesAgreesWithCountingBothWays) {
    const std::string weekdays[] = {"Friday",  "Saturday",  "Sunday",  "Monday",
                                    "Tuesday", "Wednesday", "Thursday"};
    CountedCalendar hijri;
    CountedCivil civil;
    for (int count = 0; civil.year < 2200; ++count, hijri.next(), civil.next()) {
        const ConversionAnswer to =
            convert_date(to_hijri, civil.year, civil.month, civil.day, Language::english);
        const ConversionAnswer back =
            convert_date(to_civil, hijri.year, hijri.month, hijri.day, Language::english);
        ASSERT_EQ(to.refused, RefusedDate::none) << civil.year << ' ' << civil.month << ' ' << civil.day;
        ASSERT_EQ(to.year, hijri.year);
        ASSERT_EQ(to.month, hijri.month);
        ASSERT_EQ(to.day, hijri.day);
        ASSERT_EQ(to.weekday, weekdays[count % 7]);
        ASSERT_EQ(back.year, civil.year);
        ASSERT_EQ(back.month, civil.month);
        ASSERT_EQ(back.day, civil.day);
        ASSERT_EQ(back.weekday, weekdays[count % 7]);
    }
}

TEST(HijriConversion, WeekdaysOfTheGregorianCalendarAreThoseOfTheStandardLibrary) {
    const std::string weekdays[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                    "Thursday", "Friday", "Saturday"};
    using namespace std::chrono;
    for (sys_days day = sys_days(1900y / 1 / 1); day < sys_days(2100y / 1 / 1); day += days(13)) {
        const year_month_day date(day);
        const ConversionAnswer answer = convert_date(to_hijri, int(date.year()), unsigned(date.month()),
                                                     unsigned(date.day()), Language::english);
        ASSERT_EQ(answer.weekday, weekdays[weekday(day).c_encoding()]);
    }
}

TEST(HijriConversion, TheFirstDayAcceptedIsTheFirstOfMuharramOfYearOne) {
    const ConversionAnswer answer = convert_date(to_hijri, 622, 7, 16, Language::english);
    EXPECT_EQ(answer.refused, RefusedDate::none);
    EXPECT_EQ(answer.year, 1);
    EXPECT_EQ(answer.day, 1);
    EXPECT_EQ(answer.month_name, "Muharram");
    const ConversionAnswer back = convert_date(to_civil, 1, 1, 1, Language::english);
    EXPECT_EQ(back.year, 622);
    EXPECT_EQ(back.month_name, "July");
    EXPECT_EQ(back.day, 16);
}

TEST(HijriConversion, TheDaysBeforeTheFirstAreRefused) {
    EXPECT_EQ(convert_date(to_hijri, 622, 7, 15, Language::english).refused, RefusedDate::before_first_hijri);
    EXPECT_EQ(convert_date(to_hijri, 622, 1, 1, Language::english).refused, RefusedDate::before_first_hijri);
    EXPECT_EQ(convert_date(to_hijri, 0, 12, 31, Language::english).refused, RefusedDate::before_first_hijri);
    EXPECT_EQ(convert_date(to_hijri, -5, 12, 31, Language::english).refused, RefusedDate::before_first_hijri);
}

TEST(HijriConversion, AYearBelow622IsRefusedWhateverTheDay) {
    // The platform's calendar rounds such a year up to 622; the year test does not.
    EXPECT_EQ(convert_date(to_hijri, 621.9, 12, 31, Language::english).refused,
              RefusedDate::before_first_hijri);
}

TEST(HijriConversion, TheTenDaysOfTheCalendarGapAreRefusedAndTheirNeighboursAreNot) {
    for (int day = 5; day <= 14; ++day)
        EXPECT_EQ(convert_date(to_hijri, 1582, 10, day, Language::english).refused,
                  RefusedDate::in_calendar_gap)
            << day;
    const ConversionAnswer last = convert_date(to_hijri, 1582, 10, 4, Language::english);
    const ConversionAnswer first = convert_date(to_hijri, 1582, 10, 15, Language::english);
    EXPECT_EQ(last.weekday, "Thursday");
    EXPECT_EQ(first.weekday, "Friday");
    EXPECT_EQ(first.year, last.year);
    EXPECT_EQ(first.month, last.month);
    EXPECT_EQ(first.day, last.day + 1);
}

TEST(HijriConversion, AHijriYearMustBeAboveZero) {
    EXPECT_EQ(convert_date(to_civil, 0, 1, 1, Language::english).refused, RefusedDate::year_not_positive);
    EXPECT_EQ(convert_date(to_civil, -1, 1, 1, Language::english).refused, RefusedDate::year_not_positive);
    EXPECT_EQ(convert_date(to_civil, 1, 1, 1, Language::english).refused, RefusedDate::none);
}

TEST(HijriConversion, ADayPastItsMonthsEndRunsIntoTheNextMonth) {
    const ConversionAnswer past = convert_date(to_civil, 1445, 2, 30, Language::english);
    const ConversionAnswer next = convert_date(to_civil, 1445, 3, 1, Language::english);
    EXPECT_EQ(past.day, next.day);
    EXPECT_EQ(past.month, next.month);
    const ConversionAnswer june = convert_date(to_hijri, 2024, 6, 31, Language::english);
    const ConversionAnswer july = convert_date(to_hijri, 2024, 7, 1, Language::english);
    EXPECT_EQ(june.day, july.day);
    EXPECT_EQ(june.month, july.month);
    EXPECT_EQ(june.weekday, "Monday");
}

TEST(HijriConversion, TheMonthsOfBothCalendarsHaveTheirNamesInBothLanguages) {
    const MonthNames hijri{"Muharram",    "Safar",           "Rabeea' Awwal", "Rabeea' Thani",
                           "Jamada Aula", "Jamada Aakherah", "Rajab",         "Sha'ban",
                           "Ramadan",     "Shawwal",         "Thul Kea'deh",  "Thul Hejjah"};
    const MonthNames hijri_arabic{"محرم", "صفر",   "ربيع أول", "ربيع ثاني", "جمادى الأولى", "جمادي الآخرة",
                                  "رجب",  "شعبان", "رمضان",    "شوال",      "ذو القعدة",    "ذو الحجة"};
    const MonthNames civil{"January", "February", "March",     "April",   "May",      "June",
                           "July",    "August",   "September", "October", "November", "December"};
    const MonthNames civil_arabic{"كانون ثاني", "شباط", "آذار",  "نيسان",     "أيار",       "حزيران",
                                  "تموز",       "آب",   "أيلول", "تشرين أول", "تشرين ثاني", "كانون أول"};
    EXPECT_EQ(conversion_months(to_civil, Language::english), hijri);
    EXPECT_EQ(conversion_months(to_civil, Language::arabic), hijri_arabic);
    EXPECT_EQ(conversion_months(to_hijri, Language::english), civil);
    EXPECT_EQ(conversion_months(to_hijri, Language::arabic), civil_arabic);
    for (std::size_t i = 0; i < 12; ++i) {
        EXPECT_EQ(conversion_month_number(to_civil, hijri[i]), i + 1);
        EXPECT_EQ(conversion_month_number(to_civil, hijri_arabic[i]), i + 1);
        EXPECT_EQ(conversion_month_number(to_hijri, civil[i]), i + 1);
        EXPECT_EQ(conversion_month_number(to_hijri, civil_arabic[i]), i + 1);
    }
    EXPECT_EQ(conversion_month_number(to_civil, "January"), 0);
    EXPECT_EQ(conversion_month_number(to_hijri, "muharram"), 0);
}

TEST(HijriConversion, TheResultsAreNamedInTheLanguageAskedFor) {
    const ConversionAnswer may = convert_date(to_civil, 1442, 9, 20, Language::arabic);
    EXPECT_EQ(may.month_name, "أيار");
    EXPECT_EQ(may.weekday, "الأحد");
    const ConversionAnswer ramadan = convert_date(to_hijri, 2021, 5, 2, Language::arabic);
    EXPECT_EQ(ramadan.month_name, "رمضان");
    EXPECT_EQ(ramadan.weekday, "الأحد");
}

} // namespace
} // namespace halvane
