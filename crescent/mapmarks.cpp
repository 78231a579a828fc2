// SPDX-License-Identifier: MIT
#include "crescent/mapmarks.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

namespace halvane {

bool MapClasses::add(const MapPoint& point) {
    return places_.emplace(std::pair(point.longitude, point.latitude), point.visibility).second;
}

std::optional<VisibilityClass> MapClasses::at(int longitude, int latitude) const {
    if (const auto found = places_.find({longitude, latitude}); found != places_.end())
        return found->second;
    const bool within = longitude >= MapGrid::west && longitude <= MapGrid::east &&
                        latitude >= MapGrid::south && latitude <= MapGrid::north;
    if (!within)
        return std::nullopt;
    const auto corner = places_.find({MapGrid::block_west_of(longitude), MapGrid::block_north_of(latitude)});
    if (corner != places_.end() && corner->second == VisibilityClass::not_possible)
        return VisibilityClass::not_possible;
    return std::nullopt;
}

std::optional<VisibilityClass> MapClasses::nearest(double x, double y) const {
    const MapPixel origin = map_pixel(0, 0);
    const MapPixel step = map_pixel(MapGrid::step, MapGrid::step);
    const auto steps = [](double from_origin, double of_one) {
        return MapGrid::step * static_cast<int>(std::lround(from_origin / of_one));
    };
    return at(steps(x - origin.x, step.x - origin.x), steps(y - origin.y, step.y - origin.y));
}

namespace {

constexpr int columns = (MapGrid::east - MapGrid::west) / MapGrid::step + 1;
constexpr int rows = (MapGrid::north - MapGrid::south) / MapGrid::step + 1;

/// A place of the grid, counted from its north-western corner.
struct Cell {
    int column = 0;
    int row = 0;
};

std::size_t index_of(const Cell& cell) {
    return static_cast<std::size_t>(cell.row) * columns + static_cast<std::size_t>(cell.column);
}

bool is_inside(const Cell& cell) {
    return cell.column >= 0 && cell.column < columns && cell.row >= 0 && cell.row < rows;
}

MapPixel pixel_of(const Cell& cell) {
    return map_pixel(MapGrid::west + MapGrid::step * cell.column, MapGrid::north - MapGrid::step * cell.row);
}

double distance(const MapPixel& a, const MapPixel& b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

/// The cells of one class that hang together.
struct Zone {
    VisibilityClass visibility{};
    std::vector<Cell> cells;
};

class MarkLayout {
public:
    explicit MarkLayout(const MapClasses& classes) {
        for (int row = 0; row < rows; ++row)
            for (int column = 0; column < columns; ++column)
                classes_.push_back(
                    classes.at(MapGrid::west + MapGrid::step * column, MapGrid::north - MapGrid::step * row));
        find_zones();
        measure_clearances();
    }

    /// The smallest zones first, since they have the least choice.
    std::vector<MapMark> marks() {
        std::stable_sort(zones_.begin(), zones_.end(),
                         [](const Zone& a, const Zone& b) { return a.cells.size() < b.cells.size(); });
        for (std::size_t i = 0; i < zones_.size(); ++i)
            mark_zone(zones_[i], is_largest(i));
        return marks_;
    }

private:
    static constexpr int room = 2;           ///< clearance of a mark within its zone [cells]
    static constexpr int deep = 6;           ///< more clearance than this makes no better place [cells]
    static constexpr int room_of_repeat = 3; ///< clearance of every further mark [cells]
    static constexpr double apart = 14;      ///< of any two marks [pixels of the map]
    static constexpr double repeated = 180;  ///< of two marks of a zone [pixels of the map]

    void find_zones() {
        std::vector<bool> seen(classes_.size(), false);
        for (int row = 0; row < rows; ++row)
            for (int column = 0; column < columns; ++column)
                if (const Cell cell{column, row}; classes_[index_of(cell)] && !seen[index_of(cell)])
                    zones_.push_back(zone_from(cell, seen));
    }

    Zone zone_from(const Cell& first, std::vector<bool>& seen) const {
        Zone zone{*classes_[index_of(first)], {first}};
        seen[index_of(first)] = true;
        for (std::size_t i = 0; i < zone.cells.size(); ++i) {
            const Cell at = zone.cells[i];
            for (const Cell& next : {Cell{at.column - 1, at.row}, Cell{at.column + 1, at.row},
                                     Cell{at.column, at.row - 1}, Cell{at.column, at.row + 1}}) {
                if (!is_inside(next) || seen[index_of(next)] || classes_[index_of(next)] != zone.visibility)
                    continue;
                seen[index_of(next)] = true;
                zone.cells.push_back(next);
            }
        }
        return zone;
    }

    /// How many steps, diagonal ones too, lead from each cell out of its zone; the edge of the map is an
    /// edge.
    void measure_clearances() {
        clearances_.assign(classes_.size(), deep);
        for (int row = 0; row < rows; ++row)
            for (int column = 0; column < columns; ++column)
                clearances_[index_of({column, row})] = clearance_at({column, row});
    }

    int clearance_at(const Cell& cell) const {
        for (int ring = 1; ring < deep; ++ring)
            for (int along = -ring; along <= ring; ++along)
                for (const Cell& other :
                     {Cell{cell.column + along, cell.row - ring}, Cell{cell.column + along, cell.row + ring},
                      Cell{cell.column - ring, cell.row + along}, Cell{cell.column + ring, cell.row + along}})
                    if (!is_inside(other) || classes_[index_of(other)] != classes_[index_of(cell)])
                        return ring;
        return deep;
    }

    bool is_largest(std::size_t zone) const {
        for (std::size_t i = zone + 1; i < zones_.size(); ++i)
            if (zones_[i].visibility == zones_[zone].visibility)
                return false;
        return true;
    }

    void mark_zone(const Zone& zone, bool however_small) {
        if (!mark_best(zone, room, apart) && however_small && !mark_best(zone, 1, apart))
            mark_best(zone, 1, 0);
        while (mark_best(zone, room_of_repeat, repeated)) {
        }
    }

    /// Puts a mark on the cell with the most clearance, the middlemost of several; false when there is none
    /// with `least` clearance that is `off` from every mark.
    bool mark_best(const Zone& zone, int least, double off) {
        const Cell* best = nullptr;
        int most = least - 1;
        double nearest = std::numeric_limits<double>::infinity();
        const MapPixel middle = middle_of(zone);
        for (const Cell& cell : zone.cells) {
            const int clearance = clearances_[index_of(cell)];
            const double from_middle = distance(pixel_of(cell), middle);
            if (clearance < most || (clearance == most && from_middle >= nearest) ||
                !is_clear(cell, zone, off))
                continue;
            best = &cell;
            most = clearance;
            nearest = from_middle;
        }
        if (best == nullptr || most < least)
            return false;
        marks_.push_back({pixel_of(*best), zone.visibility});
        return true;
    }

    /// Marks of other zones are kept `apart` only.
    bool is_clear(const Cell& cell, const Zone& zone, double off) const {
        return std::all_of(marks_.begin(), marks_.end(), [&](const MapMark& mark) {
            const double wanted = mark.visibility == zone.visibility ? off : std::min(off, apart);
            return distance(mark.centre, pixel_of(cell)) >= wanted;
        });
    }

    static MapPixel middle_of(const Zone& zone) {
        MapPixel sum{0, 0};
        for (const Cell& cell : zone.cells) {
            sum.x += pixel_of(cell).x;
            sum.y += pixel_of(cell).y;
        }
        const auto count = static_cast<double>(zone.cells.size());
        return {sum.x / count, sum.y / count};
    }

    std::vector<std::optional<VisibilityClass>> classes_;
    std::vector<int> clearances_;
    std::vector<Zone> zones_;
    std::vector<MapMark> marks_;
};

} // namespace

std::vector<MapMark> map_marks(const MapClasses& classes) {
    return MarkLayout(classes).marks();
}

} // namespace halvane
