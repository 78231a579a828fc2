// SPDX-License-Identifier: MIT
#include "finemap/maplines.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <unordered_map>

namespace halvane {
namespace {

/// A side of a cell between two nodes, as a number that both cells know it by.
using SideKey = std::uint64_t;

/// The ends of the pieces of a level's lines, and how they hang together: two pieces at most at each.
class Level {
public:
    std::size_t end_at(SideKey side, const MapPosition& place) {
        const auto [found, is_new] = ends_.try_emplace(side, points_.size());
        if (is_new) {
            points_.push_back(place);
            neighbours_.push_back({none, none});
        }
        return found->second;
    }
    void join(std::size_t a, std::size_t b) {
        add(a, b);
        add(b, a);
    }

    void take_lines(double level, std::vector<MapLine>& lines) {
        for (std::size_t i = 0; i < points_.size(); ++i)
            if (neighbours_[i][1] == none)
                take_line(level, i, lines);
        for (std::size_t i = 0; i < points_.size(); ++i)
            take_line(level, i, lines);
    }

private:
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    void add(std::size_t at, std::size_t neighbour) {
        std::array<std::size_t, 2>& known = neighbours_[at];
        (known[0] == none ? known[0] : known[1]) = neighbour;
    }

    void take_line(double level, std::size_t first, std::vector<MapLine>& lines) {
        if (neighbours_[first][0] == none)
            return; // taken already
        MapLine line{level, {}, false};
        std::size_t before = none;
        std::size_t now = first;
        while (now != none && !line.closed) {
            line.points.push_back(points_[now]);
            const auto [one, other] = neighbours_[now];
            neighbours_[now] = {none, none};
            const std::size_t next = one != before || before == none ? one : other;
            before = now;
            now = next;
            line.closed = now == first;
        }
        if (line.points.size() > 1)
            lines.push_back(std::move(line));
    }

    std::unordered_map<SideKey, std::size_t> ends_;
    std::vector<MapPosition> points_;
    std::vector<std::array<std::size_t, 2>> neighbours_;
};

/// A node with what its lines need.
struct Place {
    std::size_t index;
    MapPosition position;
    double value;
};

class LineSearch {
public:
    LineSearch(const MapPart& part, MapQuantity quantity, double every)
        : part_(part), quantity_(quantity), every_(every) {}

    void find(std::vector<MapLine>& lines) {
        for (std::size_t row = 0; row + 1 < part_.rows; ++row)
            for (std::size_t column = 0; column + 1 < part_.columns; ++column) {
                const Place south_west = at(column, row);
                const Place north_east = at(column + 1, row + 1);
                cut({south_west, at(column + 1, row), north_east});
                cut({south_west, north_east, at(column, row + 1)});
            }
        for (auto& [number, level] : levels_)
            level.take_lines(static_cast<double>(number) * every_, lines);
    }

private:
    Place at(std::size_t column, std::size_t row) const {
        return {row * part_.columns + column,
                {part_.longitude(column), part_.latitude(row)},
                quantity_of(part_.at(column, row), quantity_)};
    }

    void cut(std::array<Place, 3> triangle) {
        std::sort(triangle.begin(), triangle.end(),
                  [](const Place& a, const Place& b) { return a.value < b.value; });
        const auto& [low, middle, high] = triangle;
        // Where an event goes over to another day there is a step and no line.
        constexpr double most_levels = 12;
        if (!std::isfinite(low.value + middle.value + high.value) ||
            high.value - low.value > most_levels * every_)
            return;
        for (auto number = static_cast<long>(std::floor(low.value / every_)) + 1;
             static_cast<double>(number) * every_ <= high.value; ++number) {
            const double level = static_cast<double>(number) * every_;
            Level& lines = levels_[number];
            const std::size_t one = end_of(lines, low, high, level);
            const std::size_t other =
                level > middle.value ? end_of(lines, middle, high, level) : end_of(lines, low, middle, level);
            lines.join(one, other);
        }
    }

    std::size_t end_of(Level& lines, const Place& low, const Place& high, double level) const {
        const double share = (level - low.value) / (high.value - low.value);
        const SideKey side = std::min(low.index, high.index) * 4 + direction(low.index, high.index);
        return lines.end_at(
            side, {low.position.longitude + share * (high.position.longitude - low.position.longitude),
                   low.position.latitude + share * (high.position.latitude - low.position.latitude)});
    }

    /// Which of the sides that begin at the first of two nodes goes to the other.
    SideKey direction(std::size_t a, std::size_t b) const {
        const std::size_t apart = std::max(a, b) - std::min(a, b);
        return apart == 1 ? 0 : apart == part_.columns ? 1 : 2;
    }

    const MapPart& part_;
    MapQuantity quantity_;
    double every_;
    std::map<long, Level> levels_;
};

} // namespace

float quantity_of(const MapNode& node, MapQuantity quantity) {
    switch (quantity) {
    case MapQuantity::lag:
        return node.lag;
    case MapQuantity::age:
        return node.age;
    case MapQuantity::altitude:
        return node.altitude;
    case MapQuantity::elongation:
        break;
    }
    return node.elongation;
}

std::vector<MapLine> map_lines(const FineMap& map, MapQuantity quantity, double every) {
    std::vector<MapLine> lines;
    for (const MapPart& part : map.parts)
        LineSearch(part, quantity, every).find(lines);
    return lines;
}

} // namespace halvane
