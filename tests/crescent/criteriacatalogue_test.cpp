// SPDX-License-Identifier: MIT
#include "crescent/criteriacatalogue.h"

#include "tests/crescent/crescentfixture.h"
#include "tests/crescent/nineskies.h"

#include <cmath>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <string_view>

namespace halvane {
namespace {

const CataloguedCriterion& criterion_named(std::string_view key) {
    const CataloguedCriterion* found = catalogued_criterion(key);
    EXPECT_NE(found, nullptr) << key;
    return found != nullptr ? *found : catalogued_criteria().front();
}

const KnownSky& sky_named(std::string_view name) {
    for (const KnownSky& sky : nine_skies)
        if (sky.name == name)
            return sky;
    ADD_FAILURE() << name;
    return nine_skies.front();
}

TEST(Catalogue, EachKeyIsOfOneCriterion) {
    std::set<std::string_view> keys;
    for (const CataloguedCriterion& criterion : catalogued_criteria()) {
        EXPECT_TRUE(keys.insert(criterion.key).second) << criterion.key;
        EXPECT_EQ(catalogued_criterion(criterion.key), &criterion);
    }
    for (const char* other : {"", "Vesk", "yallop-199", "yallop-19977"})
        EXPECT_EQ(catalogued_criterion(other), nullptr) << other;
}

TEST(Catalogue, ABorderIsOfTheClassThatHoldsIt) {
    const CataloguedCriterion& yallop = criterion_named("yallop-1997");
    EXPECT_EQ(class_of_value(yallop, 0.216), 4U);
    EXPECT_EQ(class_of_value(yallop, std::nextafter(0.216, 1)), 5U);
    EXPECT_EQ(class_of_value(yallop, -0.293), 0U);
    EXPECT_EQ(class_of_value(yallop, std::nextafter(-0.293, 1)), 1U);
    EXPECT_EQ(class_of_value(yallop, -1e9), 0U);
    const CataloguedCriterion& vesk = criterion_named("vesk");
    EXPECT_EQ(class_of_value(vesk, 5.65), 3U);
    EXPECT_EQ(class_of_value(vesk, std::nextafter(5.65, 0)), 2U);
    EXPECT_EQ(class_of_value(criterion_named("babylon"), 48), 0U);
    EXPECT_EQ(class_of_value(criterion_named("turkey-1978"), 0), 1U);
}

/// An evening whose topocentric quantities are the same at both moments.
CrescentEvening evening_with(const CrescentQuantities& q) {
    CrescentEvening evening;
    evening.at_sun_event.topocentric = evening.at_best_time.topocentric = q;
    return evening;
}

/// The class that the map's row of the same key gives, as a place in the catalogue's list.
std::size_t class_on_map(const CriterionRow& row, const CrescentQuantities& q) {
    const VisibilityClass visibility = row.measure(q);
    const auto lines = row.lines();
    for (std::size_t i = 0; i < lines.size(); ++i)
        if (lines[i].visibility == visibility)
            return i + 1;
    return 0;
}

TEST(Catalogue, TheMapsCriteriaHaveTheirNamesMomentsAndClasses) {
    for (const CriterionRow& row : criteria()) {
        const CataloguedCriterion& criterion = criterion_named(row.key);
        for (const Language language : languages)
            EXPECT_STREQ(criterion.name.in(language), row.name.in(language));
        EXPECT_EQ(criterion.moment, row.moment);
        EXPECT_EQ(criterion.bands().size(), row.lines().size() + 1);
        CrescentQuantities q;
        q.semidiameter = 0.26;
        for (q.moon_altitude = 0; q.moon_altitude <= 20; q.moon_altitude += 0.37)
            for (q.moon_azimuth = -30; q.moon_azimuth <= 30; q.moon_azimuth += 3.1)
                for (const double minutes : {0.05, 0.2, 0.45, 0.9}) {
                    q.width = minutes / 60;
                    const double value = criterion_value(criterion, evening_with(q)).value();
                    EXPECT_EQ(class_of_value(criterion, value), class_on_map(row, q)) << row.key;
                }
    }
}

struct Example {
    const char* criterion;
    const char* sky;
    double value;
    std::size_t visibility; ///< place of the class
};

/// Worked by hand from the quantities of nineskies.h and the published lines; the lines' values at the DAZ or
/// the width of the sky stand behind each row.
constexpr Example examples[] = {
    {"saao-2001", "Jakarta", 8.52 - 7.66, 2},              // DAZ 5.68: 7.8 - 0.136
    {"saao-2001", "Sabang", 7.36 - 7.87, 1},               // DAZ 4.13: 8.2 - 0.330
    {"saao-2001", "Auckland", 3.26 - 7.12, 0},             // DAZ 8.41: 7.8 - 0.682
    {"saao-2001", "CapeTown2026", 6.15 - 6.16, 1},         // DAZ 12.90: 6.8 - 0.638
    {"danjon", "Hilo", 9.76 - 7, 1},                       //
    {"danjon", "CapeTown2024", 4.47 - 7, 0},               //
    {"maunder", "Makkah2026Feb18", 14.01 - 10.99, 1},      // 11 - 0.0100 - 0.0004
    {"maunder", "Jakarta", 10.46 - 10.39, 1},              // 11 - 0.2840 - 0.3226
    {"maunder", "Hilo", 10.23 - 10.80, 0},                 // 11 - 0.1335 - 0.0713
    {"maunder", "Sabang", 9.35 - 10.62, 0},                // 11 - 0.2065 - 0.1706
    {"maunder", "CapeTown2026", 8.06 - 8.69, 0},           // 11 - 0.6450 - 1.6641
    {"schoch", "Makkah2026Feb18", 14.01 - 10.37, 1},       // 10.3743 - 0.0027 - 0.0004
    {"schoch", "Jakarta", 10.46 - 9.98, 1},                // 10.3743 - 0.0778 - 0.3129
    {"schoch", "Hilo", 10.225 - 10.2687, 0},               // 10.3743 - 0.0366 - 0.0692
    {"schoch", "Sabang", 9.35 - 10.15, 0},                 // 10.3743 - 0.0566 - 0.1655
    {"schoch", "CapeTown2026", 8.06 - 8.58, 0},            // 10.3743 - 0.1767 - 1.6142
    {"bruin", "Hilo", 10.43 - 10.17, 1},                   // W 0.263
    {"bruin", "Jakarta", 10.52 - 9.68, 1},                 // W 0.330
    {"bruin", "CapeTown2026", 8.01 - 8.38, 0},             // W 0.533
    {"bruin", "Sabang", 9.54 - 10.31, 0},                  // W 0.245
    {"ilyas", "Hilo", 10.23 - 10.18, 1},                   // 10.2833 - 0.0073 - 0.0974 + 0.0040
    {"ilyas", "Jakarta", 10.46 - 9.87, 1},                 // 10.2833 - 0.0155 - 0.4409 + 0.0388
    {"ilyas", "Sabang", 9.35 - 10.05, 0},                  // 10.2833 - 0.0113 - 0.2331 + 0.0149
    {"ilyas", "CapeTown2026", 8.06 - 8.43, 0},             // 10.2833 - 0.0353 - 2.2740 + 0.4549
    {"babylon", "Makkah2026Feb18", 59.0, 1},               //
    {"babylon", "Hilo", 41.4, 0},                          //
    {"babylon", "Cairo", 88.8, 1},                         // a morning
    {"turkey-1978", "Hilo", 10.56 - 8, 1},                 // altitude 8.38 - 5 is more
    {"turkey-1978", "Auckland", 3.30 - 5, 0},              // elongation 9.82 - 8
    {"istanbul-2016", "Jakarta", 8.68 - 5, 1},             // elongation 11.89 - 8, 12.7 h to midnight
    {"istanbul-2016", "Hilo", -4.564, 0},                  // 04:33:51 of the next day
    {"istanbul-2016-geocentric", "Jakarta", 11.89 - 8, 1}, // altitude 9.63 - 5
    {"mabims-1992", "CapeTown2024", 0.42, 1}, // altitude 2.30 - 2; elongation 5.18 - 3; age 8.42 h - 8
    {"mabims-1992", "Makkah2026Feb17", -0.12 - 2, 0},  // elongation 1.84 - 3; age 3.36 h - 8 is less
    {"mabims-2021", "CapeTown2024", 5.18 - 6.4, 0},    // altitude 2.30 - 3
    {"mabims-2021", "Auckland", 3.30 - 3, 1},          // elongation 9.82 - 6.4
    {"mabims-2021", "Makkah2026Feb17", 1.84 - 6.4, 0}, // altitude -0.12 - 3
    {"umm-al-qura", "Makkah2026Feb17", 3.2, 1},        // age 198 min; 18 February 2026 began Ramadan 1447
    {"user", "Makkah2026Feb18", 14.01 - 8, 1},         // lag 59.0, altitude 12.24 - 5, age 27.31
    {"user", "Auckland", 3.30 - 5, 0},                 //
};

class WorkedExample : public CrescentTest, public ::testing::WithParamInterface<Example> {};

TEST_P(WorkedExample, HasItsValueAndClass) {
    const Example& example = GetParam();
    const CataloguedCriterion& criterion = criterion_named(example.criterion);
    const auto value = criterion_value(criterion, evening_of(sky_named(example.sky)));
    ASSERT_TRUE(value);
    // Two printed decimals on either side of the subtraction; a lag is printed to a tenth of a minute.
    EXPECT_NEAR(*value, example.value, std::string_view(criterion.unit) == "min" ? 0.06 : 0.011);
    EXPECT_EQ(class_of_value(criterion, *value), example.visibility);
}

INSTANTIATE_TEST_SUITE_P(Of, WorkedExample, ::testing::ValuesIn(examples), [](const auto& tried) {
    std::string name = std::string(tried.param.criterion) + "_" + tried.param.sky;
    for (char& letter : name)
        if (letter == '-')
            letter = '_';
    return name;
});

class CatalogueOfSkies : public CrescentTest {};

TEST_F(CatalogueOfSkies, YallopAsPublishedHasHisValuesAndClasses) {
    const CataloguedCriterion& yallop = criterion_named("yallop-1997");
    for (const KnownSky& known : nine_skies) {
        const double q = criterion_value(yallop, evening_of(known)).value();
        EXPECT_NEAR(q, known.q, 0.0015) << known.name;
        EXPECT_EQ("FEDCBA"[class_of_value(yallop, q)], known.q_class) << known.name;
    }
}

TEST_F(CatalogueOfSkies, TodaysYallopIsLowerByTheFrame) {
    // The same skies, ARCV topocentric and W with the topocentric elongation.
    constexpr double todays[] = {0.399, -0.093, -0.043, -0.164, -1.110, -0.191, -0.836, -0.641, 1.157};
    for (std::size_t i = 0; i < nine_skies.size(); ++i)
        EXPECT_NEAR(criterion_value(criterion_named("yallop"), evening_of(nine_skies[i])).value(), todays[i],
                    0.0015)
            << nine_skies[i].name;
}

TEST_F(CatalogueOfSkies, RulesOfTheCalendarJudgeNoMorning) {
    const CrescentEvening morning = evening_of(sky_named("Cairo"));
    for (const CataloguedCriterion& criterion : catalogued_criteria())
        EXPECT_EQ(criterion_value(criterion, morning).has_value(), criterion.of_mornings) << criterion.key;
    for (const char* key : {"turkey-1978", "istanbul-2016", "mabims-1992", "mabims-2021", "umm-al-qura"})
        EXPECT_FALSE(criterion_named(key).of_mornings) << key;
}

TEST_F(CatalogueOfSkies, UmmAlQuraJudgesMakkahWhereverOneAsks) {
    // 29 March 2025: conjunction 10:58, sunset 15:34:37, moonset 15:42:08 UT at Makkah; 30 March began the
    // month. Hilo, where the asker stands, has its evening eleven hours later.
    const CataloguedCriterion& rule = criterion_named("umm-al-qura");
    const KnownSky& asker = sky_named("Hilo");
    const double day = julian_day(asker.date);
    const auto evening =
        judged_evening(named_ephemeris(), rule, observer_at(asker.longitude, asker.latitude, 0),
                       CrescentKind::new_crescent, day, geocentric_conjunction(named_ephemeris(), day));
    ASSERT_TRUE(evening);
    constexpr double three_seconds = 3.0 / 86400;
    EXPECT_NEAR(evening->sun_event, julian_day(asker.date, {15, 34, 37}), three_seconds);
    EXPECT_NEAR(evening->moon_event, julian_day(asker.date, {15, 42, 8}), three_seconds);
    const double value = criterion_value(rule, *evening).value();
    EXPECT_NEAR(value, 7.5, 0.06);
    EXPECT_EQ(class_of_value(rule, value), 1U);
    // The day before, the conjunction is still to come.
    const auto early = judged_evening(named_ephemeris(), rule, Observer{}, CrescentKind::new_crescent,
                                      day - 1, evening->conjunction);
    ASSERT_TRUE(early);
    EXPECT_EQ(class_of_value(rule, criterion_value(rule, *early).value()), 0U);
}

/// An evening of a place in America, whose date in UT is the next.
CrescentEvening american_evening(double longitude, double latitude, const CivilDay& date) {
    const double day = julian_day(date);
    return crescent_evening(named_ephemeris(), observer_at(longitude, latitude, 0),
                            CrescentKind::new_crescent, day, geocentric_conjunction(named_ephemeris(), day))
        .value();
}

// Los Angeles, 17 February 2026, sunset 01:38:52 UT: altitude 4.89, elongation 6.95 geocentric and 6.04
// topocentric.
TEST_F(CatalogueOfSkies, TheFrameDecidesTheMabimsCriterionInLosAngeles) {
    const CrescentEvening evening = american_evening(-118.24, 34.05, {2026, 2, 17});
    const double by_geocentre = criterion_value(criterion_named("mabims-2021"), evening).value();
    EXPECT_NEAR(by_geocentre, 6.95 - 6.4, 0.011);
    const double by_place = criterion_value(criterion_named("mabims-2021-topocentric"), evening).value();
    EXPECT_NEAR(by_place, 6.04 - 6.4, 0.011);
}

// Cold Bay, 17 February 2026, sunset 04:01:55 UT on the 18th: elongation 8.17, altitude 5.69 geocentric and
// 4.74 topocentric.
TEST_F(CatalogueOfSkies, SunsetAfterMidnightUtDoesNotMeetTheCongressOf2016) {
    const CrescentEvening evening = american_evening(-162.71, 55.21, {2026, 2, 17});
    EXPECT_NEAR(criterion_value(criterion_named("turkey-1978"), evening).value(), 4.74 - 5, 0.011);
    EXPECT_NEAR(evening.at_sun_event.geocentric.moon_altitude, 5.69, 0.011);
    EXPECT_NEAR(criterion_value(criterion_named("istanbul-2016-geocentric"), evening).value(), -4.032, 0.002);
}

TEST_F(CatalogueOfSkies, DanjonsLimitIsASetting) {
    const CrescentEvening evening = evening_of(sky_named("Sabang")); // 9.45 at Best Time
    CriteriaSettings settings;
    settings.danjon_limit = 7.5;
    EXPECT_NEAR(criterion_value(criterion_named("danjon"), evening, settings).value(), 9.45 - 7.5, 0.011);
}

TEST_F(CatalogueOfSkies, TheUsersLimitsCountWhereTheyAreSet) {
    const CrescentEvening evening = evening_of(sky_named("Auckland")); // lag 21.2, age 19.22, altitude 3.30
    const CataloguedCriterion& user = criterion_named("user");
    CriteriaSettings settings;
    settings.user = {.lag = 20, .altitude = std::nullopt, .elongation = std::nullopt, .age = std::nullopt};
    EXPECT_NEAR(criterion_value(user, evening, settings).value(), 1.2, 0.06);
    settings.user.age = 24;
    EXPECT_NEAR(criterion_value(user, evening, settings).value(), 19.22 - 24, 0.011);
    settings.user = {
        .lag = std::nullopt, .altitude = std::nullopt, .elongation = std::nullopt, .age = std::nullopt};
    EXPECT_FALSE(criterion_value(user, evening, settings));
}

} // namespace
} // namespace halvane
