// SPDX-License-Identifier: MIT
#include "calendar/civildate.h"
#include "calendar/modday.h"
#include "calendar/modjul.h"
#include "calendar/platformdate.h"

#include <chrono>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace halvane {
namespace {

double julian_day(double year, double month, double day, double hours = 0) {
    double jd = 0;
    modjul(year, month, day, hours, jd);
    return jd;
}

struct Civil {
    double year, month, day;
    bool operator==(const Civil&) const = default;
};

std::ostream& operator<<(std::ostream& stream, const Civil& date) {
    return stream << date.year << "-" << date.month << "-" << date.day;
}

Civil civil(double value) {
    Civil date{};
    modjuc(value, date.year, date.month, date.day);
    return date;
}

TEST(JulianDay, StartsItsDateAtMidnight) {
    for (const double jd : {2461089.5, 2461089.75, 2461090.0, 2461090.49})
        EXPECT_EQ(start_of_date(jd), 2461089.5) << jd;
    EXPECT_EQ(start_of_date(-0.75), -1.5);
}

// Meeus, Astronomical Algorithms, chapter 7: examples 7.a and 7.b and the table of page 62.
TEST(JulianDay, GivesTheTableOfTheBook) {
    struct Row {
        double year, month, day, jd;
    };
    for (const Row& row :
         {Row{1957, 10, 4.81, 2436116.31}, Row{333, 1, 27.5, 1842713.0}, Row{2000, 1, 1.5, 2451545.0},
          Row{1999, 1, 1.0, 2451179.5}, Row{1987, 1, 27.0, 2446822.5}, Row{1987, 6, 19.5, 2446966.0},
          Row{1988, 1, 27.0, 2447187.5}, Row{1988, 6, 19.5, 2447332.0}, Row{1900, 1, 1.0, 2415020.5},
          Row{1600, 1, 1.0, 2305447.5}, Row{1600, 12, 31.0, 2305812.5}, Row{837, 4, 10.3, 2026871.8},
          Row{-123, 12, 31.0, 1676496.5}, Row{-122, 1, 1.0, 1676497.5}, Row{-1000, 7, 12.5, 1356001.0},
          Row{-1000, 2, 29.0, 1355866.5}, Row{-1001, 8, 17.9, 1355671.4}, Row{-4712, 1, 1.5, 0.0}}) {
        EXPECT_NEAR(julian_day(row.year, row.month, row.day), row.jd, 1e-9) << row.jd;
        const Civil date = civil(row.jd + 0.5);
        EXPECT_EQ(date.year, row.year) << row.jd;
        EXPECT_EQ(date.month, row.month) << row.jd;
        EXPECT_NEAR(date.day, row.day, 1e-8) << row.jd;
    }
}

// Example 7.c.
TEST(JulianDay, GivesTheDatesOfTheBook) {
    EXPECT_NEAR(civil(2436116.31 + 0.5).day, 4.81, 1e-8);
    EXPECT_EQ(civil(1842713.0 + 0.5), (Civil{333, 1, 27.5}));
    EXPECT_NEAR(civil(1507900.13 + 0.5).day, 28.63, 1e-8);
    EXPECT_EQ(civil(1507900.13 + 0.5).year, -584);
    EXPECT_EQ(civil(1507900.13 + 0.5).month, 5);
}

TEST(JulianDay, CountsOnOverTheCalendarsSwitch) {
    EXPECT_EQ(julian_day(1582, 10, 4, 12), 2299160);
    EXPECT_EQ(julian_day(1582, 10, 15, 12), 2299161);
}

TEST(JulianDay, TakesTheFirstInstantOfTheSwitchAsJulian) {
    EXPECT_EQ(julian_day(1582, 10, 15, 0), 2299170.5);
    EXPECT_DOUBLE_EQ(julian_day(1582, 10, 15, 0.001), 2299160.5 + 0.001 / 24);
    EXPECT_EQ(julian_day(1582, 10, 16, 0), 2299161.5);
}

TEST(JulianDay, TakesTheMissingDaysOfTheSwitchAsJulian) {
    for (int day = 5; day <= 14; ++day) {
        const double jd = julian_day(1582, 10, day, 12);
        EXPECT_EQ(jd, 2299161 + day - 5);
        EXPECT_EQ(civil(jd), (Civil{1582, 10, day + 10.0}));
    }
}

TEST(JulianDay, ChangesTheCalendarBetweenTwoNeighbouringDays) {
    EXPECT_EQ(civil(2299161), (Civil{1582, 10, 15}));
    EXPECT_EQ(civil(2299160), (Civil{1582, 10, 4}));
}

TEST(JulianDay, TakesHoursAndAFractionOfTheDayAlike) {
    EXPECT_EQ(julian_day(2000, 1, 1.5, 0), 2451545);
    EXPECT_EQ(julian_day(2000, 1, 1, 12), 2451545);
}

TEST(JulianDay, LeavesTheHalfDayToTheCaller) {
    const double midnight = julian_day(2026, 2, 18);
    EXPECT_EQ(civil(midnight + 0.5), (Civil{2026, 2, 18}));
    EXPECT_EQ(civil(midnight), (Civil{2026, 2, 17.5}));
}

TEST(JulianDay, RoundTripsForEveryDate) {
    std::mt19937 random(1);
    std::uniform_int_distribution<int> year(-4712, 9999);
    std::uniform_int_distribution<int> month(1, 12);
    std::uniform_int_distribution<int> day(1, 28);
    std::uniform_int_distribution<int> sixteenths(0, 15);
    for (int i = 0; i < 20000; ++i) {
        Civil date{static_cast<double>(year(random)), static_cast<double>(month(random)),
                   day(random) + sixteenths(random) / 16.0};
        if (date.year == 1582 && date.month == 10)
            continue;
        EXPECT_EQ(civil(julian_day(date.year, date.month, date.day) + 0.5), date);
    }
}

TEST(JulianDay, AgreesWithTheStandardLibrarysGregorianCalendar) {
    using namespace std::chrono;
    constexpr double unix_epoch = 2440587.5;
    for (sys_days day = 1582y / October / 16; day < sys_days(2400y / January / 1); day += days(37)) {
        const year_month_day date(day);
        const double y = static_cast<int>(date.year());
        const double m = static_cast<unsigned>(date.month());
        const double d = static_cast<unsigned>(date.day());
        const double jd = unix_epoch + static_cast<double>(day.time_since_epoch().count());
        ASSERT_EQ(julian_day(y, m, d), jd);
        ASSERT_EQ(civil(jd + 0.5), (Civil{y, m, d}));
    }
}

// Meeus, example 7.e, and days of known weekdays.
TEST(Weekday, IsTheOneOfTheBook) {
    std::string name;
    modday(julian_day(1954, 6, 30, 12), 0, name);
    EXPECT_EQ(name, "Wednesday");
    modday(2451545, 1, name);
    EXPECT_EQ(name, "السبت");
    modday(julian_day(2024, 6, 21) + 0.5, 0, name);
    EXPECT_EQ(name, "Friday");
}

TEST(Weekday, HasSevenNamesInEachLanguage) {
    const std::string english[]{"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
    const std::string arabic[]{"الأحد", "الاثنين", "الثلاثاء", "الأربعاء", "الخميس", "الجمعة", "السبت"};
    const double sunday = julian_day(2026, 2, 15, 12);
    for (int i = 0; i < 14; ++i) {
        std::string name;
        modday(sunday + i, 0, name);
        EXPECT_EQ(name, english[i % 7]);
        modday(sunday + i, 2, name);
        EXPECT_EQ(name, english[i % 7]) << "only flag 1 is Arabic";
        modday(sunday + i, 1, name);
        EXPECT_EQ(name, arabic[i % 7]);
    }
}

TEST(Weekday, OfPartOfADayLeavesTheNameAsItWas) {
    std::string name = "before";
    modday(2451544.5, 0, name);
    EXPECT_EQ(name, "before");
    EXPECT_EQ(weekday_name(2451544.5, Language::arabic), "");
    modday(-7, 0, name);
    EXPECT_EQ(name, "Monday") << "a whole number before the count's start";
    EXPECT_EQ(weekday_name(-7, Language::english), "Monday");
}

TEST(MonthName, HasTwelveNamesInEachLanguage) {
    const std::string english[]{"January", "February", "March",     "April",   "May",      "June",
                                "July",    "August",   "September", "October", "November", "December"};
    const std::string arabic[]{"كانون ثاني", "شباط", "آذار",  "نيسان",     "آيار",       "حزيران",
                               "تموز",       "آب",   "أيلول", "تشرين أول", "تشرين ثاني", "كانون أول"};
    for (int month = 1; month <= 12; ++month) {
        std::string name;
        modmonth(month, 'E', name);
        EXPECT_EQ(name, english[month - 1]);
        EXPECT_EQ(civil_month_name(month, Language::english), english[month - 1]);
        modmonth(month, 'A', name);
        EXPECT_EQ(name, arabic[month - 1]);
        EXPECT_EQ(civil_month_name(month, Language::arabic), arabic[month - 1]);
        modmonth(month, 'E', name);
        modmonth(month, 'e', name);
        EXPECT_EQ(name, arabic[month - 1]) << "only the letter E is English";
    }
}

TEST(MonthName, OfNoMonthStaysAsItWas) {
    for (int month : {0, 13, -1}) {
        std::string name = "before";
        modmonth(month, 'E', name);
        EXPECT_EQ(name, "before");
        EXPECT_EQ(civil_month_name(month, Language::english), "");
    }
}

TEST(PlatformDate, RollsDaysAndMonthsOver) {
    EXPECT_EQ(platform_day_count(2026, 2, 31), platform_day_count(2026, 3, 3));
    EXPECT_EQ(platform_day_count(2024, 2, 31), platform_day_count(2024, 3, 2));
    EXPECT_EQ(platform_day_count(2026, 4, 31), platform_day_count(2026, 5, 1));
    EXPECT_EQ(platform_day_count(2026, 13, 1), platform_day_count(2027, 1, 1));
    EXPECT_EQ(platform_day_count(2026, 0, 1), platform_day_count(2025, 12, 1));
    EXPECT_EQ(platform_day_count(2026, 1, 0), platform_day_count(2025, 12, 31));
}

TEST(PlatformDate, IsProlepticGregorian) {
    using namespace std::chrono;
    const sys_days zero = 1y / January / 1;
    for (sys_days day = year(-400) / January / 1; day < sys_days(2200y / January / 1); day += days(97)) {
        const year_month_day date(day);
        ASSERT_EQ(platform_day_count(static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                                     static_cast<unsigned>(date.day())) -
                      platform_day_count(1, 1, 1),
                  static_cast<double>((day - zero).count()));
    }
}

} // namespace
} // namespace halvane
