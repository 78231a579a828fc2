// SPDX-License-Identifier: MIT
#pragma once

#include "base/failure.h"

namespace halvane {

/// Civil date of a Julian day, the day without its fraction.
DateNumbers civil_date(double jd);

/// Does `work`, a calculation for the date of `jd`: a failure without a finite value names it.
template <class Work>
auto about_day(double jd, Work&& work) {
    try {
        return work();
    } catch (RunTimeFailure& failure) {
        failure.tell_day(civil_date(jd));
        throw;
    }
}

/// 0 h of the civil date that a Julian day lies in                                             [d]
double start_of_date(double jd);

/// Hours passed of the civil day that a Julian day lies in, from 0 to below 24.
double hours_of_day(double jd);

} // namespace halvane
