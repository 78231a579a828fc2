// SPDX-License-Identifier: MIT
#include "tests/timetable/handmadetimetable.h"
#include "tests/timetable/otherreckoning.h"
#include "timetable/timetablefiles.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace halvane {
namespace {

using Json = nlohmann::ordered_json;

Json read(const Timetable& timetable, const PageSettings& page = {}) {
    return Json::parse(json_of(timetable, page));
}

TEST(TimetableJson, GivesAClockWithItsInstant) {
    const Json row = read(handmade_timetable())["rows"][0];
    EXPECT_EQ(row.dump(),
              R"({"date":"2026-02-18","weekday":"Wednesday",)"
              R"("hijri":{"year":1447,"month":9,"day":1},)"
              R"("fajer":{"clock":"05:10","instant":"2026-02-18T05:10:00+03:00","source":"sky"},)"
              R"("shuroq":{"clock":"06:30","instant":"2026-02-18T06:30:00+03:00","source":"sky"},)"
              R"("dhohur":{"clock":"11:51","instant":"2026-02-18T11:51:00+03:00","source":"sky"},)"
              R"("aser":{"clock":"15:00","instant":"2026-02-18T15:00:00+03:00","source":"sky"},)"
              R"("maghreb":{"clock":"17:24","instant":"2026-02-18T17:24:00+03:00","source":"sky"},)"
              R"("isha":{"clock":"18:40","instant":"2026-02-18T18:40:00+03:00","source":"sky"}})");
}

TEST(TimetableJson, TellsWhyThereIsNoTime) {
    Timetable timetable = handmade_timetable();
    timetable.rows[0].times[DayTime::fajer] = no_time(NoEvent::bright);
    PageSettings page;
    page.columns = {TimetableColumn::fajer, TimetableColumn::fajer_iqamah, TimetableColumn::jumuah};
    EXPECT_EQ(read(timetable, page)["rows"][0].dump(),
              R"({"fajer":{"clock":null,"missing":"bright"},"fajer_iqamah":null,"jumuah":[]})");
}

TEST(TimetableJson, MarksTheTimesOfARule) {
    Timetable timetable = handmade_timetable();
    timetable.rows[1].times[DayTime::isha].source = TimeSource::seventh;
    timetable.rules = {TimeSource::seventh};
    PageSettings page;
    page.columns = {TimetableColumn::isha, TimetableColumn::rules};
    const Json json = read(timetable, page);
    EXPECT_EQ(json["rows"][1].dump(),
              R"({"isha":{"clock":"18:41","instant":"2026-02-19T18:41:00+03:00","source":"seventh"},)"
              R"("rules":{"isha":"seventh"}})");
    EXPECT_EQ(json["rows"][0]["rules"], Json::object());
    EXPECT_EQ(json["notes"]["rules"][0]["key"], "seventh");
}

TEST(TimetableJson, PutsATimePastMidnightOnItsDate) {
    Timetable timetable = handmade_timetable();
    timetable.rows[0].times[DayTime::isha] = clock_of_row(0, 12, 1);
    timetable.rows[1].times[DayTime::isha] = clock_of_row(23, 58, -1);
    const Json rows = read(timetable)["rows"];
    EXPECT_EQ(rows[0]["isha"]["instant"], "2026-02-19T00:12:00+03:00");
    EXPECT_EQ(rows[1]["isha"]["instant"], "2026-02-18T23:58:00+03:00");
}

TEST(TimetableJson, GivesOffsetsOfEitherSignAndUniversalTimeForOnesWithSeconds) {
    Timetable timetable = handmade_timetable();
    OfSix<RowTime>& times = timetable.rows[0].times;
    times[DayTime::fajer].clock->offset = -(3 * 3600 + 30 * 60);
    times[DayTime::dhohur].clock->offset = 2 * 3600 + 23 * 60 + 44; // the mean time of a longitude
    times[DayTime::isha] = clock_of_row(0, 12, 1);
    times[DayTime::isha].clock->offset = 1;
    times[DayTime::maghreb] = clock_of_row(0, 0, 0);
    times[DayTime::maghreb].clock->offset = 1;
    const Json row = read(timetable)["rows"][0];
    EXPECT_EQ(row["fajer"]["instant"], "2026-02-18T05:10:00-03:30");
    EXPECT_EQ(row["dhohur"]["instant"], "2026-02-18T09:27:16+00:00");
    EXPECT_EQ(row["isha"]["instant"], "2026-02-19T00:11:59+00:00");
    EXPECT_EQ(row["maghreb"]["instant"], "2026-02-17T23:59:59+00:00");
}

TEST(TimetableJson, HoldsTheSettings) {
    Timetable timetable = handmade_timetable();
    Profile& profile = timetable.settings.profile;
    profile = authority_profile(*find_authority("singapore"));
    profile.name = "Our mosque";
    profile.iqamah[DayTime::fajer] = {Iqamah::Kind::after, 15, true};
    profile.iqamah[DayTime::isha] = {Iqamah::Kind::fixed, 20 * 60 + 30, false};
    profile.jumuah = {13 * 60 + 15};
    profile.high_latitude = HighLatitudeRule::nearest_latitude;
    timetable.zone_difference = {2, timetable.rows[0].jd, timetable.rows[1].jd};
    timetable.rows[1].clock_changes = true;

    const Json json = read(timetable);
    EXPECT_EQ(json["task"], "timetable");
    EXPECT_EQ(json["zone_difference"].dump(), R"({"days":2,"first":"2026-02-18","last":"2026-02-19"})");
    EXPECT_EQ(json["notes"]["clock_changes"].dump(), R"(["2026-02-19"])");
    const Json& settings = json["settings"];
    EXPECT_EQ(settings["place"]["name"], "Amman");
    EXPECT_DOUBLE_EQ(settings["place"]["latitude"], 31.95);
    EXPECT_EQ(settings["zone"].dump(), R"({"hours":3.0,"summer_time":null})");
    EXPECT_EQ(settings["span"].dump(),
              R"({"kind":"dates","first":"2026-02-18","last":"2026-02-20","days":3})");
    const Json& rules = settings["profile"];
    EXPECT_EQ(rules["name"], "Our mosque");
    EXPECT_EQ(rules["authority"]["key"], "singapore");
    EXPECT_EQ(rules["authority"]["source"], find_authority("singapore")->source);
    EXPECT_EQ(rules["fajer_angle"], 20);
    EXPECT_EQ(rules["added"]["dhohur"], 1);
    EXPECT_EQ(rules["rounding"]["isha"], "up");
    EXPECT_EQ(rules["iqamah"]["fajer"].dump(), R"({"after":15,"up_to_five":true})");
    EXPECT_EQ(rules["iqamah"]["isha"].dump(), R"({"at":"20:30"})");
    EXPECT_EQ(rules["iqamah"]["aser"], nullptr);
    EXPECT_EQ(rules["jumuah"].dump(), R"(["13:15"])");
    EXPECT_EQ(rules["high_latitude"].dump(),
              R"({"rule":"latitude","use":"missing","reference_latitude":48.5})");
}

TEST(TimetableJson, NamesWhatTheHijriDatesAreToldBy) {
    Timetable timetable = handmade_timetable();
    EXPECT_FALSE(read(timetable)["settings"].contains("hijri_dates"));
    timetable.settings.hijri = other_reckoning();
    EXPECT_EQ(read(timetable)["settings"]["hijri_dates"].dump(), R"({"en":"Other","ar":"آخر"})");
}

TEST(TimetableJson, NamesTheClockOfAZone) {
    Timetable timetable = handmade_timetable();
    timetable.settings.place.zone = TimeZone("Asia/Amman");
    EXPECT_EQ(read(timetable)["settings"]["zone"].dump(), R"({"name":"Asia/Amman"})");
    timetable.settings.place.zone.reset();
    timetable.settings.place.preferences.summer_time = "1";
    EXPECT_EQ(read(timetable)["settings"]["zone"].dump(),
              R"({"hours":3.0,"summer_time":{"from":{"month":4,"day":1},"to":{"month":10,"day":1}}})");
}

TEST(TimetableJson, IsUtf8WhateverThePlaceIsCalled) {
    Timetable timetable = handmade_timetable();
    timetable.settings.place.location.name = "\xc7\xe1 \"A\""; // Windows-1256
    EXPECT_EQ(read(timetable)["settings"]["place"]["name"], "ال \"A\"");
}

} // namespace
} // namespace halvane
