// SPDX-License-Identifier: MIT
#include "hijri/hijrirules.h"

#include "crescent/measurewords.h"
#include "hijri/unusualsettings.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace halvane {
namespace {

// What is added for the four cycles; the first has 15 as a leap year, the second 16.
constexpr int of_15 = 15;
constexpr int of_16 = 14;
constexpr int fatimid = 11;
constexpr int habash = 9;

constexpr const char* tabular_sources =
    "R. H. van Gent, The Islamic calendar: origin of the tabular calendar (Utrecht); documentation of ICU, "
    "Joda-Time and Noda Time";

constexpr TwinText told_16{
    "Leap years 2, 5, 7, 10, 13, 16, 18, 21, 24, 26 and 29 of 30: the most usual table, that of the main "
    "panel and the reports.",
    "السنوات الكبيسة 2 و 5 و 7 و 10 و 13 و 16 و 18 و 21 و 24 و 26 و 29 من كل 30: أكثر الجداول شيوعا، و هو "
    "جدول اللوحة الرئيسة و التقارير."};
constexpr TwinText told_15{"Leap years 2, 5, 7, 10, 13, 15, 18, 21, 24, 26 and 29 of 30.",
                           "السنوات الكبيسة 2 و 5 و 7 و 10 و 13 و 15 و 18 و 21 و 24 و 26 و 29 من كل 30."};
constexpr TwinText told_fatimid{
    "Leap years 2, 5, 8, 10, 13, 16, 19, 21, 24, 27 and 29 of 30: the table of the Fatimids, kept by Ismaili "
    "communities.",
    "السنوات الكبيسة 2 و 5 و 8 و 10 و 13 و 16 و 19 و 21 و 24 و 27 و 29 من كل 30: جدول الفاطميين، و تعمل به "
    "الطوائف الإسماعيلية."};
constexpr TwinText told_habash{
    "Leap years 2, 5, 8, 11, 13, 16, 19, 21, 24, 27 and 30 of 30: the table of Habash al-Hasib (9th "
    "century).",
    "السنوات الكبيسة 2 و 5 و 8 و 11 و 13 و 16 و 19 و 21 و 24 و 27 و 30 من كل 30: جدول حبش الحاسب (القرن "
    "الثالث الهجري)."};
constexpr TwinText told_astronomical{
    "The table of that name counted from the epoch of the astronomers, 15 July 622: each month begins a day "
    "before.",
    "الجدول بهذا الاسم محسوبا من مبدأ الفلكيين، 15 تموز 622: يبدأ كل شهر قبله بيوم."};

constexpr HijriRule table[] = {
    {.key = "tabular",
     .name = {"Tabular", "الجدولي"},
     .kind = HijriRuleKind::tabular,
     .told = told_16,
     .source = tabular_sources,
     .cycle = {of_16}},
    {.key = "tabular-astronomical",
     .name = {"Tabular, astronomical epoch", "الجدولي، المبدأ الفلكي"},
     .kind = HijriRuleKind::tabular,
     .told = told_astronomical,
     .source = tabular_sources,
     .cycle = {of_16, astronomical_epoch}},
    {.key = "tabular-15",
     .name = {"Tabular with leap year 15", "الجدولي بكبس السنة 15"},
     .kind = HijriRuleKind::tabular,
     .told = told_15,
     .source = tabular_sources,
     .cycle = {of_15}},
    {.key = "tabular-15-astronomical",
     .name = {"Tabular with leap year 15, astronomical epoch", "الجدولي بكبس السنة 15، المبدأ الفلكي"},
     .kind = HijriRuleKind::tabular,
     .told = told_astronomical,
     .source = tabular_sources,
     .cycle = {of_15, astronomical_epoch}},
    {.key = "tabular-fatimid",
     .name = {"Tabular of the Fatimids", "الجدولي الفاطمي"},
     .kind = HijriRuleKind::tabular,
     .told = told_fatimid,
     .source = tabular_sources,
     .cycle = {fatimid}},
    {.key = "tabular-fatimid-astronomical",
     .name = {"Tabular of the Fatimids, astronomical epoch", "الجدولي الفاطمي، المبدأ الفلكي"},
     .kind = HijriRuleKind::tabular,
     .told = told_astronomical,
     .source = tabular_sources,
     .cycle = {fatimid, astronomical_epoch}},
    {.key = "tabular-habash",
     .name = {"Tabular of Habash al-Hasib", "جدول حبش الحاسب"},
     .kind = HijriRuleKind::tabular,
     .told = told_habash,
     .source = tabular_sources,
     .cycle = {habash}},
    {.key = "tabular-habash-astronomical",
     .name = {"Tabular of Habash al-Hasib, astronomical epoch", "جدول حبش الحاسب، المبدأ الفلكي"},
     .kind = HijriRuleKind::tabular,
     .told = told_astronomical,
     .source = tabular_sources,
     .cycle = {habash, astronomical_epoch}},
    {.key = "umm-al-qura",
     .name = {"Umm al-Qura", "أم القرى"},
     .kind = HijriRuleKind::umm_al_qura,
     .told =
         {"Saudi Arabia's civil calendar. Since 1423: the month begins when at Makkah, on the 29th, the "
          "conjunction is before sunset and the Moon sets after the Sun. 1420 to 1422: when the Moon sets "
          "after the Sun. Before 1420: when the conjunction is before 0 h Universal Time; before 1393 "
          "this is doubtful.",
          "تقويم المملكة العربية السعودية المدني. منذ 1423: يبدأ الشهر إذا كان الاقتران في مكة المكرمة يوم "
          "29 قبل الغروب و غرب القمر بعد الشمس. من 1420 إلى 1422: إذا غرب القمر بعد الشمس. قبل 1420: إذا "
          "كان الاقتران قبل الساعة 0 بالتوقيت العالمي، و في ذلك شك قبل 1393."},
     .source = "R. H. van Gent, The Umm al-Qura calendar of Saudi Arabia (Utrecht); Z. Mostafa, The "
               "Observatory 125, 25 (2005)"},
    {.key = "seen-here",
     .name = {"Seen here", "الرؤية هنا"},
     .kind = HijriRuleKind::seen_at_place,
     .told =
         {"The crescent is seen at the place of observation on the evening of the 29th, by a criterion of "
          "your choice; else the month has 30 days.",
          "رؤية الهلال في مكان الرصد مساء 29 بمعيار تختاره، و إلا فالشهر 30 يوما."},
     .source = "the criterion's own"},
    {.key = "seen-at",
     .name = {"Seen at a place", "الرؤية في مكان"},
     .kind = HijriRuleKind::seen_at_place,
     .told =
         {"The crescent is seen at a place of the list on the evening of the 29th, by a criterion of your "
          "choice; else the month has 30 days.",
          "رؤية الهلال في مكان من القائمة مساء 29 بمعيار تختاره، و إلا فالشهر 30 يوما."},
     .source = "the criterion's own"},
    {.key = "seen-anywhere",
     .name = {"Seen anywhere", "الرؤية في أي مكان"},
     .kind = HijriRuleKind::seen_anywhere,
     .told =
         {"The crescent is seen anywhere in a part of the world on the evening of the 29th, by a "
          "criterion and up to a limit of your choice; the month begins everywhere.",
          "رؤية الهلال في أي مكان من جزء من العالم مساء 29، بمعيار و حد تختارهما؛ و يبدأ الشهر في كل مكان."},
     .source = "the criterion's own"},
    {.key = "mabims",
     .name = {"MABIMS", "مابيمس"},
     .kind = HijriRuleKind::mabims,
     .told =
         {"Brunei, Indonesia, Malaysia, Singapore. On the evening of the 29th, at a place of the country, "
          "the Moon is 3 degrees high and 6.4 degrees from the Sun (from Muharram 1443, as Malaysia has "
          "it); before that 2 degrees, 3 degrees, or 8 hours old at its setting.",
          "بروناي و إندونيسيا و ماليزيا و سنغافورة. ارتفاع القمر مساء 29 في مكان من البلد 3 درجات و بعده عن "
          "الشمس 6.4 درجة (منذ محرم 1443 في ماليزيا)؛ و قبل ذلك درجتان و 3 درجات، أو عمره عند غروبه 8 "
          "ساعات."},
     .source = "Ministers of religious affairs (MABIMS): Labuan, 1 June 1992; signed 8 December 2021"},
    {.key = "turkey",
     .name = {"Turkey", "تركيا"},
     .kind = HijriRuleKind::turkey_1978,
     .told = {"On the evening of the 29th the Moon is, anywhere on Earth at sunset, 5 degrees high and 8 "
              "degrees from the Sun: the conference of Istanbul (1978), as Turkey's Presidency of Religious "
              "Affairs applies it.",
              "ارتفاع القمر مساء 29 عند الغروب في أي مكان على الأرض 5 درجات و بعده عن الشمس 8 درجات: مؤتمر "
              "إسطنبول (1978) كما تعمل به رئاسة الشؤون الدينية التركية."},
     .source =
         "Conference on determining the lunar months, Istanbul, 27 to 30 November 1978; technical notes "
         "of the Presidency of Religious Affairs (2018)"},
    {.key = "istanbul-2016",
     .name = {"Istanbul 2016", "إسطنبول 2016"},
     .kind = HijriRuleKind::istanbul_2016,
     .told =
         {"One calendar for the world: the Moon 5 degrees high and 8 degrees from the Sun anywhere before "
          "midnight in Universal Time; after it only on the mainland of the Americas, if the conjunction is "
          "before dawn in New Zealand.",
          "تقويم واحد للعالم: ارتفاع القمر 5 درجات و بعده عن الشمس 8 درجات في أي مكان قبل منتصف الليل "
          "بالتوقيت العالمي؛ و بعده في بر الأمريكتين فقط إذا كان الاقتران قبل فجر نيوزيلندا."},
     .source = "Congress on the unification of the Hijri calendar, Istanbul, 28 to 30 May 2016"},
    {.key = "istanbul-2016-geocentric",
     .name = {"Istanbul 2016, geocentric", "إسطنبول 2016، مركزي أرضي"},
     .kind = HijriRuleKind::istanbul_2016_geocentric,
     .told = {"As Istanbul 2016, with the altitude from the Earth's centre, a degree higher: the decision "
              "leaves open which altitude it means.",
              "كإسطنبول 2016 و الارتفاع من مركز الأرض، و هو أعلى بدرجة: لم يبين القرار أي ارتفاع يقصد."},
     .source = "Congress on the unification of the Hijri calendar, Istanbul, 28 to 30 May 2016"},
};

constexpr bool is_whole(const HijriRule& rule) {
    return rule.key != nullptr && rule.name.english != nullptr && rule.name.arabic != nullptr &&
           rule.told.english != nullptr && rule.told.arabic != nullptr && rule.source != nullptr;
}
static_assert(std::all_of(std::begin(table), std::end(table), is_whole), "a rule lacks a text");

TwinWords with_rule(const HijriSettings& settings) {
    const HijriRule& rule = *settings.rule;
    const TwinText& name = rule.name;
    const auto at = [&settings, &name](Language language) {
        const std::string& place = settings.place.name;
        if (place.empty())
            return std::string(name.in(language));
        return language == Language::english ? "Seen at " + place : "الرؤية في " + place;
    };
    const auto by = [&settings](Language language) {
        return std::string(language == Language::english ? " by " : " بمعيار ") +
               settings.criterion->name.in(language);
    };
    const auto words = [&](Language language) {
        if (rule.kind == HijriRuleKind::seen_at_place)
            return at(language) + by(language);
        if (rule.kind == HijriRuleKind::seen_anywhere)
            return name.in(language) + by(language);
        if (rule.kind == HijriRuleKind::mabims && !settings.place.name.empty())
            return std::string(name.in(language)) + (language == Language::english ? " at " : " في ") +
                   settings.place.name;
        return std::string(name.in(language));
    };
    return {words(Language::english), words(Language::arabic)};
}

} // namespace

std::span<const HijriRule> hijri_rules() {
    return table;
}

const HijriRule* hijri_rule(std::string_view key) {
    const auto* const found = std::find_if(std::begin(table), std::end(table),
                                           [key](const HijriRule& rule) { return rule.key == key; });
    return found == std::end(table) ? nullptr : found;
}

bool asks_place(const HijriRule& rule) {
    return rule.kind == HijriRuleKind::seen_at_place || rule.kind == HijriRuleKind::mabims;
}

bool asks_place(const HijriRule& rule, SeenBefore before) {
    return asks_place(rule) || (asks_region(rule) && before == SeenBefore::fajer);
}

bool asks_criterion(const HijriRule& rule) {
    return rule.kind == HijriRuleKind::seen_at_place || rule.kind == HijriRuleKind::seen_anywhere;
}

bool asks_region(const HijriRule& rule) {
    return rule.kind == HijriRuleKind::seen_anywhere;
}

bool has_exception_of_the_americas(const HijriRule& rule) {
    return rule.kind == HijriRuleKind::istanbul_2016 || rule.kind == HijriRuleKind::istanbul_2016_geocentric;
}

TwinText words_of(SeenBefore before) {
    switch (before) {
    case SeenBefore::midnight:
        return {"before midnight, Universal Time", "قبل منتصف الليل بالتوقيت العالمي"};
    case SeenBefore::fajer:
        return {"before Fajer at the place", "قبل الفجر في المكان"};
    case SeenBefore::any_time:
        break;
    }
    return {"at any time", "في أي وقت"};
}

double days_ahead(const HijriPlace& place) {
    constexpr double degrees_an_hour = 15;
    constexpr double hours_a_day = 24;
    return std::round((place.hours_ahead - place.longitude / degrees_an_hour) / hours_a_day);
}

TwinWords name_of(const HijriSettings& settings) {
    TwinWords rule = with_rule(settings) + unusual_words(settings);
    if (settings.announced.empty())
        return rule;
    return {"Announced, else " + rule.english, "المعلن، و إلا " + rule.arabic};
}

} // namespace halvane
