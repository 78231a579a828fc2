// SPDX-License-Identifier: MIT
// What the C interface refuses, what it leaves alone, and many threads at once.
#include "cinterface.h"

#include <array>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <thread>
#include <vector>

namespace {

constexpr halvane_date day{2026, 11, 23};
constexpr halvane_observer cairo{30.05, 31.25, 20};
constexpr halvane_instant noon{2461368, HALVANE_UT1};
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

/// A call that must fail, and a part of its words.
struct Refused {
    const char* what;
    std::function<halvane_status()> call;
    const char* words;
    halvane_status status = HALVANE_BAD_ARGUMENT;
};

void expect_refused(const std::vector<Refused>& calls) {
    for (const Refused& refused : calls) {
        EXPECT_EQ(refused.call(), refused.status) << refused.what;
        EXPECT_NE(std::string(halvane_last_error()).find(refused.words), std::string::npos)
            << refused.what << ": " << halvane_last_error();
    }
}

TEST(CInterfaceErrors, StatusesHaveWords) {
    for (const int status :
         {HALVANE_OK, HALVANE_BAD_ARGUMENT, HALVANE_MISSING_FILE, HALVANE_DAMAGED_FILE, HALVANE_NO_VALUE,
          HALVANE_NO_MEMORY, HALVANE_CANCELLED, HALVANE_OTHER, HALVANE_TOO_SMALL})
        EXPECT_STRNE(halvane_status_words(status), "unknown status") << status;
    EXPECT_STREQ(halvane_status_words(HALVANE_CANCELLED), "cancelled");
    EXPECT_STREQ(halvane_status_words(77), "unknown status");
    EXPECT_STREQ(halvane_status_words(-1), "unknown status");
}

TEST(CInterfaceErrors, NullPointersAreRefused) {
    const OwnClock own = fixed_clock(2);
    const halvane_clock* clock = own.get();
    const halvane_engine* engine = c_engine();
    double number = 0;
    std::size_t count = 0;
    halvane_date date{};
    halvane_hijri_date hijri{};
    halvane_engine* opened = nullptr;
    halvane_clock* made = nullptr;
    halvane_map* map = nullptr;
    auto sun = sized<halvane_geocentric_sun>();
    auto moon = sized<halvane_geocentric_moon>();
    auto seen_sun = sized<halvane_seen_sun>();
    auto seen_moon = sized<halvane_seen_moon>();
    auto light = sized<halvane_light>();
    auto body_day = sized<halvane_body_day>();
    auto twilight = sized<halvane_twilight_times>();
    auto moments = sized<halvane_direction_moments>();
    auto prayers = sized<halvane_prayer_day>();
    auto answer = sized<halvane_crescent_answer>();
    auto found = sized<halvane_circumstances>();
    auto grid = sized<halvane_map_grid>();
    auto rules = sized<halvane_timetable_rules>();
    auto map_choices = sized<halvane_map_choices>();
    ASSERT_EQ(halvane_default_map_choices(&map_choices), HALVANE_OK);
    map_choices.criterion = nullptr;
    auto hijri_choices = sized<halvane_hijri_choices>();
    ASSERT_EQ(halvane_default_hijri_choices(&hijri_choices), HALVANE_OK);
    hijri_choices.announced_count = 1;
    auto no_rule = hijri_choices;
    no_rule.rule = nullptr;
    halvane_instant instant{};
    const halvane_timetable_place no_clock{cairo, nullptr};
    auto data = sized<halvane_engine_data>();
    halvane_timetable_day row{};
    expect_refused({
        {"julian_day", [&] { return halvane_julian_day(day, nullptr); }, "`julian_day`"},
        {"civil_date", [&] { return halvane_civil_date(2451545, nullptr); }, "`date`"},
        {"unix_seconds", [&] { return halvane_unix_seconds(noon, nullptr); }, "`seconds`"},
        {"ut1", [&] { return halvane_ut1(noon, nullptr); }, "`julian_day`"},
        {"dynamical", [&] { return halvane_dynamical(noon, nullptr); }, "`julian_day`"},
        {"delta_t", [&] { return halvane_delta_t(2451545, nullptr); }, "`seconds`"},
        {"open", [&] { return halvane_engine_open(nullptr); }, "`engine`"},
        {"open_folder", [&] { return halvane_engine_open_folder(nullptr, &opened); }, "`folder`"},
        {"open_folder", [&] { return halvane_engine_open_folder(HALVANE_DATA, nullptr); }, "`engine`"},
        {"open_memory", [&] { return halvane_engine_open_memory(nullptr, &opened); }, "`data`"},
        {"open_memory", [&] { return halvane_engine_open_memory(&data, &opened); }, "`termfull`"},
        {"clock_fixed", [&] { return halvane_clock_fixed(2, nullptr); }, "`clock`"},
        {"clock_of_zone", [&] { return halvane_clock_of_zone(nullptr, &made); }, "`name`"},
        {"clock_of_zone", [&] { return halvane_clock_of_zone("UTC", nullptr); }, "`clock`"},
        {"hours_ahead", [&] { return halvane_clock_hours_ahead(nullptr, day, &number); }, "`clock`"},
        {"hours_ahead", [&] { return halvane_clock_hours_ahead(clock, day, nullptr); }, "`hours`"},
        {"sun", [&] { return halvane_sun(nullptr, noon, HALVANE_COMPLETE, &sun); }, "`engine`"},
        {"sun", [&] { return halvane_sun(engine, noon, HALVANE_COMPLETE, nullptr); }, "`sun`"},
        {"moon", [&] { return halvane_moon(nullptr, noon, HALVANE_COMPLETE, &moon); }, "`engine`"},
        {"moon", [&] { return halvane_moon(engine, noon, HALVANE_COMPLETE, nullptr); }, "`moon`"},
        {"sun_seen", [&] { return halvane_sun_seen(nullptr, noon, cairo, HALVANE_LOW, &seen_sun); },
         "`engine`"},
        {"sun_seen", [&] { return halvane_sun_seen(engine, noon, cairo, HALVANE_LOW, nullptr); }, "`sun`"},
        {"moon_seen", [&] { return halvane_moon_seen(nullptr, noon, cairo, HALVANE_LOW, &seen_moon); },
         "`engine`"},
        {"moon_seen", [&] { return halvane_moon_seen(engine, noon, cairo, HALVANE_LOW, nullptr); }, "`moon`"},
        {"suns", [&] { return halvane_suns(engine, nullptr, 1, 0, &sun, 1, sizeof sun, &count); },
         "`instants`"},
        {"suns", [&] { return halvane_suns(engine, &noon, 1, 0, nullptr, 1, sizeof sun, &count); }, "`suns`"},
        {"suns", [&] { return halvane_suns(engine, &noon, 1, 0, &sun, 1, sizeof sun, nullptr); }, "`count`"},
        {"suns", [&] { return halvane_suns(nullptr, &noon, 1, 0, &sun, 1, sizeof sun, &count); }, "`engine`"},
        {"moons", [&] { return halvane_moons(engine, nullptr, 1, 0, &moon, 1, sizeof moon, &count); },
         "`instants`"},
        {"moons", [&] { return halvane_moons(engine, &noon, 1, 0, nullptr, 1, sizeof moon, &count); },
         "`moons`"},
        {"suns_seen",
         [&] {
             return halvane_suns_seen(engine, nullptr, 1, cairo, 0, &seen_sun, 1, sizeof seen_sun, &count);
         },
         "`instants`"},
        {"moons_seen",
         [&] {
             return halvane_moons_seen(engine, &noon, 1, cairo, 0, &seen_moon, 1, sizeof seen_moon, nullptr);
         },
         "`count`"},
        {"moon_light", [&] { return halvane_moon_light(nullptr, noon, &light); }, "`engine`"},
        {"moon_light", [&] { return halvane_moon_light(engine, noon, nullptr); }, "`light`"},
        {"refracted", [&] { return halvane_refracted(1, nullptr); }, "`seen_altitude`"},
        {"sun_day", [&] { return halvane_sun_day(engine, day, cairo, nullptr, nullptr, &body_day); },
         "`clock`"},
        {"sun_day", [&] { return halvane_sun_day(nullptr, day, cairo, clock, nullptr, &body_day); },
         "`engine`"},
        {"sun_day", [&] { return halvane_sun_day(engine, day, cairo, clock, nullptr, nullptr); }, "`day`"},
        {"moon_day", [&] { return halvane_moon_day(engine, day, cairo, nullptr, nullptr, &body_day); },
         "`clock`"},
        {"moon_day", [&] { return halvane_moon_day(engine, day, cairo, clock, nullptr, nullptr); }, "`day`"},
        {"twilight", [&] { return halvane_twilight(engine, day, cairo, nullptr, 18, nullptr, &twilight); },
         "`clock`"},
        {"twilight", [&] { return halvane_twilight(engine, day, cairo, clock, 18, nullptr, nullptr); },
         "`times`"},
        {"passages",
         [&] {
             return halvane_altitude_passages(engine, HALVANE_SUN, 0, noon, noon, cairo, nullptr, 0, 0,
                                              nullptr);
         },
         "`count`"},
        {"phases", [&] { return halvane_moon_phases(nullptr, noon, noon, nullptr, nullptr, 0, 0, &count); },
         "`engine`"},
        {"conjunction", [&] { return halvane_conjunction(engine, noon, nullptr, nullptr); }, "`instant`"},
        {"conjunction", [&] { return halvane_conjunction(nullptr, noon, nullptr, &instant); }, "`engine`"},
        {"qiblah", [&] { return halvane_qiblah_direction(30, 31, nullptr); }, "`direction`"},
        {"sun_in_direction",
         [&] { return halvane_sun_in_direction(engine, day, cairo, nullptr, 90, 0, nullptr, &moments); },
         "`clock`"},
        {"sun_in_direction",
         [&] { return halvane_sun_in_direction(engine, day, cairo, clock, 90, 0, nullptr, nullptr); },
         "`moments`"},
        {"report_rules", [&] { return halvane_default_report_rules(nullptr); }, "`rules`"},
        {"prayer_times", [&] { return halvane_prayer_times(nullptr, day, cairo, clock, nullptr, &prayers); },
         "`engine`"},
        {"prayer_times", [&] { return halvane_prayer_times(engine, day, cairo, nullptr, nullptr, &prayers); },
         "`clock`"},
        {"prayer_times", [&] { return halvane_prayer_times(engine, day, cairo, clock, nullptr, nullptr); },
         "`day`"},
        {"timetable_rules", [&] { return halvane_default_timetable_rules(nullptr); }, "`rules`"},
        {"authority", [&] { return halvane_authority_at(0, nullptr); }, "`authority`"},
        {"rules_of_authority", [&] { return halvane_rules_of_authority(nullptr, &rules); }, "`key`"},
        {"rules_of_authority", [&] { return halvane_rules_of_authority("mwl", nullptr); }, "`rules`"},
        {"timetable",
         [&] {
             return halvane_timetable(engine, day, day, cairo, nullptr, nullptr, nullptr, nullptr, &row, 1,
                                      sizeof row, &count);
         },
         "`clock`"},
        {"timetable",
         [&] {
             return halvane_timetable(engine, day, day, cairo, clock, nullptr, nullptr, nullptr, nullptr, 1,
                                      sizeof row, &count);
         },
         "`days`"},
        {"timetables",
         [&] {
             return halvane_timetables(engine, day, day, nullptr, 1, nullptr, nullptr, nullptr, &row, 1,
                                       sizeof row, &count);
         },
         "`places`"},
        {"timetables",
         [&] {
             return halvane_timetables(engine, day, day, &no_clock, 1, nullptr, nullptr, nullptr, &row, 1,
                                       sizeof row, &count);
         },
         "`clock`"},
        {"criterion", [&] { return halvane_criterion_at(0, nullptr); }, "`criterion`"},
        {"limits", [&] { return halvane_default_criterion_limits(nullptr); }, "`limits`"},
        {"crescent",
         [&] {
             return halvane_crescent(engine, 0, day, cairo, clock, nullptr, nullptr, nullptr, 0, 0, &count);
         },
         "`answer`"},
        {"crescent",
         [&] {
             return halvane_crescent(engine, 0, day, cairo, clock, nullptr, &answer, nullptr, 0, 0, nullptr);
         },
         "`count`"},
        {"circumstance_choices", [&] { return halvane_default_circumstance_choices(nullptr); }, "`choices`"},
        {"circumstances",
         [&] { return halvane_crescent_circumstances(engine, day, cairo, 2, nullptr, nullptr); },
         "`circumstances`"},
        {"circumstances",
         [&] { return halvane_crescent_circumstances(nullptr, day, cairo, 2, nullptr, &found); }, "`engine`"},
        {"map_choices", [&] { return halvane_default_map_choices(nullptr); }, "`choices`"},
        {"map", [&] { return halvane_crescent_map(engine, nullptr, nullptr, nullptr, nullptr); }, "`map`"},
        {"map", [&] { return halvane_crescent_map(engine, &map_choices, nullptr, nullptr, &map); },
         "`criterion`"},
        {"grid", [&] { return halvane_map_grid_at(nullptr, 0, &grid); }, "`map`"},
        {"grid", [&] { return halvane_map_grid_at(nullptr, 0, nullptr); }, "`grid`"},
        {"tabular_hijri", [&] { return halvane_tabular_hijri(day, nullptr); }, "`hijri`"},
        {"tabular_civil",
         [&] {
             return halvane_tabular_civil({1447, 1, 1}, nullptr);
         },
         "`date`"},
        {"hijri_rule", [&] { return halvane_hijri_rule_at(0, nullptr); }, "`rule`"},
        {"hijri_choices", [&] { return halvane_default_hijri_choices(nullptr); }, "`choices`"},
        {"hijri_months",
         [&] {
             return halvane_hijri_months(engine, nullptr, 1447, 1, 1447, 1, nullptr, nullptr, nullptr, 0, 0,
                                         nullptr);
         },
         "`count`"},
        {"hijri_by_rule", [&] { return halvane_hijri_by_rule(engine, &hijri_choices, day, &hijri); },
         "`announced`"},
        {"hijri_by_rule", [&] { return halvane_hijri_by_rule(engine, &no_rule, day, &hijri); }, "`rule`"},
        {"hijri_by_rule", [&] { return halvane_hijri_by_rule(engine, nullptr, day, nullptr); }, "`hijri`"},
        {"civil_by_rule",
         [&] {
             return halvane_civil_by_rule(nullptr, nullptr, {1447, 1, 1}, &date);
         },
         "`engine`"},
        {"civil_by_rule",
         [&] {
             return halvane_civil_by_rule(engine, nullptr, {1447, 1, 1}, nullptr);
         },
         "`date`"},
    });
    EXPECT_EQ(opened, nullptr);
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(map, nullptr);
    // Nothing to free or to name is none.
    halvane_engine_close(nullptr);
    halvane_clock_free(nullptr);
    halvane_map_free(nullptr);
    EXPECT_STREQ(halvane_clock_zone_name(nullptr), "");
    EXPECT_EQ(halvane_map_grid_count(nullptr), 0U);
}

TEST(CInterfaceErrors, ValuesOutOfRangeAreRefused) {
    const OwnClock own = fixed_clock(2);
    const halvane_clock* clock = own.get();
    const halvane_engine* engine = c_engine();
    double number = 0;
    std::size_t count = 0;
    halvane_date date{};
    halvane_hijri_date hijri{};
    halvane_clock* made = nullptr;
    halvane_map* map = nullptr;
    auto sun = sized<halvane_geocentric_sun>();
    auto seen = sized<halvane_seen_moon>();
    auto body_day = sized<halvane_body_day>();
    auto twilight = sized<halvane_twilight_times>();
    auto moments = sized<halvane_direction_moments>();
    auto prayers = sized<halvane_prayer_day>();
    auto answer = sized<halvane_crescent_answer>();
    auto found = sized<halvane_circumstances>();
    auto criterion = sized<halvane_criterion>();
    halvane_instant instant{};
    auto report_rules = sized<halvane_report_rules>();
    ASSERT_EQ(halvane_default_report_rules(&report_rules), HALVANE_OK);
    report_rules.fajer_angle = nan;
    auto rules = sized<halvane_timetable_rules>();
    ASSERT_EQ(halvane_default_timetable_rules(&rules), HALVANE_OK);
    auto many_jumuah = rules;
    many_jumuah.jumuah_count = 4;
    auto no_rounding = rules;
    no_rounding.rounding[HALVANE_ASER] = 3;
    auto no_rule = rules;
    no_rule.high_latitude = -1;
    auto map_choices = sized<halvane_map_choices>();
    ASSERT_EQ(halvane_default_map_choices(&map_choices), HALVANE_OK);
    map_choices.step = 0;
    auto unknown_criterion = map_choices;
    unknown_criterion.step = 5;
    unknown_criterion.criterion = "nobody-2000";
    auto choices = sized<halvane_circumstance_choices>();
    ASSERT_EQ(halvane_default_circumstance_choices(&choices), HALVANE_OK);
    choices.time = 4;
    auto hijri_choices = sized<halvane_hijri_choices>();
    ASSERT_EQ(halvane_default_hijri_choices(&hijri_choices), HALVANE_OK);
    hijri_choices.rule = "nobody";
    auto no_class = hijri_choices;
    no_class.rule = "seen-here";
    no_class.seen_class = -2;
    auto limits = sized<halvane_criterion_limits>();
    ASSERT_EQ(halvane_default_criterion_limits(&limits), HALVANE_OK);
    limits.danjon_elongation = nan;
    halvane_horizon vacuum = halvane_standard_horizon();
    vacuum.pressure = -1;
    const auto month_rows = [&](int first_year, int first_month, int last_year, int last_month) {
        return halvane_hijri_months(engine, nullptr, first_year, first_month, last_year, last_month, nullptr,
                                    nullptr, nullptr, 0, 0, &count);
    };
    const auto timetable = [&](const halvane_timetable_rules& own_rules) {
        halvane_timetable_day row{};
        return halvane_timetable(engine, day, day, cairo, clock, &own_rules, nullptr, nullptr, &row, 1,
                                 sizeof row, &count);
    };
    expect_refused({
        {"month 13",
         [&] {
             return halvane_julian_day({2026, 13, 1}, &number);
         },
         "A month"},
        {"30 February",
         [&] {
             return halvane_julian_day({2026, 2, 30}, &number);
         },
         "The calendar has no 30"},
        {"far day", [&] { return halvane_civil_date(1e9, &date); }, "A Julian day"},
        {"no day", [&] { return halvane_civil_date(nan, &date); }, "A Julian day"},
        {"no day", [&] { return halvane_delta_t(nan, &number); }, "A Julian day"},
        {"no moment",
         [&] {
             return halvane_ut1({nan, HALVANE_UT1}, &number);
         },
         "A Julian day"},
        {"no moment",
         [&] {
             return halvane_unix_seconds({nan, HALVANE_UT1}, &number);
         },
         "A Julian day"},
        {"no scale",
         [&] {
             return halvane_dynamical({2451545, 2}, &number);
         },
         "A time scale"},
        {"endless", [&] { return halvane_sun(engine, halvane_instant_of_unix(INFINITY), 0, &sun); },
         "A Julian day"},
        {"clock", [&] { return halvane_clock_fixed(25, &made); }, "hours of a clock"},
        {"zone", [&] { return halvane_clock_of_zone("Africa/Kairo", &made); },
         "no time zone \"Africa/Kairo\""},
        {"accuracy", [&] { return halvane_sun(engine, noon, 4, &sun); }, "accuracy"},
        {"fast", [&] { return halvane_sun(engine, noon, HALVANE_FAST, &sun); }, "fast"},
        {"latitude",
         [&] {
             return halvane_moon_seen(engine, noon, {90.5, 0, 0}, 0, &seen);
         },
         "A latitude"},
        {"longitude",
         [&] {
             return halvane_moon_seen(engine, noon, {0, nan, 0}, 0, &seen);
         },
         "A longitude"},
        {"altitude", [&] { return halvane_refracted(91, &number); }, "An altitude"},
        {"horizon", [&] { return halvane_sun_day(engine, day, cairo, clock, &vacuum, &body_day); },
         "A pressure"},
        {"depression", [&] { return halvane_twilight(engine, day, cairo, clock, nan, nullptr, &twilight); },
         "A depression"},
        {"body",
         [&] { return halvane_altitude_passages(engine, 2, 0, noon, noon, cairo, nullptr, 0, 0, &count); },
         "A body"},
        {"span",
         [&] {
             return halvane_altitude_passages(engine, 0, 0, noon, {noon.jd + 500, 0}, cairo, nullptr, 0, 0,
                                              &count);
         },
         "days between"},
        {"order",
         [&] {
             return halvane_moon_phases(engine, noon, {noon.jd - 1, 0}, nullptr, nullptr, 0, 0, &count);
         },
         "before the first"},
        {"near",
         [&] {
             return halvane_conjunction(engine, {nan, 0}, nullptr, &instant);
         },
         "A Julian day"},
        {"azimuth",
         [&] { return halvane_sun_in_direction(engine, day, cairo, clock, 361, 0, nullptr, &moments); },
         "An azimuth"},
        {"report rules",
         [&] { return halvane_prayer_times(engine, day, cairo, clock, &report_rules, &prayers); },
         "A depression at Fajer"},
        {"authority", [&] { return halvane_rules_of_authority("nobody", &rules); },
         "no authority \"nobody\""},
        {"jumuah", [&] { return timetable(many_jumuah); }, "Jumuah"},
        {"rounding", [&] { return timetable(no_rounding); }, "A rounding"},
        {"rule", [&] { return timetable(no_rule); }, "A rule of high latitudes"},
        {"dates",
         [&] {
             return halvane_timetable(engine, day, {2026, 11, 22}, cairo, clock, nullptr, nullptr, nullptr,
                                      nullptr, 0, 0, &count);
         },
         "before the first"},
        {"index", [&] { return halvane_criterion_at(halvane_criterion_count(), &criterion); }, "no index"},
        {"kind",
         [&] {
             return halvane_crescent(engine, 2, day, cairo, clock, nullptr, &answer, nullptr, 0, 0, &count);
         },
         "A kind of crescent"},
        {"limits",
         [&] {
             return halvane_crescent(engine, 0, day, cairo, clock, &limits, &answer, nullptr, 0, 0, &count);
         },
         "The Danjon limit"},
        {"time", [&] { return halvane_crescent_circumstances(engine, day, cairo, 2, &choices, &found); },
         "A time of observation"},
        {"step", [&] { return halvane_crescent_map(engine, &map_choices, nullptr, nullptr, &map); }, "step"},
        {"criterion",
         [&] { return halvane_crescent_map(engine, &unknown_criterion, nullptr, nullptr, &map); },
         "no criterion \"nobody-2000\""},
        {"hijri date",
         [&] {
             return halvane_tabular_hijri({600, 1, 1}, &hijri);
         },
         "16 July 622"},
        {"hijri day",
         [&] {
             return halvane_tabular_civil({1447, 1, 31}, &date);
         },
         "A day of a Hijri month"},
        {"hijri rule", [&] { return halvane_hijri_by_rule(engine, &hijri_choices, day, &hijri); },
         "no rule of Hijri months \"nobody\""},
        {"class", [&] { return halvane_hijri_by_rule(engine, &no_class, day, &hijri); }, "lowest class"},
        {"months", [&] { return month_rows(1447, 2, 1447, 1); }, "before the first"},
        {"months", [&] { return month_rows(-2147483647, 1, 2147483647, 1); }, "", HALVANE_TOO_SMALL},
        {"year",
         [&] {
             halvane_hijri_month row{};
             return halvane_hijri_months(engine, nullptr, 1447, 13, 1447, 13, nullptr, nullptr, &row, 1,
                                         sizeof row, &count);
         },
         "A Hijri month"},
        {"Kaaba", [&] { return halvane_qiblah_direction(21.42263, 39.8261167, &number); }, "",
         HALVANE_NO_VALUE},
        {"folder",
         [&] {
             halvane_engine* opened = nullptr;
             return halvane_engine_open_folder("/nonexistent", &opened);
         },
         "/nonexistent", HALVANE_MISSING_FILE},
    });
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(map, nullptr);
}

TEST(CInterfaceErrors, DamagedDataAreRefusedAndSoundOnesRead) {
    const auto text_of = [](const char* name) {
        std::ifstream file(std::filesystem::path(HALVANE_DATA) / name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    };
    const std::string termfull = text_of("termfull.vsk"), term = text_of("term.vsk"),
                      mterm = text_of("mterm.vsk"), elp = text_of("elp.vsk");
    auto data = sized<halvane_engine_data>();
    data.termfull = termfull.data();
    data.termfull_length = termfull.size();
    data.term = term.data();
    data.term_length = term.size();
    data.mterm = mterm.data();
    data.mterm_length = mterm.size();
    data.elp = elp.data();
    data.elp_length = elp.size();
    halvane_engine* opened = nullptr;
    ASSERT_EQ(halvane_engine_open_memory(&data, &opened), HALVANE_OK) << halvane_last_error();
    const OwnEngine own(opened);
    auto of_memory = sized<halvane_geocentric_moon>();
    auto of_folder = sized<halvane_geocentric_moon>();
    ASSERT_EQ(halvane_moon(opened, noon, HALVANE_COMPLETE, &of_memory), HALVANE_OK);
    ASSERT_EQ(halvane_moon(c_engine(), noon, HALVANE_COMPLETE, &of_folder), HALVANE_OK);
    EXPECT_EQ(of_memory.geocentric.longitude, of_folder.geocentric.longitude);

    // Without the lines of the world the rule that asks for the Americas has none.
    auto choices = sized<halvane_hijri_choices>();
    ASSERT_EQ(halvane_default_hijri_choices(&choices), HALVANE_OK);
    choices.rule = "istanbul-2016";
    halvane_hijri_date hijri{};
    EXPECT_EQ(halvane_hijri_by_rule(opened, &choices, day, &hijri), HALVANE_MISSING_FILE);

    data.elp_length /= 2;
    halvane_engine* damaged = opened;
    EXPECT_EQ(halvane_engine_open_memory(&data, &damaged), HALVANE_DAMAGED_FILE);
    EXPECT_EQ(damaged, nullptr);
    EXPECT_NE(std::string(halvane_last_error()).find("elp.vsk"), std::string::npos) << halvane_last_error();
}

/// A record with more members than the library knows.
template <class Record>
struct Grown {
    Record record;
    std::array<unsigned char, 24> more;
};

TEST(CInterfaceErrors, SmallRecordsAreRefusedAndLargeOnesKept) {
    auto sun = sized<halvane_geocentric_sun>();
    sun.geocentric.longitude = 777;
    for (const std::size_t size : {std::size_t{0}, sizeof sun - 1}) {
        sun.size = size;
        EXPECT_EQ(halvane_sun(c_engine(), noon, HALVANE_LOW, &sun), HALVANE_BAD_ARGUMENT);
        EXPECT_EQ(sun.geocentric.longitude, 777);
    }
    Grown<halvane_geocentric_sun> grown{};
    grown.more.fill(0xAB);
    const auto before = grown.more;
    grown.record.size = sizeof grown;
    ASSERT_EQ(halvane_sun(c_engine(), noon, HALVANE_LOW, &grown.record), HALVANE_OK);
    sun.size = sizeof sun;
    ASSERT_EQ(halvane_sun(c_engine(), noon, HALVANE_LOW, &sun), HALVANE_OK);
    EXPECT_EQ(grown.record.geocentric.longitude, sun.geocentric.longitude);
    EXPECT_EQ(grown.record.size, sizeof grown);
    EXPECT_EQ(grown.more, before);
}

TEST(CInterfaceErrors, LargeRecordsThatAreReadMustBeZeroAtTheirEnd) {
    const OwnClock clock = fixed_clock(2);
    Grown<halvane_report_rules> rules{};
    rules.record.size = sizeof rules;
    ASSERT_EQ(halvane_default_report_rules(&rules.record), HALVANE_OK);
    auto prayers = sized<halvane_prayer_day>();
    EXPECT_EQ(halvane_prayer_times(c_engine(), day, cairo, clock.get(), &rules.record, &prayers), HALVANE_OK)
        << halvane_last_error();
    rules.more[20] = 1;
    EXPECT_EQ(halvane_prayer_times(c_engine(), day, cairo, clock.get(), &rules.record, &prayers),
              HALVANE_BAD_ARGUMENT);
    EXPECT_NE(std::string(halvane_last_error()).find("does not know"), std::string::npos);
    rules.record.size = sizeof rules.record - 8;
    EXPECT_EQ(halvane_prayer_times(c_engine(), day, cairo, clock.get(), &rules.record, &prayers),
              HALVANE_BAD_ARGUMENT);
}

TEST(CInterfaceErrors, ArraysOfLargerElementsAreFilledWhereTheirElementsLie) {
    std::array<Grown<halvane_phase_moment>, 6> grown{};
    for (auto& element : grown)
        element.more.fill(0xCD);
    const auto before = grown[0].more;
    std::array<halvane_phase_moment, 6> moments{};
    const halvane_instant later{noon.jd + 40, HALVANE_UT1};
    std::size_t count = 0;
    ASSERT_EQ(halvane_moon_phases(c_engine(), noon, later, nullptr, &grown[0].record, grown.size(),
                                  sizeof grown[0], &count),
              HALVANE_OK);
    ASSERT_EQ(halvane_moon_phases(c_engine(), noon, later, nullptr, moments.data(), moments.size(),
                                  sizeof moments[0], &count),
              HALVANE_OK);
    ASSERT_GE(count, 5U);
    for (std::size_t i = 0; i < count; ++i) {
        EXPECT_EQ(grown[i].record.size, sizeof grown[i]);
        EXPECT_EQ(grown[i].record.lunation, moments[i].lunation);
        EXPECT_EQ(grown[i].record.instant.jd, moments[i].instant.jd);
        EXPECT_EQ(grown[i].more, before);
    }
    EXPECT_EQ(halvane_moon_phases(c_engine(), noon, later, nullptr, moments.data(), moments.size(),
                                  sizeof moments[0] - 1, &count),
              HALVANE_BAD_ARGUMENT);
}

TEST(CInterfaceErrors, SmallArraysAreLeftAloneAndTheNumberIsTold) {
    std::array<halvane_phase_moment, 6> moments{};
    moments[0].lunation = 4711;
    const halvane_instant later{noon.jd + 40, HALVANE_UT1};
    std::size_t wanted = 0;
    EXPECT_EQ(halvane_moon_phases(c_engine(), noon, later, nullptr, nullptr, 0, 0, &wanted),
              HALVANE_TOO_SMALL);
    ASSERT_GE(wanted, 5U);
    std::size_t count = 0;
    EXPECT_EQ(halvane_moon_phases(c_engine(), noon, later, nullptr, moments.data(), wanted - 1,
                                  sizeof moments[0], &count),
              HALVANE_TOO_SMALL);
    EXPECT_EQ(count, wanted);
    EXPECT_EQ(moments[0].lunation, 4711);
    EXPECT_NE(std::string(halvane_last_error()).find(std::to_string(wanted)), std::string::npos);
    EXPECT_EQ(halvane_moon_phases(c_engine(), noon, later, nullptr, moments.data(), wanted, sizeof moments[0],
                                  &count),
              HALVANE_OK);
}

// As in the first version, on 64-bit systems: another number breaks the programs that were built with it. A
// record that grows keeps its number as `first_size`.
TEST(CInterfaceErrors, StructuresKeepTheirFirstSizes) {
    if (sizeof(void*) != 8)
        GTEST_SKIP() << "The sizes are those of 64-bit systems.";
    EXPECT_EQ(sizeof(halvane_date), 12U);
    EXPECT_EQ(sizeof(halvane_hijri_date), 12U);
    EXPECT_EQ(sizeof(halvane_observer), 24U);
    EXPECT_EQ(sizeof(halvane_instant), 16U);
    EXPECT_EQ(sizeof(halvane_clock_time), 16U);
    EXPECT_EQ(sizeof(halvane_horizon), 24U);
    EXPECT_EQ(sizeof(halvane_engine_data), 88U);
    EXPECT_EQ(sizeof(halvane_sun_place), 48U);
    EXPECT_EQ(sizeof(halvane_moon_place), 40U);
    EXPECT_EQ(sizeof(halvane_seen_place), 48U);
    EXPECT_EQ(sizeof(halvane_geocentric_sun), 56U);
    EXPECT_EQ(sizeof(halvane_geocentric_moon), 48U);
    EXPECT_EQ(sizeof(halvane_seen_sun), 104U);
    EXPECT_EQ(sizeof(halvane_seen_moon), 112U);
    EXPECT_EQ(sizeof(halvane_light), 32U);
    EXPECT_EQ(sizeof(halvane_body_day), 56U);
    EXPECT_EQ(sizeof(halvane_twilight_times), 40U);
    EXPECT_EQ(sizeof(halvane_altitude_passage), 32U);
    EXPECT_EQ(sizeof(halvane_phase_moment), 32U);
    EXPECT_EQ(sizeof(halvane_direction_moments), 48U);
    EXPECT_EQ(sizeof(halvane_report_rules), 104U);
    EXPECT_EQ(sizeof(halvane_prayer_day), 104U);
    EXPECT_EQ(sizeof(halvane_iqamah), 12U);
    EXPECT_EQ(sizeof(halvane_timetable_rules), 256U);
    EXPECT_EQ(sizeof(halvane_authority), 48U);
    EXPECT_EQ(sizeof(halvane_timetable_time), 32U);
    EXPECT_EQ(sizeof(halvane_timetable_day), 696U);
    EXPECT_EQ(sizeof(halvane_timetable_place), 32U);
    EXPECT_EQ(sizeof(halvane_crescent_quantities), 72U);
    EXPECT_EQ(sizeof(halvane_crescent_sky), 168U);
    EXPECT_EQ(sizeof(halvane_crescent_evening), 408U);
    EXPECT_EQ(sizeof(halvane_criterion_class), 24U);
    EXPECT_EQ(sizeof(halvane_criterion), 112U);
    EXPECT_EQ(sizeof(halvane_criterion_limits), 48U);
    EXPECT_EQ(sizeof(halvane_verdict), 32U);
    EXPECT_EQ(sizeof(halvane_crescent_answer), 424U);
    EXPECT_EQ(sizeof(halvane_circumstance_choices), 56U);
    EXPECT_EQ(sizeof(halvane_circumstances), 392U);
    EXPECT_EQ(sizeof(halvane_map_choices), 80U);
    EXPECT_EQ(sizeof(halvane_map_grid), 96U);
    EXPECT_EQ(sizeof(halvane_hijri_rule), 64U);
    EXPECT_EQ(sizeof(halvane_announced_start), 32U);
    EXPECT_EQ(sizeof(halvane_hijri_choices), 128U);
    EXPECT_EQ(sizeof(halvane_hijri_month), 72U);
}

int ends_at_once(void* asked, double percent) {
    ++*static_cast<int*>(asked);
    EXPECT_GE(percent, 0);
    EXPECT_LE(percent, 100);
    return 0;
}

int goes_on(void* asked, double) {
    ++*static_cast<int*>(asked);
    return 1;
}

TEST(CInterfaceErrors, TheProgressFunctionEndsTheWork) {
    int asked = 0;
    halvane_map* map = nullptr;
    auto choices = sized<halvane_map_choices>();
    ASSERT_EQ(halvane_default_map_choices(&choices), HALVANE_OK);
    choices.date = {2026, 2, 18};
    choices.step = 10;
    EXPECT_EQ(halvane_crescent_map(c_engine(), &choices, ends_at_once, &asked, &map), HALVANE_CANCELLED);
    EXPECT_EQ(map, nullptr);
    EXPECT_GT(asked, 0);
    asked = 0;
    ASSERT_EQ(halvane_crescent_map(c_engine(), &choices, goes_on, &asked, &map), HALVANE_OK);
    const OwnMap own(map);
    EXPECT_GT(asked, 1);
    auto grid = sized<halvane_map_grid>();
    EXPECT_EQ(halvane_map_grid_at(map, halvane_map_grid_count(map), &grid), HALVANE_BAD_ARGUMENT);

    const OwnClock clock = fixed_clock(2);
    std::vector<halvane_timetable_day> days(400);
    std::size_t count = 99;
    EXPECT_EQ(halvane_timetable(c_engine(), {2026, 1, 1}, {2026, 12, 31}, cairo, clock.get(), nullptr,
                                ends_at_once, &asked, days.data(), days.size(), sizeof days[0], &count),
              HALVANE_CANCELLED);
    EXPECT_EQ(count, 99U);
    EXPECT_EQ(days[0].size, 0U);
    auto months = sized<halvane_hijri_choices>();
    ASSERT_EQ(halvane_default_hijri_choices(&months), HALVANE_OK);
    months.rule = "seen-anywhere";
    // A century: a year may be over before its progress is told.
    std::vector<halvane_hijri_month> rows(1200);
    EXPECT_EQ(halvane_hijri_months(c_engine(), &months, 1400, 1, 1499, 12, ends_at_once, &asked, rows.data(),
                                   rows.size(), sizeof rows[0], &count),
              HALVANE_CANCELLED);
}

int raises(void*, double) {
    throw 42;
}

TEST(CInterfaceErrors, WhatACppCallbackRaisesBecomesAStatus) {
    const OwnClock clock = fixed_clock(2);
    std::vector<halvane_timetable_day> days(31);
    std::size_t count = 0;
    EXPECT_EQ(halvane_timetable(c_engine(), {2026, 1, 1}, {2026, 1, 31}, cairo, clock.get(), nullptr, raises,
                                nullptr, days.data(), days.size(), sizeof days[0], &count),
              HALVANE_OTHER);
}

TEST(CInterfaceErrors, EightThreadsGetTheSameNumbersAndTheirOwnErrors) {
    const OwnClock clock = clock_of_zone("Africa/Cairo");
    constexpr int instants = 60;
    const auto longitudes = [&clock](int thread) {
        std::vector<double> numbers;
        for (int i = 0; i < instants; ++i) {
            const halvane_instant instant{noon.jd + 0.37 * i, HALVANE_UT1};
            auto moon = sized<halvane_seen_moon>();
            EXPECT_EQ(halvane_moon_seen(c_engine(), instant, cairo, HALVANE_COMPLETE, &moon), HALVANE_OK);
            numbers.push_back(moon.topocentric.longitude);
            auto times = sized<halvane_prayer_day>();
            EXPECT_EQ(
                halvane_prayer_times(c_engine(), {2026, 1, 1 + i % 28}, cairo, clock.get(), nullptr, &times),
                HALVANE_OK);
            numbers.push_back(times.times[HALVANE_ISHA].hours);
            const std::string zone = "Nowhere/" + std::to_string(thread);
            halvane_clock* none = nullptr;
            EXPECT_EQ(halvane_clock_of_zone(zone.c_str(), &none), HALVANE_BAD_ARGUMENT);
            EXPECT_NE(std::string(halvane_last_error()).find(zone), std::string::npos);
        }
        return numbers;
    };
    const std::vector<double> alone = longitudes(0);
    std::array<std::vector<double>, 8> found;
    std::vector<std::thread> threads;
    threads.reserve(found.size());
    for (int thread = 0; thread < 8; ++thread)
        threads.emplace_back(
            [&, thread] { found[static_cast<std::size_t>(thread)] = longitudes(thread + 1); });
    for (std::thread& thread : threads)
        thread.join();
    for (const std::vector<double>& numbers : found)
        EXPECT_EQ(numbers, alone);
    std::thread([] { EXPECT_STREQ(halvane_last_error(), ""); }).join();
}

} // namespace
