// SPDX-License-Identifier: MIT
#include "report/report.h"

#include "base/failure.h"
#include "tests/support/programfolder.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace halvane {
namespace {

TEST(ReportCursor, WritesTextsBlanksAndLines) {
    Report report;
    report.text("a").spc(3).text("b").end_line();
    report.line("whole").end_line();
    report.rule(5);
    EXPECT_EQ(report.content(), "a   b\r\nwhole\r\n\r\n=====\r\n");
}

TEST(ReportCursor, MovesToAColumnCountedFromOne) {
    Report report;
    report.tab(1).text("a").tab(5).text("b").end_line();
    EXPECT_EQ(report.content(), "a   b\r\n");
}

TEST(ReportCursor, StaysAtExactlyTheColumn) {
    Report report;
    report.text("abcd").tab(5).text("e").end_line();
    EXPECT_EQ(report.content(), "abcde\r\n");
}

TEST(ReportCursor, GoesToTheNextLinesColumnWhenItIsPast) {
    Report report;
    report.text("abcdef").tab(5).text("g").end_line();
    EXPECT_EQ(report.content(), "abcdef\r\n    g\r\n");
}

TEST(ReportCursor, WritesTheBlanksOfAMoveAtOnce) {
    Report report;
    report.text("a").tab(4).text("").end_line();
    EXPECT_EQ(report.content(), "a  \r\n");
}

TEST(ReportCursor, CountsCharactersAndNotBytes) {
    Report report;
    report.text("عمان").tab(6).text("x").end_line();
    report.text("10 °C").tab(7).text("x").end_line();
    report.text("\xF0\x9F\x8C\x99").tab(3).text("x").end_line();
    EXPECT_EQ(report.content(), "عمان x\r\n10 °C x\r\n\xF0\x9F\x8C\x99 x\r\n");
}

TEST(ReportCursor, WritesNumbersAsItems) {
    Report report;
    report.text("A:").item(18.0).text(",").item(-2.5).text(",").item(0.1F).end_line();
    EXPECT_EQ(report.content(), "A: 18 ,-2.5 , 0.1 \r\n");
    EXPECT_THROW(report.item(std::numeric_limits<double>::infinity()), RunTimeFailure);
    EXPECT_THROW(report.item(std::numeric_limits<float>::infinity()), RunTimeFailure);
}

TEST(ReportFile, TakesItsPlaceWhenItIsCommitted) {
    const TemporaryProgramFolder folder;
    folder.write("results.out", "earlier");
    {
        Report report((folder / "results.out").string());
        report.line("new");
        EXPECT_EQ(folder.read("results.out"), "earlier");
        report.commit();
        EXPECT_EQ(folder.read("results.out"), "new\r\n");
        report.commit();
    }
    EXPECT_EQ(folder.read("results.out"), "new\r\n");
}

TEST(ReportFile, GivenUpLeavesTheEarlierOneAndNothingElse) {
    const TemporaryProgramFolder folder;
    folder.write("results.out", "earlier");
    std::size_t before = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder.path()))
        ++before;
    { Report((folder / "results.out").string()).line("new"); }
    std::size_t after = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder.path()))
        ++after;
    EXPECT_EQ(folder.read("results.out"), "earlier");
    EXPECT_EQ(after, before);
}

TEST(ReportFile, HoldsLongReportsWhole) {
    const TemporaryProgramFolder folder;
    std::string expected;
    Report report((folder / "long.out").string());
    for (int i = 0; i < 20000; ++i) {
        report.text("row").tab(10).text(std::to_string(i)).end_line();
        expected += "row      " + std::to_string(i) + "\r\n";
    }
    report.commit();
    EXPECT_EQ(folder.read("long.out"), expected);
}

TEST(ReportFile, InNoFolderIsAFailureThatNamesIt) {
    try {
        Report report("/no/such/folder/results.out");
        FAIL() << "opened";
    } catch (const RunTimeFailure& failure) {
        EXPECT_NE(std::string(failure.what()).find("/no/such/folder/results.out"), std::string::npos);
    }
}

} // namespace
} // namespace halvane
