// SPDX-License-Identifier: MIT
#include "halvane/hijri.h"
#include "library/ccriteria.h"
#include "library/cinterface.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace halvane::v1 {
namespace {

static_assert(HALVANE_SEEN_AT_ANY_TIME == static_cast<int>(SeenBefore::any_time));
static_assert(HALVANE_SEEN_BEFORE_MIDNIGHT == static_cast<int>(SeenBefore::midnight));
static_assert(HALVANE_SEEN_BEFORE_FAJER == static_cast<int>(SeenBefore::fajer));
static_assert(int{HALVANE_HIJRI_ANNOUNCED} == int{hijri_announced});
static_assert(int{HALVANE_HIJRI_MADE_TO_FIT} == int{hijri_made_to_fit});
static_assert(int{HALVANE_HIJRI_COMPLETED} == int{hijri_completed});
static_assert(int{HALVANE_HIJRI_SEEN_ON_28TH} == int{hijri_seen_on_28th});
static_assert(int{HALVANE_HIJRI_RULE_DOUBTFUL} == int{hijri_rule_doubtful});
static_assert(int{HALVANE_HIJRI_UNDECIDED} == int{hijri_undecided});

const std::vector<HijriRule>& rule_list() {
    static const std::vector<HijriRule> list = hijri_rules();
    return list;
}

const char* lasting_rule_key(const std::string& key) {
    const std::vector<HijriRule>& list = rule_list();
    const auto found =
        std::find_if(list.begin(), list.end(), [&key](const HijriRule& row) { return row.key == key; });
    return found == list.end() ? "" : found->key.c_str();
}

halvane_hijri_choices default_hijri_choices() {
    const HijriChoices choices;
    halvane_hijri_choices record{};
    record.rule = lasting_rule_key(choices.rule);
    record.place = same<halvane_observer>(choices.place);
    record.criterion = lasting_criterion_key(choices.criterion);
    record.seen_class = -1;
    record.west = choices.west;
    record.south = choices.south;
    record.east = choices.east;
    record.north = choices.north;
    record.before = static_cast<int>(choices.before);
    return record;
}

std::vector<AnnouncedStart> announced_of(const halvane_hijri_choices& record) {
    std::vector<AnnouncedStart> starts;
    for (std::size_t i = 0; i < record.announced_count; ++i) {
        const halvane_announced_start& start = (&required(record.announced, "announced"))[i];
        starts.push_back({start.year, start.month, same<Date>(start.first_day),
                          start.announced_by == nullptr ? "" : start.announced_by});
    }
    return starts;
}

HijriChoices choices_of(const halvane_hijri_choices* given) {
    const halvane_hijri_choices record = read_record(given, "choices", default_hijri_choices);
    HijriChoices choices;
    choices.rule = text_of(record.rule, "rule");
    choices.place = same<Observer>(record.place);
    if (record.clock != nullptr)
        choices.clock = record.clock->clock;
    choices.criterion = text_of(record.criterion, "criterion");
    if (record.seen_class != -1) {
        require_within("The lowest class that counts", record.seen_class, 0, HALVANE_MAP_NO_EVENT);
        choices.seen_class = static_cast<std::size_t>(record.seen_class);
    }
    choices.limits = limits_of(record.limits);
    choices.west = record.west;
    choices.south = record.south;
    choices.east = record.east;
    choices.north = record.north;
    choices.before = static_cast<SeenBefore>(record.before);
    choices.announced = announced_of(record);
    return choices;
}

/// Index of the announced start of a month; -1 for a month that is not announced.
int announced_index(const HijriMonth& month, const std::vector<AnnouncedStart>& starts) {
    if ((month.notes & hijri_announced) == 0)
        return -1;
    const auto found = std::find_if(starts.begin(), starts.end(), [&month](const AnnouncedStart& start) {
        return start.year == month.year && start.month == month.month;
    });
    return found == starts.end() ? -1 : static_cast<int>(found - starts.begin());
}

halvane_hijri_month record_of(const HijriMonth& month, const std::vector<AnnouncedStart>& starts) {
    halvane_hijri_month record{};
    record.year = month.year;
    record.month = month.month;
    record.first_day = same<halvane_date>(month.first_day);
    record.days = month.days;
    record.notes = month.notes;
    record.may_differ = month.may_differ;
    record.margin = month.margin;
    month.margin_unit.copy(record.margin_unit, std::size(record.margin_unit) - 1);
    record.announced = announced_index(month, starts);
    return record;
}

/// How many months from one to another, both inside; 0 where the second is the earlier one.
std::size_t months_between(int first_year, int first_month, int last_year, int last_month) {
    constexpr std::int64_t months_per_year = 12;
    const std::int64_t months =
        (std::int64_t{last_year} - first_year) * months_per_year + std::int64_t{last_month} - first_month + 1;
    return months > 0 ? static_cast<std::size_t>(months) : 0;
}

} // namespace
} // namespace halvane::v1

using namespace halvane::v1;

halvane_status halvane_tabular_hijri(halvane_date date, halvane_hijri_date* hijri) {
    return called(
        [&] { required(hijri, "hijri") = same<halvane_hijri_date>(tabular_hijri(same<Date>(date))); });
}

halvane_status halvane_tabular_civil(halvane_hijri_date hijri, halvane_date* date) {
    return called(
        [&] { required(date, "date") = same<halvane_date>(tabular_civil(same<HijriDate>(hijri))); });
}

size_t halvane_hijri_rule_count(void) {
    return count_of(rule_list);
}

halvane_status halvane_hijri_rule_at(size_t index, halvane_hijri_rule* rule) {
    return called([&] {
        const Filled filled(rule, "rule");
        const HijriRule& found = element_of(rule_list(), index);
        filled.set({0, found.key.c_str(), found.name.c_str(), found.arabic_name.c_str(), found.told.c_str(),
                    found.source.c_str(), found.asks_place, found.asks_criterion, found.asks_region});
    });
}

halvane_status halvane_default_hijri_choices(halvane_hijri_choices* choices) {
    return called([&] { Filled(choices, "choices").set(default_hijri_choices()); });
}

halvane_status halvane_hijri_months(const halvane_engine* engine, const halvane_hijri_choices* choices,
                                    int first_year, int first_month, int last_year, int last_month,
                                    halvane_progress progress, void* context, halvane_hijri_month* months,
                                    size_t capacity, size_t element_size, size_t* count) {
    return called([&] {
        const FilledArray filled(months, capacity, element_size, count, "months");
        const Engine& own = engine_of(engine);
        const HijriChoices own_choices = choices_of(choices);
        filled.require_room(months_between(first_year, first_month, last_year, last_month));
        CalledProgress told(progress, context);
        const auto found =
            hijri_months(own, own_choices, first_year, first_month, last_year, last_month, told.pointer());
        filled.set_all(found,
                       [&](const HijriMonth& month) { return record_of(month, own_choices.announced); });
    });
}

halvane_status halvane_hijri_by_rule(const halvane_engine* engine, const halvane_hijri_choices* choices,
                                     halvane_date date, halvane_hijri_date* hijri) {
    return called([&] {
        required(hijri, "hijri") =
            same<halvane_hijri_date>(hijri_date(engine_of(engine), choices_of(choices), same<Date>(date)));
    });
}

halvane_status halvane_civil_by_rule(const halvane_engine* engine, const halvane_hijri_choices* choices,
                                     halvane_hijri_date hijri, halvane_date* date) {
    return called([&] {
        required(date, "date") =
            same<halvane_date>(civil_date_of(engine_of(engine), choices_of(choices), same<HijriDate>(hijri)));
    });
}
