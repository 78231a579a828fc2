// SPDX-License-Identifier: MIT
#include "routines/namedengine.h"

#include "routines/seriesloader.h"
#include "routines/tdtinput.h"
#include "settings/enginesettings.h"

#include <optional>

namespace halvane {

Ephemeris& named_ephemeris() {
    static TheoryPointer theory;
    static std::optional<Ephemeris> ephemeris;
    if (theory != loaded_theory()) {
        theory = loaded_theory();
        ephemeris.emplace(theory);
    }
    return *ephemeris;
}

Instant named_instant(double jd) {
    return {jd, tdtinput == 1 ? TimeScale::dynamical : TimeScale::ut1};
}

const Observer& stored_observer() {
    static Observer observer;
    static unsigned version = 0;
    const Location& location = read_loc();
    if (version != loc_version()) {
        observer = observer_of(location);
        version = loc_version();
    }
    return observer;
}

} // namespace halvane
