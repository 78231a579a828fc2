// SPDX-License-Identifier: MIT
#include "crescent/crescentevening.h"

#include "calendar/civildate.h"
#include "crescent/circumstances.h"
#include "crescent/conjunction.h"
#include "crescent/localsky.h"
#include "ephemeris/modgeneral.h"
#include "events/bracketedroot.h"
#include "events/phase.h"

#include <array>
#include <cmath>
#include <cstddef>

namespace halvane {
namespace {

constexpr double degrees_per_turn = 360;
constexpr double hours_per_day = 24;
constexpr double minutes_per_day = 1440;
constexpr double half_a_day = 0.5;
constexpr double event_tolerance = 2e-9; ///< what a Julian day in a double can hold             [d]

/// Looks for the setting or the rising of a body over one place. `Places` gives the SkyPlaces of a Julian
/// day in UT1.
template <class Places>
class EventSearch {
public:
    EventSearch(Places& places, const Observer& observer, Body body, bool sets)
        : places_(places), observer_(observer), body_(body), sets_(sets) {}

    /// The event within half a day of `centre` that is nearest to it; Julian day, UT1                [d]
    std::optional<double> nearest_to(double centre) {
        if (const std::optional<double> event = by_hour_angle(centre))
            return event;
        return by_hours(centre);
    }

private:
    /// Degrees a day by which the hour angle grows.
    double turning() const { return body_ == Body::sun ? 360.0 : 347.8; }

    LocalSky sky(double universal) { return {places_(universal), observer_}; }
    double height(double universal) { return sky(universal).height_over_event(body_); }

    /// From the hour angle of the event, by secants. Nothing where the body meets the horizon at a small
    /// angle: there may be no event then, or two.
    std::optional<double> by_hour_angle(double centre) {
        constexpr double steep = 0.2; // sine of the hour angle
        constexpr int most_steps = 8;
        const LocalSky start = sky(centre);
        const double cosine = cosine_of_event(start);
        if (!(1 - cosine * cosine > steep * steep))
            return std::nullopt;
        const double at_event = std::acos(cosine) * degrees_per_radian * (sets_ ? 1 : -1);
        double before = centre;
        double height_before = start.height_over_event(body_);
        double event = centre + rev180(at_event - start.hour_angle(body_)) / turning();
        double at = height(event);
        for (int step = 0; step < most_steps; ++step) {
            // The altitude bends too much for a secant from the first guess: its slope is that of the event.
            const double slope = step == 0 ? slope_at(event) : (at - height_before) / (event - before);
            before = event;
            height_before = at;
            event -= at / slope;
            if (std::fabs(event - before) <= event_tolerance)
                return std::fabs(event - centre) < half_a_day ? std::optional(event) : std::nullopt;
            at = height(event);
        }
        return std::nullopt;
    }

    /// Cosine of the hour angle at which a body of this declination is on the horizon.
    double cosine_of_event(const LocalSky& sky) const {
        constexpr double of_sun = -50.0 / 60;
        constexpr double of_moon = 0.1; // parallax less semidiameter and refraction, about
        const double altitude = (body_ == Body::sun ? of_sun : of_moon) * radians_per_degree;
        return (std::sin(altitude) - observer_.sine_latitude * sky.sine_declination(body_)) /
               (observer_.cosine_latitude * sky.cosine_declination(body_));
    }

    /// Change of the altitude by the turning of the Earth                                      [deg/d]
    double slope_at(double universal) {
        const LocalSky now = sky(universal);
        return -turning() * observer_.cosine_latitude * now.cosine_declination(body_) *
               std::sin(now.hour_angle(body_) * radians_per_degree);
    }

    /// From the altitude of every hour, the crests and troughs between the hours included.
    std::optional<double> by_hours(double centre) {
        constexpr std::size_t hours = 27; // one beyond either end of the day
        std::array<double, hours> heights{};
        const auto time_of = [centre](std::size_t hour) {
            return centre - half_a_day + (static_cast<double>(hour) - 1) / hours_per_day;
        };
        for (std::size_t hour = 0; hour < hours; ++hour)
            heights[hour] = height(time_of(hour));
        std::optional<double> nearest;
        const auto take = [&](double a, double at_a, double b, double at_b) {
            if (sets_ ? !(at_a >= 0 && at_b < 0) : !(at_a < 0 && at_b >= 0))
                return;
            const double event =
                bracketed_root([this](double t) { return height(t); }, a, at_a, b, at_b, event_tolerance);
            if (std::fabs(event - centre) < half_a_day &&
                (!nearest || std::fabs(event - centre) < std::fabs(*nearest - centre)))
                nearest = event;
        };
        for (std::size_t hour = 1; hour < hours; ++hour) {
            take(time_of(hour - 1), heights[hour - 1], time_of(hour), heights[hour]);
            if (hour + 1 < hours && is_turn(heights[hour - 1], heights[hour], heights[hour + 1])) {
                const double top = heights[hour] < 0 ? 1 : -1;
                const double turn = turning_point(time_of(hour - 1), time_of(hour + 1), top);
                const double at_turn = height(turn);
                if ((at_turn < 0) != (heights[hour] < 0)) {
                    take(time_of(hour - 1), heights[hour - 1], turn, at_turn);
                    take(turn, at_turn, time_of(hour + 1), heights[hour + 1]);
                }
            }
        }
        return nearest;
    }

    /// Whether three heights on one side of the horizon have a turn towards it in their middle.
    static bool is_turn(double before, double now, double after) {
        if (before < 0 && now < 0 && after < 0)
            return now >= before && now >= after;
        return before >= 0 && now >= 0 && after >= 0 && now <= before && now <= after;
    }

    /// Where the height is greatest (`top` 1) or least (-1), by golden sections.
    double turning_point(double a, double b, double top) {
        constexpr double golden = 0.61803398874989485;
        constexpr double tolerance = 1e-6;
        double left = b - golden * (b - a);
        double right = a + golden * (b - a);
        double at_left = top * height(left);
        double at_right = top * height(right);
        while (b - a > tolerance) {
            if (at_left > at_right) {
                b = right;
                right = left;
                at_right = at_left;
                left = b - golden * (b - a);
                at_left = top * height(left);
            } else {
                a = left;
                left = right;
                at_left = at_right;
                right = a + golden * (b - a);
                at_right = top * height(right);
            }
        }
        return (a + b) / 2;
    }

    Places& places_;
    const Observer& observer_;
    Body body_;
    bool sets_;
};

double best_time_of(const CrescentEvening& evening) {
    const bool is_new = evening.kind == CrescentKind::new_crescent;
    const double lag = evening.lag() / minutes_per_day;
    if (lag <= 0)
        return is_new ? evening.sun_event : evening.moon_event;
    return best_time(is_new, evening.sun_event, lag);
}

CrescentSky sky_of(const SkyPlaces& places, const Observer& observer, double universal) {
    const LocalSky sky(places, observer);
    return {universal, sky.geocentric(), sky.topocentric(), sky.parallax()};
}

template <class Places>
std::optional<CrescentEvening> evening_of(Places& places, const Observer& observer, CrescentKind kind,
                                          double day, double conjunction) {
    const bool sets = kind == CrescentKind::new_crescent;
    const double noon = day + half_a_day - observer.longitude / degrees_per_turn;
    const auto sun_event = EventSearch(places, observer, Body::sun, sets).nearest_to(noon);
    if (!sun_event)
        return std::nullopt;
    const auto moon_event = EventSearch(places, observer, Body::moon, sets).nearest_to(*sun_event);
    if (!moon_event)
        return std::nullopt;
    CrescentEvening evening;
    evening.kind = kind;
    evening.day = day;
    evening.conjunction = conjunction;
    evening.sun_event = *sun_event;
    evening.moon_event = *moon_event;
    evening.at_sun_event = sky_of(places(evening.sun_event), observer, evening.sun_event);
    const double best = best_time_of(evening);
    evening.at_best_time = sky_of(places(best), observer, best);
    return evening;
}

} // namespace

double CrescentEvening::lag() const {
    const double days = moon_event - sun_event;
    return (kind == CrescentKind::new_crescent ? days : -days) * minutes_per_day;
}

double CrescentEvening::age(double universal) const {
    const double days = universal - conjunction;
    return (kind == CrescentKind::new_crescent ? days : -days) * hours_per_day;
}

double geocentric_conjunction(Ephemeris& ephemeris, double universal) {
    const double estimate = phase_estimate(Phase::new_moon, nearest_lunation(civil_date(universal)));
    return Instant::of_dynamical(refined_phase(ephemeris, Phase::new_moon, estimate)).ut1();
}

CrescentSky crescent_sky(Ephemeris& ephemeris, const Observer& observer, double universal) {
    return sky_of(sky_places(ephemeris, universal), observer, universal);
}

std::optional<CrescentEvening> crescent_evening(Ephemeris& ephemeris, const Observer& observer,
                                                CrescentKind kind, double day, double conjunction) {
    const auto places = [&ephemeris](double universal) { return sky_places(ephemeris, universal); };
    return evening_of(places, observer, kind, day, conjunction);
}

SkyPolynomials sky_around_date(Ephemeris& ephemeris, double day) {
    // The Sun's event is within half a day of a noon that is within half a day of Greenwich's, the Moon's
    // within another half; each search looks an hour further.
    constexpr double reach = 1.5 + 2 / hours_per_day;
    return {ephemeris, day + half_a_day - reach, day + half_a_day + reach};
}

std::optional<CrescentEvening> crescent_evening(const SkyPolynomials& sky, const Observer& observer,
                                                CrescentKind kind, double day, double conjunction) {
    const auto places = [&sky](double universal) { return sky.at(universal); };
    return evening_of(places, observer, kind, day, conjunction);
}

} // namespace halvane
