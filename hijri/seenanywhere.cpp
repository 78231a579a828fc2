// SPDX-License-Identifier: MIT
#include "hijri/seenanywhere.h"

#include "calendar/civildate.h"
#include "crescent/localsky.h"
#include "events/bracketedroot.h"
#include "finemap/mapplaces.h"
#include "hijri/decision.h"
#include "hijri/mainland.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace halvane {
namespace {

constexpr double noon = 0.5; // of a day that begins at 0 h
constexpr double seconds_a_day = 86400;
constexpr double nothing = -std::numeric_limits<double>::infinity();

/// What a place says.
struct Seen {
    double worth = nothing; ///< the margin in its own error, or that to the limit if it is less
    std::optional<MonthMargin> margin;
    JudgedPlaceOfMap place;
};

/// A search for the place where a crescent is seen best: on a coarse grid, then at whole degrees wherever
/// the coarse one leaves room for a better place, then around the best of them.
class Search {
public:
    Search(const SkyPolynomials& sky, double day, double conjunction, const SeenSearch& search)
        : search_(search), settings_{CrescentKind::new_crescent,
                                     day,
                                     conjunction,
                                     search.criterion,
                                     search.limits,
                                     search.region,
                                     1},
          west_(settings_, sky, 0), east_(settings_, sky, shift_beyond_date_line) {}

    std::optional<MonthMargin> best() {
        take_coarse_grid();
        take_whole_degrees();
        if (best_.worth > nothing)
            climb();
        return best_.margin;
    }

private:
    static constexpr int coarse = 6; // [deg]

    const MapWindow& region() const { return search_.region; }
    const MapJudge& judge_of(double longitude) const { return longitude < antimeridian ? west_ : east_; }

    double worth_of(const JudgedPlaceOfMap& place, const std::optional<MonthMargin>& margin) const {
        constexpr double error_of_sunset = 30; // [s]
        if (!margin || (search_.land != nullptr && !holds(*search_.land, place.place)))
            return nothing;
        const double worth = margin->value / margin->uncertainty;
        if (!search_.before)
            return worth;
        return std::min(worth,
                        (*search_.before - place.evening->sun_event) * seconds_a_day / error_of_sunset);
    }

    Seen seen(JudgedPlaceOfMap place) const {
        std::optional<MonthMargin> margin;
        if (place.evening && place.value)
            margin = seeing_margin(*place.evening, *search_.criterion, *place.value, search_.seen_class);
        return {worth_of(place, margin), margin, std::move(place)};
    }

    /// Judges places along a parallel.
    template <class Take>
    void along(double latitude, double west, double east, double step, const Take& take) const {
        MapJudge::OfRow of_west(west_, latitude);
        MapJudge::OfRow of_east(east_, latitude);
        std::size_t column = 0;
        for (double longitude = west; longitude <= east; longitude += step)
            take(column++, seen((longitude < antimeridian ? of_west : of_east).at(longitude)));
    }

    void take(Seen seen) {
        if (seen.worth > best_.worth)
            best_ = std::move(seen);
    }

    void take_coarse_grid() {
        columns_ = static_cast<std::size_t>(std::floor((region().east - region().west) / coarse)) + 1;
        rows_ = static_cast<std::size_t>(std::floor((region().north - region().south) / coarse)) + 1;
        worths_.assign(columns_ * rows_, nothing);
        for (std::size_t row = 0; row < rows_; ++row)
            along(region().south + static_cast<double>(row) * coarse, region().west, region().east, coarse,
                  [&](std::size_t column, Seen seen) {
                      worths_[row * columns_ + column] = seen.worth;
                      take(std::move(seen));
                  });
    }

    double worth_at(std::size_t column, std::size_t row) const { return worths_[row * columns_ + column]; }

    /// By how much a place nearer to a coarse one than to the next may be worth more: as much as the
    /// steepest step to a neighbour. Without one that has a worth, anything may be there.
    double room_at(std::size_t column, std::size_t row) const {
        double steepest = nothing;
        const auto look = [&](std::size_t other_column, std::size_t other_row) {
            const double other = worth_at(other_column, other_row);
            if (other > nothing)
                steepest = std::max(steepest, std::fabs(other - worth_at(column, row)));
        };
        if (column > 0)
            look(column - 1, row);
        if (column + 1 < columns_)
            look(column + 1, row);
        if (row > 0)
            look(column, row - 1);
        if (row + 1 < rows_)
            look(column, row + 1);
        return steepest > nothing ? steepest : std::numeric_limits<double>::infinity();
    }

    /// A place without a worth may have one with it next to it.
    bool is_on_an_edge(std::size_t column, std::size_t row) const {
        return room_at(column, row) < std::numeric_limits<double>::infinity() &&
               !(worth_at(column, row) > nothing);
    }

    bool may_hold_the_best(std::size_t column, std::size_t row) const {
        const double worth = worth_at(column, row);
        return worth > nothing ? worth + room_at(column, row) >= best_.worth : is_on_an_edge(column, row);
    }

    void take_whole_degrees() {
        std::vector<std::pair<std::size_t, std::size_t>> cells;
        for (std::size_t row = 0; row < rows_; ++row)
            for (std::size_t column = 0; column < columns_; ++column)
                if (search_.land != nullptr || may_hold_the_best(column, row))
                    cells.emplace_back(column, row);
        for (const auto& [column, row] : cells)
            take_cell(region().west + static_cast<double>(column) * coarse,
                      region().south + static_cast<double>(row) * coarse);
    }

    void take_cell(double longitude, double latitude) {
        constexpr double half = coarse / 2;
        const double west = std::max(longitude - half, region().west);
        const double east = std::min(longitude + half, region().east);
        const double north = std::min(latitude + half, region().north);
        for (double at = std::max(latitude - half, region().south); at <= north; ++at)
            along(at, west, east, 1, [&](std::size_t, Seen seen) { take(std::move(seen)); });
    }

    /// Goes to the better of four neighbours, ever nearer ones.
    void climb() {
        constexpr double finest = 0.01; // [deg]
        constexpr std::array<std::array<double, 2>, 4> ways{{{1, 0}, {-1, 0}, {0, 1}, {0, -1}}};
        for (double step = 0.5; step > finest; step /= 2) {
            const MapPosition middle = best_.place.place;
            for (const auto& [east, north] : ways) {
                const MapPosition place{middle.longitude + east * step, middle.latitude + north * step};
                if (place.longitude >= region().west && place.longitude <= region().east &&
                    place.latitude >= region().south && place.latitude <= region().north &&
                    (place.longitude < antimeridian) == (middle.longitude < antimeridian))
                    take(seen(judge_of(place.longitude).judge(place, &best_.place)));
            }
        }
    }

    const SeenSearch& search_;
    FineMapSettings settings_;
    MapJudge west_, east_;
    std::size_t columns_ = 0, rows_ = 0;
    std::vector<double> worths_; ///< of the coarse grid
    Seen best_;
};

/// Fajer of the civil date after `day` at a place, the middle of its night where there is none; Julian day,
/// UT1.
double next_fajer(const SkyPolynomials& sky, const HijriPlace& place, double day) {
    constexpr double depression = 18;  // [deg]
    constexpr double tolerance = 1e-6; // [d]
    constexpr double degrees_a_turn = 360;
    const double midnight = day + 1 - days_ahead(place) - place.longitude / degrees_a_turn;
    const Observer observer = observer_at(place.longitude, place.latitude, 0);
    const auto above = [&](double universal) {
        return LocalSky(sky.at(universal), observer).geocentric().sun_altitude + depression;
    };
    const double at_midnight = above(midnight);
    const double at_noon = above(midnight + noon);
    if (at_midnight >= 0 || at_noon <= 0)
        return midnight;
    return bracketed_root(above, midnight, at_midnight, midnight + noon, at_noon, tolerance);
}

class SeenAnywhere : public MonthRule {
public:
    SeenAnywhere(Ephemeris& ephemeris, const HijriSettings& settings)
        : ephemeris_(ephemeris), settings_(settings) {}

    RuledStart start_of(HijriMonthNumber month) override {
        constexpr int most_evenings = 4;
        const double conjunction = conjunction_before(ephemeris_, month);
        return first_evening(start_of_date(conjunction) + noon, most_evenings,
                             [&](double day) { return margin_on(day - noon, conjunction); });
    }

protected:
    virtual std::optional<MonthMargin> margin_of(const SkyPolynomials& sky, double day,
                                                 double conjunction) const {
        return best_margin(sky, day, conjunction, search_of(sky, day));
    }

    const HijriSettings& settings() const { return settings_; }

private:
    SeenSearch search_of(const SkyPolynomials& sky, double day) const {
        SeenSearch search{settings_.criterion, settings_.seen_class, settings_.limits,
                          settings_.region,    std::nullopt,         nullptr};
        if (settings_.before == SeenBefore::midnight)
            search.before = day + 1;
        if (settings_.before == SeenBefore::fajer)
            search.before = next_fajer(sky, settings_.place, day);
        return search;
    }

    std::optional<MonthMargin> margin_on(double day, double conjunction) const {
        constexpr double last_sunset = 1.5; // of a date, in the far west                           [d]
        if (conjunction > day + last_sunset)
            return std::nullopt;
        return margin_of(sky_around_date(ephemeris_, day), day, conjunction);
    }

    Ephemeris& ephemeris_;
    const HijriSettings& settings_;
};

constexpr MapWindow whole_world{-180, -60, 180, 60};

SeenSearch search_of_1978() {
    const CataloguedCriterion& criterion = *catalogued_criterion("turkey-1978");
    return {&criterion, criterion.by_eye, {}, whole_world, std::nullopt, nullptr};
}

class Turkey final : public SeenAnywhere {
public:
    using SeenAnywhere::SeenAnywhere;

protected:
    std::optional<MonthMargin> margin_of(const SkyPolynomials& sky, double day,
                                         double conjunction) const override {
        return best_margin(sky, day, conjunction, search_of_1978());
    }
};

class Istanbul2016 final : public SeenAnywhere {
public:
    using SeenAnywhere::SeenAnywhere;

protected:
    std::optional<MonthMargin> margin_of(const SkyPolynomials& sky, double day,
                                         double conjunction) const override {
        SeenSearch search = search_of_1978();
        search.before = day + 1;
        const std::optional<MonthMargin> before_midnight = best_margin(sky, day, conjunction, search);
        if ((before_midnight && before_midnight->value >= 0) || settings().americas.empty())
            return before_midnight;
        const std::optional<MonthMargin> after_it = margin_in_the_americas(sky, day, conjunction);
        if (!before_midnight || !after_it)
            return before_midnight ? before_midnight : after_it;
        return worth(*after_it) > worth(*before_midnight) ? after_it : before_midnight;
    }

private:
    static double worth(const MonthMargin& margin) { return margin.value / margin.uncertainty; }

    std::optional<MonthMargin> margin_in_the_americas(const SkyPolynomials& sky, double day,
                                                      double conjunction) const {
        // Wellington, as the delivered list of places has it.
        const HijriPlace new_zealand{{}, 174.7756, -41.2867, 0, 12};
        const MonthMargin dawn{MonthMargin::Of::age,
                               (next_fajer(sky, new_zealand, day) - conjunction) * seconds_a_day,
                               theory_error(conjunction).age, "s"};
        SeenSearch search = search_of_1978();
        search.land = &settings().americas;
        search.region = box_of(settings().americas, whole_world);
        const std::optional<MonthMargin> seen = best_margin(sky, day, conjunction, search);
        if (!seen)
            return std::nullopt;
        return deciding({dawn, *seen});
    }
};

} // namespace

std::optional<MonthMargin> best_margin(const SkyPolynomials& sky, double day, double conjunction,
                                       const SeenSearch& search) {
    return Search(sky, day, conjunction, search).best();
}

std::unique_ptr<MonthRule> seen_anywhere_rule(Ephemeris& ephemeris, const HijriSettings& settings) {
    if (settings.rule->kind == HijriRuleKind::turkey_1978)
        return std::make_unique<Turkey>(ephemeris, settings);
    if (settings.rule->kind == HijriRuleKind::istanbul_2016)
        return std::make_unique<Istanbul2016>(ephemeris, settings);
    return std::make_unique<SeenAnywhere>(ephemeris, settings);
}

} // namespace halvane
