// SPDX-License-Identifier: MIT
#include "prayer/frmalerts.h"

#include "base/failure.h"
#include "stored/alert.h"
#include "stored/programfolder.h"
#include "system/path.h"
#include "tests/panel/panelchecks.h"

#include <QLineEdit>
#include <filesystem>

namespace halvane {
namespace {

constexpr const char* athans[] = {"fradoh",  "fraasr",  "framag",  "fraish",  "optdhrh", "optdhre", "optasrh",
                                  "optasre", "optmagh", "optmage", "optishh", "optishe", "lblprao"};

constexpr ControlText captions[] = {
    {"frmalerts", "Alerts", "المنبه"},
    {"fraale", "Alert Settings", "خيارات المنبه"},
    {"chkpep", "Make Beep", "اصدر صوت قبل"},
    {"lblpep", "Minute(s) Before Prayer Time.", "دقائق من موعد الآذان"},
    {"chkpra", "Show Pop-up Window and Release Athan.", " إظهار نافذة و سماع الآذان عندما يحين موعد الصلاة"},
    {"chkpopup", "Only Show Pop-Up Window at Prayer Time.", "إظهار نافذة فقط عندما يحين موعد الصلاة"},
    {"lblprao",
     "Please choose which Athan do you wish to hear at each prayer time. By default, Fajer Athan is the "
     "Jerusalem Athan.",
     "يرجى اختيار الآذان الذي تفضل سماعه عند موعد كل صلاة سيتم سماع آذان القدس لآذان الفجر"},
    {"fradoh", "Dhohur Athan", "آذان الظهر"},
    {"fraasr", "Aser Athan", "آذان العصر"},
    {"framag", "Maghreb Athan", "آذان المغرب"},
    {"fraish", "Isha Athan", "آذان العشاء"},
    {"optdhrh", "Mecca Athan", "آذان مكة"},
    {"optasrh", "Mecca Athan", "آذان مكة"},
    {"optmagh", "Mecca Athan", "آذان مكة"},
    {"optishh", "Mecca Athan", "آذان مكة"},
    {"optdhre", "Jerusalem Athan", "آذان القدس"},
    {"optasre", "Jerusalem Athan", "آذان القدس"},
    {"optmage", "Jerusalem Athan", "آذان القدس"},
    {"optishe", "Jerusalem Athan", "آذان القدس"},
    {"cmdok", "&Ok", "&موافق"},
    {"cmdcan", "&Cancel", "&خروج"},
};

class AlertsTest : public PanelTest {
protected:
    AlertsTest() { put("alert63.exe", "the alert program"); }
    static void expect_athans_enabled(QWidget& form, bool enabled) {
        for (const char* name : athans)
            EXPECT_EQ(control(form, name).isEnabled(), enabled) << name;
    }
    std::string stored() const { return content("alert.vsk"); }
};

TEST_F(AlertsTest, EveryCaptionIsThatOfTheLanguage) {
    in_both_languages<frmalerts>(
        [](QWidget& form, Language language) { expect_captions(form, frmalerts_twins(), language); });
}

class AlertsCaption : public AlertsTest, public ::testing::WithParamInterface<ControlText> {};

TEST_P(AlertsCaption, StandsLetterForLetter) {
    in_both_languages<frmalerts>(
        [](QWidget& form, Language language) { expect_caption(form, GetParam(), language); });
}

INSTANTIATE_TEST_SUITE_P(Every, AlertsCaption, ::testing::ValuesIn(captions), caption_name);

TEST_F(AlertsTest, EveryControlHasANameAKeyAndRoom) {
    put("alert.vsk", "1,10,1,0,#TRUE#,#TRUE#,#TRUE#,#TRUE#\r\n");
    in_both_languages<frmalerts>([](QWidget& form, Language) { expect_usable(form); });
}

TEST_F(AlertsTest, LoadFillsEveryControl) {
    put("alert.vsk", "1,12.5,1,0,#FALSE#,#TRUE#,#FALSE#,#TRUE#\r\n");
    frmalerts form;
    EXPECT_TRUE(checked(form, "chkpep"));
    EXPECT_EQ(text(form, "txtpep"), QStringLiteral("12.5"));
    EXPECT_TRUE(control(form, "txtpep").isEnabled());
    EXPECT_TRUE(checked(form, "chkpra"));
    EXPECT_FALSE(checked(form, "chkpopup"));
    EXPECT_TRUE(checked(form, "optdhre"));
    EXPECT_TRUE(checked(form, "optasrh"));
    EXPECT_TRUE(checked(form, "optmage"));
    EXPECT_TRUE(checked(form, "optishh"));
    expect_athans_enabled(form, true);
}

TEST_F(AlertsTest, WithoutTheAthanTheMeccaOptionsStand) {
    put("alert.vsk", "0,10,0,1,#FALSE#,#FALSE#,#FALSE#,#FALSE#\r\n");
    frmalerts form;
    for (const char* name : {"optdhrh", "optasrh", "optmagh", "optishh"})
        EXPECT_TRUE(checked(form, name)) << name;
    EXPECT_TRUE(checked(form, "chkpopup"));
    EXPECT_FALSE(control(form, "txtpep").isEnabled());
    expect_athans_enabled(form, false);
}

TEST_F(AlertsTest, TheBeepBoxOpensItsMinutes) {
    frmalerts form;
    form.show();
    EXPECT_FALSE(control(form, "txtpep").isEnabled());
    click(form, "chkpep");
    EXPECT_TRUE(control(form, "txtpep").isEnabled());
    click(form, "chkpep");
    EXPECT_FALSE(control(form, "txtpep").isEnabled());
}

TEST_F(AlertsTest, TheTwoKindsOfWindowExcludeEachOther) {
    frmalerts form;
    form.show();
    click(form, "chkpopup");
    click(form, "chkpra");
    EXPECT_TRUE(checked(form, "chkpra"));
    EXPECT_FALSE(checked(form, "chkpopup"));
    expect_athans_enabled(form, true);
    click(form, "chkpopup");
    EXPECT_TRUE(checked(form, "chkpopup"));
    EXPECT_FALSE(checked(form, "chkpra"));
    expect_athans_enabled(form, false);
    click(form, "chkpopup");
    EXPECT_FALSE(checked(form, "chkpopup"));
    EXPECT_FALSE(checked(form, "chkpra"));
}

TEST_F(AlertsTest, AFileWithBothWindowsShowsOneOfThem) {
    put("alert.vsk", "0,10,1,1,#TRUE#,#TRUE#,#TRUE#,#TRUE#\r\n");
    frmalerts form;
    EXPECT_NE(checked(form, "chkpra"), checked(form, "chkpopup"));
}

TEST_F(AlertsTest, OkStoresTheEightFields) {
    frmalerts form;
    form.show();
    click(form, "chkpep");
    enter(form, "txtpep", QStringLiteral("5.5 minutes"));
    click(form, "chkpra");
    click(form, "optasre");
    click(form, "optishe");
    answer({true});
    click(form, "cmdok");
    EXPECT_EQ(stored(), "1,5.5,1,0,#TRUE#,#FALSE#,#TRUE#,#FALSE#\r\n");
    EXPECT_FALSE(form.isVisible());
}

TEST_F(AlertsTest, EmptyMinutesAreStoredAsZero) {
    frmalerts form;
    form.show();
    click(form, "chkpep");
    enter(form, "txtpep", QString());
    answer({true});
    click(form, "cmdok");
    EXPECT_EQ(messages.size(), 1U);
    EXPECT_EQ(text(form, "txtpep"), "0");
    EXPECT_EQ(read_alert().lead, 0);
}

TEST_F(AlertsTest, MinutesThatAreNotMeantAreNotStored) {
    const std::string before = stored();
    frmalerts form;
    form.show();
    click(form, "chkpep");
    enter(form, "txtpep", QStringLiteral("five"));
    answer({false});
    click(form, "cmdok");
    EXPECT_EQ(messages.size(), 1U);
    EXPECT_TRUE(messages.at(0).text.contains(QStringLiteral("five")));
    EXPECT_EQ(stored(), before);
    EXPECT_TRUE(platform_double.shortcuts.empty());
    EXPECT_TRUE(form.isVisible());
}

TEST_F(AlertsTest, OkMakesTheShortcutAndStartsTheProgram) {
    frmalerts form;
    form.show();
    click(form, "chkpopup");
    click(form, "cmdok");
    ASSERT_EQ(platform_double.shortcuts.size(), 1U);
    const Shortcut& shortcut = platform_double.shortcuts[0];
    EXPECT_EQ(shortcut.target, path("alert63.exe"));
    EXPECT_EQ(shortcut.folder, "Startup");
    EXPECT_EQ(shortcut.name, "Halvane");
    EXPECT_EQ(shortcut.working_folder, path(".").substr(0, path(".").size() - 2));
    EXPECT_EQ(shortcut.window_style, 0);
    EXPECT_EQ(shortcut.icon_number, 0);
    EXPECT_EQ(platform_double.looked_for, std::vector<std::string>{"Halvane Alerts/alert63.exe"});
    ASSERT_EQ(platform_double.started.size(), 1U);
    EXPECT_EQ(platform_double.started[0].path, path("alert63.exe"));
    EXPECT_EQ(platform_double.started[0].working_folder, shortcut.working_folder);
    EXPECT_TRUE(platform_double.deleted_shortcuts.empty());
}

TEST_F(AlertsTest, AProgramThatIsNotInTheUsersFolderIsTheOneBesideTheExecutable) {
    remove("alert63.exe");
    frmalerts form;
    form.show();
    click(form, "chkpopup");
    click(form, "cmdok");
    ASSERT_EQ(platform_double.shortcuts.size(), 1U);
    EXPECT_EQ(platform_double.shortcuts[0].target, joined_path(executable_folder(), "alert63.exe"));
    ASSERT_EQ(platform_double.started.size(), 1U);
    EXPECT_EQ(platform_double.started[0].path, platform_double.shortcuts[0].target);
}

TEST_F(AlertsTest, ASecondOkStartsNoSecondCopy) {
    for (int round = 0; round < 2; ++round) {
        frmalerts form;
        form.show();
        if (!checked(form, "chkpep"))
            click(form, "chkpep");
        click(form, "cmdok");
    }
    EXPECT_EQ(platform_double.shortcuts.size(), 2U);
    EXPECT_EQ(platform_double.started.size(), 1U);
}

TEST_F(AlertsTest, AllBoxesClearRemoveTheShortcutAndLeaveTheProgram) {
    put("alert.vsk", "1,10,0,0,#TRUE#,#TRUE#,#TRUE#,#TRUE#\r\n");
    platform_double.running = true;
    frmalerts form;
    form.show();
    click(form, "chkpep");
    click(form, "cmdok");
    EXPECT_EQ(platform_double.deleted_shortcuts, std::vector<std::string>{"Startup/Halvane"});
    EXPECT_TRUE(platform_double.shortcuts.empty());
    EXPECT_TRUE(platform_double.started.empty());
    EXPECT_TRUE(platform_double.running);
    EXPECT_EQ(stored(), "0,10,0,0,#TRUE#,#TRUE#,#TRUE#,#TRUE#\r\n");
}

TEST_F(AlertsTest, ErrorsOfThePlatformArePassedOver) {
    platform_double.refuses = true;
    frmalerts form;
    form.show();
    click(form, "chkpopup");
    click(form, "cmdok");
    EXPECT_EQ(stored(), "0,10,0,1,#TRUE#,#TRUE#,#TRUE#,#TRUE#\r\n");
    EXPECT_FALSE(form.isVisible());
    frmalerts second;
    second.show();
    click(second, "chkpopup");
    click(second, "cmdok");
    EXPECT_EQ(stored(), "0,10,0,0,#TRUE#,#TRUE#,#TRUE#,#TRUE#\r\n");
}

TEST_F(AlertsTest, AFileThatCannotBeWrittenIsPassedOver) {
    frmalerts form;
    form.show();
    click(form, "chkpep");
    remove("alert.vsk");
    std::filesystem::create_directory(path("alert.vsk"));
    click(form, "cmdok");
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(messages.empty());
    EXPECT_EQ(platform_double.started.size(), 1U);
}

TEST_F(AlertsTest, CancelAndEscapeStoreNothing) {
    const std::string before = stored();
    {
        frmalerts form;
        form.show();
        click(form, "chkpra");
        click(form, "cmdcan");
        EXPECT_FALSE(form.isVisible());
    }
    frmalerts form;
    form.show();
    click(form, "chkpra");
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(stored(), before);
    EXPECT_TRUE(platform_double.shortcuts.empty());
    EXPECT_TRUE(platform_double.deleted_shortcuts.empty());
}

TEST_F(AlertsTest, FocusSelectsTheMinutes) {
    put("alert.vsk", "1,10,0,0,#TRUE#,#TRUE#,#TRUE#,#TRUE#\r\n");
    frmalerts form;
    form.show();
    expect_focus_selects_text(form, "txtpep");
    EXPECT_EQ(control<QLineEdit>(form, "txtpep").selectedText(), QStringLiteral("10"));
}

TEST_F(AlertsTest, AMissingFileIsAFailure) {
    remove("alert.vsk");
    EXPECT_THROW(frmalerts form, RunTimeFailure);
}

} // namespace
} // namespace halvane
