// SPDX-License-Identifier: MIT
#include "timetable/sheetnotes.h"

#include "base/numberformat.h"
#include "calendar/civildate.h"
#include "calendar/modday.h"
#include "timetable/cells.h"
#include "timetable/placewords.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace halvane {
namespace {

using Rows = std::span<const TimetableRow>;

/// "+3", "+5:30", "-3:30"
std::vector<int> offsets_of(Rows rows) {
    std::vector<int> offsets;
    for (const TimetableRow& row : rows)
        if (std::find(offsets.begin(), offsets.end(), row.offset) == offsets.end())
            offsets.push_back(row.offset);
    return offsets;
}

std::string number(double value) {
    return plain_number(value);
}

TwinWords name_of(DayTime time, PrayerNames names) {
    const ColumnNames& column = names_of(column_of(time));
    return names == PrayerNames::common ? column.common : column.halvane;
}

TwinWords isha_words(const Profile& profile, PrayerNames names) {
    const TwinWords isha = name_of(DayTime::isha, names);
    const TwinWords maghreb = name_of(DayTime::maghreb, names);
    if (profile.isha_minutes == 0)
        return {isha.english + " " + number(profile.isha_angle) + "°",
                isha.arabic + " " + number(profile.isha_angle) + "°"};
    TwinWords words{isha.english + " " + number(profile.isha_minutes) + " min after " + maghreb.english,
                    isha.arabic + " بعد " + maghreb.arabic + " بـ " + number(profile.isha_minutes) +
                        " دقيقة"};
    if (profile.isha_minutes_ramadan > 0) {
        words.english += " (" + number(profile.isha_minutes_ramadan) + " in Ramadan)";
        words.arabic += " (" + number(profile.isha_minutes_ramadan) + " في رمضان)";
    }
    return words;
}

TwinWords source_of_rules(const Profile& profile) {
    if (profile.preferences)
        return {"by the preferences", "حسب الخيارات"};
    const Authority* authority = find_authority(profile.authority);
    if (profile.name.empty())
        return authority != nullptr ? TwinWords(authority->name) : TwinWords();
    TwinWords words{"profile " + profile.name, "القواعد: " + profile.name};
    if (authority != nullptr) {
        words.english += std::string(", after ") + authority->name.english;
        words.arabic += std::string("، عن ") + authority->name.arabic;
    }
    return words;
}

std::string added_words(const Profile& profile, PrayerNames names, Language language) {
    std::string words;
    for (const DayTime time : day_times)
        if (const double minutes = profile.added[time]; minutes != 0) {
            const std::string text = (minutes > 0 ? "+" : "") + number(minutes);
            words += (words.empty() ? "" : ", ") + name_of(time, names).in(language) + " " +
                     (language == Language::arabic ? left_to_right(text) : text);
        }
    return words;
}

bool has_source(Rows rows, TimeSource source) {
    return std::any_of(rows.begin(), rows.end(), [source](const TimetableRow& row) {
        return std::any_of(row.times.values.begin(), row.times.values.end(),
                           [source](const RowTime& time) { return time.clock && time.source == source; });
    });
}

bool is_missing(Rows rows, NoEvent reason) {
    return std::any_of(rows.begin(), rows.end(), [reason](const TimetableRow& row) {
        return std::any_of(row.times.values.begin(), row.times.values.end(),
                           [reason](const RowTime& time) { return !time.clock && time.missing == reason; });
    });
}

void note_missing(std::vector<TwinWords>& notes, Rows rows) {
    struct Reason {
        NoEvent reason;
        TwinText words;
    };
    constexpr Reason reasons[] = {
        {NoEvent::none, {"–: there is no such time on this date.", "–: لا يوجد هذا الوقت في هذا التاريخ."}},
        {NoEvent::up, {"up: the Sun does not set.", "طالعة: الشمس لا تغرب."}},
        {NoEvent::down, {"down: the Sun does not rise.", "غائبة: الشمس لا تشرق."}},
        {NoEvent::bright,
         {"bright: the night stays bright, and no rule gives a time.",
          "مضيئة: يبقى الليل مضيئا، و لا توجد قاعدة تعطي الوقت."}},
        {NoEvent::dark, {"dark: the day stays dark.", "مظلمة: يبقى النهار مظلما."}}};
    for (const Reason& reason : reasons)
        if (is_missing(rows, reason.reason))
            notes.emplace_back(reason.words);
}

void note_clock_changes(std::vector<TwinWords>& notes, Rows rows) {
    for (const TimetableRow& row : rows)
        if (row.clock_changes) {
            const TwinWords date = date_words(row.date);
            notes.emplace_back("The clock changes on " + date.english + ".",
                               "تتغير الساعة في " + date.arabic + ".");
        }
}

void note_jumuah(std::vector<TwinWords>& notes, Rows rows, const Timetable& timetable,
                 const PageSettings& page) {
    const auto friday =
        std::find_if(rows.begin(), rows.end(), [](const TimetableRow& row) { return !row.jumuah.empty(); });
    if (friday == rows.end() || page.shows(TimetableColumn::jumuah))
        return;
    TwinWords clocks;
    for (const RowTime& time : friday->jumuah) {
        const TwinWords words = clock_words(*time.clock, timetable.to_second, page.clock);
        clocks.english += (clocks.english.empty() ? "" : ", ") + words.english;
        clocks.arabic += (clocks.arabic.empty() ? "" : "، ") + words.arabic;
    }
    notes.emplace_back("Jumu'ah: " + clocks.english, "الجمعة: " + clocks.arabic);
}

void note_night(std::vector<TwinWords>& notes, const Profile& profile, const PageSettings& page) {
    if (!page.shows(TimetableColumn::midnight) && !page.shows(TimetableColumn::last_third))
        return;
    const TwinWords maghreb = name_of(DayTime::maghreb, page.names);
    const TwinWords end = name_of(profile.night_until_fajer ? DayTime::fajer : DayTime::shuroq, page.names);
    notes.emplace_back("The night is from " + maghreb.english + " to " + end.english + ".",
                       "الليل من " + maghreb.arabic + " إلى " + end.arabic + ".");
}

} // namespace

TwinWords zone_words(const TimetablePlace& place, Rows rows) {
    return zone_words(place, offsets_of(rows));
}

TwinWords rules_words(const Profile& profile, PrayerNames names) {
    const TwinWords fajer = name_of(DayTime::fajer, names);
    const TwinWords aser = name_of(DayTime::aser, names);
    const TwinWords isha = isha_words(profile, names);
    const std::string angle = " " + number(profile.fajer_angle) + "°";
    TwinWords words{fajer.english + angle + ", " + isha.english + ", " + aser.english +
                        (profile.hanafi ? " Hanafi" : " standard"),
                    fajer.arabic + angle + "، " + isha.arabic + "، " + aser.arabic +
                        (profile.hanafi ? " حنفي" : " للجمهور")};
    const std::string added = added_words(profile, names, Language::english);
    if (!added.empty()) {
        words.english += ", minutes added: " + added;
        words.arabic += "، دقائق مضافة: " + added_words(profile, names, Language::arabic);
    }
    const TwinWords source = source_of_rules(profile);
    if (!source.english.empty()) {
        words.english += " – " + source.english;
        words.arabic += " – " + source.arabic;
    }
    return words;
}

TwinWords words_of(TimeSource source, const Profile& profile) {
    const std::string latitude = number(reference_latitude_of(profile)) + "°";
    switch (source) {
    case TimeSource::middle:
        return TwinText{"by the middle of the night", "بمنتصف الليل"};
    case TimeSource::seventh:
        return TwinText{"by one seventh of the night", "بسبع الليل"};
    case TimeSource::angle:
        return TwinText{"by the part of the night that the angle is of 60°",
                        "بجزء من الليل هو نسبة الزاوية إلى 60°"};
    case TimeSource::nearest_latitude:
        return {"by the clock of latitude " + latitude, "بتوقيت خط العرض " + latitude};
    case TimeSource::share:
        return {"by the share of the night at latitude " + latitude, "بنسبة الليل عند خط العرض " + latitude};
    case TimeSource::year:
        return TwinText{"by the alternative method, smoothed over the year",
                        "بالحسابات البديلة لخطوط العرض العليا"};
    case TimeSource::interval:
        return TwinText{"by an interval after Maghreb", "بفترة بعد المغرب"};
    case TimeSource::sky:
        break;
    }
    return TwinText{"by the Sun's place", "بموضع الشمس"};
}

std::vector<TwinWords> zone_difference_words(const Timetable& timetable) {
    const ZoneDifference& difference = timetable.zone_difference;
    const TimetablePlace& place = timetable.settings.place;
    if (difference.days == 0 || !place.known_zone)
        return {};
    const TwinWords first = date_words(civil_date(difference.first));
    const TwinWords last = date_words(civil_date(difference.last));
    const std::string zone = place.known_zone->name();
    const std::string days = std::to_string(difference.days);
    const bool by_zone = place.zone.has_value();
    return {{"On " + days + (difference.days == 1 ? " day" : " days") + " from " + first.english + " to " +
                 last.english + " the stored zone and summer dates differ from the time zone " + zone +
                 "; this timetable follows the " + (by_zone ? "time zone." : "stored ones."),
             "في " + days + " يوم من " + first.arabic + " إلى " + last.arabic +
                 " يختلف التوقيت المخزون و تواريخ التوقيت الصيفي عن المنطقة الزمنية " + left_to_right(zone) +
                 "، و هذا التقويم حسب " + (by_zone ? "المنطقة الزمنية." : "المخزون.")}};
}

std::vector<TwinWords> notes_of(const Timetable& timetable, const PageSettings& page, Rows rows) {
    std::vector<TwinWords> notes;
    for (const TimeSource source : timetable.rules)
        if (has_source(rows, source)) {
            const TwinWords words = words_of(source, timetable.settings.profile);
            notes.emplace_back("* " + words.english + ", not by the Sun's own place.",
                               "* " + words.arabic + "، لا بموضع الشمس نفسه.");
        }
    note_jumuah(notes, rows, timetable, page);
    note_missing(notes, rows);
    note_clock_changes(notes, rows);
    note_night(notes, timetable.settings.profile, page);
    if (const HijriReckoningPointer& hijri = timetable.settings.hijri)
        notes.emplace_back("Hijri dates: " + hijri->name.english, "التواريخ الهجرية: " + hijri->name.arabic);
    for (const TwinWords& words : zone_difference_words(timetable))
        notes.push_back(words);
    return notes;
}

} // namespace halvane
