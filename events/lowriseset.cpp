// SPDX-License-Identifier: MIT
#include "events/lowriseset.h"

#include "ephemeris/coordinates.h"
#include "ephemeris/fastplace.h"
#include "ephemeris/modgeneral.h"
#include "events/correction.h"

#include <cmath>

namespace halvane {
namespace {

double into_day_once(double fraction) {
    if (fraction < 0)
        return fraction + 1;
    return fraction >= 1 ? fraction - 1 : fraction;
}

TaggedTime refined(Ephemeris& ephemeris, Body body, const Instant& midnight, const Observer& observer,
                   double estimate, double h0) {
    constexpr double tolerance = 0.008;
    constexpr int most_rounds = 6;
    double result = estimate;
    for (int round = 0; round < most_rounds; ++round) {
        result = low_corrected_hours(ephemeris, body, midnight, observer, estimate, h0);
        if (std::fabs(result - estimate) <= tolerance || has_left_the_theories(result))
            break;
        estimate = result;
    }
    if (!(result >= 0 && result <= 24))
        return NoEvent::none;
    return result;
}

/// Transit and half arc of a body by its place at noon, in fractions of a day.
struct LowDay {
    Instant midnight;
    double h0 = 0; ///< standard altitude                                           [deg]
    double transit = 0;
    double half_arc = 0;
    bool crosses = false; ///< whether it crosses the standard altitude at all
};

LowDay low_day(Ephemeris& ephemeris, Body body, const Instant& date, const Observer& observer) {
    LowDay day{date.after(-zone_of_longitude(observer.longitude) / 24)};
    const FastNoon& noon = ephemeris.fast_noon(body, day.midnight);
    day.transit = into_day_once((noon.place.right_ascension - observer.longitude - noon.sidereal_time) / 360);
    day.h0 = noon.standard_altitude;
    const double c = (noon.sine_standard_altitude - observer.sine_latitude * noon.sine_declination) /
                     (observer.cosine_latitude * noon.cosine_declination);
    day.crosses = std::fabs(c) <= 1;
    if (day.crosses)
        day.half_arc = acos(c) * degrees_per_radian / 360;
    return day;
}

TaggedTime event_of(Ephemeris& ephemeris, Body body, const LowDay& day, const Observer& observer,
                    LowEvent event) {
    if (!day.crosses)
        return NoEvent::none;
    const double fraction = event == LowEvent::rise ? day.transit - day.half_arc : day.transit + day.half_arc;
    return refined(ephemeris, body, day.midnight, observer, into_day_once(fraction) * 24, day.h0);
}

} // namespace

double low_corrected_hours(Ephemeris& ephemeris, Body body, const Instant& midnight, const Observer& observer,
                           double hours, double h0) {
    const Instant instant = midnight.after_hours(hours);
    const FastPlace place = fast_place(ephemeris, body, instant);
    const double altitude =
        altitude_of(ephemeris, instant, observer, place.right_ascension, place.declination);
    const double hour_angle =
        turn_into_360(low_sidereal_time(ephemeris, instant) + observer.longitude - place.right_ascension);
    return hours + hours_to_altitude(altitude, h0, observer.cosine_latitude, place.declination, hour_angle);
}

double zone_of_longitude(double longitude) {
    return round_half_even(longitude / 15);
}

TaggedTime low_event(Ephemeris& ephemeris, Body body, const Instant& date, const Observer& observer,
                     LowEvent event) {
    return event_of(ephemeris, body, low_day(ephemeris, body, date, observer), observer, event);
}

RiseSet low_rise_set(Ephemeris& ephemeris, Body body, const Instant& date, const Observer& observer) {
    const LowDay day = low_day(ephemeris, body, date, observer);
    return {event_of(ephemeris, body, day, observer, LowEvent::rise),
            event_of(ephemeris, body, day, observer, LowEvent::set)};
}

} // namespace halvane
