#pragma once

#include "calendar/switchguard.h"
#include "events/taggedtime.h"

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

/// Dip of the horizon for a height above sea level, negative below it                     [m -> deg]
double horizon_dip(double height);

/// Refraction at the horizon by the stored pressure [mb] and temperature [deg C]; the pair 1010 and 10 is the
/// standard one                                                                           [deg]
double horizon_refraction(double pressure, double temperature);

} // namespace halvane
