// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "calendar/civildate.h"
#include "stored/loclist.h"
#include "tests/support/places.h"
#include "tests/support/programfolder.h"
#include "tests/timetable/otherreckoning.h"
#include "timetable/timetablerules.h"

#include <gtest/gtest.h>

namespace halvane {
namespace {

SpanChoice one(SpanKind kind, double year, double month = 1) {
    SpanChoice choice;
    choice.kind = kind;
    choice.year = year;
    choice.month = month;
    return choice;
}

DateNumbers first_of(const SpanChoice& choice) {
    return civil_date(span_of(choice).span.first);
}

DateNumbers last_of(const SpanChoice& choice) {
    return civil_date(span_of(choice).span.last);
}

TEST(SpanChoice, OpensWithTheMonthOfAClock) {
    const SpanChoice choice = month_of({2026, 2, 18, 23, 59, 59});
    EXPECT_EQ(first_of(choice), (DateNumbers{2026, 2, 1}));
    EXPECT_EQ(last_of(choice), (DateNumbers{2026, 2, 28}));
}

TEST(SpanChoice, GoesFromMonthToMonthOverTheNewYear) {
    const SpanChoice before = moved(one(SpanKind::month, 2026, 1), -1);
    EXPECT_EQ(before.year, 2025);
    EXPECT_EQ(before.month, 12);
    const SpanChoice after = moved(one(SpanKind::hijri_month, 1447, 12), 1);
    EXPECT_EQ(after.year, 1448);
    EXPECT_EQ(after.month, 1);
    EXPECT_EQ(moved(one(SpanKind::month, 2026, 5), 1).month, 6);
}

// Ramadan 1447 of the tabular calendar: 18 February to 19 March 2026, 30 days.
TEST(SpanChoice, KeepsItsFirstDayInAnotherKind) {
    SpanChoice dates;
    dates.kind = SpanKind::dates;
    dates.from = {2026, 2, 18};
    dates.to = {2026, 2, 20};
    const SpanChoice ramadan = in_kind(dates, SpanKind::hijri_month);
    EXPECT_EQ(ramadan.year, 1447);
    EXPECT_EQ(ramadan.month, 9);
    EXPECT_EQ(in_kind(dates, SpanKind::hijri_year).year, 1447);
    SpanChoice shawwal = dates; // 19 March 2026: 30 Ramadan of the tabular calendar
    shawwal.from = shawwal.to = {2026, 3, 19};
    EXPECT_EQ(in_kind(shawwal, SpanKind::hijri_month).month, 9);
    EXPECT_EQ(in_kind(shawwal, SpanKind::hijri_month, other_reckoning()).month, 10);
    const SpanChoice back = in_kind(ramadan, SpanKind::dates);
    EXPECT_EQ(back.from, (DateNumbers{2026, 2, 18}));
    EXPECT_EQ(back.to, (DateNumbers{2026, 3, 19}));
    EXPECT_EQ(in_kind(ramadan, SpanKind::month).month, 2);
}

TEST(SpanChoice, WithoutDaysOnlyTheKindChanges) {
    const SpanChoice other = in_kind(one(SpanKind::year, 200000), SpanKind::month);
    EXPECT_EQ(other.kind, SpanKind::month);
    EXPECT_EQ(other.year, 200000);
}

TEST(SpanChoice, AYearIsAWholeNumber) {
    EXPECT_TRUE(span_of(one(SpanKind::year, 2026.5)).refused.has_value());
    SpanChoice dates;
    dates.kind = SpanKind::dates;
    dates.from = {2026, 2, 18};
    dates.to = {2026.25, 2, 18};
    EXPECT_TRUE(span_of(dates).refused.has_value());
}

class TimetableChoiceTest : public ::testing::Test {
protected:
    TimetableChoiceTest() {
        Location amman = place_at({35, 56}, {31, 57}, 2, "Amman");
        add_location(place_at({10, 0}, {50, 0}, 1, "A village"));
        modify_location(amman);
        choice_.span = one(SpanKind::month, 2026, 2);
    }

    std::vector<ChoicePart> wrong_parts() const {
        std::vector<ChoicePart> parts;
        for (const WrongChoice& wrong : settings_of(choice_).wrong) {
            EXPECT_TRUE(wrong.words.english.ends_with('.')) << wrong.words.english;
            EXPECT_TRUE(wrong.words.arabic.ends_with('.')) << wrong.words.arabic;
            parts.push_back(wrong.part);
        }
        return parts;
    }

    TemporaryProgramFolder folder_;
    TimetableChoice choice_;
};

TEST_F(TimetableChoiceTest, TheStoredLocationGoesByItsStoredZone) {
    const ChoiceAnswer answer = settings_of(choice_);
    ASSERT_TRUE(answer.settings.has_value());
    EXPECT_FALSE(answer.settings->place.zone.has_value());
    EXPECT_EQ(answer.settings->span.days(), 28);
}

TEST_F(TimetableChoiceTest, APlaceOfTheListIsAskedForByItsName) {
    choice_.place = "Amman";
    EXPECT_EQ(settings_of(choice_).settings->place.location.name, "Amman");
    choice_.place = "amman";
    EXPECT_EQ(wrong_parts(), std::vector{ChoicePart::place});
    choice_.place = "";
    EXPECT_EQ(wrong_parts(), std::vector{ChoicePart::place});
}

TEST_F(TimetableChoiceTest, TheZoneIsTheChosenOneAndNoOther) {
    choice_.place = "Amman";
    EXPECT_FALSE(settings_of(choice_).settings->place.zone.has_value());
    choice_.zone = "Europe/London";
    EXPECT_EQ(settings_of(choice_).settings->place.zone->name(), "Europe/London");
    choice_.zone = "Europe/Nowhere";
    EXPECT_EQ(wrong_parts(), std::vector{ChoicePart::zone});
}

TEST_F(TimetableChoiceTest, TheZoneOfADeliveredPlaceIsKnown) {
    EXPECT_EQ(known_zone_of("Amman"), "Asia/Amman");
    EXPECT_EQ(known_zone_of("A village"), "");
    EXPECT_EQ(known_zone_of("No place"), "");
}

TEST_F(TimetableChoiceTest, EverythingWrongIsToldAtOnce) {
    choice_.span.year = 200000;
    choice_.place = "No place";
    choice_.zone = "No zone";
    choice_.profile.page.columns.clear();
    choice_.profile.maghreb_angle = 20;
    EXPECT_EQ(wrong_parts(), (std::vector{ChoicePart::span, ChoicePart::place, ChoicePart::zone,
                                          ChoicePart::columns, ChoicePart::rules}));
    EXPECT_FALSE(settings_of(choice_).settings.has_value());
}

TEST(StorableProfile, HoldsTheLimitsOfItsFile) {
    Preferences preferences;
    preferences.fajer_angle = 18;
    EXPECT_NO_THROW(require_storable(neutral_profile(preferences)));
    preferences.fajer_angle = 45;
    EXPECT_THROW(require_storable(neutral_profile(preferences)), RunTimeFailure);
}

TEST(TimetableEnding, TellsTheFormat) {
    EXPECT_EQ(format_of_name("a.pdf"), TimetableFormat::pdf);
    EXPECT_EQ(format_of_name("a.display.csv"), TimetableFormat::display_csv);
    EXPECT_EQ(format_of_name("/b/display.csv"), TimetableFormat::csv);
    EXPECT_EQ(format_of_name("A.ICS"), TimetableFormat::ics);
    EXPECT_EQ(format_of_name("pdf"), std::nullopt);
    EXPECT_EQ(format_of_name("a.txt"), std::nullopt);
    for (const TimetableFormat format : timetable_formats())
        EXPECT_EQ(format_of_name("a." + ending_of(format)), format);
}

} // namespace
} // namespace halvane
