// SPDX-License-Identifier: MIT
#include "base/numberformat.h"
#include "tests/support/bytes.h"
#include "timetable/authorities.h"
#include "timetable/profilekeys.h"
#include "timetable/timetablecolumns.h"

#include <gtest/gtest.h>
#include <string>

namespace halvane {
namespace {

std::string document() {
    return bytes_of(HALVANE_TESTS "/../docs/timetable.md");
}

/// What an authority has besides its angles, as the document tells it.
std::string besides(const Authority& authority) {
    constexpr const char* names[] = {"Fajer", "Shuroq", "Dhohur", "Aser", "Maghreb", "Isha"};
    std::string text;
    const auto add = [&text](const std::string& words) { text += (text.empty() ? "" : ", ") + words; };
    if (authority.maghreb_angle > 0)
        add("Maghreb " + plain_number(authority.maghreb_angle) + "°");
    if (authority.hanafi)
        add("Hanafi Aser");
    for (const DayTime time : day_times)
        if (const double minutes = authority.added[time]; minutes != 0)
            add(names[static_cast<std::size_t>(time)] + std::string(minutes > 0 ? " +" : " ") +
                plain_number(minutes) + " min");
    if (authority.night_until_fajer)
        add("night until Fajer");
    if (authority.rounding == Rounding::up)
        add("rounded up");
    return text;
}

std::string isha(const Authority& authority) {
    if (authority.isha_minutes == 0)
        return plain_number(authority.isha_angle) + "°";
    return plain_number(authority.isha_minutes) + " min" +
           (authority.isha_minutes_ramadan > 0
                ? " (" + plain_number(authority.isha_minutes_ramadan) + " in Ramadan)"
                : "");
}

TEST(Authorities, StandInTheDocumentAsTheyAreUsed) {
    const std::string text = document();
    for (const Authority& authority : authorities()) {
        const std::string row = std::string("| `") + authority.key + "` | " + authority.name.english + " | " +
                                authority.region + " | " + plain_number(authority.fajer_angle) + "° | " +
                                isha(authority) + " | " + besides(authority) + " | " + authority.source +
                                " |";
        EXPECT_NE(text.find(row), std::string::npos) << row;
    }
    EXPECT_EQ(authorities().size(), 25U);
}

TEST(Authorities, AreFoundByTheirKeysAlone) {
    for (const Authority& authority : authorities())
        EXPECT_EQ(find_authority(authority.key), &authority);
    for (const char* key : {"", "MWL", "mwl ", "none"})
        EXPECT_EQ(find_authority(key), nullptr);
}

/// Angles of public documents: the Fiqh Council's decree of 1406 AH for the World League; JAKIM's statement
/// on the 116th Muzakarah of 20 and 21 November 2019; the calendar of Umm al-Qura since 1430 AH; Kemenag's
/// criteria with 2 minutes of ihtiyat, taken off sunrise.
TEST(Authorities, HaveTheAnglesOfTheirDocuments) {
    EXPECT_EQ(find_authority("mwl")->fajer_angle, 18);
    EXPECT_EQ(find_authority("mwl")->isha_angle, 17);
    EXPECT_EQ(find_authority("jakim")->fajer_angle, 18);
    EXPECT_EQ(find_authority("jakim-before-2020")->fajer_angle, 20);
    EXPECT_EQ(find_authority("umm-al-qura")->fajer_angle, 18.5);
    EXPECT_EQ(find_authority("umm-al-qura")->isha_minutes, 90);
    EXPECT_EQ(find_authority("umm-al-qura")->isha_minutes_ramadan, 120);
    for (const DayTime time : day_times)
        EXPECT_EQ(find_authority("kemenag")->added[time], time == DayTime::shuroq ? -2 : 2);
}

TEST(Columns, StandInTheDocument) {
    const std::string text = document();
    for (const ColumnNames& names : column_names())
        EXPECT_NE(text.find("`" + std::string(names.key) + "`"), std::string::npos) << names.key;
}

} // namespace
} // namespace halvane
