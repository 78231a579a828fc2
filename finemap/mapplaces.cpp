// SPDX-License-Identifier: MIT
#include "finemap/mapplaces.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace halvane {
namespace {

MapClass class_of(const FineMapSettings& settings, const CrescentEvening& evening,
                  const std::optional<double>& value) {
    if (evening.age(evening.sun_event) <= 0)
        return MapClass::conjunction_to_come;
    if (evening.lag() <= 0)
        return MapClass::moon_goes_first;
    if (!value)
        return MapClass::no_answer;
    return map_class_of(class_of_value(*settings.criterion, *value));
}

} // namespace

JudgedPlaceOfMap judged(const FineMapSettings& settings, const MapPosition& place,
                        const std::optional<CrescentEvening>& evening) {
    if (!evening)
        return {place, std::nullopt, std::nullopt, MapClass::no_event};
    const std::optional<double> value = criterion_value(*settings.criterion, *evening, settings.limits);
    return {place, evening, value, class_of(settings, *evening, value)};
}

MapNode node_of(const JudgedPlaceOfMap& place) {
    constexpr double not_finite = std::numeric_limits<double>::quiet_NaN();
    MapNode node;
    node.map_class = place.map_class;
    node.value = place.value.value_or(not_finite);
    if (!place.evening) {
        node.lag = node.age = node.altitude = node.elongation = static_cast<float>(not_finite);
        return node;
    }
    const CrescentEvening& evening = *place.evening;
    node.lag = static_cast<float>(evening.lag());
    node.age = static_cast<float>(evening.age(evening.sun_event));
    node.altitude = static_cast<float>(evening.at_sun_event.topocentric.moon_altitude);
    node.elongation = static_cast<float>(evening.at_sun_event.topocentric.elongation);
    return node;
}

JudgedPlaceOfMap MapJudge::judge(const MapPosition& place, const Observer& observer,
                                 const EventGuess* guess) const {
    return judged(
        settings_, place,
        crescent_evening(sky_, observer, settings_.kind, settings_.day, settings_.conjunction, guess));
}

JudgedPlaceOfMap MapJudge::judge(const MapPosition& place, const JudgedPlaceOfMap* near) const {
    std::optional<EventGuess> guess;
    if (near != nullptr && near->evening)
        guess = guess_from(*near->evening, place.longitude - near->place.longitude);
    return judge(place, observer_at(place.longitude + shift_, place.latitude, 0), guess ? &*guess : nullptr);
}

MapJudge::OfRow::OfRow(const MapJudge& judge, double latitude)
    : judge_(judge), observer_(observer_at(0, latitude, 0)), latitude_(latitude) {}

/// The events go on as they went from the place before to the last one.
JudgedPlaceOfMap MapJudge::OfRow::at(double longitude) {
    std::optional<EventGuess> guess;
    if (last_ && before_)
        guess = {2 * last_->sun_event - before_->sun_event, 2 * last_->moon_event - before_->moon_event};
    observer_.longitude = longitude + judge_.shift_;
    JudgedPlaceOfMap place = judge_.judge({longitude, latitude_}, observer_, guess ? &*guess : nullptr);
    before_ = last_;
    last_.reset();
    if (place.evening)
        last_ = {place.evening->sun_event, place.evening->moon_event};
    return place;
}

PlaceAnswer answer_at(Ephemeris& ephemeris, const FineMapSettings& settings, const MapPosition& place) {
    const JudgedPlaceOfMap answer = judged(
        settings, place,
        crescent_evening(ephemeris, observer_at(observer_longitude(place.longitude), place.latitude, 0),
                         settings.kind, settings.day, settings.conjunction));
    return {answer.map_class, answer.value, answer.evening};
}

double MapJudge::event_margin(const MapPosition& place) const {
    return halvane::event_margin(sky_, observer_at(place.longitude + shift_, place.latitude, 0),
                                 settings_.kind, settings_.day);
}

ClassBorder::ClassBorder(const MapJudge& judge, MapClass a, MapClass b) : judge_(judge) {
    const auto either_is = [a, b](MapClass sought) { return a == sought || b == sought; };
    if (either_is(MapClass::no_event)) {
        by_ = By::events;
    } else if (either_is(MapClass::conjunction_to_come)) {
        by_ = By::age;
    } else if (either_is(MapClass::moon_goes_first)) {
        by_ = By::lag;
    } else if (const auto one = band_of(a), other = band_of(b); one && other) {
        by_ = By::value;
        is_of_neighbours_ = std::max(*one, *other) - std::min(*one, *other) == 1;
        border_ = judge.settings().criterion->bands()[std::min(*one, *other) + 1].border;
    }
}

std::optional<double> ClassBorder::margin(const MapPosition& place, const MapNode& node) const {
    const auto finite = [](double value) {
        return std::isfinite(value) ? std::optional(value) : std::nullopt;
    };
    switch (by_) {
    case By::value:
        return finite(node.value - border_);
    case By::lag:
        return finite(node.lag);
    case By::age:
        return finite(node.age);
    case By::events:
        return judge_.event_margin(place);
    case By::nothing:
        break;
    }
    return std::nullopt;
}

std::optional<double> ClassBorder::margin_at(const MapPosition& place,
                                             std::optional<JudgedPlaceOfMap>& last) const {
    if (by_ == By::events)
        return judge_.event_margin(place);
    last = judge_.judge(place, last ? &*last : nullptr);
    return margin(*last);
}

/// From the numbers themselves, which a node has in single precision.
std::optional<double> ClassBorder::margin(const JudgedPlaceOfMap& place) const {
    if (!place.evening)
        return std::nullopt;
    switch (by_) {
    case By::value:
        return place.value ? std::optional(*place.value - border_) : std::nullopt;
    case By::lag:
        return place.evening->lag();
    case By::age:
        return place.evening->age(place.evening->sun_event);
    case By::events:
    case By::nothing:
        break;
    }
    return std::nullopt;
}

} // namespace halvane
