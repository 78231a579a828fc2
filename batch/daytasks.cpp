// SPDX-License-Identifier: MIT
#include "batch/daytasks.h"

#include "base/version.h"
#include "batch/recordoptions.h"
#include "batch/runoutput.h"
#include "calendar/civildate.h"
#include "calendar/locationclock.h"
#include "calendar/modjul.h"
#include "hijri/keptrule.h"
#include "prayer/dayrun.h"
#include "prayer/nextprayer.h"
#include "prayer/prayermoments.h"
#include "report/reportrun.h"
#include "report/valuetext.h"
#include "routines/machineclock.h"
#include "routines/seriesloader.h"
#include "stored/programfolder.h"
#include "timetable/rowtexts.h"
#include "timetable/timetablecolumns.h"

#include <CLI/CLI.hpp>

#include <array>
#include <cmath>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>

namespace halvane {
namespace {

struct DayOptions {
    RunOutput output;
    RecordOptions records;
    bool json = false;
};

std::shared_ptr<DayOptions> day_options() {
    auto options = std::make_shared<DayOptions>();
    options->records.days = DayUse::today;
    options->records.files = {RecordFile::preferences, RecordFile::location};
    return options;
}

/// These tasks need no folder.
Supposition suppose_day(const RecordOptions& options) {
    take_delivered_files();
    return suppose(options);
}

// --- The next prayer ---

const ColumnNames& names_of(const NextPrayer& next) {
    constexpr std::array columns{TimetableColumn::fajer, TimetableColumn::shuroq,  TimetableColumn::dhohur,
                                 TimetableColumn::aser,  TimetableColumn::maghreb, TimetableColumn::isha};
    return names_of(columns.at(next.column));
}

std::vector<PrayerMoment> moments_of(const ClockPlace& place, double jd) {
    const Location there = place.on(jd);
    const DateNumbers date = civil_date(jd);
    const double day = day_count_of(
        {static_cast<int>(date.year), static_cast<int>(date.month), static_cast<int>(date.day), 0, 0, 0});
    std::vector<PrayerMoment> moments = prayer_moments(
        prayer_times(loaded_theory(), place.preferences, there, jd), day, place.preferences, there);
    sort_by_time(moments);
    return moments;
}

/// The next prayer after an instant of the date `jd`. A neighbouring day is calculated only where one of its
/// prayers can be the next: the Isha of the day before, and the Fajer of the day after.
/// In     now  Universal Time since the platform's day 0                                            [s]
std::optional<NextPrayer> next_prayer_at(const ClockPlace& place, double jd, double now) {
    const std::vector<PrayerMoment> today = moments_of(place, jd);
    std::optional<NextPrayer> next = next_prayer(today, now);
    if (next && today.front().seconds <= now)
        return next;
    std::vector<PrayerMoment> all = moments_of(place, jd + (next ? -1 : 1));
    all.insert(all.end(), today.begin(), today.end());
    sort_by_time(all);
    return next_prayer(all, now);
}

/// "2026-02-18T17:25:00+03:00"
std::string instant_of(const NextPrayer& next, const DateNumbers& date) {
    constexpr int day = static_cast<int>(seconds_per_day);
    double jd = 0;
    modjul(date.year, date.month, date.day, 0, jd);
    const int shown = next.clock.seconds;
    const double offset = next.day * seconds_per_day + shown - next.seconds;
    return instant_text(jd, {shown / day, shown % day, static_cast<int>(std::lround(offset))});
}

std::string json_of(const NextPrayer& next, const std::string& place) {
    const DateNumbers date = date_of(clock_at(next.day * seconds_per_day));
    nlohmann::ordered_json told;
    told["program"] = "Halvane";
    told["version"] = version;
    told["task"] = "next";
    told["place"] = place;
    told["prayer"] = names_of(next).key;
    told["name"] = names_of(next).halvane.english;
    told["date"] = iso_date(date);
    told["clock"] = text_of(next.clock);
    told["instant"] = instant_of(next, date);
    told["minutes_left"] = next.minutes_left;
    return told.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

int run_next(const DayOptions& options) {
    const Supposition supposed = suppose_day(options.records);
    load_term();
    load_mterm();
    const ClockPlace& place = supposed.place;
    const MachineTime clock = place.now();
    double jd = 0;
    modjul(clock.year, clock.month, clock.day, 0, jd);
    const std::optional<NextPrayer> next = next_prayer_at(place, jd, place.universal_now());
    if (!next) {
        std::cerr << "halvane-report: no prayer has a time today or tomorrow at " << place.location.name
                  << ".\n";
        return status_failure;
    }
    const std::string text = options.json ? json_of(*next, place.location.name)
                                          : names_of(*next).halvane.english + (" " + text_of(next->clock)) +
                                                " " + std::to_string(next->minutes_left) + " min";
    return save_text(text, options.output.file);
}

// --- A day ---

/// The Hijri date by the kept rule, by the tabular calendar where none is kept.
void tell_hijri(DayAsked& asked) {
    constexpr double noon = 0.5;
    double jd = 0;
    modjul(asked.date.year, asked.date.month, asked.date.day, 0, jd);
    const HijriDate tabular = hijri_of_civil(asked.date.year, asked.date.month, asked.date.day);
    if (tabular.year >= 1)
        asked.hijri = tabular;
    asked.hijri_rule = "tabular";
    const std::optional<HijriChoice> choice = kept_hijri_rule();
    if (!choice || !asked.hijri)
        return;
    load_series();
    const HijriReckoningPointer reckoning = reckoning_of(loaded_theory(), *choice, asked.date.year);
    if (!reckoning)
        return;
    if (const auto date = reckoning->months(jd + noon, jd + noon).date_of(jd + noon)) {
        asked.hijri = *date;
        asked.hijri_rule = reckoning->name.english;
    }
}

DayAsked asked_of(const Supposition& supposed) {
    DayAsked asked;
    asked.preferences = read_pref();
    asked.location = read_loc();
    asked.date = supposed.date;
    return asked;
}

template <class Make>
Task day_run_task(const char* name, const char* description, Make make) {
    const auto options = day_options();
    return {name, description,
            [options](CLI::App& command) {
                add_record_options(command, options->records);
                add_output_options(command, options->output);
            },
            [options, make](Progress& progress) {
                const Supposition supposed = suppose_day(options->records);
                load_term();
                load_mterm();
                return write_and_tell(*make(supposed), options->output, progress);
            }};
}

} // namespace

Task next_task() {
    const auto options = day_options();
    return {"next", "The next prayer, its clock and the minutes left, in a line for status bars",
            [options](CLI::App& command) {
                add_record_options(command, options->records);
                command.remove_option(command.get_option("--date"));
                command.add_flag("--json", options->json, "One JSON object in one line");
                command
                    .add_option("--output", options->output.file,
                                "File to write; standard output when not given")
                    ->type_name("FILE");
            },
            [options](Progress& /*progress*/) { return run_next(*options); }};
}

Task day_task() {
    return day_run_task("day", "The prayer times, the Hijri date and the Moon of a day, on standard output",
                        [](const Supposition& supposed) {
                            load_elp();
                            DayAsked asked = asked_of(supposed);
                            tell_hijri(asked);
                            return day_run(loaded_theory(), asked);
                        });
}

Task sun_task() {
    return day_run_task(
        "sun", "Twilights, rise, transit and set of the Sun on a day, on standard output",
        [](const Supposition& supposed) { return sun_run(loaded_theory(), asked_of(supposed)); });
}

} // namespace halvane
