#include "crescent/criteria.h"

#include "ephemeris/modgeneral.h"

#include <cmath>

namespace halvane {
namespace {

/// The part of the lines that Yallop and "Vesk Criteria" share: -0.1018 W^3 + 0.7319 W^2 - 6.3226 W.
double line_of_width(double width) {
    return width * (-6.3226 + width * (0.7319 - 0.1018 * width));
}

} // namespace

double vesk_value(double arcv, double width) {
    return arcv - (line_of_width(width) + 7.1651);
}

VisibilityClass vesk_class(double value) {
    if (value >= 5.65)
        return VisibilityClass::easily_visible;
    if (value >= 2)
        return VisibilityClass::second_band;
    return value >= -0.97 ? VisibilityClass::optical_aid : VisibilityClass::not_possible;
}

const char* vesk_sentence(double value) {
    switch (vesk_class(value)) {
    case VisibilityClass::easily_visible:
        return "Easily Visible By Naked Eye.";
    case VisibilityClass::second_band:
        return "Visible With Optical Aid, Could Be Seen By Naked Eye.";
    case VisibilityClass::optical_aid:
        return "Visible With Optical Aid Only.";
    default:
        return "Not Visible Even With Optical Aid.";
    }
}

double yallop_value(double arcv, double width) {
    return (arcv - (11.8371 + line_of_width(width))) / 10;
}

std::optional<VisibilityClass> yallop_class(double q) {
    if (q > 0.216)
        return VisibilityClass::easily_visible;
    if (q > -0.014)
        return VisibilityClass::third_band;
    if (q > -0.16)
        return VisibilityClass::second_band;
    if (q > -0.232)
        return VisibilityClass::optical_aid;
    if (q < -0.232)
        return VisibilityClass::not_possible;
    return std::nullopt;
}

double apparent_lower_limb(double altitude, double semidiameter) {
    const double h = altitude - semidiameter;
    if (h + 5.11 == 0)
        return h; // the formula has a pole here, far below the horizon
    return h + 1.02 / std::tan((h + 10.3 / (h + 5.11)) * radians_per_degree) / 60;
}

VisibilityClass saao_class(double limb, double daz) {
    const double line = 0.0004 * daz * daz * daz - 0.0157 * daz * daz - 0.0145 * daz;
    if (limb - (line + 8.1912) >= 0)
        return VisibilityClass::easily_visible;
    return limb - (line + 6.2912) >= 0 ? VisibilityClass::optical_aid : VisibilityClass::not_possible;
}

} // namespace halvane
