// SPDX-License-Identifier: MIT
// The C interface gives what the C++ interface gives, bit for bit, over random calls of every kind.
#include "cinterface.h"

#include <cmath>
#include <optional>
#include <vector>

namespace {

constexpr int calls = 40; // of each kind and place

/// Random arguments, the same in every run.
class Arguments {
public:
    double number(double least, double most) { return std::uniform_real_distribution(least, most)(engine_); }
    int whole(int least, int most) { return std::uniform_int_distribution(least, most)(engine_); }
    halvane::Date date() { return {whole(1900, 2100), whole(1, 12), whole(1, 28)}; }
    halvane::Observer observer(double most_latitude = 89) {
        return {number(-most_latitude, most_latitude), number(-180, 180), number(0, 3000)};
    }
    halvane::Instant instant() {
        return {number(2378497, 2524594),
                whole(0, 1) == 0 ? halvane::TimeScale::ut1 : halvane::TimeScale::dynamical};
    }
    halvane::Horizon horizon() { return {whole(0, 1) == 1, number(900, 1050), number(-20, 40)}; }

private:
    std::mt19937_64 engine_{20261123};
};

halvane_date c_of(const halvane::Date& date) {
    return {date.year, date.month, date.day};
}
halvane_observer c_of(const halvane::Observer& observer) {
    return {observer.latitude, observer.longitude, observer.height};
}
halvane_instant c_of(const halvane::Instant& instant) {
    return {instant.jd, static_cast<int>(instant.scale)};
}
halvane_horizon c_of(const halvane::Horizon& horizon) {
    return {horizon.height_counts ? 1 : 0, horizon.pressure, horizon.temperature};
}

#define EXPECT_DONE(call) ASSERT_EQ(call, HALVANE_OK) << halvane_last_error()

// Equal in every bit, numbers that are none too.
void expect_same(double c, double cpp) {
    EXPECT_EQ(std::bit_cast<std::uint64_t>(c), std::bit_cast<std::uint64_t>(cpp)) << c << ' ' << cpp;
}
void expect_same(float c, float cpp) {
    EXPECT_EQ(std::bit_cast<std::uint32_t>(c), std::bit_cast<std::uint32_t>(cpp)) << c << ' ' << cpp;
}
void expect_same(const halvane_date& c, const halvane::Date& cpp) {
    EXPECT_EQ(halvane::Date({c.year, c.month, c.day}), cpp);
}
void expect_same(const halvane_hijri_date& c, const halvane::HijriDate& cpp) {
    EXPECT_EQ(halvane::HijriDate({c.year, c.month, c.day}), cpp);
}
void expect_same(const halvane_instant& c, const halvane::Instant& cpp) {
    expect_same(c.jd, cpp.jd);
    EXPECT_EQ(c.scale, static_cast<int>(cpp.scale));
}
void expect_same(const halvane_clock_time& c, const halvane::ClockTime& cpp) {
    expect_same(c.hours, cpp.hours);
    EXPECT_EQ(c.missing, static_cast<int>(cpp.missing));
}
void expect_same(const halvane_sun_place& c, const halvane::SunPlace& cpp) {
    expect_same(c.right_ascension, cpp.right_ascension);
    expect_same(c.declination, cpp.declination);
    expect_same(c.longitude, cpp.longitude);
    expect_same(c.latitude, cpp.latitude);
    expect_same(c.distance, cpp.distance);
    expect_same(c.equation_of_time, cpp.equation_of_time);
}
void expect_same(const halvane_moon_place& c, const halvane::MoonPlace& cpp) {
    expect_same(c.right_ascension, cpp.right_ascension);
    expect_same(c.declination, cpp.declination);
    expect_same(c.longitude, cpp.longitude);
    expect_same(c.latitude, cpp.latitude);
    expect_same(c.distance, cpp.distance);
}
void expect_same(const halvane_seen_place& c, const halvane::SeenPlace& cpp) {
    expect_same(c.right_ascension, cpp.right_ascension);
    expect_same(c.declination, cpp.declination);
    expect_same(c.longitude, cpp.longitude);
    expect_same(c.latitude, cpp.latitude);
    expect_same(c.altitude, cpp.altitude);
    expect_same(c.azimuth, cpp.azimuth);
}
void expect_same(const halvane_seen_sun& c, const halvane::SeenSun& cpp) {
    expect_same(c.geocentric, cpp.geocentric);
    expect_same(c.topocentric, cpp.topocentric);
}
void expect_same(const halvane_seen_moon& c, const halvane::SeenMoon& cpp) {
    expect_same(c.geocentric, cpp.geocentric);
    expect_same(c.topocentric, cpp.topocentric);
    expect_same(c.parallax, cpp.parallax);
    expect_same(c.semidiameter, cpp.semidiameter);
}
void expect_same(const halvane_timetable_time& c, const halvane::TimetableTime& cpp) {
    EXPECT_EQ(c.missing, static_cast<int>(cpp.missing));
    EXPECT_EQ(c.source, static_cast<int>(cpp.source));
    EXPECT_EQ(c.day, cpp.day);
    EXPECT_EQ(c.seconds, cpp.seconds);
    EXPECT_EQ(c.offset, cpp.offset);
    EXPECT_EQ(c.unix_seconds, cpp.unix_seconds);
}
void expect_same(const halvane_timetable_day& c, const halvane::TimetableDay& cpp) {
    expect_same(c.date, cpp.date);
    expect_same(c.hijri, cpp.hijri);
    EXPECT_EQ(c.weekday, cpp.weekday);
    for (std::size_t i = 0; i < halvane::prayers; ++i) {
        expect_same(c.times[i], cpp.times[i]);
        expect_same(c.iqamah[i], cpp.iqamah[i]);
    }
    expect_same(c.aser_standard, cpp.aser_standard);
    expect_same(c.aser_hanafi, cpp.aser_hanafi);
    expect_same(c.imsak, cpp.imsak);
    expect_same(c.midnight, cpp.midnight);
    expect_same(c.last_third, cpp.last_third);
    ASSERT_EQ(c.jumuah_count, cpp.jumuah.size());
    for (std::size_t i = 0; i < c.jumuah_count; ++i)
        expect_same(c.jumuah[i], cpp.jumuah[i]);
    EXPECT_EQ(c.offset, cpp.offset);
    EXPECT_EQ(c.clock_changes != 0, cpp.clock_changes);
}
void expect_same(const halvane_crescent_quantities& c, const halvane::CrescentQuantities& cpp) {
    expect_same(c.moon_altitude, cpp.moon_altitude);
    expect_same(c.moon_azimuth, cpp.moon_azimuth);
    expect_same(c.sun_altitude, cpp.sun_altitude);
    expect_same(c.sun_azimuth, cpp.sun_azimuth);
    expect_same(c.elongation, cpp.elongation);
    expect_same(c.phase_angle, cpp.phase_angle);
    expect_same(c.illuminated_fraction, cpp.illuminated_fraction);
    expect_same(c.semidiameter, cpp.semidiameter);
    expect_same(c.width, cpp.width);
}
void expect_same(const halvane_crescent_sky& c, const halvane::CrescentSky& cpp) {
    expect_same(c.instant, cpp.instant);
    expect_same(c.geocentric, cpp.geocentric);
    expect_same(c.topocentric, cpp.topocentric);
    expect_same(c.parallax, cpp.parallax);
}
void expect_same(const halvane_crescent_evening& c, const halvane::CrescentEvening& cpp) {
    EXPECT_EQ(c.kind, static_cast<int>(cpp.kind));
    expect_same(c.conjunction, cpp.conjunction);
    expect_same(c.sun_event, cpp.sun_event);
    expect_same(c.moon_event, cpp.moon_event);
    expect_same(c.lag, cpp.lag);
    expect_same(c.age, cpp.age);
    expect_same(c.at_sun_event, cpp.at_sun_event);
    expect_same(c.at_best_time, cpp.at_best_time);
}
void expect_same(const halvane_timetable_rules& c, const halvane::TimetableRules& cpp) {
    expect_same(c.fajer_angle, cpp.fajer_angle);
    expect_same(c.isha_angle, cpp.isha_angle);
    expect_same(c.isha_minutes, cpp.isha_minutes);
    expect_same(c.isha_minutes_ramadan, cpp.isha_minutes_ramadan);
    expect_same(c.maghreb_angle, cpp.maghreb_angle);
    EXPECT_EQ(c.hanafi != 0, cpp.hanafi);
    EXPECT_EQ(c.height_counts != 0, cpp.height_counts);
    for (std::size_t i = 0; i < halvane::prayers; ++i) {
        expect_same(c.added[i], cpp.added[i]);
        EXPECT_EQ(c.rounding[i], static_cast<int>(cpp.rounding[i]));
        EXPECT_EQ(c.iqamah[i].kind, static_cast<int>(cpp.iqamah[i].kind));
        EXPECT_EQ(c.iqamah[i].minutes, cpp.iqamah[i].minutes);
        EXPECT_EQ(c.iqamah[i].up_to_five != 0, cpp.iqamah[i].up_to_five);
    }
    EXPECT_EQ(c.high_latitude, static_cast<int>(cpp.high_latitude));
    EXPECT_EQ(c.rule_use, static_cast<int>(cpp.rule_use));
    expect_same(c.reference_latitude, cpp.reference_latitude);
    EXPECT_EQ(c.night_until_fajer != 0, cpp.night_until_fajer);
    expect_same(c.imsak_minutes, cpp.imsak_minutes);
    EXPECT_EQ(c.seconds != 0, cpp.seconds);
    EXPECT_EQ(std::vector<int>(c.jumuah, c.jumuah + c.jumuah_count), cpp.jumuah);
}

TEST(CInterface, DatesAndClocksAreThoseOfCpp) {
    Arguments random;
    for (int i = 0; i < calls; ++i) {
        const halvane::Date date = random.date();
        double jd = 0;
        EXPECT_DONE(halvane_julian_day(c_of(date), &jd));
        expect_same(jd, halvane::julian_day(date));
        halvane_date back{};
        EXPECT_DONE(halvane_civil_date(jd + 0.7, &back));
        expect_same(back, halvane::civil_date(jd + 0.7));

        const halvane::Instant instant = random.instant();
        double number = 0;
        EXPECT_DONE(halvane_ut1(c_of(instant), &number));
        expect_same(number, instant.ut1());
        EXPECT_DONE(halvane_dynamical(c_of(instant), &number));
        expect_same(number, instant.dynamical());
        EXPECT_DONE(halvane_unix_seconds(c_of(instant), &number));
        expect_same(number, instant.unix_seconds());
        EXPECT_DONE(halvane_delta_t(instant.jd, &number));
        expect_same(number, halvane::delta_t(instant.jd));
        const double seconds = random.number(-1e10, 1e10);
        expect_same(halvane_instant_of_unix(seconds), halvane::Instant::of_unix(seconds));

        const double hours = random.number(-12, 14);
        EXPECT_DONE(halvane_clock_hours_ahead(fixed_clock(hours).get(), c_of(date), &number));
        expect_same(number, halvane::Clock::fixed(hours).hours_ahead(date));
        const OwnClock zone = clock_of_zone("Africa/Cairo");
        EXPECT_DONE(halvane_clock_hours_ahead(zone.get(), c_of(date), &number));
        expect_same(number, halvane::Clock::of_zone("Africa/Cairo").hours_ahead(date));
        EXPECT_STREQ(halvane_clock_zone_name(zone.get()), "Africa/Cairo");
    }
    EXPECT_STREQ(halvane_clock_zone_name(fixed_clock(2).get()), "");
    EXPECT_STREQ(halvane_version(), halvane::version());
}

TEST(CInterface, PlacesOfSunAndMoonAreThoseOfCpp) {
    Arguments random;
    for (int accuracy = HALVANE_COMPLETE; accuracy <= HALVANE_FAST; ++accuracy) {
        const auto own = static_cast<halvane::Accuracy>(accuracy);
        for (int i = 0; i < calls; ++i) {
            const halvane::Instant instant = random.instant();
            const halvane::Observer observer = random.observer();
            if (accuracy != HALVANE_FAST) {
                auto sun = sized<halvane_geocentric_sun>();
                EXPECT_DONE(halvane_sun(c_engine(), c_of(instant), accuracy, &sun));
                expect_same(sun.geocentric, halvane::sun(cpp_engine(), instant, own));
                auto moon = sized<halvane_geocentric_moon>();
                EXPECT_DONE(halvane_moon(c_engine(), c_of(instant), accuracy, &moon));
                expect_same(moon.geocentric, halvane::moon(cpp_engine(), instant, own));
            }
            auto sun = sized<halvane_seen_sun>();
            EXPECT_DONE(halvane_sun_seen(c_engine(), c_of(instant), c_of(observer), accuracy, &sun));
            expect_same(sun, halvane::sun_seen(cpp_engine(), instant, observer, own));
            auto moon = sized<halvane_seen_moon>();
            EXPECT_DONE(halvane_moon_seen(c_engine(), c_of(instant), c_of(observer), accuracy, &moon));
            expect_same(moon, halvane::moon_seen(cpp_engine(), instant, observer, own));
        }
    }
    for (int i = 0; i < calls; ++i) {
        const halvane::Instant instant = random.instant();
        auto light = sized<halvane_light>();
        EXPECT_DONE(halvane_moon_light(c_engine(), c_of(instant), &light));
        const halvane::MoonLight own = halvane::moon_light(cpp_engine(), instant);
        expect_same(light.elongation, own.elongation);
        expect_same(light.phase_angle, own.phase_angle);
        expect_same(light.fraction, own.fraction);
        const double altitude = random.number(-4, 90);
        double seen = 0;
        EXPECT_DONE(halvane_refracted(altitude, &seen));
        expect_same(seen, halvane::refracted(altitude));
    }
}

TEST(CInterface, ArraysOfPlacesAreThoseOfCpp) {
    Arguments random;
    std::vector<halvane::Instant> instants;
    std::vector<halvane_instant> c_instants;
    for (int i = 0; i < calls; ++i) {
        instants.push_back(random.instant());
        c_instants.push_back(c_of(instants.back()));
    }
    const halvane::Observer observer = random.observer();
    std::size_t count = 0;
    std::vector<halvane_geocentric_sun> suns(calls);
    EXPECT_DONE(halvane_suns(c_engine(), c_instants.data(), calls, HALVANE_COMPLETE, suns.data(), suns.size(),
                             sizeof suns[0], &count));
    ASSERT_EQ(count, instants.size());
    const auto own_suns = halvane::suns(cpp_engine(), instants);
    std::vector<halvane_geocentric_moon> moons(calls);
    EXPECT_DONE(halvane_moons(c_engine(), c_instants.data(), calls, HALVANE_LOW, moons.data(), moons.size(),
                              sizeof moons[0], &count));
    const auto own_moons = halvane::moons(cpp_engine(), instants, halvane::Accuracy::low);
    std::vector<halvane_seen_sun> seen_suns(calls);
    EXPECT_DONE(halvane_suns_seen(c_engine(), c_instants.data(), calls, c_of(observer), HALVANE_FAST,
                                  seen_suns.data(), seen_suns.size(), sizeof seen_suns[0], &count));
    const auto own_seen_suns = halvane::suns_seen(cpp_engine(), instants, observer, halvane::Accuracy::fast);
    std::vector<halvane_seen_moon> seen_moons(calls);
    EXPECT_DONE(halvane_moons_seen(c_engine(), c_instants.data(), calls, c_of(observer), HALVANE_MEDIUM,
                                   seen_moons.data(), seen_moons.size(), sizeof seen_moons[0], &count));
    const auto own_seen_moons =
        halvane::moons_seen(cpp_engine(), instants, observer, halvane::Accuracy::medium);
    for (std::size_t i = 0; i < instants.size(); ++i) {
        EXPECT_EQ(suns[i].size, sizeof suns[i]);
        expect_same(suns[i].geocentric, own_suns[i]);
        expect_same(moons[i].geocentric, own_moons[i]);
        expect_same(seen_suns[i], own_seen_suns[i]);
        expect_same(seen_moons[i], own_seen_moons[i]);
    }
    EXPECT_DONE(halvane_suns(c_engine(), nullptr, 0, HALVANE_COMPLETE, nullptr, 0, 0, &count));
    EXPECT_EQ(count, 0U);
}

TEST(CInterface, EventsAreThoseOfCpp) {
    Arguments random;
    for (int i = 0; i < calls; ++i) {
        const halvane::Date date = random.date();
        const halvane::Observer observer = random.observer();
        const double hours = random.number(-12, 14);
        const OwnClock clock = fixed_clock(hours);
        const halvane::Clock own_clock = halvane::Clock::fixed(hours);
        const halvane::Horizon horizon = random.horizon();
        const halvane_horizon c_horizon = c_of(horizon);
        auto day = sized<halvane_body_day>();
        EXPECT_DONE(halvane_sun_day(c_engine(), c_of(date), c_of(observer), clock.get(), &c_horizon, &day));
        halvane::BodyDay own = halvane::sun_day(cpp_engine(), date, observer, own_clock, horizon);
        expect_same(day.rise, own.rise);
        expect_same(day.transit, own.transit);
        expect_same(day.set, own.set);
        EXPECT_DONE(halvane_moon_day(c_engine(), c_of(date), c_of(observer), clock.get(), nullptr, &day));
        own = halvane::moon_day(cpp_engine(), date, observer, own_clock);
        expect_same(day.rise, own.rise);
        expect_same(day.transit, own.transit);
        expect_same(day.set, own.set);

        auto twilight = sized<halvane_twilight_times>();
        const double depression = random.number(0, 20);
        EXPECT_DONE(halvane_twilight(c_engine(), c_of(date), c_of(observer), clock.get(), depression,
                                     &c_horizon, &twilight));
        const halvane::Twilight own_twilight =
            halvane::twilight(cpp_engine(), date, observer, own_clock, depression, horizon);
        expect_same(twilight.morning, own_twilight.morning);
        expect_same(twilight.evening, own_twilight.evening);

        double direction = 0;
        EXPECT_DONE(halvane_qiblah_direction(observer.latitude, observer.longitude, &direction));
        expect_same(direction, halvane::qiblah_direction(observer.latitude, observer.longitude));
        auto moments = sized<halvane_direction_moments>();
        EXPECT_DONE(halvane_sun_in_direction(c_engine(), c_of(date), c_of(observer), clock.get(), direction,
                                             i % 2, &c_horizon, &moments));
        const halvane::SunInDirection own_moments = halvane::sun_in_direction(
            cpp_engine(), date, observer, own_clock, direction, i % 2 == 1, horizon);
        expect_same(moments.first, own_moments.first);
        expect_same(moments.second, own_moments.second);
        EXPECT_EQ(moments.first_below_horizon != 0, own_moments.first_below_horizon);
        EXPECT_EQ(moments.second_below_horizon != 0, own_moments.second_below_horizon);
    }
}

TEST(CInterface, PassagesAndPhasesAreThoseOfCpp) {
    Arguments random;
    for (int i = 0; i < calls / 4; ++i) {
        const halvane::Instant from = random.instant();
        const halvane::Observer observer = random.observer();
        const halvane_observer c_observer = c_of(observer);
        const halvane::Instant next{from.jd + random.number(0, 3), from.scale};
        const double altitude = random.number(-30, 30);
        std::vector<halvane_altitude_passage> passages(20);
        std::size_t count = 0;
        EXPECT_DONE(halvane_altitude_passages(c_engine(), i % 2, altitude, c_of(from), c_of(next), c_observer,
                                              passages.data(), passages.size(), sizeof passages[0], &count));
        const auto own = halvane::altitude_passages(cpp_engine(), static_cast<halvane::Body>(i % 2), altitude,
                                                    from, next, observer);
        ASSERT_EQ(count, own.size());
        for (std::size_t k = 0; k < count; ++k) {
            expect_same(passages[k].instant, own[k].instant);
            EXPECT_EQ(passages[k].rising != 0, own[k].rising);
        }

        const halvane::Instant later{from.jd + random.number(0, 200), from.scale};
        std::vector<halvane_phase_moment> moments(40);
        EXPECT_DONE(halvane_moon_phases(c_engine(), c_of(from), c_of(later),
                                        i % 3 == 0 ? &c_observer : nullptr, moments.data(), moments.size(),
                                        sizeof moments[0], &count));
        const auto own_moments =
            halvane::moon_phases(cpp_engine(), from, later, i % 3 == 0 ? &observer : nullptr);
        ASSERT_EQ(count, own_moments.size());
        for (std::size_t k = 0; k < count; ++k) {
            EXPECT_EQ(moments[k].phase, static_cast<int>(own_moments[k].phase));
            EXPECT_EQ(moments[k].lunation, own_moments[k].lunation);
            expect_same(moments[k].instant, own_moments[k].instant);
        }

        halvane_instant instant{};
        EXPECT_DONE(halvane_conjunction(c_engine(), c_of(from), &c_observer, &instant));
        expect_same(instant, halvane::conjunction(cpp_engine(), from, &observer));
        EXPECT_DONE(halvane_conjunction(c_engine(), c_of(from), nullptr, &instant));
        expect_same(instant, halvane::conjunction(cpp_engine(), from));
    }
}

TEST(CInterface, PrayerTimesAreThoseOfCpp) {
    Arguments random;
    for (int i = 0; i < calls; ++i) {
        const halvane::Date date = random.date();
        const halvane::Observer observer = random.observer(60);
        const double hours = random.number(-12, 14);
        halvane::ReportRules rules;
        rules.fajer_angle = random.number(10, 20);
        rules.isha_angle = random.number(10, 20);
        rules.hanafi = i % 2 == 0;
        rules.fajer_earlier = random.whole(0, 5);
        rules.dhohur_later = random.whole(-2, 5);
        rules.aser_later = random.whole(-2, 5);
        rules.maghreb_later = random.whole(-2, 5);
        rules.city = random.number(0, 20);
        rules.horizon = random.horizon();
        rules.high_latitude = i % 3 == 0;
        auto c_rules = sized<halvane_report_rules>();
        EXPECT_DONE(halvane_default_report_rules(&c_rules));
        c_rules.fajer_angle = rules.fajer_angle;
        c_rules.isha_angle = rules.isha_angle;
        c_rules.hanafi = rules.hanafi;
        c_rules.fajer_earlier = rules.fajer_earlier;
        c_rules.dhohur_later = rules.dhohur_later;
        c_rules.aser_later = rules.aser_later;
        c_rules.maghreb_later = rules.maghreb_later;
        c_rules.city = rules.city;
        c_rules.horizon = c_of(rules.horizon);
        c_rules.high_latitude = rules.high_latitude;
        const OwnClock clock = fixed_clock(hours);
        const halvane::Clock own_clock = halvane::Clock::fixed(hours);
        auto day = sized<halvane_prayer_day>();
        EXPECT_DONE(
            halvane_prayer_times(c_engine(), c_of(date), c_of(observer), clock.get(), &c_rules, &day));
        const auto own = halvane::prayer_times(cpp_engine(), date, observer, own_clock, rules);
        auto usual_day = sized<halvane_prayer_day>();
        EXPECT_DONE(
            halvane_prayer_times(c_engine(), c_of(date), c_of(observer), clock.get(), nullptr, &usual_day));
        const auto usual = halvane::prayer_times(cpp_engine(), date, observer, own_clock);
        for (std::size_t k = 0; k < halvane::prayers; ++k) {
            expect_same(day.times[k], own.times[k]);
            expect_same(usual_day.times[k], usual.times[k]);
        }
    }
}

TEST(CInterface, AuthoritiesAndTheirRulesAreThoseOfCpp) {
    const auto own = halvane::authorities();
    ASSERT_EQ(halvane_authority_count(), own.size());
    for (std::size_t i = 0; i < own.size(); ++i) {
        auto authority = sized<halvane_authority>();
        EXPECT_DONE(halvane_authority_at(i, &authority));
        EXPECT_EQ(authority.key, own[i].key);
        EXPECT_EQ(authority.name, own[i].name);
        EXPECT_EQ(authority.arabic_name, own[i].arabic_name);
        EXPECT_EQ(authority.region, own[i].region);
        EXPECT_EQ(authority.source, own[i].source);
        auto rules = sized<halvane_timetable_rules>();
        EXPECT_DONE(halvane_rules_of_authority(authority.key, &rules));
        expect_same(rules, halvane::rules_of_authority(own[i].key));
    }
    auto rules = sized<halvane_timetable_rules>();
    EXPECT_DONE(halvane_default_timetable_rules(&rules));
    expect_same(rules, halvane::TimetableRules{});
}

/// The same random rules for both.
struct BothRules {
    halvane::TimetableRules own;
    halvane_timetable_rules c = sized<halvane_timetable_rules>();

    explicit BothRules(Arguments& random) {
        own.fajer_angle = c.fajer_angle = random.number(12, 20);
        own.isha_angle = c.isha_angle = random.number(12, 20);
        own.isha_minutes = c.isha_minutes = random.whole(0, 1) * 90;
        own.isha_minutes_ramadan = c.isha_minutes_ramadan = own.isha_minutes > 0 ? 120 : 0;
        own.maghreb_angle = c.maghreb_angle = random.whole(0, 1) * 4.5;
        c.hanafi = own.hanafi = random.whole(0, 1) == 1;
        c.height_counts = own.height_counts = random.whole(0, 1) == 1;
        for (std::size_t i = 0; i < halvane::prayers; ++i) {
            own.added[i] = c.added[i] = random.whole(-3, 3);
            c.rounding[i] = random.whole(HALVANE_ROUND_NEAREST, HALVANE_ROUND_DOWN);
            own.rounding[i] = static_cast<halvane::Rounding>(c.rounding[i]);
        }
        c.high_latitude = random.whole(HALVANE_RULE_NONE, HALVANE_RULE_SHARE);
        own.high_latitude = static_cast<halvane::HighLatitudeRule>(c.high_latitude);
        c.rule_use = random.whole(HALVANE_USE_MISSING, HALVANE_USE_ALWAYS);
        own.rule_use = static_cast<halvane::RuleUse>(c.rule_use);
        c.night_until_fajer = own.night_until_fajer = random.whole(0, 1) == 1;
        own.imsak_minutes = c.imsak_minutes = random.whole(0, 20);
        c.seconds = own.seconds = random.whole(0, 1) == 1;
        c.iqamah[HALVANE_FAJER] = {HALVANE_IQAMAH_FIXED, 300, 0};
        c.iqamah[HALVANE_ISHA] = {HALVANE_IQAMAH_AFTER, 12, 1};
        own.iqamah[HALVANE_FAJER] = {halvane::Iqamah::Kind::fixed, 300, false};
        own.iqamah[HALVANE_ISHA] = {halvane::Iqamah::Kind::after, 12, true};
        own.jumuah = {750, 810};
        c.jumuah[0] = 750;
        c.jumuah[1] = 810;
        c.jumuah_count = 2;
    }
};

TEST(CInterface, TimetablesAreThoseOfCpp) {
    Arguments random;
    const OwnClock clock = clock_of_zone("Europe/Berlin");
    const halvane::Clock own_clock = halvane::Clock::of_zone("Europe/Berlin");
    for (int i = 0; i < calls / 4; ++i) {
        const BothRules rules(random);
        const halvane::Observer observer{random.number(-60, 60), random.number(0, 30), 200};
        const halvane::Date first = random.date();
        const halvane::Date last = halvane::civil_date(halvane::julian_day(first) + random.whole(0, 20));
        std::vector<halvane_timetable_day> days(21);
        std::size_t count = 0;
        EXPECT_DONE(halvane_timetable(c_engine(), c_of(first), c_of(last), c_of(observer), clock.get(),
                                      &rules.c, nullptr, nullptr, days.data(), days.size(), sizeof days[0],
                                      &count));
        const auto own = halvane::timetable(cpp_engine(), first, last, observer, own_clock, rules.own);
        ASSERT_EQ(count, own.size());
        for (std::size_t k = 0; k < count; ++k)
            expect_same(days[k], own[k]);
    }
}

TEST(CInterface, TimetablesOfManyPlacesAreThoseOfCpp) {
    Arguments random;
    const OwnClock clock = fixed_clock(1);
    std::vector<halvane::TimetablePlace> places;
    std::vector<halvane_timetable_place> c_places;
    for (int i = 0; i < 12; ++i) {
        places.push_back({{random.number(-50, 50), random.number(0, 30), 0}, halvane::Clock::fixed(1)});
        c_places.push_back({c_of(places.back().observer), clock.get()});
    }
    const halvane::Date first{2026, 2, 18}, last{2026, 2, 20};
    std::size_t count = 0;
    EXPECT_EQ(halvane_timetables(c_engine(), c_of(first), c_of(last), c_places.data(), c_places.size(),
                                 nullptr, nullptr, nullptr, nullptr, 0, 0, &count),
              HALVANE_TOO_SMALL);
    ASSERT_EQ(count, 36U);
    std::vector<halvane_timetable_day> days(count);
    EXPECT_DONE(halvane_timetables(c_engine(), c_of(first), c_of(last), c_places.data(), c_places.size(),
                                   nullptr, nullptr, nullptr, days.data(), days.size(), sizeof days[0],
                                   &count));
    const auto own = halvane::timetables(cpp_engine(), first, last, places);
    for (std::size_t k = 0; k < count; ++k)
        expect_same(days[k], own[k / 3][k % 3]);
}

TEST(CInterface, CriteriaAreThoseOfCpp) {
    const auto own = halvane::criteria();
    ASSERT_EQ(halvane_criterion_count(), own.size());
    for (std::size_t i = 0; i < own.size(); ++i) {
        auto criterion = sized<halvane_criterion>();
        EXPECT_DONE(halvane_criterion_at(i, &criterion));
        EXPECT_EQ(criterion.key, own[i].key);
        EXPECT_EQ(criterion.name, own[i].name);
        EXPECT_EQ(criterion.arabic_name, own[i].arabic_name);
        EXPECT_EQ(criterion.source, own[i].source);
        EXPECT_EQ(criterion.measure, own[i].measure);
        EXPECT_EQ(criterion.unit, own[i].unit);
        EXPECT_LT(own[i].unit.size(), sizeof halvane_hijri_month::margin_unit);
        EXPECT_EQ(criterion.of_mornings != 0, own[i].of_mornings);
        ASSERT_EQ(criterion.has_place != 0, own[i].place.has_value());
        if (own[i].place) {
            expect_same(criterion.place.latitude, own[i].place->latitude);
            expect_same(criterion.place.longitude, own[i].place->longitude);
        }
        EXPECT_EQ(criterion.by_eye, own[i].by_eye);
        ASSERT_EQ(criterion.class_count, own[i].classes.size());
        for (std::size_t k = 0; k < criterion.class_count; ++k) {
            expect_same(criterion.classes[k].border, own[i].classes[k].border);
            EXPECT_EQ(criterion.classes[k].words, own[i].classes[k].words);
            EXPECT_EQ(criterion.classes[k].arabic_words, own[i].classes[k].arabic_words);
        }
    }
}

TEST(CInterface, CrescentsAreThoseOfCpp) {
    Arguments random;
    int with_verdicts = 0;
    for (int i = 0; i < calls; ++i) {
        // The days after a conjunction, on which there is something to judge.
        const halvane::Instant conjunction = halvane::conjunction(cpp_engine(), random.instant());
        const int kind = i % 2;
        const halvane::Date date =
            halvane::civil_date(conjunction.jd + (kind == 0 ? 1 : -1) * random.whole(0, 2));
        const halvane::Observer observer = random.observer(i % 8 == 0 ? 89 : 50);
        const OwnClock clock = clock_of_zone("Asia/Amman");
        halvane::CriterionLimits limits;
        limits.danjon_elongation = random.number(5, 8);
        limits.least_age = halvane::not_a_number;
        auto c_limits = sized<halvane_criterion_limits>();
        EXPECT_DONE(halvane_default_criterion_limits(&c_limits));
        c_limits.danjon_elongation = limits.danjon_elongation;
        c_limits.least_age = limits.least_age;
        auto answer = sized<halvane_crescent_answer>();
        std::vector<halvane_verdict> verdicts(halvane_criterion_count());
        std::size_t count = 0;
        EXPECT_DONE(halvane_crescent(c_engine(), kind, c_of(date), c_of(observer), clock.get(), &c_limits,
                                     &answer, verdicts.data(), verdicts.size(), sizeof verdicts[0], &count));
        const auto own = halvane::crescent(cpp_engine(), static_cast<halvane::CrescentKind>(kind), date,
                                           observer, halvane::Clock::of_zone("Asia/Amman"), limits);
        EXPECT_EQ(answer.has_crescent != 0, own.has_crescent);
        ASSERT_EQ(answer.has_evening != 0, own.evening.has_value());
        if (own.evening)
            expect_same(answer.evening, *own.evening);
        ASSERT_EQ(count, own.verdicts.size());
        for (std::size_t k = 0; k < count; ++k) {
            EXPECT_EQ(verdicts[k].criterion, own.verdicts[k].criterion);
            expect_same(verdicts[k].value, own.verdicts[k].value);
            EXPECT_EQ(verdicts[k].band, own.verdicts[k].band ? static_cast<int>(*own.verdicts[k].band) : -1);
        }
        with_verdicts += count > 0 ? 1 : 0;
    }
    EXPECT_GT(with_verdicts, calls / 4);
}

TEST(CInterface, CircumstancesAreThoseOfCpp) {
    Arguments random;
    int found = 0;
    for (int i = 0; i < calls; ++i) {
        const halvane::Date date = random.date();
        const halvane::Observer observer = random.observer(50);
        const double hours = std::round(observer.longitude / 15);
        halvane::CircumstanceChoices choices;
        choices.kind = static_cast<halvane::CrescentKind>(i % 2);
        choices.geocentric = i % 3 == 0;
        choices.days = random.whole(0, 2);
        choices.time = static_cast<halvane::ObservationTime>(i % 4);
        choices.given_hours = random.number(0, 24);
        choices.horizon = random.horizon();
        auto c_choices = sized<halvane_circumstance_choices>();
        EXPECT_DONE(halvane_default_circumstance_choices(&c_choices));
        c_choices.kind = i % 2;
        c_choices.geocentric = choices.geocentric;
        c_choices.days = choices.days;
        c_choices.time = i % 4;
        c_choices.given_hours = choices.given_hours;
        c_choices.horizon = c_of(choices.horizon);
        auto circumstances = sized<halvane_circumstances>();
        const halvane_status status = halvane_crescent_circumstances(c_engine(), c_of(date), c_of(observer),
                                                                     hours, &c_choices, &circumstances);
        const auto own = halvane::crescent_circumstances(cpp_engine(), date, observer, hours, choices);
        ASSERT_EQ(status, own ? HALVANE_OK : HALVANE_NO_VALUE) << halvane_last_error();
        if (!own)
            continue;
        ++found;
        expect_same(circumstances.conjunction, own->conjunction);
        expect_same(circumstances.date, own->date);
        expect_same(circumstances.hijri, own->hijri);
        expect_same(circumstances.sun_event, own->sun_event);
        expect_same(circumstances.moon_event, own->moon_event);
        expect_same(circumstances.lag, own->lag);
        expect_same(circumstances.observed, own->observed);
        expect_same(circumstances.moon_age, own->moon_age);
        expect_same(circumstances.sun_geocentric, own->sun.geocentric);
        expect_same(circumstances.sun_topocentric, own->sun.topocentric);
        expect_same(circumstances.moon_geocentric, own->moon.geocentric);
        expect_same(circumstances.moon_topocentric, own->moon.topocentric);
        expect_same(circumstances.moon_parallax, own->moon.parallax);
        expect_same(circumstances.moon_semidiameter, own->moon.semidiameter);
        expect_same(circumstances.quantities, own->quantities);
        expect_same(circumstances.arcv, own->arcv);
        expect_same(circumstances.width, own->width);
        expect_same(circumstances.q, own->q);
    }
    EXPECT_GT(found, calls / 2);
}

TEST(CInterface, MapsAreThoseOfCpp) {
    halvane::MapChoices choices;
    choices.date = {2026, 2, 18};
    choices.west = 150;
    choices.east = 210;
    choices.south = -40;
    choices.north = 40;
    choices.step = 4;
    choices.criterion = "saao-2001";
    auto c_choices = sized<halvane_map_choices>();
    EXPECT_DONE(halvane_default_map_choices(&c_choices));
    EXPECT_EQ(c_choices.criterion, halvane::MapChoices().criterion);
    c_choices.date = c_of(choices.date);
    c_choices.west = choices.west;
    c_choices.east = choices.east;
    c_choices.south = choices.south;
    c_choices.north = choices.north;
    c_choices.step = choices.step;
    c_choices.criterion = choices.criterion.c_str();
    halvane_map* made = nullptr;
    EXPECT_DONE(halvane_crescent_map(c_engine(), &c_choices, nullptr, nullptr, &made));
    const OwnMap map(made);
    const auto own = halvane::crescent_map(cpp_engine(), choices);
    ASSERT_EQ(halvane_map_grid_count(made), own.size());
    EXPECT_EQ(own.size(), 2U);
    for (std::size_t i = 0; i < own.size(); ++i) {
        auto grid = sized<halvane_map_grid>();
        EXPECT_DONE(halvane_map_grid_at(made, i, &grid));
        expect_same(grid.west, own[i].west);
        expect_same(grid.south, own[i].south);
        expect_same(grid.step, own[i].step);
        ASSERT_EQ(grid.columns, own[i].columns);
        ASSERT_EQ(grid.rows, own[i].rows);
        for (std::size_t k = 0; k < grid.columns * grid.rows; ++k) {
            expect_same(grid.value[k], own[i].value[k]);
            EXPECT_EQ(grid.map_class[k], own[i].map_class[k]);
            expect_same(grid.lag[k], own[i].lag[k]);
            expect_same(grid.age[k], own[i].age[k]);
            expect_same(grid.altitude[k], own[i].altitude[k]);
            expect_same(grid.elongation[k], own[i].elongation[k]);
        }
    }
}

TEST(CInterface, HijriDatesAreThoseOfCpp) {
    Arguments random;
    for (int i = 0; i < calls; ++i) {
        const halvane::Date date = random.date();
        halvane_hijri_date hijri{};
        EXPECT_DONE(halvane_tabular_hijri(c_of(date), &hijri));
        const halvane::HijriDate own = halvane::tabular_hijri(date);
        expect_same(hijri, own);
        halvane_date back{};
        EXPECT_DONE(halvane_tabular_civil(hijri, &back));
        expect_same(back, date);
    }
    const auto own = halvane::hijri_rules();
    ASSERT_EQ(halvane_hijri_rule_count(), own.size());
    for (std::size_t i = 0; i < own.size(); ++i) {
        auto rule = sized<halvane_hijri_rule>();
        EXPECT_DONE(halvane_hijri_rule_at(i, &rule));
        EXPECT_EQ(rule.key, own[i].key);
        EXPECT_EQ(rule.name, own[i].name);
        EXPECT_EQ(rule.arabic_name, own[i].arabic_name);
        EXPECT_EQ(rule.told, own[i].told);
        EXPECT_EQ(rule.source, own[i].source);
        EXPECT_EQ(rule.asks_place != 0, own[i].asks_place);
        EXPECT_EQ(rule.asks_criterion != 0, own[i].asks_criterion);
        EXPECT_EQ(rule.asks_region != 0, own[i].asks_region);
    }
}

TEST(CInterface, MonthsByRulesAreThoseOfCpp) {
    const OwnClock clock = clock_of_zone("Asia/Amman");
    for (const halvane::HijriRule& rule : halvane::hijri_rules()) {
        halvane::HijriChoices choices;
        choices.rule = rule.key;
        choices.place = {31.95, 35.93, 900};
        choices.clock = halvane::Clock::of_zone("Asia/Amman");
        choices.west = -20; // a small region: every month asks for evenings in it
        choices.east = 60;
        choices.south = -40;
        choices.north = 45;
        choices.seen_class = 1;
        const halvane::Date tabular = halvane::tabular_civil({1447, 9, 1});
        choices.announced = {{1447, 9, tabular, "the observatory"}};
        auto c = sized<halvane_hijri_choices>();
        EXPECT_DONE(halvane_default_hijri_choices(&c));
        EXPECT_EQ(c.rule, halvane::HijriChoices().rule);
        c.rule = rule.key.c_str();
        c.place = c_of(choices.place);
        c.clock = clock.get();
        c.west = choices.west;
        c.east = choices.east;
        c.south = choices.south;
        c.north = choices.north;
        c.seen_class = 1;
        const halvane_announced_start start{1447, 9, c_of(tabular), "the observatory"};
        c.announced = &start;
        c.announced_count = 1;
        std::vector<halvane_hijri_month> months(4);
        std::size_t count = 0;
        EXPECT_DONE(halvane_hijri_months(c_engine(), &c, 1447, 8, 1447, 11, nullptr, nullptr, months.data(),
                                         months.size(), sizeof months[0], &count));
        const auto own = halvane::hijri_months(cpp_engine(), choices, 1447, 8, 1447, 11);
        ASSERT_EQ(count, own.size());
        for (std::size_t i = 0; i < count; ++i) {
            EXPECT_EQ(months[i].year, own[i].year);
            EXPECT_EQ(months[i].month, own[i].month);
            expect_same(months[i].first_day, own[i].first_day);
            EXPECT_EQ(months[i].days, own[i].days);
            EXPECT_EQ(months[i].notes, own[i].notes);
            EXPECT_EQ(months[i].may_differ != 0, own[i].may_differ);
            expect_same(months[i].margin, own[i].margin);
            EXPECT_EQ(months[i].margin_unit, own[i].margin_unit);
            EXPECT_EQ(months[i].announced, own[i].announced_by.empty() ? -1 : 0);
        }
        halvane_hijri_date hijri{};
        EXPECT_DONE(halvane_hijri_by_rule(c_engine(), &c, {2026, 3, 1}, &hijri));
        expect_same(hijri, halvane::hijri_date(cpp_engine(), choices, {2026, 3, 1}));
        halvane_date date{};
        EXPECT_DONE(halvane_civil_by_rule(c_engine(), &c, {1447, 9, 20}, &date));
        expect_same(date, halvane::civil_date_of(cpp_engine(), choices, {1447, 9, 20}));
    }
}

} // namespace
