// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "report/run.h"
#include "report/tablewriter.h"
#include "report/valuetext.h"
#include "tests/golden/recordingprogress.h"
#include "tests/support/programfolder.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace halvane {
namespace {

TEST(IsoTexts, HaveFourDigitsOfTheYear) {
    EXPECT_EQ(iso_date({2026, 2, 18}), "2026-02-18");
    EXPECT_EQ(iso_date({622, 7, 16}), "0622-07-16");
    EXPECT_EQ(iso_date({-44, 3, 15}), "-0044-03-15");
}

TEST(IsoTexts, OfAClockRoundToTheMicrosecond) {
    EXPECT_EQ(iso_clock(0), "00:00:00.000000");
    EXPECT_EQ(iso_clock(5.5), "05:30:00.000000");
    EXPECT_EQ(iso_clock(4 + 57.0 / 60 + 12.3456784 / 3600), "04:57:12.345678");
    EXPECT_EQ(iso_clock(24 - 1e-10), "24:00:00.000000");
    EXPECT_EQ(iso_clock(24.25), "00:15:00.000000") << "the next day's";
    EXPECT_EQ(iso_clock(-0.5), "23:30:00.000000") << "the day's before";
    EXPECT_THROW(iso_clock(std::numeric_limits<double>::quiet_NaN()), RunTimeFailure);
}

TEST(IsoTexts, OfATimeTellWhyThereIsNone) {
    EXPECT_EQ(iso_time(NoEvent::up), "up");
    EXPECT_EQ(iso_time(NoEvent::down), "down");
    EXPECT_EQ(iso_time(NoEvent::bright), "bright");
    EXPECT_EQ(iso_time(NoEvent::dark), "dark");
    EXPECT_EQ(iso_time(NoEvent::none), std::nullopt);
}

TEST(IsoTexts, OfAMomentCarryIntoTheNextDay) {
    // JD 2451544.5 is 2000 January 1, 0 h.
    EXPECT_EQ(iso_moment(2451544.5), "2000-01-01T00:00:00.000000");
    EXPECT_EQ(iso_moment(2451544.75), "2000-01-01T06:00:00.000000");
    // Day 0 begins at noon of -4712 January 1; a tenth of a microsecond before the midnight after it.
    EXPECT_EQ(iso_moment(0.5 - 1e-12), "-4712-01-02T00:00:00.000000");
    EXPECT_THROW(iso_moment(std::numeric_limits<double>::infinity()), RunTimeFailure);
}

TEST(IsoTexts, OfANumberReadBackAsIt) {
    for (const double value : {0.1, -1.0 / 3, 149597870.66, 1e-12, 5e300})
        EXPECT_EQ(std::stod(exact_number(value)), value);
    EXPECT_EQ(exact_number(2.5), "2.5");
    EXPECT_THROW(exact_number(std::numeric_limits<double>::infinity()), RunTimeFailure);
}

TEST(ReportFormats, HaveNames) {
    for (const ReportFormat format : {ReportFormat::text, ReportFormat::csv, ReportFormat::json})
        EXPECT_EQ(format_of(name_of(format)), format);
    EXPECT_EQ(format_of("CSV"), std::nullopt);
    EXPECT_EQ(format_of(""), std::nullopt);
}

TEST(Values, KnowTheirType) {
    EXPECT_TRUE(is_of_type(Value(), ValueType::date)) << "a missing value is of any type";
    EXPECT_TRUE(is_of_type(Value(true), ValueType::flag));
    EXPECT_FALSE(is_of_type(Value(true), ValueType::whole));
    EXPECT_TRUE(is_of_type(Value(ClockValue{NoEvent::up}), ValueType::clock));
    EXPECT_FALSE(is_of_type(Value(1.0), ValueType::moment));
}

/// A run of rows that are numbers: an example of a tool.
class Squares final : public RunOf<int> {
public:
    explicit Squares(int count) : count_(count) {}
    const char* task() const override { return "squares"; }
    const char* report_name() const override { return "squares.out"; }
    RunOutcome each_row(const TakeRow& take, Progress& progress) const override {
        for (int i = 0; i < count_; ++i) {
            const RunOutcome outcome = do_row(progress, i * 100.0 / count_, YieldPlace::after_row, [&] {
                take(i);
                return i == refused_row ? RunOutcome::refused : RunOutcome::done;
            });
            if (outcome != RunOutcome::done)
                return outcome;
        }
        return RunOutcome::done;
    }
    std::span<const ColumnOf<int>> columns() const override {
        static constexpr ColumnOf<int> all[] = {
            {{"number", {"Number", "العدد"}, "", ValueType::whole},
             [](const int& row) -> Value { return row; }},
            {{"square", {"Square", "المربع"}, "m2", ValueType::number},
             [](const int& row) -> Value { return row == 2 ? Value() : Value(row * row * 1.5); }},
            {{"name", {"Name", "الاسم"}, "", ValueType::text},
             [](const int& row) -> Value { return std::string(row == 0 ? "a, \"b\"" : "عمان"); }}};
        return all;
    }
    Facts facts() const override {
        Facts facts;
        add_fact(facts, "place", std::string("Amman \"East\""));
        add_fact(facts, "nothing", Value());
        return facts;
    }
    static constexpr int refused_row = 7;

private:
    void write_head(Report& report) const override { report.line("head"); }
    void write_row(Report& report, const int& row, int number) const override {
        report.line(std::to_string(number) + ": " + std::to_string(row * row));
    }
    void write_closing(Report& report, RunOutcome outcome, int rows) const override {
        report.line(std::to_string(rows) + (outcome == RunOutcome::done ? " rows" : " rows so far"));
    }
    int count_;
};

class RunTest : public ::testing::Test {
protected:
    std::string written(int count, ReportFormat format, int cancelled_row = RecordingProgress::never) {
        RecordingProgress progress(cancelled_row);
        outcome_ = write_run(Squares(count), format, (folder_ / "file").string(), progress);
        return folder_.has("file") ? folder_.read("file") : "nothing";
    }
    TemporaryFolder folder_;
    RunOutcome outcome_ = RunOutcome::done;
};

TEST_F(RunTest, HasHeadRowsAndClosing) {
    EXPECT_EQ(written(2, ReportFormat::text), "head\r\n1: 0\r\n2: 1\r\n2 rows\r\n");
}

TEST_F(RunTest, CancelledKeepsTheRowsSoFarInTheReportOnly) {
    EXPECT_EQ(written(5, ReportFormat::text, 2), "head\r\n1: 0\r\n2: 1\r\n2 rows so far\r\n");
    EXPECT_EQ(outcome_, RunOutcome::cancelled);
    folder_.write("file", "an earlier one");
    EXPECT_EQ(written(5, ReportFormat::csv, 2), "an earlier one");
    EXPECT_EQ(written(5, ReportFormat::json, 2), "an earlier one");
}

TEST_F(RunTest, RefusedHasNoClosing) {
    EXPECT_EQ(written(9, ReportFormat::text).substr(0, 6), "head\r\n");
    EXPECT_EQ(outcome_, RunOutcome::refused);
    EXPECT_TRUE(folder_.read("file").ends_with("8: 49\r\n"));
    folder_.erase("file");
    EXPECT_EQ(written(9, ReportFormat::csv), "nothing");
}

TEST_F(RunTest, AsCsvQuotesWhatItMustAndLeavesOutWhatIsMissing) {
    EXPECT_EQ(written(3, ReportFormat::csv),
              "number,square,name\r\n0,0,\"a, \"\"b\"\"\"\r\n1,1.5,عمان\r\n2,,عمان\r\n");
}

TEST_F(RunTest, AsJsonTellsFactsColumnsAndRows) {
    const std::string text = written(3, ReportFormat::json);
    EXPECT_NE(text.find(R"("task":"squares","facts":{"place":"Amman \"East\"","nothing":null})"),
              std::string::npos)
        << text;
    EXPECT_NE(
        text.find(R"({"key":"square","heading":{"en":"Square","ar":"المربع"},"unit":"m2","type":"number"})"),
        std::string::npos)
        << text;
    EXPECT_TRUE(text.ends_with("\"rows\":[\n"
                               R"({"number":0,"square":0.0,"name":"a, \"b\""},)"
                               "\n"
                               R"({"number":1,"square":1.5,"name":"عمان"},)"
                               "\n"
                               R"({"number":2,"square":null,"name":"عمان"})"
                               "\n]}\n"))
        << text;
}

TEST_F(RunTest, WithoutRowsIsWholeAllTheSame) {
    EXPECT_EQ(written(0, ReportFormat::csv), "number,square,name\r\n");
    EXPECT_TRUE(written(0, ReportFormat::json).ends_with("\"rows\":[\n]}\n"));
}

} // namespace
} // namespace halvane
