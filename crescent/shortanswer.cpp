// SPDX-License-Identifier: MIT
#include "crescent/shortanswer.h"

#include "crescent/daywords.h"
#include "crescent/measurewords.h"

#include <string>

namespace halvane {
namespace {

bool judges(const CataloguedCriterion& criterion, CrescentKind kind) {
    return kind == CrescentKind::new_crescent || criterion.of_mornings;
}

class AnswerWords {
public:
    AnswerWords(const ShortAnswer& answer, double hours_ahead, const std::string& place)
        : answer_(answer), is_new_(answer.kind == CrescentKind::new_crescent), days_ahead_(hours_ahead / 24),
          place_(place) {}

    TwinWords words() const {
        TwinWords words = head();
        if (!answer_.evening)
            words = words + no_event();
        else if (answer_.has_crescent())
            words = words + events() + best_time() + frame();
        else
            words = words + events() + no_crescent();
        if (!answer_.verdicts.empty())
            words = words + plain_words("\n");
        for (const CrescentVerdict& verdict : answer_.verdicts)
            words = words + line_of(verdict);
        words.english.pop_back();
        words.arabic.pop_back();
        return words;
    }

private:
    /// One of two texts, by the kind of crescent.
    TwinWords by_kind(const TwinText& of_new, const TwinText& of_old) const {
        return is_new_ ? of_new : of_old;
    }

    TwinWords clock(double universal) const { return plain_words(clock_words(universal + days_ahead_)); }

    TwinWords head() const {
        return by_kind({"Evening of ", "مساء "}, {"Morning of ", "صباح "}) + day_words(answer_.day) +
               TwinText{", ", "، "} + plain_words(place_ + "\n");
    }

    TwinWords no_event() const {
        if (!answer_.has_sun_event)
            return by_kind({"The Sun does not set on this day.\n", "لا تغرب الشمس في هذا اليوم.\n"},
                           {"The Sun does not rise on this day.\n", "لا تشرق الشمس في هذا اليوم.\n"});
        return by_kind({"The Moon does not set within half a day of sunset.\n",
                        "لا يغرب القمر خلال نصف يوم من غروب الشمس.\n"},
                       {"The Moon does not rise within half a day of sunrise.\n",
                        "لا يشرق القمر خلال نصف يوم من شروق الشمس.\n"});
    }

    TwinWords events() const {
        const CrescentEvening& evening = *answer_.evening;
        return by_kind({"Sunset ", "غروب الشمس "}, {"Sunrise ", "شروق الشمس "}) + clock(evening.sun_event) +
               by_kind({", moonset ", "، غروب القمر "}, {", moonrise ", "، شروق القمر "}) +
               clock(evening.moon_event) + TwinText{", lag ", "، المكث "} +
               number_words(evening.lag(), "0.0") + TwinText{" min\n", " دقيقة\n"};
    }

    TwinWords best_time() const {
        const CrescentEvening& evening = *answer_.evening;
        const CrescentSky& sky = evening.at_best_time;
        const CrescentQuantities& q = sky.topocentric;
        return TwinText{"Best Time ", "أفضل وقت "} + clock(sky.universal) +
               TwinText{": Moon's altitude ", ": ارتفاع القمر "} + number_words(q.moon_altitude, "0.0") +
               TwinText{"°, azimuth ", "°، سمته "} + number_words(q.moon_azimuth, "0.0") +
               TwinText{"°, elongation ", "°، استطالته "} + number_words(q.elongation, "0.0") +
               TwinText{"°, width ", "°، سمكه "} + number_words(q.width_minutes(), "0.00") +
               TwinText{"', age ", " دقيقة قوسية، عمره "} + number_words(age_at(sky.universal), "0.0") +
               TwinText{" h\n", " ساعة\n"};
    }

    /// From the conjunction to `universal`, negative before it                                  [h]
    double age_at(double universal) const { return (is_new_ ? 1 : -1) * answer_.evening->age(universal); }

    TwinWords frame() const {
        return TwinText{
            "Topocentric, without refraction; age from the geocentric conjunction; sea horizon in "
            "standard air\n",
            "سطحي بلا انكسار؛ العمر من الاقتران المركزي؛ أفق البحر في هواء معياري\n"};
    }

    TwinWords no_crescent() const {
        const CrescentEvening& evening = *answer_.evening;
        TwinWords words = by_kind({"No crescent this evening.\n", "لا هلال هذا المساء.\n"},
                                  {"No crescent this morning.\n", "لا هلال هذا الصباح.\n"});
        if (evening.age(evening.sun_event) < 0)
            words =
                words +
                by_kind({"The conjunction comes only after sunset: ", "يحدث الاقتران بعد غروب الشمس: "},
                        {"The conjunction was already before sunrise: ", "حدث الاقتران قبل شروق الشمس: "}) +
                day_words(evening.conjunction + days_ahead_) + TwinText{", ", "، "} +
                clock(evening.conjunction) + plain_words("\n");
        if (evening.lag() <= 0)
            words =
                words + by_kind({"The Moon does not set after the Sun.\n", "لا يغرب القمر بعد الشمس.\n"},
                                {"The Moon does not rise before the Sun.\n", "لا يشرق القمر قبل الشمس.\n"});
        return words;
    }

    static TwinWords line_of(const CrescentVerdict& verdict) {
        const CataloguedCriterion& criterion = *verdict.criterion;
        const TwinWords name = TwinWords(criterion.name) + plain_words(": ");
        if (!verdict.value)
            return name + TwinText{"no answer, beyond its published range\n", "لا جواب، خارج مداه المنشور\n"};
        return name + criterion.bands()[class_of_value(criterion, *verdict.value)].text + plain_words(" (") +
               criterion.measure_name + plain_words(" = ") + measure_words(*verdict.value, criterion.unit) +
               plain_words(")\n");
    }

    const ShortAnswer& answer_;
    bool is_new_;
    double days_ahead_;
    const std::string& place_;
};

} // namespace

bool ShortAnswer::has_crescent() const {
    return evening && evening->lag() > 0 && evening->age(evening->sun_event) >= 0;
}

ShortAnswer short_answer(Ephemeris& ephemeris, const Observer& observer, CrescentKind kind, double day,
                         double conjunction, const CriteriaSettings& settings) {
    const EventOfDate sun{sun_event_on(ephemeris, observer, kind, day), day};
    return short_answer(ephemeris, observer, kind, day, sun, conjunction, settings);
}

ShortAnswer short_answer(Ephemeris& ephemeris, const Observer& observer, CrescentKind kind, double date,
                         const EventOfDate& sun, double conjunction, const CriteriaSettings& settings) {
    ShortAnswer answer;
    answer.kind = kind;
    answer.day = date;
    answer.has_sun_event = sun.sun.universal.has_value();
    if (answer.has_sun_event)
        answer.evening = crescent_evening(ephemeris, observer, kind, sun.mean_day, conjunction);
    for (const CataloguedCriterion& criterion : catalogued_criteria()) {
        if (!judges(criterion, kind) || !(criterion.place || answer.has_crescent()))
            continue;
        const auto evening = criterion.place
                                 ? judged_evening(ephemeris, criterion, observer, kind, date, conjunction)
                                 : answer.evening;
        answer.verdicts.push_back(
            {&criterion, evening ? criterion_value(criterion, *evening, settings) : std::nullopt});
    }
    return answer;
}

TwinWords words_of(const ShortAnswer& answer, double hours_ahead, const std::string& place) {
    return AnswerWords(answer, hours_ahead, place).words();
}

} // namespace halvane
