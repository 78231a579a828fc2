// SPDX-License-Identifier: MIT
#include "base/numberformat.h"
#include "hijri/hijrifiles.h"
#include "hijri/hijritexts.h"
#include "timetable/calendartext.h"
#include "timetable/cells.h"
#include "timetable/placewords.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace halvane {
namespace {

constexpr double noon = 0.5;

/// Whole days one after the other.
struct DayEvent {
    std::string uid;  ///< without what all share
    double first = 0; ///< day number
    int days = 1;
    std::string summary;
    std::string told;
};

/// A calendar of whole days, as it grows.
class DayCalendar {
public:
    DayCalendar(const TwinWords& title, Language language, std::int64_t stamp)
        : text_(title.in(language)), language_(language), stamp_(calendar_moment(stamp)) {}

    /// The first day and the feasts of a month.
    /// In     key     of the rule
    ///        behind  what stands behind each name
    void add_month(const HijriMonth& month, const HijriSettings& settings, const std::string& key,
                   const std::string& behind) {
        const std::string uid = "hijri-" + std::to_string(month.number.year()) + '-' +
                                format_number(month.number.month(), "00") + '-';
        const std::string rule = name_of(settings).in(language_);
        add({uid + key, month.first_day, 1, month_words(month.number).in(language_) + behind,
             told_of(month, rule)});
        for (const KeptFeast& kept : feasts_of_month(month.number, month.days))
            add({(uid + kept.feast->key).append("-").append(key), month.first_day + kept.first - 1, kept.days,
                 words_of(*kept.feast).in(language_) + behind, rule});
    }

    void add(const DayEvent& event) {
        text_.line("BEGIN:VEVENT");
        text_.line("UID:" + event.uid + "@halvane");
        text_.line("DTSTAMP:" + stamp_);
        text_.line("DTSTART;VALUE=DATE:" + calendar_date(event.first - noon));
        text_.line("DTEND;VALUE=DATE:" + calendar_date(event.first - noon + event.days));
        text_.line("SUMMARY:" + calendar_value(event.summary));
        text_.line("DESCRIPTION:" + calendar_value(event.told));
        text_.line("TRANSP:TRANSPARENT");
        text_.line("END:VEVENT");
    }

    std::string finished() { return text_.finished(); }

private:
    std::string told_of(const HijriMonth& month, const std::string& rule) const {
        std::string told = rule;
        const std::string notes = notes_text(month, language_);
        if (!notes.empty())
            (told += "\n") += notes;
        return told;
    }

    CalendarText text_;
    Language language_;
    std::string stamp_;
};

TwinWords title_of(const TwinWords& rule) {
    return {"Hijri months, " + rule.english, "الأشهر الهجرية، " + rule.arabic};
}

void add_phases(DayCalendar& calendar, const MonthSheet& sheet, Language language) {
    const Location& location = sheet.place.location;
    const std::string place = calendar_place(latitude_of(location), longitude_of(location));
    const TwinWords told{"By the clock of " + location.name, "بتوقيت " + location.name};
    for (const MonthDay& day : sheet.days)
        if (day.phase)
            calendar.add({"moon-" + calendar_date(day.day_number - noon) + '-' + key_of(moon_of(*day.phase)) +
                              '-' + place,
                          day.day_number, 1, phase_words(*day.phase).in(language), told.in(language)});
}

} // namespace

std::string ics_of(const HijriYears& years, Language language, std::int64_t stamp) {
    TwinWords rules = name_of(years.rules.front().settings);
    for (std::size_t rule = 1; rule < years.rules.size(); ++rule)
        rules = joined(rules, " / ", name_of(years.rules[rule].settings));
    DayCalendar calendar(title_of(rules), language, stamp);
    const std::vector<std::string> keys = event_keys(years.rules);
    for (std::size_t rule = 0; rule < years.rules.size(); ++rule) {
        const auto own = keys.begin() + static_cast<std::ptrdiff_t>(rule);
        if (std::find(keys.begin(), own, *own) != own)
            continue; // the same events
        const HijriSettings& settings = years.rules[rule].settings;
        const std::string behind = years.rules.size() == 1 ? "" : " (" + name_of(settings).in(language) + ")";
        for (const HijriMonth& month : years.rules[rule].months)
            calendar.add_month(month, settings, keys[rule], behind);
    }
    return calendar.finished();
}

std::string ics_of(const MonthSheet& sheet, Language language, std::int64_t stamp) {
    DayCalendar calendar(title_of(name_of(sheet.settings)), language, stamp);
    calendar.add_month(sheet.month, sheet.settings, rule_key(sheet.settings), "");
    add_phases(calendar, sheet, language);
    return calendar.finished();
}

} // namespace halvane
