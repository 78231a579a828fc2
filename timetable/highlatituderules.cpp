// SPDX-License-Identifier: MIT
#include "timetable/highlatituderules.h"

namespace halvane {
namespace {

constexpr double degrees_of_whole_night = 60;

SkyTime borrowed(SkyTime time) {
    time.source = TimeSource::nearest_latitude;
    return time;
}

} // namespace

std::optional<NightParts> night_parts(HighLatitudeRule rule, double fajer_angle, double isha_angle) {
    switch (rule) {
    case HighLatitudeRule::middle:
        return NightParts{1.0 / 2, 1.0 / 2, TimeSource::middle};
    case HighLatitudeRule::seventh:
        return NightParts{1.0 / 7, 1.0 / 7, TimeSource::seventh};
    case HighLatitudeRule::angle:
        return NightParts{fajer_angle / degrees_of_whole_night, isha_angle / degrees_of_whole_night,
                          TimeSource::angle};
    case HighLatitudeRule::none:
    case HighLatitudeRule::nearest_latitude:
    case HighLatitudeRule::share:
    case HighLatitudeRule::year:
        break;
    }
    return std::nullopt;
}

std::optional<NightParts> night_shares(const Night& night) {
    if (!night.sunset || !night.sunrise || !night.fajer || !night.isha)
        return std::nullopt;
    const double length = *night.sunrise.hours - *night.sunset.hours;
    return NightParts{(*night.sunrise.hours - *night.fajer.hours) / length,
                      (*night.isha.hours - *night.sunset.hours) / length, TimeSource::share};
}

void take_parts(Night& night, const NightParts& parts, RuleUse use, bool with_isha) {
    if (!night.sunset || !night.sunrise)
        return;
    const double length = *night.sunrise.hours - *night.sunset.hours;
    const double fajer = *night.sunrise.hours - parts.fajer * length;
    const double isha = *night.sunset.hours + parts.isha * length;
    const auto speaks = [use](const SkyTime& time, bool beyond) {
        return use == RuleUse::always || !time || (use == RuleUse::beyond && beyond);
    };
    if (speaks(night.fajer, night.fajer && *night.fajer.hours < fajer))
        night.fajer = {fajer, parts.source};
    if (with_isha && speaks(night.isha, night.isha && *night.isha.hours > isha))
        night.isha = {isha, parts.source};
}

void take_clock(Night& night, const Night& lower, RuleUse use, bool with_isha) {
    if (use == RuleUse::always || !night.fajer)
        night.fajer = borrowed(lower.fajer);
    if (with_isha && (use == RuleUse::always || !night.isha))
        night.isha = borrowed(lower.isha);
}

} // namespace halvane
