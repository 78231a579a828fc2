// SPDX-License-Identifier: MIT
#include "halvane/hijri.h"

#include "calendar/civildate.h"
#include "calendar/hijricalendar.h"
#include "calendar/moddateconv.h"
#include "calendar/yearlimits.h"
#include "hijri/hijrimonths.h"
#include "hijri/hijrirules.h"
#include "hijri/tabularcycle.h"
#include "library/convert.h"
#include "library/criterionvalues.h"
#include "library/guarded.h"
#include "library/parts.h"
#include "library/toldprogress.h"

#include <algorithm>
#include <cmath>

namespace halvane::v1 {
namespace {

constexpr double half_day = 0.5;
constexpr int months_per_year = 12;

/// The Julian day of a date's noon, a whole number                                                  [d]
double day_number(const Date& date) {
    return checked_julian_day(date) + half_day;
}

Date date_of_day_number(double number) {
    return civil_date(number - half_day);
}

halvane::HijriMonthNumber checked_month(int year, int month) {
    require_within("A Hijri year", year, hijri_rule_years.first, hijri_rule_years.last);
    require_within("A Hijri month", month, 1, months_per_year);
    return HijriMonthNumber::of(year, month);
}

void require_days(const HijriDate& date) {
    require_within("A day of a Hijri month", date.day, 1, 30);
}

bool has_region(const HijriChoices& choices) {
    return choices.west >= -180 && choices.west < 180 && choices.east > choices.west &&
           choices.east <= choices.west + 360 && choices.south >= most_southern &&
           choices.north > choices.south && choices.north <= most_northern;
}

std::vector<halvane::AnnouncedStart> engine_announced(const std::vector<AnnouncedStart>& announced) {
    constexpr double most_days_off = 5; // from the tabular start
    std::vector<halvane::AnnouncedStart> starts;
    for (const AnnouncedStart& start : announced) {
        const HijriMonthNumber month = checked_month(start.year, start.month);
        const double first = day_number(start.first_day);
        if (std::fabs(first - first_day_of(TabularCycle{}, month)) > most_days_off)
            raise_bad_argument("An announced start lies more than five days from its month's tabular start.");
        if (!starts.empty()) {
            const int months = month.value - starts.back().month.value;
            const double days = first - starts.back().first_day;
            if (months < 1 || days < 29.0 * months || days > 30.0 * months)
                raise_bad_argument("Announced starts must rise by 29 or 30 days for each month.");
        }
        starts.push_back({month, first, start.announced_by});
    }
    return starts;
}

/// In     first_day  by which the place's clock is taken
HijriSettings settings_of(const Engine& engine, const HijriChoices& choices, const Date& first_day) {
    HijriSettings settings;
    settings.rule = halvane::hijri_rule(choices.rule);
    if (settings.rule == nullptr)
        raise_unknown_key("rule of Hijri months", choices.rule, halvane::hijri_rules());
    require_within("Until when a crescent counts", static_cast<int>(choices.before), 0,
                   static_cast<int>(SeenBefore::fajer));
    settings.before = static_cast<halvane::SeenBefore>(choices.before);
    if (asks_place(*settings.rule, settings.before)) {
        engine_observer(choices.place); // for its checks
        settings.place = {"", choices.place.longitude, choices.place.latitude, choices.place.height,
                          choices.clock.hours_ahead(first_day)};
    }
    if (asks_criterion(*settings.rule)) {
        settings.criterion = &criterion_of_key(choices.criterion);
        settings.seen_class = choices.seen_class.value_or(settings.criterion->by_eye);
        require_within("The lowest class that counts", static_cast<double>(settings.seen_class), 1,
                       static_cast<double>(settings.criterion->bands().size() - 1));
    }
    settings.limits = engine_limits(choices.limits);
    if (!has_region(choices))
        raise_bad_argument(
            "A region lies from -180 to below 180 west, up to 360 degrees wide, and between -85 and 85.");
    settings.region = {choices.west, choices.south, choices.east, choices.north};
    if (has_exception_of_the_americas(*settings.rule)) {
        if (!engine.parts().americas)
            throw Error(ErrorKind::missing_file,
                        "This rule asks for the Americas, and the engine has no world.txt.");
        settings.americas = *engine.parts().americas;
    }
    settings.announced = engine_announced(choices.announced);
    return settings;
}

std::vector<halvane::HijriMonth> months_of(const Engine& engine, const HijriSettings& settings,
                                           HijriMonthNumber first, HijriMonthNumber last,
                                           Progress* progress) {
    ToldProgress told(progress);
    auto months = halvane::hijri_months(engine.parts().theory, settings, first, last, told);
    if (!months)
        raise_cancelled();
    return std::move(*months);
}

static_assert(hijri_announced == static_cast<unsigned>(MonthNote::announced));
static_assert(hijri_made_to_fit == static_cast<unsigned>(MonthNote::made_to_fit));
static_assert(hijri_completed == static_cast<unsigned>(MonthNote::completed));
static_assert(hijri_seen_on_28th == static_cast<unsigned>(MonthNote::seen_on_28th));
static_assert(hijri_rule_doubtful == static_cast<unsigned>(MonthNote::rule_doubtful));
static_assert(hijri_undecided == static_cast<unsigned>(MonthNote::undecided));
static_assert(static_cast<int>(SeenBefore::fajer) == static_cast<int>(halvane::SeenBefore::fajer));
static_assert(static_cast<int>(SeenBefore::midnight) == static_cast<int>(halvane::SeenBefore::midnight));

HijriMonth value_of(const halvane::HijriMonth& month) {
    HijriMonth value;
    value.year = month.number.year();
    value.month = month.number.month();
    value.first_day = date_of_day_number(month.first_day);
    value.days = month.days;
    value.notes = month.notes;
    value.may_differ = month.may_differ();
    if (month.margin) {
        value.margin = month.margin->value;
        value.margin_unit = month.margin->unit;
    }
    value.announced_by = month.announced_by;
    return value;
}

/// Months around a tabular one, so that every day that may belong to it is among theirs.
HijriCalendar months_around(const Engine& engine, const HijriChoices& choices, HijriMonthNumber month) {
    const HijriMonthNumber first{std::max(month.value - 1, 0)};
    const HijriMonthNumber last{month.value + 1};
    const HijriSettings settings =
        settings_of(engine, choices, date_of_day_number(first_day_of(TabularCycle{}, first)));
    return calendar_of(months_of(engine, settings, first, last, nullptr));
}

} // namespace

HijriDate tabular_hijri(const Date& date) {
    const double number = day_number(date);
    const double first = first_day_of(TabularCycle{}, HijriMonthNumber::of(1, 1));
    if (number < first)
        raise_bad_argument("The Hijri calendar begins on 16 July 622.");
    return hijri_value(hijri_of_day_number(number));
}

Date tabular_civil(const HijriDate& date) {
    const HijriMonthNumber month = checked_month(date.year, date.month);
    require_days(date);
    const double first = first_day_of(TabularCycle{}, month);
    const double number = first + date.day - 1;
    if (number >= first_day_of(TabularCycle{}, {month.value + 1}))
        raise_bad_argument("This month has 29 days.");
    return date_of_day_number(number);
}

std::vector<HijriRule> hijri_rules() {
    std::vector<HijriRule> list;
    for (const halvane::HijriRule& rule : halvane::hijri_rules())
        list.push_back({rule.key, rule.name.english, rule.name.arabic, rule.told.english, rule.source,
                        asks_place(rule), asks_criterion(rule), asks_region(rule)});
    return list;
}

std::vector<HijriMonth> hijri_months(const Engine& engine, const HijriChoices& choices, int first_year,
                                     int first_month, int last_year, int last_month, Progress* progress) {
    return guarded([&] {
        constexpr int most_years = 2000;
        const HijriMonthNumber first = checked_month(first_year, first_month);
        const HijriMonthNumber last = checked_month(last_year, last_month);
        if (last < first)
            raise_bad_argument("The last month lies before the first.");
        require_within("The years of the months", last_year - first_year, 0, most_years);
        const HijriSettings settings =
            settings_of(engine, choices, date_of_day_number(first_day_of(TabularCycle{}, first)));
        std::vector<HijriMonth> values;
        for (const halvane::HijriMonth& month : months_of(engine, settings, first, last, progress))
            values.push_back(value_of(month));
        return values;
    });
}

HijriDate hijri_date(const Engine& engine, const HijriChoices& choices, const Date& date) {
    return guarded([&] {
        const HijriDate tabular = tabular_hijri(date);
        const HijriCalendar calendar =
            months_around(engine, choices, checked_month(tabular.year, tabular.month));
        const std::optional<halvane::HijriDate> found = calendar.date_of(day_number(date));
        if (!found)
            throw Error(ErrorKind::no_value, "The months of this rule do not hold this day.");
        return hijri_value(*found);
    });
}

Date civil_date_of(const Engine& engine, const HijriChoices& choices, const HijriDate& date) {
    return guarded([&] {
        const HijriMonthNumber month = checked_month(date.year, date.month);
        require_days(date);
        const HijriCalendar calendar = months_around(engine, choices, month);
        const auto number = calendar.day_number_of(
            {static_cast<double>(date.year), static_cast<double>(date.month), static_cast<double>(date.day)});
        if (!number)
            raise_bad_argument("This month has fewer days by this rule.");
        return date_of_day_number(*number);
    });
}

} // namespace halvane::v1
