// SPDX-License-Identifier: MIT
#include "timetable/profile.h"

#include <algorithm>

namespace halvane {

bool PageSettings::shows(TimetableColumn column) const {
    return std::find(columns.begin(), columns.end(), column) != columns.end();
}

Profile neutral_profile(const Preferences& preferences) {
    Profile profile;
    profile.preferences = preferences;
    profile.fajer_angle = preferences.fajer_angle;
    profile.isha_angle = preferences.isha_angle;
    profile.hanafi = preferences.asr_rule != "1";
    profile.height_counts = preferences.elevation_setting == "1";
    profile.added[DayTime::fajer] = -preferences.subtract_fajer;
    profile.added[DayTime::dhohur] = preferences.add_dhohur;
    profile.added[DayTime::aser] = preferences.add_asr;
    profile.added[DayTime::maghreb] = preferences.add_maghreb;
    if (preferences.high_latitude == 1)
        profile.high_latitude = HighLatitudeRule::year;
    profile.seconds = precision_of(preferences) == 0;
    profile.page.language = preferences.english ? PageLanguage::english : PageLanguage::arabic;
    return profile;
}

Profile authority_profile(const Authority& authority) {
    Profile profile;
    take_authority(profile, authority);
    return profile;
}

void take_authority(Profile& profile, const Authority& authority) {
    profile.preferences.reset();
    profile.authority = authority.key;
    profile.fajer_angle = authority.fajer_angle;
    profile.isha_angle = authority.isha_minutes > 0 ? authority.fajer_angle : authority.isha_angle;
    profile.isha_minutes = authority.isha_minutes;
    profile.isha_minutes_ramadan = authority.isha_minutes_ramadan;
    profile.maghreb_angle = authority.maghreb_angle;
    profile.hanafi = authority.hanafi;
    profile.night_until_fajer = authority.night_until_fajer;
    profile.added = authority.added;
    for (Rounding& rounding : profile.rounding.values)
        rounding = authority.rounding;
}

double reference_latitude_of(const Profile& profile) {
    constexpr double clock_reference = 48.5; // where 18 degrees end at the June solstice
    constexpr double share_reference = 45;   // of the Fiqh Council's decree of 1406 AH
    if (profile.reference_latitude != 0)
        return profile.reference_latitude;
    return profile.high_latitude == HighLatitudeRule::share ? share_reference : clock_reference;
}

} // namespace halvane
