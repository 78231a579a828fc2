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
#include <vector>

namespace halvane {
namespace {

constexpr double noon = 0.5; // of a day that begins at 0 h
constexpr double seconds_a_day = 86400;
constexpr double nothing = -std::numeric_limits<double>::infinity();

/// What a place says.
struct Seen {
    double worth = nothing; ///< the margin in its own error; nothing after the limit
    std::optional<MonthMargin> margin;
    JudgedPlaceOfMap place;
};

/// A search for the place where a crescent is seen best: on a coarse grid, then on a finer one wherever the
/// coarse one leaves room for a better place, then from the best of them uphill.
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
        take_fine_grid();
        if (best_.worth > nothing)
            climb();
        return best_.margin;
    }

private:
    static constexpr double coarse = 12;   // [deg]
    static constexpr double fine = 3;      // [deg]
    static constexpr double of_coasts = 1; // where land counts alone                            [deg]

    const MapWindow& region() const { return search_.region; }
    const MapJudge& judge_of(double longitude) const { return longitude < antimeridian ? west_ : east_; }

    double worth_of(const JudgedPlaceOfMap& place, const std::optional<MonthMargin>& margin) const {
        const bool is_late = search_.before && place.evening && place.evening->sun_event >= *search_.before;
        return margin && !is_late ? margin->value / margin->uncertainty : nothing;
    }

    Seen seen(const JudgedPlaceOfMap& place) const {
        std::optional<MonthMargin> margin;
        if (place.evening && place.value)
            margin = margin_of_value(*place.evening, *search_.criterion, *place.value, search_.seen_class);
        return {worth_of(place, margin), margin, place};
    }

    /// Places along a line, evenly spread, with both its ends.
    struct Spread {
        double first = 0;
        double step = 0;
        std::size_t count = 1;

        double at(std::size_t number) const { return first + static_cast<double>(number) * step; }
    };
    static Spread spread(double first, double last, double widest_step) {
        const double steps = std::ceil((last - first) / widest_step);
        if (!(steps > 0))
            return {first, 0, 1};
        return {first, (last - first) / steps, static_cast<std::size_t>(steps) + 1};
    }

    /// The parallels that a coast is known along.
    static Spread whole_degrees(double south, double north) {
        const double first = std::ceil(south);
        return {first, 1, static_cast<std::size_t>(std::max(std::floor(north) - first + 1, 0.0))};
    }

    /// Judges places along a parallel.
    template <class Take>
    void along(double latitude, const Spread& longitudes, const Take& take) const {
        MapJudge::OfRow of_west(west_, latitude);
        MapJudge::OfRow of_east(east_, latitude);
        for (std::size_t column = 0; column < longitudes.count; ++column) {
            const double longitude = longitudes.at(column);
            take(column, seen((longitude < antimeridian ? of_west : of_east).at(longitude)));
        }
    }

    bool counts(const MapPosition& place) const {
        return search_.land == nullptr || search_.land->holds(place);
    }

    void take(const Seen& seen) {
        if (seen.worth > best_.worth && counts(seen.place.place))
            best_ = seen;
    }

    void take_coarse_grid() {
        columns_ = spread(region().west, region().east, coarse);
        rows_ = spread(region().south, region().north, coarse);
        worths_.assign(columns_.count * rows_.count, nothing);
        for (std::size_t row = 0; row < rows_.count; ++row)
            along(rows_.at(row), columns_, [&](std::size_t column, const Seen& seen) {
                worths_[row * columns_.count + column] = seen.worth;
                take(seen);
            });
        is_blind_ =
            std::all_of(worths_.begin(), worths_.end(), [](double worth) { return worth == nothing; });
    }

    /// The places nearer to one of the coarse grid than to the others.
    struct Cell {
        double longitude, latitude;
        double bound; ///< what they may be worth at most
    };

    /// What the places around one of the grid may be worth: as much more than it as the steepest step to a
    /// neighbour is. Around a place without a worth beside one with it, anything.
    double bound_of(std::size_t column, std::size_t row) const {
        if (is_blind_)
            return std::numeric_limits<double>::infinity();
        const double worth = worths_[row * columns_.count + column];
        double highest = nothing;
        double steepest = 0;
        const auto look = [&](std::size_t other_column, std::size_t other_row) {
            const double other = worths_[other_row * columns_.count + other_column];
            highest = std::max(highest, other);
            if (other > nothing && worth > nothing)
                steepest = std::max(steepest, std::fabs(other - worth));
        };
        if (column > 0)
            look(column - 1, row);
        if (column + 1 < columns_.count)
            look(column + 1, row);
        if (row > 0)
            look(column, row - 1);
        if (row + 1 < rows_.count)
            look(column, row + 1);
        if (!(worth > nothing) && !(highest > nothing))
            return nothing;
        return worth > nothing && highest > nothing ? worth + steepest
                                                    : std::numeric_limits<double>::infinity();
    }

    void take_fine_grid() {
        std::vector<Cell> cells;
        for (std::size_t row = 0; row < rows_.count; ++row)
            for (std::size_t column = 0; column < columns_.count; ++column)
                cells.push_back({columns_.at(column), rows_.at(row), bound_of(column, row)});
        std::sort(cells.begin(), cells.end(), [](const Cell& a, const Cell& b) { return a.bound > b.bound; });
        for (const Cell& cell : cells) {
            if (cell.bound < best_.worth || !(cell.bound > nothing))
                return;
            take_cell(cell.longitude, cell.latitude);
        }
    }

    void take_cell(double longitude, double latitude) {
        const double west = std::max(longitude - columns_.step / 2, region().west);
        const double east = std::min(longitude + columns_.step / 2, region().east);
        const double south = std::max(latitude - rows_.step / 2, region().south);
        const double north = std::min(latitude + rows_.step / 2, region().north);
        const double step = search_.land == nullptr ? fine : of_coasts;
        const Spread rows =
            search_.land == nullptr ? spread(south, north, step) : whole_degrees(south, north);
        for (std::size_t row = 0; row < rows.count; ++row)
            along(rows.at(row), spread(west, east, step), [&](std::size_t, const Seen& seen) { take(seen); });
    }

    /// Goes to the best of eight neighbours, then to ever nearer ones.
    void climb() {
        constexpr double finest = 0.01; // [deg]
        for (double step = fine / 2; step > finest;)
            if (!stepped(step))
                step /= 2;
    }

    bool stepped(double step) {
        constexpr std::array<std::array<double, 2>, 8> ways{
            {{1, 0}, {-1, 0}, {0, 1}, {0, -1}, {1, 1}, {1, -1}, {-1, 1}, {-1, -1}}};
        const JudgedPlaceOfMap middle = best_.place;
        const double worth = best_.worth;
        for (const auto& [east, north] : ways) {
            const MapPosition place{middle.place.longitude + east * step,
                                    middle.place.latitude + north * step};
            if (is_within(place) &&
                (place.longitude < antimeridian) == (middle.place.longitude < antimeridian))
                take(seen(judge_of(place.longitude).judge(place, &middle)));
        }
        return best_.worth > worth;
    }

    bool is_within(const MapPosition& place) const {
        return place.longitude >= region().west && place.longitude <= region().east &&
               place.latitude >= region().south && place.latitude <= region().north;
    }

    const SeenSearch& search_;
    FineMapSettings settings_;
    MapJudge west_, east_;
    Spread columns_, rows_;      ///< of the coarse grid
    std::vector<double> worths_; ///< of its places
    bool is_blind_ = false;      ///< whether none of them has a worth
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

std::optional<double> geocentric_measure(const CrescentEvening& evening,
                                         const CriteriaSettings& /*settings*/) {
    return istanbul_margin(evening, evening.at_sun_event.geocentric);
}

/// The limits of Istanbul, before midnight and after it.
CataloguedCriterion limits_of_istanbul(HijriRuleKind kind) {
    CataloguedCriterion criterion = *catalogued_criterion("turkey-1978");
    if (kind == HijriRuleKind::istanbul_2016_geocentric)
        criterion.measure = geocentric_measure;
    return criterion;
}

SeenSearch world_search(const CataloguedCriterion& criterion) {
    return {&criterion, criterion.by_eye, {}, inhabited_world, std::nullopt, nullptr};
}

class Turkey final : public SeenAnywhere {
public:
    using SeenAnywhere::SeenAnywhere;

protected:
    std::optional<MonthMargin> margin_of(const SkyPolynomials& sky, double day,
                                         double conjunction) const override {
        return best_margin(sky, day, conjunction, world_search(*catalogued_criterion("turkey-1978")));
    }
};

class Istanbul2016 final : public SeenAnywhere {
public:
    Istanbul2016(Ephemeris& ephemeris, const HijriSettings& settings)
        : SeenAnywhere(ephemeris, settings), criterion_(limits_of_istanbul(settings.rule->kind)),
          americas_(settings.americas) {}

protected:
    std::optional<MonthMargin> margin_of(const SkyPolynomials& sky, double day,
                                         double conjunction) const override {
        SeenSearch search = world_search(criterion_);
        search.before = day + 1;
        std::optional<MonthMargin> before_midnight = best_margin(sky, day, conjunction, search);
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
        if (dawn.value < -dawn.uncertainty)
            return dawn;
        SeenSearch search = world_search(criterion_);
        search.land = &americas_;
        search.region = americas_.box_within(inhabited_world);
        const std::optional<MonthMargin> seen = best_margin(sky, day, conjunction, search);
        if (!seen)
            return std::nullopt;
        return deciding({dawn, *seen});
    }

    CataloguedCriterion criterion_;
    Land americas_;
};

} // namespace

std::optional<MonthMargin> best_margin(const SkyPolynomials& sky, double day, double conjunction,
                                       const SeenSearch& search) {
    return Search(sky, day, conjunction, search).best();
}

std::unique_ptr<MonthRule> seen_anywhere_rule(Ephemeris& ephemeris, const HijriSettings& settings) {
    if (settings.rule->kind == HijriRuleKind::turkey_1978)
        return std::make_unique<Turkey>(ephemeris, settings);
    if (settings.rule->kind != HijriRuleKind::seen_anywhere)
        return std::make_unique<Istanbul2016>(ephemeris, settings);
    return std::make_unique<SeenAnywhere>(ephemeris, settings);
}

} // namespace halvane
