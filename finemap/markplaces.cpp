// SPDX-License-Identifier: MIT
#include "finemap/markplaces.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <map>
#include <optional>
#include <utility>

namespace halvane {
namespace {

/// The nearest of `count` lines of a grid; nothing outside it by more than half a step.
std::optional<std::size_t> nearest_line(double place, double first, double step, std::size_t count) {
    const double number = std::round((place - first) / step);
    if (!(number >= 0 && number < static_cast<double>(count)))
        return std::nullopt;
    return static_cast<std::size_t>(number);
}

class MarkStrewer {
public:
    MarkStrewer(const FineMap& map, const MapFrame& frame, const MarkPattern& pattern)
        : map_(map), frame_(frame), pattern_(pattern) {}

    std::vector<PlacedMark> strew() {
        each_knot(1, [this](const MapPosition& place) {
            if (const auto map_class = class_around(place, pattern_.radius))
                add(place, *map_class);
        });
        constexpr int finer = 4;
        constexpr double narrow = 0.6;
        each_knot(finer, [this](const MapPosition& place) {
            const auto map_class = class_around(place, narrow * pattern_.radius);
            if (map_class && has_room(place, *map_class))
                add(place, *map_class);
        });
        return marks_;
    }

private:
    /// Visits the knots of the net in the frame; `finer` of its meshes make one of the marks' own net, whose
    /// rows are staggered.
    template <class Visit>
    void each_knot(int finer, Visit visit) const {
        const double across = pattern_.spacing / finer / frame_.x_scale();
        const double up = pattern_.spacing / finer / frame_.y_scale();
        const MapWindow& window = frame_.window;
        for (double row = std::ceil(window.south / up); row * up < window.north; ++row) {
            const double shift = finer == 1 && std::fmod(row, 2) != 0 ? 0.5 : 0;
            for (double column = std::ceil(window.west / across - shift);
                 (column + shift) * across < window.east; ++column)
                visit({(column + shift) * across, row * up});
        }
    }

    /// The class of a place when it is that of all places within `radius`, and of the mesh of the grid that
    /// it lies in.
    std::optional<MapClass> class_around(const MapPosition& place, double radius) const {
        const MapNode* const middle = node_near(map_, place);
        if (middle == nullptr)
            return std::nullopt;
        const double reach_x = std::max(radius / frame_.x_scale(), map_.settings.step);
        const double reach_y = std::max(radius / frame_.y_scale(), map_.settings.step);
        constexpr std::array<std::array<double, 2>, 8> around{
            {{1, 0}, {-1, 0}, {0, 1}, {0, -1}, {.7, .7}, {.7, -.7}, {-.7, .7}, {-.7, -.7}}};
        for (const auto& [east, north] : around) {
            const MapNode* const node =
                node_near(map_, {place.longitude + east * reach_x, place.latitude + north * reach_y});
            if (node == nullptr || node->map_class != middle->map_class)
                return std::nullopt;
        }
        return middle->map_class;
    }

    void add(const MapPosition& place, MapClass map_class) {
        marks_.push_back({place, map_class});
        cells_[cell_of(place, 0, 0)].push_back(marks_.back());
    }

    /// Whether no mark stands close, and none of the same class near.
    bool has_room(const MapPosition& place, MapClass map_class) const {
        for (const int across : {-1, 0, 1})
            for (const int up : {-1, 0, 1}) {
                const auto cell = cells_.find(cell_of(place, across, up));
                if (cell != cells_.end() && !is_clear(cell->second, place, map_class))
                    return false;
            }
        return true;
    }

    bool is_clear(const std::vector<PlacedMark>& marks, const MapPosition& place, MapClass map_class) const {
        return std::none_of(marks.begin(), marks.end(), [&](const PlacedMark& mark) {
            const double x = (mark.position.longitude - place.longitude) * frame_.x_scale();
            const double y = (mark.position.latitude - place.latitude) * frame_.y_scale();
            const double least = mark.map_class == map_class ? near_ * pattern_.spacing : 4 * pattern_.radius;
            return x * x + y * y < least * least;
        });
    }

    /// The cell of a place, or one beside it; cells are as wide as marks of a class are apart at least.
    std::pair<int, int> cell_of(const MapPosition& place, int across, int up) const {
        const double size = std::max(near_ * pattern_.spacing, 4 * pattern_.radius);
        return {static_cast<int>(std::floor(place.longitude * frame_.x_scale() / size)) + across,
                static_cast<int>(std::floor(place.latitude * frame_.y_scale() / size)) + up};
    }

    static constexpr double near_ = 1.3; ///< of the spacing

    const FineMap& map_;
    const MapFrame& frame_;
    const MarkPattern& pattern_;
    std::vector<PlacedMark> marks_;
    std::map<std::pair<int, int>, std::vector<PlacedMark>> cells_;
};

} // namespace

const MapNode* node_near(const FineMap& map, const MapPosition& place) {
    for (const MapPart& part : map.parts) {
        const auto column = nearest_line(place.longitude, part.west, part.step, part.columns);
        const auto row = nearest_line(place.latitude, part.south, part.step, part.rows);
        if (column && row)
            return &part.at(*column, *row);
    }
    return nullptr;
}

std::vector<PlacedMark> mark_places(const FineMap& map, const MapFrame& frame, const MarkPattern& pattern) {
    return MarkStrewer(map, frame, pattern).strew();
}

} // namespace halvane
