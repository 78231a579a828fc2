// SPDX-License-Identifier: MIT
#include "tables/moonhouse.h"

#include <gtest/gtest.h>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace halvane {
namespace {

const std::vector<std::pair<double, std::string>> first_degrees{
    {5, "Al-Fargh Ath-Thani"}, {22, "Batn Al-Hout"}, {32, "Al-Sharatan"},      {42, "Al-Botean"},
    {55, "Al-Thurayia"},       {65, "Al-Dabaran"},   {77, "Al-Haqah"},         {92, "Al-Hanah"},
    {106, "Al-Dhera"},         {120, "Al-Nathrah"},  {132, "Al-Ttarf"},        {143, "Al-Jabha"},
    {156, "Al-Zubrah"},        {167, "Al-Sarfah"},   {180, "Al-Awwa"},         {196, "Al-Semak"},
    {209, "Al-Ghafr"},         {221, "Al-Zabani"},   {235, "Al-Aklil"},        {247, "Al-Qalb"},
    {258, "Al-Shawlah"},       {271, "Al-Naaim"},    {285, "Al-Baldah"},       {298, "Saad Al-Dabih"},
    {309, "Saad Bola"},        {319, "Saad Sood"},   {334, "Saad Al-Akhbiya"}, {351, "Al-Fargh Al-Awwal"}};

TEST(MoonHouse, ExactlyFiveDegreesIsAlFarghAthThani) {
    EXPECT_STREQ(moon_house(5), "Al-Fargh Ath-Thani");
}

TEST(MoonHouse, Exactly351DegreesIsAlFarghAlAwwal) {
    EXPECT_STREQ(moon_house(351), "Al-Fargh Al-Awwal");
}

TEST(MoonHouse, EveryFirstDegreeBelongsToItsHouse) {
    for (const auto& [degree, name] : first_degrees)
        EXPECT_EQ(moon_house(degree), name) << degree;
}

TEST(MoonHouse, JustBelowAFirstDegreeIsTheHouseBefore) {
    std::string before = "Al-Fargh Al-Awwal";
    for (const auto& [degree, name] : first_degrees) {
        EXPECT_EQ(moon_house(degree - 1e-9), before) << degree;
        before = name;
    }
}

TEST(MoonHouse, ThereAreTwentyEightAroundTheEcliptic) {
    std::set<std::string> names;
    for (int degree = 0; degree < 360; ++degree)
        names.insert(moon_house(degree));
    EXPECT_EQ(names.size(), 28U);
}

TEST(MoonHouse, TheHouseOfTheEquinoxReachesOverIt) {
    // The nutation can carry a longitude a little past either end of the circle.
    for (const double longitude : {-0.004, 0.0, 4.999999, 359.9999, 360.004})
        EXPECT_STREQ(moon_house(longitude), "Al-Fargh Al-Awwal") << longitude;
}

} // namespace
} // namespace halvane
