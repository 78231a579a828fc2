// SPDX-License-Identifier: MIT
#include "events/riseset.h"

#include "base/failure.h"
#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/moon.h"
#include "ephemeris/sun.h"
#include "events/correction.h"
#include "events/parabola.h"

#include <cmath>

namespace halvane {

double horizon_dip(double height) {
    const double root = std::sqrt(std::fabs(height));
    const double dip = 0.02917 * root + 0.0061667 * root;
    return height < 0 ? -dip : dip;
}

double horizon_refraction(double pressure, double temperature) {
    if (pressure == 1010 && temperature == 10)
        return standard_horizon_refraction;
    return standard_horizon_refraction * (0.28 * pressure / (temperature + 273));
}

namespace {

struct Search {
    Ephemeris& ephemeris;
    Target target;
    const Instant& start;
    const Observer& observer;
    const Horizon& horizon;
    MoonPlace moon_at_one; ///< the Moon one hour after the day's start, when she is the body

    bool is_moon() const { return target == Target::moon; }
    bool is_twilight() const { return target == Target::fajer || target == Target::isha; }
    Body body() const { return is_moon() ? Body::moon : Body::sun; }
    double refraction() const { return horizon_refraction(horizon.pressure, horizon.temperature); }
    SunPlace sun_at_noon() const { return geocentric_sun_medium(ephemeris, start.after(0.5)); }
};

/// The altitude looked for, and the one with the dip of the horizon whatever the settings say          [deg]
struct Threshold {
    double altitude = 0;
    double with_dip = 0;
};

Threshold threshold_of(const Search& search, double depression) {
    const double with_dip = -(horizon_dip(search.horizon.height) + depression);
    return {search.horizon.height_counts ? with_dip : -depression, with_dip};
}

Threshold sun_threshold(const Search& search) {
    return threshold_of(search, search.refraction() + 0.2665639 / search.sun_at_noon().radius - 0.0024);
}

Threshold moon_threshold(const Search& search, const MoonPlace& moon) {
    return threshold_of(search, search.refraction() + moon.topocentric_semidiameter - moon.parallax);
}

double twilight_threshold(const Search& search) {
    return -(search.target == Target::fajer ? search.horizon.fajer_angle : search.horizon.isha_angle);
}

/// Altitude at which a shadow has grown by its rule's length since noon.
/// Source Meeus, Astronomical Algorithms, chapter "Atmospheric Refraction" (both refractions).
double asr_threshold(const Search& search) {
    const double declination = search.sun_at_noon().declination * radians_per_degree;
    const double latitude = search.observer.latitude * radians_per_degree;
    const double x = std::sin(latitude) * std::sin(declination) + std::cos(declination) * std::cos(latitude);
    const double noon = std::atan(x / std::sqrt(1 - x * x));
    const double noon_degrees = noon * degrees_per_radian;
    const double air = (search.horizon.pressure / 1010) * (283 / (search.horizon.temperature + 273));
    const double lift =
        1.02 / std::tan((noon_degrees + 10.3 / (noon_degrees + 5.11)) * radians_per_degree) / 60 * air;
    const double apparent_noon = noon + lift * radians_per_degree;

    const double shadow = 1 / std::tan(apparent_noon) + search.horizon.shadow_lengths;
    const double u = std::atan(shadow) + pi / 2;
    const double apparent = 90 - std::fabs((pi / 2 - u) * degrees_per_radian);
    const double refraction = 1 / std::tan((apparent + 7.31 / (apparent + 4.4)) * radians_per_degree) * air;
    return apparent - refraction / 60;
}

Threshold threshold(const Search& search) {
    switch (search.target) {
    case Target::sun:
        return sun_threshold(search);
    case Target::moon:
        return moon_threshold(search, search.moon_at_one);
    case Target::fajer:
    case Target::isha:
        return {twilight_threshold(search), 0};
    case Target::aser:
        break;
    }
    return {asr_threshold(search), 0};
}

struct Found {
    bool rise = false;
    bool set = false;
    bool above = false; ///< above the threshold at the day's start
    double rise_hours = 0;
    double set_hours = 0;
};

/// Sine of the altitude of a body at an hour of the day.
class Altitudes {
public:
    explicit Altitudes(const Search& search) : search_(search) {}

    double sine(int hour) const {
        if (!search_.is_moon())
            return search_.ephemeris.sine_of_low_sun(search_.observer, search_.start, hour);
        return sine_of(geocentric_moon_low(search_.ephemeris, search_.start.after_hours(hour)), hour);
    }
    MoonPlace moon(int hour) const {
        return hour == 1 ? search_.moon_at_one
                         : moon_low(search_.ephemeris, search_.start.after_hours(hour), search_.observer);
    }
    double sine_of(const MoonPlace& moon, int hour) const {
        return std::sin(altitude_of(search_.ephemeris, search_.start.after_hours(hour), search_.observer,
                                    moon.right_ascension, moon.declination) *
                        radians_per_degree);
    }

private:
    const Search& search_;
};

void take_roots(int hour, double ym, double y0, double yp, Found& found) {
    const Parabola parabola = parabola_through(ym, y0, yp);
    if (parabola.roots_within == 1) {
        const bool rising = ym < 0;
        (rising ? found.rise : found.set) = true;
        (rising ? found.rise_hours : found.set_hours) = hour + parabola.root1;
    } else if (parabola.roots_within == 2) {
        found.rise = found.set = true;
        found.rise_hours = hour + (parabola.extremum_y < 0 ? parabola.root2 : parabola.root1);
        found.set_hours = hour + (parabola.extremum_y < 0 ? parabola.root1 : parabola.root2);
    }
}

/// Looks through the day in steps of two hours. `h0` follows the Moon's parallax and semidiameter.
Found scan(const Search& search, double& h0) {
    const auto sine_of_h0 = [&h0] { return std::sin(h0 * radians_per_degree); };
    const Altitudes altitudes(search);
    Found found;
    double target = sine_of_h0();
    double ym = altitudes.sine(0) - target;
    found.above = ym > 0;
    for (int hour = 1; hour < 25 && !(found.rise && found.set); hour += 2) {
        double y0 = 0;
        if (search.is_moon()) {
            const MoonPlace moon = altitudes.moon(hour);
            h0 = moon_threshold(search, moon).altitude;
            target = sine_of_h0();
            y0 = altitudes.sine_of(moon, hour) - target;
        } else {
            y0 = altitudes.sine(hour) - target;
        }
        const double yp = altitudes.sine(hour + 1) - target;
        take_roots(hour, ym, y0, yp, found);
        ym = yp;
    }
    return found;
}

/// Corrects an event until a correction is below half a second.
double refine(const Search& search, double h0, double event) {
    constexpr double half_a_second = 0.00013889;
    constexpr int most_rounds = 51;
    double t = event;
    for (int rounds = 0; rounds < most_rounds; ++rounds) {
        t = corrected_hours(search.ephemeris, search.body(), search.start, search.observer, event, h0);
        if (std::fabs(event - t) <= half_a_second || has_left_the_theories(t))
            break;
        event = t;
    }
    return t;
}

} // namespace

RiseSet find_rise_set(Ephemeris& ephemeris, Target target, const Instant& start, const Observer& observer,
                      const Horizon& horizon) {
    Search search{ephemeris, target, start, observer, horizon, {}};
    if (search.is_moon())
        search.moon_at_one = moon_low(ephemeris, start.after_hours(1), observer);
    const Threshold wanted = threshold(search);
    double h0 = require_finite(wanted.altitude, {"a rise or set altitude", "ارتفاع الشروق أو الغروب"});
    Found found = scan(search, h0);
    if (found.rise) {
        found.rise_hours = refine(search, h0, found.rise_hours);
        found.rise = within_day(found.rise_hours);
    }
    if (found.set) {
        found.set_hours = refine(search, h0, found.set_hours);
        found.set = within_day(found.set_hours);
    }
    if (!found.rise && !found.set) {
        const NoEvent none = search.is_twilight() ? (found.above ? NoEvent::bright : NoEvent::dark)
                                                  : (found.above ? NoEvent::up : NoEvent::down);
        return {none, none, wanted.with_dip};
    }
    return {found.rise ? TaggedTime(found.rise_hours) : TaggedTime(NoEvent::none),
            found.set ? TaggedTime(found.set_hours) : TaggedTime(NoEvent::none), wanted.with_dip};
}

} // namespace halvane
