// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// An observer's place with what the transformations need of it.
struct Observer {
    double longitude = 0; ///< east positive                                          [deg]
    double latitude = 0;  ///< north positive                                         [deg]
    double height = 0;    ///< above sea level                                        [m]
    double sine_latitude = 0;
    double cosine_latitude = 1;
    double rho_sine = 0;   ///< rho sin phi' of the geocentric place
    double rho_cosine = 1; ///< rho cos phi'

    bool operator==(const Observer&) const = default;
};

/// The observer at a place.
Observer observer_at(double longitude, double latitude, double height);

} // namespace halvane
