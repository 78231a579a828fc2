// SPDX-License-Identifier: MIT
#include "routines/crescentday.h"

#include "routines/namedengine.h"
#include "settings/enginesettings.h"

namespace halvane {

double conjunctionstart = 0;
CrescentKind crescentkind = CrescentKind::new_crescent;
int crescentmode = 0;
double crescentjd = 0;
int summeractive = 0;
DayEvents crescentevents;

namespace {

template <class Take>
void take_events(Take take) {
    const Preferences preferences = read_pref();
    const Location location = read_loc();
    take(named_ephemeris(), Instant::of_ut1(crescentjd - (location.zone + summeractive) / 24),
         observer_of(location), horizon_of(preferences, location), crescentevents);
}

} // namespace

void cmdcom_for_crescent() {
    take_events(take_sun_events);
}

void cmdmoon_for_crescent() {
    take_events(take_moon_events);
}

} // namespace halvane
