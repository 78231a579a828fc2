// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/modjul.h"
#include "finemap/worldoutline.h"
#include "hijri/hijrimonths.h"
#include "hijri/mainland.h"
#include "routines/seriesloader.h"
#include "tests/support/programfolder.h"
#include "timetable/csvtable.h"

#include <cmath>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace halvane {

/// A file that stands beside the tests of this folder.
inline std::string text_beside(const std::string& path) {
    std::ifstream file(std::string(HALVANE_TESTS) + path);
    EXPECT_TRUE(file) << path;
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

/// The day number of "2026-02-18".
inline double day_number_of(const std::string& iso) {
    double jd = 0;
    modjul(std::stod(iso.substr(0, 4)), std::stod(iso.substr(5, 2)), std::stod(iso.substr(8, 2)), 12, jd);
    return std::floor(jd);
}

/// A program folder with the series loaded, for months of rules.
class MonthsOfRule : public testing::Test {
protected:
    MonthsOfRule() { load_series(); }

    static HijriPlace makkah() { return {"Makkah", 39.8256, 21.4267, 0, 3}; }
    static HijriPlace kuala_lumpur() { return {"Kuala Lumpur", 101.6867, 3.1411, 0, 8}; }
    static HijriPlace rabat() { return {"Rabat", -6.8325, 34.0133, 0, 0}; }
    static HijriPlace amman() { return {"Amman", 35.93, 31.95, 0, 3}; }
    static HijriPlace tromso() { return {"Tromso", 18.95, 69.65, 0, 1}; }

    static HijriSettings settings_of(const char* rule, const HijriPlace& place = makkah(),
                                     const char* criterion = "yallop-1997") {
        HijriSettings settings;
        settings.rule = hijri_rule(rule);
        settings.place = place;
        settings.criterion = catalogued_criterion(criterion);
        settings.seen_class = settings.criterion->by_eye;
        settings.americas = mainland_of_the_americas(read_world_outline());
        return settings;
    }

    static std::vector<HijriMonth> months_of(const HijriSettings& settings, int first_year, int last_year) {
        NoProgress progress;
        return hijri_months(loaded_theory(), settings, HijriMonthNumber::of(first_year, 1),
                            HijriMonthNumber::of(last_year, 12), progress)
            .value();
    }

    static std::vector<HijriMonth> months_of(const HijriSettings& settings, HijriMonthNumber month) {
        NoProgress progress;
        return hijri_months(loaded_theory(), settings, month, month, progress).value();
    }

    TemporaryProgramFolder folder;
};

} // namespace halvane
