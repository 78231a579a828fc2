// SPDX-License-Identifier: MIT
#pragma once

#include "ephemeris/ephemeris.h"

#include <array>
#include <cstddef>
#include <vector>

namespace halvane {

/// A rectangular place: towards the equinox, a quarter further east, towards the north pole.
using SkyVector = std::array<double, 3>;

/// Sun and Moon from the Earth's centre at one instant; apparent, equator and equinox of the date.
struct SkyPlaces {
    SkyVector sun{};          ///< [AU]
    SkyVector moon{};         ///< [km]
    double sidereal_time = 0; ///< apparent, at Greenwich, not reduced                           [deg]
};

/// In     universal  Julian day, UT1                                                             [d]
SkyPlaces sky_places(Ephemeris& ephemeris, double universal);

/// The same by polynomials through Chebyshev nodes of pieces of half a day. Constant once it is made: any
/// number of threads may ask it. Accuracy  1e-8 deg (tests/crescent)
class SkyPolynomials {
public:
    /// In     first, last  the days that may be asked for; Julian days, UT1                      [d]
    SkyPolynomials(Ephemeris& ephemeris, double first, double last);

    /// In     universal  Julian day, UT1; the nearest piece stands for what is beyond the days   [d]
    SkyPlaces at(double universal) const;

private:
    static constexpr std::size_t nodes = 9;
    static constexpr std::size_t values = 8; ///< the last one is not used: eight fill whole vectors
    using Piece = std::array<std::array<double, values>, nodes>; ///< by power of the piece's own time

    static Piece piece_of(Ephemeris& ephemeris, double middle);

    double first_;
    std::vector<Piece> pieces_;
};

} // namespace halvane
