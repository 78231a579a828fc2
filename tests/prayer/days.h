// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/modjul.h"
#include "ephemeris/series.h"
#include "prayer/prayertexts.h"
#include "routines/namedengine.h"
#include "routines/seriesloader.h"
#include "stored/date.h"
#include "tests/support/programfolder.h"

#include <gtest/gtest.h>
#include <string>

namespace halvane {

/// A program folder with the series loaded, for tests of whole days.
class DayTest : public testing::Test {
protected:
    DayTest() { load_series(); }

    static double jd_of(double year, double month, double day) {
        double jd = 0;
        modjul(year, month, day, 0, jd);
        return jd;
    }

    PrayerDay day_of(const Preferences& preferences, const Location& location, double year, double month,
                     double day, DayMode mode = DayMode::report) const {
        write_pref(preferences);
        write_loc(location);
        return prayer_day(named_ephemeris(), read_prayer_settings(mode), jd_of(year, month, day), 0);
    }

    PrayerTexts texts_of_day(const Preferences& preferences, const Location& location, double year,
                             double month, double day) const {
        return texts_of(day_of(preferences, location, year, month, day).times, precision_of(preferences));
    }

    /// The days of the reports.
    void set_period(DateNumbers start, DateNumbers end) const {
        CalculationDate date;
        date.period = true;
        date.system_date = false;
        date.start = date.from = start;
        date.end = date.to = end;
        write_date(date);
    }

    static Preferences seconds() {
        Preferences preferences;
        preferences.clock_precision = "0";
        return preferences;
    }

    static double seconds_of(const std::string& clock) {
        return std::stod(clock.substr(0, 2)) * 3600 + std::stod(clock.substr(3, 2)) * 60 +
               std::stod(clock.substr(6));
    }

    TemporaryProgramFolder folder;
};

} // namespace halvane
