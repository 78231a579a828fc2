// SPDX-License-Identifier: MIT
#pragma once

#include "timetable/pdfpages.h"

class QPrinter;

namespace halvane {

/// Gives a printer the pages' paper, without margins of its own: the pages have some.
void set_paper(QPrinter& printer, PaperSize paper);

/// Prints the pages of the printer's range, each as large as its paper allows.
/// Returns whether the printer has taken them.
bool print_pages(QPrinter& printer, const PaintedPages& pages);

} // namespace halvane
