// SPDX-License-Identifier: MIT
#include "tests/timetable/handmadetimetable.h"
#include "timetable/timetablefiles.h"

#include <gtest/gtest.h>

namespace halvane {
namespace {

constexpr const char* head = "d_date,fajr_begins,fajr_jamah,sunrise,zuhr_begins,zuhr_jamah,asr_mithl_1,"
                             "asr_mithl_2,asr_jamah,maghrib_begins,maghrib_jamah,isha_begins,isha_jamah,"
                             "is_ramadan,hijri_date\n";

TEST(DisplayTable, HoldsTheColumnsOfScreens) {
    Timetable timetable = handmade_timetable();
    timetable.rows[0].hijri = {1447, 8, 30};
    timetable.rows[1].iqamah[DayTime::dhohur] = clock_of_row(12, 10);
    timetable.rows[2].iqamah[DayTime::dhohur] = clock_of_row(12, 10);
    timetable.rows[2].iqamah[DayTime::isha] = clock_of_row(19, 0);
    EXPECT_EQ(display_csv_of(timetable),
              std::string(head) +
                  "2026-02-18,05:10,,06:30,11:51,,15:00,15:45,,17:24,,18:40,,0,1447-08-30\n"
                  "2026-02-19,05:09,,06:29,11:51,12:10,15:01,15:46,,17:25,,18:41,,1,1447-09-02\n"
                  "2026-02-20,05:08,,06:28,11:51,12:10,15:02,15:47,,17:26,,18:42,19:00,1,1447-09-03\n");
}

TEST(DisplayTable, HoldsTheFirstJumuahInPlaceOfDhohur) {
    Timetable timetable = handmade_timetable();
    timetable.rows.erase(timetable.rows.begin(), timetable.rows.begin() + 2);
    timetable.rows[0].iqamah[DayTime::dhohur] = clock_of_row(12, 10);
    timetable.rows[0].jumuah = {clock_of_row(12, 30), clock_of_row(13, 30)};
    EXPECT_EQ(display_csv_of(timetable),
              std::string(head) +
                  "2026-02-20,05:08,,06:28,11:51,12:30,15:02,15:47,,17:26,,18:42,,1,1447-09-03\n");
}

TEST(DisplayTable, LeavesOutWhatDoesNotExistAndRoundsSeconds) {
    Timetable timetable = handmade_timetable();
    timetable.rows.resize(1);
    timetable.to_second = true;
    TimetableRow& row = timetable.rows[0];
    row.times[DayTime::fajer] = no_time(NoEvent::bright);
    row.times[DayTime::shuroq].clock->seconds += 30;
    row.times[DayTime::dhohur].clock->seconds += 29;
    row.times[DayTime::isha].clock->seconds = 86399;
    EXPECT_EQ(display_csv_of(timetable),
              std::string(head) + "2026-02-18,,,06:31,11:51,,15:00,15:45,,17:24,,00:00,,1,1447-09-01\n");
}

} // namespace
} // namespace halvane
