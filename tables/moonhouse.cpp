// SPDX-License-Identifier: MIT
#include "tables/moonhouse.h"

#include <array>

namespace halvane {
namespace {

struct House {
    double from; ///< first degree of its longitudes
    const char* name;
};

constexpr const char* around_the_equinox = "Al-Fargh Al-Awwal";
constexpr double end_of_the_equinox = 5;

constexpr std::array<House, 28> houses{
    {{351, around_the_equinox}, {334, "Saad Al-Akhbiya"}, {319, "Saad Sood"},   {309, "Saad Bola"},
     {298, "Saad Al-Dabih"},    {285, "Al-Baldah"},       {271, "Al-Naaim"},    {258, "Al-Shawlah"},
     {247, "Al-Qalb"},          {235, "Al-Aklil"},        {221, "Al-Zabani"},   {209, "Al-Ghafr"},
     {196, "Al-Semak"},         {180, "Al-Awwa"},         {167, "Al-Sarfah"},   {156, "Al-Zubrah"},
     {143, "Al-Jabha"},         {132, "Al-Ttarf"},        {120, "Al-Nathrah"},  {106, "Al-Dhera"},
     {92, "Al-Hanah"},          {77, "Al-Haqah"},         {65, "Al-Dabaran"},   {55, "Al-Thurayia"},
     {42, "Al-Botean"},         {32, "Al-Sharatan"},      {22, "Batn Al-Hout"}, {5, "Al-Fargh Ath-Thani"}}};

} // namespace

const char* moon_house(double longitude) {
    if (longitude < end_of_the_equinox)
        return around_the_equinox;
    for (const House& house : houses)
        if (longitude >= house.from)
            return house.name;
    return around_the_equinox;
}

} // namespace halvane
