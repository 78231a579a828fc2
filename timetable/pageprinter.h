// SPDX-License-Identifier: MIT
#pragma once

#include "base/language.h"
#include "timetable/pdfpages.h"

#include <functional>
#include <optional>
#include <string>

class QPrinter;
class QWidget;

namespace halvane {

/// Gives a printer the pages' paper, without margins of its own: the pages have some.
void set_paper(QPrinter& printer, PaperSize paper);

/// Prints the pages of the printer's range, each as large as its paper allows.
/// Returns whether the printer has taken them.
bool print_pages(QPrinter& printer, const PaintedPages& pages);

/// A document of a panel that is to be printed.
struct PrintedDocument {
    PaperSize paper = PaperSize::a4;
    std::function<PaintedPages()> pages;
    std::function<std::optional<std::string>()> pdf; ///< nothing after a cancel
};

/// Asks for a printer over a panel, which may be closed meanwhile, and prints a document on it; a printer
/// that writes a file writes the document's own PDF. A printer that takes nothing is told of.
/// Error  raises RunTimeFailure when the file cannot be written.
void print_document(const PrintedDocument& document, QWidget& panel, Language language);

} // namespace halvane
