// SPDX-License-Identifier: MIT
#include "routines/modriseset.h"

#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"
#include "events/correction.h"
#include "events/hourangle.h"
#include "events/lowriseset.h"
#include "events/parabola.h"
#include "routines/namedengine.h"
#include "settings/enginesettings.h"

#include <cmath>

namespace halvane {

double sunhorizonalt = 0;
double moonhorizonalt = 0;
std::optional<double> forcedtwilight;
int quadroots = 0;

namespace {

Target target_of(std::string_view body) {
    if (body == "Sun")
        return Target::sun;
    if (body == "Moon")
        return Target::moon;
    if (body == "Fajer")
        return Target::fajer;
    return body == "Isha" ? Target::isha : Target::aser;
}

Body body_of(std::string_view body) {
    return body == "Moon" ? Body::moon : Body::sun;
}

} // namespace

void modriseset(std::string_view body, double jd0, TaggedTime& rise, TaggedTime& set) {
    Horizon horizon = horizon_of(read_pref(), read_loc());
    horizon.fajer_angle = forcedtwilight.value_or(horizon.fajer_angle);
    horizon.isha_angle = forcedtwilight.value_or(horizon.isha_angle);
    const Target target = target_of(body);
    const RiseSet found =
        find_rise_set(named_ephemeris(), target, named_instant(jd0), stored_observer(), horizon);
    if (target == Target::sun)
        sunhorizonalt = found.horizon_altitude;
    if (target == Target::moon)
        moonhorizonalt = found.horizon_altitude;
    rise = found.rise;
    set = found.set;
}

void modcrc(double& t, double jd0, double h0, double lat, double lon, std::string_view body) {
    // The altitude is that of the stored observer.
    t = corrected_hours(named_ephemeris(), body_of(body), named_instant(jd0), stored_observer(), t, h0,
                        {lon, std::cos(lat * radians_per_degree)});
}

void modlowaltazm(double jd, double right_ascension, double declination, double longitude, double latitude,
                  double& altitude, double& azimuth) {
    altazm_of(named_ephemeris(), named_instant(jd), observer_at(longitude, latitude, 0), right_ascension,
              declination, altitude, azimuth);
}

void modvlowriseset(double estimate, double midnight, double h0, double latitude, double longitude,
                    std::string_view body, double& corrected) {
    corrected = low_corrected_hours(named_ephemeris(), body_of(body), named_instant(midnight),
                                    observer_at(longitude, latitude, 0), estimate, h0);
}

void modlowriseset(double jd, double longitude, double latitude, std::string_view body, TaggedTime& rise,
                   TaggedTime& set) {
    const RiseSet found = low_rise_set(named_ephemeris(), body_of(body), named_instant(jd),
                                       observer_at(longitude, latitude, 0));
    rise = found.rise;
    set = found.set;
}

void modquad(double ym, double y0, double yp, double& xe, double& ye, double& root1, double& root2,
             int& nroots) {
    const Parabola parabola = parabola_through(ym, y0, yp);
    xe = parabola.extremum_x;
    ye = parabola.extremum_y;
    nroots = quadroots = parabola.roots_within;
    if (!parabola.has_roots)
        return;
    root1 = parabola.root1;
    root2 = parabola.root2;
}

void modhourangle(double lat, double dec, double azimuth, double& h1, int& flag1, double& h2, int& flag2) {
    const std::optional<AzimuthRoots> roots = hour_angles_at(lat, dec, azimuth);
    flag1 = roots && roots->first.valid ? 0 : -1;
    flag2 = roots && roots->second.valid ? 0 : -1;
    if (!roots)
        return;
    h1 = roots->first.hour_angle;
    h2 = roots->second.hour_angle;
}

} // namespace halvane
