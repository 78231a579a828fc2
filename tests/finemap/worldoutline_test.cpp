// SPDX-License-Identifier: MIT
#include "finemap/worldoutline.h"

#include "base/failure.h"
#include "tests/support/programfolder.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <string>

namespace halvane {
namespace {

/// How often rings lie around a place, by the lines that cross its parallel west of it.
int rings_around(const WorldOutline& world, double longitude, double latitude) {
    int rings = 0;
    for (const WorldLine& ring : world.rings) {
        bool inside = false;
        for (std::size_t i = 0; i < ring.points.size(); ++i) {
            const WorldPoint& a = ring.points[i];
            const WorldPoint& b = ring.points[(i + 1) % ring.points.size()];
            if ((a.latitude > latitude) == (b.latitude > latitude))
                continue;
            const double part = (latitude - a.latitude) / (b.latitude - a.latitude);
            if (a.longitude + part * (b.longitude - a.longitude) < longitude)
                inside = !inside;
        }
        rings += inside ? 1 : 0;
    }
    return rings;
}

/// Between a ring and the equator on a sphere of the Earth's radius; the sign is that of its turn  [km^2]
double area_of(const WorldLine& ring) {
    constexpr double radius = 6371;
    constexpr double degree = std::numbers::pi / 180;
    double area = 0;
    for (std::size_t i = 0; i < ring.points.size(); ++i) {
        const WorldPoint& a = ring.points[i];
        const WorldPoint& b = ring.points[(i + 1) % ring.points.size()];
        area += (b.longitude - a.longitude) * degree *
                (std::sin(a.latitude * degree) + std::sin(b.latitude * degree)) / 2;
    }
    return area * radius * radius;
}

TEST(WorldOutline, HasTheEarthsLand) {
    const TemporaryProgramFolder folder;
    const WorldOutline world = read_world_outline();
    EXPECT_EQ(rings_around(world, 35.9, 31.95), 1) << "Amman";
    EXPECT_EQ(rings_around(world, -60, -10), 1) << "the Amazon";
    EXPECT_EQ(rings_around(world, 0, -80), 1) << "Antarctica";
    EXPECT_EQ(rings_around(world, -140, 0), 0) << "the Pacific";
    EXPECT_EQ(rings_around(world, 51, 42), 2) << "the Caspian Sea, water within the land";
    EXPECT_EQ(rings_around(world, 179, 68), 1) << "Chukotka, west of the date line";
    EXPECT_EQ(rings_around(world, -179, 68), 1) << "and east of it";
    double area = 0;
    for (const WorldLine& ring : world.rings)
        area += std::fabs(area_of(ring));
    // 149 million square kilometres: CIA, The World Factbook, "World", area, land: 148.94
    EXPECT_NEAR(area, 148.94e6, 2.5e6);
    EXPECT_GT(world.borders.size(), 150U);
}

TEST(WorldOutline, CutsAreNoCoast) {
    EXPECT_TRUE(is_cut({180, 68.98F}, {180, 65.07F}));
    EXPECT_TRUE(is_cut({-180, -84.35F}, {-180, -90}));
    EXPECT_TRUE(is_cut({180, -90}, {-180, -90}));
    EXPECT_FALSE(is_cut({180, 68.98F}, {179.5F, 68}));
    EXPECT_FALSE(is_cut({10, -89}, {20, -90}));
}

TEST(WorldOutline, StepsAddUp) {
    const WorldOutline world =
        world_of_text("world 1: a head\nland 100 200 50 0 0 -25\r\nborder -1 2 3 4\n", "x");
    ASSERT_EQ(world.rings.size(), 1U);
    const std::vector<WorldPoint> wanted{{1, 2}, {1.5F, 2}, {1.5F, 1.75F}};
    EXPECT_EQ(world.rings[0].points, wanted);
    EXPECT_EQ(world.rings[0].box.east, 1.5F);
    EXPECT_EQ(world.rings[0].box.south, 1.75F);
    ASSERT_EQ(world.borders.size(), 1U);
    EXPECT_EQ(world.borders[0].points[1], (WorldPoint{0.02F, 0.06F}));
}

struct Damage {
    const char* text;
    const char* told;
};

class WorldDamage : public testing::TestWithParam<Damage> {};

TEST_P(WorldDamage, IsTold) {
    try {
        world_of_text(GetParam().text, "/folder/world.txt");
        FAIL() << "it was read";
    } catch (const RunTimeFailure& failure) {
        EXPECT_EQ(failure.parts().kind, FailureKind::damaged_file);
        const std::string words = failure.what();
        EXPECT_NE(words.find("/folder/world.txt"), std::string::npos) << words;
        EXPECT_NE(words.find(GetParam().told), std::string::npos) << words;
    }
}

INSTANTIATE_TEST_SUITE_P(Files, WorldDamage,
                         testing::Values(Damage{"", "line 1"}, Damage{"word 1:\n", "line 1"},
                                         Damage{"world 1:\nland 0 0 1 1 2\n", "whole numbers"},
                                         Damage{"world 1:\nland 0 0 1 1\n", "3 points"},
                                         Damage{"world 1:\nland 0 0 1 x 2 2\n", "line 2"},
                                         Damage{"world 1:\nland 17999 0 5 0 0 1\n", "a place on Earth"},
                                         Damage{"world 1:\nland 0 0 99999999999 0 0 1\n", "whole numbers"},
                                         Damage{"world 1:\nlake 0 0 1 1 2 2\n", "land, water or border"},
                                         Damage{"world 1:\nland 0 0 1 1 2 2\n", "land and borders"}));

TEST(WorldOutline, MissingFileIsNamed) {
    const TemporaryProgramFolder folder;
    folder.erase(world_file);
    try {
        read_world_outline();
        FAIL() << "it was read";
    } catch (const RunTimeFailure& failure) {
        EXPECT_EQ(failure.parts().kind, FailureKind::missing_file);
        EXPECT_NE(std::string(failure.what()).find("world.txt"), std::string::npos);
    }
}

} // namespace
} // namespace halvane
