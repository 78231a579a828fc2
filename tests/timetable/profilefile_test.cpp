// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "stored/pref.h"
#include "tests/support/programfolder.h"
#include "timetable/profilefile.h"
#include "timetable/profilekeys.h"

#include <gtest/gtest.h>
#include <string>

namespace halvane {
namespace {

class ProfileFile : public testing::Test {
protected:
    TemporaryProgramFolder folder;

    static std::string refused_words(const std::string& text) {
        try {
            profile_of_text(text, "x", "file.ini");
        } catch (const RunTimeFailure& failure) {
            return failure.what();
        }
        return {};
    }
};

Profile full_profile() {
    Profile profile = authority_profile(*find_authority("turkey"));
    profile.name = "Masjid al-Noor";
    profile.isha_angle = 16.5;
    profile.rounding[DayTime::shuroq] = Rounding::down;
    profile.high_latitude = HighLatitudeRule::nearest_latitude;
    profile.rule_use = RuleUse::always;
    profile.reference_latitude = 48;
    profile.night_until_fajer = true;
    profile.imsak_minutes = 15;
    profile.iqamah[DayTime::fajer] = {Iqamah::Kind::after, 20, true};
    profile.iqamah[DayTime::isha] = {Iqamah::Kind::fixed, 21 * 60 + 5, false};
    profile.jumuah = {12 * 60 + 30, 13 * 60 + 15};
    profile.page.columns = {TimetableColumn::hijri, TimetableColumn::fajer, TimetableColumn::rules};
    profile.page.language = PageLanguage::both;
    profile.page.digits = PageDigits::arabic;
    profile.page.alarm_minutes = 10;
    return profile;
}

TEST_F(ProfileFile, GivesBackWhatWasWritten) {
    write_profile(full_profile());
    EXPECT_EQ(profile_names(), std::vector<std::string>{"Masjid al-Noor"});
    EXPECT_TRUE(read_profile("Masjid al-Noor") == full_profile());
    delete_profile("Masjid al-Noor");
    EXPECT_TRUE(profile_names().empty());
}

TEST_F(ProfileFile, OfEveryAuthorityGivesItBack) {
    for (const Authority& authority : authorities()) {
        Profile profile = authority_profile(authority);
        profile.name = authority.key;
        EXPECT_TRUE(profile_of_text(text_of(profile), authority.key, "p") == profile) << authority.key;
    }
}

TEST_F(ProfileFile, TellsTheLineThatIsWrong) {
    EXPECT_EQ(refused_words("[rules]\nfajer_angle = 31\n"),
              "file.ini, line 2: fajer_angle: wanted 1 ... 30; found \"31\".");
    EXPECT_EQ(refused_words("[rules]\n\n; words\naser = shafi\n"),
              "file.ini, line 4: aser: wanted standard, hanafi; found \"shafi\".");
    EXPECT_EQ(refused_words("[rules]\nfajer_angel = 18\n"),
              "file.ini, line 2: there is no [rules] fajer_angel.");
    EXPECT_EQ(refused_words("[rules]\nwhat\n"), "file.ini, line 2: wanted \"key = value\" or \"[section]\".");
    EXPECT_EQ(refused_words("[added]\nisha = nan\n"),
              "file.ini, line 2: isha: wanted -120 ... 120; found \"nan\".");
    EXPECT_EQ(refused_words("[columns]\n1 = fajer\n2 = fajer\n"), "file.ini, line 3: fajer stands twice.");
    EXPECT_EQ(refused_words("[rules]\nfajer_angle = 1" + std::string(300, '8') + "\n"),
              "file.ini, line 2: wanted \"key = value\" or \"[section]\".");
    EXPECT_NE(refused_words("[rules]\nmaghreb_angle = 20\n"), "");
    EXPECT_NE(refused_words("[rules]\nisha_minutes_ramadan = 120\n"), "");
    EXPECT_EQ(refused_words(""), "");
}

TEST_F(ProfileFile, ReadsBytesOfAnyKindWithoutHarm) {
    std::string text = text_of(full_profile());
    for (std::size_t i = 0; i < text.size(); ++i)
        for (const char c : {'\0', '\xff', '=', '9'}) {
            std::string damaged = text;
            damaged[i] = c;
            try {
                const Profile profile = profile_of_text(damaged, "x", "p");
                EXPECT_LE(profile.fajer_angle, greatest_angle);
                EXPECT_LE(profile.jumuah.size(), most_jumuah);
            } catch (const RunTimeFailure& failure) {
                EXPECT_TRUE(std::string(failure.what()).starts_with("p"));
            }
        }
}

TEST_F(ProfileFile, NamesAreOnesOfFiles) {
    for (const char* name : {"", "a/b", "..", "a.ini", " a", "a ", "a\nb", "C:"})
        EXPECT_TRUE(refused_profile_name(name)) << name;
    for (const char* name : {"a", "London 2026", "مسجد النور", "x_y-z"})
        EXPECT_FALSE(refused_profile_name(name)) << name;
}

TEST_F(ProfileFile, IsFoundByItsNameThenAsAnAuthority) {
    Profile own = full_profile();
    own.name = "mwl";
    write_profile(own);
    const Preferences preferences;
    EXPECT_TRUE(find_profile("mwl", preferences) == own);
    EXPECT_EQ(find_profile("karachi", preferences).authority, "karachi");
    EXPECT_TRUE(find_profile("", preferences).preferences);
    EXPECT_THROW(find_profile("nobody", preferences), RunTimeFailure);
}

TEST(IqamahText, IsReadAndWritten) {
    for (const char* text : {"none", "05:30", "+20", "+0 up", "23:59"})
        EXPECT_EQ(text_of(iqamah_of(text).value()), text);
    EXPECT_EQ(text_of(iqamah_of("5:30").value()), "05:30");
    for (const char* text : {"+", "+-5", "24:00", "5:3", "5:300", "+241", "+20 down", "soon", "05:30 up"})
        EXPECT_FALSE(iqamah_of(text)) << text;
    EXPECT_EQ(jumuah_of("12:30, 13:15")->size(), 2U);
    EXPECT_FALSE(jumuah_of("13:15 12:30"));
    EXPECT_FALSE(jumuah_of("12:00 12:30 13:00 13:30"));
}

} // namespace
} // namespace halvane
