// SPDX-License-Identifier: MIT
#include "hijri/mainland.h"

#include <algorithm>
#include <cmath>

namespace halvane {
namespace {

// Places of its north and its south, by which the coast is known: Denver and Brasilia.
constexpr MapPosition in_the_north{-105, 39.7};
constexpr MapPosition in_the_south{-47.9, -15.8};

MapRing ring_of(const WorldLine& line) {
    MapRing ring;
    ring.reserve(line.points.size());
    for (const WorldPoint& point : line.points)
        ring.push_back({point.longitude, point.latitude});
    return ring;
}

bool may_hold(const WorldBox& box, const MapPosition& point) {
    return point.longitude > box.west && point.longitude < box.east && point.latitude > box.south &&
           point.latitude < box.north;
}

} // namespace

MapRing mainland_of_the_americas(const WorldOutline& world) {
    for (const WorldLine& line : world.rings) {
        if (!may_hold(line.box, in_the_north) || !may_hold(line.box, in_the_south))
            continue;
        MapRing ring = ring_of(line);
        if (holds(ring, in_the_north) && holds(ring, in_the_south))
            return ring;
    }
    return {};
}

/// By the sides of the ring that a parallel meets east of the point.
bool holds(const MapRing& ring, const MapPosition& point) {
    bool inside = false;
    for (std::size_t i = 0, before = ring.size() - 1; i < ring.size(); before = i++) {
        const MapPosition& a = ring[before];
        const MapPosition& b = ring[i];
        if ((a.latitude > point.latitude) == (b.latitude > point.latitude))
            continue;
        const double part = (point.latitude - a.latitude) / (b.latitude - a.latitude);
        if (point.longitude < a.longitude + part * (b.longitude - a.longitude))
            inside = !inside;
    }
    return inside;
}

MapWindow box_of(const MapRing& ring, const MapWindow& window) {
    const auto [west, east] = std::minmax_element(
        ring.begin(), ring.end(), [](const auto& a, const auto& b) { return a.longitude < b.longitude; });
    const auto [south, north] = std::minmax_element(
        ring.begin(), ring.end(), [](const auto& a, const auto& b) { return a.latitude < b.latitude; });
    return {std::max(std::floor(west->longitude), window.west),
            std::max(std::floor(south->latitude), window.south),
            std::min(std::ceil(east->longitude), window.east),
            std::min(std::ceil(north->latitude), window.north)};
}

} // namespace halvane
