// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "hijri/announcedstart.h"
#include "timetable/csvtable.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace halvane {

/// A line of the list as it stands there: year, month, first day, by whom; a wrong line has other fields.
using AnnouncedRow = CsvLine;

/// What is wrong with a line.
struct AnnouncedProblem {
    std::size_t row = 0; ///< index of the rows
    int line = 0;        ///< of the file
    TwinWords words;     ///< a few words, with what was wanted and found
};

/// The list of announced starts.
struct AnnouncedList {
    std::vector<AnnouncedRow> rows;         ///< all lines below the head, in their order, wrong ones too
    std::vector<AnnouncedStart> starts;     ///< those without a problem, in the order of their months
    std::vector<AnnouncedProblem> problems; ///< in the order of the lines
};

/// The list of a CSV text with the head row `year,month,first_day,announced_by` (ISO civil dates). Every
/// problem is told: letters, another number of fields, no month, no date, the same month twice, months of 28
/// or of 31 days between two lines, a day more than five from the month's tabular start. Of two lines that do
/// not go together the one further down has the problem.
AnnouncedList announced_of_text(std::string_view text);

/// The same of lines that have been edited, told by the line numbers that text_of will give them.
AnnouncedList announced_of_rows(std::vector<AnnouncedRow> rows);

/// The text of a list's file: the head, then every row, wrong ones too.
std::string text_of(std::span<const AnnouncedRow> rows);

/// A line as the list has it.
AnnouncedRow row_of(const AnnouncedStart& start);

/// What is used of the list.
enum class AnnouncedUse {
    none,
    whole, ///< refused where a line has a problem
    sound  ///< the lines without a problem
};

/// "none", "whole", "sound": the name in files and on the command line.
const char* key_of(AnnouncedUse use);
std::optional<AnnouncedUse> announced_use_of(std::string_view key);
/// Every one, in the order of the lists.
std::span<const AnnouncedUse> announced_uses();

/// "hijri-announced.csv, line 3: ...", a line for each problem; empty words where there is none.
TwinWords words_of(std::span<const AnnouncedProblem> problems);

// The list is a file of the program folder: "hijri-announced.csv".

/// An empty list where the file is missing.
/// Error  raises RunTimeFailure for a file that cannot be read.
AnnouncedList read_announced();
/// Error  raises RunTimeFailure; an earlier file then stands.
void write_announced(std::span<const AnnouncedRow> rows);

} // namespace halvane
