// SPDX-License-Identifier: MIT
#include "crescent/mapmarks.h"
#include "routines/seriesloader.h"
#include "tests/crescent/crescentfixture.h"

#include <cmath>
#include <gtest/gtest.h>
#include <map>
#include <set>

namespace halvane {
namespace {

using enum VisibilityClass;

/// Takes a drawing and counts its blocks.
class Drawing : public MapReceiver {
public:
    void point(const MapPoint& point) override {
        classes.add(point);
        painted[{point.longitude, point.latitude}] = point.visibility;
    }
    bool go_on() override { return ++blocks != stop_after; }
    MapClasses classes;
    std::map<std::pair<int, int>, VisibilityClass> painted;
    int blocks = 0;
    int stop_after = 0; ///< 0: never
};

class MapMarks : public CrescentTest {};

TEST_F(MapMarks, EveryClassHasAMarkOfItsOwn) {
    std::set<char> marks;
    for (const VisibilityClass c :
         {unknown, impossible, not_possible, optical_aid, second_band, third_band, easily_visible})
        marks.insert(class_mark(c));
    EXPECT_EQ(marks, (std::set<char>{'1', '2', '3', '4', '5', '6', '7'}));
}

TEST_F(MapMarks, ABareBlockIsKnownAndWhatIsNotDrawnIsNot) {
    const MapRun run = map_near(29, 3, 2025, CrescentKind::new_crescent, 0, Criterion::yallop);
    Drawing half;
    half.stop_after = MapGrid::blocks / 2;
    draw_visibility_map(loaded_theory(), run, half);
    Drawing whole;
    draw_visibility_map(loaded_theory(), run, whole);
    EXPECT_EQ(whole.blocks, MapGrid::blocks);
    int bare = 0;
    for (int longitude = MapGrid::west; longitude <= MapGrid::east; longitude += MapGrid::step)
        for (int latitude = MapGrid::south; latitude <= MapGrid::north; latitude += MapGrid::step) {
            const auto found = whole.classes.at(longitude, latitude);
            ASSERT_TRUE(found) << longitude << " " << latitude;
            const auto painted = whole.painted.find({longitude, latitude});
            ASSERT_EQ(*found, painted == whole.painted.end() ? not_possible : painted->second);
            bare += painted == whole.painted.end() ? 1 : 0;
            const auto expected_half = longitude < 0 ? found : std::nullopt;
            ASSERT_EQ(half.classes.at(longitude, latitude), expected_half) << longitude << " " << latitude;
        }
    EXPECT_GT(bare, 100);
    for (const auto& [longitude, latitude] : {std::pair{0, 62}, {0, -70}, {180, 0}, {-182, 0}})
        EXPECT_EQ(whole.classes.at(longitude, latitude), std::nullopt);
    EXPECT_EQ(whole.classes.nearest(374, 40), std::nullopt) << "80 north";
}

TEST_F(MapMarks, EveryClassOfAMapIsMarkedWithinItsZone) {
    std::set<VisibilityClass> marked_ever;
    for (const CrescentKind kind : {CrescentKind::new_crescent, CrescentKind::old_crescent})
        for (const Criterion criterion : {Criterion::vesk, Criterion::yallop, Criterion::saao})
            for (const int month : {3, 6, 12})
                for (int day = 0; day <= 2; ++day) {
                    Drawing drawing;
                    draw_visibility_map(loaded_theory(), map_near(25, month, 2025, kind, day, criterion),
                                        drawing);
                    const std::vector<MapMark> marks = map_marks(drawing.classes);
                    std::set<VisibilityClass> marked;
                    for (const MapMark& mark : marks) {
                        ASSERT_EQ(drawing.classes.nearest(mark.centre.x, mark.centre.y), mark.visibility);
                        marked.insert(mark.visibility);
                    }
                    std::set<VisibilityClass> present{not_possible};
                    for (const auto& [place, visibility] : drawing.painted)
                        present.insert(visibility);
                    const bool has_bare = marked.count(not_possible) != 0;
                    if (!has_bare)
                        present.erase(not_possible);
                    EXPECT_EQ(marked, present) << month << " " << day;
                    EXPECT_LE(marks.size(), 40U) << "a calm picture";
                    marked_ever.insert(marked.begin(), marked.end());
                }
    EXPECT_EQ(marked_ever.size(), 7U);
}

TEST_F(MapMarks, TheBareMapIsMarkedWhereItIsFoundNotPossible) {
    Drawing drawing;
    draw_visibility_map(loaded_theory(),
                        map_near(29, 3, 2025, CrescentKind::new_crescent, 0, Criterion::yallop), drawing);
    int bare = 0;
    for (const MapMark& mark : map_marks(drawing.classes))
        bare += mark.visibility == not_possible ? 1 : 0;
    EXPECT_GE(bare, 1);
}

TEST_F(MapMarks, MarksOfAZoneStandWideApartAndFarFromItsEdges) {
    MapClasses classes;
    for (int longitude = MapGrid::west; longitude <= MapGrid::east; longitude += MapGrid::step)
        for (int latitude = MapGrid::south; latitude <= MapGrid::north; latitude += MapGrid::step)
            classes.add({longitude, latitude, longitude < 0 ? impossible : easily_visible, true});
    const std::vector<MapMark> marks = map_marks(classes);
    ASSERT_GE(marks.size(), 4U);
    EXPECT_LE(marks.size(), 12U);
    for (std::size_t i = 0; i < marks.size(); ++i) {
        EXPECT_GT(std::fabs(marks[i].centre.x - map_pixel(-1, 0).x), 8);
        EXPECT_GT(marks[i].centre.y, map_pixel(0, MapGrid::north).y + 8);
        EXPECT_LT(marks[i].centre.y, map_pixel(0, MapGrid::south).y - 8);
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_GE(
                std::hypot(marks[i].centre.x - marks[j].centre.x, marks[i].centre.y - marks[j].centre.y),
                marks[i].visibility == marks[j].visibility ? 150 : 14);
    }
}

TEST_F(MapMarks, AClassOfASinglePlaceIsMarkedThere) {
    MapClasses classes;
    for (int longitude = -20; longitude <= 20; longitude += MapGrid::step)
        for (int latitude = -20; latitude <= 20; latitude += MapGrid::step)
            classes.add({longitude, latitude, longitude == 4 && latitude == 6 ? unknown : impossible, true});
    bool marked = false;
    for (const MapMark& mark : map_marks(classes)) {
        if (mark.visibility != unknown)
            continue;
        marked = true;
        EXPECT_DOUBLE_EQ(mark.centre.x, map_pixel(4, 6).x);
        EXPECT_DOUBLE_EQ(mark.centre.y, map_pixel(4, 6).y);
    }
    EXPECT_TRUE(marked);
}

TEST_F(MapMarks, NothingDrawnHasNoMarks) {
    EXPECT_TRUE(map_marks({}).empty());
}

} // namespace
} // namespace halvane
