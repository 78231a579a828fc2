// SPDX-License-Identifier: MIT
#include "base/numberformat.h"
#include "calendar/civildate.h"
#include "hijri/hijrimonths.h"
#include "report/valuetext.h"

#include <string>

namespace halvane {
namespace {

/// As many digits as tell something of a margin.
const char* pattern_of(const MonthMargin& margin) {
    constexpr double of_seconds = 1;
    constexpr double of_degrees = 0.01;
    if (margin.uncertainty >= of_seconds)
        return "0.0";
    return margin.uncertainty >= of_degrees ? "0.000" : "0.0000";
}

} // namespace

std::string iso_date(double day_number) {
    return iso_date(civil_date(day_number));
}

std::string margin_text(const HijriMonth& month) {
    if (!month.margin)
        return "";
    const std::string number = format_number(month.margin->value, pattern_of(*month.margin));
    const std::string unit = month.margin->unit;
    return unit.empty() ? number : number + " " + unit;
}

std::vector<TwinWords> notes_of(const HijriMonth& month) {
    std::vector<TwinWords> notes;
    if (month.may_differ())
        notes.emplace_back(TwinText{"may differ by a day", "قد يختلف بيوم"});
    if (month.has(MonthNote::announced))
        notes.push_back(month.announced_by.empty()
                            ? TwinWords(TwinText{"announced", "معلن"})
                            : TwinWords("announced by " + month.announced_by, "أعلنه " + month.announced_by));
    if (month.has(MonthNote::made_to_fit))
        notes.emplace_back(TwinText{"moved to keep the months whole", "عدل لتبقى الأشهر تامة"});
    if (month.has(MonthNote::completed))
        notes.emplace_back(TwinText{"30 days were completed without a crescent", "أكملت 30 يوما بلا هلال"});
    if (month.has(MonthNote::undecided))
        notes.emplace_back(TwinText{"no evening showed the crescent", "لم ير الهلال في أي مساء"});
    if (month.has(MonthNote::seen_on_28th))
        notes.emplace_back(TwinText{"seen on the evening of the 28th", "رؤي مساء 28"});
    if (month.has(MonthNote::rule_doubtful))
        notes.emplace_back(TwinText{"the rule of these years is doubtful", "قاعدة هذه السنين غير مؤكدة"});
    return notes;
}

} // namespace halvane
