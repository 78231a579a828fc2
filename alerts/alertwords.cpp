// SPDX-License-Identifier: MIT
#include "alerts/alertwords.h"

namespace halvane {

namespace {

constexpr TwinText prayers[] = {
    {"Fajer", "الفجر"}, {"Dhohur", "الظهر"}, {"Aser", "العصر"}, {"Maghreb", "المغرب"}, {"Isha", "العشاء"},
};
constexpr TwinText it_is_time{"It is time for the %1 prayer", "حان الآن موعد صلاة %1"};
constexpr TwinText soon{"The %1 prayer is near", "اقترب موعد صلاة %1"};
constexpr TwinText next_text{"Next: %1 %2", "الصلاة التالية: %1 %2"};
constexpr TwinText no_prayer_text{"No prayer has a time today or tomorrow.",
                                  "لا يوجد موعد لأي صلاة اليوم أو غدا."};
constexpr TwinText no_sound{"No sound device was found. Alerts are shown without their sound.",
                            "لم يعثر على جهاز للصوت، لذلك تظهر التنبيهات دون صوت."};

QString next_words(Prayer prayer, const ShownClock& clock, Language language) {
    return text_of(next_text, language)
        .arg(prayer_name(prayer, language), isolated(QString::fromStdString(text_of(clock))));
}

} // namespace

QString prayer_name(Prayer prayer, Language language) {
    return text_of(prayers[static_cast<int>(prayer)], language);
}

AlertWords words_of(const Alert& alert, const QString& place, Language language) {
    const TwinText& heading = alert.kind == Alert::Kind::window ? it_is_time : soon;
    AlertWords words;
    words.heading = text_of(heading, language).arg(prayer_name(alert.prayer, language));
    words.time = QString::fromStdString(text_of(alert.clock));
    words.place = place;
    if (alert.next)
        words.next = next_words(*alert.next, alert.next_clock, language);
    return words;
}

QString coming_words(const std::optional<ComingPrayer>& coming, Language language) {
    return coming ? next_words(coming->prayer, coming->clock, language) : text_of(no_prayer_text, language);
}

QString no_sound_words(Language language) {
    return text_of(no_sound, language);
}

} // namespace halvane
