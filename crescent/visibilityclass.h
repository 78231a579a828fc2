// SPDX-License-Identifier: MIT
#pragma once

#include <array>

namespace halvane {

/// What a point of the map shows. A class brings its colour and its mark along, whatever criterion gives it.
enum class VisibilityClass {
    unknown = 1,      ///< an event is missing or out of order
    impossible = 2,   ///< the Moon sets first, or the conjunction is still to come
    not_possible = 3, ///< below every line of the criterion: nothing is painted
    optical_aid = 4,
    second_band = 5,
    third_band = 6,
    easily_visible = 7,
};

/// The classes with a colour of their own, in the order of their numbers.
inline constexpr std::array<VisibilityClass, 6> painted_classes{
    VisibilityClass::unknown,     VisibilityClass::impossible, VisibilityClass::optical_aid,
    VisibilityClass::second_band, VisibilityClass::third_band, VisibilityClass::easily_visible};

/// A colour of the map and of its sheet.
struct ClassColour {
    unsigned char red, green, blue;
    bool operator==(const ClassColour&) const = default;
};

/// Colour of a class; class not_possible has none of its own, see bare_map_colours.
ClassColour class_colour(VisibilityClass visibility);

/// The colour that stands for a class in a legend.
/// In     bare  the map's own colour, which class not_possible lets through
ClassColour legend_colour(VisibilityClass visibility, const ClassColour& bare);

/// The mark of a class, beside its colour: the class's number, as in the table of points.
char class_mark(VisibilityClass visibility);

} // namespace halvane
