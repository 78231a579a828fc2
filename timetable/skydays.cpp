// SPDX-License-Identifier: MIT
#include "timetable/skydays.h"

#include "calendar/civildate.h"
#include "calendar/modjul.h"
#include "calendar/modsummer.h"
#include "prayer/highlatitude.h"
#include "timetable/clockunits.h"

#include <algorithm>

namespace halvane {
namespace {

/// The smaller of a year's offsets in its two halves.
int standard_offset(const TimeZone& zone, double year) {
    const auto on = [&](double month) {
        double jd = 0;
        modjul(year, month, 1, 0, jd);
        return zone.offset_on(jd);
    };
    return std::min(on(1), on(7));
}

bool works_by_year(const TimetableSettings& settings) {
    if (settings.profile.high_latitude != HighLatitudeRule::year)
        return false;
    const double latitude = latitude_of(settings.place.location);
    return latitude > lowest_alternative_latitude && latitude <= highest_alternative_latitude;
}

} // namespace

DayClock clock_on(const TimetablePlace& place, double jd) {
    if (!place.zone)
        return {place.location.zone, summer_hours_of(place.preferences, jd)};
    const int offset = place.zone->offset_on(jd);
    const bool summer = offset - standard_offset(*place.zone, civil_date(jd).year) == seconds_of_hour;
    return {static_cast<double>(offset) / seconds_of_hour - (summer ? 1 : 0), summer ? 1 : 0};
}

std::unique_ptr<SkyDays> sky_days(Ephemeris& ephemeris, const TimetableSettings& settings) {
    return settings.profile.preferences || works_by_year(settings) ? report_days(ephemeris, settings)
                                                                   : rule_days(ephemeris, settings);
}

} // namespace halvane
