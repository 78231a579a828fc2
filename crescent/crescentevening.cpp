// SPDX-License-Identifier: MIT
#include "crescent/crescentevening.h"

#include "calendar/civildate.h"
#include "crescent/circumstances.h"
#include "crescent/localsky.h"
#include "ephemeris/modgeneral.h"
#include "events/bracketedroot.h"
#include "events/parabola.h"
#include "events/phase.h"

#include <algorithm>
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
/// A secant that is no longer leaves less than a thousandth of its length.
constexpr double last_step = 2e-6; // [d]

/// By which the hour angle of a body grows                                                     [deg/d]
constexpr double degrees_a_day(Body body) {
    return body == Body::sun ? degrees_per_turn : 347.8;
}

/// Looks for the setting or the rising of a body over one place. `Places` gives the SkyPlaces of a Julian
/// day in UT1.
template <class Places>
class EventSearch {
public:
    EventSearch(Places& places, const Observer& observer, Body body, bool sets)
        : places_(places), observer_(observer), body_(body), sets_(sets) {}

    /// The event within half a day of `centre` that is nearest to it; Julian day, UT1                [d]
    /// In     near  about when it should be, if that is known
    std::optional<double> nearest_to(double centre, std::optional<double> near) {
        if (near)
            if (const std::optional<double> event = refined(*near, centre))
                return event;
        if (const std::optional<double> event = by_hour_angle(centre))
            return event;
        if (stays_away(centre))
            return std::nullopt;
        return by_hours(centre);
    }

    /// How far a body passes the horizon of its event, and the transit at which it passes it least.
    struct Passing {
        double margin;  ///< negative where it does not                                          [deg]
        double transit; ///< Julian day, UT1                                                      [d]
    };

    /// The lesser of how far the body comes above the horizon of the event and how far below, in the half
    /// day before the event and the one after, or the reverse for a rising.
    Passing passing(double centre) {
        const Transits at = transits(centre);
        const double above = height(at.upper);
        const double below = -height(at.lower);
        // The one that is far from being the lesser need not be exact.
        const bool is_near_upper = above <= below + far_off;
        const bool is_near_lower = below <= above + far_off;
        const Passing upper{is_near_upper ? height(turning_point(at.upper)) : above, at.upper};
        const Passing lower{is_near_lower ? -height(turning_point(at.lower)) : below, at.lower};
        return upper.margin < lower.margin ? upper : lower;
    }

    /// Why there is no event within half a day of `centre`.
    NoEvent missing(double centre) {
        const Transits at = transits(centre);
        if (height(turning_point(at.upper)) < 0)
            return NoEvent::down;
        return height(turning_point(at.lower)) > 0 ? NoEvent::up : NoEvent::none;
    }

private:
    /// Degrees a day by which the hour angle grows.
    double turning() const { return degrees_a_day(body_); }

    LocalSky sky(double universal) { return {places_(universal), observer_}; }
    double height(double universal) { return sky(universal).height_over_event(body_); }

    /// More than the altitude of a transit is changed by what the declination changes in a day   [deg]
    static constexpr double far_off = 8;

    /// The transit nearest to `centre`, and the lower one on the side of the event.
    struct Transits {
        double upper, lower;
    };
    Transits transits(double centre) {
        const double upper = centre - sky(centre).hour_angle(body_) / turning();
        return {upper, upper + (sets_ ? half_a_day : -half_a_day)};
    }

    /// Whether the body stays so far above or below the horizon that the change of its declination in a day
    /// cannot bring it there.
    bool stays_away(double centre) {
        const double change = body_ == Body::sun ? 1 : far_off; // [deg]
        const Transits at = transits(centre);
        return height(at.upper) < -change || height(at.lower) > change;
    }

    /// From the hour angle of the event; nothing where refined gives none.
    std::optional<double> by_hour_angle(double centre) {
        const LocalSky start = sky(centre);
        const double cosine = cosine_of_event(start);
        if (!(std::fabs(cosine) < 1))
            return std::nullopt;
        const double at_event = std::acos(cosine) * degrees_per_radian * (sets_ ? 1 : -1);
        return refined(centre + rev180(at_event - start.hour_angle(body_)) / turning(), centre);
    }

    /// An event from a guess, by secants. Nothing where the body meets the horizon at a small angle: there
    /// may be no event then, or two.
    std::optional<double> refined(double guess, double centre) {
        constexpr double steep = 0.2; // sine of the hour angle
        constexpr int most_steps = 8;
        const LocalSky start = sky(guess);
        const double sine = start.sine_hour_angle(body_) * (sets_ ? 1 : -1);
        if (!(sine > steep))
            return std::nullopt;
        double slope =
            -turning() * observer_.cosine_latitude * start.cosine_declination(body_) * (sets_ ? sine : -sine);
        double event = guess;
        double at = start.height_over_event(body_);
        for (int step = 0; step < most_steps; ++step) {
            const double before = event;
            event -= at / slope;
            if (!(std::fabs(event - centre) < 2 * half_a_day))
                return std::nullopt; // far from it there is another sky
            if (std::fabs(event - before) <= last_step)
                return std::fabs(event - centre) < half_a_day ? std::optional(event) : std::nullopt;
            const double at_before = at;
            at = height(event);
            slope = (at - at_before) / (event - before);
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
                const double turn = turning_point(time_of(hour));
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

    /// Where the height is greatest or least near an hour: the vertex of a parabola through the heights two
    /// hours apart, then of others through nearer ones.
    double turning_point(double hour) {
        double turn = hour;
        for (const double apart : {2 / hours_per_day, 0.2 / hours_per_day}) {
            const Parabola parabola =
                parabola_through(height(turn - apart), height(turn), height(turn + apart));
            turn += std::clamp(parabola.extremum_x, -1.0, 1.0) * apart;
        }
        return turn;
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

/// Noon by the mean time of a longitude; Julian day, UT1                                           [d]
double mean_noon(double day, double longitude) {
    return day + half_a_day - longitude / degrees_per_turn;
}

template <class Places>
std::optional<CrescentEvening> evening_of(Places& places, const Observer& observer, CrescentKind kind,
                                          double day, double conjunction, const EventGuess* guess) {
    const bool sets = kind == CrescentKind::new_crescent;
    const auto guessed = [guess](double EventGuess::*event) {
        return guess == nullptr ? std::nullopt : std::optional(guess->*event);
    };
    const auto sun_event =
        EventSearch(places, observer, Body::sun, sets)
            .nearest_to(mean_noon(day, observer.longitude), guessed(&EventGuess::sun_event));
    if (!sun_event)
        return std::nullopt;
    const auto moon_event = EventSearch(places, observer, Body::moon, sets)
                                .nearest_to(*sun_event, guessed(&EventGuess::moon_event));
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
    evening.at_best_time =
        best == evening.sun_event ? evening.at_sun_event : sky_of(places(best), observer, best);
    return evening;
}

CrescentEvent event_near(Ephemeris& ephemeris, const Observer& observer, Body body, CrescentKind kind,
                         double centre) {
    const auto places = [&ephemeris](double universal) { return sky_places(ephemeris, universal); };
    EventSearch search(places, observer, body, kind == CrescentKind::new_crescent);
    const auto event = search.nearest_to(centre, std::nullopt);
    return {event, event ? NoEvent::none : search.missing(centre)};
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

namespace {

/// The geocentric conjunction of a whole lunation index; Julian day, UT1                          [d]
double conjunction_of(Ephemeris& ephemeris, double lunation) {
    const double estimate = phase_estimate(Phase::new_moon, lunation);
    return Instant::of_dynamical(refined_phase(ephemeris, Phase::new_moon, estimate)).ut1();
}

} // namespace

double geocentric_conjunction(Ephemeris& ephemeris, double universal) {
    constexpr double surely_nearest = 14; // no month is as short as twice this                     [d]
    const double lunation = std::round(mean_lunation(Instant::of_ut1(universal).dynamical()));
    const double found = conjunction_of(ephemeris, lunation);
    const double away = universal - found;
    if (std::fabs(away) < surely_nearest)
        return found;
    const double other = conjunction_of(ephemeris, lunation + (away > 0 ? 1 : -1));
    return std::fabs(universal - other) < std::fabs(away) ? other : found;
}

CrescentSky crescent_sky(Ephemeris& ephemeris, const Observer& observer, double universal) {
    return sky_of(sky_places(ephemeris, universal), observer, universal);
}

CrescentEvent sun_event_on(Ephemeris& ephemeris, const Observer& observer, CrescentKind kind, double day) {
    return event_near(ephemeris, observer, Body::sun, kind, mean_noon(day, observer.longitude));
}

EventOfDate sun_event_of_date(Ephemeris& ephemeris, const Observer& observer, CrescentKind kind, double date,
                              const std::function<double(double)>& hours_ahead) {
    EventOfDate none{{}, date};
    for (const double moved : {0.0, 1.0, -1.0}) {
        const CrescentEvent event = sun_event_on(ephemeris, observer, kind, date + moved);
        if (event.universal &&
            start_of_date(*event.universal + hours_ahead(*event.universal) / hours_per_day) == date)
            return {event, date + moved};
        if (moved == 0 && !event.universal)
            none.sun = event;
    }
    return none;
}

CrescentEvent moon_event_near(Ephemeris& ephemeris, const Observer& observer, CrescentKind kind,
                              double sun_event) {
    return event_near(ephemeris, observer, Body::moon, kind, sun_event);
}

std::optional<CrescentEvening> crescent_evening(Ephemeris& ephemeris, const Observer& observer,
                                                CrescentKind kind, double day, double conjunction) {
    const auto places = [&ephemeris](double universal) { return sky_places(ephemeris, universal); };
    return evening_of(places, observer, kind, day, conjunction, nullptr);
}

double event_margin(const SkyPolynomials& sky, const Observer& observer, CrescentKind kind, double day) {
    const auto places = [&sky](double universal) { return sky.at(universal); };
    const bool sets = kind == CrescentKind::new_crescent;
    const double noon = mean_noon(day, observer.longitude);
    EventSearch of_sun(places, observer, Body::sun, sets);
    const auto sun = of_sun.passing(noon);
    if (sun.margin < 0)
        return sun.margin;
    // Where the Sun just passes the horizon its event is near that transit, for the Moon's near enough.
    constexpr double just = 1; // [deg]
    const double sun_event =
        sun.margin < just ? sun.transit : of_sun.nearest_to(noon, std::nullopt).value_or(sun.transit);
    return std::min(sun.margin, EventSearch(places, observer, Body::moon, sets).passing(sun_event).margin);
}

SkyPolynomials sky_around_date(Ephemeris& ephemeris, double day) {
    // The Sun's event is within half a day of a noon that is within half a day of Greenwich's, the Moon's
    // within another half; each search looks an hour further.
    constexpr double reach = 1.5 + 2 / hours_per_day;
    return {ephemeris, day + half_a_day - reach, day + half_a_day + reach};
}

std::optional<CrescentEvening> crescent_evening(const SkyPolynomials& sky, const Observer& observer,
                                                CrescentKind kind, double day, double conjunction,
                                                const EventGuess* guess) {
    const auto places = [&sky](double universal) { return sky.at(universal); };
    return evening_of(places, observer, kind, day, conjunction, guess);
}

EventGuess guess_from(const CrescentEvening& evening, double east) {
    return {evening.sun_event - east / degrees_a_day(Body::sun),
            evening.moon_event - east / degrees_a_day(Body::moon)};
}

} // namespace halvane
