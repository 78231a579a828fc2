// SPDX-License-Identifier: MIT
#include "finemap/sheettexts.h"

#include "base/numberformat.h"
#include "base/version.h"
#include "calendar/civildate.h"
#include "calendar/locationclock.h"
#include "calendar/modday.h"
#include "calendar/zonetext.h"
#include "crescent/maptexts.h"

#include <cmath>

namespace halvane {
namespace {

constexpr double half_minute = 0.5 / 1440;

/// "17 February 2026, 12:01", to the minute.
std::string moment_text(double jd, Language language) {
    const double minute = jd + half_minute;
    const int whole = static_cast<int>(std::floor(hours_of_day(minute) * 60));
    const std::string comma = language == Language::english ? ", " : "، ";
    return map_date_text(start_of_date(minute), language) + comma + format_number(whole / 60, "00") + ":" +
           format_number(whole % 60, "00");
}

std::string clock_text(double jd, Language language) {
    const std::string moment = moment_text(jd, language);
    return moment.substr(moment.size() - 5);
}

/// The local clock behind the Universal Time; with its date where that differs.
std::string local_text(double conjunction, const SheetClock& clock, Language language) {
    const double local = conjunction + clock.hours_ahead / 24;
    const bool same_date = start_of_date(local + half_minute) == start_of_date(conjunction + half_minute);
    const std::string shown = same_date ? clock_text(local, language) : moment_text(local, language);
    const std::string zone = " (" + zone_text(clock.hours_ahead) + ")";
    return language == Language::english ? "; " + shown + " in " + clock.place + zone
                                         : "؛ " + shown + " في " + clock.place + zone;
}

std::string conjunction_text(double conjunction, const std::optional<SheetClock>& clock, Language language) {
    constexpr TwinText head{"Geocentric conjunction: ", "الاقتران المركزي: "};
    constexpr TwinText universal{" UT", " بالتوقيت العالمي"};
    return head.in(language) + moment_text(conjunction, language) + universal.in(language) +
           (clock ? local_text(conjunction, *clock, language) : std::string());
}

std::string step_text(double step, Language language) {
    const std::string number = plain_number(step) + "°";
    return language == Language::english ? "Judged at every " + number + " and along the borders"
                                         : "محسوبة كل " + number + " و على طول الحدود";
}

std::string angle_text(double angle, const TwinText& positive, const TwinText& negative, Language language) {
    const std::string number = plain_number(std::fabs(angle)) + "°";
    return angle == 0 ? number : number + (angle > 0 ? positive : negative).in(language);
}

} // namespace

SheetClock clock_of(const Preferences& preferences, const Location& location, double universal) {
    const DateNumbers date = civil_date(universal);
    const int seconds = static_cast<int>(std::floor(hours_of_day(universal) * 3600));
    const MachineTime time{static_cast<int>(date.year), static_cast<int>(date.month),
                           static_cast<int>(date.day),  seconds / 3600,
                           seconds / 60 % 60,           seconds % 60};
    return {location.name, location_clock(preferences, location, time).hours_ahead};
}

MarkedPlace marked_place(const Location& location, bool is_users) {
    return {location.name, {longitude_of(location), latitude_of(location)}, is_users};
}

SheetTexts sheet_texts(const FineMapSettings& settings, const std::optional<SheetClock>& clock,
                       Language language) {
    SheetTexts texts;
    texts.title = map_title(settings.kind).in(language);
    texts.month = hijri_month_of(start_of_date(settings.conjunction), settings.kind, language);
    texts.criterion = settings.criterion->name.in(language);
    texts.source = settings.criterion->source;
    texts.conjunction = conjunction_text(settings.conjunction, clock, language);
    texts.step = step_text(settings.step, language);
    texts.credits =
        std::string(program_title) + (language == Language::english ? ". Coasts and borders: Natural Earth."
                                                                    : ". السواحل و الحدود: Natural Earth.");
    return texts;
}

std::string document_title(const SheetTexts& texts) {
    return texts.title + ", " + texts.month + ": " + texts.criterion;
}

std::string evening_text(const FineMapSettings& settings, Language language) {
    const bool is_new = settings.kind == CrescentKind::new_crescent;
    const std::string weekday = weekday_name(settings.day + 0.5, language);
    const std::string date = map_date_text(settings.day, language);
    if (language == Language::english)
        return (is_new ? "Evening of " : "Morning of ") + weekday + ", " + date;
    return (is_new ? "مساء " : "صباح ") + weekday + "، " + date;
}

std::string longitude_text(double longitude, Language language) {
    const double shown = observer_longitude(longitude);
    if (std::fabs(shown) == 180)
        return "180°";
    return angle_text(shown, {"E", "ق"}, {"W", "غ"}, language);
}

std::string latitude_text(double latitude, Language language) {
    return angle_text(latitude, {"N", "ش"}, {"S", "ج"}, language);
}

} // namespace halvane
