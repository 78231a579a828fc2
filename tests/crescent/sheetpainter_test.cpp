// SPDX-License-Identifier: MIT
#include "crescent/sheetpainter.h"

#include "crescent/mapmarks.h"
#include "crescent/mapsheet.h"
#include "crescent/maptexts.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace halvane {
namespace {

/// Notes what is drawn, in order.
class NotedSurface : public MapSurface {
public:
    struct Words {
        int left;
        int line;
        std::string text;
        bool operator==(const Words&) const = default;
    };

    void circle(const MapPixel& centre, const ClassColour& colour) override {
        EXPECT_TRUE(marks.empty() && words.empty()) << "the marks and the words stand over the circles";
        circles.emplace_back(centre, colour);
    }
    void mark(const MapPixel& centre, char figure, const ClassColour& colour,
              const ClassColour& rim) override {
        EXPECT_EQ(colour, MapSheet::ink);
        EXPECT_EQ(rim, MapSheet::paper);
        EXPECT_EQ(centre.x, static_cast<int>(centre.x)) << "on a whole pixel";
        EXPECT_EQ(centre.y, static_cast<int>(centre.y)) << "on a whole pixel";
        marks.push_back(figure);
    }
    void fill(const Square& square, const ClassColour& colour) override {
        squares.push_back(square);
        fills.push_back(colour);
    }
    void outline(const Square& square, const ClassColour& colour) override {
        ASSERT_EQ(squares.size(), ++outlines) << "round the square that was filled";
        EXPECT_EQ(square.left, squares.back().left);
        EXPECT_EQ(square.top, squares.back().top);
        EXPECT_EQ(square.side, squares.back().side);
        EXPECT_EQ(colour, MapSheet::ink);
    }
    void write(int left, int line, const std::string& text, const ClassColour& colour) override {
        EXPECT_EQ(colour, MapSheet::ink);
        words.push_back({left, line, text});
    }

    std::vector<std::pair<MapPixel, ClassColour>> circles;
    std::vector<char> marks;
    std::vector<Square> squares;
    std::vector<ClassColour> fills;
    std::size_t outlines = 0;
    std::vector<Words> words;
};

/// A western half that is impossible and an eastern one that is not possible.
std::vector<MapPoint> two_halves() {
    std::vector<MapPoint> points;
    for (int longitude = MapGrid::west; longitude <= MapGrid::east; longitude += MapGrid::step)
        for (int latitude = MapGrid::south; latitude <= MapGrid::north; latitude += MapGrid::step)
            points.push_back({longitude, latitude,
                              longitude < 0 ? VisibilityClass::impossible : VisibilityClass::not_possible,
                              true});
    return points;
}

TEST(SheetPainter, CirclesAreThePointsWithAColourAndMarksThoseOfTheZones) {
    const std::vector<MapPoint> points = two_halves();
    MapSheetContent content;
    content.points = points;
    NotedSurface surface;
    paint_sheet(surface, content);
    MapClasses classes;
    std::size_t circle = 0;
    for (const MapPoint& point : points) {
        classes.add(point);
        if (point.visibility == VisibilityClass::not_possible)
            continue;
        ASSERT_LT(circle, surface.circles.size());
        const auto& [centre, colour] = surface.circles[circle++];
        const MapPixel expected = map_pixel(point.longitude, point.latitude);
        ASSERT_TRUE(centre.x == expected.x && centre.y == expected.y);
        ASSERT_EQ(colour, (ClassColour{238, 0, 0}));
    }
    EXPECT_EQ(circle, surface.circles.size());
    std::vector<char> marks;
    for (const MapMark& mark : map_marks(classes))
        marks.push_back(class_mark(mark.visibility));
    EXPECT_GE(marks.size(), 2U);
    EXPECT_EQ(surface.marks, marks);
    EXPECT_TRUE(surface.words.empty());
}

TEST(SheetPainter, WordsStandBelowTheMapInTheLanguageAskedFor) {
    for (const Language language : languages)
        for (const CriterionRow& criterion : criteria()) {
            MapSheetContent content;
            content.information = {"first", "second"};
            content.legend = map_legend(criterion);
            content.bare = {1, 2, 3};
            content.language = language;
            NotedSurface surface;
            paint_sheet(surface, content);
            std::vector<NotedSurface::Words> words{{12, 0, "first"}, {12, 1, "second"}};
            ASSERT_EQ(surface.squares.size(), content.legend.size());
            EXPECT_EQ(surface.outlines, content.legend.size());
            for (int line = 0; line < static_cast<int>(content.legend.size()); ++line) {
                const auto i = static_cast<std::size_t>(line);
                const LegendLine& entry = content.legend[i];
                words.push_back({391, line, {class_mark(entry.visibility)}});
                words.push_back({409, line, entry.text.in(language)});
                EXPECT_EQ(surface.squares[i].left, 374);
                EXPECT_EQ(surface.squares[i].top, 428 + 20 * line);
                EXPECT_EQ(surface.squares[i].side, 11);
                const bool is_bare = entry.visibility == VisibilityClass::not_possible;
                EXPECT_EQ(surface.fills[i], is_bare ? content.bare : class_colour(entry.visibility));
            }
            EXPECT_EQ(surface.words, words);
            EXPECT_LE(content.legend.size(), static_cast<std::size_t>(MapSheet::lines)) << criterion.key;
        }
}

} // namespace
} // namespace halvane
