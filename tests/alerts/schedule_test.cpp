// SPDX-License-Identifier: MIT
#include "prayer/alertschedule.h"

#include "base/failure.h"
#include "calendar/modjul.h"
#include "calendar/modsummer.h"
#include "ephemeris/series.h"
#include "prayer/prayerrun.h"
#include "routines/seriesloader.h"
#include "tests/alerts/testclock.h"
#include "tests/golden/goldenreport.h"
#include "tests/support/clocks.h"
#include "tests/support/places.h"

#include <chrono>
#include <cmath>
#include <iterator>
#include <map>

namespace halvane {
namespace {

using namespace std::chrono_literals;
using Time = TestClock::Time;

/// An alert and when it came.
struct Seen {
    Time at;
    Alert alert;
};

const char* name_of(Prayer prayer) {
    constexpr const char* names[] = {"Fajer", "Dhohur", "Aser", "Maghreb", "Isha"};
    return names[static_cast<int>(prayer)];
}

TheoryPointer theory_of_the_sun() {
    load_term();
    load_mterm();
    return loaded_theory();
}

class ScheduleTest : public ::testing::Test {
protected:
    ScheduleTest() {
        write_loc(place_at({35, 54}, {31, 57}, 2));
        settings_.window_and_athan = 1;
        store();
    }

    void store() { write_alert(settings_); }
    template <class Change>
    static void change_preferences(Change change) {
        Preferences preferences = read_pref();
        change(preferences);
        write_pref(preferences);
    }

    /// The instant at which the clock of the place's zone, without summer time, shows `time`.
    static MachineTime universal(Time time) {
        return TestClock::shown(time - std::chrono::seconds(std::lround(read_loc().zone * 3600)));
    }

    /// The clock of the place's zone shows every second from `from` to before `to`.
    std::vector<Seen> run(Time from, Time to) {
        std::vector<Seen> seen;
        for (Time time = from; time < to; time += 1s)
            for (Alert& alert : schedule_.due(universal(time)))
                seen.push_back({time, std::move(alert)});
        return seen;
    }

    static std::vector<Seen> joined(std::initializer_list<std::vector<Seen>> parts) {
        std::vector<Seen> all;
        for (const std::vector<Seen>& part : parts)
            all.insert(all.end(), part.begin(), part.end());
        return all;
    }

    /// The prayers of the main panel in the span, in order of time, by the clock of the place's zone.
    static std::multimap<Time, Prayer> prayers(Time from, Time to) {
        std::multimap<Time, Prayer> all;
        for (auto day = std::chrono::floor<std::chrono::days>(from); day < to + 24h;
             day += std::chrono::days(1)) {
            const MachineTime date = TestClock::shown(day);
            double jd = 0;
            modjul(date.year, date.month, date.day, 0, jd);
            const auto summer = std::chrono::hours(summer_hours_of(read_pref(), jd));
            const PrayerTexts times = today_prayer_times(loaded_theory(), jd);
            const std::string* texts[] = {&times.fajer, &times.dhohur, &times.aser, &times.maghreb,
                                          &times.isha};
            for (int prayer = 0; prayer < 5; ++prayer)
                if (hours_of(time_at(*texts[prayer])) != nullptr) {
                    const Time time = day + std::chrono::seconds(clock_at(*texts[prayer]).seconds) - summer;
                    if (time >= from && time < to)
                        all.emplace(time, static_cast<Prayer>(prayer));
                }
        }
        return all;
    }
    static Time time_of(Prayer prayer, Time day) {
        for (const auto& [time, which] : prayers(day, day + 24h))
            if (which == prayer)
                return time;
        ADD_FAILURE() << "no " << name_of(prayer);
        return day;
    }

    static void expect_windows(const std::multimap<Time, Prayer>& expected, const std::vector<Seen>& seen) {
        ASSERT_EQ(seen.size(), expected.size());
        std::size_t i = 0;
        for (const auto& [time, prayer] : expected) {
            EXPECT_EQ(seen[i].at, time) << name_of(prayer);
            EXPECT_EQ(name_of(seen[i].alert.prayer), std::string(name_of(prayer)));
            EXPECT_EQ(seen[i].alert.kind, Alert::Kind::window);
            ++i;
        }
    }

    TemporaryProgramFolder folder_;
    AlertSettings settings_;
    AlertSchedule schedule_{theory_of_the_sun()};
};

TEST_F(ScheduleTest, TenDaysGiveEveryPrayerOnceAtItsSecond) {
    const Time from = TestClock::at(2024, 2, 24);
    const std::vector<Seen> seen = run(from, from + 240h);
    EXPECT_EQ(seen.size(), 50U);
    expect_windows(prayers(from, from + 240h), seen);
}

TEST_F(ScheduleTest, SecondsPrecisionAlertsAtTheSecond) {
    change_preferences([](Preferences& preferences) { preferences.clock_precision = "0"; });
    const Time from = TestClock::at(2024, 6, 20);
    const std::vector<Seen> seen = run(from, from + 48h);
    expect_windows(prayers(from, from + 48h), seen);
    EXPECT_EQ(seen.front().alert.clock.to_second, true);
    bool between_minutes = false;
    for (const Seen& one : seen)
        between_minutes |= one.at.time_since_epoch() % 60s != 0s;
    EXPECT_TRUE(between_minutes);
}

TEST_F(ScheduleTest, NothingIsLostAroundMidnight) {
    // At this latitude Isha passes midnight within these days.
    write_loc(place_at(0, 52, 1));
    change_preferences([](Preferences& preferences) { preferences.isha_angle = 15; });
    const Time from = TestClock::at(2024, 5, 28);
    const std::multimap<Time, Prayer> expected = prayers(from, from + 240h);
    bool late = false;
    bool early = false;
    for (const auto& [time, prayer] : expected) {
        const auto clock = time - std::chrono::floor<std::chrono::days>(time);
        late |= prayer == Prayer::isha && clock > 23h + 45min;
        early |= prayer == Prayer::isha && clock < 15min;
    }
    EXPECT_TRUE(late && early) << "the span must hold Isha on both sides of midnight";
    expect_windows(expected, run(from, from + 240h));
}

TEST_F(ScheduleTest, AllBoxesClearGiveNothing) {
    settings_ = AlertSettings{};
    store();
    const Time from = TestClock::at(2024, 6, 20);
    EXPECT_TRUE(run(from, from + 24h).empty());
}

TEST_F(ScheduleTest, TheAthanIsTheChosenOneAndJerusalemsForFajer) {
    settings_.dhohur_mecca = true;
    settings_.asr_mecca = false;
    settings_.maghreb_mecca = false;
    settings_.isha_mecca = true;
    store();
    const Time from = TestClock::at(2024, 6, 20);
    std::map<std::string, Athan> heard;
    for (const Seen& seen : run(from, from + 24h))
        heard[name_of(seen.alert.prayer)] = seen.alert.athan;
    const std::map<std::string, Athan> expected{{"Fajer", Athan::jerusalem},
                                                {"Dhohur", Athan::mecca},
                                                {"Aser", Athan::jerusalem},
                                                {"Maghreb", Athan::jerusalem},
                                                {"Isha", Athan::mecca}};
    EXPECT_EQ(heard, expected);
}

TEST_F(ScheduleTest, TheWindowAloneHasNoAthan) {
    settings_.window_and_athan = 0;
    settings_.window_only = 1;
    store();
    const Time from = TestClock::at(2024, 6, 20);
    const std::vector<Seen> seen = run(from, from + 24h);
    expect_windows(prayers(from, from + 24h), seen);
    for (const Seen& one : seen)
        EXPECT_EQ(one.alert.athan, Athan::none);
}

TEST_F(ScheduleTest, TheBeepComesItsMinutesBefore) {
    settings_.beep = 1;
    settings_.lead = 7.5;
    store();
    const Time from = TestClock::at(2024, 6, 20);
    std::vector<Seen> windows;
    std::vector<Time> beeps;
    for (const Seen& seen : run(from, from + 48h)) {
        if (seen.alert.kind == Alert::Kind::beep)
            beeps.push_back(seen.at);
        else
            windows.push_back(seen);
    }
    ASSERT_EQ(windows.size(), 10U);
    ASSERT_EQ(beeps.size(), 10U);
    for (std::size_t i = 0; i < beeps.size(); ++i)
        EXPECT_EQ(windows[i].at - beeps[i], 450s);
}

TEST_F(ScheduleTest, TheBeepOfAPrayerAfterMidnightComesTheEveningBefore) {
    // A clock two hours behind the place's own.
    write_loc(place_at({35, 54}, {31, 57}, 0));
    settings_ = AlertSettings{};
    settings_.beep = 1;
    settings_.lead = 60;
    store();
    const Time day = TestClock::at(2024, 6, 21);
    const std::multimap<Time, Prayer> all = prayers(day, day + 24h);
    ASSERT_LT(all.begin()->first, day + 1h) << "the day must begin with a prayer in its first hour";
    const std::vector<Seen> seen = run(day - 2h, day);
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen[0].at, all.begin()->first - 1h);
    EXPECT_EQ(seen[0].alert.kind, Alert::Kind::beep);
    EXPECT_TRUE(run(day, all.begin()->first + 1min).empty());
}

TEST_F(ScheduleTest, ZeroMinutesBeepAtTheTimeItself) {
    settings_ = AlertSettings{};
    settings_.beep = 1;
    settings_.lead = 0;
    store();
    const Time day = TestClock::at(2024, 6, 21);
    const std::multimap<Time, Prayer> expected = prayers(day, day + 24h);
    const std::vector<Seen> seen = run(day, day + 24h);
    ASSERT_EQ(seen.size(), expected.size());
    EXPECT_EQ(seen[0].at, expected.begin()->first);
    EXPECT_EQ(seen[0].alert.kind, Alert::Kind::beep);
}

TEST_F(ScheduleTest, AThreeHourSleepMakesUpForTheLastHourOnly) {
    const Time day = TestClock::at(2024, 6, 20);
    const Time aser = time_of(Prayer::aser, day);
    const Time maghreb = time_of(Prayer::maghreb, day);
    ASSERT_GT(maghreb - aser, 2h + 30min);
    const Time wake = maghreb + 10min;
    // Both Aser's and Maghreb's times pass in the sleep.
    std::vector<Seen> seen = run(day, aser - 1min);
    EXPECT_EQ(seen.size(), 2U);
    seen = run(wake, wake + 20min);
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen[0].at, wake);
    EXPECT_EQ(seen[0].alert.prayer, Prayer::maghreb);
}

TEST_F(ScheduleTest, APrayerOfAnHourAgoIsPassedOverAfterASleep) {
    const Time dhohur = time_of(Prayer::dhohur, TestClock::at(2024, 6, 20));
    EXPECT_TRUE(run(dhohur - 2h, dhohur - 1h - 59min).empty());
    EXPECT_TRUE(run(dhohur + 1h, dhohur + 1h + 5min).empty());
}

TEST_F(ScheduleTest, APrayerJustUnderAnHourOldIsMadeUpFor) {
    const Time dhohur = time_of(Prayer::dhohur, TestClock::at(2024, 6, 20));
    EXPECT_TRUE(run(dhohur - 2h, dhohur - 1h - 59min).empty());
    EXPECT_EQ(run(dhohur + 59min + 59s, dhohur + 1h + 5min).size(), 1U);
}

TEST_F(ScheduleTest, ASleepOverMidnightMakesUpForThePrayerOfTheDayBefore) {
    write_loc(place_at({35, 54}, {31, 57}, 5));
    const Time day = TestClock::at(2024, 6, 20);
    const std::multimap<Time, Prayer> all = prayers(day, day + 24h);
    const auto last = std::prev(all.end());
    ASSERT_GT(last->first, day + 23h + 10min) << "the day must end with a prayer in its last hour";
    run(last->first - 3h, last->first - 2h);
    const std::vector<Seen> seen = run(day + 24h + 1min, day + 24h + 20min);
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen[0].alert.prayer, last->second);
}

TEST_F(ScheduleTest, ABeepWhosePrayerHasPassedInTheSleepIsDropped) {
    settings_.beep = 1;
    settings_.lead = 10;
    store();
    const Time dhohur = time_of(Prayer::dhohur, TestClock::at(2024, 6, 20));
    run(dhohur - 2h, dhohur - 1h - 59min);
    const std::vector<Seen> seen = run(dhohur + 5min, dhohur + 6min);
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen[0].alert.kind, Alert::Kind::window);
}

TEST_F(ScheduleTest, ABeepInTheSleepIsMadeUpForBeforeItsPrayer) {
    settings_.beep = 1;
    settings_.lead = 10;
    store();
    const Time dhohur = time_of(Prayer::dhohur, TestClock::at(2024, 6, 20));
    run(dhohur - 2h, dhohur - 1h - 59min);
    const std::vector<Seen> seen = run(dhohur - 4min, dhohur);
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen[0].at, dhohur - 4min);
    EXPECT_EQ(seen[0].alert.kind, Alert::Kind::beep);
}

TEST_F(ScheduleTest, TheStoredSummerTimeBeginsAndEndsWithoutLossOrRepetition) {
    change_preferences([](Preferences& preferences) { preferences.summer_time = "1"; });
    for (const Time from : {TestClock::at(2024, 3, 29), TestClock::at(2024, 9, 28)}) {
        const std::vector<Seen> seen = run(from, from + 240h);
        EXPECT_EQ(seen.size(), 50U);
        expect_windows(prayers(from, from + 240h), seen);
    }
}

TEST_F(ScheduleTest, APrayerInAnHourThatTheMachineSkipsComesRightAfterIt) {
    // Fajer of this place and clock falls between 2 and 3 o'clock.
    write_loc(place_at({35, 54}, {31, 57}, 2));
    const Time day = TestClock::at(2024, 6, 20);
    const Time fajer = time_of(Prayer::fajer, day);
    const Time change = day + 2h;
    ASSERT_TRUE(fajer > change && fajer < change + 1h);
    const std::vector<Seen> seen = joined({run(day, change), run(change + 1h, day + 12h)});
    std::size_t of_fajer = 0;
    for (const Seen& one : seen)
        if (one.alert.prayer == Prayer::fajer) {
            ++of_fajer;
            EXPECT_EQ(one.at, change + 1h);
        }
    EXPECT_EQ(of_fajer, 1U);
}

TEST_F(ScheduleTest, AnHourThatTheMachineRepeatsRepeatsNothing) {
    write_loc(place_at({35, 54}, {31, 57}, 2));
    const Time day = TestClock::at(2024, 6, 20);
    const Time fajer = time_of(Prayer::fajer, day);
    const Time change = day + 3h;
    ASSERT_TRUE(fajer > change - 1h && fajer < change);
    const std::vector<Seen> seen = joined({run(day - 24h, change), run(change - 1h, day + 48h)});
    expect_windows(prayers(day - 24h, day + 48h), seen);
}

TEST_F(ScheduleTest, AClockSetBackRepeatsNothing) {
    const Time day = TestClock::at(2024, 6, 20);
    const Time dhohur = time_of(Prayer::dhohur, day);
    const std::vector<Seen> seen = joined({run(day, dhohur + 5min), run(dhohur - 3h, day + 24h)});
    expect_windows(prayers(day, day + 24h), seen);
}

TEST_F(ScheduleTest, AClockSetBackOverMidnightRepeatsNothing) {
    write_loc(place_at({35, 54}, {31, 57}, 0));
    const Time day = TestClock::at(2024, 6, 21);
    const Time first = prayers(day, day + 24h).begin()->first;
    const std::vector<Seen> seen = joined({run(day - 24h, first + 1min), run(day - 1h, day + 24h)});
    expect_windows(prayers(day - 24h, day + 24h), seen);
}

TEST_F(ScheduleTest, AClockSetForwardALittleMakesUpForWhatItPassed) {
    const Time day = TestClock::at(2024, 6, 20);
    const Time dhohur = time_of(Prayer::dhohur, day);
    run(day, dhohur - 10min);
    const std::vector<Seen> seen = run(dhohur + 10min, dhohur + 20min);
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen[0].at, dhohur + 10min);
}

TEST_F(ScheduleTest, ACorrectedDateMakesItsPrayersDueAgain) {
    const Time day = TestClock::at(2024, 6, 20);
    run(day + 48h, day + 72h);
    expect_windows(prayers(day, day + 72h), run(day, day + 72h));
}

TEST_F(ScheduleTest, NothingIsDueForThePastAtTheStart) {
    const Time dhohur = time_of(Prayer::dhohur, TestClock::at(2024, 6, 20));
    EXPECT_TRUE(run(dhohur + 1s, dhohur + 10min).empty());
}

TEST_F(ScheduleTest, AStartAtTheVerySecondAlerts) {
    const Time dhohur = time_of(Prayer::dhohur, TestClock::at(2024, 6, 20));
    EXPECT_EQ(run(dhohur, dhohur + 1min).size(), 1U);
}

TEST_F(ScheduleTest, ALateTickAlertsAsSoonAsItComes) {
    const Time dhohur = time_of(Prayer::dhohur, TestClock::at(2024, 6, 20));
    std::size_t count = 0;
    for (Time time = dhohur - 61s; time < dhohur + 1min; time += 2s)
        count += schedule_.due(universal(time)).size();
    EXPECT_EQ(count, 1U);
}

TEST_F(ScheduleTest, ChangedSettingsAreTakenUpWithinAMinute) {
    settings_ = AlertSettings{};
    store();
    const Time dhohur = time_of(Prayer::dhohur, TestClock::at(2024, 6, 20));
    EXPECT_TRUE(run(dhohur - 1h, dhohur - 1min).empty());
    settings_.window_only = 1;
    store();
    EXPECT_EQ(run(dhohur - 1min, dhohur + 1min).size(), 1U);
}

TEST_F(ScheduleTest, AChangedPlaceMovesTheTimesWithinAMinute) {
    const Time day = TestClock::at(2024, 6, 20);
    const Time before = time_of(Prayer::dhohur, day);
    EXPECT_TRUE(run(before - 1h, before - 31min).empty());
    change_preferences([](Preferences& preferences) { preferences.add_dhohur = -30; });
    const Time after = time_of(Prayer::dhohur, day);
    ASSERT_EQ(before - after, 30min);
    EXPECT_EQ(run(before - 31min, after + 1min).size(), 1U);
    EXPECT_TRUE(run(after + 1min, before + 5min).empty());
}

TEST_F(ScheduleTest, AnAlertTellsTheTimeAndTheNextPrayer) {
    const Time day = TestClock::at(2024, 6, 20);
    const std::vector<Seen> seen = run(day, day + 24h);
    ASSERT_EQ(seen.size(), 5U);
    for (std::size_t i = 0; i + 1 < seen.size(); ++i) {
        ASSERT_TRUE(seen[i].alert.next);
        EXPECT_EQ(*seen[i].alert.next, seen[i + 1].alert.prayer);
        EXPECT_EQ(seen[i].alert.next_clock, seen[i + 1].alert.clock);
    }
    EXPECT_EQ(seen[4].alert.next, Prayer::fajer) << "tomorrow's";
}

TEST_F(ScheduleTest, TheComingPrayerIsTomorrowsAfterTheLast) {
    const Time day = TestClock::at(2024, 6, 20);
    const Time isha = time_of(Prayer::isha, day);
    ASSERT_TRUE(schedule_.coming(universal(isha - 1s)));
    EXPECT_EQ(schedule_.coming(universal(isha - 1s))->prayer, Prayer::isha);
    EXPECT_EQ(schedule_.coming(universal(isha))->prayer, Prayer::fajer);
    EXPECT_EQ(schedule_.coming(universal(day + 24h))->prayer, Prayer::fajer);
}

TEST_F(ScheduleTest, DaysWithoutTimesHaveNoAlerts) {
    // The Sun does not rise here on these days; Fajer and Isha still have their times.
    write_loc(place_at(20, 75, 1));
    const Time day = TestClock::at(2024, 12, 20);
    const std::multimap<Time, Prayer> expected = prayers(day, day + 24h);
    EXPECT_LT(expected.size(), 5U);
    expect_windows(expected, run(day, day + 24h));
}

TEST_F(ScheduleTest, AMissingFileIsAFailure) {
    folder_.erase("alert.vsk");
    EXPECT_THROW(schedule_.due(universal(TestClock::at(2024, 6, 20))), RunTimeFailure);
}

TEST_F(ScheduleTest, FilesThatGoAwayForAWhileLeaveTheLastSoundSettings) {
    const Time dhohur = time_of(Prayer::dhohur, TestClock::at(2024, 6, 20));
    EXPECT_TRUE(run(dhohur - 1min, dhohur - 40s).empty());
    const std::string sound = folder_.read("pref.vsk");
    folder_.erase("pref.vsk");
    const std::vector<Seen> seen = run(dhohur - 40s, dhohur + 1min);
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen[0].at, dhohur);
    ASSERT_TRUE(schedule_.trouble());
    EXPECT_EQ(schedule_.trouble()->file, (folder_ / "pref.vsk").string());
    EXPECT_EQ(schedule_.trouble()->kind, FailureKind::missing_file);
    EXPECT_EQ(schedule_.coming(universal(dhohur + 1min))->prayer, Prayer::aser);
    folder_.write("pref.vsk", sound);
    run(dhohur + 1min, dhohur + 1min + 11s);
    EXPECT_FALSE(schedule_.trouble());
}

TEST_F(ScheduleTest, FilesThatAreAwayOverMidnightStillAlertForTheNewDay) {
    const Time day = TestClock::at(2024, 6, 20);
    run(day + 23h, day + 23h + 10s);
    const std::multimap<Time, Prayer> expected = prayers(day + 24h, day + 48h);
    folder_.erase("loc.vsk");
    std::vector<Seen> seen;
    for (Time time = day + 23h + 10s; time < day + 48h; time += 1s)
        for (Alert& alert : schedule_.due(TestClock::shown(time - 2h)))
            seen.push_back({time, std::move(alert)});
    expect_windows(expected, seen);
}

TEST_F(ScheduleTest, ADamagedPlaceIsAFailureThatIsRaisedUntilItIsMended) {
    const std::string sound = folder_.read("loc.vsk");
    folder_.write("loc.vsk", "\"Amman\",35\r\n");
    EXPECT_THROW(schedule_.due(universal(TestClock::at(2024, 6, 20))), RunTimeFailure);
    EXPECT_THROW(schedule_.due(universal(TestClock::at(2024, 6, 20))), RunTimeFailure);
    folder_.write("loc.vsk", sound);
    EXPECT_NO_THROW(schedule_.due(universal(TestClock::at(2024, 6, 20))));
}

} // namespace
} // namespace halvane
