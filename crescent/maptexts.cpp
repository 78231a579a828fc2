// SPDX-License-Identifier: MIT
#include "crescent/maptexts.h"

#include "base/numberformat.h"
#include "base/record.h"
#include "calendar/civildate.h"
#include "calendar/moddateconv.h"
#include "calendar/modday.h"

namespace halvane {
namespace {

const char* in(char letter, const char* english, const char* arabic) {
    return letter == 'A' ? arabic : english;
}

} // namespace

const char* criterion_name(Criterion criterion, char letter) {
    const TwinText& name = row_of(criterion).name;
    return in(letter, name.english, name.arabic);
}

std::vector<LegendLine> map_legend(const CriterionRow& criterion) {
    using enum VisibilityClass;
    std::vector<LegendLine> legend{
        {impossible, "Red: Impossible", "أحمر: مستحيل"},
        {not_possible, "No Color: Not Possible", "غير ملون: رؤية الهلال غير ممكنة"}};
    const std::span<const LegendLine> bands = criterion.lines();
    legend.insert(legend.end(), bands.begin(), bands.end());
    legend.push_back({unknown, "Cyan: Unknown", "سماوي: غير معروف"});
    return legend;
}

std::string map_hijri_text(const MapRun& run, char letter) {
    constexpr double days_shifted_new = 10;
    constexpr double days_shifted_old = -5;
    const DateNumbers date = civil_date(run.conjunction.days[4]);
    const double shift = run.kind == CrescentKind::new_crescent ? days_shifted_new : days_shifted_old;
    double day = 0;
    double year = 0;
    std::string month;
    moddateconv(date.day + shift, date.month, date.year, "GtoH", letter, day, month, year);
    return month + " " + plain_number(year);
}

std::string map_date_text(double day, char letter) {
    const DateNumbers date = civil_date(day);
    return plain_number(date.day) + " " + modmonth(static_cast<int>(date.month), letter) + " " +
           plain_number(date.year);
}

std::vector<std::string> map_information(const MapRun& run, char letter) {
    const bool is_new = run.kind == CrescentKind::new_crescent;
    const std::string name = criterion_name(run.criterion, letter);
    return {is_new ? in(letter, "New Crescent Visibility", "رؤية هلال أول الشهر")
                   : in(letter, "Old Crescent Visibility", "رؤية هلال آخر الشهر"),
            letter == 'A' ? " معيار " + name : name + " Criterion", map_hijri_text(run, letter),
            modday(run.day + 0.5, letter == 'A' ? 1 : 0), map_date_text(run.day, letter)};
}

} // namespace halvane
