#pragma once

#include "base/datenumbers.h"

namespace halvane {

// Beyond these the day count would lose its days; a record that holds them is damaged.
inline constexpr double largest_stored_year = 999999;
inline constexpr double largest_stored_day = 9999; ///< also of a month, an hour, a minute and a second

/// `date.vsk`: for which days the prayer, Moon and Qiblah reports are calculated, in the order of the file.
struct CalculationDate {
    bool one_day = false;    ///< one day only; decides the wording of the reports
    DateNumbers start;       ///< first day, as the reports use it
    DateNumbers end;         ///< last day, as the reports use it
    DateNumbers from;        ///< the panel's boxes of a period
    DateNumbers to;          ///< the panel's boxes of a period
    DateNumbers one;         ///< the panel's boxes of one day
    bool period = false;     ///< a period
    bool system_date = true; ///< the machine's date in place of `start` and `end`

    bool operator==(const CalculationDate&) const = default;
};

/// The stored calculation date. Reads `date.vsk`. The reference holds until the next read or write.
/// Error  raises RunTimeFailure for a missing or damaged file.
const CalculationDate& read_date();

/// Rewrites `date.vsk` whole.
void write_date(const CalculationDate& date);

} // namespace halvane
