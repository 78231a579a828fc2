// SPDX-License-Identifier: MIT
#include "desktop/preferencesrules.h"

#include "base/numberformat.h"
#include "base/record.h"

#include <array>

namespace halvane {

namespace {

constexpr std::array<TwilightAuthority, 6> authorities{{
    {"1", "Standard", 18, 18, false},
    {"2", "Egyptian General Authority of Survey", 19.5, 17.5, false},
    {"3", "Islamic Society of North America", 18, 18, false},
    {"4", "Muslim World League", 18, 17, false},
    {"5", "University Of Islamic Sciences, Karachi", 18, 18, false},
    {"6", "Custom", 0, 0, true},
}};

std::string flag_text(bool flag) {
    return flag ? "1" : "0";
}

bool is_set(const std::string& flag) {
    return flag == "1";
}

} // namespace

std::span<const TwilightAuthority> twilight_authorities() {
    return authorities;
}

PreferencesRules::PreferencesRules(const Preferences& stored)
    : record_(stored), language_(stored.language()) {}

PreferencesPanel PreferencesRules::opened() const {
    PreferencesPanel panel;
    for (const TwilightAuthority& authority : authorities)
        if (record_.authority == authority.code)
            panel.authority = authority.entry;
    panel.angles = chosen(panel.authority, panel.angles);
    panel.high_latitude = record_.high_latitude == 1;
    panel.summer_time = record_.summer_time != "0";
    panel.from_month = plain_number(record_.summer_from_month);
    panel.from_day = plain_number(record_.summer_from_day);
    panel.to_month = plain_number(record_.summer_to_month);
    panel.to_day = plain_number(record_.summer_to_day);
    panel.subtract_fajer = plain_number(record_.subtract_fajer);
    panel.add_dhohur = plain_number(record_.add_dhohur);
    panel.add_asr = plain_number(record_.add_asr);
    panel.add_maghreb = plain_number(record_.add_maghreb);
    panel.elevation_fajer = is_set(record_.elevation_fajer);
    panel.elevation_setting = is_set(record_.elevation_setting);
    panel.standard_asr = is_set(record_.asr_rule);
    panel.minutes = is_set(record_.clock_precision);
    panel.language = language_;
    return panel;
}

AngleBoxes PreferencesRules::chosen(std::string_view entry, const AngleBoxes& now) const {
    for (const TwilightAuthority& authority : authorities) {
        if (entry != authority.entry)
            continue;
        const double fajer = authority.custom ? record_.fajer_angle : authority.fajer;
        const double isha = authority.custom ? record_.isha_angle : authority.isha;
        return {plain_number(fajer), plain_number(isha), authority.custom};
    }
    return now;
}

PreferencesPanel PreferencesRules::defaults(const PreferencesPanel& now) const {
    PreferencesPanel panel;
    panel.high_latitude = now.high_latitude;
    panel.elevation_setting = now.elevation_setting;
    panel.language = language_;
    return panel;
}

RefusedAngle PreferencesRules::take(const PreferencesPanel& panel) {
    record_.fajer_angle = numeric_prefix(panel.angles.fajer);
    record_.isha_angle = numeric_prefix(panel.angles.isha);
    if (record_.fajer_angle < 0)
        return RefusedAngle::fajer;
    if (record_.isha_angle < 0)
        return RefusedAngle::isha;
    record_.high_latitude = panel.high_latitude ? 1 : 0;
    record_.summer_time = flag_text(panel.summer_time);
    record_.summer_from_month = numeric_prefix(panel.from_month);
    record_.summer_from_day = numeric_prefix(panel.from_day);
    record_.summer_to_month = numeric_prefix(panel.to_month);
    record_.summer_to_day = numeric_prefix(panel.to_day);
    record_.subtract_fajer = numeric_prefix(panel.subtract_fajer);
    record_.add_dhohur = numeric_prefix(panel.add_dhohur);
    record_.add_asr = numeric_prefix(panel.add_asr);
    record_.add_maghreb = numeric_prefix(panel.add_maghreb);
    record_.elevation_fajer = flag_text(panel.elevation_fajer);
    record_.elevation_setting = flag_text(panel.elevation_setting);
    record_.asr_rule = flag_text(panel.standard_asr);
    record_.clock_precision = flag_text(panel.minutes);
    record_.set_language(panel.language);
    for (const TwilightAuthority& authority : authorities)
        if (panel.authority == authority.entry)
            record_.authority = authority.code;
    return RefusedAngle::none;
}

} // namespace halvane
