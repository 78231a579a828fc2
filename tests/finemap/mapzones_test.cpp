// SPDX-License-Identifier: MIT
// What painters and files take from a map: frames, borders, marks, styles, texts.
#include "finemap/mapborders.h"
#include "finemap/mapdocument.h"
#include "finemap/mapstyle.h"
#include "finemap/markplaces.h"
#include "tests/crescent/crescentfixture.h"

#include <cmath>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sstream>
#include <string>

namespace halvane {
namespace {

constexpr double ramadan_1447 = 2461089.5; // 2026 February 18

const CataloguedCriterion& criterion_of_key(const char* key) {
    return *catalogued_criterion(key);
}

/// Two squares side by side, their border at longitude 1.
FineMap two_squares() {
    FineMap map;
    map.settings.criterion = catalogued_criterion("vesk");
    map.settings.day = ramadan_1447;
    map.settings.window = {0, 0, 2, 1};
    map.settings.step = 1;
    MapPart part{0, 0, 1, 3, 2, std::vector<MapNode>(6)};
    for (std::size_t i = 0; i < part.nodes.size(); ++i) {
        part.nodes[i].value = static_cast<double>(i);
        part.nodes[i].map_class = i % 3 < 2 ? MapClass::band_0 : MapClass::band_3;
    }
    map.parts = {part};
    map.zones = {{MapClass::band_0, {{{{0, 0}, {1, 0}, {1, 1}, {0, 1}}, {}}}},
                 {MapClass::band_3, {{{{1, 0}, {2, 0}, {2, 1}, {1, 1}}, {}}}}};
    return map;
}

/// A map at 1 degree.
FineMap real_map(const char* key, const MapWindow& window = {}, double day = ramadan_1447) {
    const TemporaryProgramFolder folder;
    load_series();
    FineMapSettings settings;
    settings.window = window;
    settings.day = day;
    settings.conjunction = geocentric_conjunction(named_ephemeris(), ramadan_1447);
    settings.criterion = catalogued_criterion(key);
    settings.step = 1;
    NoProgress progress;
    return make_fine_map(loaded_theory(), settings, progress).value();
}

bool lies_in(const MapRing& ring, const MapPosition& place) {
    bool inside = false;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const MapPosition& a = ring[i];
        const MapPosition& b = ring[(i + 1) % ring.size()];
        if ((a.latitude > place.latitude) != (b.latitude > place.latitude) &&
            a.longitude +
                    (place.latitude - a.latitude) / (b.latitude - a.latitude) * (b.longitude - a.longitude) <
                place.longitude)
            inside = !inside;
    }
    return inside;
}

bool lies_in(const ZonePolygon& polygon, const MapPosition& place) {
    bool inside = lies_in(polygon.outer, place);
    for (const MapRing& hole : polygon.holes)
        inside = inside && !lies_in(hole, place);
    return inside;
}

std::set<MapClass> classes_at(const FineMap& map, const MapPosition& place) {
    std::set<MapClass> classes;
    for (const MapZone& zone : map.zones)
        for (const ZonePolygon& polygon : zone.polygons)
            if (lies_in(polygon, place))
                classes.insert(zone.map_class);
    return classes;
}

TEST(MapFrame, GoesThereAndBack) {
    const MapFrame frame{{170, -50, 210, 30}, 5, 7, 400, 800};
    EXPECT_DOUBLE_EQ(frame.x(170), 5);
    EXPECT_DOUBLE_EQ(frame.x(210), 405);
    EXPECT_DOUBLE_EQ(frame.y(30), 7);
    EXPECT_DOUBLE_EQ(frame.y(-50), 807);
    EXPECT_NEAR(frame.longitude(frame.x(183.25)), 183.25, 1e-12);
    EXPECT_NEAR(frame.latitude(frame.y(-12.5)), -12.5, 1e-12);
    EXPECT_DOUBLE_EQ(longitude_in(frame.window, -175), 185);
    EXPECT_DOUBLE_EQ(longitude_in(frame.window, 175), 175);
    EXPECT_FALSE(holds(frame.window, {longitude_in(frame.window, 30), 0}));
}

TEST(MapFrame, ShapesAreTrueAtTheMiddleParallel) {
    EXPECT_DOUBLE_EQ(shape_of({-180, -85, 180, 85}), 170.0 / 360);
    EXPECT_NEAR(shape_of({0, 50, 10, 70}), 4, 1e-12) << "a degree of longitude at 60 degrees is half as long";
}

TEST(MapFrame, RefusesWhatIsNoWindow) {
    EXPECT_FALSE(refused_window({-180, -85, 180, 85}, 1));
    EXPECT_FALSE(refused_window({170, -10, 190, 10}, 1));
    for (const MapWindow& window :
         {MapWindow{-180, -86, 180, 85}, MapWindow{-180, -85, 180, 90}, MapWindow{180, 0, 190, 10},
          MapWindow{0, 0, 361, 10}, MapWindow{0, 10, 10, 10}, MapWindow{0, 20, 10, 10},
          MapWindow{0, 0, 0.5, 10}, MapWindow{std::nan(""), 0, 10, 10}})
        EXPECT_TRUE(refused_window(window, 1)) << window.west << " " << window.south;
}

TEST(MapBorders, AreThoseOfTwoZones) {
    const std::vector<MapBorder> borders = borders_of(two_squares());
    ASSERT_EQ(borders.size(), 1U);
    EXPECT_EQ(borders[0].one, MapClass::band_0);
    EXPECT_EQ(borders[0].other, MapClass::band_3);
    EXPECT_EQ(borders[0].points, (MapRing{{1, 0}, {1, 1}}));
    EXPECT_FALSE(borders[0].closed);
}

TEST(MapBorders, ARingAroundAZoneIsClosed) {
    FineMap map = two_squares();
    map.zones = {{MapClass::band_0, {{{{0, 0}, {3, 0}, {3, 3}, {0, 3}}, {{{1, 1}, {1, 2}, {2, 2}, {2, 1}}}}}},
                 {MapClass::moon_goes_first, {{{{1, 1}, {2, 1}, {2, 2}, {1, 2}}, {}}}}};
    const std::vector<MapBorder> borders = borders_of(map);
    ASSERT_EQ(borders.size(), 1U);
    EXPECT_TRUE(borders[0].closed);
    EXPECT_EQ(borders[0].points.size(), 4U);
}

/// On 2026 February 17 the conjunction, at 12:01 UT, is still to come in the evening west of the date line
/// and is 18 hours old east of it.
FineMap map_across_the_date_line() {
    return real_map("mabims-2021", {170, 0, 190, 20}, ramadan_1447 - 1);
}

/// How often the classes differ on the two sides of the date line.
int steps_at_the_date_line(const FineMap& map) {
    int steps = 0;
    for (std::size_t row = 0; row < map.parts[0].rows; ++row)
        steps += map.parts[0].at(map.parts[0].columns - 1, row).map_class != map.parts[1].at(0, row).map_class
                     ? 1
                     : 0;
    return steps;
}

TEST(MapBorders, TheDateLineIsNone) {
    // Two squares whose common side is the date line, then the same line within one date.
    FineMap map = two_squares();
    map.zones = {{MapClass::band_0, {{{{179, 0}, {180, 0}, {180, 1}, {179, 1}}, {}}}},
                 {MapClass::moon_goes_first, {{{{180, 0}, {181, 0}, {181, 1}, {180, 1}}, {}}}}};
    EXPECT_EQ(borders_of(map).size(), 1U);
    map.parts.push_back(map.parts[0]);
    EXPECT_TRUE(borders_of(map).empty());
}

TEST(MapBorders, NoneOfAMapRunsAlongTheDateLine) {
    const FineMap map = map_across_the_date_line();
    ASSERT_EQ(map.parts.size(), 2U);
    ASSERT_EQ(steps_at_the_date_line(map), 21) << "the map has nothing to show";
    for (const MapBorder& border : borders_of(map))
        for (std::size_t i = 1; i < border.points.size(); ++i)
            EXPECT_FALSE(border.points[i - 1].longitude == 180 && border.points[i].longitude == 180)
                << border.points[i].latitude;
}

TEST(MapBorders, HaveTheNamesOfWhatChangesThere) {
    using enum MapClass;
    EXPECT_EQ(named_border(band_2, moon_goes_first), NamedBorder::moon_with_sun);
    EXPECT_EQ(named_border(moon_goes_first, no_answer), NamedBorder::moon_with_sun);
    EXPECT_EQ(named_border(moon_goes_first, conjunction_to_come), NamedBorder::conjunction_at_sun);
    EXPECT_EQ(named_border(band_0, conjunction_to_come), NamedBorder::conjunction_at_sun);
    EXPECT_EQ(named_border(conjunction_to_come, no_event), NamedBorder::none);
    EXPECT_EQ(named_border(band_0, band_1), NamedBorder::none);
}

TEST(MapStyles, EveryClassHasAMarkAndAColourOfItsOwn) {
    for (const CataloguedCriterion& criterion : catalogued_criteria()) {
        std::set<MapMark> marks;
        std::set<std::string> words;
        const std::vector<MapClass> classes = legend_classes(criterion);
        EXPECT_EQ(classes.size(), criterion.bands().size() + 4) << criterion.key;
        for (const MapClass map_class : classes) {
            marks.insert(style_of(criterion, map_class).mark);
            words.insert(words_of(criterion, map_class, CrescentKind::new_crescent).english);
        }
        EXPECT_EQ(marks.size(), classes.size()) << criterion.key;
        EXPECT_EQ(words.size(), classes.size()) << criterion.key;
    }
}

TEST(MapStyles, NumbersAreThoseOfTheSmallMap) {
    using enum MapClass;
    // crescent/visibilityclass.h and the bands of crescent/criteria.cpp
    EXPECT_EQ(number_of(criterion_of_key("vesk"), band_0), 3);
    EXPECT_EQ(number_of(criterion_of_key("vesk"), band_1), 4);
    EXPECT_EQ(number_of(criterion_of_key("vesk"), band_2), 5);
    EXPECT_EQ(number_of(criterion_of_key("vesk"), band_3), 7);
    EXPECT_EQ(number_of(criterion_of_key("yallop"), band_3), 6);
    EXPECT_EQ(number_of(criterion_of_key("yallop"), band_4), 7);
    EXPECT_EQ(number_of(criterion_of_key("saao"), band_1), 4);
    EXPECT_EQ(number_of(criterion_of_key("saao"), band_2), 7);
    EXPECT_EQ(number_of(criterion_of_key("yallop-1997"), band_5), 8);
    EXPECT_EQ(number_of(criterion_of_key("mabims-2021"), band_1), 4);
    for (const CataloguedCriterion& criterion : catalogued_criteria()) {
        EXPECT_EQ(number_of(criterion, no_event), 1);
        EXPECT_EQ(number_of(criterion, no_answer), 1);
        EXPECT_EQ(number_of(criterion, moon_goes_first), 2);
        EXPECT_EQ(number_of(criterion, conjunction_to_come), 2);
    }
}

class MarkPlaces : public testing::TestWithParam<const char*> {};

TEST_P(MarkPlaces, LieInTheirZonesAndMissNone) {
    const FineMap map = real_map(GetParam());
    const MapFrame frame{map.settings.window, 0, 0, 26700, 12600};
    const std::vector<PlacedMark> marks = mark_places(map, frame, {1100, 95});
    EXPECT_GT(marks.size(), 150U);
    std::set<MapClass> marked;
    for (const PlacedMark& mark : marks) {
        const std::set<MapClass> classes = classes_at(map, mark.position);
        EXPECT_EQ(classes, std::set<MapClass>{mark.map_class})
            << mark.position.longitude << " " << mark.position.latitude;
        marked.insert(mark.map_class);
    }
    EXPECT_EQ(marked.size(), map.zones.size()) << "a zone without a mark";
}

INSTANTIATE_TEST_SUITE_P(Criteria, MarkPlaces,
                         testing::Values("vesk", "yallop-1997", "saao-2001", "maunder"));

TEST(MarkPlaces, StandBesideTheirNeighboursAsTheyDidInAnotherPart) {
    const FineMap map = real_map("vesk");
    const MapFrame whole{map.settings.window, 0, 0, 26700, 12608.333333};
    MapFrame part = whole;
    part.window = {-90, -20, 90, 65};
    part.width = whole.x_scale() * 180;
    part.height = whole.y_scale() * 85;
    std::set<std::pair<int, int>> of_whole;
    const auto key = [](const PlacedMark& mark) {
        return std::pair<int, int>(std::lround(mark.position.longitude * 100),
                                   std::lround(mark.position.latitude * 100));
    };
    for (const PlacedMark& mark : mark_places(map, whole, {1100, 95}))
        of_whole.insert(key(mark));
    int shared = 0;
    const std::vector<PlacedMark> marks = mark_places(map, part, {1100, 95});
    for (const PlacedMark& mark : marks)
        shared += of_whole.contains(key(mark)) ? 1 : 0;
    EXPECT_GT(shared, 0.9 * static_cast<double>(marks.size()));
}

TEST(MapFiles, CsvHasARowForEachPlace) {
    const FineMap map = two_squares();
    EXPECT_EQ(csv_of({&map, 1}), "longitude,latitude,class,value\r\n"
                                 "0,0,3,0\r\n1,0,3,1\r\n2,0,7,2\r\n0,1,3,3\r\n1,1,3,4\r\n2,1,7,5\r\n");
}

TEST(MapFiles, CsvHasEachPlaceOnceAcrossTheDateLine) {
    const FineMap map = map_across_the_date_line();
    std::istringstream rows(csv_of({&map, 1}));
    std::string row;
    std::getline(rows, row);
    std::set<std::string> places;
    std::size_t count = 0;
    std::map<std::string, std::string> numbers;
    for (; std::getline(rows, row); ++count) {
        const std::size_t behind_latitude = row.find(',', row.find(',') + 1);
        EXPECT_TRUE(places.insert(row.substr(0, behind_latitude)).second) << row;
        numbers.try_emplace(row.substr(0, behind_latitude), row.substr(behind_latitude + 1, 1));
    }
    EXPECT_EQ(count, 2U * 11 * 21);
    const auto number_at = [&map](const MapNode& node) {
        return std::to_string(number_of(*map.settings.criterion, node.map_class));
    };
    EXPECT_EQ(numbers["180,0"], number_at(map.parts[0].at(10, 0)));
    EXPECT_EQ(numbers["-180,0"], number_at(map.parts[1].at(0, 0)));
}

TEST(MapFiles, CsvOfSeveralMapsIsDated) {
    std::vector<FineMap> maps{two_squares(), two_squares()};
    maps[1].settings.day += 1;
    maps[1].parts[0].nodes[0].value = std::nan("");
    const std::string text = csv_of(maps);
    EXPECT_TRUE(text.starts_with("date,longitude,latitude,class,value\r\n2026-02-18,0,0,3,0\r\n"));
    EXPECT_NE(text.find("\r\n2026-02-19,0,0,3,\r\n"), std::string::npos);
}

TEST(MapFiles, GeoJsonMovesWhatLiesBeyondTheDateLine) {
    FineMap map = two_squares();
    map.zones = {{MapClass::band_3, {{{{180, 0}, {190, -0.0000001}, {190, 1}, {180, 1.25}}, {}}}}};
    const std::string text = geojson_of({&map, 1}, Language::english);
    EXPECT_NE(text.find("[[[[-180,0],[-170,0],[-170,1],[-180,1.25],[-180,0]]]]"), std::string::npos) << text;
    EXPECT_NE(text.find("\"words\":\"Easily visible by naked eye\""), std::string::npos);
}

TEST(SheetTexts, TellTheConjunctionOnTwoClocks) {
    FineMapSettings settings;
    settings.criterion = catalogued_criterion("yallop-1997");
    settings.day = ramadan_1447;
    settings.conjunction = 2461089.0 - 0.5 + 22.5 / 24; // 2026 February 17, 22:30
    const SheetTexts english = sheet_texts(settings, SheetClock{"Amman", 3}, Language::english);
    EXPECT_EQ(english.title, "New Crescent Visibility");
    EXPECT_EQ(english.month, "Ramadan 1447");
    EXPECT_EQ(english.conjunction,
              "Geocentric conjunction: 17 February 2026, 22:30 UT; 18 February 2026, 01:30 in Amman (UTC+3)");
    EXPECT_EQ(evening_text(settings, Language::english), "Evening of Wednesday, 18 February 2026");
    const SheetTexts arabic = sheet_texts(settings, std::nullopt, Language::arabic);
    EXPECT_EQ(arabic.conjunction, "الاقتران المركزي: 17 شباط 2026، 22:30 بالتوقيت العالمي");
    EXPECT_EQ(evening_text(settings, Language::arabic), "مساء الأربعاء، 18 شباط 2026");
    settings.kind = CrescentKind::old_crescent;
    EXPECT_EQ(evening_text(settings, Language::english), "Morning of Wednesday, 18 February 2026");
    EXPECT_EQ(longitude_text(190, Language::english), "170°W");
    EXPECT_EQ(longitude_text(0, Language::english), "0°");
    EXPECT_EQ(latitude_text(-7.5, Language::english), "7.5°S");
}

} // namespace
} // namespace halvane
