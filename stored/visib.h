#pragma once

#include <string>

namespace halvane {

/// `visib.vsk`: the choices of the crescent visibility panel, in the order of the file.
struct CrescentSettings {
    std::string day = "1";           ///< Gregorian day of the approximate date
    std::string month = "1";         ///< Gregorian month
    std::string year = "2026";       ///< Gregorian year
    bool new_crescent = true;        ///< false: old crescent
    bool geocentric = false;         ///< false: topocentric
    bool day_of_conjunction = false; ///< calculate for the day of the conjunction
    bool one_day = true;             ///< one day after (new) or before (old) it
    bool two_days = false;           ///< two days after or before it
    bool at_sun = false;             ///< at sunset (new) or sunrise (old)
    bool at_moon = false;            ///< at moonset (new) or moonrise (old)
    bool at_best_time = true;        ///< at Best Time
    bool at_user_time = false;       ///< at the time of the next two fields
    std::string user_hour = "18";    ///< local clock [h]
    std::string user_minute = "0";   ///< local clock [min]
    bool gregorian = true;           ///< the date is entered in the Gregorian calendar; decides
    bool hijri = false;              ///< the date is entered in the Hijri calendar
    int hijri_month = 0;             ///< index of the Hijri month, 0 for Muharram
    std::string hijri_year = "1448"; ///< Hijri year

    bool operator==(const CrescentSettings&) const = default;
};

/// The stored choices. Reads `visib.vsk`. The reference holds until the next read or write.
/// Error  raises RunTimeFailure for a missing or damaged file.
const CrescentSettings& read_visib();

/// Rewrites `visib.vsk` whole.
void write_visib(const CrescentSettings& settings);

} // namespace halvane
