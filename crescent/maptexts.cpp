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

TwinText map_title(CrescentKind kind) {
    if (kind == CrescentKind::new_crescent)
        return {"New Crescent Visibility", "رؤية هلال أول الشهر"};
    return {"Old Crescent Visibility", "رؤية هلال آخر الشهر"};
}

std::string hijri_month_of(double conjunction_day, CrescentKind kind, Language language) {
    constexpr double days_back = 2;
    constexpr double days_shifted_new = 10;
    constexpr double days_shifted_old = -5;
    const DateNumbers date = civil_date(conjunction_day - days_back);
    const double shift = kind == CrescentKind::new_crescent ? days_shifted_new : days_shifted_old;
    const HijriDate hijri = hijri_of_civil(date.year, date.month, date.day + shift);
    return hijri_month_name(hijri.month, language) + " " + plain_number(hijri.year);
}

std::string map_hijri_text(const MapRun& run, Language language) {
    return hijri_month_of(run.conjunction.days[0], run.kind, language);
}

std::string map_date_text(double day, Language language) {
    const DateNumbers date = civil_date(day);
    return plain_number(date.day) + " " + civil_month_name(static_cast<int>(date.month), language) + " " +
           plain_number(date.year);
}

std::vector<std::string> map_information(const MapRun& run, Language language) {
    const std::string name = row_of(run.criterion).name.in(language);
    return {map_title(run.kind).in(language), TwinWords(name + " Criterion", " معيار " + name).in(language),
            map_hijri_text(run, language), weekday_name(run.day + 0.5, language),
            map_date_text(run.day, language)};
}

} // namespace halvane
