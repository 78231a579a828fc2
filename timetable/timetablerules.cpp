// SPDX-License-Identifier: MIT
#include "timetable/timetablerules.h"

#include "base/failure.h"
#include "calendar/civildate.h"
#include "stored/loclist.h"
#include "timetable/hijridays.h"
#include "timetable/placewords.h"
#include "timetable/profilefile.h"
#include "timetable/profilekeys.h"
#include "timetable/timetableplaces.h"

#include <algorithm>
#include <cmath>

namespace halvane {
namespace {

constexpr int months_of_year = 12;

constexpr TwinText year_not_whole{"a year is a whole number", "السنة رقم صحيح"};
constexpr TwinText no_column{"Choose at least one column.", "اختر عمودا واحدا على الأقل."};

bool is_whole(double number) {
    return std::floor(number) == number;
}

TwinWords unknown_zone(const std::string& name) {
    if (name.empty())
        return {"Choose a time zone.", "اختر منطقة زمنية."};
    return {"There is no time zone \"" + name + "\".", "لا توجد منطقة زمنية باسم \"" + name + "\"."};
}

/// The days of a choice; the failure of a reckoning is a refusal.
SpanAnswer told_span(const SpanChoice& choice, const HijriReckoningPointer& hijri) {
    try {
        return span_of(choice, hijri);
    } catch (const RunTimeFailure& failure) {
        const FailureParts& parts = failure.parts();
        return {{}, TwinWords{words_of(parts, Language::english), words_of(parts, Language::arabic)}};
    }
}

/// The Hijri date of a day, of the tabular calendar where the reckoning fails.
DateNumbers hijri_numbers(double jd, const HijriReckoningPointer& hijri) {
    const DaySpan day{SpanKind::dates, jd, jd};
    const auto date_by = [&day](const HijriReckoningPointer& reckoning) {
        const HijriDate date = HijriDays(reckoning_within(reckoning, day), day).on(day.first);
        return DateNumbers{date.year, date.month, date.day};
    };
    try {
        return date_by(hijri);
    } catch (const RunTimeFailure&) {
        return date_by(nullptr);
    }
}

} // namespace

SpanAnswer span_of(const SpanChoice& choice, const HijriReckoningPointer& hijri) {
    const bool dates = choice.kind == SpanKind::dates;
    if (dates ? !is_whole(choice.from.year) || !is_whole(choice.to.year) : !is_whole(choice.year))
        return {{}, year_not_whole};
    switch (choice.kind) {
    case SpanKind::month:
        return month_span(choice.year, choice.month);
    case SpanKind::year:
        return year_span(choice.year);
    case SpanKind::hijri_month:
        return hijri_month_span(choice.year, choice.month, hijri);
    case SpanKind::hijri_year:
        return hijri_year_span(choice.year, hijri);
    case SpanKind::dates:
        break;
    }
    return dates_span(choice.from, choice.to);
}

SpanChoice month_of(const MachineTime& clock) {
    SpanChoice choice;
    choice.year = clock.year;
    choice.month = clock.month;
    return choice;
}

SpanChoice in_kind(const SpanChoice& choice, SpanKind kind, const HijriReckoningPointer& hijri) {
    SpanChoice other = choice;
    other.kind = kind;
    const SpanAnswer answer = told_span(choice, hijri);
    if (answer.refused)
        return other;
    const DateNumbers first = civil_date(answer.span.first);
    const DateNumbers in_kinds_calendar = is_hijri(kind) ? hijri_numbers(answer.span.first, hijri) : first;
    other.year = in_kinds_calendar.year;
    other.month = in_kinds_calendar.month;
    other.from = first;
    other.to = civil_date(answer.span.last);
    return other;
}

bool is_one_month(SpanKind kind) {
    return kind == SpanKind::month || kind == SpanKind::hijri_month;
}

SpanChoice moved(const SpanChoice& choice, int months) {
    SpanChoice other = choice;
    other.month += months;
    if (other.month < 1 || other.month > months_of_year) {
        other.month -= months * months_of_year;
        other.year += months;
    }
    return other;
}

ChoiceAnswer settings_of(const TimetableChoice& choice) {
    ChoiceAnswer answer;
    const auto refuse = [&answer](ChoicePart part, TwinWords words) {
        answer.wrong.push_back({part, std::move(words)});
    };
    const SpanAnswer span = told_span(choice.span, choice.hijri);
    if (span.refused)
        refuse(ChoicePart::span, sentence(*span.refused));
    std::optional<TimetablePlace> place = chosen_place(choice.place);
    if (!place)
        refuse(ChoicePart::place, unknown_place(*choice.place));
    const bool is_zone = !choice.zone || is_zone_name(*choice.zone);
    if (!is_zone)
        refuse(ChoicePart::zone, unknown_zone(*choice.zone));
    if (choice.profile.page.columns.empty())
        refuse(ChoicePart::columns, no_column);
    if (const std::optional<TwinWords> refused = refused_profile(choice.profile))
        refuse(ChoicePart::rules, sentence(*refused));
    if (!answer.wrong.empty())
        return answer;
    place->zone = choice.zone ? std::optional(TimeZone(*choice.zone)) : std::nullopt;
    answer.settings = TimetableSettings{std::move(*place), choice.profile, span.span, choice.hijri};
    return answer;
}

void require_storable(const Profile& profile) {
    profile_of_text(text_of(profile), profile.name, profile.name);
}

std::string known_zone_of(const std::optional<std::string>& name) {
    const std::optional<TimetablePlace> place = chosen_place(name);
    return place && place->known_zone ? place->known_zone->name() : std::string();
}

std::string ending_of(TimetableFormat format) {
    return format == TimetableFormat::display_csv ? std::string(display_layout) + ".csv" : name_of(format);
}

std::optional<TimetableFormat> format_of_name(std::string_view name) {
    std::string small(name);
    std::transform(small.begin(), small.end(), small.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    if (small.ends_with("." + ending_of(TimetableFormat::display_csv)))
        return TimetableFormat::display_csv;
    for (const TimetableFormat format : timetable_formats())
        if (small.ends_with("." + ending_of(format)))
            return format;
    return std::nullopt;
}

} // namespace halvane
