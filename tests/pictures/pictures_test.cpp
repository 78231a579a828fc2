// SPDX-License-Identifier: MIT
// The drawn pictures of the data folder show what the panels take them to show.

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <numbers>
#include <stdexcept>
#include <string>
#include <vector>

#include <gif_lib.h>
#include <gtest/gtest.h>

namespace halvane::test {
namespace {

constexpr double degree = std::numbers::pi / 180;

class Picture {
public:
    explicit Picture(const std::string& name) {
        const std::filesystem::path file_name = std::filesystem::path(HALVANE_DATA_FOLDER) / name;
        const auto close = [](GifFileType* gif) { DGifCloseFile(gif, nullptr); };
        const std::unique_ptr<GifFileType, decltype(close)> gif(
            DGifOpenFileName(file_name.string().c_str(), nullptr), close);
        if (!gif || DGifSlurp(gif.get()) != GIF_OK || gif->ImageCount != 1) {
            throw std::runtime_error("no picture in " + file_name.string());
        }
        width = gif->SWidth;
        height = gif->SHeight;
        const auto area = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
        indices_.assign(gif->SavedImages[0].RasterBits, gif->SavedImages[0].RasterBits + area);
        colours_.assign(gif->SColorMap->Colors, gif->SColorMap->Colors + gif->SColorMap->ColorCount);
    }

    [[nodiscard]] GifColorType colour(double x, double y) const {
        const auto column = static_cast<std::size_t>(x);
        const auto row = static_cast<std::size_t>(y);
        return colours_.at(indices_.at(row * static_cast<std::size_t>(width) + column));
    }
    [[nodiscard]] int brightness(int x, int y) const {
        const GifColorType found = colour(x, y);
        return found.Red + found.Green + found.Blue;
    }

    int width = 0;
    int height = 0;

private:
    std::vector<std::uint8_t> indices_;
    std::vector<GifColorType> colours_;
};

int difference(const GifColorType& a, const GifColorType& b) {
    return std::abs(a.Red - b.Red) + std::abs(a.Green - b.Green) + std::abs(a.Blue - b.Blue);
}

struct Place {
    const char* name;
    double longitude;
    double latitude;
};

// -------------------------------------------------------------------------------------------- visibility map

GifColorType visibility_map_colour(const Picture& map, const Place& place) {
    return map.colour(374 + 2.0733333 * place.longitude, 206 - 2.06666667 * place.latitude);
}

bool is_land(const GifColorType& colour) {
    return colour.Red > colour.Blue + 10;
}

TEST(VisibilityMap, HasTheSizeOfItsProjection) {
    const Picture map("map.gif");
    EXPECT_EQ(map.width, 748);
    EXPECT_EQ(map.height, 412);
}

TEST(VisibilityMap, LandLiesWhereItIs) {
    const Picture map("map.gif");
    const std::array places = {Place{"Sahara", 5, 25},           Place{"Arabia", 46, 23.0},
                               Place{"Kansas", -98, 39},         Place{"Amazon", -57, -8},
                               Place{"Siberia", 110, 62},        Place{"Australia", 134, -25},
                               Place{"Madagascar", 46.5, -19.5}, Place{"Patagonia", -69, -45},
                               Place{"Chukotka, west", 177, 67}, Place{"Chukotka, east", -178, 67},
                               Place{"South Pole", 15, -89},     Place{"Vostok", 106.8, -78.5}};
    for (const Place& place : places) {
        EXPECT_TRUE(is_land(visibility_map_colour(map, place))) << place.name;
    }
}

TEST(VisibilityMap, SeaLiesWhereItIs) {
    const Picture map("map.gif");
    const std::array places = {Place{"Gulf of Guinea", 1, 1},        Place{"Drake Passage", -65, -58},
                               Place{"Red Sea", 37.5, 21},           Place{"Caspian Sea", 50.5, 42},
                               Place{"Black Sea", 34, 43.3},         Place{"Bering Sea", -178, 58},
                               Place{"Gulf of Mexico", -90, 25},     Place{"Hudson Bay", -85, 58.5},
                               Place{"Tasman Sea", 160, -38},        Place{"Mozambique Channel", 41, -19},
                               Place{"Strait of Taiwan", 119, 24.2}, Place{"North Pole", 14, 88}};
    for (const Place& place : places) {
        EXPECT_FALSE(is_land(visibility_map_colour(map, place))) << place.name;
    }
}

// ------------------------------------------------------------------------------------------------ Qiblah map

constexpr double qiblah_map_scale = 960.0 / 360;

GifColorType qiblah_map_colour(const Picture& map, double longitude, double latitude) {
    return map.colour(500 + qiblah_map_scale * longitude, 280 - qiblah_map_scale * latitude);
}

/// The longitude at which the middle of a direction's band meets the South Pole.
double southern_end(double direction) {
    return std::remainder(39.8261167 - direction, 360);
}

using Vector = std::array<double, 3>;

Vector direction_from_earth_centre(double longitude, double latitude) {
    return {std::cos(latitude * degree) * std::cos(longitude * degree),
            std::cos(latitude * degree) * std::sin(longitude * degree), std::sin(latitude * degree)};
}

double product(const Vector& a, const Vector& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

/// The Kaaba's direction from true North through East, by its components along the place's horizon.
double direction_to_kaaba(const Place& place) {
    const Vector kaaba = direction_from_earth_centre(39.8261167, 21.42263);
    const Vector north = direction_from_earth_centre(place.longitude, place.latitude + 90);
    const Vector east = direction_from_earth_centre(place.longitude + 90, 0);
    return std::atan2(product(kaaba, east), product(kaaba, north)) / degree;
}

// Points a little inland of the towns keep clear of coast lines.
TEST(QiblahMap, TownHasTheColourOfItsDirection) {
    const std::array towns = {Place{"New York", -74.6, 41.3}, Place{"Paris", 2.35, 48.8},
                              Place{"Ankara", 32.8, 39.9},    Place{"Tokyo", 138.5, 36.2},
                              Place{"Sydney", 149.0, -33.5},  Place{"Cape Town", 20.0, -32.5},
                              Place{"Delhi", 77.2, 28.6},     Place{"Lagos", 4.0, 7.2}};
    const Picture map("qmap.gif");
    for (const Place& town : towns) {
        const double band = 10 * std::round(direction_to_kaaba(town) / 10);
        const GifColorType found = qiblah_map_colour(map, town.longitude, town.latitude);
        EXPECT_EQ(difference(found, qiblah_map_colour(map, southern_end(band), -89)), 0) << town.name;
        EXPECT_GT(difference(found, qiblah_map_colour(map, southern_end(band + 10), -89)), 10) << town.name;
        EXPECT_GT(difference(found, qiblah_map_colour(map, southern_end(band - 10), -89)), 10) << town.name;
    }
}

TEST(QiblahMap, RedNumbersStandAtTopAndBottom) {
    const Picture map("qmap.gif");
    const auto red_pixels = [&map](int first_row, int end_row) {
        int count = 0;
        for (int row = first_row; row < end_row; ++row) {
            for (int column = 0; column < map.width; ++column) {
                const GifColorType colour = map.colour(column, row);
                count += colour.Red > 150 && colour.Green < 60 && colour.Blue < 80 ? 1 : 0;
            }
        }
        return count;
    };
    EXPECT_GT(red_pixels(0, 38), 500);
    EXPECT_GT(red_pixels(522, 560), 500);
    EXPECT_EQ(red_pixels(40, 520), 0);
}

// ------------------------------------------------------------------------------------------------- crescents

/// The direction of the lit pixels from the middle, degrees from the top toward the left.
double lit_direction(const Picture& picture) {
    double right = 0;
    double up = 0;
    for (int row = 0; row < picture.height; ++row) {
        for (int column = 0; column < picture.width; ++column) {
            constexpr int brighter_than_earthshine = 300;
            if (picture.brightness(column, row) > brighter_than_earthshine) {
                right += column + 0.5 - picture.width / 2.0;
                up += picture.height / 2.0 - row - 0.5;
            }
        }
    }
    return std::atan2(-right, up) / degree;
}

std::string crescent_name(int angle, const std::string& flips) {
    return "images/" + (angle == 0 ? "00" : std::to_string(angle)) + flips + ".gif";
}

TEST(CrescentPictures, LitLimbIsTurnedByTheAngleOfTheName) {
    for (int angle = 0; angle < 360; angle += 10) {
        const Picture picture(crescent_name(angle, ""));
        EXPECT_EQ(picture.width, 200);
        EXPECT_EQ(picture.height, 200);
        EXPECT_LT(std::abs(std::remainder(lit_direction(picture) - angle, 360)), 1.5) << angle;
    }
}

TEST(CrescentPictures, FlipsExchangeSides) {
    for (int angle = 0; angle < 360; angle += 10) {
        const Picture plain(crescent_name(angle, ""));
        const Picture horizontal(crescent_name(angle, "h"));
        const Picture vertical(crescent_name(angle, "v"));
        const Picture both(crescent_name(angle, "hv"));
        int different = 0;
        for (int row = 0; row < 200; ++row) {
            for (int column = 0; column < 200; ++column) {
                const int brightness = plain.brightness(column, row);
                different += brightness == horizontal.brightness(199 - column, row) ? 0 : 1;
                different += brightness == vertical.brightness(column, 199 - row) ? 0 : 1;
                different += brightness == both.brightness(199 - column, 199 - row) ? 0 : 1;
            }
        }
        EXPECT_EQ(different, 0) << angle;
    }
}

TEST(CrescentPictures, SkyIsBlackAndTheDarkSideFaintlyLit) {
    const Picture picture("images/00.gif");
    EXPECT_EQ(picture.brightness(3, 3), 0);
    EXPECT_EQ(picture.brightness(100, 196), 0);
    EXPECT_GT(picture.brightness(100, 150), 30);
    EXPECT_LT(picture.brightness(100, 150), 200);
    EXPECT_GT(picture.brightness(100, 18), 600);
}

} // namespace
} // namespace halvane::test
