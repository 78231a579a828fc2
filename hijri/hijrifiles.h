// SPDX-License-Identifier: MIT
#pragma once

#include "hijri/hijriconverter.h"
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

// Each format, whole. CSV is RFC 4180, UTF-8 with CR LF; calendar files are RFC 5545.

/// Of one rule the columns year, month, name, first_day, days, margin, note; of several ones the first three,
/// and of each rule its first day and how many days it is after that of the first rule.
std::string csv_of(const HijriYears& years, Language language);
/// A row for each day.
std::string csv_of(const MonthSheet& sheet, Language language);
/// One object: each rule with its months.
std::string json_of(const HijriYears& years, Language language);
/// One object: the rule, the month and its days.
std::string json_of(const MonthSheet& sheet, Language language);
/// An event of whole days for the first day of each month, and for each feast. An event keeps its UID when
/// its date moves.
std::string ics_of(const HijriYears& years, Language language, std::int64_t stamp);
/// The same, and one for each phase of the Moon.
std::string ics_of(const MonthSheet& sheet, Language language, std::int64_t stamp);
/// Tables for people.
std::string table_of(const HijriYears& years, Language language);
std::string table_of(const MonthSheet& sheet, Language language);

/// A converted date in a line: "2026-02-18 Wednesday = 1447-09-01 (1 Ramadan 1447), Umm al-Qura".
std::string line_of(const HijriDay& day, const HijriSettings& settings, Language language);
/// The same as an object with both dates, the rule and the month.
std::string json_of(const HijriDay& day, const HijriSettings& settings, Language language);

/// Every rule: key, name, what it asks for.
std::string rule_table(Language language);
/// The same as a list of objects, with what the rule is and its source.
std::string rule_json(Language language);

/// "hijri-1447-umm-al-qura", "hijri-1447-1450-tabular-two-rules", without an ending.
std::string file_name_of(const HijriYears& years);
/// "hijri-1447-09-umm-al-qura"
std::string file_name_of(const MonthSheet& sheet);

} // namespace halvane
