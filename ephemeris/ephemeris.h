// SPDX-License-Identifier: MIT
#pragma once

#include "ephemeris/interpolation.h"
#include "ephemeris/observer.h"
#include "ephemeris/orientation.h"
#include "ephemeris/theory.h"

#include <array>
#include <memory>
#include <optional>

namespace halvane {

/// Whether what does not depend on the observer is computed from the series for each instant, or taken from
/// polynomials through half a day each.
enum class SeriesUse {
    each_instant,
    interpolated,      ///< pays for thousands of places within days of each other
    interpolated_year, ///< keeps the polynomials of a year, that of the medium Sun among them: pays for
                       ///< places that take the days of one year after each other
};

enum class Body { sun, moon };

/// Geocentric place of the fast formulae.
struct FastPlace {
    double right_ascension = 0; ///< 0 to 360                                                  [deg]
    double declination = 0;     ///<                                                           [deg]
    double distance = 0;        ///< Sun [AU], Moon [km]
};

/// What a fast search of a day starts from, the same for every place of a zone.
struct FastNoon {
    FastPlace place; ///< half a day after midnight
    double sine_declination = 0;
    double cosine_declination = 1;
    double standard_altitude = 0; ///< of the centre when the limb rises or sets               [deg]
    double sine_standard_altitude = 0;
    double sidereal_time = 0; ///< apparent, at midnight                                       [deg]
};

/// A theory with the results that its user asks for again and again. Cheap to make; each thread needs its
/// own. Results do not depend on what was asked before.
class Ephemeris {
public:
    explicit Ephemeris(TheoryPointer theory, SeriesUse use = SeriesUse::each_instant);

    const Theory& theory() const { return *theory_; }

    /// The orientation of the Earth. The last instant's is kept: many routines ask for one instant after the
    /// other. The reference holds until the next call.
    /// 63 terms of the IAU 1980 theory; obliquity by Laskar's polynomial, 10 000 years either side of 2000.
    /// Needs `mterm.vsk`.
    /// Accuracy  nutation 0.02", obliquity 0.08" from 1900 to 2100 (docs/accuracy.md).
    /// Source Meeus, Astronomical Algorithms, chapter "Nutation and the Obliquity of the Ecliptic".
    const Orientation& orientation(const Instant& instant);

    /// The same by four terms of the nutation, without the frame; `days` of dynamical time from 2000. The
    /// last is kept.
    const LowOrientation& low_orientation(double days);

    /// Sine of the altitude of the low-precision Sun so many hours after `start`. A day's values are kept:
    /// the searches of a day ask for the same hours. In     hour  0 to 25
    double sine_of_low_sun(const Observer& observer, const Instant& start, int hour);

    /// The fast noon of a day. The last of each body is kept.
    const FastNoon& fast_noon(Body body, const Instant& midnight);

    /// The interpolated functions, where they are in use.
    struct Interpolated {
        Interpolated(const Theory& theory, SeriesUse use);
        InterpolatedSeries sun, moon, orientation, low_orientation;
        std::optional<InterpolatedSeries> earth; ///< with SeriesUse::interpolated_year
    };
    Interpolated* interpolated() { return interpolated_.get(); }

private:
    static constexpr std::size_t hours_of_low_sun = 26;

    TheoryPointer theory_;
    std::unique_ptr<Interpolated> interpolated_;

    std::optional<Instant> orientation_of_;
    Orientation orientation_;

    std::optional<double> low_orientation_of_;
    LowOrientation low_orientation_;

    std::optional<Instant> low_sun_start_;
    Observer low_sun_observer_;
    std::array<double, hours_of_low_sun> low_sun_sines_{};

    std::array<std::optional<Instant>, 2> noon_of_;
    std::array<FastNoon, 2> noons_;
};

} // namespace halvane
