// SPDX-License-Identifier: MIT
#pragma once

#include "halvane/sky.h"

namespace halvane::HALVANE_INLINE v1 {

/// What a search needs of the horizon and the air above it.
struct Horizon {
    bool height_counts = false; ///< whether the observer's height lowers it
    double pressure = 1010;     ///< [mb]
    double temperature = 10;    ///< [deg C]
};

/// A day of the Sun or the Moon on a place's clock.
struct BodyDay {
    ClockTime rise;    ///< of the upper limb
    ClockTime transit; ///< above the horizon
    ClockTime set;     ///< of the upper limb
};

/// The Sun's rise, transit and set on a civil date of a clock.
/// Accuracy  Sun 5 s, Moon 20 s at latitudes up to 60 deg (docs/accuracy.md).
/// Error  raise Error (bad_argument) for a date or a place out of range.
HALVANE_EXPORT BodyDay sun_day(const Engine& engine, const Date& date, const Observer& observer,
                               const Clock& clock, const Horizon& horizon = {});
/// The same of the Moon.
HALVANE_EXPORT BodyDay moon_day(const Engine& engine, const Date& date, const Observer& observer,
                                const Clock& clock, const Horizon& horizon = {});

/// The moments of a civil date at which the Sun's centre stands at a depression: dawn and dusk.
struct Twilight {
    ClockTime morning;
    ClockTime evening;
};
/// In     depression  below the horizon, airless, 0 to 90                                      [deg]
HALVANE_EXPORT Twilight twilight(const Engine& engine, const Date& date, const Observer& observer,
                                 const Clock& clock, double depression, const Horizon& horizon = {});

/// A moment at which a body's centre passes an altitude.
struct AltitudePassage {
    Instant instant; ///< UT1
    bool rising = false;
};

/// Every passage between two moments, in their order.
/// In     altitude  topocentric, airless, -90 to 90                                            [deg]
///        from, to  at most 400 days apart
/// Accuracy  1 s where the body crosses the altitude by more than 1 deg an hour; two passages less than
///           ten minutes apart may be missed.
HALVANE_EXPORT std::vector<AltitudePassage> altitude_passages(const Engine& engine, Body body,
                                                              double altitude, const Instant& from,
                                                              const Instant& to, const Observer& observer);

/// The four phases of the Moon.
enum class Phase { new_moon = 0, first_quarter = 1, full_moon = 2, last_quarter = 3 };

/// A phase of the Moon.
struct PhaseMoment {
    Phase phase = Phase::new_moon;
    int lunation = 0; ///< counted from the New Moon of 2000 January 6
    Instant instant;  ///< dynamical time
};

/// The phases between two moments, in their order; of the years of Date, at most 400 years at once.
/// In     observer  of topocentric longitudes; nullptr: geocentric ones
/// Accuracy  1 min with all of Delta T's doubt aside; docs/accuracy.md.
HALVANE_EXPORT std::vector<PhaseMoment> moon_phases(const Engine& engine, const Instant& from,
                                                    const Instant& to, const Observer* observer = nullptr);

/// The conjunction of the Moon with the Sun in longitude nearest to a moment.
HALVANE_EXPORT Instant conjunction(const Engine& engine, const Instant& near,
                                   const Observer* observer = nullptr);

} // namespace halvane::HALVANE_INLINEv1
