// SPDX-License-Identifier: MIT
#include "finemap/zones.h"

#include "ephemeris/modgeneral.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <unordered_map>

namespace halvane {
namespace {

double area_of(const MapRing& ring) {
    double twice = 0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const MapPosition& a = ring[i];
        const MapPosition& b = ring[(i + 1) % ring.size()];
        twice += a.longitude * b.latitude - b.longitude * a.latitude;
    }
    return twice / 2;
}

bool is_inside(const MapPosition& place, const MapRing& ring) {
    bool inside = false;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const MapPosition& a = ring[i];
        const MapPosition& b = ring[(i + 1) % ring.size()];
        if ((a.latitude > place.latitude) != (b.latitude > place.latitude) &&
            place.longitude < a.longitude + (b.longitude - a.longitude) * (place.latitude - a.latitude) /
                                                (b.latitude - a.latitude))
            inside = !inside;
    }
    return inside;
}

/// A way along a border with the class on its left.
struct Way {
    std::size_t from, to;
    bool gone = false;
};

/// The rings around one class.
class Rings {
public:
    Rings(const std::vector<MapPosition>& points, std::vector<Way> ways)
        : points_(points), ways_(std::move(ways)) {
        std::sort(ways_.begin(), ways_.end(), [](const Way& a, const Way& b) { return a.from < b.from; });
    }

    std::vector<MapRing> all() {
        for (Way& way : ways_)
            if (!way.gone)
                walk(way);
        return std::move(rings_);
    }

private:
    /// Goes on from a way until it comes back; what comes back earlier is a ring of its own.
    void walk(Way& first) {
        std::vector<std::size_t> path;
        std::unordered_map<std::size_t, std::size_t> position;
        for (Way* way = &first; way != nullptr;) {
            way->gone = true;
            position[way->from] = path.size();
            path.push_back(way->from);
            const auto met = position.find(way->to);
            if (met == position.end()) {
                way = next_of(*way);
                continue;
            }
            const std::size_t start = met->second;
            add_ring({path.begin() + static_cast<std::ptrdiff_t>(start), path.end()});
            for (std::size_t i = start; i < path.size(); ++i)
                position.erase(path[i]);
            path.resize(start);
            way = start == 0 ? nullptr : next_of(*way);
        }
    }

    /// The way that goes on: where several begin, the one that bounds the same corner of the class.
    Way* next_of(const Way& way) {
        const auto begin =
            std::lower_bound(ways_.begin(), ways_.end(), way.to,
                             [](const Way& each, std::size_t point) { return each.from < point; });
        Way* best = nullptr;
        double least = std::numeric_limits<double>::infinity();
        for (auto next = begin; next != ways_.end() && next->from == way.to; ++next) {
            if (next->gone)
                continue;
            const double turn = clockwise(way, *next);
            if (turn < least) {
                least = turn;
                best = &*next;
            }
        }
        return best;
    }

    /// Angle from the way back to the next one, clockwise                                       [rad]
    double clockwise(const Way& way, const Way& next) const {
        constexpr double turn = 2 * pi;
        const double back = direction(way.to, way.from);
        const double on = direction(next.from, next.to);
        const double angle = std::fmod(back - on + 2 * turn, turn);
        return angle == 0 ? turn : angle;
    }

    double direction(std::size_t from, std::size_t to) const {
        return std::atan2(points_[to].latitude - points_[from].latitude,
                          points_[to].longitude - points_[from].longitude);
    }

    void add_ring(const std::vector<std::size_t>& path) {
        MapRing ring;
        for (const std::size_t point : path)
            ring.push_back(points_[point]);
        if (ring.size() > 2 && area_of(ring) != 0)
            rings_.push_back(std::move(ring));
    }

    const std::vector<MapPosition>& points_;
    std::vector<Way> ways_;
    std::vector<MapRing> rings_;
};

/// Puts each hole into the smallest ring around it.
std::vector<ZonePolygon> polygons_of(std::vector<MapRing> rings) {
    std::vector<ZonePolygon> polygons;
    std::vector<double> areas;
    for (MapRing& ring : rings)
        if (const double area = area_of(ring); area > 0) {
            polygons.push_back({std::move(ring), {}});
            areas.push_back(area);
        }
    for (MapRing& hole : rings) {
        if (hole.empty())
            continue; // taken above
        std::size_t around = polygons.size();
        for (std::size_t i = 0; i < polygons.size(); ++i)
            if ((around == polygons.size() || areas[i] < areas[around]) && -area_of(hole) < areas[i] &&
                is_inside(hole.front(), polygons[i].outer))
                around = i;
        if (around < polygons.size())
            polygons[around].holes.push_back(std::move(hole));
    }
    return polygons;
}

} // namespace

std::vector<MapZone> zones_within(const ClassBorders& borders) {
    std::vector<std::vector<Way>> ways(map_classes);
    const auto ways_of = [&ways](MapClass each) -> std::vector<Way>& {
        return ways[static_cast<std::size_t>(each)];
    };
    for (const BorderSegment& segment : borders.segments) {
        ways_of(segment.left).push_back({segment.from, segment.to});
        ways_of(segment.right).push_back({segment.to, segment.from});
    }
    for (const BorderSegment& segment : borders.frame)
        ways_of(segment.left).push_back({segment.from, segment.to});
    std::vector<MapZone> zones;
    for (std::size_t each = 0; each < ways.size(); ++each) {
        std::vector<ZonePolygon> polygons = polygons_of(Rings(borders.points, std::move(ways[each])).all());
        if (!polygons.empty())
            zones.push_back({static_cast<MapClass>(each), std::move(polygons)});
    }
    return zones;
}

} // namespace halvane
