// SPDX-License-Identifier: MIT
#pragma once

#include "ephemeris/ephemeris.h"

#include <functional>
#include <optional>

namespace halvane {

/// `x` in 0 to below 360                                                                        [deg]
double range(double x);

/// Adds or takes off one turn; about -180 to 180                                                [deg]
double rangeh(double x);

/// What a run searches for, the same for all of its days.
struct QiblahSearch {
    Observer observer;
    double zone = 0;           ///< from Universal Time, east positive                          [h]
    double azimuth = 0;        ///< at which the Sun shall stand                                [deg]
    double delta_t = 0;        ///< of the middle of the run                                    [d]
    double altitude_limit = 0; ///< below it the Sun is below the horizon                       [deg]
    int precision = 1;         ///< of the shown clocks, as modctim takes it
};

/// The azimuth of the Sun for which its shadow lies in `direction` when `shadow`, else the Sun itself  [deg]
double target_azimuth(float direction, bool shadow);

/// Altitude of the Sun's centre with its upper limb on the horizon: dip always counts, and the semidiameter
/// is that at one astronomical unit.
/// In     height [m], pressure [mb], temperature [deg C]                                        [deg]
/// Error  raises RunTimeFailure when they give no finite altitude.
double qiblah_altitude_limit(double height, double pressure, double temperature);

/// The two hour angles at which a day's Sun may stand at an azimuth.
enum class QiblahRoot { first, second };

/// A moment at which the Sun stands at the azimuth.
struct QiblahMoment {
    double hours = 0; ///< from the clock's midnight, 0 to 24                                   [h]
    bool below_horizon = false;
};

/// What the search of one root finds.
struct QiblahFind {
    std::optional<QiblahMoment> moment; ///< empty when the Sun does not reach the azimuth on that side
    bool second_root = false;           ///< whether the last place of the Sun had a valid second root
};

/// One round of a search: a better value for a time in hours, or none when there is nothing to search for.
using SearchRound = std::function<std::optional<double>(double)>;

/// Repeats `round` from the clock's noon on until it moves the time by one second at most. After 51 rounds
/// the last value stands, settled or not.
/// Error  raises RunTimeFailure when a round has no finite value.
std::optional<double> settled_hours(const SearchRound& round);

/// Searches one root in a day by settled_hours; a time outside the clock's day is moved by one day.
/// In     base  Universal Time of the clock's midnight                                          [d]
/// Needs `term.vsk` and `mterm.vsk`. The second root's rounds take the
/// Sun later by Delta T, the first one's do not.
/// Accuracy  azimuth of the Sun within 0.05 deg of the target unless the Sun passes close to the zenith
///           (tests/qibla).
QiblahFind find_qiblah_moment(Ephemeris& ephemeris, const QiblahSearch& search, double base, QiblahRoot root);

/// The moments of a day; there is none where the Sun does not reach the azimuth.
struct QiblahDay {
    std::optional<QiblahMoment> first;
    std::optional<QiblahMoment> second;
};

/// The two moments of a civil day, the earlier one as the clock shows them first, none last.
/// In     jd            0 h of the civil date                                                   [d]
///        summer_hours  0 or 1
QiblahDay qiblah_day(Ephemeris& ephemeris, const QiblahSearch& search, double jd, int summer_hours);

} // namespace halvane
