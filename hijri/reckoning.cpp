// SPDX-License-Identifier: MIT
#include "hijri/hijrimonths.h"

#include <algorithm>
#include <memory>
#include <mutex>

namespace halvane {
namespace {

/// The months of a rule as far as they have been asked for.
class KeptMonths {
public:
    KeptMonths(TheoryPointer theory, HijriSettings settings)
        : theory_(std::move(theory)), settings_(std::move(settings)) {}

    HijriCalendar holding(double first, double last) {
        const std::scoped_lock lock(mutex_);
        if (!kept_ || kept_->first_day() > first || kept_->last_day() < last)
            kept_ = made(first, last);
        return *kept_;
    }

private:
    /// A rule's months begin within days of the tabular ones of the same name.
    static HijriMonthNumber month_about(double day, int months) {
        const HijriDate date = hijri_of_day_number(day);
        return {HijriMonthNumber::of(static_cast<int>(date.year), static_cast<int>(date.month)).value +
                months};
    }

    HijriCalendar made(double first, double last) const {
        for (int around = 1;; ++around) {
            NoProgress progress;
            HijriCalendar calendar = calendar_of(*hijri_months(
                theory_, settings_, month_about(first, -around), month_about(last, around), progress));
            if (calendar.first_day() <= first && calendar.last_day() >= last)
                return calendar;
        }
    }

    TheoryPointer theory_;
    HijriSettings settings_;
    std::mutex mutex_;
    std::optional<HijriCalendar> kept_;
};

} // namespace

HijriReckoningPointer reckoning_of(const TheoryPointer& theory, const HijriSettings& settings) {
    const auto kept = std::make_shared<KeptMonths>(theory, settings);
    return std::make_shared<HijriReckoning>(HijriReckoning{
        name_of(settings), [kept](double first, double last) { return kept->holding(first, last); }});
}

} // namespace halvane
