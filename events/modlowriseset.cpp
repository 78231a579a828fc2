#include "events/modlowriseset.h"

#include "ephemeris/coordinates.h"
#include "ephemeris/earthorientation.h"
#include "ephemeris/fastplace.h"
#include "ephemeris/instantkey.h"
#include "ephemeris/modgeneral.h"
#include "events/correction.h"

#include <array>
#include <cmath>
#include <optional>

namespace halvane {
namespace {

FastPlace place_of(std::string_view body, double jd) {
    return body == "Moon" ? moon_fast_place(jd) : sun_fast_place(jd);
}

double into_day_once(double fraction) {
    if (fraction < 0)
        return fraction + 1;
    return fraction >= 1 ? fraction - 1 : fraction;
}

double corrected_by(double estimate, double midnight, double h0, const Observer& observer,
                    std::string_view body) {
    const double jd = midnight + estimate / 24;
    const FastPlace place = place_of(body, jd);
    const double altitude = altitude_of(observer, jd, place.right_ascension, place.declination);
    double sidereal_time = 0;
    modsideriallow(jd, sidereal_time);
    const double hour_angle = turn_into_360(sidereal_time + observer.longitude - place.right_ascension);
    return estimate +
           hours_to_altitude(altitude, h0, observer.cosine_latitude, place.declination, hour_angle);
}

TaggedTime refined(double estimate, double midnight, double h0, const Observer& observer,
                   std::string_view body) {
    constexpr double tolerance = 0.008;
    constexpr int most_rounds = 6;
    double result = estimate;
    for (int round = 0; round < most_rounds; ++round) {
        result = corrected_by(estimate, midnight, h0, observer, body);
        if (std::fabs(result - estimate) <= tolerance || has_left_the_theories(result))
            break;
        estimate = result;
    }
    if (!(result >= 0 && result <= 24))
        return NoEvent::none;
    return result;
}

/// What the search of a day starts from, the same for every place of a zone.
struct LowNoon {
    FastPlace place;          ///< at noon
    double sidereal_time = 0; ///< at midnight [deg]
};

/// The last of each body is kept.
const LowNoon& low_noon(std::string_view body, double midnight) {
    struct Kept {
        std::optional<InstantKey> key;
        LowNoon noon;
    };
    static std::array<Kept, 2> last;
    Kept& kept = last[body == "Moon" ? 1 : 0];
    const InstantKey key = InstantKey::of(midnight);
    if (kept.key != key) {
        kept.key.reset();
        kept.noon.place = place_of(body, midnight + 0.5);
        modsideriallow(midnight, kept.noon.sidereal_time);
        kept.key = key;
    }
    return kept.noon;
}

/// Transit and half arc of a body by its place at noon, in fractions of a day.
struct LowDay {
    double midnight = 0; ///< UT1 of local midnight                                       [d]
    double h0 = 0;       ///< standard altitude                                           [deg]
    double transit = 0;
    double half_arc = 0;
    bool crosses = false; ///< whether it crosses the standard altitude at all
};

LowDay low_day(double jd, const Observer& observer, std::string_view body) {
    LowDay day;
    day.midnight = jd - zone_of_longitude(observer.longitude) / 24;
    const auto& [noon, sidereal_time] = low_noon(body, day.midnight);
    day.transit = into_day_once((noon.right_ascension - observer.longitude - sidereal_time) / 360);
    day.h0 = body == "Moon" ? 0.7275 * moon_parallax(noon.distance) - 0.5667 : -0.833333;

    const double delta = noon.declination * radians_per_degree;
    const double c = (std::sin(day.h0 * radians_per_degree) - observer.sine_latitude * std::sin(delta)) /
                     (observer.cosine_latitude * std::cos(delta));
    day.crosses = std::fabs(c) <= 1;
    if (day.crosses)
        day.half_arc = acos(c) * degrees_per_radian / 360;
    return day;
}

TaggedTime event_of(const LowDay& day, LowEvent event, const Observer& observer, std::string_view body) {
    if (!day.crosses)
        return NoEvent::none;
    const double fraction = event == LowEvent::rise ? day.transit - day.half_arc : day.transit + day.half_arc;
    return refined(into_day_once(fraction) * 24, day.midnight, day.h0, observer, body);
}

} // namespace

double zone_of_longitude(double longitude) {
    return round_half_even(longitude / 15);
}

void modlowaltazm(double jd, double right_ascension, double declination, double longitude, double latitude,
                  double& altitude, double& azimuth) {
    altazm_of(observer_at(longitude, latitude, 0), jd, right_ascension, declination, altitude, azimuth);
}

void modvlowriseset(double estimate, double midnight, double h0, double latitude, double longitude,
                    std::string_view body, double& corrected) {
    corrected = corrected_by(estimate, midnight, h0, observer_at(longitude, latitude, 0), body);
}

TaggedTime low_event(double jd, const Observer& observer, std::string_view body, LowEvent event) {
    return event_of(low_day(jd, observer, body), event, observer, body);
}

void modlowriseset(double jd, double longitude, double latitude, std::string_view body, TaggedTime& rise,
                   TaggedTime& set) {
    const Observer observer = observer_at(longitude, latitude, 0);
    const LowDay day = low_day(jd, observer, body);
    rise = event_of(day, LowEvent::rise, observer, body);
    set = event_of(day, LowEvent::set, observer, body);
}

} // namespace halvane
