// SPDX-License-Identifier: MIT
#include "calendar/hijricalendar.h"
#include "calendar/modjul.h"
#include "crescent/circumstances.h"
#include "crescent/conjunction.h"
#include "crescent/crescentevening.h"
#include "crescent/criteriacatalogue.h"
#include "crescent/shortanswer.h"
#include "ephemeris/coordinates.h"
#include "ephemeris/moon.h"
#include "ephemeris/sun.h"
#include "events/phase.h"
#include "events/riseset.h"
#include "finemap/finemap.h"
#include "halvane/hijri.h"
#include "halvane/prayer.h"
#include "halvane/qiblah.h"
#include "hijri/hijrimonths.h"
#include "prayer/moonday.h"
#include "prayer/prayerday.h"
#include "qibla/direction.h"
#include "qibla/qibladay.h"
#include "routines/seriesloader.h"
#include "settings/enginesettings.h"
#include "tests/library/randomcalls.h"
#include "tests/support/places.h"
#include "tests/support/programfolder.h"
#include "timetable/authorities.h"
#include "timetable/timetable.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>

// What the library gives is what the engine and the tools give, bit for bit, from settings as the stored
// files hold them.

namespace halvane {
namespace {

/// Equal to the last bit; what is no number equals what is none.
testing::AssertionResult same(double a, double b) {
    if (std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) ||
        (std::isnan(a) && std::isnan(b)) || (a == 0 && b == 0))
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << testing::PrintToString(a) << " and " << testing::PrintToString(b) << " differ by " << a - b;
}

testing::AssertionResult same(const v1::ClockTime& library, const TaggedTime& tool) {
    const double* hours = hours_of(tool);
    if (hours == nullptr) {
        const int reason = static_cast<int>(std::get<NoEvent>(tool)); // none, up, down, bright, dark
        return static_cast<int>(library.missing) == reason + 1 && std::isnan(library.hours)
                   ? testing::AssertionSuccess()
                   : testing::AssertionFailure() << "missing " << static_cast<int>(library.missing);
    }
    if (!library)
        return testing::AssertionFailure() << "missing, not " << *hours;
    return same(library.hours, *hours);
}

class LibraryValues : public testing::Test {
protected:
    static constexpr int calls = 1000;

    static TheoryPointer loaded() {
        load_series();
        return loaded_theory();
    }
    static double jd_of(const v1::Date& date) {
        double jd = 0;
        modjul(date.year, date.month, date.day, 0, jd);
        return jd;
    }
    static Instant own(const v1::Instant& instant) {
        return instant.scale == v1::TimeScale::ut1 ? Instant::of_ut1(instant.jd)
                                                   : Instant::of_dynamical(instant.jd);
    }
    static Observer own(const v1::Observer& place) {
        return observer_at(place.longitude, place.latitude, place.height);
    }
    /// As the record of a location holds it.
    static Location stored(const v1::Observer& place, double zone) {
        Location location = place_at({place.longitude}, {place.latitude}, zone);
        location.elevation = place.height;
        return location;
    }

    const TemporaryProgramFolder folder_;
    const v1::Engine engine_{folder_.path().string()};
    Ephemeris ephemeris_{loaded()};
    RandomCalls random_;
};

TEST_F(LibraryValues, OfTheSunAreTheEngines) {
    for (int i = 0; i < calls; ++i) {
        const v1::Instant instant = random_.instant();
        const v1::Observer place = random_.observer();
        const Instant moment = own(instant);
        const Observer observer = own(place);
        const auto accuracy = static_cast<v1::Accuracy>(random_.whole(0, 3));
        const SunPlace seen = accuracy == v1::Accuracy::complete ? sun_high(ephemeris_, moment, observer)
                              : accuracy == v1::Accuracy::medium ? sun_medium(ephemeris_, moment, observer)
                              : accuracy == v1::Accuracy::low    ? sun_low(ephemeris_, moment, observer)
                                                                 : sun_fast(ephemeris_, moment, observer);
        const v1::SeenSun sun = sun_seen(engine_, instant, place, accuracy);
        EXPECT_TRUE(same(sun.geocentric.right_ascension, seen.right_ascension));
        EXPECT_TRUE(same(sun.geocentric.declination, seen.declination));
        EXPECT_TRUE(same(sun.geocentric.longitude, seen.longitude));
        EXPECT_TRUE(same(sun.geocentric.latitude, seen.latitude));
        EXPECT_TRUE(same(sun.geocentric.distance, seen.radius));
        EXPECT_TRUE(same(sun.geocentric.equation_of_time, seen.equation_of_time));
        EXPECT_TRUE(same(sun.topocentric.right_ascension, seen.topocentric_right_ascension));
        EXPECT_TRUE(same(sun.topocentric.declination, seen.topocentric_declination));
        EXPECT_TRUE(same(sun.topocentric.longitude, seen.topocentric_longitude));
        EXPECT_TRUE(same(sun.topocentric.latitude, seen.topocentric_latitude));
        double altitude = 0;
        double azimuth = 0;
        altazm_of(ephemeris_, moment, observer, seen.topocentric_right_ascension,
                  seen.topocentric_declination, altitude, azimuth);
        EXPECT_TRUE(same(sun.topocentric.altitude, altitude));
        EXPECT_TRUE(same(sun.topocentric.azimuth, azimuth));
        if (accuracy == v1::Accuracy::fast)
            continue;
        const v1::SunPlace geocentric = v1::sun(engine_, instant, accuracy);
        EXPECT_TRUE(same(geocentric.right_ascension, seen.right_ascension));
        EXPECT_TRUE(same(geocentric.longitude, seen.longitude));
        EXPECT_TRUE(same(suns(engine_, std::vector{instant}, accuracy).at(0).declination, seen.declination));
    }
}

TEST_F(LibraryValues, OfTheMoonAreTheEngines) {
    for (int i = 0; i < calls; ++i) {
        const v1::Instant instant = random_.instant();
        const v1::Observer place = random_.observer();
        const Instant moment = own(instant);
        const Observer observer = own(place);
        const auto accuracy = static_cast<v1::Accuracy>(random_.whole(0, 3));
        const MoonPlace seen = accuracy == v1::Accuracy::low    ? moon_low(ephemeris_, moment, observer)
                               : accuracy == v1::Accuracy::fast ? moon_fast(ephemeris_, moment, observer)
                                                                : moon_medium(ephemeris_, moment, observer);
        const v1::SeenMoon moon = moon_seen(engine_, instant, place, accuracy);
        EXPECT_TRUE(same(moon.geocentric.right_ascension, seen.right_ascension));
        EXPECT_TRUE(same(moon.geocentric.declination, seen.declination));
        EXPECT_NEAR(std::remainder(moon.geocentric.longitude - seen.longitude, 360), 0, 1e-12);
        EXPECT_GE(moon.geocentric.longitude, 0);
        EXPECT_LE(moon.geocentric.longitude, 360);
        EXPECT_TRUE(same(moon.geocentric.latitude, seen.latitude));
        EXPECT_TRUE(same(moon.geocentric.distance, seen.distance));
        EXPECT_TRUE(same(moon.topocentric.right_ascension, seen.topocentric_right_ascension));
        EXPECT_TRUE(same(moon.topocentric.declination, seen.topocentric_declination));
        EXPECT_TRUE(same(moon.topocentric.longitude, seen.topocentric_longitude));
        EXPECT_TRUE(same(moon.topocentric.latitude, seen.topocentric_latitude));
        EXPECT_TRUE(same(moon.parallax, seen.parallax));
        EXPECT_TRUE(same(moon.semidiameter, seen.topocentric_semidiameter));
        const double altitude = altitude_of(ephemeris_, moment, observer, seen.topocentric_right_ascension,
                                            seen.topocentric_declination);
        EXPECT_TRUE(same(moon.topocentric.altitude, altitude));
        EXPECT_TRUE(
            same(moons_seen(engine_, std::vector{instant}, place, accuracy).at(0).topocentric.declination,
                 seen.topocentric_declination));
    }
}

TEST_F(LibraryValues, OfADayAreTheReports) {
    for (int i = 0; i < calls; ++i) {
        const v1::Date date = random_.date();
        const v1::Observer place = random_.observer();
        const double zone = random_.clock_hours(place.longitude);
        const v1::Clock clock = v1::Clock::fixed(zone);
        const v1::Horizon horizon{random_.coin(), random_.number(900, 1050), random_.number(-20, 40)};
        Location location = stored(place, zone);
        location.pressure = horizon.pressure;
        location.temperature = horizon.temperature;
        Preferences preferences;
        preferences.elevation_setting = horizon.height_counts ? "1" : "0";
        preferences.clock_precision = "0";
        preferences.fajer_angle = random_.number(0, 30);
        const Horizon of_engine = horizon_of(preferences, location);
        const double jd = jd_of(date);
        const Instant midnight = Instant::of_ut1(jd - zone / 24);

        const v1::BodyDay sun = sun_day(engine_, date, place, clock, horizon);
        const RiseSet events = find_rise_set(ephemeris_, Target::sun, midnight, own(place), of_engine);
        EXPECT_TRUE(same(sun.rise, events.rise));
        EXPECT_TRUE(same(sun.set, events.set));

        const v1::Twilight dawn = twilight(engine_, date, place, clock, preferences.fajer_angle, horizon);
        const RiseSet twilights = find_rise_set(ephemeris_, Target::fajer, midnight, own(place), of_engine);
        EXPECT_TRUE(same(dawn.morning, twilights.rise));
        EXPECT_TRUE(same(dawn.evening, twilights.set));

        const v1::BodyDay moon = moon_day(engine_, date, place, clock, horizon);
        const MoonTimes times = halvane::moon_day(ephemeris_, preferences, location, jd, 0);
        EXPECT_TRUE(same(moon.rise, times.rise));
        EXPECT_TRUE(same(moon.transit, times.transit));
        EXPECT_TRUE(same(moon.set, times.set));
    }
}

TEST_F(LibraryValues, OfPrayersAreTheReports) {
    for (int i = 0; i < calls; ++i) {
        const v1::Date date = random_.date();
        const v1::Observer place = random_.observer(64);
        const double zone = random_.clock_hours(place.longitude);
        v1::ReportRules rules;
        rules.fajer_angle = random_.number(12, 20);
        rules.isha_angle = random_.number(12, 20);
        rules.hanafi = random_.coin();
        rules.fajer_earlier = random_.whole(-5, 10);
        rules.dhohur_later = random_.whole(-5, 10);
        rules.aser_later = random_.whole(-5, 10);
        rules.maghreb_later = random_.whole(-5, 10);
        rules.city = random_.whole(0, 40);
        rules.horizon.height_counts = random_.coin();
        rules.high_latitude = random_.coin();
        Preferences preferences;
        preferences.fajer_angle = rules.fajer_angle;
        preferences.isha_angle = rules.isha_angle;
        preferences.asr_rule = rules.hanafi ? "2" : "1";
        preferences.subtract_fajer = rules.fajer_earlier;
        preferences.add_dhohur = rules.dhohur_later;
        preferences.add_asr = rules.aser_later;
        preferences.add_maghreb = rules.maghreb_later;
        preferences.elevation_setting = rules.horizon.height_counts ? "1" : "0";
        preferences.clock_precision = "0";
        preferences.high_latitude = rules.high_latitude ? 1 : 0;
        Location location = stored(place, zone);
        location.city_offset = rules.city;

        const v1::PrayerTimes times = v1::prayer_times(engine_, date, place, v1::Clock::fixed(zone), rules);
        const PrayerDay day =
            prayer_day(ephemeris_, prayer_settings(preferences, location, DayMode::report), jd_of(date), 0);
        for (std::size_t k = 0; k < v1::prayers; ++k)
            EXPECT_TRUE(same(times.times[k], day.times.*six_times.at(k)))
                << "time " << k << " at " << place.latitude << " " << place.longitude;
    }
}

TEST_F(LibraryValues, OfTimetablesAreThePrograms) {
    const char* zones[] = {"Africa/Cairo", "Europe/London", "Asia/Riyadh", "America/New_York",
                           "Asia/Jakarta"};
    for (int i = 0; i < calls; ++i) {
        const v1::Date date = random_.date(1990, 2060);
        const v1::Observer place = random_.observer(64);
        const char* zone = zones[random_.whole(0, 4)];
        const auto& authority = authorities()[static_cast<std::size_t>(
            random_.whole(0, static_cast<int>(authorities().size()) - 1))];
        Profile profile = authority_profile(authority);
        profile.high_latitude = static_cast<HighLatitudeRule>(random_.whole(0, 5)); // all but that of a year
        profile.seconds = random_.coin();
        profile.iqamah[DayTime::fajer] = {Iqamah::Kind::after, 25, true};
        profile.jumuah = {750};
        v1::TimetableRules rules = v1::rules_of_authority(authority.key);
        rules.high_latitude = static_cast<v1::HighLatitudeRule>(profile.high_latitude);
        rules.seconds = profile.seconds;
        rules.iqamah[0] = {v1::Iqamah::Kind::after, 25, true};
        rules.jumuah = {750};

        TimetablePlace stored_place;
        stored_place.location = stored(place, 0);
        stored_place.zone = TimeZone(zone);
        NoProgress progress;
        const DaySpan span{SpanKind::dates, jd_of(date), jd_of(date)};
        const TimetableRow row =
            make_timetable(ephemeris_, {stored_place, profile, span}, progress).value().rows.at(0);
        const v1::TimetableDay day =
            v1::timetable(engine_, date, date, place, v1::Clock::of_zone(zone), rules).at(0);
        const auto alike = [&row](const v1::TimetableTime& time, const RowTime& of_row) {
            return time.source == static_cast<v1::TimeSource>(of_row.source) &&
                   static_cast<bool>(time) == of_row.clock.has_value() &&
                   (!of_row.clock ||
                    (time.day == of_row.clock->day && time.seconds == of_row.clock->seconds &&
                     time.offset == of_row.clock->offset &&
                     time.unix_seconds == utc_seconds(row, *of_row.clock)));
        };
        for (std::size_t k = 0; k < v1::prayers; ++k) {
            EXPECT_TRUE(alike(day.times[k], row.times.values[k])) << authority.key << " " << k;
            EXPECT_TRUE(alike(day.iqamah[k], row.iqamah.values[k])) << authority.key << " " << k;
        }
        EXPECT_TRUE(alike(day.aser_standard, row.aser_standard));
        EXPECT_TRUE(alike(day.aser_hanafi, row.aser_hanafi));
        EXPECT_TRUE(alike(day.imsak, row.imsak));
        EXPECT_TRUE(alike(day.midnight, row.midnight));
        EXPECT_TRUE(alike(day.last_third, row.last_third));
        EXPECT_EQ(day.jumuah.size(), row.jumuah.size());
        EXPECT_EQ(day.weekday, row.weekday);
        EXPECT_EQ(day.hijri.month, row.hijri.month);
        EXPECT_EQ(day.hijri.day, row.hijri.day);
        EXPECT_EQ(day.offset, row.offset);
        EXPECT_EQ(day.clock_changes, row.clock_changes);
    }
}

TEST_F(LibraryValues, OfTheQiblahAreTheReports) {
    for (int i = 0; i < calls; ++i) {
        const v1::Date date = random_.date();
        const v1::Observer place = random_.observer();
        const double zone = random_.clock_hours(place.longitude);
        const double direction = qiblah_bearing(place.longitude, place.latitude);
        EXPECT_TRUE(same(v1::qiblah_direction(place.latitude, place.longitude), direction));

        const bool shadow = random_.coin();
        const float shown = halvane::qiblah_direction(place.longitude, place.latitude);
        QiblahSearch search;
        search.observer = own(place);
        search.zone = zone;
        search.azimuth = target_azimuth(shown, shadow);
        search.delta_t = own(v1::Instant::of_ut1(jd_of(date))).delta_t();
        search.altitude_limit = qiblah_altitude_limit(place.height, 1010, 10);
        search.precision = 0;
        const QiblahDay day = qiblah_day(ephemeris_, search, jd_of(date), 0);
        const v1::SunInDirection sun = sun_in_direction(engine_, date, place, v1::Clock::fixed(zone),
                                                        static_cast<double>(shown), shadow);
        const auto expect = [](const v1::ClockTime& time, bool below,
                               const std::optional<QiblahMoment>& moment) {
            EXPECT_EQ(static_cast<bool>(time), moment.has_value());
            if (moment) {
                EXPECT_TRUE(same(time.hours, moment->hours));
                EXPECT_EQ(below, moment->below_horizon);
            }
        };
        expect(sun.first, sun.first_below_horizon, day.first);
        expect(sun.second, sun.second_below_horizon, day.second);
    }
}

TEST_F(LibraryValues, OfPhasesAreTheTables) {
    for (int i = 0; i < calls / 4; ++i) {
        const int lunation = random_.whole(-1200, 1200);
        const v1::Observer place = random_.observer();
        const Observer observer = own(place);
        const bool geocentric = random_.coin();
        double moments[4];
        for (int quarter = 0; quarter < 4; ++quarter) {
            const auto phase = static_cast<Phase>(quarter);
            moments[quarter] =
                refined_phase(ephemeris_, phase, phase_estimate(phase, lunation + quarter / 4.0),
                              geocentric ? nullptr : &observer);
        }
        const auto phases =
            moon_phases(engine_, v1::Instant::of_dynamical(moments[0] - 1e-5),
                        v1::Instant::of_dynamical(moments[3] + 1e-5), geocentric ? nullptr : &place);
        ASSERT_EQ(phases.size(), 4U);
        for (std::size_t quarter = 0; quarter < 4; ++quarter) {
            EXPECT_EQ(phases[quarter].lunation, lunation);
            EXPECT_EQ(phases[quarter].phase, static_cast<v1::Phase>(quarter));
            EXPECT_TRUE(same(phases[quarter].instant.jd, moments[quarter]));
        }
        const double offset = random_.number(-14, 14);
        EXPECT_TRUE(same(v1::conjunction(engine_, v1::Instant::of_dynamical(moments[0] + offset),
                                         geocentric ? nullptr : &place)
                             .jd,
                         moments[0]));
    }
}

TEST_F(LibraryValues, OfCrescentsAreThePrograms) {
    for (int i = 0; i < calls; ++i) {
        const v1::Observer place = random_.observer(70);
        const double zone = random_.clock_hours(place.longitude);
        const v1::Date near = random_.date(1900, 2100);
        const auto kind = static_cast<v1::CrescentKind>(random_.whole(0, 1));
        const v1::CrescentAnswer answer = v1::crescent(engine_, kind, near, place, v1::Clock::fixed(zone));
        const CrescentKind own_kind =
            kind == v1::CrescentKind::new_crescent ? CrescentKind::new_crescent : CrescentKind::old_crescent;
        const double jd = jd_of(near);
        const double conjunction = geocentric_conjunction(ephemeris_, jd + 0.5 - zone / 24);
        const EventOfDate sun =
            sun_event_of_date(ephemeris_, own(place), own_kind, jd, [zone](double) { return zone; });
        const ShortAnswer expected = short_answer(ephemeris_, own(place), own_kind, jd, sun, conjunction);
        EXPECT_EQ(answer.has_crescent, expected.has_crescent());
        ASSERT_EQ(answer.evening.has_value(), expected.evening.has_value());
        if (answer.evening) {
            EXPECT_TRUE(same(answer.evening->lag, expected.evening->lag()));
            EXPECT_TRUE(same(answer.evening->at_best_time.topocentric.width,
                             expected.evening->at_best_time.topocentric.width));
            EXPECT_TRUE(same(answer.evening->at_sun_event.geocentric.elongation,
                             expected.evening->at_sun_event.geocentric.elongation));
        }
        ASSERT_EQ(answer.verdicts.size(), expected.verdicts.size());
        for (std::size_t k = 0; k < answer.verdicts.size(); ++k) {
            EXPECT_EQ(answer.verdicts[k].criterion, expected.verdicts[k].criterion->key);
            ASSERT_EQ(answer.verdicts[k].band.has_value(), expected.verdicts[k].value.has_value());
            if (expected.verdicts[k].value) {
                EXPECT_TRUE(same(answer.verdicts[k].value, *expected.verdicts[k].value));
            }
        }
    }
}

TEST_F(LibraryValues, OfCircumstancesAreTheReports) {
    for (int i = 0; i < calls; ++i) {
        const v1::Observer place = random_.observer(60);
        const double zone = random_.clock_hours(place.longitude);
        const v1::Date near = random_.date(1900, 2100);
        v1::CircumstanceChoices choices;
        choices.kind = static_cast<v1::CrescentKind>(random_.whole(0, 1));
        choices.geocentric = random_.coin();
        choices.days = random_.whole(0, 2);
        choices.time = static_cast<v1::ObservationTime>(random_.whole(0, 3));
        choices.given_hours = random_.whole(0, 23);
        CrescentSettings settings;
        settings.day = std::to_string(near.day);
        settings.month = std::to_string(near.month);
        settings.year = std::to_string(near.year);
        settings.new_crescent = choices.kind == v1::CrescentKind::new_crescent;
        settings.geocentric = choices.geocentric;
        settings.one_day = choices.days == 1;
        settings.two_days = choices.days == 2;
        settings.at_best_time = choices.time == v1::ObservationTime::best_time;
        settings.at_moon = choices.time == v1::ObservationTime::moon_event;
        settings.at_user_time = choices.time == v1::ObservationTime::given;
        settings.user_hour = std::to_string(static_cast<int>(choices.given_hours));
        const CrescentRecords records{settings, {}, stored(place, zone)};
        DayEvents events;
        const auto expected =
            crescent_circumstances(ephemeris_, records, find_conjunction(ephemeris_, records), events);
        const auto found = v1::crescent_circumstances(engine_, near, place, zone, choices);
        ASSERT_EQ(found.has_value(), expected.has_value());
        if (!found)
            continue;
        EXPECT_TRUE(same(found->sun_event, expected->sun_event));
        EXPECT_TRUE(same(found->moon_event, expected->moon_event));
        EXPECT_TRUE(same(found->lag, expected->lag));
        EXPECT_TRUE(same(found->observed.jd, expected->universal));
        EXPECT_TRUE(same(found->moon_age, expected->moon_age));
        EXPECT_TRUE(same(found->q, expected->criterion.value));
        EXPECT_TRUE(same(found->arcv, expected->criterion.arcv));
        EXPECT_TRUE(same(found->quantities.elongation, expected->quantities.elongation));
        EXPECT_TRUE(same(found->moon.topocentric.longitude, expected->moon.topocentric_longitude));
        EXPECT_EQ(found->hijri.month, static_cast<int>(expected->hijri.month));
        EXPECT_EQ(jd_of(found->date), expected->day);
    }
}

TEST_F(LibraryValues, OfMapsAreThoseOfTheirPlaces) {
    // Pieces of 5 by 5 places, each of another date and criterion; the places themselves are asked one by
    // one.
    for (int i = 0; i < calls / 25; ++i) {
        v1::MapChoices choices;
        choices.date = random_.date(1950, 2050);
        choices.west = random_.whole(-180, 170);
        choices.south = random_.whole(-60, 50);
        choices.east = choices.west + 4;
        choices.north = choices.south + 4;
        const char* keys[] = {"yallop-1997", "saao-2001", "vesk", "mabims-2021"};
        choices.criterion = keys[random_.whole(0, 3)];
        FineMapSettings settings;
        settings.day = jd_of(choices.date);
        settings.conjunction = geocentric_conjunction(ephemeris_, settings.day + 0.5);
        settings.criterion = catalogued_criterion(choices.criterion);
        for (const v1::MapGrid& grid : crescent_map(engine_, choices)) {
            ASSERT_EQ(grid.value.size(), grid.columns * grid.rows);
            for (std::size_t row = 0; row < grid.rows; ++row)
                for (std::size_t column = 0; column < grid.columns; ++column) {
                    const MapPosition position{grid.west + static_cast<double>(column) * grid.step,
                                               grid.south + static_cast<double>(row) * grid.step};
                    const PlaceAnswer place = answer_at(ephemeris_, settings, position);
                    const std::size_t index = row * grid.columns + column;
                    ASSERT_EQ(place.value.has_value(), std::isfinite(grid.value[index]));
                    // The map takes the sky from polynomials.
                    if (place.value) {
                        EXPECT_NEAR(grid.value[index], *place.value, 1e-3);
                    }
                    if (place.evening) {
                        EXPECT_NEAR(grid.lag[index], place.evening->lag(), 1.0 / 60);
                    }
                }
        }
    }
}

TEST_F(LibraryValues, OfHijriMonthsAreThePrograms) {
    const char* keys[] = {"umm-al-qura", "tabular", "mabims", "seen-at", "turkey"};
    for (int i = 0; i < calls / 20; ++i) {
        v1::HijriChoices choices;
        choices.rule = keys[i % 5];
        choices.place = random_.observer(50);
        choices.clock = v1::Clock::fixed(std::round(choices.place.longitude / 15));
        choices.criterion = random_.coin() ? "yallop" : "saao-2001";
        const int year = random_.whole(1360, 1500);
        const int month = random_.whole(1, 12);
        HijriSettings settings;
        settings.rule = hijri_rule(choices.rule);
        settings.place = {"", choices.place.longitude, choices.place.latitude, choices.place.height,
                          std::round(choices.place.longitude / 15)};
        settings.criterion = catalogued_criterion(choices.criterion);
        settings.seen_class = settings.criterion->by_eye;
        NoProgress progress;
        const auto expected = hijri_months(loaded_theory(), settings, HijriMonthNumber::of(year, month),
                                           HijriMonthNumber::of(year, month), progress)
                                  .value();
        const auto months = v1::hijri_months(engine_, choices, year, month, year, month);
        ASSERT_EQ(months.size(), 1U);
        EXPECT_EQ(jd_of(months[0].first_day) + 0.5, expected[0].first_day) << choices.rule;
        EXPECT_EQ(months[0].days, expected[0].days);
        EXPECT_EQ(months[0].notes, expected[0].notes);
        EXPECT_EQ(months[0].may_differ, expected[0].may_differ());
        EXPECT_TRUE(
            same(months[0].margin, expected[0].margin ? expected[0].margin->value : v1::not_a_number));
        const v1::HijriDate first = hijri_date(engine_, choices, months[0].first_day);
        EXPECT_EQ(first, (v1::HijriDate{year, month, 1}));
        EXPECT_EQ(civil_date_of(engine_, choices, first), months[0].first_day);
    }
}

} // namespace
} // namespace halvane
