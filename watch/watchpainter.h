// SPDX-License-Identifier: MIT
#pragma once

#include "timetable/pdfpages.h"
#include "watch/crescentwatch.h"
#include "watch/watchpage.h"

#include <memory>
#include <string>

namespace halvane {

/// The pages of a watch: head, circumstances, chart and figure, table, pointing, verdicts, notes, within
/// margins of 15 mm; the same on a screen, on paper and in a PDF. A watch of common length is one page.
/// A QGuiApplication must be running. What is painted owns all that it needs.
PaintedPages painted_pages(std::shared_ptr<const CrescentWatch> watch, const WatchPage& page);

/// "Amman: New crescent of Ramadan 1447, evening of ..."
std::string document_title(const CrescentWatch& watch, Language language);

} // namespace halvane
