// SPDX-License-Identifier: MIT
#pragma once

#include "hijri/monthpage.h"
#include "hijri/monthsheet.h"
#include "timetable/pdfpages.h"

#include <memory>
#include <string>
#include <vector>

namespace halvane {

/// The page of a month: head, weeks, notes, within margins of 15 mm; the same on a screen, on paper and in a
/// PDF. A QGuiApplication must be running. What is painted owns all that it needs.
PaintedPages painted_pages(const std::shared_ptr<const MonthSheet>& sheet, const MonthPage& page);

/// The same of several months, a page each. In     sheets  not empty
PaintedPages painted_pages(std::shared_ptr<const std::vector<MonthSheet>> sheets, const MonthPage& page);

/// "Ramadan 1447", or "Muharram 1447 - Thul Hejjah 1447".
std::string document_title(const std::vector<MonthSheet>& sheets, PageLanguage language);

} // namespace halvane
