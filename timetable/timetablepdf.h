// SPDX-License-Identifier: MIT
#pragma once

#include "timetable/pdfpages.h"
#include "timetable/timetablesheet.h"

#include <span>
#include <string>

namespace halvane {

/// The pages of a timetable as a PDF file: fonts embedded, texts that can be searched and copied.
/// A QGuiApplication must be running.
/// Error  raises RunTimeFailure when the system has no font for the page's languages.
std::string pdf_of(const Timetable& timetable, const PageSettings& page);

/// Sheets that are there, one a page; they and the settings must outlive what is painted.
PaintedPages painted_pages(std::span<const TimetableSheet> sheets, const PageSettings& page);

/// The same as a PDF file.
/// In     title  of the document
std::string pdf_of(std::span<const TimetableSheet> sheets, const PageSettings& page,
                   const std::string& title);

} // namespace halvane
