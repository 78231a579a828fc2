// SPDX-License-Identifier: MIT
#include "desktop/preferencesrules.h"

#include <gtest/gtest.h>

namespace halvane {
namespace {

Preferences custom(double fajer, double isha) {
    Preferences record;
    record.authority = "6";
    record.fajer_angle = fajer;
    record.isha_angle = isha;
    return record;
}

TEST(PreferencesRules, TheAuthoritiesStandInTheirOrderWithTheirAngles) {
    struct Row {
        std::string code, entry;
        double fajer, isha;
        bool custom;
    };
    const Row rows[] = {
        {"1", "Standard", 18, 18, false},
        {"2", "Egyptian General Authority of Survey", 19.5, 17.5, false},
        {"3", "Islamic Society of North America", 18, 18, false},
        {"4", "Muslim World League", 18, 17, false},
        {"5", "University Of Islamic Sciences, Karachi", 18, 18, false},
        {"6", "Custom", 0, 0, true},
    };
    const auto authorities = twilight_authorities();
    ASSERT_EQ(authorities.size(), std::size(rows));
    for (std::size_t i = 0; i < authorities.size(); ++i) {
        EXPECT_EQ(authorities[i].code, rows[i].code);
        EXPECT_EQ(authorities[i].entry, rows[i].entry);
        EXPECT_EQ(authorities[i].custom, rows[i].custom);
        if (!rows[i].custom) {
            EXPECT_EQ(authorities[i].fajer, rows[i].fajer) << rows[i].entry;
            EXPECT_EQ(authorities[i].isha, rows[i].isha) << rows[i].entry;
        }
    }
}

TEST(PreferencesRules, AFixedAuthorityShowsItsOwnAnglesNotTheStoredOnes) {
    Preferences stored = custom(12, 13);
    stored.authority = "2";
    const AngleBoxes boxes = PreferencesRules(stored).opened().angles;
    EXPECT_EQ(boxes, (AngleBoxes{"19.5", "17.5", false}));
}

TEST(PreferencesRules, CustomShowsTheStoredAnglesInOpenBoxes) {
    const PreferencesPanel panel = PreferencesRules(custom(16, 14.25)).opened();
    EXPECT_EQ(panel.authority, "Custom");
    EXPECT_EQ(panel.angles, (AngleBoxes{"16", "14.25", true}));
}

TEST(PreferencesRules, AnUnknownCodeLeavesTheListAndBoxesAsDesigned) {
    Preferences stored = custom(16, 14);
    stored.authority = "9";
    const PreferencesPanel panel = PreferencesRules(stored).opened();
    EXPECT_EQ(panel.authority, "Standard");
    EXPECT_EQ(panel.angles, (AngleBoxes{"18", "18", false}));
}

TEST(PreferencesRules, CustomAnglesSurviveAVisitToAnotherAuthority) {
    PreferencesRules form(custom(16, 14));
    PreferencesPanel panel = form.opened();
    panel.angles = form.chosen("Muslim World League", panel.angles);
    EXPECT_EQ(panel.angles, (AngleBoxes{"18", "17", false}));
    panel.angles = form.chosen("Custom", panel.angles);
    EXPECT_EQ(panel.angles, (AngleBoxes{"16", "14", true}));
}

TEST(PreferencesRules, AnEntryThatIsNoAuthorityChangesNoBox) {
    const AngleBoxes now{"1", "2", true};
    EXPECT_EQ(PreferencesRules(Preferences{}).chosen("Other", now), now);
}

TEST(PreferencesRules, ARefusedAngleIsKeptWithItsNeighbour) {
    PreferencesRules form(custom(16, 14));
    PreferencesPanel panel = form.opened();
    panel.angles = {"20", "-3", true};
    panel.add_asr = "9";
    EXPECT_EQ(form.take(panel), RefusedAngle::isha);
    EXPECT_EQ(form.chosen("Custom", {}), (AngleBoxes{"20", "-3", true}));
    EXPECT_EQ(form.record().add_asr, 0);
}

TEST(PreferencesRules, FajerIsCheckedBeforeIsha) {
    PreferencesRules form(custom(16, 14));
    PreferencesPanel panel = form.opened();
    panel.angles = {"-1", "-1", true};
    EXPECT_EQ(form.take(panel), RefusedAngle::fajer);
}

TEST(PreferencesRules, ZeroAndAnyLargeAngleAreTaken) {
    PreferencesRules form(custom(16, 14));
    PreferencesPanel panel = form.opened();
    panel.angles = {"0", "500.5", true};
    EXPECT_EQ(form.take(panel), RefusedAngle::none);
    EXPECT_EQ(form.record().fajer_angle, 0);
    EXPECT_EQ(form.record().isha_angle, 500.5);
}

TEST(PreferencesRules, EveryFieldGoesToThePanelAndBack) {
    Preferences stored = custom(16.5, 14.5);
    stored.summer_from_month = 3;
    stored.summer_from_day = 28;
    stored.summer_to_month = 11;
    stored.summer_to_day = 30;
    stored.subtract_fajer = 1;
    stored.add_dhohur = 2;
    stored.add_maghreb = 3.5;
    stored.add_asr = 4;
    stored.summer_time = "1";
    stored.elevation_fajer = "1";
    stored.asr_rule = "0";
    stored.clock_precision = "0";
    stored.set_language(Language::arabic);
    stored.elevation_setting = "1";
    stored.high_latitude = 1;
    PreferencesRules form(stored);
    EXPECT_EQ(form.take(form.opened()), RefusedAngle::none);
    EXPECT_EQ(form.record(), stored);
}

TEST(PreferencesRules, DefaultsKeepHighLatitudeElevationAndTheLanguageInForce) {
    Preferences stored = custom(16, 14);
    stored.set_language(Language::arabic);
    PreferencesRules form(stored);
    PreferencesPanel panel = form.opened();
    panel.high_latitude = true;
    panel.elevation_setting = true;
    panel.elevation_fajer = true;
    panel.language = Language::english;
    panel.summer_time = true;
    panel.from_month = "7";
    panel.add_maghreb = "12";
    panel.standard_asr = panel.minutes = false;

    PreferencesPanel wanted;
    wanted.authority = "Standard";
    wanted.angles = {"18", "18", false};
    wanted.high_latitude = true;
    wanted.elevation_setting = true;
    wanted.from_month = "4";
    wanted.from_day = "1";
    wanted.to_month = "10";
    wanted.to_day = "1";
    wanted.subtract_fajer = wanted.add_dhohur = wanted.add_asr = wanted.add_maghreb = "0";
    wanted.standard_asr = wanted.minutes = true;
    wanted.summer_time = wanted.elevation_fajer = false;
    wanted.language = Language::arabic;
    EXPECT_EQ(form.defaults(panel), wanted);
}

} // namespace
} // namespace halvane
