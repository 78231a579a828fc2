// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "desktop/frmpreferences.h"
#include "ephemeris/series.h"
#include "panel/panelsupport.h"
#include "routines/seriesloader.h"
#include "stored/loc.h"
#include "stored/pref.h"
#include "tests/panel/panelchecks.h"
#include "tests/support/places.h"

#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

namespace halvane {
namespace {

constexpr ControlText captions[] = {
    {"frmpreferences", "Preferences", "الخيارات"},
    {"fratwi", "Twilight", "الفجر و العشاء"},
    {"lblfaj", "Fajer angle", "زاوية الفجر"},
    {"lblisha", "Isha angle", "زاوية العشاء"},
    {"lblfajd", "- Fajer: Beginning of twilight.", "الفجر: بداية الشفق الفلكي"},
    {"lblishd", "- Isha: End of twilight.", "العشاء: نهاية الشفق الفلكي"},
    {"frahl", "High Latitude Alternative Prayer Times", "حسابات بديلة لخطوط العرض العليا"},
    {"chkhl", "Enable Alternative Prayer Time Calculations", "تفعيل الحسابات البديلة لخطوط العرض العليا"},
    {"frasum", "Summer Time", "التوقيت الصيفي"},
    {"optnosum", "No Summer Time", "لا يوجد توقيت صيفي"},
    {"optsum", "Consider Summer Time", "يوجد توقيت صيفي"},
    {"lblfrom", "From:", "من"},
    {"lblto", "To:", "إلى"},
    {"lblfmonth", "Month:", "الشهر"},
    {"lbltmonth", "Month:", "الشهر"},
    {"lblfday", "Day:", "اليوم"},
    {"lbltday", "Day:", "اليوم"},
    {"cmdzone", "From the time &zone", "من المن&طقة الزمنية"},
    {"fraadd", "Addition", "الاحتياط"},
    {"lblsubfaj", "Subtract", "إطرح"},
    {"lblsubfaj2", "Minutes from Fajer", "دقيقة من وقت الفجر"},
    {"lbladddoh", "Add", "أضف"},
    {"lbladddoh2", "Minutes to Dhohur", "دقيقة على وقت الظهر"},
    {"lbladdmag", "Add", "أضف"},
    {"lbladdmag2", "Minutes to Maghreb", "دقيقة على وقت المغرب"},
    {"lbladdasr", "Add", "أضف"},
    {"lbladdasr2", "Minutes to Asr", "دقيقة على وقت العصر"},
    {"fraele", "Elevation", "الإرتفاع"},
    {"chkeleset", "Height above sea level affects rise and set events",
     "الإرتفاع عن سطح البحر يؤثر على مواعيد الشروق و الغروب"},
    {"chkelefaj", "", ""},
    {"fraasr", "Aser Prayer", "صلاة العصر"},
    {"optsha", "Standard", "عام"},
    {"opthan", "Hanafi", "حنفي"},
    {"frapre", "Precision", "الدقة"},
    {"optmin", "Minutes", "دقائق"},
    {"optsec", "Seconds", "ثواني"},
    {"fralan", "Language", "اللغة"},
    {"optar", "عربي", "عربي"},
    {"opten", "English", "English"},
    {"cmdok", "&Ok", "&موافق"},
    {"cmdcan", "&Cancel", "&خروج"},
    {"cmddef", "&Default", "القيم المف&ضلة"},
};

constexpr const char* summer_span[] = {"lblfrom", "cbofmonth", "cbofday", "lblfmonth", "lblfday",
                                       "lblto",   "cbotmonth", "cbotday", "lbltmonth", "lbltday"};
constexpr const char* default_record =
    "18,18,4,1,10,1,0,0,0,\"0\",\"0\",\"1\",\"1\",#TRUE#,\"0\",\"1\",0,0\r\n";

class PreferencesTest : public PanelTest {
protected:
    PreferencesTest() { load_series(); }
    void store_custom(double fajer, double isha) {
        Preferences record;
        record.authority = "6";
        record.fajer_angle = fajer;
        record.isha_angle = isha;
        write_pref(record);
    }
};

TEST_F(PreferencesTest, EveryCaptionStandsInEnglish) {
    frmpreferences form;
    expect_captions(form, captions, Language::english);
}

TEST_F(PreferencesTest, EveryCaptionStandsInArabicRightToLeft) {
    set_language(Language::arabic);
    frmpreferences form;
    expect_captions(form, captions, Language::arabic);
    for (const char* frame : {"fratwi", "frahl", "frasum", "fraadd", "fraele", "fraasr", "frapre", "fralan"})
        EXPECT_TRUE(control<QGroupBox>(form, frame).isRightToLeft()) << frame;
}

TEST_F(PreferencesTest, TheListsHoldTheAuthoritiesTheMonthsAndTheDays) {
    frmpreferences form;
    EXPECT_EQ(entries(form, "cbotwi"), (QStringList{"Standard", "Egyptian General Authority of Survey",
                                                    "Islamic Society of North America", "Muslim World League",
                                                    "University Of Islamic Sciences, Karachi", "Custom"}));
    for (const auto& [name, count] :
         {std::pair{"cbofmonth", 12}, {"cbotmonth", 12}, {"cbofday", 31}, {"cbotday", 31}}) {
        auto& list = control<QComboBox>(form, name);
        ASSERT_EQ(list.count(), count) << name;
        EXPECT_EQ(list.itemText(0), "1");
        EXPECT_EQ(list.itemText(count - 1), QString::number(count));
        EXPECT_FALSE(list.isEditable());
    }
}

TEST_F(PreferencesTest, EveryFieldOfTheRecordIsShown) {
    put("pref.vsk", "16,14.5,3,28,11,30,2,3,4.5,\"1\",\"1\",\"0\",\"0\",#FALSE#,\"1\",\"6\",5,1\r\n");
    frmpreferences form;
    EXPECT_EQ(chosen(form, "cbotwi"), "Custom");
    EXPECT_EQ(text(form, "txtfaj"), "16");
    EXPECT_EQ(text(form, "txtisha"), "14.5");
    EXPECT_TRUE(enabled(form, "txtfaj"));
    EXPECT_TRUE(enabled(form, "txtisha"));
    EXPECT_TRUE(checked(form, "chkhl"));
    EXPECT_TRUE(checked(form, "optsum"));
    EXPECT_EQ(chosen(form, "cbofmonth"), "3");
    EXPECT_EQ(chosen(form, "cbofday"), "28");
    EXPECT_EQ(chosen(form, "cbotmonth"), "11");
    EXPECT_EQ(chosen(form, "cbotday"), "30");
    EXPECT_EQ(text(form, "txtsubfaj"), "2");
    EXPECT_EQ(text(form, "txtadddoh"), "3");
    EXPECT_EQ(text(form, "txtaddmag"), "4.5");
    EXPECT_EQ(text(form, "txtaddasr"), "5");
    EXPECT_TRUE(checked(form, "chkelefaj"));
    EXPECT_TRUE(checked(form, "opthan"));
    EXPECT_TRUE(checked(form, "optsec"));
    EXPECT_TRUE(checked(form, "chkeleset"));
    EXPECT_TRUE(checked(form, "optar"));
    for (const char* name : summer_span)
        EXPECT_TRUE(enabled(form, name)) << name;
}

TEST_F(PreferencesTest, AFixedAuthorityShowsItsAnglesInClosedBoxes) {
    struct Row {
        const char* code;
        const char* entry;
        const char* fajer;
        const char* isha;
    };
    for (const Row& row : {Row{"1", "Standard", "18", "18"},
                           {"2", "Egyptian General Authority of Survey", "19.5", "17.5"},
                           {"3", "Islamic Society of North America", "18", "18"},
                           {"4", "Muslim World League", "18", "17"},
                           {"5", "University Of Islamic Sciences, Karachi", "18", "18"}}) {
        store_custom(11, 12);
        Preferences record = read_pref();
        record.authority = row.code;
        write_pref(record);
        frmpreferences form;
        EXPECT_EQ(chosen(form, "cbotwi"), row.entry);
        EXPECT_EQ(text(form, "txtfaj"), row.fajer) << row.entry;
        EXPECT_EQ(text(form, "txtisha"), row.isha) << row.entry;
        EXPECT_FALSE(enabled(form, "txtfaj"));
        EXPECT_FALSE(enabled(form, "txtisha"));
    }
}

TEST_F(PreferencesTest, ChoosingAnAuthorityFillsAndClosesTheBoxes) {
    store_custom(16, 14);
    frmpreferences form;
    form.show();
    choose(form, "cbotwi", "Egyptian General Authority of Survey");
    EXPECT_EQ(text(form, "txtfaj"), "19.5");
    EXPECT_EQ(text(form, "txtisha"), "17.5");
    EXPECT_FALSE(enabled(form, "txtfaj"));
    choose(form, "cbotwi", "Muslim World League");
    EXPECT_EQ(text(form, "txtfaj"), "18");
    EXPECT_EQ(text(form, "txtisha"), "17");
}

TEST_F(PreferencesTest, CustomBringsBackTheUsersAnglesAfterAVisitElsewhere) {
    store_custom(16, 14);
    frmpreferences form;
    form.show();
    choose(form, "cbotwi", "Standard");
    choose(form, "cbotwi", "Custom");
    EXPECT_EQ(text(form, "txtfaj"), "16");
    EXPECT_EQ(text(form, "txtisha"), "14");
    EXPECT_TRUE(enabled(form, "txtfaj"));
    EXPECT_TRUE(enabled(form, "txtisha"));
}

TEST_F(PreferencesTest, ASaveUnderAFixedAuthorityReplacesTheAnglesInTheFile) {
    store_custom(16, 14);
    frmpreferences form;
    form.show();
    choose(form, "cbotwi", "Muslim World League");
    click(form, "cmdok");
    EXPECT_EQ(read_pref().fajer_angle, 18);
    EXPECT_EQ(read_pref().isha_angle, 17);
    EXPECT_EQ(read_pref().authority, "4");
}

TEST_F(PreferencesTest, TheSummerSpanFollowsTheOption) {
    frmpreferences form;
    form.show();
    for (const char* name : summer_span)
        EXPECT_FALSE(enabled(form, name)) << name;
    click(form, "optsum");
    for (const char* name : summer_span)
        EXPECT_TRUE(enabled(form, name)) << name;
    click(form, "optnosum");
    for (const char* name : summer_span)
        EXPECT_FALSE(enabled(form, name)) << name;
}

TEST_F(PreferencesTest, TheSpanIsStoredWhileSummerTimeIsOff) {
    frmpreferences form;
    form.show();
    click(form, "optsum");
    choose(form, "cbofmonth", "3");
    choose(form, "cbofday", "29");
    choose(form, "cbotmonth", "9");
    choose(form, "cbotday", "27");
    click(form, "optnosum");
    click(form, "cmdok");
    EXPECT_EQ(content("pref.vsk"),
              "18,18,3,29,9,27,0,0,0,\"0\",\"0\",\"1\",\"1\",#TRUE#,\"0\",\"1\",0,0\r\n");
    frmpreferences again;
    EXPECT_EQ(chosen(again, "cbofday"), "29");
    EXPECT_FALSE(enabled(again, "cbofday"));
}

TEST_F(PreferencesTest, TheThirtyFirstOfAprilIsStored) {
    frmpreferences form;
    form.show();
    click(form, "optsum");
    choose(form, "cbofday", "31");
    click(form, "cmdok");
    EXPECT_EQ(read_pref().summer_from_month, 4);
    EXPECT_EQ(read_pref().summer_from_day, 31);
    EXPECT_EQ(read_pref().summer_time, "1");
    EXPECT_TRUE(messages.empty());
}

TEST_F(PreferencesTest, TheTimeZoneGivesThisYearsSummerTime) {
    // 2024, by the US rule: second Sunday of March to the day before the first Sunday of November.
    write_loc(place_at({-74, 0}, {40, 43}, -5, "New York"));
    const std::string before = content("pref.vsk");
    frmpreferences form;
    form.show();
    click(form, "cmdzone");
    EXPECT_TRUE(messages.empty());
    EXPECT_TRUE(checked(form, "optsum"));
    EXPECT_EQ(chosen(form, "cbofmonth"), "3");
    EXPECT_EQ(chosen(form, "cbofday"), "10");
    EXPECT_EQ(chosen(form, "cbotmonth"), "11");
    EXPECT_EQ(chosen(form, "cbotday"), "2");
    for (const char* name : summer_span)
        EXPECT_TRUE(enabled(form, name)) << name;
    EXPECT_EQ(content("pref.vsk"), before) << "stored before Ok";
    click(form, "cmdok");
    EXPECT_EQ(content("pref.vsk"),
              "18,18,3,10,11,2,0,0,0,\"1\",\"0\",\"1\",\"1\",#TRUE#,\"0\",\"1\",0,0\r\n");
}

TEST_F(PreferencesTest, TheTimeZoneLeavesEveryOtherControl) {
    write_loc(place_at({151, 12}, {-33, 52}, 10, "Sydney"));
    frmpreferences form;
    form.show();
    choose(form, "cbotwi", "Custom");
    enter(form, "txtfaj", "abc");
    enter(form, "txtadddoh", "7");
    click(form, "optsec");
    click(form, "optar");
    click(form, "cmdzone");
    // By Australia's rule: first Sunday of October to the day before the first Sunday of April.
    EXPECT_EQ(chosen(form, "cbofmonth"), "10");
    EXPECT_EQ(chosen(form, "cbofday"), "6");
    EXPECT_EQ(chosen(form, "cbotmonth"), "4");
    EXPECT_EQ(chosen(form, "cbotday"), "6");
    EXPECT_EQ(text(form, "txtfaj"), "abc");
    EXPECT_EQ(text(form, "txtadddoh"), "7");
    EXPECT_TRUE(checked(form, "optsec"));
    EXPECT_TRUE(checked(form, "optar"));
    EXPECT_TRUE(messages.empty());
}

TEST_F(PreferencesTest, ATimeZoneWithoutSummerTimeTurnsItOffAndSaysSo) {
    write_loc(place_at({46, 43}, {24, 41}, 3, "Riyadh"));
    put("pref.vsk", "18,18,3,28,11,30,0,0,0,\"1\",\"0\",\"1\",\"1\",#TRUE#,\"0\",\"1\",0,0\r\n");
    frmpreferences form;
    form.show();
    click(form, "cmdzone");
    ASSERT_EQ(messages.size(), 1U);
    expect_warning(messages[0], "Summer Time", "There is no summer time in \"Riyadh\" in 2024.");
    EXPECT_TRUE(checked(form, "optnosum"));
    EXPECT_EQ(chosen(form, "cbofday"), "28");
    EXPECT_FALSE(enabled(form, "cbofday"));
}

TEST_F(PreferencesTest, ASummerTimeThatCannotBeKnownIsToldAndChangesNothing) {
    struct Row {
        Location location;
        const char* text;
    };
    for (const Row& row : {Row{place_at({-95, -33}, {33, 40}, -6, "Paris"),
                               "The time zone of \"Paris\" is not known: no town of the delivered list has "
                               "this name and stands there. "
                               "Please set the days of the summer time yourself."},
                           Row{place_at({35, 56}, {31, 57}, 2, "Amman"),
                               "In 2024 the clock of Asia/Amman is one hour ahead of UTC+2, the "
                               "location's time zone, on every "
                               "day. Please look at the time zone in the Location menu."}}) {
        write_loc(row.location);
        messages.clear();
        frmpreferences form;
        form.show();
        click(form, "cmdzone");
        ASSERT_EQ(messages.size(), 1U);
        expect_warning(messages[0], "Summer Time", row.text);
        EXPECT_TRUE(checked(form, "optnosum"));
        EXPECT_EQ(chosen(form, "cbofmonth"), "4");
        EXPECT_EQ(chosen(form, "cbotmonth"), "10");
    }
}

TEST_F(PreferencesTest, AMissingListOfZonesIsToldAndThePanelStays) {
    remove(zone_list_file);
    set_language(Language::arabic);
    frmpreferences form;
    form.show();
    click(form, "cmdzone");
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].title, "التوقيت الصيفي");
    EXPECT_TRUE(messages[0].text.contains("zones.csv")) << messages[0].text.toStdString();
    EXPECT_TRUE(form.isVisible());
}

TEST_F(PreferencesTest, OkStoresEveryControl) {
    frmpreferences form;
    form.show();
    choose(form, "cbotwi", "Custom");
    enter(form, "txtfaj", "16.5");
    enter(form, "txtisha", "14.25");
    click(form, "chkhl");
    click(form, "optsum");
    choose(form, "cbofmonth", "3");
    choose(form, "cbofday", "28");
    choose(form, "cbotmonth", "11");
    choose(form, "cbotday", "30");
    enter(form, "txtsubfaj", "2");
    enter(form, "txtadddoh", "3");
    enter(form, "txtaddasr", "5");
    enter(form, "txtaddmag", "4.5");
    click(form, "chkeleset");
    click(form, "chkelefaj");
    click(form, "opthan");
    click(form, "optsec");
    click(form, "optar");
    click(form, "cmdok");
    EXPECT_EQ(content("pref.vsk"),
              "16.5,14.25,3,28,11,30,2,3,4.5,\"1\",\"1\",\"0\",\"0\",#FALSE#,\"1\",\"6\",5,1\r\n");
    EXPECT_FALSE(form.isVisible());
}

TEST_F(PreferencesTest, TheDefaultsGiveTheDefaultRecord) {
    put("pref.vsk", "16,14,3,28,11,30,2,3,4,\"1\",\"1\",\"0\",\"0\",#TRUE#,\"0\",\"6\",5,0\r\n");
    frmpreferences form;
    form.show();
    click(form, "cmddef");
    EXPECT_FALSE(enabled(form, "txtfaj"));
    EXPECT_FALSE(enabled(form, "txtisha"));
    for (const char* name : summer_span)
        EXPECT_FALSE(enabled(form, name)) << name;
    click(form, "cmdok");
    EXPECT_EQ(content("pref.vsk"), default_record);
}

TEST_F(PreferencesTest, TheDefaultsKeepHighLatitudeAndElevation) {
    frmpreferences form;
    form.show();
    click(form, "chkhl");
    click(form, "chkeleset");
    click(form, "cmddef");
    EXPECT_TRUE(checked(form, "chkhl"));
    EXPECT_TRUE(checked(form, "chkeleset"));
}

TEST_F(PreferencesTest, TheDefaultsReselectTheLanguageInForce) {
    frmpreferences form;
    form.show();
    click(form, "optar");
    click(form, "cmddef");
    EXPECT_TRUE(checked(form, "opten"));
}

TEST_F(PreferencesTest, TheDefaultsLeaveTheCustomAnglesOfThePanel) {
    store_custom(16, 14);
    frmpreferences form;
    form.show();
    click(form, "cmddef");
    EXPECT_EQ(chosen(form, "cbotwi"), "Standard");
    EXPECT_EQ(text(form, "txtfaj"), "18");
    choose(form, "cbotwi", "Custom");
    EXPECT_EQ(text(form, "txtfaj"), "16");
    EXPECT_EQ(text(form, "txtisha"), "14");
}

TEST_F(PreferencesTest, DefaultThenCancelChangesNothingOnDisk) {
    store_custom(16, 14);
    const std::string before = content("pref.vsk");
    frmpreferences form;
    form.show();
    click(form, "cmddef");
    click(form, "cmdcan");
    EXPECT_EQ(content("pref.vsk"), before);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(main_panel_reloads, 0);
}

TEST_F(PreferencesTest, EscapeClosesAndStoresNothing) {
    expect_escape_stores_nothing<frmpreferences>("pref.vsk", [](QWidget& form) { click(form, "optsec"); });
}

TEST_F(PreferencesTest, AnAngleOfLettersIsStoredAsZero) {
    store_custom(16, 14);
    frmpreferences form;
    form.show();
    enter(form, "txtfaj", "abc");
    answer({true});
    click(form, "cmdok");
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_TRUE(messages[0].text.contains("Fajer angle: "));
    EXPECT_EQ(text(form, "txtfaj"), "0");
    EXPECT_EQ(read_pref().fajer_angle, 0);
    EXPECT_EQ(read_pref().isha_angle, 14);
}

TEST_F(PreferencesTest, MinutesAreTheLeadingNumberOfTheirBox) {
    frmpreferences form;
    form.show();
    enter(form, "txtadddoh", "12abc");
    enter(form, "txtaddmag", "-7");
    enter(form, "txtaddasr", " 3");
    answer({true});
    click(form, "cmdok");
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_TRUE(messages[0].text.contains("Add minutes to Dhohur: "));
    EXPECT_TRUE(messages[0].text.contains("Add minutes to Asr: "));
    EXPECT_FALSE(messages[0].text.contains("Maghreb"));
    EXPECT_EQ(read_pref().add_dhohur, 12);
    EXPECT_EQ(read_pref().add_maghreb, -7);
    EXPECT_EQ(read_pref().add_asr, 0);
}

TEST_F(PreferencesTest, ANegativeFajerAngleIsRefused) {
    store_custom(16, 14);
    const std::string before = content("pref.vsk");
    frmpreferences form;
    form.show();
    enter(form, "txtfaj", "-1");
    enter(form, "txtisha", "-2");
    click(form, "cmdok");
    ASSERT_EQ(messages.size(), 1U);
    expect_warning(messages[0], "Angle Error!", "Fajer Angle Must Be Positive!");
    EXPECT_EQ(messages[0].buttons, QStringList{"OK"});
    EXPECT_EQ(content("pref.vsk"), before);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.focusWidget(), &control(form, "txtfaj"));
    EXPECT_EQ(control<QLineEdit>(form, "txtfaj").selectedText(), "-1");
    EXPECT_EQ(main_panel_reloads, 0);
}

TEST_F(PreferencesTest, ANegativeIshaAngleIsRefused) {
    store_custom(16, 14);
    frmpreferences form;
    form.show();
    enter(form, "txtisha", "-0.5");
    click(form, "cmdok");
    ASSERT_EQ(messages.size(), 1U);
    expect_warning(messages[0], "Angle Error!", "Isha Angle Must Be Positive!");
    EXPECT_EQ(form.focusWidget(), &control(form, "txtisha"));
    EXPECT_EQ(read_pref().isha_angle, 14);
}

TEST_F(PreferencesTest, ARefusedAngleStaysTheCustomAngleOfThePanel) {
    store_custom(16, 14);
    frmpreferences form;
    form.show();
    enter(form, "txtisha", "-5");
    click(form, "cmdok");
    choose(form, "cbotwi", "Standard");
    choose(form, "cbotwi", "Custom");
    EXPECT_EQ(text(form, "txtfaj"), "16");
    EXPECT_EQ(text(form, "txtisha"), "-5");
}

TEST_F(PreferencesTest, TheMessageSpeaksTheLanguageOfTheLoadedRecord) {
    store_custom(16, 14);
    set_language(Language::arabic);
    frmpreferences form;
    form.show();
    click(form, "opten");
    enter(form, "txtfaj", "-1");
    click(form, "cmdok");
    enter(form, "txtfaj", "1");
    enter(form, "txtisha", "-1");
    click(form, "cmdok");
    ASSERT_EQ(messages.size(), 2U);
    expect_warning(messages[0], "خطأ", "زاوية الفجر يجب أن تكون موجبة");
    EXPECT_EQ(messages[0].direction, Qt::RightToLeft);
    expect_warning(messages[1], "خطأ", "زاوية العشاء يجب أن تكون موجبة");
}

TEST_F(PreferencesTest, OkRebuildsTheMainPanelOnceTheNewLanguageIsStored) {
    Language at_reload = Language::english;
    set_main_panel_reload([&] {
        ++main_panel_reloads;
        at_reload = stored_language();
    });
    frmpreferences form;
    form.show();
    click(form, "optar");
    click(form, "cmdok");
    EXPECT_EQ(main_panel_reloads, 1);
    EXPECT_EQ(at_reload, Language::arabic);
}

TEST_F(PreferencesTest, AMissingRecordLeavesThePanelBlank) {
    remove("pref.vsk");
    frmpreferences form;
    EXPECT_EQ(text(form, "txtfaj"), "18");
    EXPECT_EQ(text(form, "txtisha"), "18");
    EXPECT_FALSE(enabled(form, "txtfaj"));
    EXPECT_EQ(text(form, "txtaddasr"), "0");
    EXPECT_FALSE(checked(form, "chkhl"));
    EXPECT_FALSE(checked(form, "chkeleset"));
    EXPECT_FALSE(checked(form, "opten"));
    EXPECT_TRUE(messages.empty());
}

TEST_F(PreferencesTest, ADamagedRecordShowsTheFieldsBeforeTheDamage) {
    put("pref.vsk", "16,14,3,28,11,30,2,3,x,\"1\"\r\n");
    frmpreferences form;
    EXPECT_EQ(text(form, "txtsubfaj"), "2");
    EXPECT_EQ(text(form, "txtadddoh"), "3");
    EXPECT_EQ(text(form, "txtaddmag"), "0");
    EXPECT_EQ(chosen(form, "cbofday"), "28");
    EXPECT_TRUE(checked(form, "opthan"));
}

TEST_F(PreferencesTest, OkMakesADamagedRecordWholeAgain) {
    put("pref.vsk", "18,18,4");
    frmpreferences form;
    form.show();
    click(form, "opten");
    click(form, "cmddef");
    click(form, "opten");
    click(form, "cmdok");
    EXPECT_EQ(content("pref.vsk"), default_record);
}

TEST_F(PreferencesTest, AFileThatCannotBeWrittenIsARunTimeFailure) {
    frmpreferences form;
    remove("pref.vsk");
    ASSERT_TRUE(QDir().mkpath(QString::fromStdString(path("pref.vsk") + "/occupied")));
    EXPECT_THROW(form.cmdok_click(), RunTimeFailure);
    EXPECT_EQ(main_panel_reloads, 0);
}

TEST_F(PreferencesTest, FocusSelectsTheWholeTextOfEveryBox) {
    store_custom(16, 14);
    frmpreferences form;
    form.show();
    for (const char* name : {"txtfaj", "txtisha", "txtsubfaj", "txtadddoh", "txtaddmag", "txtaddasr"})
        expect_focus_selects_text(form, name);
}

TEST_F(PreferencesTest, TabVisitsTheControlsInReadingOrder) {
    frmpreferences form;
    EXPECT_EQ(
        tab_order(form).join(u' '),
        "cbotwi txtfaj txtisha chkhl optnosum optsum cmdzone cbofmonth cbofday cbotmonth cbotday "
        "txtsubfaj txtadddoh txtaddasr txtaddmag chkeleset chkelefaj optsha opthan optmin optsec opten optar "
        "cmddef cmdok cmdcan");
}

TEST_F(PreferencesTest, EveryControlIsReachedAndNamed) {
    in_both_languages<frmpreferences>([](QWidget& form, Language) {
        expect_usable(form);
        EXPECT_TRUE(control<QPushButton>(form, "cmdok").isDefault());
    });
}

} // namespace
} // namespace halvane
