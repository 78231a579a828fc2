// SPDX-License-Identifier: MIT
#include "calendar/moddeltat.h"
#include "calendar/shownclock.h"
#include "events/riseset.h"
#include "prayer/moonday.h"
#include "prayer/prayerday.h"
#include "routines/modriseset.h"
#include "routines/namedengine.h"
#include "routines/tdtinput.h"
#include "stored/loc.h"
#include "stored/pref.h"
#include "tools/measureaccuracy/measurement.h"
#include "tools/measuring/random.h"
#include "tools/measuring/swissephemeris.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <numbers>

namespace halvane {
namespace {

using swiss::Body;
using swiss::Place;

constexpr int sites = 60;
constexpr int days_per_site = 20;
constexpr double highest_latitude = 60;
constexpr double radian = std::numbers::pi / 180;
constexpr double seconds_per_hour = 3600;

/// A local day at a site, with the settings that the thresholds depend on.
struct Day {
    Location location;
    Preferences preferences;
    double jd;  ///< 0 h of the civil date
    double jd0; ///< the local midnight, UT1

    double longitude() const { return longitude_of(location); }
    double latitude() const { return latitude_of(location); }
    double instant(double hours) const { return jd0 + hours / 24; }
    std::string text() const {
        return "JD " + std::to_string(jd) + ", latitude " + std::to_string(latitude());
    }
};

Place place(Body body, double ut) {
    return swiss::geocentric(body, swiss::dynamical_time(ut));
}

double altitude(const Day& day, Body body, double hours) {
    const double ut = day.instant(hours);
    return swiss::horizontal(place(body, ut), ut, day.longitude(), day.latitude()).altitude;
}

/// Refraction at the horizon and, when the settings count it, the dip                          [deg]
double horizon_depression(const Day& day) {
    const Location& at = day.location;
    const double refraction = at.pressure == 1010 && at.temperature == 10
                                  ? 0.5692857
                                  : 0.5692857 * 0.28 * at.pressure / (at.temperature + 273);
    const double dip = day.preferences.elevation_setting == "1" ? 0.0353367 * std::sqrt(at.elevation) : 0;
    return refraction + dip;
}

double sun_threshold(const Day& day) {
    return -(horizon_depression(day) + 0.2665639 / place(Body::sun, day.instant(12)).distance - 0.0024);
}

/// The Moon's threshold follows her parallax and topocentric semidiameter at each moment.
double moon_threshold(const Day& day, double hours) {
    constexpr double earth_radius_km = 6378.137;
    constexpr double moon_over_earth_radius = 0.2725076;
    const double ut = day.instant(hours);
    const double tt = swiss::dynamical_time(ut);
    const double distance = swiss::geocentric(Body::moon, tt).distance;
    const double seen_distance =
        swiss::topocentric(Body::moon, tt, day.longitude(), day.latitude(), day.location.elevation).distance;
    const double parallax = std::asin(earth_radius_km / distance) / radian;
    const double semidiameter = std::asin(moon_over_earth_radius * earth_radius_km / seen_distance) / radian;
    return -(horizon_depression(day) + semidiameter - parallax);
}

/// Altitude at which a shadow is its length at noon longer by `lengths` times the stick.
double shadow_threshold(const Day& day, double lengths) {
    const auto refraction_factor = (day.location.pressure / 1010) * (283 / (day.location.temperature + 273));
    const double noon = 90 - std::fabs(day.latitude() - place(Body::sun, day.instant(12)).declination);
    const double apparent_noon =
        noon + refraction_factor * 1.02 / std::tan((noon + 10.3 / (noon + 5.11)) * radian) / 60;
    const double apparent = std::atan(1 / (1 / std::tan(apparent_noon * radian) + lengths)) / radian;
    return apparent - refraction_factor / std::tan((apparent + 7.31 / (apparent + 4.4)) * radian) / 60;
}

/// The event is where the condition crosses zero upwards.
using Condition = std::function<double(double hours)>;

/// The events of a day and of one minute beyond its ends                                      [h]
std::vector<double> crossings(const Condition& condition) {
    constexpr double step = 1.0 / 6;
    constexpr double beyond = 1.0 / 60;
    std::vector<double> found;
    double low = -beyond;
    double low_value = condition(low);
    while (low < 24 + beyond) {
        const double high = std::min(low + step, 24 + beyond);
        const double high_value = condition(high);
        if (low_value < 0 && high_value >= 0) {
            double a = low;
            double b = high;
            while (b - a > 1e-6)
                (condition((a + b) / 2) < 0 ? a : b) = (a + b) / 2;
            found.push_back(b);
        }
        low = high;
        low_value = high_value;
    }
    return found;
}

/// Compares the engine's events of one kind with the crossings.
class EventErrors {
public:
    EventErrors(const char* routine, const char* quantity, double bound)
        : errors_(routine, quantity, "s", bound), bound_hours_(bound / seconds_per_hour) {}

    void add(const Day& day, const TaggedTime& found, const Condition& condition) {
        const std::vector<double> wanted = crossings(condition);
        const double* hours = hours_of(found);
        if (hours == nullptr) {
            if (std::any_of(wanted.begin(), wanted.end(),
                            [this](double time) { return time > bound_hours_ && time < 24 - bound_hours_; }))
                errors_.add_one_sided(day.text());
            return;
        }
        const auto nearest = std::min_element(wanted.begin(), wanted.end(), [hours](double a, double b) {
            return std::fabs(a - *hours) < std::fabs(b - *hours);
        });
        if (nearest == wanted.end())
            errors_.add_one_sided(day.text());
        else
            errors_.add((*hours - *nearest) * seconds_per_hour, day.text());
    }

    Measurement result() const { return errors_.result(); }

private:
    Errors errors_;
    double bound_hours_;
};

/// A time as the reports show it, to the second.
TaggedTime to_second(const TaggedTime& time) {
    const double* hours = hours_of(time);
    return hours != nullptr ? TaggedTime(shown_clock(0, *hours).seconds / seconds_per_hour) : time;
}

double west_of_meridian(const Day& day, Body body, double hours) {
    const double ut = day.instant(hours);
    return angle_error(swiss::sidereal_time(ut) + day.longitude(), place(body, ut).right_ascension);
}

class EventMeasurements {
public:
    void add(const Day& day) {
        add_sun(day);
        add_twilights(day);
        add_shadow(day);
        add_moon(day);
    }

    void hand_over(std::vector<Measurement>& all) const {
        for (const EventErrors* errors :
             {&sunrise_, &sunset_, &noon_, &dawn_, &dusk_, &shadow_, &moonrise_, &moonset_, &moon_transit_})
            all.push_back(errors->result());
    }

private:
    static Condition above(const Day& day, Body body, double threshold) {
        return [&day, body, threshold](double hours) { return altitude(day, body, hours) - threshold; };
    }
    static Condition below(const Day& day, Body body, double threshold) {
        return [&day, body, threshold](double hours) { return threshold - altitude(day, body, hours); };
    }

    void add_sun(const Day& day) {
        TaggedTime rise;
        TaggedTime set;
        modriseset("Sun", day.jd0, rise, set);
        const double threshold = sun_threshold(day);
        sunrise_.add(day, rise, above(day, Body::sun, threshold));
        sunset_.add(day, set, below(day, Body::sun, threshold));
        const PrayerDay prayers =
            prayer_day(named_ephemeris(), read_prayer_settings(DayMode::report), day.jd, 0);
        noon_.add(day, to_second(prayers.times.dhohur),
                  [&day](double hours) { return west_of_meridian(day, Body::sun, hours); });
    }

    void add_twilights(const Day& day) {
        TaggedTime dawn;
        TaggedTime dusk;
        modriseset("Fajer", day.jd0, dawn, dusk);
        const double threshold = -day.preferences.fajer_angle;
        dawn_.add(day, dawn, above(day, Body::sun, threshold));
        dusk_.add(day, dusk, below(day, Body::sun, threshold));
    }

    void add_shadow(const Day& day) {
        TaggedTime ignored;
        TaggedTime shadow;
        modriseset("Asr", day.jd0, ignored, shadow);
        shadow_.add(day, shadow, below(day, Body::sun, shadow_threshold(day, 1)));
    }

    void add_moon(const Day& day) {
        TaggedTime rise;
        TaggedTime set;
        modriseset("Moon", day.jd0, rise, set);
        const auto height = [&day](double hours) {
            return altitude(day, Body::moon, hours) - moon_threshold(day, hours);
        };
        moonrise_.add(day, rise, height);
        moonset_.add(day, set, [&height](double hours) { return -height(hours); });
        const MoonTimes moon = moon_day(named_ephemeris(), day.preferences, day.location, day.jd, 0);
        const Condition west = [&day](double hours) { return west_of_meridian(day, Body::moon, hours); };
        // A transit below the horizon, or of the next day, is folded or left out by the report.
        if (const TaggedTime transit = to_second(moon.transit); hours_of(transit) != nullptr)
            moon_transit_.add(day, transit, west);
    }

    EventErrors sunrise_{"modriseset", "sunrise", 5};
    EventErrors sunset_{"modriseset", "sunset", 5};
    EventErrors noon_{"prayer_day", "Sun's transit", 5};
    EventErrors dawn_{"modriseset", "dawn at -18°", 5};
    EventErrors dusk_{"modriseset", "dusk at -18°", 5};
    EventErrors shadow_{"modriseset", "shadow time", 5};
    EventErrors moonrise_{"modriseset", "moonrise", 20};
    EventErrors moonset_{"modriseset", "moonset", 20};
    EventErrors moon_transit_{"moon_day", "Moon's transit", 20};
};

Location random_site(Random& random) {
    Location site;
    site.name = "Site";
    const double longitude = random.between(-180, 180);
    const double latitude = random.between(-highest_latitude, highest_latitude);
    site.longitude_degrees = std::fabs(longitude);
    site.latitude_degrees = std::fabs(latitude);
    site.east = longitude >= 0;
    site.north = latitude >= 0;
    site.west = !site.east;
    site.south = !site.north;
    site.zone = std::nearbyint(longitude / 15);
    site.elevation = std::floor(random.between(0, 2000));
    site.pressure = std::floor(random.between(900, 1030));
    site.temperature = std::floor(random.between(-10, 35));
    return site;
}

} // namespace

std::vector<Measurement> measure_events() {
    const TdtSpan universal_time(0);
    Random random(2100);
    EventMeasurements events;
    for (int site = 0; site < sites; ++site) {
        Day day;
        day.location = random_site(random);
        day.preferences.clock_precision = "0";
        day.preferences.elevation_setting = site % 2 == 0 ? "1" : "0";
        write_loc(day.location);
        write_pref(day.preferences);
        for (int i = 0; i < days_per_site; ++i) {
            day.jd = std::floor(random.between(first_instant, last_instant)) + 0.5;
            day.jd0 = day.jd - day.location.zone / 24;
            events.add(day);
        }
    }
    std::vector<Measurement> all;
    events.hand_over(all);
    return all;
}

} // namespace halvane
