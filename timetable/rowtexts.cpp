// SPDX-License-Identifier: MIT
#include "timetable/rowtexts.h"

#include <stdexcept>

namespace halvane {
const TwinText& name_of(TimetableColumn column, PrayerNames names) {
    const ColumnNames& both = names_of(column);
    return names == PrayerNames::halvane ? both.halvane : both.common;
}

TwinText words_of(TimeSource source) {
    switch (source) {
    case TimeSource::sky:
        return {"by the Sun", "حسب الشمس"};
    case TimeSource::interval:
        return {"by an interval after Maghreb", "بعد المغرب بمدة ثابتة"};
    case TimeSource::middle:
        return {"by the middle of the night", "حسب منتصف الليل"};
    case TimeSource::seventh:
        return {"by a seventh of the night", "حسب سبع الليل"};
    case TimeSource::angle:
        return {"by the angle's part of the night", "حسب نسبة الزاوية من الليل"};
    case TimeSource::nearest_latitude:
        return {"by the nearest latitude", "حسب أقرب العروض"};
    case TimeSource::share:
        return {"by the share of the night at a lower latitude", "حسب نسبة الليل في عرض أدنى"};
    case TimeSource::year:
        return {"by the alternative method of high latitudes", "حسب الطريقة البديلة للعروض العالية"};
    }
    throw std::logic_error("a source of times without words");
}

std::string text_in(PageLanguage language, const TwinWords& words) {
    if (language == PageLanguage::arabic)
        return words.arabic;
    if (language == PageLanguage::english || words.english == words.arabic)
        return words.english;
    return words.english + " / " + words.arabic;
}

} // namespace halvane
