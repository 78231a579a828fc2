// SPDX-License-Identifier: MIT
#pragma once

#include "hijri/monthpage.h"
#include "hijri/monthsheet.h"

#include <string>
#include <vector>

namespace halvane {

/// The page of a month as a PDF file: fonts embedded, texts that can be searched and copied.
/// A QGuiApplication must be running.
/// Error  raises RunTimeFailure when the system has no font for the page's language.
std::string pdf_of(const MonthSheet& sheet, const MonthPage& page);
/// The same of several months, a page each. In     sheets  not empty
std::string pdf_of(const std::vector<MonthSheet>& sheets, const MonthPage& page);

} // namespace halvane
