// SPDX-License-Identifier: MIT
#include "calendar/modday.h"
#include "hijri/alignedlines.h"
#include "hijri/hijrifiles.h"
#include "hijri/hijritexts.h"
#include "timetable/cells.h"

#include <algorithm>
#include <string>
#include <vector>

namespace halvane {
namespace {

std::string date_and_weekday(double day_number, Language language) {
    return iso_date(day_number) + " " + weekday_name(day_number, language);
}

std::string table_of_rule(const RuleMonths& rule, Language language) {
    const auto in = [language](const TwinText& text) { return std::string(text.in(language)); };
    AlignedLines lines;
    lines.add({in({"Month", "الشهر"}), in({"First day", "أول يوم"}), in({"Days", "الأيام"}),
               in({"Margin", "الهامش"}), in({"Notes", "ملاحظات"})});
    for (const HijriMonth& month : rule.months)
        lines.add({month_words(month.number).in(language), date_and_weekday(month.first_day, language),
                   std::to_string(month.days), margin_text(month), notes_text(month, language)});
    return lines.text();
}

std::string table_of_rules(const HijriYears& years, Language language) {
    AlignedLines lines;
    std::vector<std::string> head{TwinText{"Month", "الشهر"}.in(language)};
    for (std::size_t rule = 1; rule <= years.rules.size(); ++rule) {
        head.push_back("(" + std::to_string(rule) + ")");
        if (rule > 1)
            head.emplace_back(TwinText{"Days after (1)", "أيام بعد (1)"}.in(language));
    }
    lines.add(head);
    for (std::size_t month = 0; month < years.months(); ++month) {
        std::vector<std::string> fields{month_words(years.rules.front().months[month].number).in(language)};
        for (std::size_t rule = 0; rule < years.rules.size(); ++rule) {
            const HijriMonth& own = years.rules[rule].months[month];
            const char* const mark = own.may_differ() ? " *" : "";
            fields.push_back(date_and_weekday(own.first_day, language) + mark);
            if (rule > 0)
                fields.push_back(signed_days(years.difference(rule, month)));
        }
        lines.add(fields);
    }
    return lines.text();
}

bool any_may_differ(const HijriYears& years) {
    return std::any_of(years.rules.begin(), years.rules.end(), [](const RuleMonths& rule) {
        return std::any_of(rule.months.begin(), rule.months.end(),
                           [](const HijriMonth& month) { return month.may_differ(); });
    });
}

} // namespace

std::string table_of(const HijriYears& years, Language language) {
    std::string text = std::string(TwinText{"Hijri months", "الأشهر الهجرية"}.in(language)) + "\n";
    const bool one = years.rules.size() == 1;
    for (std::size_t rule = 0; rule < years.rules.size(); ++rule)
        text += (one ? "" : "(" + std::to_string(rule + 1) + ") ") +
                name_of(years.rules[rule].settings).in(language) + "\n";
    text += "\n";
    text += one ? table_of_rule(years.rules.front(), language) : table_of_rules(years, language);
    if (!one && any_may_differ(years))
        text += std::string(TwinText{"* may differ by a day", "* قد يختلف بيوم"}.in(language)) + "\n";
    return text;
}

std::string table_of(const MonthSheet& sheet, Language language) {
    std::string text =
        month_words(sheet.month.number).in(language) + "\n" + name_of(sheet.settings).in(language) + "\n";
    const std::string notes = notes_text(sheet.month, language);
    if (!notes.empty())
        text += notes + "\n";
    AlignedLines lines;
    for (const MonthDay& day : sheet.days) {
        std::string told = day.phase ? phase_words(*day.phase).in(language) : std::string();
        for (const Feast* const feast : day.feasts)
            (told += told.empty() ? "" : "; ") += words_of(*feast).in(language);
        lines.add({std::to_string(static_cast<int>(day.hijri.day)),
                   date_and_weekday(day.day_number, language), told});
    }
    return text + "\n" + lines.text();
}

std::string line_of(const HijriDay& day, const HijriSettings& settings, Language language) {
    const TwinWords words = month_words(day.month.number);
    std::string line = date_and_weekday(day.day_number, language) + " = " + iso_hijri(day.hijri) + " (" +
                       std::to_string(static_cast<int>(day.hijri.day)) + " " + words.in(language) + "), " +
                       name_of(settings).in(language);
    const std::string notes = notes_text(day.month, language);
    return (notes.empty() ? line : line + "; " + notes) + "\n";
}

std::string rule_table(Language language) {
    constexpr TwinText between{", ", "، "};
    AlignedLines lines;
    for (const HijriRule& rule : hijri_rules()) {
        std::string asked;
        for (const AskedThing& thing : asked_things(rule))
            (asked += asked.empty() ? "" : between.in(language)) += thing.name.in(language);
        lines.add({rule.key, rule.name.in(language), asked});
    }
    return lines.text();
}

} // namespace halvane
