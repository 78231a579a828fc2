#pragma once

#include "ephemeris/observer.h"
#include "events/taggedtime.h"

#include <string_view>

namespace halvane {

/// Fast rise and set for any place; reads no file. No refraction setting, no height, no "Up" and "Down".
/// In     jd                   0 h of the civil date, without a zone                         [d]
///        longitude, latitude  east and north positive                                       [deg]
///        body                 "Sun" or "Moon"
/// Out    rise, set            hours on the clock of the zone longitude / 15, or "----"
/// Accuracy  about half a minute (docs/accuracy.md). Reads the switch `tdtinput`.
/// Source Meeus, Astronomical Algorithms, chapter "Rising, Transit, and Setting".
void modlowriseset(double jd, double longitude, double latitude, std::string_view body, TaggedTime& rise,
                   TaggedTime& set);

/// One of the two events for an observer.
enum class LowEvent { rise, set };
TaggedTime low_event(double jd, const Observer& observer, std::string_view body, LowEvent event);

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

/// Whole hours of the zone in whose middle a longitude lies, half to even                    [deg -> h]
double zone_of_longitude(double longitude);

} // namespace halvane
