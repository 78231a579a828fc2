// SPDX-License-Identifier: MIT
#include "hijri/mainland.h"

#include <algorithm>
#include <cmath>

namespace halvane {
namespace {

// Places of its north and its south, by which the coast is known: Denver and Brasilia.
constexpr MapPosition in_the_north{-105, 39.7};
constexpr MapPosition in_the_south{-47.9, -15.8};

/// The ring by points a quarter of a degree apart at least: whole degrees are asked whether they are land.
MapRing ring_of(const WorldLine& line) {
    constexpr double apart = 0.25; // [deg]
    MapRing ring;
    for (const WorldPoint& point : line.points)
        if (ring.empty() || std::fabs(point.longitude - ring.back().longitude) >= apart ||
            std::fabs(point.latitude - ring.back().latitude) >= apart)
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
        const Land land(ring);
        if (land.holds(in_the_north) && land.holds(in_the_south))
            return ring;
    }
    return {};
}

Land::Land(const MapRing& coast) : coast_(coast) {
    if (coast_.empty())
        return;
    const auto [south, north] = std::minmax_element(
        coast_.begin(), coast_.end(), [](const auto& a, const auto& b) { return a.latitude < b.latitude; });
    south_ = std::floor(south->latitude);
    for (double latitude = south_; latitude <= north->latitude; ++latitude)
        of_whole_degrees_.push_back(crossings(latitude));
}

std::vector<double> Land::crossings(double latitude) const {
    std::vector<double> crossings;
    for (std::size_t i = 0, before = coast_.size() - 1; i < coast_.size(); before = i++) {
        const MapPosition& a = coast_[before];
        const MapPosition& b = coast_[i];
        if ((a.latitude > latitude) == (b.latitude > latitude))
            continue;
        const double part = (latitude - a.latitude) / (b.latitude - a.latitude);
        crossings.push_back(a.longitude + part * (b.longitude - a.longitude));
    }
    std::sort(crossings.begin(), crossings.end());
    return crossings;
}

bool Land::holds(const MapPosition& point) const {
    const auto is_inside = [&point](const std::vector<double>& crossings) {
        const auto east = std::upper_bound(crossings.begin(), crossings.end(), point.longitude);
        return (east - crossings.begin()) % 2 == 1;
    };
    const double row = point.latitude - south_;
    if (row != std::floor(row))
        return is_inside(crossings(point.latitude));
    return row >= 0 && row < static_cast<double>(of_whole_degrees_.size()) &&
           is_inside(of_whole_degrees_[static_cast<std::size_t>(row)]);
}

MapWindow Land::box_within(const MapWindow& window) const {
    const auto [west, east] = std::minmax_element(
        coast_.begin(), coast_.end(), [](const auto& a, const auto& b) { return a.longitude < b.longitude; });
    const double north = south_ + static_cast<double>(of_whole_degrees_.size());
    return {std::max(std::floor(west->longitude), window.west), std::max(south_, window.south),
            std::min(std::ceil(east->longitude), window.east), std::min(north, window.north)};
}

} // namespace halvane
