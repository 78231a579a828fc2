// SPDX-License-Identifier: MIT
#include "crescent/crescentrules.h"

#include "base/numberformat.h"
#include "calendar/civildate.h"
#include "calendar/modjul.h"
#include "calendar/yearlimits.h"
#include "crescent/circumstances.h"
#include "crescent/crescentreport.h"
#include "crescent/daywords.h"
#include "crescent/maptexts.h"
#include "events/phase.h"

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

namespace {

/// 0 h of a date                                                                               [d]
double midnight_of(const DateNumbers& date) {
    double jd = 0;
    modjul(date.year, date.month, date.day, 0, jd);
    return jd;
}

/// The last of the three days of a crescent                                                    [d]
double last_day_of(const Conjunction& conjunction, bool new_crescent) {
    constexpr double days_after = 2;
    return midnight_of(civil_date(conjunction.local)) + (new_crescent ? days_after : 0);
}

void fill_dates(CrescentSettings& settings, const Conjunction& conjunction) {
    const DateNumbers date = civil_date(conjunction.local);
    settings.day = plain_number(date.day);
    settings.month = plain_number(date.month);
    settings.year = plain_number(date.year);
    const HijriDate hijri = hijri_looked_for(midnight_of(date), settings.new_crescent);
    settings.hijri_month = static_cast<int>(hijri.month) - 1;
    settings.hijri_year = plain_number(hijri.year);
}

} // namespace

CrescentSettings coming_crescent(const TheoryPointer& theory, const CrescentRecords& run,
                                 const DateNumbers& today) {
    Ephemeris ephemeris(theory);
    CrescentRecords near = run;
    near.settings.gregorian = true;
    const auto conjunction_near = [&](const DateNumbers& date) {
        near.settings.day = plain_number(date.day);
        near.settings.month = plain_number(date.month);
        near.settings.year = plain_number(date.year);
        return find_conjunction(ephemeris, near);
    };
    const bool is_new = run.settings.new_crescent;
    Conjunction conjunction = conjunction_near(today);
    if (last_day_of(conjunction, is_new) < midnight_of(today))
        conjunction = conjunction_near(civil_date(conjunction.local + synodic_month));
    CrescentSettings coming = run.settings;
    fill_dates(coming, conjunction);
    return coming;
}

TwinWords conjunction_words(const Conjunction& conjunction, const CrescentRecords& run) {
    const CrescentSettings& settings = run.settings;
    const double universal = conjunction.local - (run.location.zone + conjunction.summer_hours) / 24;
    const double midnight = midnight_of(civil_date(conjunction.local));
    const TwinWords day = day_words(conjunction.local);
    const TwinWords month = month_words(hijri_looked_for(midnight, settings.new_crescent));
    const TwinText kind = settings.geocentric ? TwinText{"Geocentric conjunction: ", "الاقتران المركزي: "}
                                              : TwinText{"Topocentric conjunction: ", "الاقتران السطحي: "};
    const TwinText bounds =
        settings.new_crescent ? TwinText{"It begins ", "يبدأ به "} : TwinText{"It ends ", "ينتهي به "};
    const std::string clock = clock_words(conjunction.local);
    const std::string universal_clock = clock_words(universal);
    return {kind.english + day.english + ", " + clock +
                "\nIn UT: " + map_date_text(universal, Language::english) + ", " + universal_clock + ". " +
                bounds.english + month.english + ".",
            kind.arabic + day.arabic + "، " + clock +
                "\nبالتوقيت العالمي: " + map_date_text(universal, Language::arabic) + "، " + universal_clock +
                ". " + bounds.arabic + month.arabic + "."};
}

std::array<DateNumbers, 3> CrescentRules::days(bool new_crescent) const {
    const std::array<DateNumbers, 5> candidates = candidate_dates(conjunction_.value());
    const std::size_t nearest = new_crescent ? 1 : 3;
    return {candidates[0], candidates[nearest], candidates[nearest + 1]};
}

std::array<std::string, 3> CrescentRules::dates(bool new_crescent) const {
    const std::array<DateNumbers, 3> shown = days(new_crescent);
    return {day_caption(shown[0]), day_caption(shown[1]), day_caption(shown[2])};
}

RunPointer CrescentRules::calculate(const TheoryPointer& theory, const CrescentRecords& run,
                                    DayEvents& events) const {
    const Conjunction conjunction = conjunction_.value();
    write_visib(run.settings);
    return crescent_run(theory, run, conjunction, events);
}

} // namespace halvane
