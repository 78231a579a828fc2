// SPDX-License-Identifier: MIT
#include "phases/phasereport.h"

#include "base/failure.h"
#include "base/numberformat.h"
#include "report/head.h"
#include "stored/programfolder.h"

#include <array>

namespace halvane {
namespace {

constexpr int rule_width = 103;

/// A phase's place in the table: the mark of summer time stands at `mark`, the text after it.
struct Cell {
    Phase phase;
    double quarter;
    int mark;
};

constexpr std::array<Cell, 4> cells{{{Phase::new_moon, 0, 1},
                                     {Phase::first_quarter, 0.25, 28},
                                     {Phase::full_moon, 0.5, 57},
                                     {Phase::last_quarter, 0.75, 86}}};

void write_head(Report& report, const PhaseYear& run) {
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

/// Writes a cell unless its phase lies outside the year; true when it has been written.
bool write_cell(Ephemeris& ephemeris, Report& report, const PhaseYear& run, const Cell& cell, double k) {
    const LocalPhase phase = local_phase(ephemeris, run, cell.phase, k + cell.quarter);
    const std::string text = phase_text(run, phase);
    if (text == "----")
        return false;
    // The first cell's mark stands at the cursor: nothing is before it in its line.
    if (phase.summer && cell.phase != Phase::new_moon)
        report.tab(cell.mark);
    else if (!phase.summer)
        report.tab(cell.mark + 1);
    report.text(phase.summer ? "*" : "").text(text);
    return true;
}

void write_tail(Report& report) {
    report.end_line().end_line().rule(rule_width).end_line();
    write_remarks_title(report);
    write_date_remarks(report);
}

RunOutcome write_rows(Ephemeris& ephemeris, Report& report, const PhaseYear& run, Progress& progress) {
    constexpr int end_of_rows = 16;
    double k = first_lunation(run.year);
    int complete_rows = 0;
    RunOutcome outcome = RunOutcome::done;
    for (int row = 1; row < end_of_rows && outcome == RunOutcome::done; ++row, k += 1) {
        progress.percent(row / static_cast<double>(end_of_rows) * 100);
        // What is pressed now ends the run after this row.
        if (!progress.yield())
            outcome = RunOutcome::cancelled;
        for (const Cell& cell : cells) {
            const bool written = write_cell(ephemeris, report, run, cell, k);
            if (!written || cell.phase != Phase::last_quarter)
                continue;
            report.end_line();
            ++complete_rows;
            if (complete_rows == 4 || complete_rows == 8)
                report.end_line();
        }
    }
    return outcome;
}

} // namespace

RunOutcome write_phase_report(const TheoryPointer& theory, const PhaseYear& run, Progress& progress) {
    if (refused_phase_year(run) || refused_delta_t(run))
        return RunOutcome::refused;
    Ephemeris ephemeris(theory);
    Report report(program_path("results.out"));
    write_head(report, run);
    const RunOutcome outcome = about_place(run.location.name, [&] {
        return about_day(DateNumbers{run.year, 1, 1},
                         [&] { return write_rows(ephemeris, report, run, progress); });
    });
    write_tail(report);
    report.commit();
    return outcome;
}

} // namespace halvane
