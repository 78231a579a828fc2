// SPDX-License-Identifier: MIT
#include "batch/recordoptions.h"

#include "base/numberformat.h"
#include "batch/nearestname.h"
#include "batch/usagemistake.h"
#include "calendar/civildate.h"
#include "calendar/locationclock.h"
#include "calendar/modjul.h"
#include "calendar/modsummer.h"
#include "report/reportrun.h"
#include "routines/machineclock.h"
#include "stored/programfolder.h"
#include "timetable/span.h"
#include "zones/summertime.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cmath>
#include <variant>

namespace halvane {
namespace {

bool is_any(DayUse use, std::initializer_list<DayUse> uses) {
    return std::find(uses.begin(), uses.end(), use) != uses.end();
}

DaySpan span_of(const SpanAnswer& answer) {
    if (answer.refused)
        throw UsageMistake(answer.refused->english);
    return answer.span;
}

/// The days that the options name; nothing when they name none.
std::optional<DaySpan> given_days(const RecordOptions& options) {
    if (!options.month.empty())
        return span_of(month_span(options.month));
    if (!options.year.empty())
        return span_of(year_span(options.year));
    if (!options.date.empty())
        return span_of(dates_span(options.date, options.date));
    if (options.from.empty())
        return std::nullopt;
    DaySpan span = span_of(dates_span(options.from, options.from));
    if (!options.to.empty())
        span.last = span_of(dates_span(options.to, options.to)).last;
    if (span.last < span.first)
        throw UsageMistake("--to: the last day comes before the first");
    return span;
}

/// The setting of which one word, or the whole name, is nearest to a typed name.
std::string nearest_setting(const std::string& typed, const std::vector<std::string>& names) {
    std::vector<std::string> words;
    std::vector<std::size_t> owners;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::string field = names[i].substr(names[i].find('.') + 1);
        std::vector<std::string> of_name{names[i], field};
        const std::vector<std::string> parts = CLI::detail::split(field, '-');
        of_name.insert(of_name.end(), parts.begin(), parts.end());
        for (std::string& word : of_name) {
            words.push_back(std::move(word));
            owners.push_back(i);
        }
    }
    const std::string nearest = nearest_name(typed, words);
    return names[owners[static_cast<std::size_t>(std::find(words.begin(), words.end(), nearest) -
                                                 words.begin())]];
}

void take_setting(TypedRecords& records, const std::string& text) {
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos)
        throw UsageMistake("--set: wanted FIELD=VALUE, found \"" + text + "\"");
    const std::string name = text.substr(0, equals);
    const std::string value = text.substr(equals + 1);
    const TypedAnswer answer = records.take(name, value);
    if (answer.answer == FieldAnswer::no_value)
        throw UsageMistake("--set " + name + ": wanted " + answer.range + ", found \"" + value + "\"");
    if (answer.answer == FieldAnswer::taken)
        return;
    throw UsageMistake("--set: this task reads no setting \"" + name + "\"; the nearest is \"" +
                       nearest_setting(name, records.names()) + "\"");
}

// --- The days ---

void take_period(CalculationDate& date, const DaySpan& span) {
    date.start = date.from = civil_date(span.first);
    date.end = date.to = civil_date(span.last);
    date.one = date.start;
    date.one_day = span.first == span.last;
    date.period = !date.one_day;
    date.system_date = false;
}

void take_table(EphemerisSettings& table, const DaySpan& span) {
    const DateNumbers first = civil_date(span.first);
    const DateNumbers last = civil_date(span.last);
    table.start_year = first.year;
    table.start_month = first.month;
    table.start_day = first.day;
    table.start_hour = table.start_minute = table.start_second = 0;
    table.end_year = last.year;
    table.end_month = last.month;
    table.end_day = last.day;
    table.end_hour = 23;
    table.end_minute = table.end_second = 59;
}

void take_crescent(CrescentSettings& crescent, const DaySpan& span) {
    constexpr double midnight = 0.5;
    const DateNumbers middle = civil_date(std::floor((span.first + span.last) / 2 + midnight) - midnight);
    crescent.day = plain_number(middle.day);
    crescent.month = plain_number(middle.month);
    crescent.year = plain_number(middle.year);
    crescent.gregorian = true;
    crescent.hijri = false;
}

void take_days(TypedRecords& records, const RecordOptions& options, const DaySpan& span) {
    const auto has = [&options](RecordFile file) {
        return std::find(options.files.begin(), options.files.end(), file) != options.files.end();
    };
    if (has(RecordFile::date) && options.days == DayUse::period)
        take_period(records.date(), span);
    if (has(RecordFile::ephemeris))
        take_table(records.ephemeris(), span);
    if (has(RecordFile::phase))
        records.phase().year = plain_number(civil_date(span.first).year);
    if (has(RecordFile::crescent))
        take_crescent(records.crescent(), span);
    if (has(RecordFile::telescope)) {
        const DateNumbers date = civil_date(span.first);
        TelescopeSettings& telescope = records.telescope();
        telescope.year = date.year;
        telescope.month = date.month;
        telescope.day = date.day;
    }
}

// --- The place ---

double number_of(const std::string& text) {
    return numeric_prefix(text);
}

/// The first and the last civil year of a task's records.
std::pair<double, double> years_of(TypedRecords& records, const RecordOptions& options) {
    const double present = options.of_year.value_or(machine_time().year);
    std::pair<double, double> years{present, present};
    for (const RecordFile file : options.files)
        switch (file) {
        case RecordFile::date:
            if (!records.date().system_date)
                years = {records.date().start.year, records.date().end.year};
            break;
        case RecordFile::phase:
            years.first = years.second = number_of(records.phase().year);
            break;
        case RecordFile::crescent:
            if (records.crescent().gregorian)
                years.first = years.second = number_of(records.crescent().year);
            break;
        case RecordFile::ephemeris:
            years = {records.ephemeris().start_year, records.ephemeris().end_year};
            break;
        case RecordFile::telescope:
            years.first = years.second = records.telescope().year;
            break;
        case RecordFile::preferences:
        case RecordFile::location:
            break;
        }
    return years;
}

/// A clock as the records keep it: its zone, and the days of its summer time.
struct KeptClock {
    double zone = 0; ///< from Universal Time, east positive                                            [h]
    std::optional<SummerSpan> summer;
};

bool same_days(const DateNumbers& a, const DateNumbers& b) {
    return a.month == b.month && a.day == b.day;
}

bool alike(const KeptClock& a, const KeptClock& b) {
    return a.zone == b.zone && a.summer.has_value() == b.summer.has_value() &&
           (!a.summer ||
            (same_days(a.summer->first, b.summer->first) && same_days(a.summer->last, b.summer->last)));
}

KeptClock kept_clock(const TimeZone& zone, int year) {
    constexpr const char* remedy = " Give --zone and the hours, or other days.";
    KeptClock kept{least_hours_of(zone, year), std::nullopt};
    const SummerTime summer = summer_time_of(zone, kept.zone, year);
    if (const auto* refused = std::get_if<Refusal>(&summer))
        throw UsageMistake(refused->text.english + remedy);
    if (const auto* span = std::get_if<SummerSpan>(&summer))
        kept.summer = *span;
    return kept;
}

KeptClock kept_clock(const TimeZone& zone, double first, double last) {
    constexpr double most_years = 500; // more are refused by the tasks or take years of their own
    const KeptClock kept = kept_clock(zone, static_cast<int>(first));
    for (double year = first + 1; year <= std::min(last, first + most_years); ++year)
        if (!alike(kept, kept_clock(zone, static_cast<int>(year))))
            throw UsageMistake("the clock of " + zone.name() + " changes in other ways in " +
                               plain_number(first) + " and in " + plain_number(year) +
                               ": ask for one year, or give --zone and the hours");
    return kept;
}

void take_clock(TypedRecords& records, const KeptClock& clock) {
    records.location().zone = clock.zone;
    Preferences& preferences = records.preferences();
    preferences.summer_time = clock.summer ? "1" : "0";
    if (!clock.summer)
        return;
    preferences.summer_from_month = clock.summer->first.month;
    preferences.summer_from_day = clock.summer->first.day;
    preferences.summer_to_month = clock.summer->last.month;
    preferences.summer_to_day = clock.summer->last.day;
}

/// A table of the ephemeris has one clock from its first row to its last: that of its first noon.
void take_clock_of_table(TypedRecords& records, const TimeZone& zone) {
    EphemerisSettings& table = records.ephemeris();
    double jd = 0;
    modjul(table.start_year, table.start_month, table.start_day, 0, jd);
    records.location().zone = zone.offset_on(jd) / seconds_per_hour;
    table.summer_time = 0;
}

/// The place of the options in the records, but for tasks of single days its clock.
TimetablePlace take_place(TypedRecords& records, const RecordOptions& options) {
    TimetablePlace place = place_of(options.place);
    records.location() = place.location;
    if (!place.zone && options.place.by_numbers())
        records.preferences().summer_time = "0";
    if (!place.zone || options.days == DayUse::today)
        return place;
    const bool is_table =
        std::find(options.files.begin(), options.files.end(), RecordFile::ephemeris) != options.files.end();
    if (is_table) {
        take_clock_of_table(records, *place.zone);
    } else {
        const auto [first, last] = years_of(records, options);
        take_clock(records, kept_clock(*place.zone, first, last));
    }
    return place;
}

/// Whether a setting of the clock is given by hand, which then holds.
bool sets_clock(const RecordOptions& options) {
    return std::any_of(options.sets.begin(), options.sets.end(), [](const std::string& text) {
        const std::size_t point = text.find('.');
        const std::string name = text.substr(point < text.find('=') ? point + 1 : 0);
        return name.starts_with("zone=") || name.starts_with("summer-");
    });
}

void add_set_option(CLI::App& command, RecordOptions& options) {
    command
        .add_option("--set", options.sets,
                    "A setting of the stored files by its name, such as pref.fajer-angle=19.5, for this run "
                    "alone; may be given again")
        ->type_name("FIELD=VALUE")
        ->allow_extra_args(false);
}

} // namespace

RecordOptions settings_alone() {
    RecordOptions options;
    options.takes_place = false;
    options.files = {RecordFile::preferences, RecordFile::location};
    return options;
}

Location ClockPlace::on(double jd) const {
    Location there = location;
    if (zone)
        there.zone = zone->offset_on(jd) / seconds_per_hour;
    return there;
}

MachineTime ClockPlace::now() const {
    if (machine_time_is_set())
        return machine_time();
    const MachineTime universal = universal_time();
    if (!zone)
        return location_clock(preferences, location, universal).time;
    return clock_at(seconds_of(universal) + zone->offset_at_second(utc_second_now()));
}

double ClockPlace::universal_now() const {
    if (!machine_time_is_set())
        return seconds_of(universal_time());
    const MachineTime clock = now();
    const double local = seconds_of(clock);
    if (!zone)
        return local - hours_ahead(preferences, location, day_count_of(clock)) * seconds_per_hour;
    constexpr MachineTime unix_epoch{1970, 1, 1, 0, 0, 0};
    return local - zone->offset_of_local(std::llround(local - seconds_of(unix_epoch)));
}

void add_record_options(CLI::App& command, RecordOptions& options) {
    if (options.takes_place)
        add_place_options(command, options.place);
    std::vector<CLI::Option*> days;
    const auto add = [&](const char* name, std::string& target, const char* form, const char* words) {
        return days.emplace_back(command.add_option(name, target, words)->type_name(form));
    };
    const DayUse use = options.days;
    if (is_any(use, {DayUse::today, DayUse::instant}))
        add("--date", options.date, "YYYY-MM-DD",
            use == DayUse::today ? "A day; today when none is given" : "The day of the stored clock");
    if (use == DayUse::crescent)
        add("--date", options.date, "YYYY-MM-DD",
            "The crescent of the conjunction about a day, as its panel finds it");
    if (use == DayUse::period) {
        CLI::Option* const from = add("--from", options.from, "YYYY-MM-DD", "First day");
        command.add_option("--to", options.to, "Last day, with --from; without it one day")
            ->type_name("YYYY-MM-DD")
            ->needs(from);
    }
    if (is_any(use, {DayUse::period, DayUse::crescent, DayUse::month}))
        add("--month", options.month, "YYYY-MM",
            use == DayUse::period ? "The days of a month" : "The crescent about the middle of a month");
    if (is_any(use, {DayUse::period, DayUse::year}))
        add("--year", options.year, "YYYY", use == DayUse::period ? "The days of a year" : "A year");
    for (CLI::Option* const option : days)
        for (CLI::Option* const other : days)
            if (option != other)
                option->excludes(other);
    add_set_option(command, options);
}

Supposition suppose(const RecordOptions& options) {
    check_place_options(options.place);
    if (options.is_given() || is_without_stored_files())
        take_delivered_files();
    Supposition made;
    made.records = std::make_unique<TypedRecords>(options.files);
    TypedRecords& records = *made.records;
    const std::optional<DaySpan> span = given_days(options);
    if (span)
        take_days(records, options, *span);
    std::optional<TimetablePlace> place;
    if (options.takes_place && options.has_place())
        place = take_place(records, options);
    for (const std::string& text : options.sets)
        take_setting(records, text);
    if (options.days == DayUse::today) {
        made.place = {records.location(), records.preferences(), std::nullopt};
        if (place && place->zone && !sets_clock(options)) {
            made.place.zone = place->zone;
            made.place.preferences.summer_time = "0";
        }
        if (span)
            made.date = civil_date(span->first);
        else
            made.date = date_of(place ? made.place.now() : machine_time());
        double jd = 0;
        modjul(made.date.year, made.date.month, made.date.day, 0, jd);
        records.location() = made.place.on(jd);
        records.preferences() = made.place.preferences;
    }
    records.suppose();
    return made;
}

} // namespace halvane
