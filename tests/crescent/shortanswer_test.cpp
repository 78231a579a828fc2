// SPDX-License-Identifier: MIT
#include "crescent/shortanswer.h"

#include "calendar/yearlimits.h"
#include "crescent/circumstances.h"
#include "crescent/crescentreport.h"
#include "crescent/daywords.h"
#include "crescent/measurewords.h"
#include "routines/seriesloader.h"
#include "settings/enginesettings.h"
#include "tests/crescent/crescentfixture.h"
#include "tests/crescent/nineskies.h"
#include "tests/support/places.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

namespace halvane {
namespace {

ShortAnswer answer_at(double longitude, double latitude, CrescentKind kind, const CivilDay& date) {
    const double day = julian_day(date);
    return short_answer(named_ephemeris(), observer_at(longitude, latitude, 0), kind, day,
                        geocentric_conjunction(named_ephemeris(), day));
}

const CrescentVerdict* verdict_of(const ShortAnswer& answer, const std::string& key) {
    const auto found = std::find_if(answer.verdicts.begin(), answer.verdicts.end(),
                                    [&](const CrescentVerdict& one) { return one.criterion->key == key; });
    return found == answer.verdicts.end() ? nullptr : &*found;
}

bool holds(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

class AnswerOfSky : public CrescentTest, public ::testing::WithParamInterface<KnownSky> {};

TEST_P(AnswerOfSky, HasEachCriterionOfItsKindWithTheValueOfTheSwissEphemeris) {
    const KnownSky& known = GetParam();
    const ShortAnswer answer = answer_at(known.longitude, known.latitude, known.kind, known.date);
    EXPECT_TRUE(answer.has_crescent());
    for (const CataloguedCriterion& criterion : catalogued_criteria())
        EXPECT_EQ(verdict_of(answer, criterion.key) != nullptr,
                  known.kind == CrescentKind::new_crescent || criterion.of_mornings)
            << criterion.key;
    const CrescentVerdict* yallop = verdict_of(answer, "yallop-1997");
    ASSERT_NE(yallop, nullptr);
    EXPECT_NEAR(yallop->value.value(), known.q, 0.001);
    const CriterionClass& band =
        yallop->criterion->bands()[class_of_value(*yallop->criterion, *yallop->value)];
    EXPECT_EQ(band.text.english[0], known.q_class);
    EXPECT_TRUE(
        holds(words_of(answer, 0, "").english, std::string("Yallop as published: ") + band.text.english));
}

INSTANTIATE_TEST_SUITE_P(OfTheWorld, AnswerOfSky, ::testing::ValuesIn(nine_skies),
                         [](const auto& tried) { return std::string(tried.param.name); });

class Answer : public CrescentTest {};

/// An evening made by hand: sunset 15:20, moonset 16:20, Best Time 15:46:40 UT on 2026 February 18.
ShortAnswer answer_by_hand() {
    ShortAnswer answer;
    answer.day = julian_day({2026, 2, 18});
    answer.has_sun_event = true;
    CrescentEvening evening;
    evening.day = answer.day;
    evening.conjunction = julian_day({2026, 2, 17}, {12, 0, 0});
    evening.sun_event = julian_day({2026, 2, 18}, {15, 20, 0});
    evening.moon_event = julian_day({2026, 2, 18}, {16, 20, 0});
    evening.at_best_time.universal = julian_day({2026, 2, 18}, {15, 46, 40});
    CrescentQuantities& q = evening.at_best_time.topocentric;
    q.moon_altitude = 6.42;
    q.moon_azimuth = 258.51;
    q.elongation = 13.31;
    q.width = 0.431 / 60;
    answer.evening = evening;
    answer.verdicts = {{catalogued_criterion("yallop"), 0.2161},
                       {catalogued_criterion("danjon"), -0.5},
                       {catalogued_criterion("babylon"), 60.0},
                       {catalogued_criterion("maunder"), std::nullopt}};
    return answer;
}

TEST(AnswerWords, TellTheEveningAndEachVerdict) {
    const TwinWords words = words_of(answer_by_hand(), 3, "Makkah");
    EXPECT_EQ(
        words.english,
        "Evening of Wednesday 18 February 2026, Makkah\n"
        "Sunset 18:20, moonset 19:20, lag 60.0 min\n"
        "Best Time 18:47: Moon's altitude 6.4°, azimuth 258.5°, elongation 13.3°, width 0.43', age 27.8 h\n"
        "Topocentric, without refraction; age from the geocentric conjunction; sea horizon in standard "
        "air\n\n"
        "Yallop: Easily visible by naked eye (q = 0.216)\n"
        "Danjon's limit: Not possible: no crescent is formed (elongation less the limit = -0.50°)\n"
        "Babylonian lag: Visible (lag = 60.0 min)\n"
        "Maunder: no answer, beyond its published range");
    EXPECT_EQ(words.arabic, "مساء الأربعاء 18 شباط 2026، Makkah\n"
                            "غروب الشمس 18:20، غروب القمر 19:20، المكث 60.0 دقيقة\n"
                            "أفضل وقت 18:47: ارتفاع القمر 6.4°، سمته 258.5°، استطالته 13.3°، سمكه 0.43 دقيقة "
                            "قوسية، عمره 27.8 ساعة\n"
                            "سطحي بلا انكسار؛ العمر من الاقتران المركزي؛ أفق البحر في هواء معياري\n\n"
                            "يالوب: يرى بسهولة بالعين المجردة (q = 0.216)\n"
                            "حد دانجون: لا يمكن: لا يتشكل الهلال (الاستطالة ناقص الحد = -0.50°)\n"
                            "المكث البابلي: يرى (المكث = 60.0 دقيقة)\n"
                            "ماوندر: لا جواب، خارج مداه المنشور");
}

TEST(AnswerWords, OfAMorningCountTheAgeBackFromTheConjunction) {
    ShortAnswer answer = answer_by_hand();
    answer.kind = answer.evening->kind = CrescentKind::old_crescent;
    answer.evening->conjunction = julian_day({2026, 2, 19}, {12, 0, 0});
    std::swap(answer.evening->sun_event, answer.evening->moon_event);
    const std::string words = words_of(answer, 3, "Makkah").english;
    EXPECT_TRUE(holds(words, "Morning of Wednesday 18 February 2026, Makkah\n"
                             "Sunrise 19:20, moonrise 18:20, lag 60.0 min\n"));
    EXPECT_TRUE(holds(words, "age -20.2 h"));
}

TEST(AnswerWords, TellThatTheConjunctionIsStillToCome) {
    ShortAnswer answer = answer_by_hand();
    answer.evening->conjunction = julian_day({2026, 2, 18}, {22, 30, 0});
    EXPECT_FALSE(answer.has_crescent());
    const TwinWords words = words_of(answer, 3, "Makkah");
    EXPECT_TRUE(holds(words.english, "No crescent this evening.\nThe conjunction comes only after sunset: "
                                     "Thursday 19 February 2026, 01:30\n"));
    EXPECT_TRUE(holds(words.arabic, "يحدث الاقتران بعد غروب الشمس: الخميس 19 شباط 2026، 01:30\n"));
    EXPECT_FALSE(holds(words.english, "The Moon does not set"));
    EXPECT_FALSE(holds(words.english, "Best Time"));
}

TEST(AnswerWords, TellThatTheMoonIsGoneBeforeTheSun) {
    ShortAnswer answer = answer_by_hand();
    answer.evening->moon_event = julian_day({2026, 2, 18}, {15, 14, 0});
    EXPECT_FALSE(answer.has_crescent());
    const TwinWords words = words_of(answer, 3, "Makkah");
    EXPECT_TRUE(holds(words.english,
                      "lag -6.0 min\nNo crescent this evening.\nThe Moon does not set after the "
                      "Sun.\n"));
    EXPECT_TRUE(holds(words.arabic, "لا يغرب القمر بعد الشمس."));
    EXPECT_FALSE(holds(words.english, "The conjunction"));
}

// Tromso under the midnight sun and in the polar night.
TEST_F(Answer, WithoutASunsetTellsSoAndKeepsTheRuleOfAnotherPlace) {
    for (const CivilDay date : {CivilDay{2025, 6, 26}, CivilDay{2025, 12, 21}}) {
        const ShortAnswer answer = answer_at(18.96, 69.65, CrescentKind::new_crescent, date);
        EXPECT_FALSE(answer.has_sun_event);
        EXPECT_FALSE(answer.has_crescent());
        const std::string words = words_of(answer, 1, "Tromso").english;
        EXPECT_TRUE(holds(words, "The Sun does not set on this day.\n"));
        ASSERT_EQ(answer.verdicts.size(), 1U);
        EXPECT_STREQ(answer.verdicts[0].criterion->key, "umm-al-qura");
        EXPECT_EQ(words.substr(words.rfind('\n') + 1).find("Umm al-Qura: The condition is met"), 0U);
    }
}

TEST_F(Answer, OfAMorningWithoutAnyVerdictEndsWithItsReason) {
    const ShortAnswer answer = answer_at(18.96, 69.65, CrescentKind::old_crescent, {2025, 6, 24});
    EXPECT_TRUE(answer.verdicts.empty());
    EXPECT_EQ(words_of(answer, 2, "Tromso").english,
              "Morning of Tuesday 24 June 2025, Tromso\nThe Sun does not rise on this day.");
}

// New Moon on 2025 February 28, 0:45 UT (Astronomical Almanac).
TEST_F(Answer, OfTheEveningBeforeANewMoonNamesItsConjunction) {
    const ShortAnswer answer = answer_at(35.93, 31.95, CrescentKind::new_crescent, {2025, 2, 27});
    EXPECT_FALSE(answer.has_crescent());
    EXPECT_TRUE(holds(words_of(answer, 2, "Amman").english, "Friday 28 February 2025, 02:45\n"));
}

TEST_F(Answer, IsGivenAtTheEdgesOfTheYears) {
    for (const int year : {static_cast<int>(theory_years.first), static_cast<int>(theory_years.last)})
        for (int month = 1; month <= 12; ++month)
            for (const double latitude : {-75.0, -35.0, 0.0, 52.0, 67.0, 89.0})
                for (const CrescentKind kind : {CrescentKind::new_crescent, CrescentKind::old_crescent})
                    EXPECT_NO_THROW(words_of(answer_at(30, latitude, kind, {year, month, 15}), 2, "Edge"))
                        << year << ' ' << month << ' ' << latitude;
}

// The sunset of Hilo falls on the next date in Universal Time.
TEST_F(Answer, OfAReportIsOfItsOwnDateAndClock) {
    write_loc(place_at({-155, 5}, {19, 43}, -10, "Hilo"));
    CrescentSettings settings = crescent_near(29, 3, 2025);
    settings.one_day = false;
    settings.day_of_conjunction = true;
    const CrescentRecords run = read_crescent_records(settings);
    DayEvents events;
    const std::string words =
        crescent_run(loaded_theory(), run, find_conjunction(named_ephemeris(), run), events)
            ->short_answer()
            .english;
    EXPECT_EQ(words.find("Evening of Saturday 29 March 2025, Hilo\nSunset 18:34, moonset 19:15, lag 41."), 0U)
        << words;
    EXPECT_TRUE(holds(words, "Yallop as published: B: visible in perfect conditions (q = 0.03")) << words;
}

TEST(MeasureWords, HaveTheUnitBehindTheNumber) {
    EXPECT_EQ(measure_words(7.254, "deg").english, "7.25°");
    EXPECT_EQ(measure_words(7.254, "deg").arabic, "7.25°");
    EXPECT_EQ(measure_words(41.34, "min").english, "41.3 min");
    EXPECT_EQ(measure_words(41.34, "min").arabic, "41.3 دقيقة");
    EXPECT_EQ(measure_words(-0.2154, "").english, "-0.215");
}

// Apia counts thirteen hours ahead of Universal Time at 172 degrees west: its date is not that of its
// longitude.
TEST_F(Answer, OfAReportIsOfTheSunsetOfItsReportWhereTheClockIsADayAhead) {
    write_loc(place_at({-171, 46}, {-13, 50}, 13, "Apia"));
    for (const bool new_crescent : {true, false}) {
        CrescentSettings settings = crescent_near(18, 2, 2026, new_crescent);
        settings.at_sun = true;
        const CrescentRecords run = read_crescent_records(settings);
        const Conjunction conjunction = find_conjunction(named_ephemeris(), run);
        DayEvents events;
        const auto circumstances =
            crescent_circumstances(named_ephemeris(), run, conjunction, events).value();
        const Observer observer = observer_of(run.location);
        const CrescentKind kind = kind_of(settings);
        const double hours_ahead = run.location.zone + conjunction.summer_hours;
        const EventOfDate sun = sun_event_of_date(named_ephemeris(), observer, kind, circumstances.day,
                                                  [=](double) { return hours_ahead; });
        EXPECT_EQ(sun.mean_day, circumstances.day - 1);
        const ShortAnswer answer = short_answer(named_ephemeris(), observer, kind, circumstances.day, sun,
                                                geocentric_conjunction(named_ephemeris(), circumstances.day));
        const double sunset = circumstances.day + (circumstances.sun_event - hours_ahead) / 24;
        constexpr double two_minutes = 2.0 / 1440; // the report's horizon may be that of the height
        EXPECT_NEAR(answer.evening.value().sun_event, sunset, two_minutes);
        const std::string words =
            crescent_run(loaded_theory(), run, conjunction, events)->short_answer().english;
        EXPECT_EQ(words, words_of(answer, hours_ahead, "Apia").english);
        EXPECT_TRUE(holds(words, day_words(circumstances.day).english + ", Apia\n")) << words;
    }
}

} // namespace
} // namespace halvane
