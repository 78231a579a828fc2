// SPDX-License-Identifier: MIT
#include "crescent/crescentrules.h"

#include "base/numberformat.h"
#include "calendar/yearlimits.h"
#include "crescent/crescentreport.h"

#include <cmath>

namespace halvane {

std::array<TwinText, 3> day_captions(bool new_crescent) {
    constexpr TwinText conjunction{"The Day of Conjunction", "يوم الاقتران"};
    if (new_crescent)
        return {conjunction,
                {"One Day After Conjunction", "يوم واحد بعد الاقتران"},
                {"Two Days After Conjunction", "يومان بعد الاقتران"}};
    return {conjunction,
            {"One Day Before Conjunction", "يوم واحد قبل الاقتران"},
            {"Two Days Before Conjunction", "يومان قبل الاقتران"}};
}

std::array<TwinText, 2> event_captions(bool new_crescent) {
    if (new_crescent)
        return {{{"Sunset", "غروب الشمس"}, {"Moonset", "غروب القمر"}}};
    return {{{"Sunrise", "شروق الشمس"}, {"Moonrise", "شروق القمر"}}};
}

MonthNames hijri_month_list(Language language) {
    constexpr std::size_t jamada_aakherah = 5; // Muharram is 0
    MonthNames names = conversion_months(ConversionDirection::hijri_to_civil, language);
    if (language == Language::arabic)
        names[jamada_aakherah] = "جمادى الآخرة";
    return names;
}

std::string day_caption(const DateNumbers& date) {
    const std::string year = date.year == 0 ? "0" : format_number(date.year, "######");
    return format_number(date.day, "##00") + "/" + format_number(date.month, "##00") + "/" + year + "  CE";
}

std::optional<CrescentRefusal> refused_conjunction(const CrescentSettings& settings) {
    const bool gregorian = settings.gregorian;
    const double year = numeric_prefix(gregorian ? settings.year : settings.hijri_year);
    const auto refused = refused_year(year, gregorian ? theory_years : hijri_theory_years);
    if (!refused)
        return std::nullopt;
    return CrescentRefusal{gregorian ? CrescentInput::gregorian_year : CrescentInput::hijri_year, *refused};
}

std::optional<CrescentRefusal> refused_user_time(const CrescentSettings& settings) {
    const auto far = [](const std::string& text) {
        return std::fabs(numeric_prefix(text)) > largest_stored_day;
    };
    if (!settings.at_user_time || !(far(settings.user_hour) || far(settings.user_minute)))
        return std::nullopt;
    return CrescentRefusal{CrescentInput::user_time,
                           {{"Time Error", "خطأ"},
                            {"There is no such time: please enter the hour and the minute of a clock.",
                             "لا يوجد وقت كهذا، يرجى إدخال ساعة و دقيقة."}}};
}

std::array<std::string, 3> CrescentRules::dates(bool new_crescent) const {
    const std::array<DateNumbers, 5> candidates = candidate_dates(conjunction_.value());
    const std::size_t nearest = new_crescent ? 1 : 3;
    return {day_caption(candidates[0]), day_caption(candidates[nearest]),
            day_caption(candidates[nearest + 1])};
}

RunPointer CrescentRules::calculate(const TheoryPointer& theory, const CrescentRecords& run,
                                    DayEvents& events) const {
    const Conjunction conjunction = conjunction_.value();
    write_visib(run.settings);
    return crescent_run(theory, run, conjunction, events);
}

} // namespace halvane
