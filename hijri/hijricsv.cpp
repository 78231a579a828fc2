// SPDX-License-Identifier: MIT
#include "calendar/modday.h"
#include "hijri/hijrifiles.h"
#include "hijri/hijritexts.h"
#include "report/csvwriter.h"
#include "timetable/cells.h"

#include <string>
#include <vector>

namespace halvane {
namespace {

void append_row(std::string& text, const std::vector<std::string>& fields) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0)
            text += ',';
        append_csv_field(text, fields[i]);
    }
    text += "\r\n";
}

std::vector<std::string> month_fields(HijriMonthNumber month, Language language) {
    return {std::to_string(month.year()), std::to_string(month.month()),
            hijri_month_name(month.month(), language)};
}

std::string csv_of_rule(const std::vector<HijriMonth>& months, Language language) {
    std::string text;
    append_row(text, {"year", "month", "name", "first_day", "days", "margin", "note"});
    for (const HijriMonth& month : months) {
        std::vector<std::string> fields = month_fields(month.number, language);
        for (std::string field : {iso_date(month.first_day), std::to_string(month.days), margin_text(month),
                                  notes_text(month, language)})
            fields.push_back(std::move(field));
        append_row(text, fields);
    }
    return text;
}

std::string csv_of_rules(const HijriYears& years, Language language) {
    std::string text;
    std::vector<std::string> head{"year", "month", "name"};
    for (const std::string& key : distinct_keys(years.rules)) {
        head.push_back(key + "_first_day");
        head.push_back(key + "_difference");
    }
    append_row(text, head);
    for (std::size_t month = 0; month < years.months(); ++month) {
        std::vector<std::string> fields = month_fields(years.rules.front().months[month].number, language);
        for (std::size_t rule = 0; rule < years.rules.size(); ++rule) {
            fields.push_back(iso_date(years.rules[rule].months[month].first_day));
            fields.push_back(std::to_string(years.difference(rule, month)));
        }
        append_row(text, fields);
    }
    return text;
}

} // namespace

std::string csv_of(const HijriYears& years, Language language) {
    return years.rules.size() == 1 ? csv_of_rule(years.rules.front().months, language)
                                   : csv_of_rules(years, language);
}

std::string csv_of(const MonthSheet& sheet, Language language) {
    std::string text;
    append_row(text, {"hijri", "date", "weekday", "phase", "white_day", "feasts", "feast_names"});
    for (const MonthDay& day : sheet.days) {
        std::string keys;
        std::string names;
        for (const Feast* const feast : day.feasts) {
            (keys += keys.empty() ? "" : " ") += feast->key;
            (names += names.empty() ? "" : "; ") += words_of(*feast).in(language);
        }
        append_row(text,
                   {iso_hijri(day.hijri), iso_date(day.day_number), weekday_name(day.day_number, language),
                    day.phase ? key_of(moon_of(*day.phase)) : "", day.is_white_day() ? "1" : "0", keys,
                    names});
    }
    return text;
}

} // namespace halvane
