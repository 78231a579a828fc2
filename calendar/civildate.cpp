// SPDX-License-Identifier: MIT
#include "calendar/civildate.h"

#include "calendar/modjul.h"

#include <cmath>

namespace halvane {

DateNumbers civil_date(double jd) {
    DateNumbers date;
    modjuc(jd + 0.5, date.year, date.month, date.day);
    date.day = std::floor(date.day);
    return date;
}

double start_of_date(double jd) {
    return std::floor(jd - 0.5) + 0.5;
}

double hours_of_day(double jd) {
    const double value = jd + 0.5;
    return (value - std::floor(value)) * 24;
}

} // namespace halvane
