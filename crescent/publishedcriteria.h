// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace halvane {

/// The lines of published criteria of crescent visibility, as functions of their own quantities. ARCV is the
/// geocentric, airless altitude of the Moon less that of the Sun; DAZ the difference of their azimuths
/// without its sign; ARCL the elongation; all in degrees. W is the width of the crescent in arc minutes.

/// Width W' that Yallop's q is published for: geocentric elongation, topocentric semidiameter    [arcmin]
/// In     parallax    of the Moon, horizontal                                                    [deg]
///        altitude    of the Moon, geocentric, airless                                           [deg]
///        elongation  geocentric                                                                 [deg]
/// Source Yallop, NAO Technical Note 69 (1997).
double yallop_width(double parallax, double altitude, double elongation);

/// Least ARCV of a visible crescent.
/// Source Maunder, J. Brit. Astron. Assoc. 21, 355 (1911), by the parabola through his table.
double maunder_least_arcv(double daz);

/// Least ARCV of a visible crescent.
/// Source Schoch, Ergaenzungshefte zu den Astron. Nachr. 8, no. 2 (1930), the table of the Indian
/// Astronomical
///        Ephemeris, by the parabola of Yallop, NAO Technical Note 69 (1997).
double schoch_least_arcv(double daz);

/// Width of a crescent whose semidiameter is always 15'                                          [arcmin]
/// In     elongation  geocentric                                                                 [deg]
double bruin_width(double elongation);

/// Least ARCV of a visible crescent. The curve ends at a width of 3'; wider crescents take its end.
/// Source Bruin, Vistas in Astronomy 21, 331 (1977), figure 9, by the cubic of Yallop, NAO Technical Note 69
///        (1997).
double bruin_least_arcv(double width);

/// Least ARCV of a visible crescent; nothing for a DAZ above 20, where the line ends.
/// Source Ilyas, Q. J. R. astr. Soc. 35, 425 (1994), by a later fit.
std::optional<double> ilyas_least_arcv(double daz);

/// Apparent altitude of the lower limb above which seeing the crescent with the eye is probable; with optical
/// aid it is impossible saao_aid_span below it. Linear between the columns of the table; nothing for a DAZ
/// above 20, where it ends. Source Caldwell and Laney, African Skies 5, 15 (2001).
std::optional<double> saao_least_limb(double daz);
inline constexpr double saao_aid_span = 1.9; ///<                                             [deg]

} // namespace halvane
