// SPDX-License-Identifier: MIT
#include "ephemeris/observer.h"

#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"

#include <cmath>

namespace halvane {

Observer observer_at(double longitude, double latitude, double height) {
    Observer observer;
    observer.longitude = longitude;
    observer.latitude = latitude;
    observer.height = height;
    observer.sine_latitude = std::sin(latitude * radians_per_degree);
    observer.cosine_latitude = std::cos(latitude * radians_per_degree);
    const GeocentricRadius radius = geocentric_radius(latitude, height);
    observer.rho_sine = radius.sine;
    observer.rho_cosine = radius.cosine;
    return observer;
}

} // namespace halvane
