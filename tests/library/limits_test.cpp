// SPDX-License-Identifier: MIT
#include "halvane/hijri.h"
#include "halvane/prayer.h"
#include "halvane/qiblah.h"
#include "tests/support/programfolder.h"

#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <optional>
#include <thread>

namespace halvane::v1 {
namespace {

/// What a call raises; nothing where it returns.
std::optional<ErrorKind> error_of(const std::function<void()>& call) {
    try {
        call();
    } catch (const Error& error) {
        EXPECT_GT(std::string(error.what()).size(), 10U);
        return error.kind();
    }
    return std::nullopt;
}

class LibraryLimits : public testing::Test {
protected:
    const TemporaryProgramFolder folder_;
    const Engine engine_{folder_.path().string()};
    const Observer cairo_{30.05, 31.25, 23};
    const Clock clock_ = Clock::fixed(2);
    const Date date_{2026, 11, 23};
};

TEST_F(LibraryLimits, RefuseArgumentsOutOfRange) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinite = std::numeric_limits<double>::infinity();
    TimetableRules steep;
    steep.fajer_angle = 31;
    TimetableRules early;
    early.jumuah = {800, 700};
    MapChoices narrow;
    narrow.date = date_;
    narrow.north = narrow.south;
    MapChoices of_makkah;
    of_makkah.date = date_;
    of_makkah.criterion = "umm-al-qura";
    HijriChoices no_rule;
    no_rule.rule = "nobody's";
    HijriChoices announced;
    announced.announced = {{1448, 1, {2026, 8, 1}, "somebody"}};
    const std::function<void()> calls[] = {
        [&] { sun(engine_, Instant::of_ut1(nan)); },
        [&] { sun(engine_, Instant::of_ut1(infinite)); },
        [&] { sun(engine_, Instant::of_ut1(1e9)); },
        [&] { sun(engine_, Instant::of_ut1(2451545), Accuracy::fast); },
        [&] { sun(engine_, Instant::of_ut1(2451545), static_cast<Accuracy>(9)); },
        [&] { moon(engine_, Instant::of_ut1(2451545), Accuracy::fast); },
        [&] {
            moon_seen(engine_, {}, {91, 0, 0});
        },
        [&] {
            moon_seen(engine_, {}, {0, 181, 0});
        },
        [&] {
            moon_seen(engine_, {}, {nan, 0, 0});
        },
        [&] {
            sun_day(engine_, {2026, 2, 29}, cairo_, clock_);
        },
        [&] {
            sun_day(engine_, {2026, 13, 1}, cairo_, clock_);
        },
        [&] {
            sun_day(engine_, {1582, 10, 10}, cairo_, clock_);
        },
        [&] {
            sun_day(engine_, {10000, 1, 1}, cairo_, clock_);
        },
        [&] {
            sun_day(engine_, date_, cairo_, clock_, {false, nan, 10});
        },
        [&] { twilight(engine_, date_, cairo_, clock_, 91); },
        [&] {
            altitude_passages(engine_, Body::sun, 0, Instant::of_ut1(2451545), Instant::of_ut1(2451544),
                              cairo_);
        },
        [&] {
            altitude_passages(engine_, Body::sun, 0, Instant::of_ut1(2451545), Instant::of_ut1(2452545),
                              cairo_);
        },
        [&] { moon_phases(engine_, Instant::of_ut1(2451545), Instant::of_ut1(2451545 + 401 * 366.0)); },
        [&] { timetable(engine_, date_, date_, cairo_, clock_, steep); },
        [&] { timetable(engine_, date_, date_, cairo_, clock_, early); },
        [&] {
            timetable(engine_, date_, {2026, 11, 22}, cairo_, clock_);
        },
        [&] {
            timetable(engine_, {1900, 1, 1}, {2026, 1, 1}, cairo_, clock_);
        },
        [&] { rules_of_authority("nobody"); },
        [&] { qiblah_direction(90.5, 0); },
        [&] { sun_in_direction(engine_, date_, cairo_, clock_, 361); },
        [&] { crescent_map(engine_, narrow); },
        [&] { crescent_map(engine_, of_makkah); },
        [&] { hijri_date(engine_, no_rule, date_); },
        [&] { hijri_date(engine_, announced, date_); },
        [&] { hijri_months(engine_, {}, 1448, 13, 1449, 1); },
        [&] { hijri_months(engine_, {}, 1448, 2, 1448, 1); },
        [&] {
            tabular_hijri({600, 1, 1});
        },
        [&] {
            tabular_civil({1448, 2, 30});
        },
        [&] { Clock::fixed(25); },
        [&] { Clock::of_zone("Africa/Nowhere"); },
        [&] { Clock::of_zone("../../etc/passwd"); },
    };
    int number = 0;
    for (const auto& call : calls)
        EXPECT_EQ(error_of(call), ErrorKind::bad_argument) << "call " << number++;
}

TEST_F(LibraryLimits, TellOfMissingAndDamagedFiles) {
    EXPECT_EQ(error_of([] { Engine(std::string("/nonexistent")); }), ErrorKind::missing_file);
    EXPECT_EQ(error_of([] { Engine(EngineData{"", "", "", ""}); }), ErrorKind::damaged_file);
    const std::string term = folder_.read("term.vsk");
    const std::string termfull = folder_.read("termfull.vsk");
    const std::string mterm = folder_.read("mterm.vsk");
    const std::string elp = folder_.read("elp.vsk");
    EXPECT_EQ(error_of([&] {
                  Engine(EngineData{termfull, term.substr(0, 500), mterm, elp});
              }),
              ErrorKind::damaged_file);
    // From memory, and without the lines of the world.
    const Engine engine(EngineData{termfull, term, mterm, elp});
    EXPECT_EQ(sun(engine, {}).longitude, sun(engine_, {}).longitude);
    HijriChoices istanbul;
    istanbul.rule = "istanbul-2016";
    EXPECT_EQ(error_of([&] { hijri_date(engine, istanbul, date_); }), ErrorKind::missing_file);
}

TEST_F(LibraryLimits, EndALongWorkWhenItsCallerSaysSo) {
    class Impatient final : public Progress {
    public:
        bool goes_on(double percent) override {
            last = percent;
            return ++asked < 3;
        }
        int asked = 0;
        double last = 0;
    } impatient;
    EXPECT_EQ(error_of([&] {
                  timetable(engine_, {2026, 1, 1}, {2026, 12, 31}, cairo_, clock_, {}, &impatient);
              }),
              ErrorKind::cancelled);
    EXPECT_EQ(impatient.asked, 3);
    EXPECT_LT(impatient.last, 100);
}

// Julian days of Meeus, Astronomical Algorithms, 2nd ed., chapter 7: the reform, example 7.a, the epoch 2000.
TEST_F(LibraryLimits, CountDaysThroughTheReformOfTheCalendar) {
    EXPECT_EQ(julian_day({1582, 10, 4}), 2299159.5);
    EXPECT_EQ(julian_day({1582, 10, 15}), 2299160.5);
    EXPECT_EQ(julian_day({1582, 10, 16}), 2299161.5);
    EXPECT_EQ(julian_day({1957, 10, 4}), 2436115.5);
    EXPECT_EQ(julian_day({2000, 1, 1}), 2451544.5);
    for (double jd = 2299150.5; jd < 2299170; ++jd)
        EXPECT_EQ(julian_day(civil_date(jd)), jd);
}

TEST_F(LibraryLimits, KeepTwoEnginesApart) {
    std::optional<Engine> first(engine_);
    const double longitude = moon(*first, {}).longitude;
    first.reset();
    const Engine second(folder_.path().string());
    EXPECT_EQ(moon(second, {}).longitude, longitude);
    EXPECT_EQ(moon(engine_, {}).longitude, longitude);
}

TEST_F(LibraryLimits, PassAnAltitudeAsOftenAsTheSunSetsAndRises) {
    // Airless centre at -0.8333 deg: the book's sunrise and sunset.
    const Instant from = Instant::of_ut1(julian_day(date_));
    const Instant to = Instant::of_ut1(julian_day(date_) + 10);
    const auto passages = altitude_passages(engine_, Body::sun, -0.8333, from, to, {30.05, 31.25, 0});
    ASSERT_EQ(passages.size(), 20U);
    for (std::size_t i = 0; i < passages.size(); ++i) {
        EXPECT_EQ(passages[i].rising, i % 2 == 0) << i;
        EXPECT_NEAR(
            sun_seen(engine_, passages[i].instant, {30.05, 31.25, 0}, Accuracy::medium).topocentric.altitude,
            -0.8333, 5e-5); // a hundredth of a second, in which the Sun climbs 0.15"
    }
}

TEST_F(LibraryLimits, AnswerEightThreadsAsOne) {
    const auto work = [this](int number) {
        std::vector<double> values;
        const Observer place{number * 7.0 - 25, number * 20.0 - 80, 0};
        const Instant instant = Instant::of_ut1(2461367.25 + number);
        values.push_back(sun(engine_, instant).longitude);
        values.push_back(moon_seen(engine_, instant, place).topocentric.altitude);
        values.push_back(sun_day(engine_, date_, place, clock_).rise.hours);
        values.push_back(moon_day(engine_, date_, place, clock_).set.hours);
        values.push_back(twilight(engine_, date_, place, clock_, 15).morning.hours);
        values.push_back(prayer_times(engine_, date_, place, clock_).times[3].hours);
        values.push_back(conjunction(engine_, instant, &place).jd);
        values.push_back(moon_phases(engine_, instant, Instant::of_ut1(instant.jd + 30)).at(1).instant.jd);
        values.push_back(sun_in_direction(engine_, date_, place, clock_, 100).first.hours);
        values.push_back(crescent(engine_, CrescentKind::new_crescent, {2026, 12, 10}, place, clock_)
                             .verdicts.at(0)
                             .value);
        for (const TimetableDay& day : timetable(engine_, date_, {2026, 11, 25}, place, clock_))
            values.push_back(static_cast<double>(day.times[4].unix_seconds));
        MapChoices map;
        map.date = {2026, 12, 10};
        map.step = 20;
        const MapGrid grid = crescent_map(engine_, map).at(0);
        values.insert(values.end(), grid.value.begin(), grid.value.end());
        HijriChoices seen;
        seen.rule = "seen-at";
        seen.place = place;
        values.push_back(hijri_months(engine_, seen, 1448, 6, 1448, 7).at(1).margin);
        values.push_back(julian_day(tabular_civil(tabular_hijri(date_))));
        return values;
    };
    constexpr int threads = 8;
    std::vector<std::vector<double>> together(threads);
    {
        std::vector<std::thread> running;
        running.reserve(threads);
        for (int i = 0; i < threads; ++i)
            running.emplace_back([&, i] { together[static_cast<std::size_t>(i)] = work(i); });
        for (std::thread& thread : running)
            thread.join();
    }
    for (int i = 0; i < threads; ++i) {
        const std::vector<double> alone = work(i);
        const std::vector<double>& beside = together[static_cast<std::size_t>(i)];
        ASSERT_EQ(beside.size(), alone.size());
        for (std::size_t k = 0; k < alone.size(); ++k)
            EXPECT_TRUE(beside[k] == alone[k] || (std::isnan(beside[k]) && std::isnan(alone[k])))
                << i << " " << k;
    }
}

} // namespace
} // namespace halvane::v1
