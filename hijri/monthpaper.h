// SPDX-License-Identifier: MIT
#pragma once

#include "hijri/monthpage.h"
#include "hijri/monthsheet.h"

#include <string>

namespace halvane {

/// The page of a month as a PDF file: fonts embedded, texts that can be searched and copied.
/// A QGuiApplication must be running.
/// Error  raises RunTimeFailure when the system has no font for the page's language.
std::string pdf_of(const MonthSheet& sheet, const MonthPage& page);

} // namespace halvane
