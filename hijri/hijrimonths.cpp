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

/// Days from which and until which a month may begin.
struct Bounds {
    double earliest, latest;

    double held(double day) const { return std::clamp(day, earliest, latest); }
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

    /// When a month may begin. In     before  first day of the month before it
    Bounds bounds_after(double before, const RuledStart& ruled) const {
        return {before + (ruled.evening ? rule_->least_days() : least_days), before + most_days};
    }

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

/// Months one after the other from a first one whose start hangs on no other.
class Chain {
public:
    Chain(RuledStarts& starts, const Announced& announced) : starts_(starts), announced_(announced) {}

    /// In     first_day  of the first month, if it is not announced
    void begin(HijriMonthNumber month, double first_day) {
        HijriMonth begun{month, 0, 0, std::nullopt, 0, {}};
        if (const AnnouncedStart* start = announced_.of(month)) {
            take_announced(begun, *start);
        } else {
            begun.first_day = held_for_the_next(month, first_day);
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
        const Bounds bounds = starts_.bounds_after(before.first_day, ruled);
        month.first_day = held_for_the_next(month.number, bounds.held(ruled.first_day()));
        month.margin = margin_on_the_29th(ruled, before.first_day + least_days - 1);
        const double days = month.first_day - before.first_day;
        const bool completed = days == most_days && (!ruled.evening || ruled.first_day() > month.first_day);
        const bool on_the_28th = days < least_days;
        note(month, MonthNote::completed, completed);
        note(month, MonthNote::undecided, !ruled.evening && !completed);
        note(month, MonthNote::seen_on_28th, on_the_28th);
        note(month, MonthNote::made_to_fit,
             month.first_day != ruled.first_day() && !completed && !on_the_28th);
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

    RuledStarts& starts_;
    const Announced& announced_;
    std::vector<HijriMonth> months_;
};

/// Where a chain begins.
struct ChainStart {
    HijriMonthNumber month;
    double first_day = 0;
};

/// The first day of a month as it follows from one that began so many days off the rule.
double first_day_after(RuledStarts& starts, HijriMonthNumber begin, double off, HijriMonthNumber month) {
    double day = starts.of(begin).first_day() + off;
    for (HijriMonthNumber next = begin + 1; next <= month; ++next.value) {
        const RuledStart& ruled = starts.of(next);
        day = starts.bounds_after(day, ruled).held(ruled.first_day());
    }
    return day;
}

/// The start of a month, wherever a chain to it begins: chains from long enough before it come to the same
/// day, however far off the rule they begin.
ChainStart start_of_chain(RuledStarts& starts, HijriMonthNumber month, int months_before) {
    constexpr double farthest_off = 4; // [d]
    constexpr int long_enough = 400;   // months
    for (int back = months_before;; back *= 2) {
        const HijriMonthNumber begin = month - back;
        const double early = first_day_after(starts, begin, -farthest_off, month);
        if (back > long_enough || early == first_day_after(starts, begin, farthest_off, month))
            return {month, early};
    }
}

/// Months before the first that is asked for at which its chain begins.
constexpr int usual_lead = 12;

/// Where the chain to a month begins: at itself where nothing holds a start, at an announced one before it,
/// else at the month before it, since its margin hangs on that one.
ChainStart begin_of_chain(RuledStarts& starts, const Announced& announced, HijriMonthNumber first) {
    constexpr int long_ago = 120; // months after which nothing is left of an announced start
    if (starts.rule().is_tabular() && announced.is_empty())
        return {first, starts.of(first).first_day()};
    const AnnouncedStart* last = announced.last_until(first);
    if (last != nullptr && first.value - last->month.value <= long_ago)
        return {last->month, last->first_day};
    return start_of_chain(starts, first - 1, usual_lead);
}

} // namespace

std::optional<std::vector<HijriMonth>> hijri_months(const TheoryPointer& theory,
                                                    const HijriSettings& settings, HijriMonthNumber first,
                                                    HijriMonthNumber last, Progress& progress) {
    RuledStarts starts(theory, settings);
    const Announced announced(settings.announced);
    if (!starts.prepare(first - usual_lead - 1, last + 1, progress))
        return std::nullopt;
    const ChainStart begin = begin_of_chain(starts, announced, first);
    Chain chain(starts, announced);
    chain.begin(begin.month, begin.first_day);
    while (chain.months().back().number <= last)
        chain.add_next();
    const auto begun = chain.months().begin() + (first.value - begin.month.value);
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
