// SPDX-License-Identifier: MIT
#pragma once

#include "halvane/engine.h"
#include "halvane/values.h"

#include <span>
#include <vector>

namespace halvane::HALVANE_INLINE v1 {

/// How much of the theories is computed. Errors against modern ephemerides from 1900 to 2100 stand in
/// docs/accuracy.md.
enum class Accuracy {
    complete = 0, ///< Sun: the whole VSOP87 series; Moon: the ELP-2000/85 tables
    medium = 1,   ///< Sun: its 248 largest terms; Moon: as complete
    low = 2,      ///< Meeus's low-precision Sun and periodic terms of the Moon
    fast = 3,     ///< the same with four terms of the nutation
};

/// The Sun or the Moon.
enum class Body { sun = 0, moon = 1 };

/// Apparent geocentric place of the Sun, of the date's equator and ecliptic.
struct SunPlace {
    double right_ascension = 0;  ///< 0 to 360                                                  [deg]
    double declination = 0;      ///<                                                           [deg]
    double longitude = 0;        ///< ecliptic, 0 to 360                                        [deg]
    double latitude = 0;         ///< ecliptic; 0 with Accuracy::low and fast                   [deg]
    double distance = 0;         ///< [AU]
    double equation_of_time = 0; ///< apparent less mean; 0 with Accuracy::fast                 [min]
};

/// Apparent geocentric place of the Moon, of the date's equator and ecliptic.
struct MoonPlace {
    double right_ascension = 0; ///< 0 to 360                                                   [deg]
    double declination = 0;     ///<                                                            [deg]
    double longitude = 0;       ///< ecliptic, 0 to 360                                         [deg]
    double latitude = 0;        ///< ecliptic                                                   [deg]
    double distance = 0;        ///< between the centres                                        [km]
};

/// A body as it is seen from the surface of the Earth, airless.
struct SeenPlace {
    double right_ascension = 0; ///< topocentric, 0 to 360                                      [deg]
    double declination = 0;     ///< topocentric                                                [deg]
    double longitude = 0;       ///< topocentric, ecliptic, 0 to 360                            [deg]
    double latitude = 0;        ///< topocentric, ecliptic                                      [deg]
    double altitude = 0;        ///< of the centre, without refraction                          [deg]
    double azimuth = 0;         ///< 0 to 360, 0 north, 90 east                                 [deg]
};

/// The Sun from the Earth's centre and from an observer's place.
struct SeenSun {
    SunPlace geocentric;
    SeenPlace topocentric;
};

/// The Moon from the Earth's centre and from an observer's place.
struct SeenMoon {
    MoonPlace geocentric;
    SeenPlace topocentric;
    double parallax = 0;     ///< horizontal                                                    [deg]
    double semidiameter = 0; ///< topocentric                                                   [deg]
};

/// The geocentric place of the Sun.
/// Accuracy  of the complete series: Sun 1", Moon 10" (docs/accuracy.md).
/// Source  Bretagnon and Francou, Astronomy and Astrophysics 202, 309 (1988) (VSOP87); Chapront-Touze and
///         Chapront, Lunar Tables and Programs from 4000 B.C. to A.D. 8000 (1991); Meeus, Astronomical
///         Algorithms, 2nd ed. (1998).
/// Error  raise Error (bad_argument) for an instant outside the years of Date. Accuracy::fast has no
///        geocentric place.
HALVANE_EXPORT SunPlace sun(const Engine& engine, const Instant& instant,
                            Accuracy accuracy = Accuracy::complete);
/// The same of the Moon.
HALVANE_EXPORT MoonPlace moon(const Engine& engine, const Instant& instant,
                              Accuracy accuracy = Accuracy::complete);

/// The Sun's places from the Earth's centre and from an observer's.
HALVANE_EXPORT SeenSun sun_seen(const Engine& engine, const Instant& instant, const Observer& observer,
                                Accuracy accuracy = Accuracy::complete);
/// The same of the Moon.
HALVANE_EXPORT SeenMoon moon_seen(const Engine& engine, const Instant& instant, const Observer& observer,
                                  Accuracy accuracy = Accuracy::complete);

/// sun() of many instants, in their order.
HALVANE_EXPORT std::vector<SunPlace> suns(const Engine& engine, std::span<const Instant> instants,
                                          Accuracy accuracy = Accuracy::complete);
/// moon() of many instants, in their order.
HALVANE_EXPORT std::vector<MoonPlace> moons(const Engine& engine, std::span<const Instant> instants,
                                            Accuracy accuracy = Accuracy::complete);
/// sun_seen() of many instants, in their order.
HALVANE_EXPORT std::vector<SeenSun> suns_seen(const Engine& engine, std::span<const Instant> instants,
                                              const Observer& observer,
                                              Accuracy accuracy = Accuracy::complete);
/// moon_seen() of many instants, in their order.
HALVANE_EXPORT std::vector<SeenMoon> moons_seen(const Engine& engine, std::span<const Instant> instants,
                                                const Observer& observer,
                                                Accuracy accuracy = Accuracy::complete);

/// How the Sun lights the Moon's disc.
struct MoonLight {
    double elongation = 0;  ///< of the Moon from the Sun, 0 to 180                             [deg]
    double phase_angle = 0; ///< 0 full, 180 new                                                [deg]
    double fraction = 0;    ///< of the disc that is lit, 0 to 1
};
/// Seen from the Earth's centre.
HALVANE_EXPORT MoonLight moon_light(const Engine& engine, const Instant& instant);

/// The altitude that a body without air would have, raised by refraction in standard air     [deg]
/// In     altitude  airless, -4 to 90                                                          [deg]
/// Source Bennett, Journal of Navigation 35, 255 (1982).
HALVANE_EXPORT double refracted(double altitude);

} // namespace halvane::HALVANE_INLINEv1
