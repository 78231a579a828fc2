#include "app/alerts/alertwords.h"

namespace halvane {

namespace {

constexpr Twin kPrayers[] = {
    {"", "Fajer", "الفجر"},    {"", "Dhohur", "الظهر"}, {"", "Aser", "العصر"},
    {"", "Maghreb", "المغرب"}, {"", "Isha", "العشاء"},
};
constexpr Twin kItIsTime{"", "It is time for the %1 prayer", "حان الآن موعد صلاة %1"};
constexpr Twin kSoon{"", "The %1 prayer is near", "اقترب موعد صلاة %1"};
constexpr Twin kNext{"", "Next: %1 %2", "الصلاة التالية: %1 %2"};
constexpr Twin kNone{"", "No prayer has a time today or tomorrow.", "لا يوجد موعد لأي صلاة اليوم أو غدا."};
constexpr Twin kNoSound{"", "No sound device was found. Alerts are shown without their sound.",
                        "لم يعثر على جهاز للصوت، لذلك تظهر التنبيهات دون صوت."};

QString next_words(Prayer prayer, const std::string& time, Language language) {
    return text_of(kNext, language)
        .arg(prayer_name(prayer, language), isolated(QString::fromStdString(time)));
}

} // namespace

QString prayer_name(Prayer prayer, Language language) {
    return text_of(kPrayers[static_cast<int>(prayer)], language);
}

AlertWords words_of(const Alert& alert, const QString& place, Language language) {
    const Twin& heading = alert.kind == Alert::Kind::window ? kItIsTime : kSoon;
    AlertWords words;
    words.heading = text_of(heading, language).arg(prayer_name(alert.prayer, language));
    words.time = QString::fromStdString(alert.time);
    words.place = place;
    if (alert.next)
        words.next = next_words(*alert.next, alert.next_time, language);
    return words;
}

QString coming_words(const std::optional<ComingPrayer>& coming, Language language) {
    return coming ? next_words(coming->prayer, coming->time, language) : text_of(kNone, language);
}

QString no_sound_words(Language language) {
    return text_of(kNoSound, language);
}

} // namespace halvane
