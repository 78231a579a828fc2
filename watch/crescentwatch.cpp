// SPDX-License-Identifier: MIT
#include "watch/crescentwatch.h"

#include "base/failure.h"
#include "calendar/civildate.h"
#include "calendar/modsummer.h"
#include "crescent/circumstances.h"
#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"
#include "settings/enginesettings.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace halvane {
namespace {

constexpr double seconds_per_day = 86400;
constexpr double seconds_per_hour = 3600;
constexpr double minutes_per_day = 1440;
constexpr double hours_per_day = 24;

std::optional<double> apparent_of(double airless) {
    if (airless < lowest_refracted)
        return std::nullopt;
    return apparent_altitude(airless);
}

/// Calculates a watch, part by part.
class Watcher {
public:
    Watcher(Ephemeris& ephemeris, const WatchSettings& settings) : ephemeris_(ephemeris) {
        watch_.settings = settings;
        watch_.observer = observer_of(settings.place.location);
    }

    std::variant<CrescentWatch, NoWatch> run() {
        const EventOfDate event = sun_event_of_date(
            ephemeris_, watch_.observer, kind(), watch_.settings.day, [this](double universal) {
                return clock_offset(watch_.settings.place, universal) / seconds_per_hour;
            });
        if (!event.sun.universal)
            return NoWatch{event.sun.missing, std::nullopt};
        watch_.sun_event = *event.sun.universal;
        judged_day_ = event.mean_day;
        watch_.conjunction = geocentric_conjunction(ephemeris_, watch_.sun_event);
        if (std::fabs(watch_.sun_event - watch_.conjunction) > farthest_conjunction)
            return NoWatch{NoEvent::none, watch_.conjunction};
        watch_.moon_event = moon_event_near(ephemeris_, watch_.observer, kind(), watch_.sun_event);
        if (const auto lag = watch_.lag(); lag && *lag > 0)
            watch_.best_time = best_time(watch_.is_new(), watch_.sun_event, *lag / minutes_per_day);
        add_rows();
        if (watch_.moon_is_up())
            watch_.pointing = pointing_at(watch_.best_time.value_or(watch_.sun_event));
        add_verdicts();
        return std::move(watch_);
    }

private:
    CrescentKind kind() const { return watch_.settings.kind; }

    WatchRow row_at(double universal) {
        WatchRow row;
        row.universal = universal;
        row.places = crescent_sky(ephemeris_, watch_.observer, universal).topocentric;
        row.moon_apparent = apparent_of(row.places.moon_altitude);
        row.sun_apparent = apparent_of(row.places.sun_altitude);
        row.brightness = sky_brightness(row.places.sun_altitude);
        return row;
    }

    /// Rows of the time between two moments, both ends inside.
    void add_rows(double first, double last) {
        constexpr double step = minutes_between_rows / minutes_per_day;
        constexpr double same = 1 / seconds_per_day;
        for (int number = 0; first + number * step < last - same; ++number)
            watch_.rows.push_back(row_at(first + number * step));
        watch_.rows.push_back(row_at(last));
    }

    void add_rows() {
        const double sun = watch_.sun_event;
        double other = sun;
        if (watch_.moon_event.universal && *watch_.lag() > 0)
            other = *watch_.moon_event.universal;
        else if (watch_.moon_event.missing == NoEvent::up)
            other += (watch_.is_new() ? longest_watch : -longest_watch) / hours_per_day;
        add_rows(std::min(sun, other), std::max(sun, other));
        if (watch_.moon_event.missing == NoEvent::up)
            keep_dark_rows();
        // At the Sun's event its limb is on the horizon and twilight begins or ends, whatever the last
        // digits.
        WatchRow& of_sun = watch_.is_new() ? watch_.rows.front() : watch_.rows.back();
        of_sun.brightness = SkyBrightness::civil_twilight;
    }

    /// Of a Moon that stays up: from the Sun's event until the Sun is above the horizon on the other side.
    void keep_dark_rows() {
        std::vector<WatchRow>& rows = watch_.rows;
        const auto in_daylight = [](const WatchRow& row) {
            return row.brightness == SkyBrightness::daylight;
        };
        if (watch_.is_new())
            rows.erase(std::find_if(rows.begin() + 1, rows.end(), in_daylight), rows.end());
        else
            rows.erase(rows.begin(), std::find_if(rows.rbegin() + 1, rows.rend(), in_daylight).base());
    }

    WatchPointing pointing_at(double universal) {
        const Instant instant = Instant::of_ut1(universal);
        const Observer& observer = watch_.observer;
        const SunPlace sun = sun_high(ephemeris_, instant, observer);
        const MoonPlace moon = moon_medium(ephemeris_, instant, observer);
        WatchPointing pointing;
        pointing.universal = universal;
        pointing.places = topocentric_quantities(ephemeris_, instant, observer, moon, sun);
        const CrescentQuantities& places = pointing.places;
        pointing.of_date = {moon.topocentric_right_ascension, moon.topocentric_declination};
        precess_to_j2000(instant, pointing.of_date.right_ascension, pointing.of_date.declination,
                         pointing.j2000.right_ascension, pointing.j2000.declination);
        pointing.hour_angle = rev180(local_hour_angle(sidereal_time(ephemeris_, instant), observer.longitude,
                                                      pointing.of_date.right_ascension));
        pointing.altitude_offset = places.relative_altitude();
        pointing.azimuth_offset = rev180(places.relative_azimuth());
        pointing.from_sun = sky_offset(sun.topocentric_right_ascension, sun.topocentric_declination,
                                       pointing.of_date.right_ascension, pointing.of_date.declination);
        pointing.bright_limb = sky_offset(pointing.of_date.right_ascension, pointing.of_date.declination,
                                          sun.topocentric_right_ascension, sun.topocentric_declination)
                                   .angle;
        // Azimuths grow to the right, the angle from the zenith to the left.
        pointing.zenith_angle = rev360(
            -sky_offset(places.moon_azimuth, places.moon_altitude, places.sun_azimuth, places.sun_altitude)
                 .angle);
        pointing.parallactic_angle = rev180(pointing.bright_limb - pointing.zenith_angle);
        return pointing;
    }

    void add_verdicts() {
        const auto own =
            crescent_evening(ephemeris_, watch_.observer, kind(), judged_day_, watch_.conjunction);
        for (const CataloguedCriterion& criterion : catalogued_criteria()) {
            if (!watch_.is_new() && !criterion.of_mornings)
                continue;
            const auto evening = criterion.place
                                     ? judged_evening(ephemeris_, criterion, watch_.observer, kind(),
                                                      watch_.settings.day, watch_.conjunction)
                                     : own;
            WatchVerdict verdict{&criterion, std::nullopt, 0};
            if (evening)
                verdict.value = criterion_value(criterion, *evening);
            if (verdict.value)
                verdict.visibility = class_of_value(criterion, *verdict.value);
            watch_.verdicts.push_back(verdict);
        }
    }

    Ephemeris& ephemeris_;
    CrescentWatch watch_;
    double judged_day_ = 0; ///< by the mean time of the longitude                             [d]
};

} // namespace

SkyBrightness sky_brightness(double sun_altitude) {
    constexpr double sunset = -50.0 / 60;
    constexpr double civil = -6;
    constexpr double nautical = -12;
    constexpr double astronomical = -18;
    if (sun_altitude > sunset)
        return SkyBrightness::daylight;
    if (sun_altitude > civil)
        return SkyBrightness::civil_twilight;
    if (sun_altitude > nautical)
        return SkyBrightness::nautical_twilight;
    return sun_altitude > astronomical ? SkyBrightness::astronomical_twilight : SkyBrightness::night;
}

double WatchPointing::horns_tilt() const {
    const double from_below = std::fabs(zenith_angle - 180);
    return from_below > 90 ? 180 - from_below : from_below;
}

int WatchPointing::higher_horn() const {
    // The horns lie a quarter of a turn from the limb's middle; angles grow from the zenith to the left.
    const double horn = (zenith_angle + 90) * radians_per_degree;
    const double left_and_up = std::sin(horn) * std::cos(horn);
    if (std::fabs(left_and_up) < std::numeric_limits<double>::epsilon() * degrees_per_radian)
        return 0;
    return left_and_up > 0 ? -1 : 1;
}

std::optional<double> CrescentWatch::lag() const {
    if (!moon_event.universal)
        return std::nullopt;
    const double days = *moon_event.universal - sun_event;
    return (is_new() ? days : -days) * minutes_per_day;
}

bool CrescentWatch::moon_is_up() const {
    return moon_event.universal ? *lag() > 0 : moon_event.missing == NoEvent::up;
}

double CrescentWatch::age(double universal) const {
    const double days = universal - conjunction;
    return (is_new() ? days : -days) * hours_per_day;
}

int clock_offset(const TimetablePlace& place, double universal) {
    if (place.zone)
        return place.zone->offset_at(universal);
    const double date = start_of_date(universal + place.location.zone / hours_per_day);
    return static_cast<int>(
        std::lround((place.location.zone + summer_hours_of(place.preferences, date)) * seconds_per_hour));
}

std::variant<CrescentWatch, NoWatch> crescent_watch(const TheoryPointer& theory,
                                                    const WatchSettings& settings) {
    Ephemeris ephemeris(theory);
    return about_place(settings.place.location.name, [&] {
        return about_day(settings.day, [&] { return Watcher(ephemeris, settings).run(); });
    });
}

} // namespace halvane
