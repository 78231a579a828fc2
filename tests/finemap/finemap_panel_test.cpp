// SPDX-License-Identifier: MIT
#include "finemap/finemaprules.h"
#include "finemap/finemapview.h"
#include "finemap/frmfinemap.h"
#include "finemap/mappicturefiles.h"
#include "panel/messages.h"
#include "routines/seriesloader.h"
#include "tests/panel/panelchecks.h"
#include "tests/support/bytes.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QWheelEvent>
#include <cmath>

namespace halvane {
namespace {

// The clock of the tests shows 21 June 2024, the place is Amman two hours ahead of Universal Time.

constexpr double near_ramadan_1447 = 2461089; // 2026 February 17, noon
constexpr int patience = 60000;               // [ms]

class FineMapPanelTest : public PanelTest {
protected:
    FineMapPanelTest() {
        load_series();
        set_file_chooser([this](const QString& /*title*/, const QString& proposed) {
            proposed_name = proposed;
            return chosen_file;
        });
    }
    ~FineMapPanelTest() override { set_file_chooser({}); }

    static double conjunction() {
        Ephemeris ephemeris(loaded_theory());
        return geocentric_conjunction(ephemeris, near_ramadan_1447);
    }
    static void settle(const frmfinemap& form) {
        ASSERT_TRUE(QTest::qWaitFor([&form] { return form.is_settled(); }, patience));
    }
    /// The second evening of Ramadan 1447 at 1 degree, settled.
    static void show_ramadan(frmfinemap& form, const char* criterion = "vesk") {
        control<QComboBox>(form, "cbostep").setCurrentIndex(0);
        form.choose(CrescentKind::new_crescent, conjunction(), 1, criterion);
        form.show();
        settle(form);
    }
    static FineMapView& view(frmfinemap& form) { return control<FineMapView>(form, "view"); }
    static QString words(QWidget& form, const char* label) {
        const auto& found = control<QLabel>(form, label);
        return found.isHidden() ? QString() : found.text();
    }
    static QString numbers(QWidget& form) {
        return control<QPlainTextEdit>(form, "txtnumbers").toPlainText();
    }
    static QPointF point_of(const FineMapView& view, const MapPosition& place) {
        const MapFrame frame = view.frame();
        return {frame.x(place.longitude), frame.y(place.latitude)};
    }
    static void turn_wheel(FineMapView& view, const QPointF& at, int notches) {
        QWheelEvent event(at, view.mapToGlobal(at), {}, {0, 120 * notches}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&view, &event);
    }
    std::string saved_as(frmfinemap& form, const std::string& name) {
        chosen_file = QString::fromStdString(path(name));
        click(form, "cmdsave");
        return exists(name) ? bytes_of(path(name)) : std::string();
    }

    QString proposed_name;
    QString chosen_file;
};

TEST_F(FineMapPanelTest, SpeaksBothLanguages) {
    in_both_languages<frmfinemap>([](frmfinemap& form, Language language) {
        expect_captions(form, frmfinemap_twins(), language);
        expect_captions(form, LimitBoxes::twins(), language);
        show_ramadan(form);
        EXPECT_EQ(words(form, "lblstate"), language == Language::english
                                               ? QStringLiteral("Evening of Wednesday, 18 February 2026")
                                               : QStringLiteral("مساء الأربعاء، 18 شباط 2026"));
    });
}

TEST_F(FineMapPanelTest, IsUsedByTheKeyboardAlone) {
    in_both_languages<frmfinemap>([](frmfinemap& form, Language) {
        show_ramadan(form);
        expect_usable(form);
    });
}

TEST_F(FineMapPanelTest, ShowsTheMapOfWhatIsChosen) {
    frmfinemap form;
    show_ramadan(form);
    ASSERT_NE(form.map(), nullptr);
    EXPECT_EQ(form.map()->settings.day, 2461089.5);
    EXPECT_STREQ(form.map()->settings.criterion->key, "vesk");
    choose(form, "cbocriterion", "MABIMS 2021");
    settle(form);
    EXPECT_STREQ(form.map()->settings.criterion->key, "mabims-2021");
    click(form, "opt2");
    settle(form);
    EXPECT_EQ(form.map()->settings.day, 2461090.5);
    choose(form, "cbostep", "0.5°");
    settle(form);
    EXPECT_EQ(form.map()->settings.step, 0.5);
}

TEST_F(FineMapPanelTest, GoesFromMonthToMonth) {
    frmfinemap form;
    show_ramadan(form);
    click(form, "cmdafter");
    settle(form);
    // The New Moons of 2026: 17 February 12:01, 19 March 01:23 (Astronomical Almanac).
    EXPECT_TRUE(words(form, "lblconjunction").contains("19 March 2026, 01:23"))
        << words(form, "lblconjunction").toStdString();
    click(form, "cmdbefore");
    click(form, "cmdbefore");
    settle(form);
    EXPECT_TRUE(words(form, "lblconjunction").contains("18 January 2026, 19:52"));
}

TEST_F(FineMapPanelTest, OldCrescentsHaveTheirCriteriaAlone) {
    frmfinemap form;
    show_ramadan(form, "mabims-2021");
    const QStringList of_new = entries(form, "cbocriterion");
    EXPECT_TRUE(of_new.contains("MABIMS 2021"));
    EXPECT_FALSE(of_new.contains("Umm al-Qura"));
    click(form, "optold");
    settle(form);
    EXPECT_FALSE(entries(form, "cbocriterion").contains("MABIMS 2021"));
    EXPECT_EQ(form.map()->settings.kind, CrescentKind::old_crescent);
    EXPECT_EQ(form.map()->settings.day, 2461087.5);
}

TEST_F(FineMapPanelTest, TellsAWrongLimitWhereItIsTyped) {
    frmfinemap form;
    show_ramadan(form, "user");
    for (const char* wrong : {"x", "1e999", "nan"}) {
        enter(form, "txtlag", wrong);
        settle(form);
        EXPECT_EQ(words(form, "lbllimitwrong"), "A limit is a number, or nothing.") << wrong;
        EXPECT_EQ(form.map(), nullptr);
        EXPECT_EQ(view(form).map(), nullptr);
    }
    enter(form, "txtlag", "40");
    settle(form);
    EXPECT_EQ(words(form, "lbllimitwrong"), "");
    ASSERT_NE(form.map(), nullptr);
    EXPECT_EQ(form.map()->settings.limits.user.lag, 40);
    for (const char* box : {"txtlag", "txtaltitude", "txtelongation", "txtage"})
        control<QLineEdit>(form, box).clear();
    settle(form);
    EXPECT_EQ(words(form, "lbllimitwrong"), "One limit at least is needed.");
}

TEST_F(FineMapPanelTest, TheWheelEnlargesAboutTheMouse) {
    frmfinemap form;
    show_ramadan(form);
    FineMapView& map = view(form);
    const QPointF at(map.width() * 0.6, map.height() * 0.5);
    const MapPosition before = map.place_at(at).value();
    const double width = map.frame().window.east - map.frame().window.west;
    turn_wheel(map, at, 4);
    const MapPosition after = map.place_at(at).value();
    EXPECT_NEAR(after.longitude, before.longitude, 1e-6);
    EXPECT_NEAR(after.latitude, before.latitude, 1e-6);
    EXPECT_LT(map.frame().window.east - map.frame().window.west, width / 2);
    turn_wheel(map, at, -20);
    EXPECT_EQ(map.frame().window, MapWindow{});
    click(form, "cmdlarger");
    EXPECT_NE(map.frame().window, MapWindow{});
    click(form, "cmdwhole");
    EXPECT_EQ(map.frame().window, MapWindow{});
}

TEST_F(FineMapPanelTest, KeysEnlargeAndMoveTheMap) {
    frmfinemap form;
    show_ramadan(form);
    FineMapView& map = view(form);
    for (int i = 0; i < 8; ++i)
        QTest::keyClick(&map, Qt::Key_Plus);
    const MapWindow middle = map.frame().window;
    EXPECT_NEAR((middle.west + middle.east) / 2, 0, 1e-9);
    QTest::keyClick(&map, Qt::Key_Right);
    EXPECT_GT(map.frame().window.west, middle.west);
    QTest::keyClick(&map, Qt::Key_Up);
    EXPECT_GT(map.frame().window.north, middle.north);
    EXPECT_FALSE(words(form, "lblplace").isEmpty());
    QTest::keyClick(&map, Qt::Key_Space);
    EXPECT_FALSE(numbers(form).isEmpty());
    QTest::keyClick(&map, Qt::Key_Home);
    EXPECT_EQ(map.frame().window, MapWindow{});
}

TEST_F(FineMapPanelTest, TellsThePlaceUnderTheMouse) {
    frmfinemap form;
    show_ramadan(form);
    FineMapView& map = view(form);
    // Makkah on 18 February 2026 by the Swiss Ephemeris: lag 60.4 min, geocentric conjunction 12:01 UT.
    QTest::mouseMove(&map, point_of(map, {39.83, 21.42}).toPoint());
    QTRY_VERIFY(!words(form, "lblplace").isEmpty());
    EXPECT_TRUE(words(form, "lblplace").contains("lag ")) << words(form, "lblplace").toStdString();
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&map, &leave);
    EXPECT_TRUE(words(form, "lblplace").isEmpty());
}

TEST_F(FineMapPanelTest, AClickGivesTheNumbersOfAPlace) {
    frmfinemap form;
    show_ramadan(form);
    FineMapView& map = view(form);
    EXPECT_FALSE(enabled(form, "cmdmine"));
    QTest::mouseClick(&map, Qt::LeftButton, {}, point_of(map, {39.83, 21.42}).toPoint());
    EXPECT_EQ(control<QTabWidget>(form, "tabpages").currentIndex(), 1);
    EXPECT_TRUE(numbers(form).startsWith("Evening of Wednesday 18 February 2026, 21."))
        << numbers(form).toStdString();
    EXPECT_TRUE(numbers(form).contains("Yallop as published: "));
    EXPECT_TRUE(enabled(form, "cmdmine"));
    // A drag picks nothing.
    const QString before = numbers(form);
    turn_wheel(map, map.rect().center(), 6);
    QTest::mousePress(&map, Qt::LeftButton, {}, {100, 100});
    QTest::mouseMove(&map, {160, 130});
    QTest::mouseRelease(&map, Qt::LeftButton, {}, {160, 130});
    EXPECT_EQ(numbers(form), before);
}

TEST_F(FineMapPanelTest, AsksBeforeAPlaceBecomesTheUsers) {
    frmfinemap form;
    show_ramadan(form);
    QSignalSpy wanted(&form, &frmfinemap::place_wanted);
    FineMapView& map = view(form);
    QTest::mouseClick(&map, Qt::LeftButton, {}, point_of(map, {-58.4, -34.6}).toPoint());
    answer({false});
    click(form, "cmdmine");
    EXPECT_EQ(wanted.count(), 0);
    answer({true});
    click(form, "cmdmine");
    ASSERT_EQ(wanted.count(), 1);
    const auto location = wanted.front().front().value<Location>();
    EXPECT_NEAR(longitude_of(location), -58.4, 0.5);
    EXPECT_NEAR(latitude_of(location), -34.6, 0.5);
    EXPECT_EQ(location.zone, -4);
    EXPECT_TRUE(location.west);
    EXPECT_TRUE(location.south);
}

TEST_F(FineMapPanelTest, MarksPlacesOfTheList) {
    frmfinemap form;
    show_ramadan(form);
    control<QComboBox>(form, "cboplace").setEditText("Nowhere at all");
    click(form, "cmdmark");
    EXPECT_EQ(words(form, "lblstate"), "There is no such place in the list.");
    control<QComboBox>(form, "cboplace").setCurrentIndex(3);
    click(form, "cmdmark");
    EXPECT_TRUE(words(form, "lblmarks").contains(chosen(form, "cboplace")));
    click(form, "cmdunmark");
    EXPECT_EQ(words(form, "lblmarks"), "");
}

TEST_F(FineMapPanelTest, SavesEachKind) {
    frmfinemap form;
    show_ramadan(form);
    click(form, "chklag");
    MapDocument document;
    const FineMap map = *form.map();
    EXPECT_EQ(saved_as(form, "map.csv"), csv_of({&map, 1}));
    EXPECT_EQ(proposed_name, "Ramadan 1447.png");
    EXPECT_EQ(saved_as(form, "map.geojson"), geojson_of({&map, 1}, Language::english));
    EXPECT_TRUE(saved_as(form, "map.png").starts_with("\x89PNG"));
    EXPECT_NE(saved_as(form, "map.svg").find("<svg"), std::string::npos);
    EXPECT_TRUE(saved_as(form, "map.pdf").starts_with("%PDF"));
    EXPECT_EQ(words(form, "lblstate"), "Saved: \u2068map.pdf\u2069");
}

TEST_F(FineMapPanelTest, ASketchComesFirst) {
    frmfinemap form;
    control<QComboBox>(form, "cbostep").setCurrentIndex(2);
    form.choose(CrescentKind::new_crescent, conjunction(), 1, "vesk");
    form.show();
    FineMapView& map = view(form);
    ASSERT_TRUE(QTest::qWaitFor([&map] { return map.map() != nullptr; }, patience));
    settle(form);
    EXPECT_EQ(map.map()->settings.step, 0.25);
    EXPECT_EQ(form.map(), map.map());
}

TEST_F(FineMapPanelTest, StopsAtAnyMoment) {
    frmfinemap form;
    form.show();
    control<QComboBox>(form, "cbostep").setCurrentIndex(2);
    for (int moment = 0; moment < 10; ++moment) {
        form.choose(CrescentKind::new_crescent, conjunction(), moment % 3, "yallop-1997");
        QTest::qWait(17 * moment);
        click(form, "cmdstop");
        EXPECT_TRUE(form.is_settled());
        EXPECT_FALSE(enabled(form, "cmdstop"));
        const FineMap* shown = view(form).map();
        if (shown == nullptr)
            EXPECT_EQ(words(form, "lblstate"), "Stopped. Nothing is shown.");
        else
            EXPECT_EQ(shown->settings.day, std::floor(conjunction() - 0.5) + 0.5 + moment % 3);
    }
    form.choose(CrescentKind::new_crescent, conjunction(), 1, "yallop-1997");
    settle(form);
    EXPECT_NE(form.map(), nullptr);
}

TEST_F(FineMapPanelTest, IsClosedWhileAMapIsMade) {
    for (int moment = 0; moment < 6; ++moment) {
        auto form = std::make_unique<frmfinemap>();
        form->show();
        control<QComboBox>(*form, "cbostep").setCurrentIndex(2);
        form->choose(CrescentKind::new_crescent, conjunction(), 1, "danjon");
        QTest::qWait(25 * moment);
        if (moment % 2 == 0)
            form->close();
        form.reset();
        QTest::qWait(5);
    }
}

// --- Its rules ---

TEST_F(FineMapPanelTest, ReadsLimits) {
    EXPECT_FALSE(typed_limit("").value);
    EXPECT_FALSE(typed_limit("  ").is_wrong);
    EXPECT_EQ(typed_limit(" -2.5 ").value, -2.5);
    for (const char* wrong : {"5,5", "x", "1 2", "inf", "nan", "1e4", "0x10"})
        EXPECT_TRUE(typed_limit(wrong).is_wrong) << wrong;
}

TEST_F(FineMapPanelTest, PlacesAreTold) {
    EXPECT_EQ(place_text({35.93, 31.95}), "31.95° N  35.93° E");
    EXPECT_EQ(place_text({190, -17.25}), "17.25° S  170.00° W");
}

TEST_F(FineMapPanelTest, TheYearsOfTheTheoriesEnd) {
    Ephemeris ephemeris(loaded_theory());
    EXPECT_TRUE(conjunction_after(ephemeris, near_ramadan_1447, 1));
    constexpr double in_9999 = 5373450;
    EXPECT_FALSE(conjunction_after(ephemeris, in_9999, 1));
}

TEST_F(FineMapPanelTest, StepsToTheNextConjunctionInFarYears) {
    Ephemeris ephemeris(loaded_theory());
    constexpr double in_9000 = 5008600;
    constexpr double in_3000_bc = 625700;
    for (const double day : {in_9000, in_3000_bc}) {
        const double conjunction = geocentric_conjunction(ephemeris, day);
        for (const int months : {1, -1}) {
            const double moved = conjunction_after(ephemeris, conjunction, months).value() - conjunction;
            EXPECT_GT(moved * months, 29.2) << day;
            EXPECT_LT(moved * months, 29.9) << day;
        }
    }
}

} // namespace
} // namespace halvane
