// SPDX-License-Identifier: MIT
#pragma once

#include "base/language.h"

#include <array>
#include <string>
#include <string_view>

namespace halvane {

enum class ConversionDirection { hijri_to_civil, civil_to_hijri };

/// Why a date is not converted.
enum class RefusedDate {
    none,
    year_not_positive,  ///< Hijri year not above 0
    before_first_hijri, ///< before 16 July 622
    in_calendar_gap,    ///< 5 to 14 October 1582
    year_too_large      ///< beyond converted_hijri_years or converted_civil_years
};

/// A converted date, or the reason why there is none.
struct ConversionAnswer {
    RefusedDate refused = RefusedDate::none;
    double year = 0;
    double month = 0; ///< 1 to 12
    double day = 0;
    std::string month_name;
    std::string weekday;
};

using MonthNames = std::array<std::string, 12>;

/// Names of the twelve months that a date to be converted is given in.
/// The Arabic May is spelled here as the conversion panel has it.
MonthNames conversion_months(ConversionDirection direction, Language language);

/// Number of the month of exactly that name in either language; 0 for any other text.
double conversion_month_number(ConversionDirection direction, std::string_view name);

/// Converts a date of the tabular Hijri calendar to the civil one or back. A day past its month's end runs on
/// into the next month.
/// In     year, month (1 to 12), day  date in the calendar that the direction starts from
///        language                    of the names
ConversionAnswer convert_date(ConversionDirection direction, double year, double month, double day,
                              Language language);

} // namespace halvane
