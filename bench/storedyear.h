// SPDX-License-Identifier: MIT
#pragma once

#include "stored/date.h"

namespace halvane::bench {

/// Makes the stored calculation date a whole year.
inline void store_year(int year) {
    CalculationDate date = read_date();
    date.one_day = false;
    date.period = true;
    date.system_date = false;
    date.start = date.from = {static_cast<double>(year), 1, 1};
    date.end = date.to = {static_cast<double>(year), 12, 31};
    write_date(date);
}

} // namespace halvane::bench
