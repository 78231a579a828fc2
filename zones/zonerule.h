// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace halvane {

/// The rule that a zone file gives for all years after its last change, in the form of the POSIX variable TZ
/// ("CET-1CEST,M3.5.0,M10.5.0/3").
/// Source  IEEE Std 1003.1-2017, chapter 8.3; RFC 9636, section 3.3.1, for hours from -167 to 167.
class ZoneRule {
public:
    /// Nothing for a text that is not of the form.
    static std::optional<ZoneRule> read(std::string_view text);

    /// Offset from Universal Time in force at so many seconds after 1970 January 1, 0 h UT [s, east
    /// positive]. Instants beyond the year 30000 are taken as in it.
    int offset_at_second(std::int64_t utc_second) const;

private:
    enum class DayForm { weekday_of_month, day_without_leap_day, day_from_zero };
    /// A day of every year and the hour of its clock.
    struct YearlyChange {
        DayForm form = DayForm::weekday_of_month;
        int month = 1;
        int week = 1; ///< of the month; 5 is the last one
        int day = 0;  ///< weekday from Sunday, 0, or day of the year
        int seconds = 7200;
        std::int64_t local_second(int year) const;
    };
    /// Takes the parts of the text from its start.
    class Reader;

    int standard_ = 0; ///< offset                                                    [s]
    int summer_ = 0;   ///< offset                                                    [s]
    bool changes_ = false;
    YearlyChange start_; ///< of summer time, on the standard clock
    YearlyChange end_;   ///< of summer time, on the summer clock
};

} // namespace halvane
