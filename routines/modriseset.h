// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/taggedtime.h"

#include <optional>
#include <string_view>

namespace halvane {

/// Altitude of the Sun and of the Moon at rise and set with the dip of the horizon always included, as the
/// last modriseset of that body left it [deg]. Written by modriseset only.
extern double sunhorizonalt;
extern double moonhorizonalt;

/// Depression that takes the place of both stored twilight angles while it holds a value [deg]. Raised by the
/// high-latitude method through a SwitchGuard.
extern std::optional<double> forcedtwilight;

/// The moments of one local day at which a body's altitude crosses its threshold going up and going down.
/// In     body  "Sun", "Moon", "Fajer", "Isha", "Asr"
///        jd0   Julian day of the local day's 0 h: 0 h UT of the civil date minus (zone + summer hours) / 24
/// Out    rise, set  clock hours in [0, 24), summer time included; "----" when there is none; both "Up" or
///              "Down" when the body stays above or below all day, "Bright" or "Dark" for the twilights.
///              "Fajer" and "Isha" give the morning crossing in `rise` and the evening one in `set`. For
///              "Asr" the shadow's time is `set`.
/// Reads `pref.vsk`, `loc.vsk`, the switch `tdtinput`; writes `sunhorizonalt` or `moonhorizonalt`.
/// A scan by the low series in steps of two hours, a parabola through each three altitudes, and corrections
/// (modcrc) by the medium series until one changes less than half a second.
/// Error  raises RunTimeFailure when the settings give no finite threshold.
/// Accuracy  Sun 5 s, Moon 20 s at latitudes up to 60 deg (docs/accuracy.md).
/// Source Montenbruck and Pfleger, Astronomy on the Personal Computer (search); Meeus, Astronomical
///        Algorithms, chapter "Rising, Transit, and Setting" (correction).
void modriseset(std::string_view body, double jd0, TaggedTime& rise, TaggedTime& set);

/// One correction of an event's time towards altitude `h0`.
/// In/out t          hours from `jd0`
/// In     jd0        local midnight [d]; h0 [deg]; lat, lon, east positive [deg]; body as in modriseset
/// Reads `loc.vsk` and the switch `tdtinput`.
void modcrc(double& t, double jd0, double h0, double lat, double lon, std::string_view body);

/// Fast rise and set for any place; reads no file. No refraction setting, no height, no "Up" and "Down".
/// In     jd                   0 h of the civil date, without a zone                         [d]
///        longitude, latitude  east and north positive                                       [deg]
///        body                 "Sun" or "Moon"
/// Out    rise, set            hours on the clock of the zone longitude / 15, or "----"
/// Accuracy  about half a minute (docs/accuracy.md). Reads the switch `tdtinput`.
/// Source Meeus, Astronomical Algorithms, chapter "Rising, Transit, and Setting".
void modlowriseset(double jd, double longitude, double latitude, std::string_view body, TaggedTime& rise,
                   TaggedTime& set);

/// One correction of the fast search.
/// In     estimate   hours from `midnight`
///        midnight   UT1 of local midnight [d]; h0, latitude, longitude [deg]; body as above
/// Out    corrected  hours
void modvlowriseset(double estimate, double midnight, double h0, double latitude, double longitude,
                    std::string_view body, double& corrected);

/// Equatorial to horizontal for any place; reads no file.
/// In     jd [d]; right_ascension, declination, longitude, latitude                          [deg]
/// Out    altitude; azimuth, 0 north, 90 east                                                [deg]
void modlowaltazm(double jd, double right_ascension, double declination, double longitude, double latitude,
                  double& altitude, double& azimuth);

/// Root count of the last modquad call.
extern int quadroots;

/// Parabola through three ordinates at x = -1, 0, 1.
/// In     ym, y0, yp
/// Out    xe, ye        abscissa and ordinate of the extremum; 0 for a straight line
///        root1, root2  roots; with one root within -1 to 1 it is `root1`
///        nroots        roots within -1 to 1; a double root and a straight line count as none
/// Writes `quadroots`.
void modquad(double ym, double y0, double yp, double& xe, double& ye, double& root1, double& root2,
             int& nroots);

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
