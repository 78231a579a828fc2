// SPDX-License-Identifier: MIT
#pragma once

#include "finemap/finemap.h"

#include <optional>

namespace halvane {

/// One place of a map with what its class follows from.
struct JudgedPlaceOfMap {
    MapPosition place;
    std::optional<CrescentEvening> evening;
    std::optional<double> value; ///< of the measure
    MapClass map_class = MapClass::no_event;
};

/// The numbers of a place for the grid.
MapNode node_of(const JudgedPlaceOfMap& place);

/// Judges the places of a part of a map by the sky of its date. Constant: any number of threads may ask.
class MapJudge {
public:
    /// In     sky    around the date of `settings`
    ///        shift  from the window's longitudes to those of observers: 0, or -360 beyond the date line
    MapJudge(const FineMapSettings& settings, const SkyPolynomials& sky, double shift)
        : settings_(settings), sky_(sky), shift_(shift) {}

    const FineMapSettings& settings() const { return settings_; }
    /// In     near  a place judged before, better the nearer it is; may be null
    JudgedPlaceOfMap judge(const MapPosition& place, const JudgedPlaceOfMap* near) const;

    /// The judge of the places along a parallel, asked in equal steps from west to east.
    class OfRow {
    public:
        OfRow(const MapJudge& judge, double latitude);
        JudgedPlaceOfMap at(double longitude);

    private:
        const MapJudge& judge_;
        Observer observer_;
        double latitude_;
        std::optional<EventGuess> last_, before_; ///< the events of the last two places
    };

    /// event_margin of a place                                                                  [deg]
    double event_margin(const MapPosition& place) const;

private:
    JudgedPlaceOfMap judge(const MapPosition& place, const Observer& observer, const EventGuess* guess) const;

    const FineMapSettings& settings_;
    const SkyPolynomials& sky_;
    double shift_;
};

/// The class of a place's evening, with the measure that it follows from.
JudgedPlaceOfMap judged(const FineMapSettings& settings, const MapPosition& place,
                        const std::optional<CrescentEvening>& evening);

/// What tells two neighbouring classes apart: positive on one side of their border, negative on the other,
/// in the measure's unit, minutes, hours or degrees. Nothing at the edge of what a criterion answers, where
/// only the classes themselves tell.
class ClassBorder {
public:
    /// In     a, b  two classes of a map, in any order
    ClassBorder(const MapJudge& judge, MapClass a, MapClass b);

    /// Whether it is the edge of where there are events.
    bool is_of_events() const { return by_ == By::events; }

    /// Whether nothing else can be between the two classes than their border.
    bool is_of_neighbours() const { return is_of_neighbours_; }

    /// In     node  the numbers of `place`
    std::optional<double> margin(const MapPosition& place, const MapNode& node) const;
    /// In,out last  a place judged before, then this one, if it has to be judged
    std::optional<double> margin_at(const MapPosition& place, std::optional<JudgedPlaceOfMap>& last) const;

private:
    enum class By { nothing, value, lag, age, events };
    const MapJudge& judge_;
    std::optional<double> margin(const JudgedPlaceOfMap& place) const;

    By by_ = By::nothing;
    bool is_of_neighbours_ = false;
    double border_ = 0;
};

} // namespace halvane
