// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/quantities.h"
#include "crescent/skyplaces.h"

namespace halvane {

/// Where a body stands over an observer's horizon, airless                                       [deg]
struct HorizonPlace {
    double altitude = 0;
    double azimuth = 0; ///< 0 to below 360, 0 north, 90 east
};

/// The sky of one instant over one place: the two bodies from the Earth's centre and from the place.
class LocalSky {
public:
    LocalSky(const SkyPlaces& places, const Observer& observer);

    /// How far the centre of a body stands above the altitude at which its upper limb is on the horizon of
    /// the sea in standard air; topocentric                                                     [deg]
    double height_over_event(Body body) const;

    /// East of the meridian negative, geocentric, -180 to 180                                   [deg]
    double hour_angle(Body body) const;
    double sine_hour_angle(Body body) const;
    /// Sine and cosine of the geocentric declination.
    double sine_declination(Body body) const;
    double cosine_declination(Body body) const;

    /// As crescent_quantities gives them of the same places.
    CrescentQuantities geocentric() const;
    CrescentQuantities topocentric() const;
    double parallax() const; ///< of the Moon, horizontal                                        [deg]

private:
    CrescentQuantities quantities(const SkyVector& moon, const SkyVector& sun, double semidiameter) const;
    HorizonPlace horizon_place(const SkyVector& place) const;
    const SkyVector& centre(Body body) const { return body == Body::sun ? places_.sun : places_.moon; }
    SkyVector from_place(Body body) const;

    SkyPlaces places_;
    SkyVector east_, north_, up_;
    SkyVector place_; ///< of the observer                                              [equatorial radii]
};

} // namespace halvane
