// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/conjunction.h"
#include "crescent/visibilitymap.h"
#include "ephemeris/series.h"
#include "routines/namedengine.h"
#include "routines/seriesloader.h"
#include "stored/visib.h"
#include "tests/golden/goldenreport.h"

#include <gtest/gtest.h>
#include <string>

namespace halvane {

/// An approximate date with the other choices at their defaults.
inline CrescentSettings crescent_near(int day, int month, int year, bool new_crescent = true) {
    CrescentSettings settings;
    settings.day = std::to_string(day);
    settings.month = std::to_string(month);
    settings.year = std::to_string(year);
    settings.new_crescent = new_crescent;
    return settings;
}

/// The conjunction of some choices at the stored location.
inline Conjunction stored_conjunction(const CrescentSettings& settings) {
    return find_conjunction(named_ephemeris(), read_crescent_records(settings));
}

/// The map of a conjunction near a date.
inline MapRun map_near(int day, int month, int year, CrescentKind kind, int choice, Criterion criterion) {
    MapRun run;
    run.criterion = criterion;
    run.kind = kind;
    run.conjunction =
        map_conjunction(named_ephemeris(), stored_conjunction(crescent_near(day, month, year)).dynamical);
    run.day = map_day(run.conjunction, kind, choice);
    return run;
}

/// A program folder with the delivered stored files, and the series loaded.
class CrescentTest : public ::testing::Test {
protected:
    CrescentTest() { load_series(); }
    TemporaryProgramFolder folder;
};

} // namespace halvane
