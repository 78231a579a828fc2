// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "ephemeris/theory.h"
#include "hijri/keptrule.h"
#include "hijri/seenbefore.h"
#include "routines/seriesloader.h"
#include "stored/loc.h"
#include "tests/support/programfolder.h"
#include "timetable/span.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace halvane {
namespace {

class KeptRule : public testing::Test {
protected:
    TemporaryProgramFolder folder;

    static HijriChoice choice_of(const char* rule) {
        HijriChoice choice;
        choice.rule = rule;
        return choice;
    }
    static std::string refused_words(const std::string& text) {
        try {
            hijri_choice_of_text(text, "file.ini");
        } catch (const RunTimeFailure& failure) {
            return failure.what();
        }
        return {};
    }
    static void expect_refused(const HijriChoice& choice, HijriPart wrong, const std::string& words) {
        const HijriAnswer answer = settings_of(choice, 2026);
        EXPECT_FALSE(answer.settings);
        EXPECT_EQ(answer.wrong, wrong);
        EXPECT_EQ(answer.words.english, words);
        EXPECT_FALSE(answer.words.arabic.empty());
    }
};

HijriChoice full_choice() {
    HijriChoice choice;
    choice.rule = "seen-anywhere";
    choice.place = "Abu Dhabi";
    choice.criterion = "saao";
    choice.seen_class = 1;
    choice.limits.danjon_limit = 6.4;
    choice.limits.user.lag = 20.5;
    choice.limits.user.altitude.reset();
    choice.limits.user.age = -3;
    choice.region = {-30.25, -10, 190, 45};
    choice.before = SeenBefore::fajer;
    choice.announced = AnnouncedUse::sound;
    return choice;
}

TEST_F(KeptRule, IsNoneAtFirst) {
    EXPECT_FALSE(kept_hijri_rule());
    EXPECT_EQ(KeptReckoning().now(nullptr, 2026), nullptr);
}

TEST_F(KeptRule, GivesBackWhatWasKept) {
    keep_hijri_rule(full_choice());
    const std::optional<HijriChoice> kept = kept_hijri_rule();
    ASSERT_TRUE(kept);
    EXPECT_EQ(kept->rule, "seen-anywhere");
    EXPECT_EQ(kept->place, "Abu Dhabi");
    EXPECT_EQ(kept->criterion, "saao");
    EXPECT_EQ(kept->seen_class, 1U);
    EXPECT_EQ(kept->limits.danjon_limit, 6.4);
    EXPECT_EQ(kept->limits.user.lag, 20.5);
    EXPECT_FALSE(kept->limits.user.altitude);
    EXPECT_EQ(kept->limits.user.elongation, UserLimits().elongation);
    EXPECT_EQ(kept->limits.user.age, -3);
    EXPECT_EQ(kept->region, (MapWindow{-30.25, -10, 190, 45}));
    EXPECT_EQ(kept->before, SeenBefore::fajer);
    EXPECT_EQ(kept->announced, AnnouncedUse::sound);
    forget_hijri_rule();
    EXPECT_FALSE(kept_hijri_rule());
    forget_hijri_rule();
}

TEST_F(KeptRule, OfAllDefaultsGivesThemBack) {
    keep_hijri_rule({});
    const HijriChoice kept = kept_hijri_rule().value();
    EXPECT_EQ(kept.rule, hijri_rules().front().key);
    EXPECT_FALSE(kept.place);
    EXPECT_FALSE(kept.seen_class);
    EXPECT_EQ(text_of(kept), text_of(HijriChoice()));
}

TEST_F(KeptRule, RefusesANameThatItCannotHold) {
    HijriChoice choice = full_choice();
    for (const std::string& name : {std::string(" Amman"), std::string(250, 'x')}) {
        choice.place = name;
        EXPECT_THROW(keep_hijri_rule(choice), RunTimeFailure) << name;
        EXPECT_FALSE(folder.has("hijri-rule.ini"));
    }
}

TEST_F(KeptRule, TellsLineAndKeyOfADamagedFile) {
    EXPECT_EQ(refused_words("[rule]\nrule = lunar\n").substr(0, 44),
              "file.ini, line 2: rule: wanted tabular, tabu");
    EXPECT_EQ(refused_words("[rule]\n\nannounced = yes\n"),
              "file.ini, line 3: announced: wanted none, whole, sound; found \"yes\".");
    EXPECT_EQ(refused_words("[crescent]\nclass = 1.5\n"),
              "file.ini, line 2: class: wanted usual, 1 ... 5; found \"1.5\".");
    EXPECT_EQ(refused_words("[crescent]\nbefore = noon\n"),
              "file.ini, line 2: before: wanted any-time, midnight, fajer; found \"noon\".");
    EXPECT_EQ(refused_words("[crescent]\nage = 1,5\n"),
              "file.ini, line 2: age: wanted none, -1000 ... 1000; found \"1,5\".");
    EXPECT_EQ(refused_words("[region]\nwest = nan\n"),
              "file.ini, line 2: west: wanted -180 ... 540; found \"nan\".");
    EXPECT_EQ(refused_words("[rule]\nname = x\n"), "file.ini, line 2: there is no [rule] name.");
    EXPECT_EQ(refused_words("rule\n"), "file.ini, line 1: wanted \"key = value\" or \"[section]\".");
    EXPECT_EQ(refused_words(""), "");
    folder.write("hijri-rule.ini", "[rule]\nrule = lunar\n");
    EXPECT_THROW(kept_hijri_rule(), RunTimeFailure);
}

TEST_F(KeptRule, ReadsBytesOfAnyKindWithoutHarm) {
    const std::string text = text_of(full_choice());
    for (std::size_t i = 0; i < text.size(); ++i)
        for (const char c : {'\0', '\xff', '=', '9'}) {
            std::string damaged = text;
            damaged[i] = c;
            try {
                const HijriChoice choice = hijri_choice_of_text(damaged, "p");
                EXPECT_TRUE(choice.rule.empty() || hijri_rule(choice.rule) != nullptr);
                EXPECT_NE(catalogued_criterion(choice.criterion), nullptr);
            } catch (const RunTimeFailure& failure) {
                EXPECT_TRUE(std::string(failure.what()).starts_with("p"));
            }
        }
}

// Abu Dhabi's row of data/loc.txt: 24°27'04" N, 54°23'49" E; its clock has been four hours ahead since 1972
// (IANA).
TEST_F(KeptRule, OfAPlaceOfTheListHasItsNumbers) {
    HijriChoice choice = choice_of("seen-at");
    choice.place = "Abu Dhabi";
    const HijriAnswer answer = settings_of(choice, 2026);
    ASSERT_TRUE(answer.settings) << answer.words.english;
    EXPECT_EQ(answer.settings->place.name, "Abu Dhabi");
    EXPECT_NEAR(answer.settings->place.latitude, 24 + 27 / 60.0 + 4 / 3600.0, 1e-9);
    EXPECT_NEAR(answer.settings->place.longitude, 54 + 23 / 60.0 + 49 / 3600.0, 1e-9);
    EXPECT_EQ(answer.settings->place.hours_ahead, 4);
    EXPECT_EQ(answer.settings->criterion->key, std::string("yallop"));
    EXPECT_EQ(answer.settings->seen_class, answer.settings->criterion->by_eye);
}

TEST_F(KeptRule, SeenHereIsOfTheStoredPlace) {
    HijriChoice choice = choice_of("seen-here");
    choice.place = "Abu Dhabi";
    const HijriAnswer answer = settings_of(choice, 2026);
    ASSERT_TRUE(answer.settings);
    EXPECT_EQ(answer.settings->place.name, read_loc().name);
    choice = choice_of("mabims");
    EXPECT_EQ(settings_of(choice, 2026).settings.value().place.name, read_loc().name);
}

TEST_F(KeptRule, TheNightOfAPlaceEndsByItsOwnFajer) {
    HijriChoice choice = choice_of("seen-anywhere");
    choice.place = "Abu Dhabi";
    EXPECT_EQ(settings_of(choice, 2026).settings.value().place.name, "");
    choice.before = SeenBefore::fajer;
    const HijriPlace place = settings_of(choice, 2026).settings.value().place;
    EXPECT_EQ(place.name, "Abu Dhabi");
    EXPECT_NEAR(place.longitude, 54 + 23 / 60.0 + 49 / 3600.0, 1e-9);
    choice.place = "Nowhere";
    expect_refused(choice, HijriPart::place, "There is no place \"Nowhere\" in the list.");
}

TEST_F(KeptRule, OfEveryRuleHasSettings) {
    for (const HijriRule& rule : hijri_rules()) {
        HijriChoice choice = choice_of(rule.key);
        choice.place = "Abu Dhabi";
        const HijriAnswer answer = settings_of(choice, 2026);
        ASSERT_TRUE(answer.settings) << rule.key << answer.words.english;
        EXPECT_EQ(answer.settings->rule, &rule);
        EXPECT_EQ(answer.settings->criterion != nullptr, asks_criterion(rule)) << rule.key;
        const bool is_istanbul = std::string(rule.key).starts_with("istanbul-2016");
        EXPECT_EQ(answer.settings->americas.empty(), !is_istanbul) << rule.key;
    }
}

TEST_F(KeptRule, TellsWhatOfAChoiceIsWrong) {
    EXPECT_EQ(settings_of(choice_of("lunar"), 2026).wrong, HijriPart::rule);
    HijriChoice choice = choice_of("seen-at");
    expect_refused(choice, HijriPart::place, "Choose a place of the list.");
    choice.place = "Nowhere";
    expect_refused(choice, HijriPart::place, "There is no place \"Nowhere\" in the list.");
    choice = choice_of("seen-here");
    choice.criterion = "nobody";
    EXPECT_EQ(settings_of(choice, 2026).wrong, HijriPart::criterion);
    choice.criterion = "saao"; // impossible, improbable, probable
    choice.seen_class = 3;
    expect_refused(choice, HijriPart::seen_class, "The class of this criterion is one of 1 ... 2.");
    choice.seen_class = 0;
    expect_refused(choice, HijriPart::seen_class, "The class of this criterion is one of 1 ... 2.");
    choice.seen_class.reset();
    choice.limits.danjon_limit = std::numeric_limits<double>::quiet_NaN();
    expect_refused(choice, HijriPart::limits, "A limit is a number, or nothing.");
    choice = choice_of("seen-here");
    choice.criterion = "user";
    choice.limits.user = {std::nullopt, std::nullopt, std::nullopt, std::nullopt};
    expect_refused(choice, HijriPart::limits, "One limit at least is needed.");
    choice = choice_of("seen-anywhere");
    choice.region = {10, 20, 5, 30};
    expect_refused(
        choice, HijriPart::region,
        "The eastern side of a map is not below its western one: beyond the date line it is above 180.");
}

TEST_F(KeptRule, RefusesAWholeListWithAProblemOrUsesTheRest) {
    folder.write("hijri-announced.csv",
                 "year,month,first_day,announced_by\n1447,9,2026-02-18,a\n1447,10,2026-03-18,a\n");
    HijriChoice choice = choice_of("tabular");
    choice.announced = AnnouncedUse::whole;
    expect_refused(choice, HijriPart::announced,
                   "hijri-announced.csv, line 3: Ramadan 1447 would be a month of 28 days, by line 2.");
    EXPECT_THROW(reckoning_of(nullptr, choice, 2026), RunTimeFailure);
    choice.announced = AnnouncedUse::sound;
    EXPECT_EQ(settings_of(choice, 2026).settings.value().announced.size(), 1U);
    EXPECT_NE(reckoning_of(nullptr, choice, 2026), nullptr);
    choice.announced = AnnouncedUse::none;
    EXPECT_TRUE(settings_of(choice, 2026).settings.value().announced.empty());
    EXPECT_EQ(reckoning_of(nullptr, choice, 2026), nullptr);
}

TEST_F(KeptRule, StandsUntilSomethingThatItIsMadeOfChanges) {
    KeptReckoning kept;
    HijriChoice choice = choice_of("tabular-15");
    keep_hijri_rule(choice);
    const HijriReckoningPointer first = kept.now(nullptr, 2026);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->name.english, "Tabular with leap year 15");
    EXPECT_EQ(kept.now(nullptr, 2026), first);
    choice.announced = AnnouncedUse::sound;
    keep_hijri_rule(choice);
    folder.write("hijri-announced.csv", "year,month,first_day,announced_by\n1447,9,2026-02-18,a\n");
    const HijriReckoningPointer announced = kept.now(nullptr, 2026);
    EXPECT_NE(announced, first);
    folder.write("hijri-announced.csv", "year,month,first_day,announced_by\n1447,9,2026-02-19,a\n");
    EXPECT_NE(kept.now(nullptr, 2026), announced);
    choice = choice_of("mabims");
    keep_hijri_rule(choice);
    const HijriReckoningPointer here = kept.now(nullptr, 2026);
    Location moved = read_loc();
    moved.latitude_minutes += 1;
    write_loc(moved);
    EXPECT_NE(kept.now(nullptr, 2026), here);
    keep_hijri_rule(choice_of("tabular"));
    EXPECT_EQ(kept.now(nullptr, 2026), nullptr);
    forget_hijri_rule();
    EXPECT_EQ(kept.now(nullptr, 2026), nullptr);
}

TEST_F(KeptRule, NamesItsFileWhereItIsAtFault) {
    HijriChoice choice = choice_of("seen-anywhere");
    choice.region = {10, 20, 5, 30};
    keep_hijri_rule(choice);
    try {
        KeptReckoning().now(nullptr, 2026);
        FAIL() << "a part of the world without a width is taken";
    } catch (const RunTimeFailure& failure) {
        EXPECT_EQ(std::string(failure.what()).rfind("hijri-rule.ini, west, south, east, north: ", 0), 0U)
            << failure.what();
    }
}

// Each span is asked of a reckoning of its own, which has made no other months before.
TEST_F(KeptRule, LosesNoDayBetweenTimetablesOfHijriMonths) {
    load_series();
    for (const char* rule : {"umm-al-qura", "seen-here", "turkey"}) {
        const auto span_of = [rule](int year, int month) {
            return hijri_month_span(year, month, reckoning_of(loaded_theory(), choice_of(rule), 2026)).span;
        };
        double next = span_of(1446, 1).first;
        for (int month = 0; month < 24; ++month) {
            const DaySpan span = span_of(1446 + month / 12, month % 12 + 1);
            EXPECT_EQ(span.first, next) << rule << month;
            EXPECT_TRUE(span.days() == 29 || span.days() == 30) << rule << month;
            next = span.last + 1;
        }
    }
}

TEST(SeenBeforeKey, IsReadAndWritten) {
    for (const SeenBefore before : seen_befores())
        EXPECT_EQ(seen_before_of(key_of(before)), before);
    EXPECT_FALSE(seen_before_of("dawn"));
}

TEST(HijriChoice, APlaceMayHaveAnyLettersInItsName) {
    for (const char* name :
         {"; Abu Dhabi", "Abu ; Dhabi", "Abu;Dhabi", "Abu \\ Dhabi", "Abu Dhabi\\", "\\;"}) {
        HijriChoice choice;
        choice.place = name;
        EXPECT_EQ(hijri_choice_of_text(text_of(choice), "x.ini").place, name);
    }
}

} // namespace
} // namespace halvane
