// SPDX-License-Identifier: MIT
#include "routines/modcoordinates.h"

#include "ephemeris/coordinates.h"
#include "routines/namedengine.h"

namespace halvane {

namespace {

void hand_out(const TopocentricPlace& place, double& longitude, double& latitude, double& semidiameter,
              double& topocentric_semidiameter, double& parallax) {
    longitude = place.longitude;
    latitude = place.latitude;
    semidiameter = place.semidiameter;
    topocentric_semidiameter = place.topocentric_semidiameter;
    parallax = place.parallax;
}

} // namespace

void modearthglobe(double latitude, double height, double& rho_sine, double& rho_cosine) {
    const GeocentricRadius radius = geocentric_radius(latitude, height);
    rho_sine = radius.sine;
    rho_cosine = radius.cosine;
}

void modecltopo(double /*pi_value*/, double jd, double obliquity, double nutation, double longitude,
                double latitude, double distance, double& topocentric_longitude, double& topocentric_latitude,
                double& semidiameter, double& topocentric_semidiameter, double& parallax, char body) {
    hand_out(topocentric_place(stored_observer(), sky_frame(named_instant(jd), obliquity, nutation),
                               longitude, latitude, distance, body),
             topocentric_longitude, topocentric_latitude, semidiameter, topocentric_semidiameter, parallax);
}

void modecltopolow(double observer_longitude, double observer_latitude, double /*pi_value*/, double jd,
                   double obliquity, double nutation, double longitude, double latitude, double distance,
                   double& topocentric_longitude, double& topocentric_latitude, double& semidiameter,
                   double& topocentric_semidiameter, double& parallax, char body) {
    const Observer observer = observer_at(observer_longitude, observer_latitude, 0);
    hand_out(topocentric_place(observer, sky_frame(named_instant(jd), obliquity, nutation), longitude,
                               latitude, distance, body),
             topocentric_longitude, topocentric_latitude, semidiameter, topocentric_semidiameter, parallax);
}

void modeclequa(double /*pi_value*/, double /*jd*/, double obliquity, double longitude, double latitude,
                double& right_ascension, double& declination) {
    equatorial_of(obliquity, longitude, latitude, right_ascension, declination);
}

void modaltazm(double jd, double right_ascension, double declination, double& altitude, double& azimuth) {
    altazm_of(named_ephemeris(), named_instant(jd), stored_observer(), right_ascension, declination, altitude,
              azimuth);
}

void modaltazmequa(double jd, double altitude, double azimuth, double& right_ascension, double& declination) {
    equatorial_of_altazm(named_ephemeris(), named_instant(jd), stored_observer(), altitude, azimuth,
                         right_ascension, declination);
}

void modrefraction(double altitude, double& corrected) {
    corrected = refracted(altitude);
}

void modequinox2000(double jd, double right_ascension, double declination, double& right_ascension_2000,
                    double& declination_2000) {
    precess_to_j2000(named_instant(jd), right_ascension, declination, right_ascension_2000, declination_2000);
}

} // namespace halvane
