// SPDX-License-Identifier: MIT
#include "timetable/rowtexts.h"

#include "calendar/civildate.h"
#include "report/valuetext.h"
#include "stored/windows1256.h"
#include "timetable/cells.h"

#include <cstdlib>

namespace halvane {
namespace {

void append_two(std::string& text, char sign, int number) {
    append_two_digits(text += sign, number);
}

} // namespace

const TwinText& name_of(TimetableColumn column, PrayerNames names) {
    const ColumnNames& both = names_of(column);
    return names == PrayerNames::halvane ? both.halvane : both.common;
}

std::string text_in(PageLanguage language, const TwinWords& words) {
    if (language == PageLanguage::arabic)
        return words.arabic;
    if (language == PageLanguage::english || words.english == words.arabic)
        return words.english;
    return words.english + " / " + words.arabic;
}

std::string instant_text(double jd, const LocalClock& clock) {
    constexpr int day = 86400;
    if (clock.offset % 60 != 0) {
        const int universal = clock.seconds - clock.offset + (clock.day + 1) * day;
        return instant_text(jd, {universal / day - 1, universal % day, 0});
    }
    std::string text = iso_date(civil_date(jd + clock.day));
    (text += 'T') += clock_text(clock, true);
    const int minutes = std::abs(clock.offset) / 60;
    append_two(text, clock.offset < 0 ? '-' : '+', minutes / 60);
    append_two(text, ':', minutes % 60);
    return text;
}

std::string as_utf8(const std::string& text) {
    return is_utf8(text) ? text : utf8_of_windows1256(text);
}

} // namespace halvane
