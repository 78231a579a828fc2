// SPDX-License-Identifier: MIT
#include "qibla/qibladay.h"

#include "base/failure.h"
#include "calendar/modctim.h"
#include "calendar/moddeltat.h"
#include "calendar/modjul.h"
#include "ephemeris/coordinates.h"
#include "ephemeris/series.h"
#include "ephemeris/sun.h"
#include "qibla/direction.h"
#include "routines/namedengine.h"
#include "routines/seriesloader.h"
#include "stored/programfolder.h"
#include "tests/qibla/independentsun.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <optional>
#include <random>
#include <vector>

namespace halvane {
namespace {

double midnight_of(int year, int month, int day) {
    double jd = 0;
    modjul(year, month, day, 0, jd);
    return jd;
}

class QiblahDayTest : public ::testing::Test {
protected:
    QiblahDayTest() {
        set_program_folder(HALVANE_DATA);
        load_term();
        load_mterm();
    }

    /// The search of a place at sea level, its clock to the second.
    static QiblahSearch search_at(double longitude, double latitude, double zone, bool shadow, double jd) {
        QiblahSearch search;
        search.observer = observer_at(longitude, latitude, 0);
        search.zone = zone;
        search.azimuth = target_azimuth(qiblah_direction(longitude, latitude), shadow);
        moddeltat(jd, search.delta_t);
        search.altitude_limit = qiblah_altitude_limit(0, 1010, 10);
        search.precision = 0;
        return search;
    }

    static Horizontal own_sun(const Observer& observer, double jd) {
        const SunPlace sun = sun_medium(named_ephemeris(), named_instant(jd), observer);
        Horizontal horizontal;
        altazm_of(named_ephemeris(), named_instant(jd), observer, sun.right_ascension, sun.declination,
                  horizontal.altitude, horizontal.azimuth);
        return horizontal;
    }
};

/// Times of random places, days and settings, with the moment each of them stands for.
struct SeededMoment {
    QiblahSearch search;
    double jd; ///< Universal Time
    bool below_horizon;
};

class SeededQiblahTimes : public QiblahDayTest {
protected:
    /// A time at the clock's midnight may be that of the day before or after, when the Sun stood elsewhere.
    static bool may_be_moved(double hours) { return hours < 0.05 || hours > 23.95; }

    static std::vector<SeededMoment> moments() {
        std::mt19937 generator(1446);
        std::uniform_real_distribution<double> longitude(-180, 180);
        std::uniform_real_distribution<double> latitude(-75, 75);
        std::uniform_int_distribution<int> day(2415021, 2488069); // 1900 to 2099
        std::vector<SeededMoment> all;
        for (int i = 0; i < 2000; ++i) {
            const double lon = longitude(generator);
            const double lat = latitude(generator);
            const double zone = std::nearbyint(lon / 15);
            const double jd = day(generator) + 0.5;
            const QiblahSearch search = search_at(lon, lat, zone, i % 2 == 1, jd);
            const double base = jd - zone / 24;
            for (const QiblahRoot root : {QiblahRoot::first, QiblahRoot::second})
                if (const auto moment = find_qiblah_moment(named_ephemeris(), search, base, root).moment;
                    moment && !may_be_moved(moment->hours))
                    all.push_back({search, base + moment->hours / 24, moment->below_horizon});
        }
        return all;
    }
};

/// Tolerance of an azimuth: 0.05 deg. Closer than 3 deg to the zenith or the nadir, where a second of time is
/// worth more than that, it is the distance in the sky that 0.05 deg are there.
double azimuth_tolerance(double altitude) {
    constexpr double tolerance = 0.05;
    constexpr double degree = 3.141592653589793 / 180;
    return tolerance * std::max(1.0, std::cos(87 * degree) / std::cos(altitude * degree));
}

TEST_F(SeededQiblahTimes, HaveTheSunAtTheDirectionByAnIndependentEphemeris) {
    if (!has_independent_sun)
        GTEST_SKIP() << "NOT CHECKED: the Swiss Ephemeris library is not installed";
    const std::vector<SeededMoment> all = moments();
    ASSERT_GT(all.size(), 1800U);
    for (const SeededMoment& moment : all) {
        const Observer& observer = moment.search.observer;
        const Horizontal sun = independent_sun(moment.jd, observer.longitude, observer.latitude);
        EXPECT_LT(std::fabs(azimuth_difference(sun.azimuth, moment.search.azimuth)),
                  azimuth_tolerance(sun.altitude))
            << "longitude " << observer.longitude << " latitude " << observer.latitude << " altitude "
            << sun.altitude << " jd " << moment.jd;
    }
}

TEST_F(SeededQiblahTimes, HaveTheirNotesByAnIndependentEphemeris) {
    if (!has_independent_sun)
        GTEST_SKIP() << "NOT CHECKED: the Swiss Ephemeris library is not installed";
    constexpr double tolerance = 0.01; // of the altitude [deg]
    for (const SeededMoment& moment : moments()) {
        const Observer& observer = moment.search.observer;
        const double altitude =
            independent_sun(moment.jd + moment.search.delta_t, observer.longitude, observer.latitude)
                .altitude;
        if (std::fabs(altitude - moment.search.altitude_limit) > tolerance) {
            EXPECT_EQ(altitude < moment.search.altitude_limit, moment.below_horizon);
        }
    }
}

TEST_F(SeededQiblahTimes, HaveTheSunAtTheDirectionByTheHorizontalPlace) {
    for (const SeededMoment& moment : moments()) {
        const Horizontal sun = own_sun(moment.search.observer, moment.jd);
        EXPECT_LT(std::fabs(azimuth_difference(sun.azimuth, moment.search.azimuth)),
                  azimuth_tolerance(sun.altitude));
    }
}

TEST_F(QiblahDayTest, APlaceWhoseAzimuthTheSunNeverReachesHasTwoAbsentTimes) {
    const double jd = midnight_of(2024, 6, 20);
    const QiblahDay day = qiblah_day(named_ephemeris(), search_at(98.675, 3.585139, 7, false, jd), jd, 0);
    EXPECT_FALSE(day.first);
    EXPECT_FALSE(day.second);
}

TEST_F(QiblahDayTest, AMomentOfTheNightIsBelowTheHorizon) {
    const double jd = midnight_of(2024, 6, 20);
    const QiblahDay never = qiblah_day(named_ephemeris(), search_at(98.675, 3.585139, 7, false, jd), jd, 0);
    EXPECT_FALSE(never.first);
    EXPECT_FALSE(never.second);
    const QiblahDay once =
        qiblah_day(named_ephemeris(), search_at(-0.125, 51.5, 0, true, jd - 150), jd - 150, 0);
    ASSERT_TRUE(once.first);
    EXPECT_TRUE(once.first->below_horizon);
    EXPECT_FALSE(once.second);
}

TEST_F(QiblahDayTest, OnlyTheSecondRootShowsInTheFirstColumn) {
    const double jd = midnight_of(2025, 3, 28);
    const QiblahSearch search = search_at(151.2, -33.866667, 10, false, jd);
    const double base = jd - 10.0 / 24;
    ASSERT_FALSE(find_qiblah_moment(named_ephemeris(), search, base, QiblahRoot::first).moment);
    const auto second = find_qiblah_moment(named_ephemeris(), search, base, QiblahRoot::second).moment;
    ASSERT_TRUE(second);
    const QiblahDay day = qiblah_day(named_ephemeris(), search, jd, 0);
    EXPECT_EQ(modctim(0, day.first->hours).substr(0, 6), "17:25:");
    EXPECT_EQ(std::floor(second->hours * 60), 17 * 60 + 25);
    EXPECT_FALSE(day.second);
}

TEST_F(QiblahDayTest, TwoTimesOfADayStandInTheOrderOfTheirClocks) {
    int swapped = 0;
    for (int offset = 0; offset < 365; ++offset) {
        const double jd = midnight_of(2024, 1, 1) + offset;
        for (const bool shadow : {false, true}) {
            const QiblahSearch search = search_at(130.841667, -12.4625, 9.5, shadow, jd);
            const QiblahDay day = qiblah_day(named_ephemeris(), search, jd, 0);
            if (!day.second)
                continue;
            EXPECT_LT(modctim(0, day.first->hours), modctim(0, day.second->hours));
            const double base = jd - 9.5 / 24;
            swapped += find_qiblah_moment(named_ephemeris(), search, base, QiblahRoot::first).moment->hours >
                       find_qiblah_moment(named_ephemeris(), search, base, QiblahRoot::second).moment->hours;
        }
    }
    EXPECT_GT(swapped, 10);
}

TEST_F(QiblahDayTest, SummerHoursMoveTheClockByOneHour) {
    const double jd = midnight_of(2024, 7, 1);
    const QiblahSearch search = search_at(35.9333, 31.95, 2, false, jd);
    EXPECT_EQ(modctim(0, qiblah_day(named_ephemeris(), search, jd, 0).first->hours).substr(0, 3), "11:");
    EXPECT_EQ(modctim(0, qiblah_day(named_ephemeris(), search, jd, 1).first->hours).substr(0, 3), "12:");
}

TEST_F(QiblahDayTest, ATimeBeforeTheClocksMidnightIsMovedByOneDay) {
    const double jd = midnight_of(2024, 6, 21);
    // A clock so far from the Sun's that the hour angle at its noon is half a turn from the root.
    QiblahSearch search = search_at(35.9333, 31.95, 0, false, jd);
    for (int step = 0; step < 2400; ++step) {
        search.zone = -12 + step * 0.01;
        const auto moment =
            find_qiblah_moment(named_ephemeris(), search, jd - search.zone / 24, QiblahRoot::first).moment;
        ASSERT_TRUE(moment);
        EXPECT_GE(moment->hours, 0);
        EXPECT_LE(moment->hours, 24);
    }
}

TEST_F(QiblahDayTest, HasAShadowOfTheNight) {
    const double jd = midnight_of(2024, 1, 1);
    const QiblahSearch search = search_at(-0.125, 51.5, 0, true, jd);
    EXPECT_EQ(modctim(1, qiblah_day(named_ephemeris(), search, jd, 0).first->hours), "21:29");
}

TEST_F(QiblahDayTest, AnAltitudeBelowTheLimitIsNotedAndOneAtItIsNot) {
    const double jd = midnight_of(2024, 4, 10);
    QiblahSearch search = search_at(35.9333, 31.95, 2, false, jd);
    const auto moment =
        find_qiblah_moment(named_ephemeris(), search, jd - 2.0 / 24, QiblahRoot::first).moment;
    ASSERT_TRUE(moment);
    const double altitude =
        own_sun(search.observer, jd - 2.0 / 24 + search.delta_t + moment->hours / 24).altitude;
    search.altitude_limit = altitude - 1e-9;
    EXPECT_FALSE(qiblah_day(named_ephemeris(), search, jd, 0).first->below_horizon);
    search.altitude_limit = altitude + 1e-9;
    EXPECT_TRUE(qiblah_day(named_ephemeris(), search, jd, 0).first->below_horizon);
}

TEST(SettledHours, EndAfterFiftyOneRoundsWithTheLastValueThatDidNotSettle) {
    int rounds = 0;
    const auto swinging = [&rounds](double) -> std::optional<double> {
        ++rounds;
        return rounds % 2 == 1 ? 18.0 + rounds : 6.0;
    };
    EXPECT_EQ(settled_hours(swinging), 18.0 + 51);
    EXPECT_EQ(rounds, 51);
}

TEST(SettledHours, StartAtNoonAndEndWithTheFirstChangeOfASecond) {
    std::vector<double> seen;
    const auto halving = [&seen](double t) -> std::optional<double> {
        seen.push_back(t);
        return 13 + (t - 13) / 2;
    };
    const std::optional<double> found = settled_hours(halving);
    ASSERT_TRUE(found);
    EXPECT_EQ(seen.front(), 12);
    EXPECT_LE(std::fabs(*found - seen.back()), 0.000277778);
    EXPECT_GT(std::fabs(seen.back() - seen[seen.size() - 2]), 0.000277778);
}

TEST(SettledHours, AreNoneWhenARoundHasNone) {
    int rounds = 0;
    const auto losing = [&rounds](double t) {
        return ++rounds == 3 ? std::nullopt : std::optional<double>(t + 1);
    };
    EXPECT_EQ(settled_hours(losing), std::nullopt);
    EXPECT_EQ(rounds, 3);
}

TEST(SettledHours, WithoutAFiniteValueAreARunTimeFailure) {
    EXPECT_THROW(settled_hours([](double) { return std::optional<double>(std::nan("")); }), RunTimeFailure);
}

TEST(QiblahAltitudeLimit, IsTheUpperLimbOnTheHorizonInStandardAir) {
    EXPECT_NEAR(qiblah_altitude_limit(0, 1010, 10), -(0.5692857 + 0.2665639 - 0.0024), 1e-12);
}

TEST(QiblahAltitudeLimit, HasTheDipOfTheHeightAndItsNegativeBelowTheSea) {
    const double flat = qiblah_altitude_limit(0, 1010, 10);
    EXPECT_NEAR(qiblah_altitude_limit(900, 1010, 10) - flat, -30 * (0.02917 + 0.0061667), 1e-12);
    EXPECT_NEAR(qiblah_altitude_limit(-400, 1010, 10) - flat, 20 * (0.02917 + 0.0061667), 1e-12);
}

TEST(QiblahAltitudeLimit, TakesPressureAndTemperature) {
    const double refraction = 0.5692857 * (0.28 * 650) / (5 + 273.0);
    EXPECT_NEAR(qiblah_altitude_limit(0, 650, 5), -(refraction + 0.2665639 - 0.0024), 1e-12);
}

TEST(QiblahAltitudeLimit, WithoutAFiniteValueIsARunTimeFailure) {
    EXPECT_THROW(qiblah_altitude_limit(0, 1010, -273), RunTimeFailure);
}

TEST(TargetAzimuth, OfTheShadowIsOppositeInOneTurn) {
    EXPECT_EQ(target_azimuth(160, false), 160);
    EXPECT_EQ(target_azimuth(160, true), 340);
    EXPECT_NEAR(target_azimuth(200, true), 20, 1e-12);
    EXPECT_EQ(target_azimuth(180, true), 0);
    EXPECT_EQ(target_azimuth(360, true), 180);
}

TEST(Range, FoldsIntoOneTurn) {
    EXPECT_EQ(range(-90), 270);
    EXPECT_EQ(range(450), 90);
    EXPECT_EQ(range(360), 0);
    EXPECT_EQ(range(-360), 0);
}

TEST(Rangeh, TakesOneStepOnly) {
    EXPECT_EQ(rangeh(190), -170);
    EXPECT_EQ(rangeh(-190), 170);
    EXPECT_EQ(rangeh(180), 180);
    EXPECT_EQ(rangeh(-180), -180);
    EXPECT_EQ(rangeh(560), 200);
    EXPECT_EQ(rangeh(-560), -200);
}

} // namespace
} // namespace halvane
