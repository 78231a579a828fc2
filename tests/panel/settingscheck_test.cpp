// SPDX-License-Identifier: MIT
#include "desktop/settingscheck.h"
#include "ephemeris/series.h"
#include "routines/machineclock.h"
#include "routines/seriesloader.h"
#include "tests/support/programfolder.h"

#include <gtest/gtest.h>
#include <limits>

namespace halvane {
namespace {

/// The delivered stored files and series, on 21 June 2024.
class SettingsCheckTest : public ::testing::Test {
protected:
    SettingsCheckTest() {
        load_series();
        set_machine_time({2024, 6, 21, 15, 7, 0});
    }
    ~SettingsCheckTest() override { use_machine_clock(); }

    TemporaryProgramFolder folder_;
};

TEST_F(SettingsCheckTest, TheDeliveredRecordsAreUsable) {
    EXPECT_FALSE(refused_value(read_loc()));
    EXPECT_FALSE(refused_value(read_pref()));
    EXPECT_FALSE(refused_value(read_date()));
}

// The refraction is divided by 273 + temperature.
TEST_F(SettingsCheckTest, ATemperatureWithoutRefractionIsToBlame) {
    Location location = read_loc();
    location.temperature = -273;
    const auto refused = refused_value(location);
    ASSERT_TRUE(refused);
    EXPECT_EQ(refused->field, &Location::temperature);
    EXPECT_EQ(refused->reason, RefusalReason::no_times);
    location.temperature = -272;
    EXPECT_FALSE(refused_value(location));
}

TEST_F(SettingsCheckTest, TheFilesAndTheirReadersStayAsTheyAre) {
    const std::string loc = folder_.read("loc.vsk");
    const std::string pref = folder_.read("pref.vsk");
    const Location before = read_loc();
    const unsigned version = loc_version();
    Location location = before;
    location.temperature = -273;
    Preferences preferences = read_pref();
    preferences.fajer_angle = 12;
    EXPECT_TRUE(refused_value(location));
    EXPECT_FALSE(refused_value(preferences));
    EXPECT_EQ(read_loc(), before);
    EXPECT_NE(loc_version(), version) << "what was kept from the supposed record must not outlive it";
    EXPECT_EQ(folder_.read("loc.vsk"), loc);
    EXPECT_EQ(folder_.read("pref.vsk"), pref);
}

TEST_F(SettingsCheckTest, ANumberThatTheRecordWouldChangeIsToBlame) {
    Location location = read_loc();
    location.latitude_minutes = -2e6;
    const auto refused = refused_value(location);
    ASSERT_TRUE(refused);
    EXPECT_EQ(refused->field, &Location::latitude_minutes);
    EXPECT_EQ(refused->reason, RefusalReason::beyond_limit);
    EXPECT_EQ(refused->limit, 1e6);
}

TEST_F(SettingsCheckTest, AMarginThatIsNoNumberIsToBlame) {
    Preferences preferences = read_pref();
    preferences.add_asr = std::numeric_limits<double>::infinity();
    const auto refused = refused_value(preferences);
    ASSERT_TRUE(refused);
    EXPECT_EQ(refused->field, &Preferences::add_asr);
    EXPECT_EQ(refused->reason, RefusalReason::no_times);
}

TEST_F(SettingsCheckTest, AnotherRecordsFaultIsNotBlamedOnThisOne) {
    Location broken = read_loc();
    broken.temperature = -273;
    write_loc(broken);
    EXPECT_FALSE(refused_value(read_pref()));
}

TEST_F(SettingsCheckTest, AYearWithoutTimesIsToBlameInTheBoxThatIsInUse) {
    CalculationDate date = read_date();
    date.system_date = false;
    date.period = true;
    date.from = date.start = {2024, 1, 1};
    date.to = date.end = {200000, 1, 1};
    auto refused = refused_value(date);
    ASSERT_TRUE(refused);
    EXPECT_EQ(refused->field, &CalculationDate::to);
    EXPECT_EQ(refused->reason, RefusalReason::no_times);
    date.to.year = 1e7;
    refused = refused_value(date);
    ASSERT_TRUE(refused);
    EXPECT_EQ(refused->reason, RefusalReason::beyond_limit);
    EXPECT_EQ(refused->limit, 999999);
    date.period = false;
    date.system_date = true;
    EXPECT_FALSE(refused_value(date)) << "the machine's date needs no box";
}

} // namespace
} // namespace halvane
