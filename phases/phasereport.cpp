// SPDX-License-Identifier: MIT
#include "phases/phasereport.h"

#include "base/failure.h"
#include "base/numberformat.h"
#include "calendar/civildate.h"
#include "report/head.h"
#include "report/reportrun.h"

#include <array>
#include <memory>
#include <utility>

namespace halvane {
namespace {

constexpr int rule_width = 103;

/// A phase's place in the table: the mark of summer time stands at `mark`, the text after it.
struct Cell {
    Phase phase;
    const char* key;
    double quarter;
    int mark;
};

constexpr std::array<Cell, 4> cells{{{Phase::new_moon, "new_moon", 0, 1},
                                     {Phase::first_quarter, "first_quarter", 0.25, 28},
                                     {Phase::full_moon, "full_moon", 0.5, 57},
                                     {Phase::last_quarter, "last_quarter", 0.75, 86}}};

/// A phase of the year.
struct PhaseRow {
    Cell cell;
    LocalPhase phase;
    int lunations = 0; ///< that have their last quarter in the year so far
};

constexpr ColumnOf<PhaseRow> phase_columns[] = {
    {{"phase", {"Phase", "الطور"}, "", ValueType::text},
     [](const PhaseRow& row) -> Value { return std::string(row.cell.key); }},
    {{"time", {"Time", "الوقت"}, "", ValueType::moment},
     [](const PhaseRow& row) -> Value { return MomentValue{row.phase.jd}; }},
    {{"summer_time", {"Summer time", "التوقيت الصيفي"}, "", ValueType::flag},
     [](const PhaseRow& row) -> Value { return row.phase.summer; }},
};

void write_phase_head(Report& report, const PhaseYear& run) {
    write_title(report, 26);
    report.text("-").spc(1).text(run.geocentric ? "Geocentric" : "Topocentric");
    report.text(" Phases of The Moon for The Year:")
        .spc(2)
        .text(format_number(run.year, "##0000"))
        .line(" CE");
    write_location(report, run.location);
    write_summer_time(report, run.preferences);
    report.text("-").spc(1);
    if (run.local_ut1)
        report.text("Time Reference is Local (UT1)")
            .text(",")
            .spc(2)
            .text("Delta T:")
            .spc(1)
            .text(format_number(run.delta_t, "##########00.00"))
            .spc(1)
            .line("Second(s)");
    else
        report.line("Time Reference is Local (TDT).");
    report.end_line().rule(rule_width).end_line();
    report.tab(7).text("New Moon").tab(32).text("First Quarter").tab(61).text("Full Moon");
    report.tab(90).line("Last Quarter").end_line();
}

void write_phase(Report& report, const PhaseYear& year, const PhaseRow& row) {
    const bool summer = row.phase.summer;
    // The first cell's mark stands at the cursor: nothing is before it in its line.
    if (summer && row.cell.phase != Phase::new_moon)
        report.tab(row.cell.mark);
    else if (!summer)
        report.tab(row.cell.mark + 1);
    report.text(summer ? "*" : "").text(phase_text(year, row.phase));
    if (row.cell.phase != Phase::last_quarter)
        return;
    report.end_line();
    if (row.lunations == 4 || row.lunations == 8)
        report.end_line();
}

class PhaseRun final : public RunOf<PhaseRow> {
public:
    PhaseRun(TheoryPointer theory, PhaseYear year) : theory_(std::move(theory)), year_(std::move(year)) {}

    const char* task() const override { return "phases"; }
    const char* report_name() const override { return "results.out"; }

    RunOutcome each_row(const TakeRow& take, Progress& progress) const override {
        return about_place(year_.location.name, [&] {
            return about_day(DateNumbers{year_.year, 1, 1}, [&] { return each_lunation(take, progress); });
        });
    }

    std::span<const ColumnOf<PhaseRow>> columns() const override { return phase_columns; }

    Facts facts() const override {
        Facts facts;
        add_place(facts, year_.location);
        add_fact(facts, "year", year_.year);
        add_fact(facts, "geocentric", year_.geocentric);
        add_fact(facts, "time_reference", std::string(year_.local_ut1 ? "UT1" : "TDT"));
        add_fact(facts, "delta_t", year_.local_ut1 ? Value(year_.delta_t) : Value());
        return facts;
    }

private:
    RunOutcome each_lunation(const TakeRow& take, Progress& progress) const {
        constexpr int end_of_rows = 16;
        Ephemeris ephemeris(theory_);
        double k = first_lunation(year_.year);
        int lunations = 0;
        RunOutcome outcome = RunOutcome::done;
        for (int row = 1; row < end_of_rows && outcome == RunOutcome::done; ++row, k += 1) {
            const double percent = row / static_cast<double>(end_of_rows) * 100;
            outcome = do_row(progress, percent, YieldPlace::before_row, [&] {
                for (const Cell& cell : cells) {
                    const LocalPhase phase = local_phase(ephemeris, year_, cell.phase, k + cell.quarter);
                    if (civil_date(phase.jd).year != year_.year)
                        continue;
                    lunations += cell.phase == Phase::last_quarter ? 1 : 0;
                    take({cell, phase, lunations});
                }
                return RunOutcome::done;
            });
        }
        return outcome;
    }

    void write_head(Report& report) const override { write_phase_head(report, year_); }
    void write_row(Report& report, const PhaseRow& row, int /*number*/) const override {
        write_phase(report, year_, row);
    }
    void write_closing(Report& report, RunOutcome /*outcome*/, int /*rows*/) const override {
        report.end_line().end_line().rule(rule_width).end_line();
        write_remarks_title(report);
        write_date_remarks(report);
    }

    TheoryPointer theory_;
    PhaseYear year_;
};

} // namespace

RunPointer phase_run(const TheoryPointer& theory, const PhaseYear& year) {
    if (refused_phase_year(year) || refused_delta_t(year))
        return nullptr;
    return std::make_shared<PhaseRun>(theory, year);
}

} // namespace halvane
