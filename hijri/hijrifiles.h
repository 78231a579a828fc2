// SPDX-License-Identifier: MIT
#pragma once

#include "hijri/hijriyears.h"
#include "hijri/monthsheet.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace halvane {

/// The formats of years and of months.
enum class HijriFormat { text, csv, json, ics, pdf };

/// "text", "csv", "json", "ics", "pdf".
const char* name_of(HijriFormat format);
/// The ending of its files: "txt", else its name.
const char* ending_of(HijriFormat format);
std::span<const HijriFormat> hijri_formats();

/// Years in a format but PDF.
/// In     language  of the names and notes; keys are English
///        stamp     seconds since 1970 of the export (DTSTAMP)                                    [s]
/// Error  raises RunTimeFailure: a calendar file holds the civil years from 1 to 9999
std::string text_of_years(const HijriYears& years, HijriFormat format, Language language, std::int64_t stamp);
/// A month in a format but PDF, as text_of_years.
std::string text_of_month(const MonthSheet& sheet, HijriFormat format, Language language, std::int64_t stamp);

/// "hijri-1447-umm-al-qura", "hijri-1447-1450-tabular-two-rules", without an ending.
std::string file_name_of(const HijriYears& years);
/// "hijri-1447-09-umm-al-qura"
std::string file_name_of(const MonthSheet& sheet);

} // namespace halvane
