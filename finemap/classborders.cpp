// SPDX-License-Identifier: MIT
#include "finemap/classborders.h"

#include "base/sharedwork.h"
#include "events/bracketedroot.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <unordered_map>

namespace halvane {
namespace {

/// Where the class changes on the way along a side.
struct Crossing {
    MapPosition place;
    MapClass before, after;
    std::size_t point = 0; ///< its index
};

using Crossings = std::vector<Crossing>;

MapPosition between(const MapPosition& a, const MapPosition& b, double share) {
    return {a.longitude + share * (b.longitude - a.longitude),
            a.latitude + share * (b.latitude - a.latitude)};
}

double distance(const MapPosition& a, const MapPosition& b) {
    return std::hypot(b.longitude - a.longitude, b.latitude - a.latitude);
}

Crossings reversed(Crossings way) {
    std::reverse(way.begin(), way.end());
    for (Crossing& crossing : way)
        std::swap(crossing.before, crossing.after);
    return way;
}

bool differ_in_sign(std::optional<double> a, std::optional<double> b) {
    return a && b && (*a < 0) != (*b < 0);
}

/// Finds the crossings of one side.
class SideSearch {
public:
    /// In,out last  a place judged before, better the nearer it is; then the last of the side
    SideSearch(const MapJudge& judge, const MapPosition& from, const MapPosition& to,
               std::optional<JudgedPlaceOfMap>& last)
        : judge_(judge), from_(from), to_(to), length_(distance(from, to)), last_(last) {}

    /// In     at_from, at_to  the numbers of the side's ends
    Crossings find(const MapNode& at_from, const MapNode& at_to) {
        constexpr int depth = 8;
        find(0, at_from, 1, at_to, depth);
        return std::move(found_);
    }
    Crossings find() { return find(node_of(at(0)), node_of(at(1))); }

private:
    static constexpr double tolerance = 1e-5; // [deg]
    static constexpr double of_events = 1e-4; // [deg]

    const JudgedPlaceOfMap& at(double share) {
        last_ = judge_.judge(between(from_, to_, share), last_ ? &*last_ : nullptr);
        return *last_;
    }

    void add(double share, MapClass before, MapClass after) {
        // Corners belong to several sides: a crossing keeps off them.
        const double off = tolerance / length_;
        found_.push_back({between(from_, to_, std::clamp(share, off, 1 - off)), before, after});
    }

    void find(double a, const MapNode& at_a, double b, const MapNode& at_b, int depth) {
        if (at_a.map_class == at_b.map_class)
            return;
        if (depth == 0 || (b - a) * length_ < 4 * tolerance) {
            add((a + b) / 2, at_a.map_class, at_b.map_class);
            return;
        }
        const ClassBorder border(judge_, at_a.map_class, at_b.map_class);
        const auto [low, high] = around_change(border, a, at_a, b, at_b);
        if (border.is_of_neighbours() && high - low < b - a) {
            add((low + high) / 2, at_a.map_class, at_b.map_class);
            return;
        }
        const MapNode at_low = node_of(at(low));
        const MapNode at_high = node_of(at(high));
        find(a, at_a, low, at_low, depth - 1);
        if (at_low.map_class != at_high.map_class)
            add((low + high) / 2, at_low.map_class, at_high.map_class);
        find(high, at_high, b, at_b, depth - 1);
    }

    struct Interval {
        double low, high;
    };

    /// A short interval in which the class changes.
    Interval around_change(const ClassBorder& border, double a, const MapNode& at_a, double b,
                           const MapNode& at_b) {
        const std::optional<double> margin_a = border.margin(between(from_, to_, a), at_a);
        const std::optional<double> margin_b = border.margin(between(from_, to_, b), at_b);
        if (!differ_in_sign(margin_a, margin_b))
            return halved(a, at_a.map_class, b);
        const auto margin = [&](double share) {
            return border.margin_at(between(from_, to_, share), last_).value_or(*margin_a);
        };
        const double off = (border.is_of_events() ? of_events : tolerance) / length_;
        const double root = bracketed_root(margin, a, *margin_a, b, *margin_b, off / 4);
        return {std::max(a, root - off), std::min(b, root + off)};
    }

    Interval halved(double a, MapClass class_a, double b) {
        while ((b - a) * length_ > tolerance) {
            const double middle = (a + b) / 2;
            (at(middle).map_class == class_a ? a : b) = middle;
        }
        return {a, b};
    }

    const MapJudge& judge_;
    MapPosition from_, to_;
    double length_;
    std::optional<JudgedPlaceOfMap>& last_;
    Crossings found_;
};

/// The sides that a cell brings along; the others are those of its neighbours.
enum class Side { south, west, diagonal };

/// A corner of the grid.
struct Corner {
    std::size_t column, row;
};

/// The crossings on the sides of a piece of a row of cells.
class PieceCrossings {
public:
    const Crossings* of(std::size_t column, Side side) const {
        const auto found = crossings_.find(key(column, side));
        return found == crossings_.end() ? nullptr : &found->second;
    }
    void put(std::size_t column, Side side, Crossings crossings) {
        order_.push_back(key(column, side));
        crossings_.emplace(order_.back(), std::move(crossings));
    }
    /// Gives every crossing a point of its own.
    void number(std::vector<MapPosition>& points) {
        for (const std::size_t each : order_)
            for (Crossing& crossing : crossings_.at(each)) {
                crossing.point = points.size();
                points.push_back(crossing.place);
            }
    }

private:
    static std::size_t key(std::size_t column, Side side) {
        return column * 3 + static_cast<std::size_t>(side);
    }

    std::vector<std::size_t> order_;
    std::unordered_map<std::size_t, Crossings> crossings_;
};

/// A triangle of the grid, its corners counter-clockwise.
using Triangle = std::array<Corner, 3>;

/// A triangle with the classes of its corners and what its sides are crossed by; a side begins at the corner
/// of its number and goes counter-clockwise.
struct CrossedTriangle {
    std::array<MapPosition, 3> corners;
    std::array<MapClass, 3> classes;
    std::array<Crossings, 3> sides;
};

/// Joins the crossings of a triangle by lines.
class TriangleLines {
public:
    struct Lines {
        std::vector<MapPosition> points; ///< beside those of the crossings
        std::vector<BorderSegment> segments;
    };

    /// In     first_point  the index of the first of `lines.points`
    TriangleLines(const MapJudge& judge, std::size_t first_point, Lines& lines)
        : judge_(judge), first_point_(first_point), lines_(lines) {}

    void join(const CrossedTriangle& triangle) {
        constexpr int depth = 7;
        join(triangle, depth);
    }

private:
    /// A line through a triangle: the crossing that leads out of a class and the one that leads into it.
    struct Line {
        Crossing out, into;
    };

    void join(const CrossedTriangle& triangle, int depth) {
        Crossings around;
        for (const Crossings& side : triangle.sides)
            around.insert(around.end(), side.begin(), side.end());
        std::vector<Line> found;
        while (std::optional<Line> line = take_neighbours(around))
            found.push_back(*line);
        if (!around.empty() && depth > 0) {
            join_quarters(triangle, depth - 1);
            return;
        }
        corners_ = triangle.corners;
        for (const Line& line : found)
            add_bent(line);
        if (!around.empty())
            join_in_middle(around);
    }

    /// Takes out two crossings that lead into a class and back. The nearest two first.
    static std::optional<Line> take_neighbours(Crossings& around) {
        std::size_t best = around.size();
        double shortest = 0;
        for (std::size_t i = 0; i < around.size(); ++i) {
            const Crossing& into = around[i];
            const Crossing& back = around[(i + 1) % around.size()];
            const double length = distance(into.place, back.place);
            if (into.before == back.after && (best == around.size() || length < shortest)) {
                best = i;
                shortest = length;
            }
        }
        if (best == around.size())
            return std::nullopt;
        const std::size_t next = (best + 1) % around.size();
        const Line line{around[next], around[best]};
        around.erase(around.begin() + static_cast<std::ptrdiff_t>(std::max(best, next)));
        around.erase(around.begin() + static_cast<std::ptrdiff_t>(std::min(best, next)));
        return line;
    }

    /// Three classes or more meet in the triangle: looks for the point in its quarters.
    void join_quarters(const CrossedTriangle& whole, int depth) {
        std::array<MapPosition, 3> middles;
        std::array<MapClass, 3> classes{};
        std::array<Crossings, 3> first, second; // halves of the sides
        for (std::size_t i = 0; i < middles.size(); ++i) {
            const MapPosition& from = whole.corners[i];
            middles[i] = between(from, whole.corners[(i + 1) % middles.size()], 0.5);
            classes[i] = whole.classes[i];
            for (const Crossing& crossing : whole.sides[i]) {
                const bool is_first = distance(from, crossing.place) < distance(from, middles[i]);
                (is_first ? first : second)[i].push_back(crossing);
                if (is_first)
                    classes[i] = crossing.after;
            }
        }
        std::array<Crossings, 3> inner; // from a middle to the next one
        for (std::size_t i = 0; i < inner.size(); ++i) {
            const std::size_t next = (i + 1) % inner.size();
            inner[i] = inner_side(middles[i], classes[i], middles[next], classes[next]);
        }
        for (std::size_t i = 0; i < middles.size(); ++i) {
            const std::size_t last = (i + 2) % middles.size();
            join({{whole.corners[i], middles[i], middles[last]},
                  {whole.classes[i], classes[i], classes[last]},
                  {first[i], reversed(inner[last]), second[last]}},
                 depth);
        }
        join({middles, classes, inner}, depth);
    }

    /// The crossings between two points whose classes are known.
    Crossings inner_side(const MapPosition& from, MapClass class_from, const MapPosition& to,
                         MapClass class_to) {
        if (class_from == class_to)
            return {};
        Crossings found = SideSearch(judge_, from, to, last_).find();
        // Beside a crossing of the outer side a middle may be judged otherwise than from there.
        constexpr double at_end = 1e-3; // of the side
        if (found.empty())
            found.push_back({between(from, to, 0.5), class_from, class_to});
        if (found.front().before != class_from)
            found.insert(found.begin(),
                         {between(from, found.front().place, at_end), class_from, found.front().before});
        if (found.back().after != class_to)
            found.push_back({between(to, found.back().place, at_end), found.back().after, class_to});
        for (Crossing& crossing : found)
            crossing.point = add_point(crossing.place);
        return found;
    }

    void join_in_middle(const Crossings& around) {
        MapPosition middle;
        for (const Crossing& crossing : around) {
            middle.longitude += crossing.place.longitude / static_cast<double>(around.size());
            middle.latitude += crossing.place.latitude / static_cast<double>(around.size());
        }
        const std::size_t point = add_point(middle);
        for (const Crossing& crossing : around)
            lines_.segments.push_back({point, crossing.point, crossing.after, crossing.before});
    }

    std::size_t add_point(const MapPosition& place) {
        lines_.points.push_back(place);
        return first_point_ + lines_.points.size() - 1;
    }

    /// The class is on the left of the line.
    void add_bent(const Line& line) {
        const MapClass left = line.into.after;
        const MapClass right = line.into.before;
        std::vector<MapPosition> bends;
        const ClassBorder border(judge_, left, right);
        constexpr int depth = 6;
        constexpr int depth_of_events = 3; // they cost more to look at
        bend(border, line.out.place, line.into.place, border.is_of_events() ? depth_of_events : depth, bends);
        std::size_t last = line.out.point;
        for (const MapPosition& place : bends) {
            const std::size_t next = add_point(place);
            lines_.segments.push_back({last, next, left, right});
            last = next;
        }
        lines_.segments.push_back({last, line.into.point, left, right});
    }

    /// Bends a line towards the border until it is as near as it should be.
    void bend(const ClassBorder& border, const MapPosition& a, const MapPosition& b, int depth,
              std::vector<MapPosition>& bends) {
        const std::optional<MapPosition> place = depth > 0 ? bent_middle(border, a, b) : std::nullopt;
        if (!place)
            return;
        // The halves of a bent line are a quarter as far from the border as it was.
        const bool is_slight = distance(*place, between(a, b, 0.5)) < 3 * near_enough(border);
        const int further = is_slight ? 0 : depth - 1;
        bend(border, a, *place, further, bends);
        bends.push_back(*place);
        bend(border, *place, b, further, bends);
    }

    /// How far off a line may be                                                                [deg]
    static double near_enough(const ClassBorder& border) { return border.is_of_events() ? 2e-3 : 1e-4; }

    /// Where the border passes the middle of a line; nothing where that is near enough or out of reach.
    std::optional<MapPosition> bent_middle(const ClassBorder& border, const MapPosition& a,
                                           const MapPosition& b) {
        constexpr double first_look = 0.005; // of the line's length
        const double enough = near_enough(border);
        const double length = distance(a, b);
        if (length < enough)
            return std::nullopt;
        const MapPosition middle = between(a, b, 0.5);
        const MapPosition across{-(b.latitude - a.latitude) / length, (b.longitude - a.longitude) / length};
        const auto beside = [&](double by) {
            return MapPosition{middle.longitude + by * across.longitude,
                               middle.latitude + by * across.latitude};
        };
        const auto margin = [&](double by) { return border.margin_at(beside(by), last_); };
        const double look = first_look * length;
        const std::optional<double> here = margin(0);
        const std::optional<double> left = margin(look);
        const std::optional<double> there = left ? left : margin(-look);
        if (!here || !there)
            return std::nullopt;
        const double first = left ? look : -look;
        const double off = *here / (*here - *there) * first;
        if (std::fabs(off) < enough)
            return std::nullopt;
        std::optional<double> passes = passed_near(margin, {first, *there}, off, length, enough);
        if (!passes)
            passes = passed_at(margin, *here, off, length);
        if (!passes || !is_inside(beside(*passes)))
            return std::nullopt;
        return beside(*passes);
    }

    /// A point of the line across with its margin.
    struct Looked {
        double off, margin;
    };

    /// Where the border passes by one more secant, when that is sure enough.
    template <class Margin>
    static std::optional<double> passed_near(const Margin& margin, const Looked& last, double expected,
                                             double length, double enough) {
        constexpr double reach = 0.3; // of the line's length
        if (!(std::fabs(expected) < reach * length))
            return std::nullopt;
        const std::optional<double> there = margin(expected);
        if (!there || *there == last.margin)
            return std::nullopt;
        const double passes = expected - *there * (expected - last.off) / (*there - last.margin);
        if (std::fabs(passes - expected) < enough)
            return passes;
        return std::nullopt;
    }

    /// Where the margin changes its sign on the line across: on either side of what is expected, then further
    /// off on both sides.
    template <class Margin>
    static std::optional<double> passed_at(const Margin& margin, double here, double expected,
                                           double length) {
        constexpr double reach = 0.3;     // of the line's length
        constexpr double accuracy = 5e-6; // [deg]
        constexpr int most_nearer = 6;
        for (double by : {2 * expected, reach * length, -reach * length}) {
            if (!(std::fabs(by) <= reach * length))
                continue;
            std::optional<double> there = margin(by);
            // Further off there may be no answer.
            for (int nearer = 0; !there && nearer < most_nearer; ++nearer)
                there = margin(by *= 0.7);
            if (differ_in_sign(here, there))
                return bracketed_root([&](double x) { return margin(x).value_or(here); }, 0, here, by, *there,
                                      accuracy);
        }
        return std::nullopt;
    }

    bool is_inside(const MapPosition& place) const {
        constexpr double least = 1e-7; // [square degrees]
        for (std::size_t i = 0; i < corners_.size(); ++i) {
            const MapPosition& a = corners_[i];
            const MapPosition& b = corners_[(i + 1) % corners_.size()];
            if ((b.longitude - a.longitude) * (place.latitude - a.latitude) -
                    (b.latitude - a.latitude) * (place.longitude - a.longitude) <
                least)
                return false;
        }
        return true;
    }

    const MapJudge& judge_;
    const std::size_t first_point_;
    Lines& lines_;
    std::array<MapPosition, 3> corners_{};
    std::optional<JudgedPlaceOfMap> last_; ///< judged
};

class BorderSearch {
public:
    BorderSearch(const MapJudge& judge, const MapPart& part)
        : judge_(judge), part_(part), pieces_of_row_((part.columns + piece - 1) / piece),
          crossings_(part.rows * pieces_of_row_), lines_((part.rows - 1) * pieces_of_row_) {}

    bool find_crossings(Progress& progress) {
        const auto begin = [this]() -> DoPiece {
            return [this](std::size_t number) { search_piece(number); };
        };
        if (!share_work(crossings_.size(), begin, progress))
            return false;
        for (PieceCrossings& crossings : crossings_)
            crossings.number(borders_.points);
        return true;
    }

    bool join(Progress& progress) {
        const auto begin = [this]() -> DoPiece { return [this](std::size_t number) { join_piece(number); }; };
        return share_work(lines_.size(), begin, progress);
    }

    ClassBorders take_borders() {
        for (const TriangleLines::Lines& lines : lines_)
            append(lines);
        add_frame();
        return std::move(borders_);
    }

private:
    MapPosition place(const Corner& corner) const {
        return {part_.longitude(corner.column), part_.latitude(corner.row)};
    }
    MapClass class_at(const Corner& corner) const { return part_.at(corner.column, corner.row).map_class; }

    /// Neighbouring cells lean to opposite sides.
    static bool leans_east(std::size_t column, std::size_t row) { return (column + row) % 2 == 0; }

    /// A side of a cell from its southern or its western end.
    struct Ends {
        Corner from, to;
    };
    static Ends ends_of(std::size_t column, std::size_t row, Side side) {
        switch (side) {
        case Side::south:
            return {{column, row}, {column + 1, row}};
        case Side::west:
            return {{column, row}, {column, row + 1}};
        case Side::diagonal:
            break;
        }
        return leans_east(column, row) ? Ends{{column, row}, {column + 1, row + 1}}
                                       : Ends{{column + 1, row}, {column, row + 1}};
    }

    /// Rows are cut into pieces: the work of a place differs so much that whole rows do not share out evenly.
    static constexpr std::size_t piece = 60; // columns

    /// A piece of a row: its columns from the first to before the end.
    struct Piece {
        std::size_t row, first, end;
    };
    Piece piece_of(std::size_t number) const {
        const std::size_t first = number % pieces_of_row_ * piece;
        return {number / pieces_of_row_, first, std::min(first + piece, part_.columns)};
    }
    std::size_t number_of(const Corner& corner) const {
        return corner.row * pieces_of_row_ + corner.column / piece;
    }

    void search_piece(std::size_t number) {
        const auto [row, first, end] = piece_of(number);
        const bool last_row = row + 1 == part_.rows;
        std::optional<JudgedPlaceOfMap> last;
        for (std::size_t column = first; column < end; ++column) {
            const bool last_column = column + 1 == part_.columns;
            if (!last_column)
                search_side(column, row, Side::south, last);
            if (!last_row)
                search_side(column, row, Side::west, last);
            if (!last_row && !last_column)
                search_side(column, row, Side::diagonal, last);
        }
    }

    void search_side(std::size_t column, std::size_t row, Side side, std::optional<JudgedPlaceOfMap>& last) {
        const auto [from, to] = ends_of(column, row, side);
        if (class_at(from) != class_at(to))
            crossings_[number_of({column, row})].put(
                column, side,
                SideSearch(judge_, place(from), place(to), last)
                    .find(part_.at(from.column, from.row), part_.at(to.column, to.row)));
    }

    void join_piece(std::size_t number) {
        const auto [row, first, end] = piece_of(number);
        TriangleLines lines(judge_, borders_.points.size(), lines_[number]);
        for (std::size_t column = first; column < std::min(end, part_.columns - 1); ++column)
            for (const Triangle& triangle : triangles(column, row))
                if (!is_of_one_class(triangle))
                    lines.join(crossed(triangle));
    }

    static std::array<Triangle, 2> triangles(std::size_t column, std::size_t row) {
        const Corner south_west{column, row};
        const Corner south_east{column + 1, row};
        const Corner north_east{column + 1, row + 1};
        const Corner north_west{column, row + 1};
        if (leans_east(column, row))
            return {Triangle{south_west, south_east, north_east},
                    Triangle{south_west, north_east, north_west}};
        return {Triangle{south_west, south_east, north_west}, Triangle{south_east, north_east, north_west}};
    }

    bool is_of_one_class(const Triangle& triangle) const {
        return class_at(triangle[0]) == class_at(triangle[1]) &&
               class_at(triangle[0]) == class_at(triangle[2]);
    }

    CrossedTriangle crossed(const Triangle& triangle) const {
        CrossedTriangle crossed;
        for (std::size_t i = 0; i < triangle.size(); ++i) {
            crossed.corners[i] = place(triangle[i]);
            crossed.classes[i] = class_at(triangle[i]);
            crossed.sides[i] = on_the_way(triangle[i], triangle[(i + 1) % triangle.size()]);
        }
        return crossed;
    }

    /// The crossings from one corner to a neighbouring one.
    Crossings on_the_way(const Corner& from, const Corner& to) const {
        const Corner south_west{std::min(from.column, to.column), std::min(from.row, to.row)};
        const Side side = from.row == to.row         ? Side::south
                          : from.column == to.column ? Side::west
                                                     : Side::diagonal;
        const Crossings* crossings = crossings_[number_of(south_west)].of(south_west.column, side);
        if (crossings == nullptr)
            return {};
        const Corner first = ends_of(south_west.column, south_west.row, side).from;
        const bool is_this_way = first.column == from.column && first.row == from.row;
        return is_this_way ? *crossings : reversed(*crossings);
    }

    /// Takes the lines of a piece over: their own points follow those that are there.
    void append(const TriangleLines::Lines& lines) {
        const std::size_t crossings = crossing_points();
        const std::size_t moved = borders_.points.size() - crossings;
        const auto moved_point = [&](std::size_t point) { return point < crossings ? point : point + moved; };
        borders_.points.insert(borders_.points.end(), lines.points.begin(), lines.points.end());
        for (const BorderSegment& segment : lines.segments)
            borders_.segments.push_back(
                {moved_point(segment.from), moved_point(segment.to), segment.left, segment.right});
    }

    std::size_t crossing_points() {
        if (!crossing_points_)
            crossing_points_ = borders_.points.size();
        return *crossing_points_;
    }

    void add_frame() {
        const std::size_t east = part_.columns - 1;
        const std::size_t north = part_.rows - 1;
        const std::array<Corner, 4> corners{{{0, 0}, {east, 0}, {east, north}, {0, north}}};
        const std::size_t first = borders_.points.size();
        for (const Corner& corner : corners)
            borders_.points.push_back(place(corner));
        for (std::size_t i = 0; i < corners.size(); ++i)
            add_frame_side(corners[i], first + i, corners[(i + 1) % corners.size()],
                           first + (i + 1) % corners.size());
    }

    void add_frame_side(const Corner& from, std::size_t from_point, const Corner& to, std::size_t to_point) {
        const auto step = [](std::size_t a, std::size_t b) { return a < b ? a + 1 : a > b ? a - 1 : a; };
        MapClass inside = class_at(from);
        std::size_t last = from_point;
        for (Corner now = from; now.column != to.column || now.row != to.row;) {
            const Corner next{step(now.column, to.column), step(now.row, to.row)};
            for (const Crossing& crossing : on_the_way(now, next)) {
                borders_.frame.push_back({last, crossing.point, inside, inside});
                last = crossing.point;
                inside = crossing.after;
            }
            now = next;
        }
        borders_.frame.push_back({last, to_point, inside, inside});
    }

    const MapJudge& judge_;
    const MapPart& part_;
    const std::size_t pieces_of_row_;
    std::vector<PieceCrossings> crossings_;   ///< by piece
    std::vector<TriangleLines::Lines> lines_; ///< by piece of the rows of cells
    std::optional<std::size_t> crossing_points_;
    ClassBorders borders_;
};

} // namespace

std::optional<ClassBorders> class_borders(const MapJudge& judge, const MapPart& part, Progress& progress) {
    BorderSearch search(judge, part);
    if (!search.find_crossings(progress) || !search.join(progress))
        return std::nullopt;
    return search.take_borders();
}

} // namespace halvane
