// SPDX-License-Identifier: MIT
#pragma once

#include "base/progress.h"
#include "base/twintext.h"
#include "report/column.h"
#include "report/report.h"
#include "report/tablewriter.h"

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace halvane {

/// One run of a tool with all of its settings: what is stored later does not reach it. It can be written any
/// number of times, in any format, and gives the same rows.
class Run {
public:
    Run() = default;
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;
    virtual ~Run() = default;

    /// Its name on the command line.
    virtual const char* task() const = 0;
    /// The bare name of its report; empty for one that is for a terminal, with its line ends.
    virtual const char* report_name() const = 0;
    /// What is shown above the report on a screen: its answer in lines of words. None for most.
    virtual TwinWords short_answer() const { return {}; }
    /// Writes the fixed report. Returns how the run ended; a refused one has no closing block.
    virtual RunOutcome write(Report& report, Progress& progress) const = 0;
    /// Writes the rows in a machine format.
    virtual RunOutcome write(TableWriter& writer, Progress& progress) const = 0;
};
using RunPointer = std::shared_ptr<const Run>;

/// The frame of every run: head, rows, closing block. A tool gives the parts.
template <class Row>
class RunOf : public Run {
public:
    using TakeRow = std::function<void(const Row&)>;

    RunOutcome write(Report& report, Progress& progress) const final {
        write_head(report);
        int number = 0;
        const RunOutcome outcome =
            each_row([&](const Row& row) { write_row(report, row, ++number); }, progress);
        if (outcome != RunOutcome::refused)
            write_closing(report, outcome, number);
        return outcome;
    }

    RunOutcome write(TableWriter& writer, Progress& progress) const final {
        std::vector<Column> heads;
        for (const ColumnOf<Row>& column : columns())
            heads.push_back(column.column);
        writer.begin(task(), facts(), heads);
        std::vector<Value> values;
        const RunOutcome outcome = each_row(
            [&](const Row& row) {
                values.clear();
                for (const ColumnOf<Row>& column : columns())
                    values.push_back(column.value(row));
                writer.row(values);
            },
            progress);
        writer.end();
        return outcome;
    }

    /// Calculates the rows and hands each on.
    virtual RunOutcome each_row(const TakeRow& take, Progress& progress) const = 0;
    /// The columns of a row.
    virtual std::span<const ColumnOf<Row>> columns() const = 0;
    /// The settings that the rows follow from.
    virtual Facts facts() const = 0;

private:
    virtual void write_head(Report& report) const = 0;
    /// In     number  of the row, from 1
    virtual void write_row(Report& report, const Row& row, int number) const = 0;
    /// In     rows  that have been written
    virtual void write_closing(Report& report, RunOutcome outcome, int rows) const = 0;
};

/// When a run lets pending events happen: what the user cancels before a row ends the run after it all the
/// same.
enum class YieldPlace { before_row, after_row };

/// One row of a run: tells how far it has come, does `work` and yields.
/// In     percent  of the run [0 to 100]
///        work     returns done when the run goes on
template <class Work>
RunOutcome do_row(Progress& progress, double percent, YieldPlace place, Work&& work) {
    progress.percent(percent);
    bool goes_on = place == YieldPlace::after_row || progress.yield();
    const RunOutcome outcome = work();
    if (outcome != RunOutcome::done)
        return outcome;
    if (place == YieldPlace::after_row)
        goes_on = progress.yield();
    return goes_on ? RunOutcome::done : RunOutcome::cancelled;
}

/// Writes a run to its report in the program folder.
/// Returns cancelled with the rows so far and the remarks in the file.
/// Error  raises RunTimeFailure; an earlier report then stands.
RunOutcome write_report(const Run& run, Progress& progress);

/// The same to `path` in a format; "-" is standard output. No machine format is left with some of its rows:
/// when the run is cancelled or refused an earlier file stands.
RunOutcome write_run(const Run& run, ReportFormat format, const std::string& path, Progress& progress);

} // namespace halvane
