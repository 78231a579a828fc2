// SPDX-License-Identifier: MIT
#include "hijri/hijrifiles.h"
#include "hijri/hijritexts.h"
#include "tests/hijri/handmadeyears.h"

#include <gtest/gtest.h>
#include <string>

namespace halvane {
namespace {

// 2026 January 2, 3 h 4 min 5 s Universal Time.
constexpr std::int64_t stamp = 1767323045;

TEST(YearsAsCsv, OfOneRuleHaveARowForEachMonth) {
    EXPECT_EQ(csv_of(handmade_years(1), Language::english),
              "year,month,name,first_day,days,margin,note\r\n"
              "1447,9,Ramadan,2026-02-18,30,-4.2 s,may differ by a day\r\n"
              "1447,10,Shawwal,2026-03-20,29,,\"announced by Court, \"\"High\"\"\"\r\n");
}

TEST(YearsAsCsv, OfTwoRulesHaveTheirDifferences) {
    EXPECT_EQ(csv_of(handmade_years(2), Language::arabic),
              "year,month,name,umm-al-qura_first_day,umm-al-qura_difference,tabular_first_day,"
              "tabular_difference\r\n"
              "1447,9,رمضان,2026-02-18,0,2026-02-19,1\r\n"
              "1447,10,شوال,2026-03-20,0,2026-03-19,-1\r\n");
}

TEST(YearsAsText, StandBelowOneAnother) {
    EXPECT_EQ(table_of(handmade_years(1), Language::english),
              "Hijri months\n"
              "Umm al-Qura\n"
              "\n"
              "Month         First day             Days  Margin  Notes\n"
              "Ramadan 1447  2026-02-18 Wednesday  30    -4.2 s  may differ by a day\n"
              "Shawwal 1447  2026-03-20 Friday     29            announced by Court, \"High\"\n");
    EXPECT_EQ(table_of(handmade_years(2), Language::english),
              "Hijri months\n"
              "(1) Umm al-Qura\n"
              "(2) Tabular\n"
              "\n"
              "Month         (1)                     (2)                  Days after (1)\n"
              "Ramadan 1447  2026-02-18 Wednesday *  2026-02-19 Thursday  +1\n"
              "Shawwal 1447  2026-03-20 Friday       2026-03-19 Thursday  -1\n"
              "* may differ by a day\n");
}

TEST(CalendarOfMonths, HasWholeDays) {
    const std::string text = ics_of(handmade_years(1), Language::english, stamp);
    EXPECT_NE(text.find("BEGIN:VEVENT\r\n"
                        "UID:hijri-1447-09-umm-al-qura@halvane\r\n"
                        "DTSTAMP:20260102T030405Z\r\n"
                        "DTSTART;VALUE=DATE:20260218\r\n"
                        "DTEND;VALUE=DATE:20260219\r\n"
                        "SUMMARY:Ramadan 1447\r\n"
                        "DESCRIPTION:Umm al-Qura\\nmay differ by a day\r\n"
                        "TRANSP:TRANSPARENT\r\n"
                        "END:VEVENT\r\n"),
              std::string::npos)
        << text;
    EXPECT_NE(text.find("UID:hijri-1447-10-eid_al_fitr-umm-al-qura@halvane\r\n"
                        "DTSTAMP:20260102T030405Z\r\n"
                        "DTSTART;VALUE=DATE:20260320\r\n"
                        "DTEND;VALUE=DATE:20260323\r\n"),
              std::string::npos)
        << text;
}

TEST(CalendarOfMonths, NamesTheRuleWhereThereAreSeveral) {
    const std::string text = ics_of(handmade_years(2), Language::english, stamp);
    EXPECT_NE(text.find("SUMMARY:Ramadan 1447 (Tabular)\r\n"), std::string::npos) << text;
}

TEST(CalendarOfMonths, KeepsItsUidsWhenAStartIsAnnounced) {
    HijriYears years = handmade_years(1);
    years.rules.front().settings.announced.push_back({HijriMonthNumber::of(1447, 9), 2461091, ""});
    years.rules.front().months.front().first_day += 1;
    const std::string text = ics_of(years, Language::english, stamp);
    EXPECT_NE(text.find("UID:hijri-1447-09-umm-al-qura@halvane\r\n"), std::string::npos) << text;
}

std::size_t count_of(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

TEST(CalendarOfMonths, HasUidsThatDoNotHangOnTheOrderOfTheRules) {
    HijriYears years = handmade_years(1);
    const RuleMonths reckoned = years.rules.front();
    RuleMonths announced = reckoned;
    announced.settings.announced.push_back({HijriMonthNumber::of(1447, 9), 2461091, ""});
    announced.months.front().first_day += 1;
    const std::string of_reckoned = "UID:hijri-1447-09-umm-al-qura@halvane\r\nDTSTAMP:20260102T030405Z\r\n"
                                    "DTSTART;VALUE=DATE:20260218\r\n";
    const std::string of_announced = "UID:hijri-1447-09-announced-umm-al-qura@halvane\r\n"
                                     "DTSTAMP:20260102T030405Z\r\nDTSTART;VALUE=DATE:20260219\r\n";
    for (const auto& rules : {std::vector{reckoned, announced}, std::vector{announced, reckoned}}) {
        years.rules = rules;
        const std::string text = ics_of(years, Language::english, stamp);
        EXPECT_EQ(count_of(text, of_reckoned), 1U) << text;
        EXPECT_EQ(count_of(text, of_announced), 1U) << text;
    }
}

TEST(CalendarOfMonths, HasTheEventsOfOneRuleOnce) {
    HijriYears years = handmade_years(2);
    years.rules.push_back(years.rules.front());
    const std::string text = ics_of(years, Language::english, stamp);
    EXPECT_EQ(count_of(text, "UID:hijri-1447-09-umm-al-qura"), 1U) << text;
    EXPECT_EQ(count_of(text, "UID:hijri-1447-09-tabular@halvane"), 1U) << text;
}

TEST(RuleKeys, TellTwoOfOneRuleApart) {
    HijriYears years = handmade_years(2);
    years.rules[1].settings = years.rules[0].settings;
    EXPECT_EQ(distinct_keys(years.rules), (std::vector<std::string>{"umm-al-qura", "umm-al-qura-2"}));
}

TEST(RuleKeys, HoldCriterionAndPlaceWhereTheRuleAsksForThem) {
    HijriSettings settings;
    settings.rule = hijri_rule("seen-here");
    settings.criterion = catalogued_criterion("yallop");
    settings.seen_class = settings.criterion->by_eye;
    settings.place = {"Cape Town", 18.4239, -33.9253, 0, 2};
    EXPECT_EQ(rule_key(settings), "seen-here-yallop-339253s184239e");
    settings.seen_class += 1;
    EXPECT_EQ(rule_key(settings),
              "seen-here-yallop-class-" + std::to_string(settings.seen_class) + "-339253s184239e");
    settings.announced.push_back({HijriMonthNumber::of(1447, 9), 2461090, ""});
    EXPECT_TRUE(settings_key(settings).starts_with("announced-seen-here-"));
}

HijriSettings seen_anywhere_by(const char* criterion) {
    HijriSettings settings;
    settings.rule = hijri_rule("seen-anywhere");
    settings.criterion = catalogued_criterion(criterion);
    settings.seen_class = settings.criterion->by_eye;
    return settings;
}

void expect_told(const HijriSettings& settings, const std::string& key, const std::string& name) {
    EXPECT_EQ(rule_key(settings), key);
    EXPECT_EQ(name_of(settings).english, name);
    EXPECT_FALSE(name_of(settings).arabic.empty());
}

TEST(RuleKeys, AreShortWhereAllIsUsual) {
    expect_told(seen_anywhere_by("yallop"), "seen-anywhere-yallop", "Seen anywhere by Yallop");
    expect_told(seen_anywhere_by("user"), "seen-anywhere-user",
                "Seen anywhere by Lag, altitude, elongation, age");
}

TEST(RuleKeys, TellThePartOfTheWorldAndItsLimit) {
    HijriSettings settings = seen_anywhere_by("yallop");
    settings.region = {-30.25, -10, 190, 45};
    expect_told(settings, "seen-anywhere-yallop-30.25w-10s-190e-45n",
                "Seen anywhere by Yallop (30.25° W to 170° W, 10° S to 45° N)");
    settings = seen_anywhere_by("yallop");
    settings.before = SeenBefore::midnight;
    expect_told(settings, "seen-anywhere-yallop-before-midnight",
                "Seen anywhere by Yallop (before midnight, Universal Time)");
    settings.before = SeenBefore::fajer;
    settings.place = {"Cape Town", 18.4239, -33.9253, 0, 2};
    expect_told(settings, "seen-anywhere-yallop-before-fajer-339253s184239e",
                "Seen anywhere by Yallop (before Fajer at the place: Cape Town)");
}

TEST(RuleKeys, TellTheClassAndTheLimitsOfACriterion) {
    HijriSettings settings = seen_anywhere_by("saao");
    settings.seen_class = 1;
    expect_told(settings, "seen-anywhere-saao-class-1",
                std::string("Seen anywhere by ") + settings.criterion->name.english +
                    " (class: Improbable by naked eye)");
    settings = seen_anywhere_by("user");
    settings.limits.user.lag = 20.5;
    settings.limits.user.age.reset();
    expect_told(settings, "seen-anywhere-user-lag-20.5-age-none",
                "Seen anywhere by Lag, altitude, elongation, age (lag 20.5 min; age: none)");
    settings = seen_anywhere_by("danjon");
    settings.limits.user.lag = 20.5; // no limit of this one
    settings.limits.danjon_limit = 6.4;
    expect_told(settings, "seen-anywhere-danjon-limit-6.4",
                std::string("Seen anywhere by ") + settings.criterion->name.english + " (elongation 6.4°)");
}

TEST(RuleKeys, PassOverWhatARuleDoesNotAskFor) {
    HijriSettings settings;
    settings.rule = hijri_rule("turkey");
    settings.region = {0, 0, 10, 10};
    settings.before = SeenBefore::fajer;
    settings.limits.danjon_limit = 6.4;
    expect_told(settings, "turkey", "Turkey");
}

TEST(YearsAsJson, HaveTheLimitsOfTheCriterion) {
    HijriYears years = handmade_years(1);
    years.rules.front().settings = seen_anywhere_by("user");
    years.rules.front().settings.limits.user = {20.5, std::nullopt, 8, 0};
    EXPECT_NE(json_of(years, Language::english)
                  .find("\"limits\": {\n     \"lag\": 20.5,\n     \"altitude\": null,\n     "
                        "\"elongation\": 8.0,\n     \"age\": 0.0\n"),
              std::string::npos)
        << json_of(years, Language::english);
    years.rules.front().settings = seen_anywhere_by("danjon");
    EXPECT_NE(json_of(years, Language::english).find("\"danjon_limit\": 7.0"), std::string::npos);
    years.rules.front().settings = seen_anywhere_by("yallop");
    EXPECT_NE(json_of(years, Language::english).find("\"limits\": null"), std::string::npos);
}

TEST(FilesOfMonths, AreNamedAfterYearsAndRules) {
    EXPECT_EQ(file_name_of(handmade_years(2)), "hijri-1447-umm-al-qura-tabular");
    HijriYears years = handmade_years(1);
    years.last = 1450;
    EXPECT_EQ(file_name_of(years), "hijri-1447-1450-umm-al-qura");
}

} // namespace
} // namespace halvane
