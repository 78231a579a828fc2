// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/crescentevening.h"
#include "crescent/criteriacatalogue.h"
#include "ephemeris/ephemeris.h"
#include "timetable/timetable.h"
#include "watch/skyoffset.h"

#include <optional>
#include <variant>
#include <vector>

namespace halvane {

/// Where and when a crescent is watched.
struct WatchSettings {
    TimetablePlace place;
    CrescentKind kind = CrescentKind::new_crescent;
    double day = 0; ///< 0 h of the civil date on the place's clock, without a zone              [d]
};

/// How bright the sky is, by the Sun's depression.
enum class SkyBrightness { daylight, civil_twilight, nautical_twilight, astronomical_twilight, night };

/// In     sun_altitude  of its centre, airless                                                  [deg]
/// Source Explanatory Supplement to the Astronomical Almanac: sunset at -50', twilights to -6, -12 and -18.
SkyBrightness sky_brightness(double sun_altitude);

/// Sun and Moon at one moment of a watch.
struct WatchRow {
    double universal = 0;      ///< Julian day, UT1                                               [d]
    CrescentQuantities places; ///< topocentric, airless
    std::optional<double> moon_apparent; ///< altitude; none where the airless one is below lowest_refracted
                                         ///< [deg]
    std::optional<double> sun_apparent;  ///< the same of the Sun                                [deg]
    SkyBrightness brightness = SkyBrightness::daylight;
};

/// Where a telescope has to point, and how the crescent lies there; topocentric, airless.
struct WatchPointing {
    double universal = 0; ///< Julian day, UT1                                                   [d]
    CrescentQuantities places;
    EquatorialPlace of_date{};    ///< of the Moon, true equator and equinox of date             [deg]
    EquatorialPlace j2000{};      ///< the same by precession alone                              [deg]
    double hour_angle = 0;        ///< of the Moon, west positive, -180 to 180                   [deg]
    double altitude_offset = 0;   ///< the Moon's altitude less the Sun's                        [deg]
    double azimuth_offset = 0;    ///< the Moon's azimuth less the Sun's, -180 to 180            [deg]
    SkyOffset from_sun;           ///< of the Moon, from the north to the east
    double bright_limb = 0;       ///< position angle of its middle, from the north to the east  [deg]
    double parallactic_angle = 0; ///< of the zenith from the north, to the east, -180 to 180    [deg]
    double zenith_angle = 0;      ///< of the bright limb's middle: 0 towards the zenith, then to the left as
                                  ///< seen by an upright eye, 0 to below 360                    [deg]

    /// Of the line through both horns against the horizon, 0 to 90; their middle lies opposite the limb's
    /// [deg]
    double horns_tilt() const;
    /// Which horn is the higher one: -1 the left, 1 the right, 0 both alike.
    int higher_horn() const;
};

/// What a criterion says of the watch.
struct WatchVerdict {
    const CataloguedCriterion* criterion = nullptr;
    std::optional<double> value; ///< none where it has no answer
    std::size_t visibility = 0;  ///< the class of the value, an index of bands()
};

/// An evening or a morning at one place.
struct CrescentWatch {
    WatchSettings settings;
    Observer observer;
    double conjunction = 0;          ///< nearest to it, geocentric; Julian day, UT1                    [d]
    double sun_event = 0;            ///< sunset or sunrise; Julian day, UT1                            [d]
    CrescentEvent moon_event;        ///< moonset or moonrise within twelve hours of it
    std::optional<double> best_time; ///< none unless the lag is positive; Julian day, UT1       [d]
    /// From sunset to moonset, or from moonrise to sunrise; the Sun's event alone when the Moon is down. Of a
    /// Moon that stays up, as long as the Sun is down, `longest_watch` at most.
    std::vector<WatchRow> rows;
    std::optional<WatchPointing> pointing; ///< at Best Time, else at the Sun's event; none of a Moon below it
    std::vector<WatchVerdict> verdicts;    ///< of the criteria that judge this kind, in the catalogue's order

    bool is_new() const { return settings.kind == CrescentKind::new_crescent; }
    /// Of the Moon behind the Sun, or before it in a morning                                   [min]
    std::optional<double> lag() const;
    /// Whether the Moon is up at the Sun's event.
    bool moon_is_up() const;
    /// From the conjunction to a moment, or from that to it in a morning                        [h]
    double age(double universal) const;
};

inline constexpr double minutes_between_rows = 5;
inline constexpr double longest_watch = 12; ///< [h]

/// A watch ends or begins at most so far from the conjunction: beyond it the Moon is no crescent  [d]
inline constexpr double farthest_conjunction = 7;

/// Why there is no watch.
struct NoWatch {
    NoEvent sun = NoEvent::none; ///< the Sun stays up or down, or has no such event that day
    /// The nearest conjunction, where it is the Moon that is no crescent; Julian day, UT1        [d]
    std::optional<double> far_conjunction;
};

/// The watch of a civil date of the place's clock. The horizon is that of the sea in standard air, the
/// place's height counts for the parallax alone.
/// In     theory  with every series
/// Error  raises RunTimeFailure, as crescent_evening does.
std::variant<CrescentWatch, NoWatch> crescent_watch(const TheoryPointer& theory,
                                                    const WatchSettings& settings);

/// How far the place's clock is ahead of Universal Time at an instant                             [s]
int clock_offset(const TimetablePlace& place, double universal);

} // namespace halvane
