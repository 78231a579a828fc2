// SPDX-License-Identifier: MIT
#include "halvane/prayer.h"
#include "library/cinterface.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace halvane::v1 {
namespace {

static_assert(HALVANE_FAJER == static_cast<int>(Prayer::fajer));
static_assert(HALVANE_SHUROQ == static_cast<int>(Prayer::shuroq));
static_assert(HALVANE_DHOHUR == static_cast<int>(Prayer::dhohur));
static_assert(HALVANE_ASER == static_cast<int>(Prayer::aser));
static_assert(HALVANE_MAGHREB == static_cast<int>(Prayer::maghreb));
static_assert(HALVANE_ISHA == static_cast<int>(Prayer::isha));
static_assert(HALVANE_PRAYERS == prayers);
static_assert(HALVANE_ROUND_NEAREST == static_cast<int>(Rounding::nearest));
static_assert(HALVANE_ROUND_UP == static_cast<int>(Rounding::up));
static_assert(HALVANE_ROUND_DOWN == static_cast<int>(Rounding::down));
static_assert(HALVANE_RULE_NONE == static_cast<int>(HighLatitudeRule::none));
static_assert(HALVANE_RULE_MIDDLE == static_cast<int>(HighLatitudeRule::middle));
static_assert(HALVANE_RULE_SEVENTH == static_cast<int>(HighLatitudeRule::seventh));
static_assert(HALVANE_RULE_ANGLE == static_cast<int>(HighLatitudeRule::angle));
static_assert(HALVANE_RULE_NEAREST_LATITUDE == static_cast<int>(HighLatitudeRule::nearest_latitude));
static_assert(HALVANE_RULE_SHARE == static_cast<int>(HighLatitudeRule::share));
static_assert(HALVANE_RULE_YEAR == static_cast<int>(HighLatitudeRule::year));
static_assert(HALVANE_USE_MISSING == static_cast<int>(RuleUse::missing));
static_assert(HALVANE_USE_BEYOND == static_cast<int>(RuleUse::beyond));
static_assert(HALVANE_USE_ALWAYS == static_cast<int>(RuleUse::always));
static_assert(HALVANE_IQAMAH_NONE == static_cast<int>(Iqamah::Kind::none));
static_assert(HALVANE_IQAMAH_FIXED == static_cast<int>(Iqamah::Kind::fixed));
static_assert(HALVANE_IQAMAH_AFTER == static_cast<int>(Iqamah::Kind::after));
static_assert(HALVANE_BY_SKY == static_cast<int>(TimeSource::sky));
static_assert(HALVANE_BY_INTERVAL == static_cast<int>(TimeSource::interval));
static_assert(HALVANE_BY_MIDDLE == static_cast<int>(TimeSource::middle));
static_assert(HALVANE_BY_SEVENTH == static_cast<int>(TimeSource::seventh));
static_assert(HALVANE_BY_ANGLE == static_cast<int>(TimeSource::angle));
static_assert(HALVANE_BY_NEAREST_LATITUDE == static_cast<int>(TimeSource::nearest_latitude));
static_assert(HALVANE_BY_SHARE == static_cast<int>(TimeSource::share));
static_assert(HALVANE_BY_YEAR == static_cast<int>(TimeSource::year));

halvane_report_rules record_of(const ReportRules& rules) {
    return {0,
            rules.fajer_angle,
            rules.isha_angle,
            rules.hanafi,
            rules.fajer_earlier,
            rules.dhohur_later,
            rules.aser_later,
            rules.maghreb_later,
            rules.city,
            horizon_value(rules.horizon),
            rules.high_latitude};
}

ReportRules rules_of(const halvane_report_rules* given) {
    const halvane_report_rules rules = read_record(given, "rules", [] { return record_of(ReportRules{}); });
    return {rules.fajer_angle,         rules.isha_angle,        rules.hanafi != 0,   rules.fajer_earlier,
            rules.dhohur_later,        rules.aser_later,        rules.maghreb_later, rules.city,
            horizon_of(rules.horizon), rules.high_latitude != 0};
}

halvane_timetable_rules record_of(const TimetableRules& rules) {
    halvane_timetable_rules record{};
    record.fajer_angle = rules.fajer_angle;
    record.isha_angle = rules.isha_angle;
    record.isha_minutes = rules.isha_minutes;
    record.isha_minutes_ramadan = rules.isha_minutes_ramadan;
    record.maghreb_angle = rules.maghreb_angle;
    record.hanafi = rules.hanafi;
    record.height_counts = rules.height_counts;
    for (std::size_t i = 0; i < prayers; ++i) {
        record.added[i] = rules.added[i];
        record.rounding[i] = static_cast<int>(rules.rounding[i]);
        record.iqamah[i] = {static_cast<int>(rules.iqamah[i].kind), rules.iqamah[i].minutes,
                            rules.iqamah[i].up_to_five};
    }
    record.high_latitude = static_cast<int>(rules.high_latitude);
    record.rule_use = static_cast<int>(rules.rule_use);
    record.reference_latitude = rules.reference_latitude;
    record.night_until_fajer = rules.night_until_fajer;
    record.imsak_minutes = rules.imsak_minutes;
    record.seconds = rules.seconds;
    record.jumuah_count = std::min(rules.jumuah.size(), std::size(record.jumuah));
    std::copy_n(rules.jumuah.begin(), record.jumuah_count, record.jumuah);
    return record;
}

TimetableRules rules_of(const halvane_timetable_rules* given) {
    const halvane_timetable_rules record =
        read_record(given, "rules", [] { return record_of(TimetableRules{}); });
    require_within("The number of clocks of Jumuah", static_cast<double>(record.jumuah_count), 0,
                   HALVANE_JUMUAH);
    TimetableRules rules;
    rules.fajer_angle = record.fajer_angle;
    rules.isha_angle = record.isha_angle;
    rules.isha_minutes = record.isha_minutes;
    rules.isha_minutes_ramadan = record.isha_minutes_ramadan;
    rules.maghreb_angle = record.maghreb_angle;
    rules.hanafi = record.hanafi != 0;
    rules.height_counts = record.height_counts != 0;
    for (std::size_t i = 0; i < prayers; ++i) {
        rules.added[i] = record.added[i];
        rules.rounding[i] = static_cast<Rounding>(record.rounding[i]);
        rules.iqamah[i] = {static_cast<Iqamah::Kind>(record.iqamah[i].kind), record.iqamah[i].minutes,
                           record.iqamah[i].up_to_five != 0};
    }
    rules.high_latitude = static_cast<HighLatitudeRule>(record.high_latitude);
    rules.rule_use = static_cast<RuleUse>(record.rule_use);
    rules.reference_latitude = record.reference_latitude;
    rules.night_until_fajer = record.night_until_fajer != 0;
    rules.imsak_minutes = record.imsak_minutes;
    rules.seconds = record.seconds != 0;
    rules.jumuah.assign(record.jumuah, record.jumuah + record.jumuah_count);
    return rules;
}

halvane_timetable_time time_of(const TimetableTime& time) {
    return same<halvane_timetable_time>(time);
}

halvane_timetable_day record_of(const TimetableDay& day) {
    halvane_timetable_day record{};
    record.date = same<halvane_date>(day.date);
    record.hijri = same<halvane_hijri_date>(day.hijri);
    record.weekday = day.weekday;
    std::transform(day.times.begin(), day.times.end(), record.times, time_of);
    record.aser_standard = time_of(day.aser_standard);
    record.aser_hanafi = time_of(day.aser_hanafi);
    record.imsak = time_of(day.imsak);
    record.midnight = time_of(day.midnight);
    record.last_third = time_of(day.last_third);
    std::transform(day.iqamah.begin(), day.iqamah.end(), record.iqamah, time_of);
    record.jumuah_count = std::min(day.jumuah.size(), std::size(record.jumuah));
    std::transform(day.jumuah.begin(), day.jumuah.begin() + static_cast<std::ptrdiff_t>(record.jumuah_count),
                   record.jumuah, time_of);
    record.offset = day.offset;
    record.clock_changes = day.clock_changes;
    return record;
}

/// How many days from one date to another, both inside; 0 where the second is the earlier one.
std::size_t days_between(const Date& first, const Date& last) {
    const double days = julian_day(last) - julian_day(first) + 1;
    return days > 0 ? static_cast<std::size_t>(std::lround(days)) : 0;
}

const std::vector<Authority>& authority_list() {
    static const std::vector<Authority> list = authorities();
    return list;
}

} // namespace
} // namespace halvane::v1

using namespace halvane::v1;

halvane_status halvane_default_report_rules(halvane_report_rules* rules) {
    return called([&] { Filled(rules, "rules").set(record_of(ReportRules{})); });
}

halvane_status halvane_prayer_times(const halvane_engine* engine, halvane_date date,
                                    halvane_observer observer, const halvane_clock* clock,
                                    const halvane_report_rules* rules, halvane_prayer_day* day) {
    return called([&] {
        const Filled filled(day, "day");
        const PrayerTimes found = prayer_times(engine_of(engine), same<Date>(date), same<Observer>(observer),
                                               clock_of(clock), rules_of(rules));
        halvane_prayer_day record{};
        std::transform(found.times.begin(), found.times.end(), record.times,
                       [](const ClockTime& time) { return same<halvane_clock_time>(time); });
        filled.set(std::move(record)); // NOLINT(performance-move-const-arg): it is given away
    });
}

halvane_status halvane_default_timetable_rules(halvane_timetable_rules* rules) {
    return called([&] { Filled(rules, "rules").set(record_of(TimetableRules{})); });
}

size_t halvane_authority_count(void) {
    return count_of(authority_list);
}

halvane_status halvane_authority_at(size_t index, halvane_authority* authority) {
    return called([&] {
        const Filled filled(authority, "authority");
        const Authority& found = element_of(authority_list(), index);
        filled.set({0, found.key.c_str(), found.name.c_str(), found.arabic_name.c_str(), found.region.c_str(),
                    found.source.c_str()});
    });
}

halvane_status halvane_rules_of_authority(const char* key, halvane_timetable_rules* rules) {
    return called([&] {
        const Filled filled(rules, "rules");
        filled.set(record_of(rules_of_authority(text_of(key, "key"))));
    });
}

halvane_status halvane_timetable(const halvane_engine* engine, halvane_date first, halvane_date last,
                                 halvane_observer observer, const halvane_clock* clock,
                                 const halvane_timetable_rules* rules, halvane_progress progress,
                                 void* context, halvane_timetable_day* days, size_t capacity,
                                 size_t element_size, size_t* count) {
    return called([&] {
        const FilledArray filled(days, capacity, element_size, count, "days");
        const Engine& own = engine_of(engine);
        const Clock& own_clock = clock_of(clock);
        const TimetableRules own_rules = rules_of(rules);
        filled.require_room(days_between(same<Date>(first), same<Date>(last)));
        CalledProgress told(progress, context);
        filled.set_all(timetable(own, same<Date>(first), same<Date>(last), same<Observer>(observer),
                                 own_clock, own_rules, told.pointer()),
                       [](const TimetableDay& day) { return record_of(day); });
    });
}

halvane_status halvane_timetables(const halvane_engine* engine, halvane_date first, halvane_date last,
                                  const halvane_timetable_place* places, size_t place_count,
                                  const halvane_timetable_rules* rules, halvane_progress progress,
                                  void* context, halvane_timetable_day* days, size_t capacity,
                                  size_t element_size, size_t* count) {
    return called([&] {
        const FilledArray filled(days, capacity, element_size, count, "days");
        const Engine& own = engine_of(engine);
        const TimetableRules own_rules = rules_of(rules);
        const std::size_t days_each = days_between(same<Date>(first), same<Date>(last));
        filled.require_room(days_each * place_count);
        std::vector<TimetablePlace> own_places;
        for (std::size_t i = 0; i < place_count; ++i) {
            const halvane_timetable_place& place = (&required(places, "places"))[i];
            own_places.push_back({same<Observer>(place.observer), clock_of(place.clock)});
        }
        CalledProgress told(progress, context);
        std::size_t index = 0;
        for (const std::vector<TimetableDay>& of_place :
             timetables(own, same<Date>(first), same<Date>(last), own_places, own_rules, told.pointer()))
            for (const TimetableDay& day : of_place)
                filled.set(index++, record_of(day));
        filled.set_count(index);
    });
}
