// SPDX-License-Identifier: MIT
#include "calendar/moddeltat.h"
#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/moon.h"
#include "ephemeris/sun.h"
#include "routines/modcoordinates.h"
#include "routines/modearthorientation.h"
#include "routines/modmoon.h"
#include "routines/modsun.h"
#include "routines/namedengine.h"
#include "routines/tdtinput.h"
#include "stored/loc.h"
#include "tools/measureaccuracy/measurement.h"
#include "tools/measuring/random.h"
#include "tools/measuring/swissephemeris.h"

#include <array>
#include <cmath>

namespace halvane {
namespace {

using swiss::Body;
using swiss::Place;

constexpr int instants = 2000;
constexpr double arc_seconds = 3600;

/// Where topocentric places and horizontal coordinates are measured.
constexpr double site_longitude = 35.9;
constexpr double site_latitude = 31.95;
constexpr double site_height = 900;

void write_site() {
    Location site;
    site.name = "Site";
    site.longitude_degrees = site_longitude;
    site.latitude_degrees = site_latitude;
    site.elevation = site_height;
    site.zone = 2;
    write_loc(site);
}

/// Error of an angle counted along a small circle that stands `from_equator` degrees off, on the great circle
/// in arc seconds.
double error_along(double found, double wanted, double from_equator) {
    return angle_error(found, wanted) * std::cos(from_equator * radians_per_degree) * arc_seconds;
}

struct Bounds {
    double longitude; ///< also of right ascension and declination   [arc seconds]
    double latitude;  ///<                                           [arc seconds]
    double distance;  ///< 0: not given by the routine
};

/// The errors of a routine's places of a body.
class PlaceErrors {
public:
    PlaceErrors(const std::string& routine, const std::string& body, const Bounds& bounds,
                const std::string& distance_unit)
        : longitude_(routine, body + " longitude", "″", bounds.longitude),
          latitude_(routine, body + " latitude", "″", bounds.latitude),
          right_ascension_(routine, body + " right ascension", "″", bounds.longitude),
          declination_(routine, body + " declination", "″", bounds.longitude),
          distance_(routine, body + " distance", distance_unit, bounds.distance),
          unit_(distance_unit == "km" ? 1 : 1e-6), measures_distance_(bounds.distance > 0) {}

    void add(const std::string& where, const Place& found, const Place& wanted) {
        longitude_.add(error_along(found.longitude, wanted.longitude, wanted.latitude), where);
        latitude_.add((found.latitude - wanted.latitude) * arc_seconds, where);
        right_ascension_.add(error_along(found.right_ascension, wanted.right_ascension, wanted.declination),
                             where);
        declination_.add((found.declination - wanted.declination) * arc_seconds, where);
        distance_.add((found.distance - wanted.distance) / unit_, where);
    }

    void hand_over(std::vector<Measurement>& all) const {
        for (const Errors* errors : {&longitude_, &latitude_, &right_ascension_, &declination_})
            all.push_back(errors->result());
        if (measures_distance_)
            all.push_back(distance_.result());
    }

private:
    Errors longitude_, latitude_, right_ascension_, declination_, distance_;
    double unit_;
    bool measures_distance_;
};

using SunRoutine = decltype(&modcorsh);

SunPlace sun_by(SunRoutine routine, double jd) {
    SunPlace sun;
    routine(pi, jd, sun.right_ascension, sun.declination, sun.topocentric_right_ascension,
            sun.topocentric_declination, sun.longitude, sun.latitude, sun.topocentric_longitude,
            sun.topocentric_latitude, sun.radius, sun.equation_of_time);
    return sun;
}

MoonPlace moon_by_modcormm(double jd) {
    MoonPlace moon;
    modcormm(pi, jd, moon.right_ascension, moon.declination, moon.topocentric_right_ascension,
             moon.topocentric_declination, moon.longitude, moon.latitude, moon.topocentric_longitude,
             moon.topocentric_latitude, moon.parallax, moon.semidiameter, moon.topocentric_semidiameter,
             moon.distance);
    return moon;
}

MoonPlace moon_by_modcorml(double jd) {
    MoonPlace moon;
    modcorml(pi, jd, moon.right_ascension, moon.declination, moon.topocentric_right_ascension,
             moon.topocentric_declination, moon.longitude, moon.latitude, moon.topocentric_longitude,
             moon.topocentric_latitude, moon.parallax, moon.semidiameter, moon.topocentric_semidiameter);
    return moon;
}

Place geocentric_of(const SunPlace& sun) {
    return {sun.longitude, sun.latitude, sun.right_ascension, sun.declination, sun.radius};
}

Place topocentric_of(const SunPlace& sun) {
    return {sun.topocentric_longitude, sun.topocentric_latitude, sun.topocentric_right_ascension,
            sun.topocentric_declination, sun.radius};
}

Place geocentric_of(const MoonPlace& moon) {
    return {moon.longitude, moon.latitude, moon.right_ascension, moon.declination, moon.distance};
}

Place topocentric_of(const MoonPlace& moon) {
    return {moon.topocentric_longitude, moon.topocentric_latitude, moon.topocentric_right_ascension,
            moon.topocentric_declination, moon.distance};
}

/// Minutes by which the true Sun is ahead of the mean Sun.
double equation_of_time(double tt, const Place& sun) {
    const double ut = swiss::universal_time(tt);
    const double true_hour_angle = swiss::sidereal_time(ut) - sun.right_ascension;
    const double mean_hour_angle = (ut - std::floor(ut)) * 360;
    return angle_error(true_hour_angle, mean_hour_angle) * 4;
}

class SunMeasurements {
public:
    void add(double tt, const std::string& where) {
        const Place wanted = swiss::geocentric(Body::sun, tt);
        const double wanted_equation = equation_of_time(tt, wanted);
        for (Routine& routine : routines_) {
            const SunPlace found = sun_by(routine.routine, tt);
            routine.places.add(where, geocentric_of(found), wanted);
            routine.equation_of_time.add((found.equation_of_time - wanted_equation) * 60, where);
        }
        SunPlace fast =
            sun_fast(named_ephemeris(), named_instant(swiss::universal_time(tt)), stored_observer());
        fast_.add(where, geocentric_of(fast), wanted);
        topocentric_.add(where, topocentric_of(sun_by(modcorsh, tt)),
                         swiss::topocentric(Body::sun, tt, site_longitude, site_latitude, site_height));
    }

    void hand_over(std::vector<Measurement>& all) const {
        for (const Routine& routine : routines_) {
            routine.places.hand_over(all);
            all.push_back(routine.equation_of_time.result());
        }
        fast_.hand_over(all);
        topocentric_.hand_over(all);
    }

private:
    struct Routine {
        SunRoutine routine;
        PlaceErrors places;
        Errors equation_of_time;
    };
    static Routine measured(SunRoutine routine, const char* name, const Bounds& bounds,
                            double equation_bound) {
        return {routine, PlaceErrors(name, "Sun,", bounds, "1e-6 AU"),
                Errors(name, "equation of time", "s", equation_bound)};
    }
    std::array<Routine, 3> routines_{measured(modcorsh, "modcorsh", {0.35, 0.1, 0.1}, 0.75),
                                     measured(modcorsm, "modcorsm", {0.6, 0.35, 2.5}, 0.75),
                                     measured(modcorsl, "modcorsl", {40, 1.3, 100}, 3)};
    PlaceErrors fast_{"modcorsvl", "Sun,", {40, 1.3, 100}, "1e-6 AU"};
    PlaceErrors topocentric_{"modcorsh", "Sun, topocentric", {0.7, 0.4, 0}, "1e-6 AU"};
};

class MoonMeasurements {
public:
    void add(double tt, const std::string& where) {
        const Place wanted = swiss::geocentric(Body::moon, tt);
        const MoonPlace found = moon_by_modcormm(tt);
        medium_.add(where, geocentric_of(found), wanted);
        topocentric_.add(where, topocentric_of(found),
                         swiss::topocentric(Body::moon, tt, site_longitude, site_latitude, site_height));
        low_.add(where, geocentric_of(moon_by_modcorml(tt)), wanted);
        fast_.add(where, geocentric_of(moon_fast(named_ephemeris(), named_instant(tt), stored_observer())),
                  wanted);
    }

    void hand_over(std::vector<Measurement>& all) const {
        for (const PlaceErrors* errors : {&medium_, &topocentric_, &low_, &fast_})
            errors->hand_over(all);
    }

private:
    PlaceErrors medium_{"modcormm", "Moon,", {2.2, 0.35, 0.5}, "km"};
    PlaceErrors topocentric_{"modcormm", "Moon, topocentric", {2.5, 1, 0}, "km"};
    PlaceErrors low_{"modcorml", "Moon,", {12, 5, 0}, "km"};
    PlaceErrors fast_{"modcormvl", "Moon,", {13, 5, 15}, "km"};
};

class OrientationMeasurements {
public:
    void add(double tt, const std::string& where) {
        const swiss::Orientation wanted = swiss::orientation(tt);
        double nutation_longitude = 0;
        double nutation_obliquity = 0;
        double obliquity = 0;
        modobliquity(tt, nutation_longitude, nutation_obliquity, obliquity);
        nutation_longitude_.add((nutation_longitude - wanted.nutation_longitude) * arc_seconds, where);
        nutation_obliquity_.add((nutation_obliquity - wanted.nutation_obliquity) * arc_seconds, where);
        obliquity_.add((obliquity - wanted.true_obliquity) * arc_seconds, where);
        modobliquitylow(tt, nutation_obliquity, nutation_longitude, obliquity);
        low_nutation_.add((nutation_longitude - wanted.nutation_longitude) * arc_seconds, where);
        low_obliquity_.add((obliquity - wanted.true_obliquity) * arc_seconds, where);

        const double ut = swiss::universal_time(tt);
        const double wanted_sidereal = swiss::sidereal_time(ut);
        double sidereal = 0;
        modsiderial(tt, sidereal);
        sidereal_.add(angle_error(sidereal, wanted_sidereal) * arc_seconds, where);
        modsideriallow(ut, sidereal);
        low_sidereal_.add(angle_error(sidereal, wanted_sidereal) * arc_seconds, where);
    }

    void hand_over(std::vector<Measurement>& all) const {
        for (const Errors* errors : {&nutation_longitude_, &nutation_obliquity_, &obliquity_, &sidereal_,
                                     &low_nutation_, &low_obliquity_, &low_sidereal_})
            all.push_back(errors->result());
    }

private:
    Errors nutation_longitude_{"modobliquity", "nutation in longitude", "″", 0.03};
    Errors nutation_obliquity_{"modobliquity", "nutation in obliquity", "″", 0.015};
    Errors obliquity_{"modobliquity", "true obliquity", "″", 0.1};
    Errors sidereal_{"modsiderial", "apparent sidereal time", "″", 0.35};
    Errors low_nutation_{"modobliquitylow", "nutation in longitude", "″", 0.5};
    Errors low_obliquity_{"modobliquitylow", "true obliquity", "″", 0.2};
    Errors low_sidereal_{"modsideriallow", "apparent sidereal time", "″", 0.7};
};

/// Altitude and azimuth, with the places of modcorsh and modcormm.
class HorizontalMeasurements {
public:
    void add(double tt, const std::string& where) {
        const double ut = swiss::universal_time(tt);
        const SunPlace sun = sun_by(modcorsh, tt);
        add(tt, where, sun.right_ascension, sun.declination, horizontal(Body::sun, tt, ut), sun_altitude_,
            sun_azimuth_);
        const MoonPlace moon = moon_by_modcormm(tt);
        add(tt, where, moon.right_ascension, moon.declination, horizontal(Body::moon, tt, ut), moon_altitude_,
            moon_azimuth_);
    }

    void hand_over(std::vector<Measurement>& all) const {
        for (const Errors* errors : {&sun_altitude_, &sun_azimuth_, &moon_altitude_, &moon_azimuth_})
            all.push_back(errors->result());
    }

private:
    static swiss::Horizontal horizontal(Body body, double tt, double ut) {
        return swiss::horizontal(swiss::geocentric(body, tt), ut, site_longitude, site_latitude);
    }
    static void add(double tt, const std::string& where, double right_ascension, double declination,
                    const swiss::Horizontal& wanted, Errors& altitude_errors, Errors& azimuth_errors) {
        double altitude = 0;
        double azimuth = 0;
        modaltazm(tt, right_ascension, declination, altitude, azimuth);
        altitude_errors.add((altitude - wanted.altitude) * arc_seconds, where);
        azimuth_errors.add(error_along(azimuth, wanted.azimuth, wanted.altitude), where);
    }
    Errors sun_altitude_{"modaltazm", "Sun, altitude", "″", 0.35};
    Errors sun_azimuth_{"modaltazm", "Sun, azimuth", "″", 0.35};
    Errors moon_altitude_{"modaltazm", "Moon, altitude", "″", 2.5};
    Errors moon_azimuth_{"modaltazm", "Moon, azimuth", "″", 2.5};
};

} // namespace

std::vector<Measurement> measure_places() {
    const TdtSpan dynamical_time(1);
    write_site();
    OrientationMeasurements orientation;
    SunMeasurements sun;
    MoonMeasurements moon;
    HorizontalMeasurements horizontal;
    Random random(1900);
    for (int i = 0; i < instants; ++i) {
        const double tt = random.between(first_instant, last_instant);
        const std::string where = "JD " + std::to_string(tt);
        orientation.add(tt, where);
        sun.add(tt, where);
        moon.add(tt, where);
        horizontal.add(tt, where);
    }
    std::vector<Measurement> all;
    sun.hand_over(all);
    moon.hand_over(all);
    orientation.hand_over(all);
    horizontal.hand_over(all);
    return all;
}

} // namespace halvane
