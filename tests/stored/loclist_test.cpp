// SPDX-License-Identifier: MIT
#include "tests/stored/locationlist.h"

#include "stored/loclist.h"
#include "system/folderlock.h"

#include <cmath>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace halvane {
namespace {

TEST_F(LocationList, ReadsTheFieldsInTheOrderOfTheList) {
    const std::vector<Location> list = read_location_list();
    ASSERT_EQ(list.size(), 2U);
    const Location& rio = list[1];
    EXPECT_EQ(rio.latitude_degrees, 22);
    EXPECT_EQ(rio.latitude_minutes, 54);
    EXPECT_EQ(rio.latitude_seconds, 36);
    EXPECT_EQ(rio.longitude_degrees, 43);
    EXPECT_EQ(rio.longitude_minutes, 10);
    EXPECT_EQ(rio.longitude_seconds, 12);
    EXPECT_FALSE(rio.north);
    EXPECT_FALSE(rio.east);
    EXPECT_TRUE(rio.south);
    EXPECT_TRUE(rio.west);
    EXPECT_EQ(rio.zone, -3);
    EXPECT_EQ(rio.elevation, 11);
    EXPECT_EQ(rio.city_offset, 2.5);
    EXPECT_EQ(rio.pressure, 1000);
    EXPECT_EQ(rio.temperature, 25.5);
    EXPECT_TRUE(list[0].north && list[0].east && !list[0].south && !list[0].west);
}

TEST_F(LocationList, AddAppendsARecordOfTheListsForm) {
    Location added = place("Suva");
    added.north = false;
    added.zone = 12;
    added.elevation = 6;
    EXPECT_TRUE(add_location(added));
    EXPECT_EQ(folder.read("loc.txt"),
              std::string(two_places) + "\"Suva\",2,0,0,1,0,0,0,1,12,6,0,1010,10\r\n");
}

TEST_F(LocationList, AddRefusesANameThatIsThereAndWritesNothing) {
    EXPECT_FALSE(add_location(place("Rio")));
    EXPECT_EQ(folder.read("loc.txt"), two_places);
}

TEST_F(LocationList, AddTakesANameThatDiffersInCaseOnly) {
    EXPECT_TRUE(add_location(place("rio")));
    EXPECT_EQ(names(), (Names{"Amman", "Rio", "rio"}));
}

TEST_F(LocationList, AddMendsAMissingLastLineEnd) {
    const std::string whole = two_places;
    for (const std::string& cut :
         {whole.substr(0, whole.size() - 2), whole.substr(0, whole.size() - 1), whole}) {
        folder.write("loc.txt", cut);
        EXPECT_TRUE(add_location(place("Suva")));
        EXPECT_EQ(folder.read("loc.txt").substr(0, whole.size()), whole);
        EXPECT_EQ(names(), (Names{"Amman", "Rio", "Suva"}));
    }
    folder.write("loc.txt", "");
    EXPECT_TRUE(add_location(place("Suva")));
    EXPECT_EQ(names(), Names{"Suva"});
}

TEST_F(LocationList, AddComparesTheNameAsItIsStored) {
    folder.write("loc.txt", "");
    EXPECT_TRUE(add_location(place("The \"Hill\"")));
    EXPECT_EQ(names(), Names{"The 'Hill'"});
    EXPECT_FALSE(add_location(place("The \"Hill\"")));
}

TEST_F(LocationList, ModifyMovesTheRecordToTheEnd) {
    Location amman = place("Amman");
    amman.elevation = 777;
    modify_location(amman);
    EXPECT_EQ(names(), (Names{"Rio", "Amman"}));
    EXPECT_EQ(read_location_list()[1].elevation, 777);
    EXPECT_FALSE(folder.has("temp.txt"));
}

TEST_F(LocationList, ModifyOfAnUnknownNameAppendsAndRemovesNothing) {
    modify_location(place("Amman 2"));
    EXPECT_EQ(names(), (Names{"Amman", "Rio", "Amman 2"}));
    EXPECT_EQ(folder.read("loc.txt").substr(0, std::string(two_places).size()), two_places);
}

TEST_F(LocationList, DeleteTakesEveryRecordOfExactlyThatName) {
    folder.write("loc.txt", std::string(two_places) + two_places);
    delete_location("Amman");
    EXPECT_EQ(names(), (Names{"Rio", "Rio"}));
    delete_location("rio");
    EXPECT_EQ(names(), (Names{"Rio", "Rio"}));
}

TEST_F(LocationList, DeleteOfAnUnknownNameRewritesTheDeliveredListUnchanged) {
    folder.write("loc.txt", bytes_of(delivered("loc.txt")));
    folder.write("temp.txt", "left over from a broken run");
    delete_location("Nowhere at all");
    EXPECT_EQ(folder.read("loc.txt"), bytes_of(delivered("loc.txt")));
    EXPECT_FALSE(folder.has("temp.txt"));
}

TEST_F(LocationList, DeleteOfTheOnlyRecordLeavesAnEmptyFile) {
    folder.write("loc.txt", "\"Amman\",31,57,0,35,54,0,1,1,2,900,0,1010,10\r\n");
    delete_location("Amman");
    EXPECT_EQ(folder.read("loc.txt"), "");
    EXPECT_TRUE(read_location_list().empty());
}

TEST_F(LocationList, NeverTouchesTheCurrentLocation) {
    const std::string current = folder.read("loc.vsk");
    delete_location("Amman");
    add_location(place("Elsewhere"));
    modify_location(place("Elsewhere"));
    EXPECT_EQ(folder.read("loc.vsk"), current);
}

TEST_F(LocationList, AnEditThatWaitsInVainForAnotherTellsSo) {
    {
        FolderLock held(folder.path().string());
        ASSERT_EQ(held.take(), FolderLock::Answer::taken);
        expect_failure_that_tells([] { add_location(place("Suva")); }, {(folder / "loc.txt").string()});
    }
    EXPECT_EQ(folder.read("loc.txt"), two_places);
    EXPECT_TRUE(add_location(place("Suva")));
}

TEST_F(LocationList, KeepsNamesInWindows1256WhenARecordIsAdded) {
    folder.write("loc.txt", "\"\xDA\xE3\xC7\xE4\",31,57,0,35,54,0,1,1,2,900,0,1010,10\r\n");
    EXPECT_TRUE(add_location(place("القدس")));
    EXPECT_EQ(names(), (Names{"عمان", "القدس"}));
    EXPECT_FALSE(add_location(place("عمان")));
}

TEST_F(LocationList, TellsTheRecordAndFieldOfDamage) {
    const std::vector<std::string> fields = fields_of("\"Rio\",22,54,36,43,10,12,0,0,-3,11,2.5,1000,25.5");
    for (std::size_t field = 2; field <= fields.size(); ++field) {
        folder.write("loc.txt", two_places + record_with(fields, field, "junk"));
        expect_failure_that_tells(
            [] { read_location_list(); },
            {"loc.txt, record 3, field " + std::to_string(field) + ": wanted a number"});
    }
    folder.write("loc.txt", std::string(two_places) + std::string(100000, 'x'));
    EXPECT_TRUE(failure_words([] { read_location_list(); }).has_value());
    folder.erase("loc.txt");
    EXPECT_TRUE(failure_words([] { read_location_list(); }).has_value());
    EXPECT_TRUE(failure_words([] { add_location(place("x")); }).has_value());
}

TEST_F(LocationList, CutAnywhereGivesTheWholeRecordsOrAFailure) {
    const std::string whole = two_places;
    const std::size_t second = whole.find("\"Rio\"");
    for (std::size_t length = 0; length < whole.size(); ++length) {
        folder.write("loc.txt", whole.substr(0, length));
        std::size_t count = 0;
        const auto words = failure_words([&count] { count = read_location_list().size(); });
        if (!words) {
            EXPECT_LE(count, length < second ? 1U : 2U) << length;
        }
    }
}

TEST_F(LocationList, ReadsTheSameWithOtherLineEndsAndAMark) {
    const std::vector<Location> list = read_location_list();
    std::string unix_lines = two_places;
    std::erase(unix_lines, '\r');
    for (const std::string& bytes : {unix_lines, "\xEF\xBB\xBF" + std::string(two_places),
                                     "\r\n\r\n" + unix_lines, unix_lines.substr(0, unix_lines.size() - 1)}) {
        folder.write("loc.txt", bytes);
        EXPECT_EQ(read_location_list(), list) << bytes;
    }
}

TEST(DeliveredList, HoldsManySoundLocations) {
    const TemporaryProgramFolder folder;
    const std::vector<Location> list = read_location_list();
    EXPECT_GE(list.size(), 300U);
    for (const Location& location : list) {
        EXPECT_FALSE(location.name.empty());
        EXPECT_LE(std::abs(longitude_of(location)), 180) << location.name;
        EXPECT_LE(std::abs(latitude_of(location)), 90) << location.name;
        EXPECT_EQ(location.pressure, 1010) << location.name;
        EXPECT_EQ(location.temperature, 10) << location.name;
    }
}

} // namespace
} // namespace halvane
