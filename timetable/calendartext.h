// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace halvane {

// The text of a calendar file (RFC 5545).

/// A value of the type TEXT (3.3.11).
std::string calendar_value(const std::string& text);

/// "20260218", by the Gregorian calendar also before 1582. In     jd  0 h of the civil date      [d]
/// Error  raises RunTimeFailure outside the years 1 to 9999.
std::string calendar_date(double jd);

/// "20260218T020500Z" of seconds since 1970                                                        [s]
std::string calendar_moment(std::int64_t utc);

/// "319500n359333e": a place in the name of an event, to ten-thousandths of a degree       [deg]
std::string calendar_place(double latitude, double longitude);

/// A calendar as it grows: its head, the lines that are put behind it, its end.
class CalendarText {
public:
    /// In     name  of the calendar; not escaped
    explicit CalendarText(const std::string& name);

    /// Puts a content line behind the others, folded (3.1).
    void line(std::string_view content);

    /// The whole text; the calendar is then used up.
    std::string finished();

private:
    std::string text_;
};

} // namespace halvane
