// SPDX-License-Identifier: MIT
#include "crescent/crescentrules.h"

#include "base/numberformat.h"
#include "calendar/yearlimits.h"
#include "crescent/crescentreport.h"

#include <cmath>

namespace halvane {

std::array<const char*, 3> day_captions(bool new_crescent, char letter) {
    if (letter == 'A')
        return new_crescent ? std::array{"يوم الاقتران", "يوم واحد بعد الاقتران", "يومان بعد الاقتران"}
                            : std::array{"يوم الاقتران", "يوم واحد قبل الاقتران", "يومان قبل الاقتران"};
    constexpr const char* conjunction = "The Day of Conjunction";
    return new_crescent
               ? std::array{conjunction, "One Day After Conjunction", "Two Days After Conjunction"}
               : std::array{conjunction, "One Day Before Conjunction", "Two Days Before Conjunction"};
}

std::array<const char*, 2> event_captions(bool new_crescent, char letter) {
    if (letter == 'A')
        return new_crescent ? std::array{"غروب الشمس", "غروب القمر"} : std::array{"شروق الشمس", "شروق القمر"};
    return new_crescent ? std::array{"Sunset", "Moonset"} : std::array{"Sunrise", "Moonrise"};
}

MonthNames hijri_month_list(char letter) {
    constexpr std::size_t jamada_aakherah = 5; // Muharram is 0
    MonthNames names = conversion_months(ConversionDirection::hijri_to_civil, letter);
    if (letter == 'A')
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
