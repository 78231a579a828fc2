// SPDX-License-Identifier: MIT
#include "crescent/circumstances.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/series.h"
#include "events/lowriseset.h"
#include "events/phase.h"
#include "routines/namedengine.h"
#include "routines/seriesloader.h"
#include "tests/golden/goldenreport.h"
#include "tools/measuring/swissephemeris.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <gtest/gtest.h>
#include <numbers>
#include <random>

#include <swephexp.h>

namespace halvane {
namespace {

using swiss::Body;

constexpr double seconds_per_day = 86400;
constexpr double radian = std::numbers::pi / 180;

/// What errors amount to; prints a row of the accuracy table.
class Errors {
public:
    Errors(const char* routine, const char* quantity, double bound, const char* unit)
        : routine_(routine), quantity_(quantity), unit_(unit), bound_(bound) {}
    void add(double error) {
        ++count_;
        squares_ += error * error;
        largest_ = std::max(largest_, std::fabs(error));
    }
    void expect_kept(int at_least) const {
        std::printf("| %s | %s | %d | %.3g | %.3g | %.3g | %s |\n", routine_, quantity_, count_,
                    std::sqrt(squares_ / count_), largest_, bound_, unit_);
        EXPECT_GE(count_, at_least);
        EXPECT_LE(largest_, bound_) << quantity_;
    }

private:
    const char *routine_, *quantity_, *unit_;
    double bound_;
    int count_ = 0;
    double squares_ = 0;
    double largest_ = 0;
};

double folded(double degrees) {
    return std::remainder(degrees, 360);
}

class CrescentAccuracy : public ::testing::Test {
protected:
    void SetUp() override {
        if (const std::string why = swiss::unavailable(); !why.empty())
            GTEST_SKIP() << why;
        load_series();
    }
    TemporaryProgramFolder folder;
};

/// How far the Swiss Ephemeris' own instant is from `tt`, by its elongation there and its speed       [s]
template <class Elongation>
double seconds_off(double tt, double angle, Elongation elongation) {
    constexpr double hour = 1.0 / 24;
    const double speed = folded(elongation(tt + hour) - elongation(tt - hour)) / (2 * hour);
    return folded(elongation(tt) - angle) / speed * seconds_per_day;
}

double geocentric_elongation(double tt) {
    return swiss::geocentric(Body::moon, tt).longitude - swiss::geocentric(Body::sun, tt).longitude;
}

TEST_F(CrescentAccuracy, PhasesOfTwoCenturies) {
    Errors errors("`refined_phase`", "phases, 1900 to 2100", 20, "s");
    const Phase phases[]{Phase::new_moon, Phase::first_quarter, Phase::full_moon, Phase::last_quarter};
    const double first = std::floor((1900.0 - 2000) * 12.3685);
    const double last = std::ceil((2101.0 - 2000) * 12.3685);
    for (double k = first; k < last; ++k)
        for (int quarter = 0; quarter < 4; ++quarter) {
            const double tt = refined_phase(named_ephemeris(), phases[quarter],
                                            phase_estimate(phases[quarter], k + quarter / 4.0));
            errors.add(seconds_off(tt, 90 * quarter, geocentric_elongation));
        }
    errors.expect_kept(9900);
}

/// One evening or morning of a random place and lunation.
struct Evening {
    Location place;
    CrescentSettings settings;
};

Evening random_evening(std::mt19937& engine) {
    const auto between = [&engine](double low, double high) {
        return low + (high - low) * static_cast<double>(engine()) / 4294967296.0;
    };
    Evening evening;
    const double latitude = std::floor(between(-60, 61));
    const double longitude = std::floor(between(-180, 180));
    evening.place.longitude_degrees = std::fabs(longitude);
    evening.place.latitude_degrees = std::fabs(latitude);
    evening.place.east = longitude >= 0;
    evening.place.north = latitude >= 0;
    evening.place.elevation = std::floor(between(0, 2500));
    evening.place.zone = zone_of_longitude(longitude);
    evening.settings.day = std::to_string(static_cast<int>(between(1, 29)));
    evening.settings.month = std::to_string(static_cast<int>(between(1, 13)));
    evening.settings.year = std::to_string(static_cast<int>(between(1950, 2051)));
    evening.settings.new_crescent = between(0, 1) < 0.5;
    evening.settings.geocentric = between(0, 1) < 0.5;
    return evening;
}

/// The quantities as the other ephemeris gives them for the same instant.
struct Reference {
    double elongation, illuminated_fraction, moon_altitude, sun_altitude;
};

Reference reference_of(const Circumstances& c, const Location& here) {
    const double tt = swiss::dynamical_time(c.universal);
    const double longitude = longitude_of(here);
    const double latitude = latitude_of(here);
    const auto place = [&](Body body) {
        return c.choice.geocentric ? swiss::geocentric(body, tt)
                                   : swiss::topocentric(body, tt, longitude, latitude, here.elevation);
    };
    const swiss::Place moon = place(Body::moon);
    const swiss::Place sun = place(Body::sun);
    // By the haversine, which is exact for small elongations.
    const double half_declination = std::sin((moon.declination - sun.declination) / 2 * radian);
    const double half_ascension = std::sin((moon.right_ascension - sun.right_ascension) / 2 * radian);
    const double h = half_declination * half_declination + std::cos(moon.declination * radian) *
                                                               std::cos(sun.declination * radian) *
                                                               half_ascension * half_ascension;
    double attributes[20];
    swe_pheno(tt, SE_MOON, SEFLG_SWIEPH | (c.choice.geocentric ? 0 : SEFLG_TOPOCTR), attributes, nullptr);
    return {2 * std::asin(std::sqrt(h)) / radian, attributes[1],
            swiss::horizontal(moon, c.universal, longitude, latitude).altitude,
            swiss::horizontal(sun, c.universal, longitude, latitude).altitude};
}

TEST_F(CrescentAccuracy, CircumstancesOf200EveningsAndMornings) {
    Errors conjunction("`find_conjunction`", "conjunction, geocentric", 15, "s");
    Errors local_conjunction("`find_conjunction`", "conjunction, topocentric", 15, "s");
    Errors elongation("`crescent_circumstances`", "elongation", 5, "″");
    Errors fraction("`crescent_circumstances`", "illuminated fraction", 0.0001, "");
    Errors moon_altitude("`crescent_circumstances`", "Moon, altitude", 10, "″");
    Errors sun_altitude("`crescent_circumstances`", "Sun, altitude", 10, "″");
    std::mt19937 engine(1950);
    DayEvents events;
    for (int evenings = 0; evenings < 200;) {
        const Evening evening = random_evening(engine);
        const CrescentRecords run{evening.settings, read_pref(), evening.place};
        const Conjunction found = find_conjunction(named_ephemeris(), run);
        const auto c = crescent_circumstances(named_ephemeris(), run, found, events);
        if (!c)
            continue;
        ++evenings;
        const double longitude = longitude_of(evening.place);
        const double latitude = latitude_of(evening.place);
        if (evening.settings.geocentric)
            conjunction.add(seconds_off(found.dynamical, 0, geocentric_elongation));
        else
            local_conjunction.add(seconds_off(found.dynamical, 0, [&](double tt) {
                const auto of = [&](Body body) {
                    return swiss::topocentric(body, tt, longitude, latitude, evening.place.elevation)
                        .longitude;
                };
                return of(Body::moon) - of(Body::sun);
            }));
        const Reference reference = reference_of(*c, evening.place);
        constexpr double arc_seconds = 3600;
        elongation.add((c->quantities.elongation - reference.elongation) * arc_seconds);
        fraction.add(c->quantities.illuminated_fraction - reference.illuminated_fraction);
        moon_altitude.add((c->quantities.moon_altitude - reference.moon_altitude) * arc_seconds);
        sun_altitude.add((c->quantities.sun_altitude - reference.sun_altitude) * arc_seconds);
    }
    conjunction.expect_kept(60);
    local_conjunction.expect_kept(60);
    elongation.expect_kept(200);
    fraction.expect_kept(200);
    moon_altitude.expect_kept(200);
    sun_altitude.expect_kept(200);
}

} // namespace
} // namespace halvane
