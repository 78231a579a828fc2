// SPDX-License-Identifier: MIT
#include "report/head.h"

#include <gtest/gtest.h>
#include <string>

namespace halvane {
namespace {

template <class Write>
std::string written(Write write) {
    Report report;
    write(report);
    return report.content();
}

TEST(ReportHead, HasThreeCentredLines) {
    EXPECT_EQ(written([](Report& report) { write_title(report, 26); }),
              "                         By the Name of Allah\r\n"
              "                  Tarsine Sky Circle\r\n"
              "                   Halvane 5.3, By Orlan Vesk\r\n"
              "\r\n"
              "* Settings:-\r\n");
}

TEST(ReportHead, PrintsDates) {
    EXPECT_EQ(date_text({2026, 2, 8}), "08/02/2026");
    EXPECT_EQ(date_text({-5, 12, 31}), "31/12/-5");
    EXPECT_EQ(date_text({0, 1, 1}), "01/01/") << "the year's pattern has no zero";
    EXPECT_EQ(written([](Report& report) {
                  write_days(report, true, "Moon Times", {2026, 2, 8}, {2026, 2, 9}, " CE", " CE");
              }),
              "- Moon Times for:  08/02/2026 CE\r\n");
    EXPECT_EQ(written([](Report& report) {
                  write_days(report, false, "Prayer times", {2026, 2, 8}, {2026, 2, 9}, " CE", " CE");
              }),
              "- Prayer times from:  08/02/2026 CE   To:  09/02/2026 CE\r\n");
}

TEST(ReportHead, PrintsThePlaceWithTheSignOnTheDegrees) {
    Location place;
    place.name = "ريو, Rio";
    place.longitude_degrees = 43;
    place.longitude_minutes = 10;
    place.longitude_seconds = 12.25;
    place.latitude_degrees = 5;
    place.latitude_minutes = 4;
    place.latitude_seconds = 3;
    place.east = place.north = false;
    place.elevation = -12.35;
    place.zone = -3.5;
    EXPECT_EQ(written([&](Report& report) { write_location(report, place); }),
              "- ريو, Rio, Long: -43:10:12.2, Lat: -05:04:03.0, Ele:-12.3, Zone:-3.50\r\n");
    EXPECT_EQ(written([&](Report& report) { write_location(report, place, false); }),
              "- ريو, Rio, Long: -43:10:12.2, Lat: -05:04:03.0, Zone:-3.50\r\n");
}

TEST(ReportHead, PrintsSummerTimeAirAndDeltaT) {
    Preferences preferences;
    EXPECT_EQ(written([&](Report& report) { write_summer_time(report, preferences); }),
              "- No Summer Time.\r\n");
    preferences.summer_time = "1";
    EXPECT_EQ(written([&](Report& report) { write_summer_time(report, preferences); }),
              "- Summer time is from:  01/04   To:  01/10\r\n");
    Location place;
    place.temperature = -5.5;
    EXPECT_EQ(written([&](Report& report) { write_refraction(report, place); }),
              "- Refraction Settings: Temperature: -5.5 °C   Pressure: 1010 mb\r\n");
    EXPECT_EQ(written([](Report& report) { write_delta_t(report, "75.4"); }),
              "- Delta T: 75.4 Second(s)\r\n");
}

TEST(ReportTail, HasItsRemarks) {
    EXPECT_EQ(written([](Report& report) {
                  write_remarks_title(report);
                  write_date_remarks(report);
              }),
              "* Remarks:-\r\n- Date format: dd/mm/yyyy.\r\n"
              "- The Symbol '*' before the date, refers to Summer Time.\r\n");
}

} // namespace
} // namespace halvane
