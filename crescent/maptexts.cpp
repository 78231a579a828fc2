// SPDX-License-Identifier: MIT
#include "crescent/maptexts.h"

#include "base/numberformat.h"
#include "base/record.h"
#include "calendar/civildate.h"
#include "calendar/moddateconv.h"
#include "calendar/modday.h"

namespace halvane {

std::vector<LegendLine> map_legend(const CriterionRow& criterion) {
    using enum VisibilityClass;
    std::vector<LegendLine> legend{
        {impossible, {"Red: Impossible", "أحمر: مستحيل"}},
        {not_possible, {"No Color: Not Possible", "غير ملون: رؤية الهلال غير ممكنة"}}};
    const std::span<const LegendLine> bands = criterion.lines();
    legend.insert(legend.end(), bands.begin(), bands.end());
    legend.push_back({unknown, {"Cyan: Unknown", "سماوي: غير معروف"}});
    return legend;
}

std::string map_hijri_text(const MapRun& run, Language language) {
    constexpr double days_shifted_new = 10;
    constexpr double days_shifted_old = -5;
    const DateNumbers date = civil_date(run.conjunction.days[4]);
    const double shift = run.kind == CrescentKind::new_crescent ? days_shifted_new : days_shifted_old;
    const HijriDate hijri = hijri_of_civil(date.year, date.month, date.day + shift);
    return hijri_month_name(hijri.month, language) + " " + plain_number(hijri.year);
}

std::string map_date_text(double day, Language language) {
    const DateNumbers date = civil_date(day);
    return plain_number(date.day) + " " + civil_month_name(static_cast<int>(date.month), language) + " " +
           plain_number(date.year);
}

std::vector<std::string> map_information(const MapRun& run, Language language) {
    constexpr TwinText new_title{"New Crescent Visibility", "رؤية هلال أول الشهر"};
    constexpr TwinText old_title{"Old Crescent Visibility", "رؤية هلال آخر الشهر"};
    const std::string name = row_of(run.criterion).name.in(language);
    return {(run.kind == CrescentKind::new_crescent ? new_title : old_title).in(language),
            TwinWords(name + " Criterion", " معيار " + name).in(language), map_hijri_text(run, language),
            weekday_name(run.day + 0.5, language), map_date_text(run.day, language)};
}

} // namespace halvane
