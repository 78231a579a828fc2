// SPDX-License-Identifier: MIT
#include "ephemeris/series.h"
#include "routines/seriesloader.h"
#include "stored/coor.h"
#include "tables/ephemeristable.h"
#include "tests/golden/goldenreport.h"
#include "tests/golden/recordingprogress.h"

namespace halvane {
namespace {

class EphemerisGolden : public ::testing::Test {
protected:
    static void expect(const std::string& name, int cancelled_row = RecordingProgress::never) {
        expect_golden_report("tables/" + name, "ephemeris.out", [cancelled_row] {
            load_series();
            RecordingProgress progress(cancelled_row);
            const RunOutcome outcome = write_report(*ephemeris_run(loaded_theory(), read_coor()), progress);
            EXPECT_EQ(outcome,
                      cancelled_row == RecordingProgress::never ? RunOutcome::done : RunOutcome::cancelled);
        });
    }
};

TEST_F(EphemerisGolden, SunGeocentricUt1EveryTwoPointSevenHours) {
    expect("sun-geocentric-ut1-hours");
}

TEST_F(EphemerisGolden, SunTopocentricTdtIntervalZeroInSummerTime) {
    expect("sun-topocentric-tdt-zero-interval");
}

TEST_F(EphemerisGolden, SunTopocentricUt1OneRow) {
    expect("sun-topocentric-ut1-one-row");
}

TEST_F(EphemerisGolden, SunGeocentricTdtBeforeTheEraInDays) {
    expect("sun-geocentric-tdt-ancient-days");
}

TEST_F(EphemerisGolden, MoonTopocentricUt1EveryMinusThreeMinutes) {
    expect("moon-topocentric-ut1-minutes");
}

TEST_F(EphemerisGolden, MoonGeocentricTdtEverySecondOverMidnight) {
    expect("moon-geocentric-tdt-seconds");
}

TEST_F(EphemerisGolden, MoonGeocentricUt1ThroughAllHouses) {
    expect("moon-geocentric-ut1-all-houses");
}

TEST_F(EphemerisGolden, MoonTopocentricTdtCancelledAtTheSixthRow) {
    expect("moon-topocentric-tdt-cancelled", 6);
}

} // namespace
} // namespace halvane
