// SPDX-License-Identifier: MIT
#include "watch/watchsheet.h"

#include "tests/watch/watches.h"

#include <algorithm>
#include <string>

namespace halvane {
namespace {

class WatchSheetTest : public WatchTest {
protected:
    static std::string value_of(const std::vector<WatchFact>& facts, const std::string& label) {
        const auto found = std::find_if(facts.begin(), facts.end(),
                                        [&](const WatchFact& fact) { return fact.label.english == label; });
        return found == facts.end() ? "no " + label : found->value.english;
    }

    static bool is_arabic(const std::string& text) {
        return text.find('\xd8') != std::string::npos || text.find('\xd9') != std::string::npos;
    }
};

TEST_F(WatchSheetTest, TellsThePlaceAndTheDayInBothLanguages) {
    const WatchSheet sheet = sheet_of(watch_at("Amman", {2026, 2, 18}));
    EXPECT_EQ(sheet.title.english, "New crescent of Ramadan 1447");
    EXPECT_EQ(sheet.title.arabic, "هلال أول شهر رمضان 1447");
    EXPECT_EQ(sheet.evening.english, "Evening of Wednesday 18 February 2026");
    EXPECT_EQ(sheet.evening.arabic, "مساء الأربعاء 18 شباط 2026");
    EXPECT_EQ(sheet.place.english, "Amman");
    EXPECT_EQ(sheet.zone.english, "Time zone Asia/Amman (UT +3)");
    const WatchSheet old = sheet_of(watch_at("Jakarta", {2026, 2, 16}, CrescentKind::old_crescent));
    EXPECT_EQ(old.title.english, "Old crescent of Sha'ban 1447");
    EXPECT_EQ(old.evening.english, "Morning of Monday 16 February 2026");
    EXPECT_EQ(old.evening.arabic, "صباح الاثنين 16 شباط 2026");
}

TEST_F(WatchSheetTest, TellsTheEveningOfMakkah) {
    // Conjunction at 12:01 UT, sunset at 15:19:56 and moonset at 16:18:55 UT, lag 59.0 min: Swiss Ephemeris
    // for 39.8262 E, 21.4225 N at sea level, to which the delivered place is close.
    const WatchSheet sheet = sheet_of(watch_at("Makkah", {2026, 2, 18}));
    EXPECT_TRUE(value_of(sheet.facts, "Conjunction, Universal Time").starts_with("17 February 2026, 12:01:"));
    EXPECT_TRUE(value_of(sheet.facts, "Conjunction, local clock").starts_with("17 February 2026, 15:01:"));
    EXPECT_TRUE(value_of(sheet.facts, "Sunset").starts_with("18:19:5"));
    EXPECT_TRUE(value_of(sheet.facts, "Moonset").starts_with("19:18:5"));
    EXPECT_EQ(value_of(sheet.facts, "Lag of the Moon"), "59 min");
    EXPECT_EQ(value_of(sheet.facts, "Age at sunset"), "27 h 19 min");
    EXPECT_TRUE(value_of(sheet.facts, "Best Time").starts_with("18:46:"));
    EXPECT_TRUE(sheet.warnings.empty());
    EXPECT_EQ(sheet.rows.front().event.english, "Sunset");
    EXPECT_EQ(sheet.rows.back().event.arabic, "غروب القمر");
}

TEST_F(WatchSheetTest, HasEveryTextInBothLanguages) {
    for (const WatchSheet& sheet :
         {sheet_of(watch_at("Amman", {2026, 2, 18})), sheet_of(watch_at("Amman", {2026, 2, 16})),
          sheet_of(watch_at("Tromso", {2026, 4, 18}))}) {
        for (const TwinWords& words :
             {sheet.title, sheet.evening, sheet.hijri, sheet.coordinates, sheet.zone, sheet.verdicts_title}) {
            EXPECT_FALSE(words.english.empty());
            EXPECT_TRUE(is_arabic(words.arabic)) << words.arabic;
            EXPECT_FALSE(is_arabic(words.english)) << words.english;
        }
        for (const auto* list : {&sheet.warnings, &sheet.notes, &sheet.orientation})
            for (const TwinWords& words : *list) {
                EXPECT_TRUE(is_arabic(words.arabic)) << words.english;
                EXPECT_FALSE(is_arabic(words.english)) << words.english;
            }
        for (const WatchTableRow& row : sheet.rows)
            EXPECT_EQ(row.cells.size(), sheet.columns.size());
        for (const auto* facts : {&sheet.facts, &sheet.pointing})
            for (const WatchFact& fact : *facts) {
                EXPECT_FALSE(fact.label.english.empty() || fact.value.english.empty());
                EXPECT_FALSE(fact.label.arabic.empty() || fact.value.arabic.empty());
            }
    }
}

TEST_F(WatchSheetTest, TellsWhyNothingCanBeSeen) {
    const WatchSheet before = sheet_of(watch_at("Amman", {2026, 2, 16}));
    ASSERT_EQ(before.warnings.size(), 2U);
    EXPECT_EQ(before.warnings[0].english,
              "The conjunction is still to come at sunset: there is no new crescent yet.");
    EXPECT_EQ(
        before.warnings[1].english,
        "The Moon sets 59 min before the Sun: it is below the horizon at sunset, and nothing can be seen.");
    EXPECT_EQ(value_of(before.facts, "Best Time"), "–");
    EXPECT_TRUE(before.pointing.empty());
    const WatchSheet down = sheet_of(watch_at("Tromso", {2026, 11, 9}));
    EXPECT_EQ(down.warnings.back().english, "The Moon stays below the horizon all day: nothing can be seen.");
    EXPECT_EQ(value_of(down.facts, "Moonset"), "stays below the horizon");
    const WatchSheet up = sheet_of(watch_at("Tromso", {2026, 4, 18}));
    EXPECT_EQ(value_of(up.facts, "Lag of the Moon"), "–");
    EXPECT_EQ(up.warnings.size(), 1U);
}

TEST_F(WatchSheetTest, TellsWhyThereIsNone) {
    const auto told = [](const char* place, const DateNumbers& date) {
        return words_of(no_watch_at(place, date), settings_at(place, date));
    };
    EXPECT_EQ(told("Tromso", {2026, 6, 16}).english,
              "On 16 June 2026 the Sun does not set in Tromso: it stays above the horizon.");
    EXPECT_EQ(told("Tromso", {2026, 12, 10}).english,
              "On 10 December 2026 the Sun does not set in Tromso: it stays below the horizon.");
    EXPECT_EQ(
        told("Amman", {2026, 3, 4}).english,
        "On 4 March 2026 the Moon is no crescent: the nearest conjunction is on 19 March 2026, more than "
        "seven days away.");
    EXPECT_TRUE(is_arabic(told("Amman", {2026, 3, 4}).arabic));
}

TEST_F(WatchSheetTest, TellsHowTheCrescentLies) {
    // At Amman the Sun is below the Moon and to its right, at Cape Town far to its left.
    const WatchSheet amman = sheet_of(watch_at("Amman", {2026, 2, 18}));
    EXPECT_TRUE(amman.orientation[0].english.ends_with("to the right of straight down."))
        << amman.orientation[0].english;
    EXPECT_TRUE(amman.orientation[1].english.ends_with("the right horn is the higher."))
        << amman.orientation[1].english;
    EXPECT_TRUE(value_of(amman.pointing, "From the Sun in azimuth").ends_with("to the left"));
    const WatchSheet cape = sheet_of(watch_at("Cape Town", {2026, 2, 18}));
    EXPECT_TRUE(cape.orientation[0].english.ends_with("to the left of straight down."));
    EXPECT_TRUE(cape.orientation[1].english.ends_with("the left horn is the higher."));
    EXPECT_TRUE(value_of(cape.pointing, "From the Sun in azimuth").ends_with("to the right"));
}

TEST(WatchWords, NameTheWinds) {
    EXPECT_STREQ(compass_words(270).english, "West");
    EXPECT_STREQ(compass_words(258.8).english, "West");
    EXPECT_STREQ(compass_words(258.7).english, "West-southwest");
    EXPECT_STREQ(compass_words(359).english, "North");
    EXPECT_STREQ(compass_words(-90).english, "West");
    EXPECT_STREQ(compass_words(101).arabic, "الشرق");
}

TEST(WatchWords, WriteFiguresWithALongMinusSign) {
    EXPECT_EQ(fixed_number(-1.234, 2), "−1.23");
    EXPECT_EQ(fixed_number(-0.001, 2), "0.00");
    EXPECT_EQ(fixed_number(12.6, 0), "13");
    EXPECT_EQ(fixed_number(0.2, 0), "0");
}

} // namespace
} // namespace halvane
