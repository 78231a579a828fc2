// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/modjul.h"
#include "routines/seriesloader.h"
#include "tests/support/places.h"
#include "tests/support/programfolder.h"
#include "timetable/timetableplaces.h"
#include "watch/crescentwatch.h"

#include <gtest/gtest.h>
#include <variant>

namespace halvane {

inline double day_of(double year, double month, double day) {
    double jd = 0;
    modjul(year, month, day, 0, jd);
    return jd;
}

/// A program folder with the delivered files and the series loaded, for tests of watches.
class WatchTest : public testing::Test {
protected:
    WatchTest() { load_series(); }

    static WatchSettings settings_at(const char* place, const DateNumbers& date,
                                     CrescentKind kind = CrescentKind::new_crescent) {
        return {listed_place(place), kind, day_of(date.year, date.month, date.day)};
    }

    static CrescentWatch watch_at(const WatchSettings& settings) {
        return std::get<CrescentWatch>(crescent_watch(loaded_theory(), settings));
    }
    static CrescentWatch watch_at(const char* place, const DateNumbers& date,
                                  CrescentKind kind = CrescentKind::new_crescent) {
        return watch_at(settings_at(place, date, kind));
    }
    static NoWatch no_watch_at(const char* place, const DateNumbers& date) {
        return std::get<NoWatch>(crescent_watch(loaded_theory(), settings_at(place, date)));
    }

    TemporaryProgramFolder folder;
};

} // namespace halvane
