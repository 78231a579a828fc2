// SPDX-License-Identifier: MIT
#include "hijri/hijrimonths.h"

#include "tests/hijri/monthsofrule.h"

#include <algorithm>
#include <array>
#include <map>
#include <random>

namespace halvane {
namespace {

double first_day_by(const char* rule, int year, int month) {
    return first_day_of(hijri_rule(rule)->cycle, HijriMonthNumber::of(year, month));
}

TEST(TabularMonths, BeginAsTheFourCyclesSay) {
    // R. H. van Gent's eight calendars, reckoned by hand from their leap years.
    struct Known {
        int year, month;
        const char *of_15, *usual, *fatimid, *habash;
    };
    const Known table[] = {{1440, 9, "2019-05-06", "2019-05-06", "2019-05-06", "2019-05-05"},
                           {1445, 9, "2024-03-11", "2024-03-11", "2024-03-11", "2024-03-11"},
                           {1448, 1, "2026-06-17", "2026-06-17", "2026-06-16", "2026-06-16"}};
    for (const Known& known : table) {
        const auto expect = [&known](const char* rule, const std::string& astronomical, const char* day) {
            EXPECT_EQ(iso_date(first_day_by(rule, known.year, known.month)), day) << rule;
            EXPECT_EQ(first_day_by(astronomical.c_str(), known.year, known.month), day_number_of(day) - 1);
        };
        expect("tabular-15", "tabular-15-astronomical", known.of_15);
        expect("tabular", "tabular-astronomical", known.usual);
        expect("tabular-fatimid", "tabular-fatimid-astronomical", known.fatimid);
        expect("tabular-habash", "tabular-habash-astronomical", known.habash);
    }
}

TEST(TabularMonths, HaveTheLeapYearsOfTheirCycles) {
    const std::map<const char*, std::vector<int>> cycles{
        {"tabular-15", {2, 5, 7, 10, 13, 15, 18, 21, 24, 26, 29}},
        {"tabular", {2, 5, 7, 10, 13, 16, 18, 21, 24, 26, 29}},
        {"tabular-fatimid", {2, 5, 8, 10, 13, 16, 19, 21, 24, 27, 29}},
        {"tabular-habash", {2, 5, 8, 11, 13, 16, 19, 21, 24, 27, 30}}};
    for (const auto& [rule, leap_years] : cycles)
        for (int year = 1; year <= 30; ++year) {
            const bool is_leap = std::find(leap_years.begin(), leap_years.end(), year) != leap_years.end();
            EXPECT_EQ(first_day_by(rule, year + 1, 1) - first_day_by(rule, year, 1), is_leap ? 355 : 354)
                << rule << " " << year;
        }
}

TEST(TabularMonths, AreThoseOfTheMainPanel) {
    for (int year = 1; year <= 1700; ++year)
        for (int month = 1; month <= 12; ++month)
            ASSERT_EQ(first_day_by("tabular", year, month), day_number_of_hijri(year, month, 1));
}

class MonthsTest : public MonthsOfRule {};

/// Every day has one date and the date that day; months have 29 or 30 days, or say why not.
void expect_no_day_lost(const std::vector<HijriMonth>& months) {
    const HijriCalendar calendar = calendar_of(months);
    for (std::size_t i = 0; i < months.size(); ++i) {
        const HijriMonth& month = months[i];
        ASSERT_GE(month.days, 28);
        ASSERT_LE(month.days, 30);
        if (i + 1 == months.size())
            break;
        ASSERT_EQ(month.first_day + month.days, months[i + 1].first_day);
        ASSERT_EQ(month.days == 28, months[i + 1].has(MonthNote::seen_on_28th)) << i;
    }
    for (double day = calendar.first_day(); day <= calendar.last_day(); ++day) {
        const std::optional<HijriDate> date = calendar.date_of(day);
        ASSERT_TRUE(date);
        ASSERT_EQ(calendar.day_number_of(*date), day);
    }
    EXPECT_FALSE(calendar.date_of(calendar.first_day() - 1));
    EXPECT_FALSE(calendar.date_of(calendar.last_day() + 1));
}

/// Years of 353 days to 355.
void expect_whole_years(const std::vector<HijriMonth>& months) {
    for (std::size_t i = 0; i + 12 < months.size(); i += 12) {
        const double days = months[i + 12].first_day - months[i].first_day;
        EXPECT_GE(days, 353) << months[i].number.year();
        EXPECT_LE(days, 355) << months[i].number.year();
    }
}

class EveryRule : public MonthsOfRule, public testing::WithParamInterface<std::string> {};

TEST_P(EveryRule, KeepsEveryDayOfThreeHundredYears) {
    const std::vector<HijriMonth> months = months_of(settings_of(GetParam().c_str()), 1300, 1600);
    ASSERT_EQ(months.size(), 301U * 12);
    expect_no_day_lost(months);
    expect_whole_years(months);
}

TEST_P(EveryRule, TellsAYearAsItTellsMany) {
    const HijriSettings settings = settings_of(GetParam().c_str());
    const std::vector<HijriMonth> many = months_of(settings, 1438, 1447);
    for (int year = 1438; year <= 1447; ++year) {
        const std::vector<HijriMonth> one = months_of(settings, year, year);
        const auto begun = many.begin() + std::ptrdiff_t{12} * (year - 1438);
        for (std::size_t i = 0; i < one.size(); ++i) {
            const HijriMonth& same = *(begun + static_cast<std::ptrdiff_t>(i));
            EXPECT_EQ(iso_date(one[i].first_day), iso_date(same.first_day)) << year << " " << i + 1;
            EXPECT_EQ(one[i].days, same.days);
            EXPECT_EQ(margin_text(one[i]), margin_text(same));
            EXPECT_EQ(one[i].notes, same.notes);
        }
    }
}

/// But the second rule of Istanbul, which differs from the first by one measure.
std::vector<std::string> every_rule() {
    std::vector<std::string> keys;
    for (const HijriRule& rule : hijri_rules())
        if (rule.kind != HijriRuleKind::istanbul_2016_geocentric)
            keys.emplace_back(rule.key);
    return keys;
}

std::string test_name(const testing::TestParamInfo<std::string>& info) {
    std::string name = info.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Rules, EveryRule, testing::ValuesIn(every_rule()), test_name);

TEST_F(MonthsTest, TheNorthWaitsForACrescentAndSaysSo) {
    const std::vector<HijriMonth> months = months_of(settings_of("seen-here", tromso()), 1440, 1470);
    expect_no_day_lost(months);
    const auto count = [&months](MonthNote note) {
        return std::count_if(months.begin(), months.end(),
                             [note](const HijriMonth& month) { return month.has(note); });
    };
    EXPECT_GT(count(MonthNote::completed), 0);
    EXPECT_GT(count(MonthNote::seen_on_28th), 0);
}

/// Rules whose months are held by what the sky does not show.
TEST_F(MonthsTest, AYearIsTheSameWhateverIsAskedForInTheFarNorthToo) {
    const HijriPlace far_north{"", 20, 75, 0, 1};
    const HijriPlace farther_north{"", 20, 80, 0, 1};
    HijriSettings never = settings_of("seen-here", makkah(), "user");
    never.limits.user.altitude = 80;
    for (const HijriSettings& settings :
         {settings_of("mabims", far_north), settings_of("seen-here", far_north),
          settings_of("seen-here", farther_north), settings_of("seen-here", tromso()), never}) {
        const std::vector<HijriMonth> many = months_of(settings, 1440, 1452);
        expect_no_day_lost(many);
        for (std::size_t i = 0; i < many.size(); ++i) {
            const HijriMonth one = months_of(settings, many[i].number)[0];
            EXPECT_EQ(one.first_day, many[i].first_day) << i;
            EXPECT_EQ(one.days, many[i].days) << i;
            EXPECT_EQ(one.notes, many[i].notes) << i;
            EXPECT_EQ(margin_text(one), margin_text(many[i])) << i;
        }
    }
}

/// How far the months of a rule may go from the Moon.
TEST_F(MonthsTest, StayWithTheMoonWhereItIsNotSeen) {
    HijriSettings never = settings_of("seen-here", makkah(), "user");
    never.limits.user.altitude = 80;
    for (const HijriMonth& month : months_of(never, 1400, 1500)) {
        EXPECT_LE(std::fabs(month.first_day - first_day_of({}, month.number)), 4);
        EXPECT_TRUE(month.has(MonthNote::undecided) || month.has(MonthNote::completed));
        EXPECT_FALSE(month.has(MonthNote::seen_on_28th));
    }
}

TEST_F(MonthsTest, ThirtyDaysAreToldOfMonthsThatHaveThem) {
    HijriSettings never = settings_of("seen-here", amman(), "user");
    never.limits.user.altitude = 80;
    never.announced = {{HijriMonthNumber::of(1447, 9), day_number_of("2026-02-18"), ""}};
    const std::vector<HijriMonth> months = months_of(never, 1446, 1448);
    expect_no_day_lost(months);
    for (std::size_t i = 1; i < months.size(); ++i)
        EXPECT_TRUE(!months[i].has(MonthNote::completed) || months[i - 1].days == 30) << i;
}

TEST_F(MonthsTest, TheAltitudeFromTheEarthsCentreIsNeverReachedLater) {
    const auto topocentric = months_of(settings_of("istanbul-2016"), 1440, 1449);
    const auto geocentric = months_of(settings_of("istanbul-2016-geocentric"), 1440, 1449);
    for (std::size_t i = 0; i < topocentric.size(); ++i)
        EXPECT_LE(geocentric[i].first_day, topocentric[i].first_day) << i;
}

TEST_F(MonthsTest, DatesOfTheClockCountBeyondTheDateLine) {
    // Apia counts its days a day ahead of its longitude's mean time, Pago Pago beside it does not.
    const HijriPlace apia{"Apia", -171.76, -13.83, 0, 13};
    const HijriPlace pago_pago{"Pago Pago", -170.7, -14.28, 0, -11};
    const auto in_apia = months_of(settings_of("seen-at", apia), 1446, 1447);
    const auto in_pago_pago = months_of(settings_of("seen-at", pago_pago), 1446, 1447);
    for (std::size_t i = 0; i < in_apia.size(); ++i)
        EXPECT_EQ(in_apia[i].first_day, in_pago_pago[i].first_day + 1);
}

HijriSettings with_announced(HijriSettings settings, std::vector<AnnouncedStart> announced) {
    settings.announced = std::move(announced);
    return settings;
}

TEST_F(MonthsTest, AnAnnouncedStartTakesThePlaceOfTheRules) {
    const HijriSettings rule = settings_of("umm-al-qura");
    const auto ramadan = HijriMonthNumber::of(1446, 9);
    const double day = months_of(rule, 1446, 1446)[8].first_day + 1;
    const auto months = months_of(with_announced(rule, {{ramadan, day, "a court"}}), 1446, 1446);
    EXPECT_EQ(months[8].first_day, day);
    EXPECT_TRUE(months[8].has(MonthNote::announced));
    EXPECT_EQ(months[8].announced_by, "a court");
    EXPECT_EQ(notes_of(months[8]).front().english, "announced by a court");
    expect_no_day_lost(months);
}

TEST_F(MonthsTest, MonthsBeforeAnAnnouncedOneMakeRoom) {
    // Umm al-Qura gives Sha'ban 1446 29 days from 31 January: with Ramadan on 3 March it would have 31.
    const HijriSettings rule = settings_of("umm-al-qura");
    const auto plain = months_of(rule, 1446, 1446);
    ASSERT_EQ(iso_date(plain[7].first_day), "2025-01-31");
    const auto months = months_of(
        with_announced(rule, {{HijriMonthNumber::of(1446, 9), day_number_of("2025-03-03"), ""}}), 1446, 1446);
    EXPECT_EQ(iso_date(months[7].first_day), "2025-02-01");
    EXPECT_TRUE(months[7].has(MonthNote::made_to_fit));
    EXPECT_EQ(months[7].days, 30);
    expect_no_day_lost(months);
}

/// Starts of random months, each as many days after the one before as 29 or 30 a month make, near the
/// tabular ones.
std::vector<AnnouncedStart> random_announced(std::mt19937& random) {
    const auto upto = [&random](int most) {
        return static_cast<int>(random() % static_cast<unsigned>(most + 1));
    };
    std::vector<AnnouncedStart> starts;
    HijriMonthNumber month = HijriMonthNumber::of(1440, 1 + upto(11));
    double day = day_number_of_hijri(month.year(), month.month(), 1) + upto(4) - 2;
    const int count = 1 + upto(30);
    for (int i = 0; i < count; ++i) {
        starts.push_back({month, day, {}});
        const int months = 1 + upto(upto(4) == 0 ? 12 : 1);
        month.value += months;
        const double tabular = day_number_of_hijri(month.year(), month.month(), 1);
        day = std::clamp(tabular + upto(4) - 2, day + 29 * months, day + 30 * months);
    }
    return starts;
}

TEST_F(MonthsTest, NoDayIsLostOrDoubledByAThousandAnnouncedLists) {
    std::mt19937 random(1447);
    const std::array<HijriSettings, 4> rules{settings_of("tabular"), settings_of("umm-al-qura"),
                                             settings_of("mabims", kuala_lumpur()),
                                             settings_of("seen-here", rabat())};
    // Most of the lists by the rules that take least time.
    constexpr std::array<std::size_t, 10> shares{0, 0, 0, 0, 0, 0, 1, 1, 2, 3};
    for (std::size_t i = 0; i < 1000; ++i) {
        const HijriSettings settings =
            with_announced(rules[shares[i % shares.size()]], random_announced(random));
        const std::vector<HijriMonth> months = months_of(settings, 1439, 1446);
        expect_no_day_lost(months);
        const HijriCalendar calendar = calendar_of(months);
        for (const AnnouncedStart& start : settings.announced) {
            const std::optional<double> begun = calendar.first_day_of(start.month);
            ASSERT_TRUE(!begun || *begun == start.first_day) << i;
        }
    }
}

TEST_F(MonthsTest, AReckoningHoldsTheDaysThatItIsAskedFor) {
    const HijriReckoningPointer reckoning = reckoning_of(loaded_theory(), settings_of("umm-al-qura"));
    EXPECT_EQ(reckoning->name.english, "Umm al-Qura");
    const double first = day_number_of("2026-02-18");
    const HijriCalendar calendar = reckoning->months(first, first + 400);
    EXPECT_LE(calendar.first_day(), first);
    EXPECT_GE(calendar.last_day(), first + 400);
    const std::optional<HijriDate> date = calendar.date_of(first);
    ASSERT_TRUE(date);
    EXPECT_EQ(date->year, 1447);
    EXPECT_EQ(date->month, 9);
    EXPECT_EQ(date->day, 1);
}

} // namespace
} // namespace halvane
