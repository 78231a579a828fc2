// SPDX-License-Identifier: MIT
#include "zones/zonelist.h"

#include "base/failure.h"
#include "stored/loclist.h"
#include "system/path.h"
#include "tests/support/programfolder.h"

#include <gtest/gtest.h>

namespace halvane {
namespace {

Location location_at(const std::string& name, double latitude, double longitude) {
    Location location;
    location.name = name;
    location.north = latitude >= 0;
    location.latitude_degrees = std::abs(latitude);
    location.east = longitude >= 0;
    location.longitude_degrees = std::abs(longitude);
    return location;
}

TEST(ZoneList, HasAZoneForEveryDeliveredPlace) {
    const TemporaryProgramFolder folder;
    const ZoneList zones = read_zone_list();
    const std::vector<Location> places = read_location_list();
    ASSERT_EQ(places.size(), 1070U);
    EXPECT_EQ(zones.places().size(), places.size());
    for (const Location& place : places) {
        ASSERT_TRUE(zones.zone_of(place)) << place.name;
        EXPECT_EQ(zones.zone_of(place), zones.zone_of(place.name));
    }
}

TEST(ZoneList, KnowsPlacesWhoseNameIsAZones) {
    // zone.tab of tzdata names its zones after their largest town.
    const TemporaryProgramFolder folder;
    const ZoneList zones = read_zone_list();
    for (const auto& [place, zone] : {std::pair("Riyadh", "Asia/Riyadh"),
                                      {"Cairo", "Africa/Cairo"},
                                      {"Kuala Lumpur", "Asia/Kuala_Lumpur"},
                                      {"New York", "America/New_York"},
                                      {"Sydney", "Australia/Sydney"},
                                      {"Istanbul", "Europe/Istanbul"}})
        EXPECT_EQ(zones.zone_of(place), zone);
}

TEST(ZoneList, LeavesOutALocationOfTheSameNameElsewhere) {
    const ZoneList zones({{"Paris", 48.85, 2.35, "Europe/Paris"}});
    EXPECT_EQ(zones.zone_of(location_at("Paris", 48.85, 2.35)), "Europe/Paris");
    EXPECT_EQ(zones.zone_of(location_at("Paris", 48.4, 2.35)), "Europe/Paris");
    EXPECT_EQ(zones.zone_of(location_at("Paris", 48.3, 2.35)), std::nullopt);
    // A degree of longitude is 0.66 degrees of a great circle there.
    EXPECT_EQ(zones.zone_of(location_at("Paris", 48.85, 3.0)), "Europe/Paris");
    EXPECT_EQ(zones.zone_of(location_at("Paris", 48.85, 3.2)), std::nullopt);
    EXPECT_EQ(zones.zone_of(location_at("Paris", 33.66, -95.55)), std::nullopt) << "the one in Texas";
    EXPECT_EQ(zones.zone_of(location_at("paris", 48.85, 2.35)), std::nullopt);
    EXPECT_EQ(zones.zone_of("Lutetia"), std::nullopt);
}

TEST(ZoneList, TakesPlacesAcrossTheDateLineAsNear) {
    const ZoneList zones({{"Funafuti", -8.52, 179.9, "Pacific/Funafuti"}});
    EXPECT_EQ(zones.zone_of(location_at("Funafuti", -8.52, -179.9)), "Pacific/Funafuti");
}

TEST(ZoneList, OfOneNameTakesTheFirst) {
    const ZoneList zones({{"B", 0, 0, "first"}, {"A", 0, 0, "other"}, {"B", 0, 0, "second"}});
    EXPECT_EQ(zones.zone_of("B"), "first");
}

TEST(ZoneList, IsReadFromTheExecutablesFolderWhereTheProgramFolderHasNone) {
    const TemporaryProgramFolder folder;
    EXPECT_EQ(delivered_path(zone_list_file), (folder / zone_list_file).string());
    folder.erase(zone_list_file);
    EXPECT_EQ(delivered_path(zone_list_file), joined_path(executable_folder(), zone_list_file));
}

TEST(ZoneList, NamesWhatIsWrongOfItsFile) {
    const TemporaryProgramFolder folder;
    folder.write(zone_list_file, "name,latitude,longitude,zone\r\nAmman,31.95,east,Asia/Amman\r\n");
    try {
        read_zone_list();
        ADD_FAILURE() << "a damaged list is taken";
    } catch (const RunTimeFailure& failure) {
        EXPECT_EQ(failure.parts().kind, FailureKind::damaged_file);
        EXPECT_EQ(failure.parts().file, (folder / zone_list_file).string());
        EXPECT_EQ(failure.parts().record, 2);
        EXPECT_EQ(failure.parts().field, 3);
    }
    folder.write(zone_list_file, "name,latitude,longitude,zone\r\nAmman,31.95,35.9");
    EXPECT_THROW(read_zone_list(), RunTimeFailure);
}

} // namespace
} // namespace halvane
