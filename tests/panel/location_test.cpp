// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "desktop/frmlocation.h"
#include "ephemeris/series.h"
#include "panel/panelsupport.h"
#include "routines/seriesloader.h"
#include "stored/loclist.h"
#include "tests/panel/panelchecks.h"

#include <QElapsedTimer>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <optional>

namespace halvane {
namespace {

constexpr ControlText captions[] = {
    {"frmlocation", "Location", "الموقع"},
    {"franame", "Name", "الإسم"},
    {"fralongi", "Longitude", "خط الطول"},
    {"opte", "E", "ش"},
    {"optw", "W", "غ"},
    {"fralatitude", "Latitude", "خط العرض"},
    {"optn", "N", "ش"},
    {"opts", "S", "ج"},
    {"fraothers", "Others", "إضافات"},
    {"lblzon", "Time Zone:", "النطاق الزمني"},
    {"lblzond", "(East +)", "(الشرق +)"},
    {"lblele", "Elevation:", "الإرتفاع"},
    {"lblelem", "(m)", "م"},
    {"fraref", "Refraction", "الإنكسار"},
    {"lbltem", "Temperature (c):", "الحرارة م"},
    {"lblpre", "Pressure (mb):", "الضغط مل بار"},
    {"fracity", "City Settings", "مواقيت المدينة"},
    {"lblcity", "For Fajer and Shuroq times consider my location is to the east of my default location by ",
     "لمواعيد الفجر و الشروق، اعتبر موقعي إلى الشرق من الموقع الأصلي بمقدار"},
    {"lblcity2", "Km", "كم"},
    {"lblmod",
     "To change value(s) of a certain location: Firstly, change the value(s) above, then click 'Modify'.",
     "لتغيير قيم إحدى المواقع: قم أولا بتغيير القيمة، ثم اضغط كبسة تعديل"},
    {"lbladd", "To add a new location: Firstly, enter your values above, then click  'Add'.",
     "لإضافة موقع جديد: قم أولا بإدخال القيم أعلاه، ثم اضغط كبسة إضافة"},
    {"cmdok", "&Ok", "&موافق"},
    {"cmdadd", "&Add", "إ&ضافة"},
    {"cmdmod", "&Modify", "&تعديل"},
    {"cmddel", "&Delete", "&حذف"},
    {"cmdcancel", "&Cancel", "&خروج"},
    {"lbllongid", "o", "o"},
    {"lbllongim", "'", "'"},
    {"lbllongis", "\"", "\""},
    {"lbllatid", "o", "o"},
    {"lbllatim", "'", "'"},
    {"lbllatis", "\"", "\""},
};

constexpr const char* boxes[] = {"txtname",  "txtlongid", "txtlongim", "txtlongis", "txtlatid", "txtlatim",
                                 "txtlatis", "txtzon",    "txtele",    "txtcity",   "txtpre",   "txttem"};

class LocationTest : public PanelTest {
protected:
    LocationTest() {
        load_series();
        put("loc.vsk", "\"Amman\",35,56,0,31,57,0,1000,2,#TRUE#,#TRUE#,#FALSE#,#FALSE#,0,1010,10\r\n");
        put("loc.txt", "\"Sydney\",33,52,1,151,12,2,0,1,10,39,3,1000,20\r\n"
                       "\"Lima\",12,3,0,77,2,0,0,0,-5,154,0,1010,10\r\n"
                       "\"Athens\",37,59,0,23,44,0,1,1,2,70,0,1010,10\r\n");
    }

    QStringList names(QWidget& form) {
        auto& list = control<QListWidget>(form, "List1");
        QStringList all;
        for (int row = 0; row < list.count(); ++row)
            all << list.item(row)->text();
        return all;
    }
    QString selected(QWidget& form) {
        const QListWidgetItem* entry = control<QListWidget>(form, "List1").currentItem();
        return entry == nullptr ? QString() : entry->text();
    }
    void enter_all(QWidget& form, const QString& name) {
        enter(form, "txtname", name);
        const std::pair<const char*, const char*> values[] = {
            {"txtlongid", "1"}, {"txtlongim", "2"},  {"txtlongis", "3.5"}, {"txtlatid", "4"},
            {"txtlatim", "5"},  {"txtlatis", "6.5"}, {"txtele", "7"},      {"txtzon", "-8"},
            {"txtcity", "9"},   {"txtpre", "900"},   {"txttem", "-11"}};
        for (const auto& [box, value] : values)
            enter(form, box, value);
        click(form, "optw");
        click(form, "opts");
    }
    void expect_question(std::size_t which, const char* title, const char* question) {
        ASSERT_GT(messages.size(), which);
        EXPECT_EQ(messages[which].title, title);
        EXPECT_EQ(messages[which].text, question);
        EXPECT_TRUE(messages[which].exclamation);
        EXPECT_EQ(messages[which].buttons.size(), 2);
    }
    void expect_refused(QWidget& form, const char* box, const char* name, const QString& value) {
        ASSERT_EQ(messages.size(), 1U);
        EXPECT_EQ(messages[0].title, "Value Error");
        EXPECT_TRUE(messages[0].text.startsWith(QString::fromLatin1(name) + ": "))
            << messages[0].text.toStdString();
        EXPECT_TRUE(messages[0].text.contains(value));
        EXPECT_TRUE(messages[0].exclamation);
        EXPECT_EQ(form.focusWidget(), &control(form, box));
        EXPECT_EQ(control<QLineEdit>(form, box).selectedText(), value);
    }
};

TEST_F(LocationTest, EveryCaptionStandsInEnglish) {
    frmlocation form;
    expect_captions(form, captions, Language::english);
}

TEST_F(LocationTest, EveryCaptionStandsInArabicRightToLeft) {
    set_language(Language::arabic);
    frmlocation form;
    expect_captions(form, captions, Language::arabic);
    for (const char* frame : {"franame", "fralongi", "fralatitude", "fraothers", "fraref", "fracity"})
        EXPECT_TRUE(control(form, frame).isRightToLeft()) << frame;
}

TEST_F(LocationTest, TheCurrentLocationIsShown) {
    put("loc.vsk", "\"Home\",1,2,3,4,5,6,7,-8,#FALSE#,#FALSE#,#TRUE#,#TRUE#,9,900,-11\r\n");
    frmlocation form;
    const std::pair<const char*, const char*> wanted[] = {
        {"txtname", "Home"}, {"txtlongid", "1"}, {"txtlongim", "2"}, {"txtlongis", "3"},
        {"txtlatid", "4"},   {"txtlatim", "5"},  {"txtlatis", "6"},  {"txtele", "7"},
        {"txtzon", "-8"},    {"txtcity", "9"},   {"txtpre", "900"},  {"txttem", "-11"}};
    for (const auto& [box, value] : wanted)
        EXPECT_EQ(text(form, box), value) << box;
    EXPECT_TRUE(checked(form, "optw"));
    EXPECT_TRUE(checked(form, "opts"));
    EXPECT_FALSE(checked(form, "opte"));
    EXPECT_FALSE(checked(form, "optn"));
    EXPECT_EQ(selected(form), QString());
}

TEST_F(LocationTest, TheListIsInAlphabeticalOrderWhateverTheFilesOrder) {
    put("loc.txt", "\"b\",1,0,0,1,0,0,1,1,0,0,0,1010,10\r\n\"C\",1,0,0,1,0,0,1,1,0,0,0,1010,10\r\n"
                   "\"A\",1,0,0,1,0,0,1,1,0,0,0,1010,10\r\n\"عمان\",1,0,0,1,0,0,1,1,0,0,0,1010,10\r\n"
                   "\"Évora\",1,0,0,1,0,0,1,1,0,0,0,1010,10\r\n\"Zurich\",1,0,0,1,0,0,1,1,0,0,0,1010,10\r\n");
    frmlocation form;
    EXPECT_EQ(names(form), (QStringList{"A", "b", "C", "Évora", "Zurich", "عمان"}));
}

TEST_F(LocationTest, ACurrentLocationThatIsInTheListShowsTheListsValues) {
    put("loc.vsk", "\"Sydney\",1,1,1,1,1,1,1,1,#FALSE#,#TRUE#,#TRUE#,#FALSE#,0,1010,10\r\n");
    frmlocation form;
    EXPECT_EQ(selected(form), "Sydney");
    EXPECT_EQ(text(form, "txtlongid"), "151");
    EXPECT_EQ(text(form, "txtlatid"), "33");
    EXPECT_TRUE(checked(form, "opte"));
    EXPECT_TRUE(checked(form, "opts"));
}

TEST_F(LocationTest, SelectingAnEntryFillsThePanelAndChangesNoFile) {
    const std::string list = content("loc.txt");
    const std::string current = content("loc.vsk");
    frmlocation form;
    form.show();
    choose(form, "List1", "Sydney");
    const std::pair<const char*, const char*> wanted[] = {
        {"txtname", "Sydney"}, {"txtlatid", "33"},  {"txtlatim", "52"}, {"txtlatis", "1"},
        {"txtlongid", "151"},  {"txtlongim", "12"}, {"txtlongis", "2"}, {"txtzon", "10"},
        {"txtele", "39"},      {"txtcity", "3"},    {"txtpre", "1000"}, {"txttem", "20"}};
    for (const auto& [box, value] : wanted)
        EXPECT_EQ(text(form, box), value) << box;
    EXPECT_TRUE(checked(form, "opts"));
    EXPECT_TRUE(checked(form, "opte"));
    choose(form, "List1", "Lima");
    EXPECT_TRUE(checked(form, "opts"));
    EXPECT_TRUE(checked(form, "optw"));
    choose(form, "List1", "Athens");
    EXPECT_TRUE(checked(form, "optn"));
    EXPECT_TRUE(checked(form, "opte"));
    EXPECT_EQ(content("loc.txt"), list);
    EXPECT_EQ(content("loc.vsk"), current);
}

TEST_F(LocationTest, ClickingTheSelectedEntryAgainBringsItsValuesBack) {
    frmlocation form;
    form.show();
    choose(form, "List1", "Sydney");
    enter(form, "txtele", "5000");
    choose(form, "List1", "Sydney");
    EXPECT_EQ(text(form, "txtele"), "39");
}

TEST_F(LocationTest, NamesThatDifferInCaseAreDifferentLocations) {
    put("loc.txt", "\"lima\",1,0,0,1,0,0,1,1,0,111,0,1010,10\r\n"
                   "\"Lima\",1,0,0,1,0,0,1,1,0,222,0,1010,10\r\n"
                   "\"Lima\",1,0,0,1,0,0,1,1,0,333,0,1010,10\r\n");
    frmlocation form;
    form.show();
    choose(form, "List1", "Lima");
    EXPECT_EQ(text(form, "txtele"), "222"); // the first record of that name
    choose(form, "List1", "lima");
    EXPECT_EQ(text(form, "txtele"), "111");
}

TEST_F(LocationTest, TypingSelectsAnEntry) {
    frmlocation form;
    form.show();
    QTest::keyClicks(&control(form, "List1"), "sy");
    EXPECT_EQ(selected(form), "Sydney");
    EXPECT_EQ(text(form, "txtname"), "Sydney");
}

TEST_F(LocationTest, TheSearchBoxLeavesTheEntriesThatHoldItsText) {
    frmlocation form;
    form.show();
    enter(form, "txtfind", "YD");
    auto& list = control<QListWidget>(form, "List1");
    QStringList shown;
    for (int row = 0; row < list.count(); ++row)
        if (!list.isRowHidden(row))
            shown << list.item(row)->text();
    EXPECT_EQ(shown, QStringList{"Sydney"});
    QTest::keyClick(&control(form, "txtfind"), Qt::Key_Return);
    EXPECT_EQ(selected(form), "Sydney");
    EXPECT_EQ(text(form, "txtname"), "Sydney");
    EXPECT_TRUE(form.isVisible()) << "Enter in the search box is not OK";
    EXPECT_EQ(main_panel_reloads, 0);
}

TEST_F(LocationTest, AddAsksFirstAndNoWritesNothing) {
    const std::string list = content("loc.txt");
    frmlocation form;
    form.show();
    enter(form, "txtname", "New");
    answer({false});
    click(form, "cmdadd");
    ASSERT_EQ(messages.size(), 1U);
    expect_question(0, "Add", "Are you sure you want to add this location?");
    EXPECT_EQ(messages[0].buttons, (QStringList{"Yes", "No"}));
    EXPECT_EQ(content("loc.txt"), list);
}

TEST_F(LocationTest, AddAppendsThePanelAndSelectsIt) {
    const std::string list = content("loc.txt");
    frmlocation form;
    form.show();
    enter_all(form, "New");
    answer({true});
    click(form, "cmdadd");
    EXPECT_EQ(content("loc.txt"), list + "\"New\",4,5,6.5,1,2,3.5,0,0,-8,7,9,900,-11\r\n");
    EXPECT_EQ(names(form), (QStringList{"Athens", "Lima", "New", "Sydney"}));
    EXPECT_EQ(selected(form), "New");
    EXPECT_EQ(content("loc.vsk"),
              "\"Amman\",35,56,0,31,57,0,1000,2,#TRUE#,#TRUE#,#FALSE#,#FALSE#,0,1010,10\r\n");
    EXPECT_EQ(main_panel_reloads, 0);
}

TEST_F(LocationTest, AddStoresTheFlagsOfNorthAndEast) {
    frmlocation form;
    form.show();
    enter(form, "txtname", "New");
    click(form, "optn");
    click(form, "opte");
    answer({true});
    click(form, "cmdadd");
    const std::optional<Location> stored = find_location("New");
    ASSERT_TRUE(stored);
    EXPECT_TRUE(stored->north);
    EXPECT_TRUE(stored->east);
}

TEST_F(LocationTest, ANameThatIsInTheListIsNotAddedAgain) {
    const std::string list = content("loc.txt");
    frmlocation form;
    form.show();
    enter_all(form, "Lima");
    answer({true, true});
    click(form, "cmdadd");
    ASSERT_EQ(messages.size(), 2U);
    expect_warning(messages[1], "Name Error", "You Can Not Have Two Locations of the Same Name!");
    EXPECT_EQ(messages[1].buttons, QStringList{"OK"});
    EXPECT_EQ(content("loc.txt"), list);
}

TEST_F(LocationTest, ANameThatDiffersOnlyInCaseIsAdded) {
    frmlocation form;
    form.show();
    enter_all(form, "LIMA");
    answer({true});
    click(form, "cmdadd");
    EXPECT_EQ(messages.size(), 1U);
    EXPECT_TRUE(find_location("LIMA"));
    EXPECT_TRUE(find_location("Lima"));
    EXPECT_EQ(selected(form), "LIMA");
}

TEST_F(LocationTest, BoxesOfLettersAreStoredAsZero) {
    frmlocation form;
    form.show();
    enter_all(form, "New");
    for (const char* box : {"txtlongid", "txtlatid", "txtzon", "txtele"})
        enter(form, box, "abc");
    answer({true, true});
    click(form, "cmdadd");
    ASSERT_EQ(messages.size(), 2U);
    expect_question(0, "Not a Number", messages[0].text.toUtf8().constData());
    for (const char* name : {"Longitude, degrees", "Latitude, degrees", "Time Zone", "Elevation"})
        EXPECT_TRUE(messages[0].text.contains(QString::fromLatin1(name) + ": \"")) << name;
    EXPECT_TRUE(content("loc.txt").ends_with("\"New\",0,5,6.5,0,2,3.5,0,0,0,0,9,900,-11\r\n"));
    EXPECT_EQ(text(form, "txtele"), "0");
    enter(form, "txtele", "12x");
    answer({true});
    click(form, "cmdok");
    EXPECT_EQ(text(form, "txtele"), "12");
    EXPECT_EQ(read_loc().longitude_degrees, 0);
    EXPECT_EQ(read_loc().elevation, 12);
}

TEST_F(LocationTest, AQuestionAboutALongTextShowsItsEndsOnly) {
    frmlocation form;
    form.show();
    enter(form, "txtele", QStringLiteral("begin") + QString(500, u'x') + QStringLiteral("end"));
    answer({false});
    click(form, "cmdok");
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_LT(messages[0].text.size(), 200);
    EXPECT_TRUE(messages[0].text.contains(QStringLiteral("begin")));
    EXPECT_TRUE(messages[0].text.contains(QStringLiteral("xend")));
}

TEST_F(LocationTest, ADoubleQuoteMarkInANameBecomesAnApostrophe) {
    frmlocation form;
    form.show();
    enter_all(form, "Al \"Quds\", Gate");
    answer({true});
    click(form, "cmdadd");
    EXPECT_EQ(selected(form), "Al 'Quds', Gate");
    EXPECT_EQ(text(form, "txtname"), "Al 'Quds', Gate");
    EXPECT_EQ(read_location_list().size(), 4U);
}

TEST_F(LocationTest, ModifyAsksFirstAndNoWritesNothing) {
    const std::string list = content("loc.txt");
    frmlocation form;
    form.show();
    choose(form, "List1", "Lima");
    enter(form, "txtele", "1");
    answer({false});
    click(form, "cmdmod");
    ASSERT_EQ(messages.size(), 1U);
    expect_question(0, "Modify", "Are you sure you want to modify this location?");
    EXPECT_EQ(content("loc.txt"), list);
}

TEST_F(LocationTest, AModifiedRecordMovesToTheEndOfTheFile) {
    frmlocation form;
    form.show();
    choose(form, "List1", "Lima");
    enter(form, "txtele", "155.5");
    answer({true});
    click(form, "cmdmod");
    EXPECT_EQ(content("loc.txt"), "\"Sydney\",33,52,1,151,12,2,0,1,10,39,3,1000,20\r\n"
                                  "\"Athens\",37,59,0,23,44,0,1,1,2,70,0,1010,10\r\n"
                                  "\"Lima\",12,3,0,77,2,0,0,0,-5,155.5,0,1010,10\r\n");
    EXPECT_EQ(selected(form), "Lima");
    EXPECT_EQ(names(form), (QStringList{"Athens", "Lima", "Sydney"}));
    EXPECT_FALSE(exists("temp.txt"));
    EXPECT_EQ(main_panel_reloads, 0);
}

TEST_F(LocationTest, ModifyingUnderANewNameAppendsAndRemovesNothing) {
    const std::string list = content("loc.txt");
    frmlocation form;
    form.show();
    choose(form, "List1", "Lima");
    enter(form, "txtname", "Callao");
    answer({true});
    click(form, "cmdmod");
    EXPECT_EQ(content("loc.txt"), list + "\"Callao\",12,3,0,77,2,0,0,0,-5,154,0,1010,10\r\n");
    EXPECT_EQ(selected(form), "Callao");
}

TEST_F(LocationTest, DeleteAsksTwiceAndEitherNoWritesNothing) {
    const std::string list = content("loc.txt");
    frmlocation form;
    form.show();
    choose(form, "List1", "Lima");
    answer({false});
    click(form, "cmddel");
    EXPECT_EQ(messages.size(), 1U);
    answer({true, false});
    click(form, "cmddel");
    ASSERT_EQ(messages.size(), 3U);
    expect_question(1, "Delete", "Are you sure you want to delete this location?");
    expect_question(2, "Delete", "Again... You will delete this location!");
    EXPECT_EQ(content("loc.txt"), list);
}

TEST_F(LocationTest, DeleteTakesTheRecordOutAndSelectsTheFirstEntry) {
    frmlocation form;
    form.show();
    choose(form, "List1", "Lima");
    answer({true, true});
    click(form, "cmddel");
    EXPECT_EQ(content("loc.txt"), "\"Sydney\",33,52,1,151,12,2,0,1,10,39,3,1000,20\r\n"
                                  "\"Athens\",37,59,0,23,44,0,1,1,2,70,0,1010,10\r\n");
    EXPECT_EQ(names(form), (QStringList{"Athens", "Sydney"}));
    EXPECT_EQ(selected(form), "Athens");
    EXPECT_EQ(text(form, "txtname"), "Athens");
    EXPECT_EQ(text(form, "txtlatid"), "37");
    EXPECT_FALSE(exists("temp.txt"));
}

TEST_F(LocationTest, DeletingAnUnknownNameLeavesTheListAndSelectsTheFirstEntry) {
    const std::string list = content("loc.txt");
    frmlocation form;
    form.show();
    enter(form, "txtname", "Nowhere");
    answer({true, true});
    click(form, "cmddel");
    EXPECT_EQ(content("loc.txt"), list);
    EXPECT_EQ(selected(form), "Athens");
    EXPECT_EQ(text(form, "txtname"), "Athens");
}

TEST_F(LocationTest, DeletingTheOnlyRecordLeavesAnEmptyListAndThePanelAsItWas) {
    put("loc.txt", "\"Lima\",12,3,0,77,2,0,0,0,-5,154,0,1010,10\r\n");
    frmlocation form;
    form.show();
    choose(form, "List1", "Lima");
    answer({true, true});
    click(form, "cmddel");
    EXPECT_EQ(content("loc.txt"), "");
    EXPECT_EQ(names(form), QStringList());
    EXPECT_EQ(text(form, "txtname"), "Lima");
    EXPECT_EQ(text(form, "txtele"), "154");
}

TEST_F(LocationTest, DeletingTheEntryOfTheCurrentLocationLeavesItInForce) {
    put("loc.vsk", "\"Lima\",77,2,0,12,3,0,154,-5,#FALSE#,#FALSE#,#TRUE#,#TRUE#,0,1010,10\r\n");
    const std::string current = content("loc.vsk");
    frmlocation form;
    form.show();
    answer({true, true});
    click(form, "cmddel");
    EXPECT_FALSE(find_location("Lima"));
    EXPECT_EQ(content("loc.vsk"), current);
}

TEST_F(LocationTest, ALeftoverWorkingCopyIsReplaced) {
    put("temp.txt", "rubbish");
    frmlocation form;
    form.show();
    choose(form, "List1", "Lima");
    answer({true, true});
    click(form, "cmddel");
    EXPECT_FALSE(exists("temp.txt"));
    EXPECT_EQ(read_location_list().size(), 2U);
}

TEST_F(LocationTest, OkStoresThePanelAsTheCurrentLocation) {
    const std::string list = content("loc.txt");
    std::string name_at_reload;
    set_main_panel_reload([&] {
        ++main_panel_reloads;
        name_at_reload = read_loc().name;
    });
    frmlocation form;
    form.show();
    enter_all(form, "Not in the list");
    click(form, "cmdok");
    EXPECT_EQ(content("loc.vsk"), "\"Not in the list\",1,2,3.5,4,5,6.5,7,-8,#FALSE#,#FALSE#,#TRUE#,#TRUE#,"
                                  "9,900,-11\r\n");
    EXPECT_EQ(content("loc.txt"), list);
    EXPECT_EQ(main_panel_reloads, 1);
    EXPECT_EQ(name_at_reload, "Not in the list");
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(messages.empty());
}

TEST_F(LocationTest, NoValueIsCheckedByOk) {
    frmlocation form;
    form.show();
    enter(form, "txtlongid", "999");
    enter(form, "txtlongim", "-61");
    enter(form, "txtzon", "99");
    click(form, "cmdok");
    EXPECT_EQ(read_loc().longitude_degrees, 999);
    EXPECT_EQ(read_loc().longitude_minutes, -61);
    EXPECT_EQ(read_loc().zone, 99);
    EXPECT_TRUE(messages.empty());
}

TEST_F(LocationTest, ANumberBeyondTheRecordsLimitIsToldAndNothingIsStored) {
    const std::string before = content("loc.vsk");
    frmlocation form;
    form.show();
    for (const auto& [box, name] : {std::pair{"txtlongid", "Longitude, degrees"},
                                    {"txtlatis", "Latitude, seconds"},
                                    {"txtzon", "Time Zone"}}) {
        const QString stored = text(form, box);
        enter(form, box, "-99999999");
        messages.clear();
        click(form, "cmdok");
        expect_refused(form, box, name, "-99999999");
        EXPECT_TRUE(messages[0].text.contains("1000000")) << box;
        enter(form, box, stored);
    }
    EXPECT_EQ(content("loc.vsk"), before);
    EXPECT_EQ(main_panel_reloads, 0);
}

TEST_F(LocationTest, ATemperatureWithoutTimesIsToldAndNothingIsStored) {
    const std::string before = content("loc.vsk");
    frmlocation form;
    form.show();
    enter(form, "txttem", "-273");
    click(form, "cmdok");
    expect_refused(form, "txttem", "Temperature (c)", "-273");
    EXPECT_EQ(content("loc.vsk"), before);
    EXPECT_EQ(main_panel_reloads, 0);
    EXPECT_TRUE(form.isVisible());
    enter(form, "txttem", "-272");
    click(form, "cmdok");
    EXPECT_EQ(messages.size(), 1U);
    EXPECT_EQ(read_loc().temperature, -272);
}

TEST_F(LocationTest, ARecordThatCanNeverBeUsedIsNotAddedOrModified) {
    const std::string before = content("loc.txt");
    frmlocation form;
    form.show();
    choose(form, "List1", "Lima");
    enter(form, "txttem", "-273");
    for (const char* button : {"cmdadd", "cmdmod"}) {
        messages.clear();
        answer({true, true});
        click(form, button);
        expect_refused(form, "txttem", "Temperature (c)", "-273");
    }
    EXPECT_EQ(content("loc.txt"), before);
}

TEST_F(LocationTest, ARefusedValueIsToldInArabic) {
    set_language(Language::arabic);
    frmlocation form;
    form.show();
    enter(form, "txttem", "-273");
    click(form, "cmdok");
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].title, "خطأ");
    EXPECT_TRUE(messages[0].text.startsWith("الحرارة م: "));
    EXPECT_TRUE(messages[0].text.contains("-273"));
    EXPECT_TRUE(messages[0].text.contains("لم يحفظ شيء"));
    EXPECT_EQ(messages[0].direction, Qt::RightToLeft);
}

TEST_F(LocationTest, LettersThatAreNotMeantAreNotStored) {
    const std::string before = content("loc.vsk");
    frmlocation form;
    form.show();
    enter(form, "txtele", "abc");
    answer({false});
    click(form, "cmdok");
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_TRUE(messages[0].text.contains("Elevation: "));
    EXPECT_TRUE(messages[0].text.contains("abc"));
    EXPECT_EQ(content("loc.vsk"), before);
    EXPECT_EQ(form.focusWidget(), &control(form, "txtele"));
    EXPECT_EQ(control<QLineEdit>(form, "txtele").selectedText(), "abc");
    EXPECT_TRUE(form.isVisible());
}

TEST_F(LocationTest, ArabicDigitsAreStoredAsTheNumberThatTheyAre) {
    frmlocation form;
    form.show();
    enter(form, "txtlongid", "٣٥");
    enter(form, "txtlatid", "۳۱");
    enter(form, "txtele", "٩٠٠٫٥");
    enter(form, "txtzon", "-٣,٥");
    click(form, "cmdok");
    EXPECT_TRUE(messages.empty());
    EXPECT_EQ(read_loc().longitude_degrees, 35);
    EXPECT_EQ(read_loc().latitude_degrees, 31);
    EXPECT_EQ(read_loc().elevation, 900.5);
    EXPECT_EQ(read_loc().zone, -3.5);
}

TEST_F(LocationTest, TheFocusPicksNoEntryOfTheList) {
    put("loc.vsk", "\"Home\",1,2,3,4,5,6,7,-8,#FALSE#,#FALSE#,#TRUE#,#TRUE#,9,900,-11\r\n");
    const std::string before = content("loc.vsk");
    frmlocation form;
    form.show();
    form.activateWindow();
    QCoreApplication::processEvents();
    control(form, "txtfind").setFocus(Qt::TabFocusReason);
    QTest::keyClick(&control(form, "txtfind"), Qt::Key_Tab);
    ASSERT_TRUE(control(form, "List1").hasFocus());
    EXPECT_EQ(text(form, "txtname"), "Home");
    QTest::keyClick(&control(form, "List1"), Qt::Key_Tab);
    EXPECT_EQ(text(form, "txtname"), "Home");
    click(form, "cmdok");
    EXPECT_EQ(content("loc.vsk"), before);
}

TEST_F(LocationTest, EnterAndSpacePickTheEntryThatHasTheFocus) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        frmlocation form;
        form.show();
        form.activateWindow();
        QCoreApplication::processEvents();
        control(form, "List1").setFocus(Qt::TabFocusReason);
        ASSERT_TRUE(control(form, "List1").hasFocus());
        EXPECT_EQ(text(form, "txtname"), "Amman");
        QTest::keyClick(&control(form, "List1"), key);
        EXPECT_EQ(text(form, "txtname"), "Athens");
        EXPECT_TRUE(form.isVisible()) << "Enter in the list is not OK";
    }
    EXPECT_EQ(main_panel_reloads, 0);
}

TEST_F(LocationTest, ALocationOutsideTheListStandsAfterEveryStepOfTheTabKey) {
    put("loc.vsk", "\"Home\",1,2,3,4,5,6,7,-8,#FALSE#,#FALSE#,#TRUE#,#TRUE#,9,900,-11\r\n");
    frmlocation form;
    form.show();
    form.activateWindow();
    QCoreApplication::processEvents();
    for (int step = 0; step < 60; ++step) {
        QTest::keyClick(form.focusWidget() == nullptr ? &form : form.focusWidget(), Qt::Key_Tab);
        ASSERT_EQ(text(form, "txtname"), "Home");
    }
}

TEST_F(LocationTest, NegativeDegreesToTheWestAreEast) {
    frmlocation form;
    form.show();
    enter(form, "txtlongid", "-35");
    enter(form, "txtlongim", "0");
    enter(form, "txtlongis", "0");
    click(form, "optw");
    click(form, "cmdok");
    EXPECT_EQ(longitude_of(read_loc()), 35);
}

TEST_F(LocationTest, CancelKeepsTheCurrentLocationAndTheChangesOfTheList) {
    const std::string current = content("loc.vsk");
    frmlocation form;
    form.show();
    enter_all(form, "New");
    answer({true});
    click(form, "cmdadd");
    click(form, "cmdcancel");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(content("loc.vsk"), current);
    EXPECT_TRUE(find_location("New"));
    EXPECT_EQ(main_panel_reloads, 0);
}

TEST_F(LocationTest, TheMessagesAreToldInArabic) {
    set_language(Language::arabic);
    frmlocation form;
    form.show();
    choose(form, "List1", "Lima");
    answer({true});
    click(form, "cmdadd");
    click(form, "cmdmod");
    answer({true, false});
    click(form, "cmddel");
    const std::pair<const char*, const char*> wanted[] = {{"إضافة", "هل أنت متأكد من إضافة هذا الموقع ؟"},
                                                          {"خطأ", "لا يمكن إضافة موقعين بنفس الاسم"},
                                                          {"تعديل", "هل أنت متأكد من هذا التعديل ؟"},
                                                          {"حذف", "هل أنت متأكد من حذف هذا الموقع؟"},
                                                          {"حذف", "مرة أخرى... سيتم حذف هذا الموقع نهائيا"}};
    ASSERT_EQ(messages.size(), std::size(wanted));
    for (std::size_t i = 0; i < std::size(wanted); ++i) {
        EXPECT_EQ(messages[i].title, wanted[i].first);
        EXPECT_EQ(messages[i].text, wanted[i].second);
        EXPECT_EQ(messages[i].direction, Qt::RightToLeft);
    }
}

TEST_F(LocationTest, AMissingListLeavesItEmpty) {
    remove("loc.txt");
    frmlocation form;
    EXPECT_EQ(names(form), QStringList());
    EXPECT_EQ(text(form, "txtname"), "Amman");
    EXPECT_TRUE(messages.empty());
}

TEST_F(LocationTest, ADamagedListShowsTheRecordsBeforeTheDamage) {
    put("loc.txt", "\"Lima\",12,3,0,77,2,0,0,0,-5,154,0,1010,10\r\n\"Oslo\",59,x\r\n");
    frmlocation form;
    form.show();
    EXPECT_EQ(names(form), QStringList{"Lima"});
    choose(form, "List1", "Lima");
    EXPECT_EQ(text(form, "txtele"), "154");
}

TEST_F(LocationTest, ChangingADamagedListIsARunTimeFailureThatWritesNothing) {
    put("loc.txt", "\"Lima\",12,3,0,77,2,0,0,0,-5,154,0,1010,10\r\n\"Oslo\",59,x\r\n");
    const std::string list = content("loc.txt");
    frmlocation form;
    answer({true, true, true, true});
    EXPECT_THROW(form.cmdadd_click(), RunTimeFailure);
    EXPECT_THROW(form.cmdmod_click(), RunTimeFailure);
    EXPECT_THROW(form.cmddel_click(), RunTimeFailure);
    EXPECT_EQ(content("loc.txt"), list);
}

TEST_F(LocationTest, AMissingCurrentLocationLeavesThePanelBlank) {
    remove("loc.vsk");
    frmlocation form;
    EXPECT_EQ(text(form, "txtname"), "");
    EXPECT_EQ(text(form, "txtpre"), "0");
    EXPECT_EQ(names(form).size(), 3);
    EXPECT_EQ(selected(form), QString());
}

TEST_F(LocationTest, AMissingPreferencesRecordIsARunTimeFailure) {
    remove("pref.vsk");
    EXPECT_THROW(frmlocation form, RunTimeFailure);
}

TEST_F(LocationTest, TwentyThousandLocationsOpenSearchAndSelectWithoutDelay) {
    constexpr int count = 20000;
    constexpr qint64 longest = 1000; // [ms], on a machine under load
    std::string list;
    for (int i = 0; i < count; ++i)
        list += "\"Place " + std::to_string(count - i) + "\",1,0,0,1,0,0,1,1,0," + std::to_string(i) +
                ",0,1010,10\r\n";
    put("loc.txt", list);
    QElapsedTimer time;
    time.start();
    frmlocation form;
    form.show();
    EXPECT_LT(time.restart(), longest);
    choose(form, "List1", "Place 1");
    EXPECT_EQ(text(form, "txtele"), QString::number(count - 1));
    EXPECT_LT(time.restart(), longest);
    QTest::keyClicks(&control(form, "List1"), "Place 19999");
    EXPECT_EQ(text(form, "txtname"), "Place 19999");
    enter(form, "txtfind", "777");
    EXPECT_LT(time.elapsed(), 2 * longest);
}

TEST_F(LocationTest, FocusSelectsTheWholeTextOfEveryBox) {
    frmlocation form;
    form.show();
    for (const char* name : boxes)
        expect_focus_selects_text(form, name);
}

TEST_F(LocationTest, TabVisitsTheControlsInReadingOrder) {
    frmlocation form;
    EXPECT_EQ(tab_order(form).join(u' '),
              "txtname txtfind List1 txtlongid txtlongim txtlongis opte optw txtlatid txtlatim txtlatis optn "
              "opts txtzon txtele txttem txtpre txtcity cmdadd cmdmod cmddel cmdok cmdcancel");
}

TEST_F(LocationTest, EveryControlIsReachedAndNamed) {
    in_both_languages<frmlocation>([](QWidget& form, Language) {
        expect_usable(form);
        EXPECT_TRUE(control<QPushButton>(form, "cmdok").isDefault());
    });
}

} // namespace
} // namespace halvane
