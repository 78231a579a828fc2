// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "base/version.h"
#include "tests/timetable/handmadetimetable.h"
#include "tests/timetable/otherreckoning.h"
#include "tests/timetable/timetables.h"
#include "timetable/timetablefiles.h"
#include "timetable/timetableplaces.h"

#include <gtest/gtest.h>
#include <libical/ical.h>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace halvane {
namespace {

// 2026 January 2, 3 h 4 min 5 s Universal Time.
constexpr std::int64_t stamp = 1767323045;

std::vector<std::string> lines_of(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = text.find("\r\n", start);
        lines.push_back(text.substr(start, end - start));
        start = end == std::string::npos ? text.size() : end + 2;
    }
    return lines;
}

/// The events by their UID, unfolded, each as its lines.
std::map<std::string, std::string> events_of(std::string text) {
    for (std::size_t fold = text.find("\r\n "); fold != std::string::npos; fold = text.find("\r\n "))
        text.erase(fold, 3);
    std::map<std::string, std::string> events;
    std::string event;
    std::string uid;
    for (const std::string& line : lines_of(text)) {
        if (line == "BEGIN:VEVENT")
            event.clear();
        event += line + '\n';
        if (line.starts_with("UID:"))
            uid = line.substr(4);
        if (line == "END:VEVENT" && !events.emplace(uid, event).second)
            ADD_FAILURE() << uid << " twice";
    }
    return events;
}

/// The first day alone, and of it Fajer alone.
Timetable one_fajer() {
    Timetable timetable = handmade_timetable();
    timetable.rows.resize(1);
    timetable.rows[0].hijri.day = 2;
    for (const DayTime other : {DayTime::dhohur, DayTime::aser, DayTime::maghreb, DayTime::isha})
        timetable.rows[0].times[other] = no_time(NoEvent::none);
    return timetable;
}

TEST(CalendarFile, HoldsAnEventInUniversalTime) {
    PageSettings page;
    page.alarm_minutes = 10;
    EXPECT_EQ(ics_of(one_fajer(), page, stamp), std::string("BEGIN:VCALENDAR\r\n"
                                                            "VERSION:2.0\r\n"
                                                            "PRODID:-//Halvane//Halvane ") +
                                                    version +
                                                    "//EN\r\n"
                                                    "CALSCALE:GREGORIAN\r\n"
                                                    "X-WR-CALNAME:Prayer times\\, Amman\r\n"
                                                    "BEGIN:VEVENT\r\n"
                                                    "UID:20260218-fajer-319500n359333e@halvane\r\n"
                                                    "DTSTAMP:20260102T030405Z\r\n"
                                                    "DTSTART:20260218T021000Z\r\n"
                                                    "SUMMARY:Fajer\r\n"
                                                    "LOCATION:Amman\r\n"
                                                    "GEO:31.950000;35.933333\r\n"
                                                    "TRANSP:TRANSPARENT\r\n"
                                                    "BEGIN:VALARM\r\n"
                                                    "ACTION:DISPLAY\r\n"
                                                    "DESCRIPTION:Fajer\r\n"
                                                    "TRIGGER:-PT10M\r\n"
                                                    "END:VALARM\r\n"
                                                    "END:VEVENT\r\n"
                                                    "END:VCALENDAR\r\n");
}

TEST(CalendarFile, HoldsTheFivePrayersAndTheFirstOfTheHijriMonth) {
    const auto events = events_of(ics_of(handmade_timetable(), {}, stamp));
    ASSERT_EQ(events.size(), 16U) << "five of three days, and the month";
    for (const char* prayer : {"fajer", "dhohur", "aser", "maghreb", "isha"})
        EXPECT_TRUE(events.contains(std::string("20260219-") + prayer + "-319500n359333e@halvane")) << prayer;
    const std::string month = events.at("20260218-hijri-month-319500n359333e@halvane");
    EXPECT_NE(month.find("\nDTSTART;VALUE=DATE:20260218\n"), std::string::npos) << month;
    EXPECT_NE(month.find("\nSUMMARY:Ramadan 1447\n"), std::string::npos) << month;
}

TEST(CalendarFile, TellsByWhatTheMonthBegins) {
    constexpr const char* month = "20260218-hijri-month-319500n359333e@halvane";
    Timetable timetable = handmade_timetable();
    EXPECT_NE(events_of(ics_of(timetable, {}, stamp))
                  .at(month)
                  .find("\nDESCRIPTION:First day of the month by the tabular Hijri calendar\n"),
              std::string::npos);
    timetable.settings.hijri = other_reckoning();
    EXPECT_NE(events_of(ics_of(timetable, {}, stamp))
                  .at(month)
                  .find("\nDESCRIPTION:First day of the month: Other\n"),
              std::string::npos);
    PageSettings page;
    page.language = PageLanguage::arabic;
    EXPECT_NE(events_of(ics_of(timetable, page, stamp)).at(month).find("\nDESCRIPTION:أول أيام الشهر: آخر\n"),
              std::string::npos);
}

TEST(CalendarFile, NamesThePrayersAsThePageDoes) {
    PageSettings page;
    page.names = PrayerNames::common;
    page.language = PageLanguage::both;
    const std::string both = ics_of(one_fajer(), page, stamp);
    EXPECT_NE(both.find("SUMMARY:Fajr / الفجر\r\n"), std::string::npos) << both;
    page.language = PageLanguage::arabic;
    const std::string arabic = ics_of(one_fajer(), page, stamp);
    EXPECT_NE(arabic.find("SUMMARY:الفجر\r\n"), std::string::npos) << arabic;
    EXPECT_EQ(arabic.find("BEGIN:VALARM"), std::string::npos) << "none is wanted";
}

TEST(CalendarFile, HoldsTheFirstJumuahOfAFriday) {
    Timetable timetable = handmade_timetable();
    timetable.rows[2].jumuah = {clock_of_row(12, 30), clock_of_row(13, 30)};
    const auto events = events_of(ics_of(timetable, {}, stamp));
    ASSERT_EQ(events.size(), 17U);
    const std::string jumuah = events.at("20260220-jumuah-319500n359333e@halvane");
    EXPECT_NE(jumuah.find("\nDTSTART:20260220T093000Z\n"), std::string::npos) << jumuah;
    EXPECT_NE(jumuah.find("\nSUMMARY:Jumu'ah\n"), std::string::npos) << jumuah;
}

TEST(CalendarFile, PutsAnIshaPastMidnightOnItsInstant) {
    Timetable timetable = one_fajer();
    timetable.rows[0].times[DayTime::isha] = clock_of_row(0, 12, 1);
    const auto events = events_of(ics_of(timetable, {}, stamp));
    const std::string isha = events.at("20260218-isha-319500n359333e@halvane");
    EXPECT_NE(isha.find("\nDTSTART:20260218T211200Z\n"), std::string::npos) << isha;
}

TEST(CalendarFile, TellsOfARuleThatMadeATime) {
    Timetable timetable = one_fajer();
    timetable.rows[0].times[DayTime::fajer].source = TimeSource::seventh;
    const std::string text = ics_of(timetable, {}, stamp);
    EXPECT_NE(text.find("\r\nDESCRIPTION:by one seventh of the night\r\n"), std::string::npos) << text;
}

TEST(CalendarFile, ChangesOneEventWithOneMinute) {
    Timetable timetable = handmade_timetable();
    const auto before = events_of(ics_of(timetable, {}, stamp));
    timetable.rows[1].times[DayTime::isha].clock->seconds += 60;
    timetable.settings.profile.name = "another";
    const auto after = events_of(ics_of(timetable, {}, stamp));
    ASSERT_EQ(before.size(), after.size());
    std::vector<std::string> changed;
    for (const auto& [uid, event] : before)
        if (after.at(uid) != event)
            changed.push_back(uid);
    EXPECT_EQ(changed, std::vector<std::string>{"20260219-isha-319500n359333e@halvane"});
}

TEST(CalendarFile, OfTwoPlacesHasNoCommonEvent) {
    Timetable timetable = handmade_timetable();
    const auto here = events_of(ics_of(timetable, {}, stamp));
    timetable.settings.place.location.latitude_minutes += 1;
    for (const auto& [uid, event] : events_of(ics_of(timetable, {}, stamp)))
        EXPECT_FALSE(here.contains(uid)) << uid;
    timetable = handmade_timetable();
    timetable.settings.place.location.north = false;
    for (const auto& [uid, event] : events_of(ics_of(timetable, {}, stamp)))
        EXPECT_FALSE(here.contains(uid)) << uid;
}

TEST(CalendarFile, EscapesTexts) {
    Timetable timetable = one_fajer();
    timetable.settings.place.location.name = "A, B; C\\D\nE\x01";
    const std::string text = ics_of(timetable, {}, stamp);
    EXPECT_NE(text.find("\r\nLOCATION:A\\, B\\; C\\\\D\\nE\r\n"), std::string::npos) << text;
}

TEST(CalendarFile, FoldsLongLinesBetweenCharacters) {
    Timetable timetable = one_fajer();
    std::string& name = timetable.settings.place.location.name;
    name.clear();
    for (int i = 0; i < 60; ++i)
        name += "ع"; // two octets
    const std::string text = ics_of(timetable, {}, stamp);
    // "LOCATION:" and 33 letters are the 75 octets; a blank and 27 letters remain.
    std::string first = "LOCATION:";
    std::string second = " ";
    for (int i = 0; i < 33; ++i)
        first += "ع";
    for (int i = 0; i < 27; ++i)
        second += "ع";
    EXPECT_NE(text.find("\r\n" + first + "\r\n" + second + "\r\n"), std::string::npos) << text;
    for (const std::string& line : lines_of(text))
        EXPECT_LE(line.size(), 75U) << line;
}

TEST(CalendarFile, CountsOldDatesByTheGregorianCalendar) {
    Timetable timetable = one_fajer();
    // 4 October 1582, the last day of the Julian calendar, is 14 October of the Gregorian; its Julian day
    // at noon is 2299160 (Meeus, Astronomical Algorithms, chapter 7).
    timetable.rows[0].jd = 2299159.5;
    timetable.rows[0].date = {1582, 10, 4};
    const std::string text = ics_of(timetable, {}, stamp);
    EXPECT_NE(text.find("\r\nDTSTART:15821014T021000Z\r\n"), std::string::npos) << text;
    timetable.rows[0].jd = 1721424.5; // 31 December of the year 0
    EXPECT_THROW(ics_of(timetable, {}, stamp), RunTimeFailure);
}

struct FreeComponent {
    void operator()(icalcomponent* component) const { icalcomponent_free(component); }
};
using Component = std::unique_ptr<icalcomponent, FreeComponent>;

TEST(CalendarFile, IsSoundToASecondReader) {
    Timetable timetable = handmade_timetable();
    timetable.settings.place.location.name =
        "Al-Madinah, المدينة المنورة; a long name that is folded at the 75th octet";
    timetable.rows[2].jumuah = {clock_of_row(12, 30)};
    timetable.rows[0].times[DayTime::isha].source = TimeSource::middle;
    PageSettings page;
    page.language = PageLanguage::both;
    page.alarm_minutes = 15;
    const std::string text = ics_of(timetable, page, stamp);

    const Component calendar(icalparser_parse_string(text.c_str()));
    ASSERT_NE(calendar, nullptr);
    EXPECT_EQ(icalcomponent_count_errors(calendar.get()), 0);
    EXPECT_EQ(icalrestriction_check(calendar.get()), 1);
    EXPECT_EQ(icalcomponent_count_errors(calendar.get()), 0) << icalcomponent_as_ical_string(calendar.get());
    EXPECT_EQ(icalcomponent_count_components(calendar.get(), ICAL_VEVENT_COMPONENT), 17);
    icalcomponent* event = icalcomponent_get_first_component(calendar.get(), ICAL_VEVENT_COMPONENT);
    EXPECT_STREQ(icalcomponent_get_location(event), timetable.settings.place.location.name.c_str());
    EXPECT_NE(icaltime_is_date(icalcomponent_get_dtstart(event)), 0) << "the Hijri month is a whole day";
    event = icalcomponent_get_next_component(calendar.get(), ICAL_VEVENT_COMPONENT);
    // Fajer of the first day: 5:10 on a clock three hours ahead.
    EXPECT_EQ(icaltime_as_timet(icalcomponent_get_dtstart(event)), 1771372800 + 5 * 3600 + 600 - 3 * 3600);
}

using CalendarFiles = TimetableTest;

TEST_F(CalendarFiles, OfAYearOfTwentyPlacesAreSoundToASecondReader) {
    for (const char* name : twenty_places) {
        Profile profile = authority_profile(*find_authority("mwl"));
        profile.jumuah = {13 * 60};
        profile.page.language = PageLanguage::both;
        const Timetable timetable = timetable_of(listed_place(name), profile, year_span(2026).span);
        const Component calendar(icalparser_parse_string(ics_of(timetable, profile.page, stamp).c_str()));
        ASSERT_NE(calendar, nullptr) << name;
        EXPECT_EQ(icalcomponent_count_errors(calendar.get()), 0) << name;
        EXPECT_EQ(icalrestriction_check(calendar.get()), 1) << name;
        int events = 52; // the Fridays of 2026
        for (const TimetableRow& row : timetable.rows) {
            events += row.hijri.day == 1 ? 1 : 0;
            for (const DayTime time : prayed_times)
                events += row.times[time].clock ? 1 : 0;
        }
        EXPECT_EQ(icalcomponent_count_components(calendar.get(), ICAL_VEVENT_COMPONENT), events) << name;
    }
}

} // namespace
} // namespace halvane
