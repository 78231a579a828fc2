// SPDX-License-Identifier: MIT
#include "timetable/hijridays.h"

namespace halvane {
namespace {

constexpr double noon_after_midnight = 0.5;

} // namespace

HijriReckoningPointer reckoning_within(const HijriReckoningPointer& hijri, const DaySpan& span) {
    const auto is_within = [](double jd) {
        return hijri_timetable_years.holds(hijri_of_day_number(jd + noon_after_midnight).year);
    };
    const bool counts = is_hijri(span.kind) || (is_within(span.first) && is_within(span.last));
    return counts ? hijri : nullptr;
}

HijriDays::HijriDays(const HijriReckoningPointer& hijri, const DaySpan& span) {
    if (hijri)
        months_ = hijri->months(span.first + noon_after_midnight, span.last + noon_after_midnight);
}

HijriDate HijriDays::on(double jd) const {
    const double day_number = jd + noon_after_midnight;
    return months_ ? months_->date_of(day_number).value() : hijri_of_day_number(day_number);
}

} // namespace halvane
