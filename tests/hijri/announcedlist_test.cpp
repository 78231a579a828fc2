// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "calendar/civildate.h"
#include "hijri/announcedlist.h"
#include "tests/support/programfolder.h"

#include <gtest/gtest.h>
#include <string>

namespace halvane {
namespace {

constexpr const char* head = "year,month,first_day,announced_by\r\n";

AnnouncedList list_of(const std::string& rows) {
    return announced_of_text(head + rows);
}

/// The words of the only problem; an empty text where there is none or another one.
std::string only_problem(const std::string& rows) {
    const AnnouncedList list = list_of(rows);
    return list.problems.size() == 1 ? words_of(list.problems).english : std::string();
}

// 1 Ramadan 1447 of the tabular calendar is 18 February 2026, 1 Sha'ban 20 January, 1 Shawwal 20 March.
TEST(AnnouncedList, OfSoundLines) {
    const AnnouncedList list = list_of("1447,10,2026-03-20,\"Court, Riyadh\"\r\n"
                                       "1447,9,2026-02-19,المحكمة العليا\r\n"
                                       "1446,9,2025-03-01,\r\n");
    EXPECT_TRUE(list.problems.empty()) << words_of(list.problems).english;
    ASSERT_EQ(list.starts.size(), 3U);
    EXPECT_EQ(list.starts[0].month, HijriMonthNumber::of(1446, 9));
    EXPECT_EQ(civil_date(list.starts[0].first_day), (DateNumbers{2025, 3, 1}));
    EXPECT_EQ(list.starts[1].month, HijriMonthNumber::of(1447, 9));
    EXPECT_EQ(list.starts[1].announced_by, "المحكمة العليا");
    EXPECT_EQ(list.starts[2].announced_by, "Court, Riyadh");
    // JD 2461119.5 is 0 h of 2026 March 20 (Astronomical Almanac's count: JD 2461041.5 is 2026 January 1).
    EXPECT_EQ(list.starts[2].first_day, 2461120);
}

TEST(AnnouncedList, OfNothingIsEmpty) {
    for (const char* text : {"", "year,month,first_day,announced_by", head, "\r\n\r\n"}) {
        const AnnouncedList list = announced_of_text(text);
        EXPECT_TRUE(list.rows.empty() && list.starts.empty() && list.problems.empty()) << text;
    }
}

TEST(AnnouncedList, TellsWhatIsWrongOfEachLine) {
    EXPECT_EQ(only_problem("14x7,9,2026-02-18,a\r\n"),
              "hijri-announced.csv, line 2: year: wanted 1 ... 9600; found \"14x7\".");
    EXPECT_EQ(only_problem("1447,Ramadan,2026-02-18,a\r\n"),
              "hijri-announced.csv, line 2: month: wanted 1 ... 12; found \"Ramadan\".");
    EXPECT_EQ(only_problem("1447,13,2026-02-18,a\r\n"),
              "hijri-announced.csv, line 2: month: wanted 1 ... 12; found \"13\".");
    for (const char* date : {"18.2.2026", "2026-02", "", "2026-02-18T00"})
        EXPECT_EQ(only_problem(std::string("1447,9,") + date + ",a\r\n"),
                  std::string("hijri-announced.csv, line 2: first_day: wanted YYYY-MM-DD, found \"") + date +
                      "\".");
    EXPECT_EQ(only_problem("1447,9,2026-02-30,a\r\n"),
              "hijri-announced.csv, line 2: first_day: the calendar has no such date.");
    EXPECT_EQ(only_problem("1447,9,2026-02-18\r\n"),
              "hijri-announced.csv, line 2: wanted 4 fields, found 3.");
    EXPECT_EQ(only_problem("1447,9,2026-02-18,a,b\r\n"),
              "hijri-announced.csv, line 2: wanted 4 fields, found 5.");
}

TEST(AnnouncedList, TellsAMistypedYear) {
    EXPECT_EQ(only_problem("1447,9,2025-02-18,a\r\n"),
              "hijri-announced.csv, line 2: 365 days from the tabular start of Ramadan 1447.");
    EXPECT_EQ(only_problem("1447,9,2026-02-24,a\r\n"),
              "hijri-announced.csv, line 2: 6 days from the tabular start of Ramadan 1447.");
    for (const char* day : {"13", "23"})
        EXPECT_TRUE(list_of(std::string("1447,9,2026-02-") + day + ",a\r\n").problems.empty()) << day;
}

TEST(AnnouncedList, TellsMonthsTooShortAndTooLong) {
    EXPECT_EQ(only_problem("1447,9,2026-02-19,a\r\n1447,10,2026-03-19,a\r\n"),
              "hijri-announced.csv, line 3: Ramadan 1447 would be a month of 28 days, by line 2.");
    EXPECT_EQ(only_problem("1447,10,2026-03-21,a\r\n1447,9,2026-02-18,a\r\n"),
              "hijri-announced.csv, line 3: Ramadan 1447 would be a month of 31 days, by line 2.");
    EXPECT_EQ(only_problem("1447,8,2026-01-22,a\r\n1447,10,2026-03-20,a\r\n"),
              "hijri-announced.csv, line 3: the 2 months from Sha'ban 1447 on would have 57 days, by line 2; "
              "wanted 58 ... 60.");
    EXPECT_EQ(only_problem("1447,8,2026-01-18,a\r\n1447,10,2026-03-20,a\r\n"),
              "hijri-announced.csv, line 3: the 2 months from Sha'ban 1447 on would have 61 days, by line 2; "
              "wanted 58 ... 60.");
    EXPECT_EQ(only_problem("1447,9,2026-02-18,a\r\n1447,9,2026-02-19,b\r\n"),
              "hijri-announced.csv, line 3: Ramadan 1447 stands in line 2 already.");
    for (const char* day : {"19", "20"}) // 29 and 30 days
        EXPECT_TRUE(
            list_of(std::string("1447,9,2026-02-18,a\r\n1447,10,2026-03-") + day + ",a\r\n").problems.empty())
            << day;
}

TEST(AnnouncedList, TellsEveryProblemAndUsesTheRest) {
    const AnnouncedList list = list_of("1447,9,2026-02-18,a\r\n"  // 2
                                       "what\r\n"                 // 3
                                       "1447,10,2026-03-18,a\r\n" // 4: 28 days
                                       "1447,13,2026-03-18,a\r\n" // 5
                                       "1447,10,2026-03-20,b\r\n" // 6: goes with line 2, for line 4 is out
                                       "\r\n"
                                       "1448,1,2026-06-16,a\r\n"); // 8
    ASSERT_EQ(list.problems.size(), 3U);
    EXPECT_EQ(list.problems[0].line, 3);
    EXPECT_EQ(list.problems[1].line, 4);
    EXPECT_EQ(list.problems[2].line, 5);
    EXPECT_EQ(list.problems[2].row, 3U);
    ASSERT_EQ(list.starts.size(), 3U);
    EXPECT_EQ(list.starts[1].announced_by, "b");
    for (const AnnouncedProblem& problem : list.problems)
        EXPECT_FALSE(problem.words.arabic.empty());
}

TEST(AnnouncedList, LosesNothingOfABadFile) {
    const std::string text = std::string(head) + "1447,9,2026-02-18,\"the \"\"Court\"\", of Riyadh\"\r\n"
                                                 "one,two\r\n"
                                                 "1447,13,2026-02-18,\" a \",more\r\n"
                                                 "\"\"\r\n";
    const AnnouncedList list = announced_of_text(text);
    EXPECT_EQ(list.rows.size(), 4U);
    EXPECT_EQ(list.rows[0].fields[3], "the \"Court\", of Riyadh");
    EXPECT_EQ(text_of(list.rows), text);
}

TEST(AnnouncedList, KeepsALineWithOpenQuoteMarks) {
    const std::string text = std::string(head) + "1447,9,2026-02-18,\"Court\r\n1447,10,2026-03-20,b\r\n";
    const AnnouncedList list = announced_of_text(text);
    ASSERT_EQ(list.problems.size(), 1U);
    EXPECT_EQ(words_of(list.problems).english,
              "hijri-announced.csv, line 2: its quote marks do not go together.");
    ASSERT_EQ(list.starts.size(), 1U);
    EXPECT_EQ(list.starts[0].announced_by, "b");
    EXPECT_EQ(text_of(list.rows), text);
}

TEST(AnnouncedList, OfAWrongLineTakesNoOtherWithIt) {
    const AnnouncedList list = list_of("\"1447\r\n1447,9,2026-02-18,\"a\"\r\n1447\"\r\n");
    EXPECT_EQ(list.problems.size(), 2U);
    ASSERT_EQ(list.starts.size(), 1U);
    const AnnouncedList again = announced_of_text(text_of(list.rows));
    EXPECT_EQ(again.rows, list.rows);
    EXPECT_EQ(again.starts.size(), 1U);
}

TEST(AnnouncedList, OfEditedRowsNumbersThem) {
    AnnouncedList list = list_of("1447,9,2026-02-18,a\r\n");
    list.rows.insert(list.rows.begin(),
                     row_of({HijriMonthNumber::of(1447, 8), list.starts[0].first_day - 28, "of\ntwo lines"}));
    const AnnouncedList edited = announced_of_rows(list.rows);
    ASSERT_EQ(edited.problems.size(), 1U);
    EXPECT_EQ(edited.problems[0].row, 1U);
    EXPECT_EQ(edited.problems[0].line, 3);
    const AnnouncedList stored = announced_of_text(text_of(edited.rows));
    EXPECT_EQ(stored.rows[0].fields[2], "2026-01-21");
    EXPECT_EQ(words_of(stored.problems).english,
              "hijri-announced.csv, line 3: Sha'ban 1447 would be a month of 28 days, by line 2.");
}

TEST(AnnouncedUseKey, IsReadAndWritten) {
    for (const AnnouncedUse use : announced_uses())
        EXPECT_EQ(announced_use_of(key_of(use)), use);
    EXPECT_FALSE(announced_use_of("all"));
}

TEST(AnnouncedFile, IsAnEmptyListWhereItIsMissing) {
    const TemporaryProgramFolder folder;
    EXPECT_TRUE(read_announced().rows.empty());
}

TEST(AnnouncedFile, GivesBackWhatWasWritten) {
    const TemporaryProgramFolder folder;
    const AnnouncedList list = list_of("1447,9,2026-02-18,محكمة\r\nwrong\r\n");
    write_announced(list.rows);
    EXPECT_EQ(read_announced().rows, list.rows);
    EXPECT_EQ(read_announced().starts.size(), 1U);
}

TEST(AnnouncedFile, OfAnotherKindIsRefused) {
    const TemporaryProgramFolder folder;
    std::filesystem::create_directory(folder / "hijri-announced.csv");
    EXPECT_THROW(read_announced(), RunTimeFailure);
}

} // namespace
} // namespace halvane
