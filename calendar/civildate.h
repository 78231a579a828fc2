#pragma once

#include "app/stored/date.h"
#include "app/stored/failure.h"

namespace halvane {

/// Civil date of a Julian day, the day without its fraction.
DateNumbers civil_date(double jd);

/// The same as what a calculation is about.
SubjectDay subject_day(double jd);

/// Hours passed of the civil day that a Julian day lies in, from 0 to below 24.
double hours_of_day(double jd);

} // namespace halvane
