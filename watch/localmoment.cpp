// SPDX-License-Identifier: MIT
#include "watch/localmoment.h"

#include "calendar/civildate.h"
#include "timetable/cells.h"
#include "timetable/clockunits.h"
#include "timetable/rowtexts.h"
#include "watch/crescentwatch.h"

#include <cmath>

namespace halvane {
namespace {

LocalMoment moment_at(double universal, int offset) {
    const double midnight = start_of_date(universal);
    const int seconds = static_cast<int>(std::lround((universal - midnight) * seconds_of_day)) + offset;
    const int days = static_cast<int>(std::floor(static_cast<double>(seconds) / seconds_of_day));
    return {midnight + days, seconds - days * seconds_of_day, offset};
}

} // namespace

LocalMoment local_moment(const TimetablePlace& place, double universal) {
    return moment_at(universal, clock_offset(place, universal));
}

LocalMoment universal_moment(double universal) {
    return moment_at(universal, 0);
}

std::string clock_of(const LocalMoment& moment) {
    return clock_text({0, moment.seconds, moment.offset}, true);
}

std::string minute_of(const LocalMoment& moment) {
    const int minutes = (moment.seconds + seconds_of_minute / 2) / seconds_of_minute;
    return clock_text({0, minutes * seconds_of_minute, moment.offset}, false);
}

std::string instant_of(const LocalMoment& moment) {
    return instant_text(moment.jd, {0, moment.seconds, moment.offset});
}

} // namespace halvane
