// SPDX-License-Identifier: MIT
#include "python/module.h"

#include <vector>

namespace halvane_python {
namespace {

using halvane::Clock;
using halvane::Date;
using halvane::Engine;
using halvane::Observer;
using halvane::TimetableDay;
using halvane::TimetableRules;
using halvane::TimetableTime;

constexpr std::size_t most_jumuah = 3;

/// The times of a row, in the order of the package's `TIMETABLE_COLUMNS`.
constexpr std::size_t columns = 2 * halvane::prayers + 5 + most_jumuah;

std::array<TimetableTime, columns> times_of(const TimetableDay& day) {
    std::array<TimetableTime, columns> times;
    auto next = std::copy(day.times.begin(), day.times.end(), times.begin());
    for (const TimetableTime& time :
         {day.aser_standard, day.aser_hanafi, day.imsak, day.midnight, day.last_third})
        *next++ = time;
    next = std::copy(day.iqamah.begin(), day.iqamah.end(), next);
    std::copy_n(day.jumuah.begin(), std::min(day.jumuah.size(), most_jumuah), next);
    return times;
}

template <class Value>
class Filled {
public:
    explicit Filled(const std::vector<py::ssize_t>& shape) : array_(shape), next_(array_.mutable_data()) {}
    void put(auto value) { *next_++ = static_cast<Value>(value); }
    const py::array_t<Value>& array() const { return array_; }

private:
    py::array_t<Value> array_;
    Value* next_;
};

/// The rows of many places as arrays: those of a time have the axes place, day, column, those of a day place
/// and day, those of a date day and member.
py::dict arrays_of(const std::vector<std::vector<TimetableDay>>& tables) {
    const auto places = static_cast<py::ssize_t>(tables.size());
    const auto days = static_cast<py::ssize_t>(tables.empty() ? 0 : tables.front().size());
    const std::vector<py::ssize_t> of_time{places, days, static_cast<py::ssize_t>(columns)};
    const std::vector<py::ssize_t> of_day{places, days};
    const std::vector<py::ssize_t> of_date{days, 3};
    Filled<std::int64_t> unix_seconds(of_time);
    Filled<std::int32_t> seconds(of_time), offset(of_time), noon_offset(of_day), date(of_date),
        hijri(of_date);
    Filled<std::int8_t> day_after(of_time), missing(of_time), source(of_time), weekday({days});
    Filled<std::int8_t> jumuah(std::vector<py::ssize_t>{days});
    Filled<bool> clock_changes(of_day);
    unlocked([&] {
        for (const std::vector<TimetableDay>& table : tables)
            for (const TimetableDay& day : table) {
                for (const TimetableTime& time : times_of(day)) {
                    unix_seconds.put(time.unix_seconds);
                    seconds.put(time.seconds);
                    offset.put(time.offset);
                    day_after.put(time.day);
                    missing.put(time.missing);
                    source.put(time.source);
                }
                noon_offset.put(day.offset);
                clock_changes.put(day.clock_changes);
            }
        if (tables.empty())
            return;
        for (const TimetableDay& day : tables.front()) {
            for (const int member : {day.date.year, day.date.month, day.date.day})
                date.put(member);
            for (const int member : {day.hijri.year, day.hijri.month, day.hijri.day})
                hijri.put(member);
            weekday.put(day.weekday);
            jumuah.put(day.jumuah.size());
        }
    });
    py::dict arrays;
    arrays["unix_seconds"] = unix_seconds.array();
    arrays["seconds"] = seconds.array();
    arrays["offset"] = offset.array();
    arrays["day"] = day_after.array();
    arrays["missing"] = missing.array();
    arrays["source"] = source.array();
    arrays["noon_offset"] = noon_offset.array();
    arrays["clock_changes"] = clock_changes.array();
    arrays["date"] = date.array();
    arrays["hijri"] = hijri.array();
    arrays["weekday"] = weekday.array();
    arrays["jumuah_clocks"] = jumuah.array();
    return arrays;
}

py::dict timetable(const Engine& engine, const Date& first, const Date& last, const Observer& observer,
                   const Clock& clock, const TimetableRules& rules, const py::object& progress) {
    std::vector<std::vector<TimetableDay>> one(1);
    one[0] = told(progress, [&](halvane::Progress* python) {
        return halvane::timetable(engine, first, last, observer, clock, rules, python);
    });
    return arrays_of(one);
}

py::dict timetables(const Engine& engine, const Date& first, const Date& last,
                    const std::vector<std::pair<Observer, Clock>>& places, const TimetableRules& rules,
                    const py::object& progress) {
    std::vector<halvane::TimetablePlace> own;
    own.reserve(places.size());
    for (const auto& [observer, clock] : places)
        own.push_back({observer, clock});
    return arrays_of(told(progress, [&](halvane::Progress* python) {
        return halvane::timetables(engine, first, last, own, rules, python);
    }));
}

std::array<halvane::ClockTime, halvane::prayers> prayer_times(const Engine& engine, const Date& date,
                                                              const Observer& observer, const Clock& clock,
                                                              const halvane::ReportRules& rules) {
    return unlocked([&] { return halvane::prayer_times(engine, date, observer, clock, rules); }).times;
}

py::list authorities() {
    py::list list;
    for (const halvane::Authority& authority : halvane::authorities())
        list.append(py::make_tuple(authority.key, authority.name, authority.arabic_name, authority.region,
                                   authority.source));
    return list;
}

/// A member that is a word, as its number.
template <class Rules, class Word>
void add_word(py::class_<Rules>& rules, const char* name, Word Rules::*member) {
    rules.def_property(
        name, [member](const Rules& own) { return static_cast<int>(own.*member); },
        [member](Rules& own, int number) { own.*member = static_cast<Word>(number); });
}

using Roundings = std::array<int, halvane::prayers>;
using Iqamahs = std::array<std::tuple<int, int, bool>, halvane::prayers>;

Roundings roundings(const TimetableRules& rules) {
    Roundings numbers{};
    std::transform(rules.rounding.begin(), rules.rounding.end(), numbers.begin(),
                   [](halvane::Rounding rounding) { return static_cast<int>(rounding); });
    return numbers;
}

void set_roundings(TimetableRules& rules, const Roundings& numbers) {
    std::transform(numbers.begin(), numbers.end(), rules.rounding.begin(),
                   [](int number) { return static_cast<halvane::Rounding>(number); });
}

Iqamahs iqamahs(const TimetableRules& rules) {
    Iqamahs members;
    std::transform(rules.iqamah.begin(), rules.iqamah.end(), members.begin(),
                   [](const halvane::Iqamah& iqamah) {
                       return std::tuple(static_cast<int>(iqamah.kind), iqamah.minutes, iqamah.up_to_five);
                   });
    return members;
}

void set_iqamahs(TimetableRules& rules, const Iqamahs& members) {
    std::transform(members.begin(), members.end(), rules.iqamah.begin(), [](const auto& iqamah) {
        const auto [kind, minutes, up_to_five] = iqamah;
        return halvane::Iqamah{static_cast<halvane::Iqamah::Kind>(kind), minutes, up_to_five};
    });
}

void add_report_rules(py::module_& module) {
    using halvane::ReportRules;
    py::class_<ReportRules>(module, "ReportRules")
        .def(py::init<>())
        .def_readwrite("fajer_angle", &ReportRules::fajer_angle)
        .def_readwrite("isha_angle", &ReportRules::isha_angle)
        .def_readwrite("hanafi", &ReportRules::hanafi)
        .def_readwrite("fajer_earlier", &ReportRules::fajer_earlier)
        .def_readwrite("dhohur_later", &ReportRules::dhohur_later)
        .def_readwrite("aser_later", &ReportRules::aser_later)
        .def_readwrite("maghreb_later", &ReportRules::maghreb_later)
        .def_readwrite("city", &ReportRules::city)
        .def_property(
            "horizon",
            [](const ReportRules& rules) {
                return std::tuple(rules.horizon.height_counts, rules.horizon.pressure,
                                  rules.horizon.temperature);
            },
            [](ReportRules& rules, const halvane::Horizon& horizon) { rules.horizon = horizon; })
        .def_readwrite("high_latitude", &ReportRules::high_latitude);
}

void add_timetable_rules(py::module_& module) {
    py::class_<TimetableRules> rules(module, "TimetableRules");
    rules.def(py::init<>())
        .def_readwrite("fajer_angle", &TimetableRules::fajer_angle)
        .def_readwrite("isha_angle", &TimetableRules::isha_angle)
        .def_readwrite("isha_minutes", &TimetableRules::isha_minutes)
        .def_readwrite("isha_minutes_ramadan", &TimetableRules::isha_minutes_ramadan)
        .def_readwrite("maghreb_angle", &TimetableRules::maghreb_angle)
        .def_readwrite("hanafi", &TimetableRules::hanafi)
        .def_readwrite("height_counts", &TimetableRules::height_counts)
        .def_readwrite("added", &TimetableRules::added)
        .def_property("rounding", &roundings, &set_roundings)
        .def_readwrite("reference_latitude", &TimetableRules::reference_latitude)
        .def_readwrite("night_until_fajer", &TimetableRules::night_until_fajer)
        .def_readwrite("imsak_minutes", &TimetableRules::imsak_minutes)
        .def_readwrite("seconds", &TimetableRules::seconds)
        .def_property("iqamah", &iqamahs, &set_iqamahs)
        .def_readwrite("jumuah", &TimetableRules::jumuah);
    add_word(rules, "high_latitude", &TimetableRules::high_latitude);
    add_word(rules, "rule_use", &TimetableRules::rule_use);
}

} // namespace

void add_prayer(py::module_& module) {
    add_report_rules(module);
    add_timetable_rules(module);
    module.def("prayer_times", &prayer_times);
    module.def("authorities", &authorities);
    module.def("rules_of_authority", &halvane::rules_of_authority);
    module.def("timetable", &timetable);
    module.def("timetables", &timetables);
}

} // namespace halvane_python
