// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "tests/timetable/handmadetimetable.h"
#include "timetable/comparetable.h"

#include <gtest/gtest.h>
#include <string>

namespace halvane {
namespace {

using enum TimetableColumn;

ForeignTable read(const std::string& text) {
    return foreign_table_of_text(text, "theirs.csv");
}

/// The words with which a table is refused.
std::string refusal_of(const std::string& text) {
    try {
        read(text);
    } catch (const RunTimeFailure& failure) {
        EXPECT_EQ(failure.parts().kind, FailureKind::damaged_file);
        return failure.what();
    }
    return "";
}

std::optional<int> seconds(int hours, int minutes, int more = 0) {
    return hours * 3600 + minutes * 60 + more;
}

// Julian day of 1 January 2026, 0 h: 2461041.5.
constexpr double february_18 = 2461041.5 + 48;

TEST(ForeignTable, HasTheColumnsOfScreens) {
    const ForeignTable table =
        read("d_date,fajr_begins,fajr_jamah,sunrise,zuhr_begins,zuhr_jamah,asr_mithl_1,"
             "asr_mithl_2,asr_jamah,maghrib_begins,maghrib_jamah,isha_begins,isha_jamah,"
             "is_ramadan,hijri_date\n"
             "2026-02-18,05:10,05:30,06:30,11:51,12:15,15:00,15:45,16:00,17:24,17:29,"
             "18:40,19:00,1,1447-09-01\n");
    EXPECT_EQ(table.columns,
              (std::vector{fajer, fajer_iqamah, shuroq, dhohur, dhohur_iqamah, aser_standard, aser_hanafi,
                           aser_iqamah, maghreb, maghreb_iqamah, isha, isha_iqamah}));
    ASSERT_EQ(table.rows.size(), 1U);
    EXPECT_EQ(table.rows[0].jd, february_18);
    EXPECT_EQ(table.rows[0].seconds[1], seconds(5, 30));
    EXPECT_FALSE(table.twelve_hours);
}

TEST(ForeignTable, KnowsTheNamesOfEveryColumnOfTimes) {
    for (const ColumnNames& names : column_names()) {
        if (names.column == date || names.column == weekday || names.column == hijri ||
            names.column == moon_phase || names.column == qiblah_sun || names.column == rules)
            continue;
        for (const char* const heading :
             {names.key, names.halvane.english, names.common.english, names.halvane.arabic}) {
            const ForeignTable table = read(std::string("date,") + heading + "\n2026-02-18,4:57\n");
            EXPECT_EQ(table.columns, std::vector{names.column}) << heading;
        }
    }
}

TEST(ForeignTable, KnowsUsualSpellings) {
    const ForeignTable table =
        read("Date;FAJR Begins;Shuruq;Zuhr;Jummah;ASR;Maghrib Iqama;Isha'a;Moon;Notes\n"
             "2026-02-18;1:01;1:02;1:03;1:04;1:05;1:06;1:07;full;none\n");
    EXPECT_EQ(table.columns, (std::vector{fajer, shuroq, dhohur, jumuah, aser, maghreb_iqamah, isha}));
    const ForeignTable arabic =
        read("التاريخ\tأذان الفجر\tاقامة الفجر\tالشروق\tظهر\tالعصر\tالمغرب\tالعشاء\tالامساك\n"
             "٢٠٢٦-٠٢-١٨\t٥:١٠\t05:30\t٦:٣٠ ص\t١١:٥١ ص\t٣:٠٠ م\t٥:٢٤ م\t٦:٤٠ م\t۰۵:۰۰\n");
    EXPECT_EQ(arabic.columns, (std::vector{fajer, fajer_iqamah, shuroq, dhohur, aser, maghreb, isha, imsak}));
    ASSERT_EQ(arabic.rows.size(), 1U);
    EXPECT_EQ(arabic.rows[0].jd, february_18);
    EXPECT_EQ(arabic.rows[0].seconds,
              (std::vector{seconds(5, 10), seconds(5, 30), seconds(6, 30), seconds(11, 51), seconds(15, 0),
                           seconds(17, 24), seconds(18, 40), seconds(5, 0)}));
}

TEST(ForeignTable, ReadsClocksOfEveryForm) {
    const ForeignTable table = read("\xEF\xBB\xBF"
                                    "date,fajr\r\n"
                                    "2026-02-01,4:57\r\n"
                                    "2026-02-02,04:57:30\r\n"
                                    "2026-02-03,4:57 AM\r\n"
                                    "2026-02-04,4:57pm\r\n"
                                    "2026-02-05,16.57\r\n"
                                    "2026-02-06,\r\n"
                                    "2026-02-07,--:--\r\n"
                                    "2026-02-08,12:05 a.m.\r\n"
                                    "2026-02-09, 12:05 PM \r\n"
                                    "2026-02-10,bright\r\n"
                                    ",\r\n");
    std::vector<std::optional<int>> found;
    for (const ForeignTable::Row& row : table.rows)
        found.push_back(row.seconds.at(0));
    EXPECT_EQ(found, (std::vector<std::optional<int>>{
                         seconds(4, 57), seconds(4, 57, 30), seconds(4, 57), seconds(16, 57), seconds(16, 57),
                         std::nullopt, std::nullopt, seconds(0, 5), seconds(12, 5), std::nullopt}));
}

TEST(ForeignTable, ReadsDatesThatLeaveNoDoubt) {
    const auto dates_of = [](const std::string& text) {
        std::vector<double> dates;
        for (const ForeignTable::Row& row : read(text).rows)
            dates.push_back(row.jd - february_18);
        return dates;
    };
    EXPECT_EQ(dates_of("date,fajr\n18/02/2026,5:10\n01/03/2026,5:00\n"), (std::vector<double>{0, 11}));
    EXPECT_EQ(dates_of("date,fajr\n02/18/2026,5:10\n03/01/2026,5:00\n"), (std::vector<double>{0, 11}));
    EXPECT_EQ(dates_of("date,fajr\n18.2.2026,5:10\n2026/02/19,5:00\n"), (std::vector<double>{0, 1}));
    EXPECT_NE(refusal_of("date,fajr\n01/02/2026,5:10\n").find("line 2: no date"), std::string::npos);
    EXPECT_NE(refusal_of("date,fajr\n18/02/2026,5:10\n02/19/2026,5:10\n").find("line 3"), std::string::npos);
}

TEST(ForeignTable, TellsWhatItCannotRead) {
    EXPECT_EQ(refusal_of("day,fajr\n2026-02-18,5:10\n"),
              "theirs.csv, line 1: no column of dates is found (\"date\").");
    EXPECT_NE(refusal_of("date,breakfast\n2026-02-18,5:10\n").find("line 1: no column of times"),
              std::string::npos);
    EXPECT_EQ(refusal_of("date,fajr\n2026-02-18,5:10\n2026-02-19,soon\n"),
              "theirs.csv, line 3: a time cannot be read: \"soon\".");
    for (const char* const clock : {"25:00", "24:01", "2157484:57", "4:60", "4:5", "4:57:3", "457",
                                    "13:00 PM", "0:10 AM", "4:57 XM", "-4:57", "4:57:30:10", "16.5"})
        EXPECT_NE(refusal_of(std::string("date,fajr\n2026-02-18,") + clock + "\n").find(clock),
                  std::string::npos)
            << clock;
    for (const char* const date :
         {"", "soon", "2026-02-30", "2026-13-01", "18/02/26", "2026-02", "31/02/2026"})
        EXPECT_NE(refusal_of(std::string("date,fajr\n") + date + ",5:10\n").find("line 2: a date"),
                  std::string::npos)
            << date;
    EXPECT_EQ(refusal_of("date,fajr,FAJR\n2026-02-18,5:10,5:10\n"),
              "theirs.csv, line 1: two columns are of Fajr.");
    EXPECT_EQ(refusal_of("date,fajr\n2026-02-18,5:10\n2026-02-18,5:10\n"),
              "theirs.csv, line 3: its date stands in line 2 too.");
}

/// Days from 18 February on, whose Isha is at 18:40 and whose Jumu'ah at 12:30.
Timetable days_of_one_isha(int days) {
    Timetable timetable = handmade_timetable();
    const TimetableRow first = timetable.rows.front();
    timetable.rows.clear();
    for (int i = 0; i < days; ++i) {
        timetable.rows.push_back(first);
        timetable.rows.back().jd += i;
        timetable.rows.back().jumuah = {clock_of_row(12, 30)};
    }
    return timetable;
}

/// A table from 18 February on with these clocks under a heading.
ForeignTable table_of(const std::string& heading, const std::vector<std::string>& clocks) {
    std::string text = "date," + heading + '\n';
    for (std::size_t i = 0; i < clocks.size(); ++i)
        text += "2026-02-" + std::to_string(18 + i) + ',' + clocks[i] + '\n';
    return read(text);
}

TEST(TableComparison, CountsMinutes) {
    // Differences 1, 2, 2, 3, 7: their median is 2, mean 3, quartiles 2 and 3.
    const TableComparison comparison = compare_table(
        table_of("isha", {"18:41", "18:47", "18:42", "18:42", "18:43", "", "18:40"}), days_of_one_isha(6));
    EXPECT_EQ(comparison.days, 6);
    EXPECT_EQ(comparison.first, february_18);
    EXPECT_EQ(comparison.last, february_18 + 5);
    ASSERT_EQ(comparison.columns.size(), 1U);
    const ColumnComparison& column = comparison.columns[0];
    EXPECT_EQ(column.column, isha);
    EXPECT_EQ(column.compared, 5);
    EXPECT_DOUBLE_EQ(column.median, 2);
    EXPECT_DOUBLE_EQ(column.mean, 3);
    EXPECT_DOUBLE_EQ(column.least, 1);
    EXPECT_DOUBLE_EQ(column.greatest, 7);
    EXPECT_DOUBLE_EQ(column.spread, 0.5);
    EXPECT_EQ(column.minutes_to_add, 2.0);
    EXPECT_EQ(column.same, 2);
    EXPECT_EQ(column.within_one, 4);
}

TEST(TableComparison, AddsWholeMinutesToWholeMinutes) {
    // Differences 2, 3: the median 2.5 goes to the even minute.
    const ColumnComparison whole =
        compare_table(table_of("isha", {"18:42", "18:43"}), days_of_one_isha(2)).columns.at(0);
    EXPECT_DOUBLE_EQ(whole.median, 2.5);
    EXPECT_EQ(whole.minutes_to_add, 2.0);
    EXPECT_EQ(whole.same, 1);
    EXPECT_EQ(whole.within_one, 2);
    const ColumnComparison seconds =
        compare_table(table_of("isha", {"18:42:30", "18:42:30"}), days_of_one_isha(2)).columns.at(0);
    EXPECT_EQ(seconds.minutes_to_add, 2.5);
    EXPECT_EQ(seconds.same, 2);
}

TEST(TableComparison, TakesTheNearerDifference) {
    Timetable timetable = days_of_one_isha(1);
    timetable.rows[0].times[DayTime::isha] = clock_of_row(23, 58);
    EXPECT_DOUBLE_EQ(compare_table(table_of("isha", {"0:03"}), timetable).columns.at(0).median, 5);
    timetable.rows[0].times[DayTime::isha] = clock_of_row(0, 3, 1);
    EXPECT_DOUBLE_EQ(compare_table(table_of("isha", {"23:58"}), timetable).columns.at(0).median, -5);
}

TEST(TableComparison, TakesATableOfTwelveHours) {
    const ForeignTable table = read("date,fajr,asr,isha\n2026-02-18,5:12,3:01,6:39\n");
    EXPECT_TRUE(table.twelve_hours);
    const TableComparison comparison = compare_table(table, handmade_timetable());
    EXPECT_DOUBLE_EQ(comparison.columns.at(0).median, 2);
    EXPECT_DOUBLE_EQ(comparison.columns.at(1).median, 1);
    EXPECT_DOUBLE_EQ(comparison.columns.at(2).median, -1);
    EXPECT_FALSE(read("date,fajr,asr\n2026-02-18,5:12,15:01\n").twelve_hours);
    EXPECT_FALSE(read("date,fajr,asr\n2026-02-18,5:12 AM,3:01 PM\n").twelve_hours);
    EXPECT_FALSE(read("date,isha\n2026-02-18,0:12\n").twelve_hours);
}

TEST(TableComparison, LeavesAColumnWithoutCommonTimesWithoutMinutes) {
    const ColumnComparison column =
        compare_table(table_of("imsak", {"5:00"}), days_of_one_isha(1)).columns.at(0);
    EXPECT_EQ(column.compared, 0);
    EXPECT_EQ(column.minutes_to_add, std::nullopt);
    EXPECT_DOUBLE_EQ(compare_table(table_of("jumuah", {"12:45"}), days_of_one_isha(1)).columns.at(0).median,
                     15);
}

TEST(TableComparison, WantsACommonDay) {
    EXPECT_THROW(compare_table(read("date,isha\n2027-02-18,18:40\n"), days_of_one_isha(3)), RunTimeFailure);
}

TEST(TableComparison, IsToldInBothLanguages) {
    const TableComparison comparison = compare_table(
        read("date,fajr,imsak\n2026-02-18,5:11,5:00\n2026-02-19,5:10,5:00\n2026-02-20,5:06,5:00\n"),
        handmade_timetable());
    const TwinWords text = comparison_text(comparison, PrayerNames::common);
    EXPECT_EQ(
        text.english,
        "The table's times less these, in minutes\n"
        "Days in common: 3, from 2026-02-18 to 2026-02-20\n"
        "The table's clock is of 12 hours: differences are taken within 6 hours.\n"
        "\n"
        "                       Days     Median       Mean      Least   Greatest     Spread     To add  "
        "Then same   Within 1\n"
        "Fajr                      3       +1.0        0.0       -2.0       +1.0        0.8       +1.0  "
        "        2          2\n"
        "Imsak                     0\n"
        "\n"
        "Spread: half the distance of the quartiles. To add: minutes that bring the median to 0.\n"
        "Then same, within 1: days that then agree to the minute, and to one minute.\n");
    EXPECT_NE(text.arabic.find("الأيام المشتركة: 3، من 2026-02-18 إلى 2026-02-20\n"), std::string::npos);
    EXPECT_NE(text.arabic.find("\nالفجر "), std::string::npos) << text.arabic;
}

} // namespace
} // namespace halvane
