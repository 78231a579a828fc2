// SPDX-License-Identifier: MIT
#include "hijri/hijrimonths.h"

#include "base/sharedwork.h"
#include "hijri/monthrule.h"

#include <algorithm>
#include <map>
#include <memory>
#include <utility>

namespace halvane {
namespace {

constexpr double most_days = 30;
constexpr double least_days = 29;

HijriMonthNumber operator+(HijriMonthNumber month, int months) {
    return {month.value + months};
}

HijriMonthNumber operator-(HijriMonthNumber month, int months) {
    return {month.value - months};
}

/// The announced months of a list.
class Announced {
public:
    explicit Announced(const std::vector<AnnouncedStart>& starts) : starts_(starts) {}

    const AnnouncedStart* of(HijriMonthNumber month) const {
        const auto place = from(month);
        return place != starts_.end() && place->month == month ? &*place : nullptr;
    }
    const AnnouncedStart* next_from(HijriMonthNumber month) const {
        const auto place = from(month);
        return place == starts_.end() ? nullptr : &*place;
    }
    const AnnouncedStart* last_until(HijriMonthNumber month) const {
        const auto place = from(month + 1);
        return place == starts_.begin() ? nullptr : &*std::prev(place);
    }
    bool is_empty() const { return starts_.empty(); }

private:
    std::vector<AnnouncedStart>::const_iterator from(HijriMonthNumber month) const {
        return std::lower_bound(
            starts_.begin(), starts_.end(), month,
            [](const AnnouncedStart& start, HijriMonthNumber number) { return start.month < number; });
    }

    const std::vector<AnnouncedStart>& starts_;
};

/// What a rule says of months, each asked once.
class RuledStarts {
public:
    RuledStarts(const TheoryPointer& theory, const HijriSettings& settings)
        : theory_(theory), settings_(settings), ephemeris_(theory), rule_(month_rule(ephemeris_, settings)) {}

    const RuledStart& of(HijriMonthNumber month) {
        const auto found = starts_.find(month);
        return found != starts_.end() ? found->second
                                      : starts_.emplace(month, rule_->start_of(month)).first->second;
    }

    const MonthRule& rule() const { return *rule_; }

    /// Asks for many months on all cores. Returns false after a cancel.
    bool prepare(HijriMonthNumber first, HijriMonthNumber last, Progress& progress) {
        constexpr int worth_sharing = 24;
        const int count = last.value - first.value + 1;
        if (rule_->is_tabular() || count < worth_sharing)
            return true;
        std::vector<RuledStart> starts(static_cast<std::size_t>(count));
        const auto begin = [&]() -> DoPiece {
            const auto ephemeris = std::make_shared<Ephemeris>(theory_);
            const std::shared_ptr<MonthRule> rule = month_rule(*ephemeris, settings_);
            return [&starts, first, ephemeris, rule](std::size_t piece) {
                starts[piece] = rule->start_of(first + static_cast<int>(piece));
            };
        };
        if (!share_work(starts.size(), begin, progress))
            return false;
        for (int i = 0; i < count; ++i)
            starts_.insert_or_assign(first + i, std::move(starts[static_cast<std::size_t>(i)]));
        return true;
    }

private:
    const TheoryPointer& theory_;
    const HijriSettings& settings_;
    Ephemeris ephemeris_;
    std::unique_ptr<MonthRule> rule_;
    std::map<HijriMonthNumber, RuledStart> starts_;
};

/// Days from which and until which a month may begin.
struct Bounds {
    double earliest, latest;

    double held(double day) const { return std::clamp(day, earliest, latest); }
};

/// Months one after the other from a first one whose start hangs on no other.
class Chain {
public:
    Chain(RuledStarts& starts, const Announced& announced) : starts_(starts), announced_(announced) {}

    void begin(HijriMonthNumber month) {
        HijriMonth begun{month, 0, 0, std::nullopt, 0, {}};
        if (const AnnouncedStart* start = announced_.of(month)) {
            take_announced(begun, *start);
        } else {
            const RuledStart& ruled = starts_.of(month);
            const double by_rule = ruled.first_day().value_or(first_day_of({}, month));
            begun.first_day = held_for_the_next(month, by_rule);
            if (begun.first_day == by_rule)
                begun.margin = margin_of_begun(month, ruled);
            note(begun, MonthNote::rule_doubtful, ruled.doubtful);
        }
        months_.push_back(begun);
    }

    void add_next() {
        HijriMonth& before = months_.back();
        HijriMonth month{before.number + 1, 0, 0, std::nullopt, 0, {}};
        if (const AnnouncedStart* start = announced_.of(month.number))
            take_announced(month, *start);
        else
            take_ruled(month, before);
        before.days = static_cast<int>(month.first_day - before.first_day);
        note(month, MonthNote::seen_on_28th, before.days < least_days);
        months_.push_back(month);
    }

    const std::vector<HijriMonth>& months() const { return months_; }

private:
    static void note(HijriMonth& month, MonthNote note, bool holds) {
        if (holds)
            month.notes |= static_cast<unsigned>(note);
    }

    static void take_announced(HijriMonth& month, const AnnouncedStart& start) {
        month.first_day = start.first_day;
        month.announced_by = start.announced_by;
        note(month, MonthNote::announced, true);
    }

    void take_ruled(HijriMonth& month, const HijriMonth& before) {
        const RuledStart& ruled = starts_.of(month.number);
        const Bounds bounds{before.first_day + starts_.rule().least_days(), before.first_day + most_days};
        const double wanted = ruled.first_day().value_or(bounds.latest);
        const double held = bounds.held(wanted);
        month.first_day = held_for_the_next(month.number, held);
        month.margin = margin_on_the_29th(ruled, before.first_day + least_days - 1);
        const bool completed = !ruled.evening || wanted > bounds.latest;
        note(month, MonthNote::completed, completed);
        note(month, MonthNote::made_to_fit, month.first_day != wanted && !completed);
        note(month, MonthNote::rule_doubtful, ruled.doubtful);
    }

    /// So that the months up to the next announced one have 29 or 30 days.
    double held_for_the_next(HijriMonthNumber month, double day) const {
        const AnnouncedStart* next = announced_.next_from(month);
        if (next == nullptr)
            return day;
        const int months = next->month.value - month.value;
        return Bounds{next->first_day - most_days * months, next->first_day - least_days * months}.held(day);
    }

    static std::optional<MonthMargin> margin_on_the_29th(const RuledStart& ruled, double evening) {
        if (ruled.evening == evening)
            return ruled.on_it;
        return ruled.evening == evening + 1 ? ruled.on_the_one_before : std::nullopt;
    }

    std::optional<MonthMargin> margin_of_begun(HijriMonthNumber month, const RuledStart& ruled) {
        const std::optional<double> before = starts_.of(month - 1).first_day();
        return before ? margin_on_the_29th(ruled, *before + least_days - 1) : std::nullopt;
    }

    RuledStarts& starts_;
    const Announced& announced_;
    std::vector<HijriMonth> months_;
};

/// The month from which a chain begins so that it comes to the same months wherever it is asked for: an
/// announced one, else one that follows another after 29 days by the rule alone. A month that stands a day
/// off before it, because the one before was held to its length, is not off any more after it.
HijriMonthNumber begin_of_chain(RuledStarts& starts, const Announced& announced, HijriMonthNumber first) {
    constexpr int long_ago = 120;  // months after which nothing is left of an announced start
    constexpr int far_enough = 24; // months
    if (starts.rule().is_tabular() && announced.is_empty())
        return first;
    const AnnouncedStart* last = announced.last_until(first);
    if (last != nullptr && first.value - last->month.value <= long_ago)
        return last->month;
    for (int back = 0; back < far_enough; ++back) {
        const auto day = starts.of(first - back).first_day();
        const auto before = starts.of(first - back - 1).first_day();
        const auto earlier = starts.of(first - back - 2).first_day();
        if (day && before && earlier && *day - *before == least_days && *before - *earlier >= least_days &&
            *before - *earlier <= most_days)
            return first - back;
    }
    return first - far_enough;
}

/// The last month that has to be known: the one after the last that is asked for, or the next announced one,
/// for which the months before it make room.
HijriMonthNumber end_of_chain(const Announced& announced, HijriMonthNumber last) {
    constexpr int makes_room = 24; // months
    const AnnouncedStart* next = announced.next_from(last + 1);
    return next != nullptr && next->month.value - last.value <= makes_room ? next->month : last + 1;
}

} // namespace

std::optional<std::vector<HijriMonth>> hijri_months(const TheoryPointer& theory,
                                                    const HijriSettings& settings, HijriMonthNumber first,
                                                    HijriMonthNumber last, Progress& progress) {
    RuledStarts starts(theory, settings);
    const Announced announced(settings.announced);
    const HijriMonthNumber end = end_of_chain(announced, last);
    const HijriMonthNumber begin = begin_of_chain(starts, announced, first);
    if (!starts.prepare(begin, end, progress))
        return std::nullopt;
    Chain chain(starts, announced);
    chain.begin(begin);
    while (chain.months().back().number < end)
        chain.add_next();
    const auto begun = chain.months().begin() + (first.value - begin.value);
    return std::vector<HijriMonth>(begun, begun + (last.value - first.value + 1));
}

HijriCalendar calendar_of(const std::vector<HijriMonth>& months) {
    std::vector<double> first_days;
    first_days.reserve(months.size() + 1);
    for (const HijriMonth& month : months)
        first_days.push_back(month.first_day);
    first_days.push_back(months.back().first_day + months.back().days);
    return {months.front().number, std::move(first_days)};
}

} // namespace halvane
