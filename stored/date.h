// SPDX-License-Identifier: MIT
#pragma once

#include "base/datenumbers.h"
#include "stored/fields.h"

namespace halvane {

// Beyond these the day count would lose its days; a record that holds them is damaged.
inline constexpr double largest_stored_year = 999999;
inline constexpr double largest_stored_day = 9999; ///< also of a month, an hour, a minute and a second
inline constexpr kind::NumberWithin stored_year{largest_stored_year};
inline constexpr kind::NumberWithin stored_day{largest_stored_day};

inline constexpr FieldList day_fields{
    Field(&DateNumbers::year, stored_year, "year", "year"),
    Field(&DateNumbers::month, stored_day, "month", "month"),
    Field(&DateNumbers::day, stored_day, "day", "day"),
};

/// `date.vsk`: for which days the prayer, Moon and Qiblah reports are calculated, in the order of the file.
struct CalculationDate {
    bool one_day = false;
    DateNumbers start;
    DateNumbers end;
    DateNumbers from;
    DateNumbers to;
    DateNumbers one;
    bool period = false;
    bool system_date = true;

    bool operator==(const CalculationDate&) const = default;
};

/// What they are, in the order of the file.
inline constexpr FieldList date_fields{
    Field(&CalculationDate::one_day, kind::Boolean{}, "one-day",
          "one day only; decides the wording of the reports"),
    Field(&CalculationDate::start, day_fields, "start", "first day, as the reports use it"),
    Field(&CalculationDate::end, day_fields, "end", "last day, as the reports use it"),
    Field(&CalculationDate::from, day_fields, "from", "first day in the panel's boxes of a period"),
    Field(&CalculationDate::to, day_fields, "to", "last day in the panel's boxes of a period"),
    Field(&CalculationDate::one, day_fields, "single", "the panel's boxes of one day"),
    Field(&CalculationDate::period, kind::Boolean{}, "period", "a period"),
    Field(&CalculationDate::system_date, kind::Boolean{}, "system-date",
          "the machine's date in place of the first and last day"),
};

/// The stored calculation date. Reads `date.vsk`. The reference holds until the next read or write.
/// Error  raises RunTimeFailure for a missing or damaged file.
const CalculationDate& read_date();

/// Rewrites `date.vsk` whole.
void write_date(const CalculationDate& date);

} // namespace halvane
