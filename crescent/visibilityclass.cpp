// SPDX-License-Identifier: MIT
#include "crescent/visibilityclass.h"

namespace halvane {

ClassColour class_colour(VisibilityClass visibility) {
    switch (visibility) {
    case VisibilityClass::unknown:
        return {0, 205, 205};
    case VisibilityClass::impossible:
        return {238, 0, 0};
    case VisibilityClass::optical_aid:
        return {0, 0, 255};
    case VisibilityClass::second_band:
        return {255, 0, 255};
    case VisibilityClass::third_band:
        return {255, 193, 37};
    case VisibilityClass::easily_visible:
        return {0, 139, 0};
    case VisibilityClass::not_possible:
        break;
    }
    return {255, 255, 255};
}

ClassColour legend_colour(VisibilityClass visibility, const ClassColour& bare) {
    return visibility == VisibilityClass::not_possible ? bare : class_colour(visibility);
}

char class_mark(VisibilityClass visibility) {
    return static_cast<char>('0' + static_cast<int>(visibility));
}

} // namespace halvane
