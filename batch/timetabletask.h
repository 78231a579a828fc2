// SPDX-License-Identifier: MIT
#pragma once

#include "batch/tasks.h"
#include "timetable/timetable.h"

#include <functional>
#include <string>

namespace halvane {

/// Makes the PDF of a timetable; empty in a program that cannot.
using PdfMaker = std::function<std::string(const Timetable&, const PageSettings&)>;

/// The task of timetables.
Task timetable_task(PdfMaker pdf_of);

} // namespace halvane
