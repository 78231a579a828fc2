#pragma once

#include <optional>

namespace halvane {

/// The criteria of crescent visibility as plain functions of published quantities. All of them are
/// topocentric and airless: ARCV, altitude of the Moon less that of the Sun [deg]; W, width of the crescent
/// [arc minutes]; DAZ, difference of the azimuths without its sign [deg].

/// What a point of the map shows.
enum class VisibilityClass {
    unknown = 1,      ///< an event is missing or out of order
    impossible = 2,   ///< the Moon sets first, or the conjunction is still to come
    not_possible = 3, ///< below every line: nothing is painted
    optical_aid = 4,
    second_band = 5,
    third_band = 6, ///< Yallop only
    easily_visible = 7,
};

enum class Criterion { vesk, yallop, saao };

/// Height above the line of "Vesk Criteria": V, printed as "q".
double vesk_value(double arcv, double width);
VisibilityClass vesk_class(double value);
/// The verdict of the report.
const char* vesk_sentence(double value);

/// Yallop's q.
/// Source Yallop, NAO Technical Note 69 (1997).
double yallop_value(double arcv, double width);
/// No class for exactly -0.232: the published bands leave it out.
std::optional<VisibilityClass> yallop_class(double q);

/// Apparent altitude of the Moon's lower limb from its airless altitude and semidiameter       [deg]
/// Source Saemundsson, Sky and Telescope 72, 70 (1986) (refraction).
double apparent_lower_limb(double altitude, double semidiameter);
/// `limb` is the apparent altitude of the lower limb at sunset or sunrise [deg].
/// Source Caldwell and Laney, African Skies 5, 15 (2001).
VisibilityClass saao_class(double limb, double daz);

} // namespace halvane
