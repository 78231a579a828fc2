// SPDX-License-Identifier: MIT
#include "hijri/monthrule.h"

#include "calendar/civildate.h"
#include "hijri/decision.h"
#include "hijri/seenanywhere.h"

#include <functional>

namespace halvane {
namespace {

constexpr double noon = 0.5; // of a day that begins at 0 h

/// The evenings of a lunation that are asked for a crescent: at the poles' ends of the world it may come days
/// late.
constexpr int most_evenings = 5;

class TabularRule final : public MonthRule {
public:
    explicit TabularRule(const TabularCycle& cycle) : cycle_(cycle) {}
    RuledStart start_of(HijriMonthNumber month) override {
        return {first_day_of(cycle_, month) - 1, std::nullopt, std::nullopt, false, 0};
    }
    bool is_tabular() const override { return true; }

private:
    TabularCycle cycle_;
};

/// Months by the evenings of one place.
class PlaceRule : public MonthRule {
public:
    PlaceRule(Ephemeris& ephemeris, const HijriPlace& place)
        : ephemeris_(ephemeris), observer_(observer_at(place.longitude, place.latitude, place.height)),
          days_ahead_(days_ahead(place)) {}

protected:
    /// The evening of a civil date of the place's clock, which the mean time of its longitude may count
    /// otherwise beyond the date line.
    std::optional<CrescentEvening> evening_of(double day_number, double conjunction,
                                              const CataloguedCriterion* criterion = nullptr) {
        const double day = day_number - noon - days_ahead_;
        if (criterion != nullptr)
            return judged_evening(ephemeris_, *criterion, observer_, CrescentKind::new_crescent, day,
                                  conjunction);
        return crescent_evening(ephemeris_, observer_, CrescentKind::new_crescent, day, conjunction);
    }

    /// The date of the place that a Julian day in UT1 lies in, as a day number.
    double date_of(double universal) const {
        return start_of_date(universal + observer_.longitude / degrees_a_turn) + noon + days_ahead_;
    }

    Ephemeris& ephemeris() { return ephemeris_; }

private:
    static constexpr double degrees_a_turn = 360;

    Ephemeris& ephemeris_;
    Observer observer_;
    double days_ahead_; ///< of the clock's dates from those of the longitude's mean time
};

class SeenAtPlace final : public PlaceRule {
public:
    SeenAtPlace(Ephemeris& ephemeris, const HijriSettings& settings)
        : PlaceRule(ephemeris, settings.place), settings_(settings) {}

    RuledStart start_of(HijriMonthNumber month) override {
        const double conjunction = conjunction_before(ephemeris(), month);
        return first_evening(date_of(conjunction), most_evenings, [&](double day) {
            const auto evening = evening_of(day, conjunction, settings_.criterion);
            return evening
                       ? seeing_margin(*evening, *settings_.criterion, settings_.limits, settings_.seen_class)
                       : std::nullopt;
        });
    }
    int least_days() const override { return 28; }

private:
    const HijriSettings& settings_;
};

class Mabims final : public PlaceRule {
public:
    Mabims(Ephemeris& ephemeris, const HijriSettings& settings) : PlaceRule(ephemeris, settings.place) {}

    RuledStart start_of(HijriMonthNumber month) override {
        constexpr auto first_of_new = HijriMonthNumber::of(1443, 1); // in Malaysia
        const CataloguedCriterion& criterion =
            *catalogued_criterion(month < first_of_new ? "mabims-1992" : "mabims-2021");
        const double conjunction = conjunction_before(ephemeris(), month);
        return first_evening(date_of(conjunction), most_evenings, [&](double day) {
            const auto evening = evening_of(day, conjunction);
            return evening ? seeing_margin(*evening, criterion, CriteriaSettings{}, criterion.by_eye)
                           : std::nullopt;
        });
    }
};

constexpr double umm_al_qura_hours_ahead = 3;

HijriPlace place_of_umm_al_qura() {
    const JudgedPlace place = *catalogued_criterion("umm-al-qura")->place;
    return {{}, place.longitude, place.latitude, 0, umm_al_qura_hours_ahead};
}

class UmmAlQura final : public PlaceRule {
public:
    explicit UmmAlQura(Ephemeris& ephemeris) : PlaceRule(ephemeris, place_of_umm_al_qura()) {}

    RuledStart start_of(HijriMonthNumber month) override {
        constexpr auto conjunction_counts = HijriMonthNumber::of(1423, 1);
        constexpr auto moonset_counts = HijriMonthNumber::of(1420, 1);
        constexpr auto first_known = HijriMonthNumber::of(1393, 1);
        const double conjunction = conjunction_before(ephemeris(), month);
        if (month < moonset_counts) {
            RuledStart start = by_universal_date(conjunction);
            start.doubtful = month < first_known;
            return start;
        }
        // Without the conjunction the Moon may set after the Sun on the evening before it.
        const bool with_conjunction = month >= conjunction_counts;
        return first_evening(date_of(conjunction) - (with_conjunction ? 0 : 1), most_evenings,
                             [&](double day) -> std::optional<MonthMargin> {
                                 const auto evening = evening_of(day, conjunction);
                                 if (!evening)
                                     return std::nullopt;
                                 return with_conjunction
                                            ? deciding({lag_margin(*evening), age_margin(*evening)})
                                            : lag_margin(*evening);
                             });
    }

private:
    /// The month begins with the sunset before the midnight in Universal Time that follows the conjunction.
    static RuledStart by_universal_date(double conjunction) {
        constexpr double seconds_a_day = 86400;
        const double midnight = start_of_date(conjunction) + 1;
        const double error = theory_error(conjunction).age;
        const MonthMargin met{MonthMargin::Of::age, (midnight - conjunction) * seconds_a_day, error, "s"};
        const MonthMargin missed{MonthMargin::Of::age, (midnight - 1 - conjunction) * seconds_a_day, error,
                                 "s"};
        return {midnight - noon, met, missed, false, midnight - noon};
    }
};

} // namespace

double conjunction_before(Ephemeris& ephemeris, HijriMonthNumber month) {
    constexpr double usual_age = 2; // of the first day, by the tabular calendar                     [d]
    return geocentric_conjunction(ephemeris, first_day_of({}, month) - usual_age);
}

RuledStart first_evening(double first, int evenings,
                         const std::function<std::optional<MonthMargin>(double evening)>& margin_on) {
    RuledStart start;
    start.first_asked = first;
    start.on_the_one_before = margin_on(first - 1);
    for (int i = 0; i < evenings; ++i) {
        const double evening = first + i;
        const std::optional<MonthMargin> margin = margin_on(evening);
        if (margin && margin->value >= 0) {
            start.evening = evening;
            start.on_it = margin;
            return start;
        }
        start.on_the_one_before = margin;
    }
    return start;
}

std::unique_ptr<MonthRule> month_rule(Ephemeris& ephemeris, const HijriSettings& settings) {
    switch (settings.rule->kind) {
    case HijriRuleKind::tabular:
        return std::make_unique<TabularRule>(settings.rule->cycle);
    case HijriRuleKind::umm_al_qura:
        return std::make_unique<UmmAlQura>(ephemeris);
    case HijriRuleKind::seen_at_place:
        return std::make_unique<SeenAtPlace>(ephemeris, settings);
    case HijriRuleKind::mabims:
        return std::make_unique<Mabims>(ephemeris, settings);
    case HijriRuleKind::seen_anywhere:
    case HijriRuleKind::turkey_1978:
    case HijriRuleKind::istanbul_2016:
    case HijriRuleKind::istanbul_2016_geocentric:
        break;
    }
    return seen_anywhere_rule(ephemeris, settings);
}

} // namespace halvane
