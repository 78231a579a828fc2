// SPDX-License-Identifier: MIT
#include "settings/enginesettings.h"

namespace halvane {

Observer observer_of(const Location& location) {
    return observer_at(longitude_of(location), latitude_of(location), location.elevation);
}

Horizon horizon_of(const Preferences& preferences, const Location& location) {
    Horizon horizon;
    horizon.height_counts = preferences.elevation_setting == "1";
    horizon.height = location.elevation;
    horizon.pressure = location.pressure;
    horizon.temperature = location.temperature;
    horizon.fajer_angle = preferences.fajer_angle;
    horizon.isha_angle = preferences.isha_angle;
    horizon.shadow_lengths = preferences.asr_rule == "1" ? 1 : 2;
    return horizon;
}

} // namespace halvane
