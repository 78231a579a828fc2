// SPDX-License-Identifier: MIT
#include "routines/modearthorientation.h"

#include "ephemeris/modgeneral.h"
#include "ephemeris/sunplace.h"
#include "routines/namedengine.h"

namespace halvane {

void modobliquity(double jd, double& nutation_longitude, double& nutation_obliquity, double& true_obliquity) {
    const Orientation& orientation = named_ephemeris().orientation(named_instant(jd));
    nutation_longitude = orientation.nutation_longitude;
    nutation_obliquity = orientation.nutation_obliquity;
    true_obliquity = orientation.true_obliquity;
}

namespace {

void low_orientation_at(const Instant& instant, double& nutation_obliquity, double& nutation_longitude,
                        double& true_obliquity) {
    const LowOrientation low = named_ephemeris().low_orientation(instant.dynamical() - epoch_j2000);
    nutation_longitude = low.nutation_longitude;
    nutation_obliquity = low.nutation_obliquity;
    true_obliquity = low.true_obliquity;
}

} // namespace

void modobliquitylow(double jd, double& nutation_obliquity, double& nutation_longitude,
                     double& true_obliquity) {
    low_orientation_at(named_instant(jd), nutation_obliquity, nutation_longitude, true_obliquity);
}

void modobliquityvlow(double jd, double& nutation_obliquity, double& nutation_longitude,
                      double& true_obliquity) {
    low_orientation_at(Instant::of_ut1(jd), nutation_obliquity, nutation_longitude, true_obliquity);
}

void modsiderial(double jd, double& sidereal_time) {
    sidereal_time = halvane::sidereal_time(named_ephemeris(), named_instant(jd));
}

void modsideriallow(double jd, double& sidereal_time) {
    sidereal_time = low_sidereal_time(named_ephemeris(), named_instant(jd));
}

void modlasttdt(double jd, double longitude, double obliquity, double nutation, double& sidereal_time) {
    sidereal_time = local_sidereal_time(named_instant(jd), longitude, obliquity, nutation);
}

void moddabb(double tau, double& variation) {
    variation = daily_variation(tau);
}

} // namespace halvane
