#pragma once

namespace halvane {

/// Hour angles at which a body of given declination stands at a given azimuth.
/// In     lat, dec  observer's latitude, body's declination                  [deg, north positive]
///        azimuth   from north through east                                  [deg]
/// Out    h1, h2    the two candidate hour angles, west positive             [deg]
///        flag1, flag2  0 valid; -1 the body never stands there on that side of the meridian
/// Reads nothing, writes only its outputs. When the body never reaches the azimuth both flags are -1 and h1
/// and h2 keep their values.
/// Source spherical triangle pole, zenith, body, solved for the hour angle.
void modhourangle(double lat, double dec, double azimuth, double& h1, int& flag1, double& h2, int& flag2);

} // namespace halvane
