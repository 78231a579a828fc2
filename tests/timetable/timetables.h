// SPDX-License-Identifier: MIT
#pragma once

#include "routines/seriesloader.h"
#include "tests/support/places.h"
#include "tests/support/programfolder.h"
#include "timetable/timetable.h"

#include <array>
#include <gtest/gtest.h>
#include <string>

namespace halvane {

/// Twenty places of the list: every continent, both hemispheres, the tropics and up to 60 degrees north.
inline constexpr std::array<const char*, 20> twenty_places{
    "Amman",        "Makkah", "Madinah", "Cairo",      "Jakarta",     "Kuala Lumpur", "Karachi",
    "Istanbul",     "London", "Oslo",    "New York",   "Los Angeles", "Sydney",       "Cape Town",
    "Buenos Aires", "Tokyo",  "Moscow",  "Casablanca", "Nairobi",     "Tehran"};

/// A program folder with the series loaded, for tests of timetables.
class TimetableTest : public testing::Test {
protected:
    TimetableTest() { load_series(); }

    /// A place on a clock that never changes.
    static TimetablePlace fixed_place(const Location& location) {
        Preferences preferences;
        preferences.summer_time = "0";
        return {location, std::nullopt, preferences, std::nullopt};
    }

    static TimetablePlace zoned_place(const Location& location, const char* zone) {
        return {location, TimeZone(zone), Preferences(), std::nullopt};
    }

    static Timetable timetable_of(const TimetablePlace& place, const Profile& profile, const DaySpan& span) {
        NoProgress progress;
        return make_timetable(loaded_theory(), {place, profile, span}, progress).value();
    }

    static TimetableRow row_of(const TimetablePlace& place, const Profile& profile, const DateNumbers& date) {
        return timetable_of(place, profile, dates_span(date, date).span).rows.front();
    }

    /// Seconds from 0 h of the row's date to a time's clock.
    static int seconds_of(const RowTime& time) { return time.clock->day * 86400 + time.clock->seconds; }

    /// The same of "01:18:46"; one of "24" and more hours is of the next date.
    static int seconds_of(const std::string& text) {
        return std::stoi(text.substr(0, 2)) * 3600 + std::stoi(text.substr(3, 2)) * 60 +
               std::stoi(text.substr(6, 2));
    }

    TemporaryProgramFolder folder;
};

} // namespace halvane
