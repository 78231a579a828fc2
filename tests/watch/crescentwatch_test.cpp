// SPDX-License-Identifier: MIT
#include "watch/crescentwatch.h"

#include "calendar/civildate.h"
#include "tests/crescent/nineskies.h"
#include "tests/watch/watches.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>

namespace halvane {
namespace {

constexpr double degree = std::numbers::pi / 180;
constexpr double second = 1.0 / 86400;
constexpr double degree_tolerance = 0.01;
constexpr double width_tolerance = 0.001; // [arcmin]

WatchSettings settings_of(const KnownSky& known) {
    GivenPlace place;
    place.latitude = known.latitude;
    place.longitude = known.longitude;
    place.zone = std::round(known.longitude / 15);
    return {given_place(place), known.kind, julian_day(known.date)};
}

class WatchOfSky : public WatchTest, public testing::WithParamInterface<KnownSky> {};

void expect_places(const CrescentQuantities& places, const KnownQuantities& known) {
    EXPECT_NEAR(places.elongation, known.elongation_topocentric, degree_tolerance);
    EXPECT_NEAR(places.relative_altitude(), known.arcv_topocentric, degree_tolerance);
    EXPECT_NEAR(places.moon_altitude, known.altitude_topocentric, degree_tolerance);
    EXPECT_NEAR(places.width_minutes(), known.width_topocentric, width_tolerance);
}

TEST_P(WatchOfSky, BeginsAndEndsWithTheEventsOfTheSwissEphemeris) {
    const KnownSky& known = GetParam();
    const CrescentWatch watch = watch_at(settings_of(known));
    const bool is_new = known.kind == CrescentKind::new_crescent;
    const double first = is_new ? known.sun_event() : known.moon_event();
    const double last = is_new ? known.moon_event() : known.sun_event();
    EXPECT_NEAR(watch.rows.front().universal, first, 3 * second);
    EXPECT_NEAR(watch.rows.back().universal, last, 3 * second);
    EXPECT_NEAR(watch.lag().value(), known.lag, 0.1);
    EXPECT_NEAR(watch.best_time.value(), known.best_time(), 3 * second);
    expect_places(is_new ? watch.rows.front().places : watch.rows.back().places, known.at_sun_event);
    expect_places(watch.pointing.value().places, known.at_best_time);
}

TEST_P(WatchOfSky, HasARowEveryFiveMinutes) {
    constexpr double five_minutes = 300 * second;
    const std::vector<WatchRow> rows = watch_at(settings_of(GetParam())).rows;
    ASSERT_GE(rows.size(), 2U);
    for (std::size_t i = 1; i + 1 < rows.size(); ++i)
        EXPECT_NEAR(rows[i].universal - rows[i - 1].universal, five_minutes, 0.01 * second) << i;
    const double rest = rows.back().universal - rows[rows.size() - 2].universal;
    EXPECT_GT(rest, 0);
    EXPECT_LE(rest, five_minutes + 0.01 * second);
}

/// The tangent of the parallactic angle and its triangle: Meeus, Astronomical Algorithms, chapter "The
/// Parallactic Angle" [deg]
double parallactic_angle(double hour_angle, double declination, double latitude) {
    const double h = hour_angle * degree;
    const double d = declination * degree;
    return std::atan2(std::sin(h), std::tan(latitude * degree) * std::cos(d) - std::sin(d) * std::cos(h)) /
           degree;
}

TEST_P(WatchOfSky, CrescentLiesAsTheTrianglesOfTheSkySay) {
    const CrescentWatch watch = watch_at(settings_of(GetParam()));
    const WatchPointing& pointing = watch.pointing.value();
    const double q =
        parallactic_angle(pointing.hour_angle, pointing.of_date.declination, GetParam().latitude);
    EXPECT_NEAR(std::remainder(pointing.parallactic_angle - q, 360), 0, 0.001);
    EXPECT_NEAR(std::remainder(pointing.bright_limb - q - pointing.zenith_angle, 360), 0, 0.001);
    EXPECT_NEAR(pointing.from_sun.separation, pointing.places.elongation, 0.0001);
    // The same separation by the horizon's coordinates, law of cosines.
    const CrescentQuantities& places = pointing.places;
    const double cosine = std::sin(places.moon_altitude * degree) * std::sin(places.sun_altitude * degree) +
                          std::cos(places.moon_altitude * degree) * std::cos(places.sun_altitude * degree) *
                              std::cos(pointing.azimuth_offset * degree);
    EXPECT_NEAR(std::acos(cosine) / degree, places.elongation, 0.001);
    EXPECT_NEAR(pointing.altitude_offset, places.moon_altitude - places.sun_altitude, 1e-9);
}

TEST_P(WatchOfSky, AltitudeAndAzimuthFollowFromTheHourAngle) {
    const CrescentWatch watch = watch_at(settings_of(GetParam()));
    const WatchPointing& pointing = watch.pointing.value();
    const double h = pointing.hour_angle * degree;
    const double d = pointing.of_date.declination * degree;
    const double latitude = GetParam().latitude * degree;
    const double sine = std::sin(latitude) * std::sin(d) + std::cos(latitude) * std::cos(d) * std::cos(h);
    EXPECT_NEAR(std::asin(sine) / degree, pointing.places.moon_altitude, 0.0001);
    const double azimuth =
        std::atan2(std::sin(h), std::cos(h) * std::sin(latitude) - std::tan(d) * std::cos(latitude)) /
            degree +
        180;
    EXPECT_NEAR(std::remainder(azimuth - pointing.places.moon_azimuth, 360), 0, 0.0001);
}

TEST_P(WatchOfSky, CriteriaAreThoseOfItsKind) {
    const CrescentWatch watch = watch_at(settings_of(GetParam()));
    const auto judges = [&watch](const CataloguedCriterion& criterion) {
        return watch.is_new() || criterion.of_mornings;
    };
    const auto all = catalogued_criteria();
    EXPECT_EQ(static_cast<std::ptrdiff_t>(watch.verdicts.size()),
              std::count_if(all.begin(), all.end(), judges));
    for (const WatchVerdict& verdict : watch.verdicts)
        if (std::string(verdict.criterion->key) == "yallop-1997") {
            EXPECT_NEAR(verdict.value.value(), GetParam().q, 0.002);
            EXPECT_EQ(verdict.criterion->bands()[verdict.visibility].text.english[0], GetParam().q_class);
        }
}

INSTANTIATE_TEST_SUITE_P(OfTheWorld, WatchOfSky, testing::ValuesIn(nine_skies),
                         [](const auto& tried) { return std::string(tried.param.name); });

class Watch : public WatchTest {};

TEST(WatchSkyBrightness, EndsAtSixTwelveAndEighteenDegrees) {
    EXPECT_EQ(sky_brightness(10), SkyBrightness::daylight);
    EXPECT_EQ(sky_brightness(-0.8), SkyBrightness::daylight);
    EXPECT_EQ(sky_brightness(-0.84), SkyBrightness::civil_twilight);
    EXPECT_EQ(sky_brightness(-5.99), SkyBrightness::civil_twilight);
    EXPECT_EQ(sky_brightness(-6.01), SkyBrightness::nautical_twilight);
    EXPECT_EQ(sky_brightness(-11.99), SkyBrightness::nautical_twilight);
    EXPECT_EQ(sky_brightness(-12.01), SkyBrightness::astronomical_twilight);
    EXPECT_EQ(sky_brightness(-17.99), SkyBrightness::astronomical_twilight);
    EXPECT_EQ(sky_brightness(-18.01), SkyBrightness::night);
}

TEST_F(Watch, TellsNoRefractionFarBelowTheHorizon) {
    const CrescentWatch watch = watch_at("Amman", {2026, 2, 18});
    for (const WatchRow& row : watch.rows) {
        EXPECT_EQ(row.moon_apparent.has_value(), row.places.moon_altitude >= lowest_refracted);
        EXPECT_EQ(row.sun_apparent.has_value(), row.places.sun_altitude >= lowest_refracted);
    }
    // At the Sun's event its upper limb is on the sea's horizon: semidiameter 16.2' in February.
    EXPECT_NEAR(watch.rows.front().sun_apparent.value(), -16.2 / 60, 0.06);
}

TEST_F(Watch, OfAMoonThatSetsFirstIsTheSunsEventAlone) {
    const CrescentWatch watch = watch_at("Amman", {2026, 2, 16});
    EXPECT_LT(watch.lag().value(), 0);
    EXPECT_LT(watch.age(watch.sun_event), 0);
    EXPECT_FALSE(watch.moon_is_up());
    EXPECT_FALSE(watch.best_time);
    EXPECT_FALSE(watch.pointing);
    ASSERT_EQ(watch.rows.size(), 1U);
    EXPECT_EQ(watch.rows[0].universal, watch.sun_event);
    EXPECT_LT(watch.rows[0].places.moon_altitude, 0);
    EXPECT_EQ(watch.verdicts.size(), catalogued_criteria().size());
}

TEST_F(Watch, OfAMoonThatStaysUpLastsAsLongAsTheNight) {
    const CrescentWatch watch = watch_at("Tromso", {2026, 4, 18});
    EXPECT_EQ(watch.moon_event.missing, NoEvent::up);
    EXPECT_TRUE(watch.moon_is_up());
    EXPECT_FALSE(watch.lag());
    EXPECT_FALSE(watch.best_time);
    ASSERT_TRUE(watch.pointing);
    EXPECT_EQ(watch.pointing->universal, watch.sun_event);
    EXPECT_GT(watch.rows.size(), 12U);
    for (const WatchRow& row : watch.rows) {
        EXPECT_GT(row.places.moon_altitude, 0);
        EXPECT_LT(row.places.sun_altitude, -0.8);
    }
}

TEST_F(Watch, OfAMoonThatStaysDownHasNoPointing) {
    const CrescentWatch watch = watch_at("Tromso", {2026, 11, 9});
    EXPECT_EQ(watch.moon_event.missing, NoEvent::down);
    EXPECT_FALSE(watch.moon_is_up());
    EXPECT_FALSE(watch.pointing);
    EXPECT_EQ(watch.rows.size(), 1U);
}

TEST_F(Watch, NeedsASunset) {
    EXPECT_EQ(no_watch_at("Tromso", {2026, 6, 16}).sun, NoEvent::up);
    EXPECT_EQ(no_watch_at("Tromso", {2026, 12, 10}).sun, NoEvent::down);
    EXPECT_FALSE(no_watch_at("Tromso", {2026, 6, 16}).far_conjunction);
}

TEST_F(Watch, NeedsACrescent) {
    // The conjunctions are on 17 February, 12:01, and on 19 March 2026, 1:23 UT (Astronomical Almanac); the
    // middle between them is on 4 March, 6:42.
    EXPECT_EQ(civil_date(no_watch_at("Amman", {2026, 3, 3}).far_conjunction.value()),
              (DateNumbers{2026, 2, 17}));
    EXPECT_EQ(civil_date(no_watch_at("Amman", {2026, 3, 4}).far_conjunction.value()),
              (DateNumbers{2026, 3, 19}));
    EXPECT_TRUE(std::holds_alternative<CrescentWatch>(
        crescent_watch(loaded_theory(), settings_at("Amman", {2026, 2, 23}))));
}

TEST_F(Watch, FindsTheNearestConjunctionInFarYears) {
    // The Moon leaves the Sun by 10 to 16 degrees a day, and passes it within 6: a conjunction that is not
    // where the two are side by side shows.
    for (const double year : {-4000.0, -1000.0, 622.0, 5000.0, 9999.0}) {
        int watches = 0;
        for (int day = 0; day < 30; ++day) {
            WatchSettings settings = settings_at("Makkah", {year, 6, 1});
            settings.day += day;
            const auto answer = crescent_watch(loaded_theory(), settings);
            if (const auto* watch = std::get_if<CrescentWatch>(&answer)) {
                ++watches;
                const double elongation = watch->rows.front().places.elongation;
                const double age = std::fabs(watch->age(watch->sun_event)) / 24;
                EXPECT_LT(elongation, 16 * age + 7) << year << " " << day;
                EXPECT_GT(elongation, 10 * age - 4) << year << " " << day;
            }
        }
        EXPECT_GE(watches, 13) << year; // a week on both sides
    }
}

TEST_F(Watch, IsThatOfTheDateOnThePlacesClock) {
    // Apia counts thirteen hours ahead of Universal Time at 172 degrees west: its date is not that of its
    // longitude.
    GivenPlace place;
    place.latitude = -13.83;
    place.longitude = -171.77;
    place.zone_name = "Pacific/Apia";
    for (const CrescentKind kind : {CrescentKind::new_crescent, CrescentKind::old_crescent}) {
        const double day = day_of(2026, 2, kind == CrescentKind::new_crescent ? 19 : 16);
        const CrescentWatch watch = watch_at({given_place(place), kind, day});
        const double local = watch.sun_event + 13.0 / 24;
        EXPECT_EQ(std::floor(local - 0.5) + 0.5, day);
        EXPECT_NEAR(std::fmod(local - day, 1), kind == CrescentKind::new_crescent ? 0.79 : 0.27, 0.03);
    }
}

TEST_F(Watch, TakesTheStoredZoneAndSummerDates) {
    TimetablePlace place = stored_place();
    place.zone.reset();
    place.location.zone = 2;
    place.preferences.summer_time = "0";
    EXPECT_EQ(clock_offset(place, day_of(2026, 7, 1)), 7200);
    place.zone = TimeZone("Europe/London");
    EXPECT_EQ(clock_offset(place, day_of(2026, 7, 1)), 3600);
    EXPECT_EQ(clock_offset(place, day_of(2026, 1, 1)), 0);
}

TEST(WatchPointingHorns, AreTiltedAsTheLimbIs) {
    WatchPointing pointing;
    pointing.zenith_angle = 180; // straight down: a boat
    EXPECT_EQ(pointing.horns_tilt(), 0);
    EXPECT_EQ(pointing.higher_horn(), 0);
    pointing.zenith_angle = 225; // to the lower right: the right horn is at 315, the left one at 135
    EXPECT_EQ(pointing.horns_tilt(), 45);
    EXPECT_EQ(pointing.higher_horn(), 1);
    pointing.zenith_angle = 150; // to the lower left
    EXPECT_EQ(pointing.horns_tilt(), 30);
    EXPECT_EQ(pointing.higher_horn(), -1);
    pointing.zenith_angle = 10; // upwards: the left horn is at 100, the right one at 280
    EXPECT_EQ(pointing.horns_tilt(), 10);
    EXPECT_EQ(pointing.higher_horn(), 1);
}

} // namespace
} // namespace halvane
