// SPDX-License-Identifier: MIT
#include "timetable/cells.h"

#include "calendar/modday.h"
#include "report/valuetext.h"
#include "timetable/clockunits.h"

#include <array>

namespace halvane {
namespace {

std::string rules_text(const TimetableRow& row) {
    std::string text;
    for (const DayTime time : day_times)
        if (is_by_rule(row.times[time].source))
            ((((text += text.empty() ? "" : " ") += names_of(column_of(time)).key) += ':') +=
             key_of(row.times[time].source));
    return text;
}

constexpr int half_day = 43200; // [s]

std::string twelve_hours(const LocalClock& clock, bool seconds) {
    LocalClock shown = clock;
    shown.seconds %= half_day;
    if (shown.seconds < seconds_of_hour)
        shown.seconds += half_day;
    const std::string text = clock_text(shown, seconds);
    return text.starts_with('0') ? text.substr(1) : text;
}

} // namespace

void append_two_digits(std::string& text, int number) {
    text += static_cast<char>('0' + number / 10);
    text += static_cast<char>('0' + number % 10);
}

TimetableColumn column_of(DayTime time) {
    constexpr std::array<TimetableColumn, 6> columns{TimetableColumn::fajer,   TimetableColumn::shuroq,
                                                     TimetableColumn::dhohur,  TimetableColumn::aser,
                                                     TimetableColumn::maghreb, TimetableColumn::isha};
    return columns.at(static_cast<std::size_t>(time));
}

bool has_times(TimetableColumn column) {
    switch (column) {
    case TimetableColumn::date:
    case TimetableColumn::weekday:
    case TimetableColumn::hijri:
    case TimetableColumn::moon_phase:
    case TimetableColumn::rules:
        return false;
    default:
        return true;
    }
}

bool is_iqamah(TimetableColumn column) {
    using enum TimetableColumn;
    return column == fajer_iqamah || column == dhohur_iqamah || column == aser_iqamah ||
           column == maghreb_iqamah || column == isha_iqamah;
}

std::vector<RowTime> times_in(const TimetableRow& row, TimetableColumn column) {
    switch (column) {
    case TimetableColumn::imsak:
        return {row.imsak};
    case TimetableColumn::fajer:
        return {row.times[DayTime::fajer]};
    case TimetableColumn::fajer_iqamah:
        return {row.iqamah[DayTime::fajer]};
    case TimetableColumn::shuroq:
        return {row.times[DayTime::shuroq]};
    case TimetableColumn::dhohur:
        return {row.times[DayTime::dhohur]};
    case TimetableColumn::dhohur_iqamah:
        return {row.iqamah[DayTime::dhohur]};
    case TimetableColumn::jumuah:
        return row.jumuah;
    case TimetableColumn::aser:
        return {row.times[DayTime::aser]};
    case TimetableColumn::aser_standard:
        return {row.aser_standard};
    case TimetableColumn::aser_hanafi:
        return {row.aser_hanafi};
    case TimetableColumn::aser_iqamah:
        return {row.iqamah[DayTime::aser]};
    case TimetableColumn::maghreb:
        return {row.times[DayTime::maghreb]};
    case TimetableColumn::maghreb_iqamah:
        return {row.iqamah[DayTime::maghreb]};
    case TimetableColumn::isha:
        return {row.times[DayTime::isha]};
    case TimetableColumn::isha_iqamah:
        return {row.iqamah[DayTime::isha]};
    case TimetableColumn::midnight:
        return {row.midnight};
    case TimetableColumn::last_third:
        return {row.last_third};
    case TimetableColumn::qiblah_sun:
        return row.qiblah_sun;
    case TimetableColumn::date:
    case TimetableColumn::weekday:
    case TimetableColumn::hijri:
    case TimetableColumn::moon_phase:
    case TimetableColumn::rules:
        break;
    }
    return {};
}

std::string clock_text(const LocalClock& clock, bool seconds) {
    std::string text;
    append_two_digits(text, clock.seconds / seconds_of_hour);
    text += ':';
    append_two_digits(text, clock.seconds / seconds_of_minute % 60);
    if (seconds) {
        text += ':';
        append_two_digits(text, clock.seconds % 60);
    }
    return text;
}

TwinWords clock_words(const LocalClock& clock, bool seconds, ClockFace face) {
    if (face == ClockFace::hours_24)
        return TwinWords(clock_text(clock, seconds), clock_text(clock, seconds));
    const std::string text = twelve_hours(clock, seconds);
    return clock.seconds < half_day ? TwinWords{text + " am", text + " ص"}
                                    : TwinWords{text + " pm", text + " م"};
}

std::string machine_text(const Timetable& timetable, const TimetableRow& row, TimetableColumn column) {
    switch (column) {
    case TimetableColumn::date:
        return iso_date(row.date);
    case TimetableColumn::weekday:
        return weekday_name(row.jd + 0.5, Language::english);
    case TimetableColumn::hijri:
        return iso_hijri(row.hijri);
    case TimetableColumn::moon_phase:
        return key_of(row.moon);
    case TimetableColumn::rules:
        return rules_text(row);
    default:
        break;
    }
    std::string text;
    for (const RowTime& time : times_in(row, column))
        if (time.clock)
            (text += text.empty() ? "" : " ") += clock_text(*time.clock, timetable.to_second);
    return text;
}

std::string iso_hijri(const HijriDate& date) {
    return iso_date({date.year, date.month, date.day});
}

const char* key_of(MoonOfDay moon) {
    constexpr std::array<const char*, 8> keys{"new_moon",       "waxing_crescent", "first_quarter",
                                              "waxing_gibbous", "full_moon",       "waning_gibbous",
                                              "last_quarter",   "waning_crescent"};
    return keys.at(static_cast<std::size_t>(moon));
}

} // namespace halvane
