// SPDX-License-Identifier: MIT
#include "finemap/mapborders.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <unordered_map>
#include <utility>

namespace halvane {
namespace {

using PointNumber = std::uint32_t;

struct PositionHash {
    std::size_t operator()(const MapPosition& place) const {
        const std::hash<double> hash;
        return hash(place.longitude) * 31 + hash(place.latitude);
    }
};

/// Numbers the points of all rings: equal points have one number.
class PointList {
public:
    PointNumber number_of(const MapPosition& place) {
        const auto [found, is_new] = numbers_.try_emplace(place, static_cast<PointNumber>(points_.size()));
        if (is_new)
            points_.push_back(place);
        return found->second;
    }
    const MapPosition& at(PointNumber number) const { return points_[number]; }

private:
    std::unordered_map<MapPosition, PointNumber, PositionHash> numbers_;
    std::vector<MapPosition> points_;
};

constexpr std::uint64_t edge_key(PointNumber from, PointNumber to) {
    return (std::uint64_t{from} << 32U) | to;
}

/// From each point to the next ones, along the borders of one pair of classes.
using Steps = std::map<PointNumber, std::vector<PointNumber>>;

class BorderFinder {
public:
    explicit BorderFinder(const FineMap& map) : has_date_line_(map.parts.size() > 1) {
        for (const MapZone& zone : map.zones)
            for (const ZonePolygon& polygon : zone.polygons) {
                add(polygon.outer, zone.map_class);
                for (const MapRing& hole : polygon.holes)
                    add(hole, zone.map_class);
            }
    }

    std::vector<MapBorder> borders() {
        for (const auto& [from, to] : order_) {
            const MapClass here = edges_.at(edge_key(from, to));
            const auto beyond = edges_.find(edge_key(to, from));
            if (beyond != edges_.end() && here < beyond->second)
                steps_[{here, beyond->second}][from].push_back(to);
        }
        std::vector<MapBorder> borders;
        for (auto& [classes, steps] : steps_)
            take_lines(classes, steps, borders);
        return borders;
    }

private:
    using Classes = std::pair<MapClass, MapClass>;

    /// The parts of a map meet at the date line, where the classes are of two dates: that is no border.
    bool is_side_of_parts(const MapPosition& from, const MapPosition& to) const {
        return has_date_line_ && from.longitude == antimeridian && to.longitude == antimeridian;
    }

    void add(const MapRing& ring, MapClass map_class) {
        if (ring.empty())
            return;
        const PointNumber first = points_.number_of(ring.front());
        PointNumber from = first;
        for (std::size_t i = 1; i <= ring.size(); ++i) {
            const PointNumber to = i == ring.size() ? first : points_.number_of(ring[i]);
            if (!is_side_of_parts(points_.at(from), points_.at(to))) {
                edges_[edge_key(from, to)] = map_class;
                order_.emplace_back(from, to);
            }
            from = to;
        }
    }

    /// Open lines first, which begin where none arrives; rings are what is left.
    void take_lines(const Classes& classes, Steps& steps, std::vector<MapBorder>& borders) const {
        std::map<PointNumber, std::size_t> arrivals;
        for (const auto& [from, next] : steps)
            for (const PointNumber to : next)
                ++arrivals[to];
        for (auto& [from, next] : steps)
            for (std::size_t more = arrivals.contains(from) ? arrivals.at(from) : 0; next.size() > more;)
                borders.push_back(taken_line(classes, steps, from));
        for (auto& [from, next] : steps)
            while (!next.empty())
                borders.push_back(taken_line(classes, steps, from));
    }

    MapBorder taken_line(const Classes& classes, Steps& steps, PointNumber from) const {
        MapBorder border{classes.first, classes.second, {points_.at(from)}, false};
        PointNumber here = from;
        for (auto next = steps.find(here); next != steps.end() && !next->second.empty();
             next = steps.find(here)) {
            here = next->second.back();
            next->second.pop_back();
            if (here == from) {
                border.closed = true;
                return border;
            }
            border.points.push_back(points_.at(here));
        }
        return border;
    }

    bool has_date_line_;
    PointList points_;
    std::unordered_map<std::uint64_t, MapClass> edges_;
    std::vector<std::pair<PointNumber, PointNumber>> order_;
    std::map<Classes, Steps> steps_;
};

} // namespace

std::vector<MapBorder> borders_of(const FineMap& map) {
    return BorderFinder(map).borders();
}

} // namespace halvane
