// SPDX-License-Identifier: MIT
#include "qibla/frmqib.h"

#include "base/failure.h"
#include "calendar/moddeltat.h"
#include "desktop/panels.h"
#include "ephemeris/series.h"
#include "panel/frmwait.h"
#include "panel/panelstyle.h"
#include "panel/panelsupport.h"
#include "panel/picturebox.h"
#include "qibla/dialgeometry.h"
#include "qibla/direction.h"
#include "qibla/frmqmap.h"
#include "qibla/qiblahdial.h"
#include "routines/seriesloader.h"
#include "routines/tdtinput.h"
#include "stored/loc.h"
#include "tests/panel/panelchecks.h"
#include "tests/support/places.h"

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QPointer>
#include <QRadioButton>
#include <QTimer>
#include <algorithm>
#include <cmath>
#include <filesystem>

namespace halvane {
namespace {

// The panels' texts, written out once more.
constexpr ControlText captions[] = {
    {"frmqib", "Qiblah Direction", "اتجاه القبلة"},
    {"lblhead", "Qiblah Direction", "اتجاه القبلة"},
    {"lblqibtim", "Qiblah Times", "مواعيد القبلة"},
    {"lblang", "160.8° From True North", "160.8° من الشمال الحقيقي"},
    {"lblloc", "Amman", "Amman"},
    {"lbln", "N", "شمال"},
    {"lbls", "S", "جنوب"},
    {"lble", "E", "شرق"},
    {"lblw", "W", "غرب"},
    {"optsun", "Find the time when the Sun is at Qiblah direction",
     "جد الوقت عندما تكون الشمس باتجاة القبلة"},
    {"optsha", "Find the time when the Sun's shadow  is at Qiblah direction",
     "جد الوقت عندما يكون ظل الشمس باتجاة القبلة"},
    {"cmdqib", "&Find Qiblah Times", "&احسب مواعيد القبلة"},
    {"cmdshowqmap", "Show &Qiblah  Map", "&عرض خارطة القبلة"},
    {"cmdclose", "Clo&se", "إ&غلاق"},
};

constexpr ControlText map_captions[] = {
    {"frmqmap", "Halvane: Qiblah World Map", "Halvane: خارطة العالم للقبلة"},
    {"lblqmap",
     "Red numbers at the top and the bottom are the Qiblah direction from the True North for each color band",
     "الأرقام الحمراء الموجودة أعلى و أدنى الخارطة تشير إلى سمت القبلة عن الشمال الجغرافي لكل حزمة لونية"},
    {"cmdclose", "&Close", "إغلاق"},
};

class QiblahPanelTest : public PanelTest {
protected:
    QiblahPanelTest() {
        load_term();
        load_mterm();
        set_period({2024, 6, 1}, {2024, 6, 30});
    }

    static void move_to(const char* name, double longitude, double latitude) {
        write_loc(place_at(longitude, latitude, read_loc().zone, name));
    }

    void lay_out_map() const {
        std::filesystem::copy(std::filesystem::path(HALVANE_DATA) / "qmap.gif", path("qmap.gif"));
    }

    QStringList report() const {
        return QString::fromStdString(content("results.out")).split(QStringLiteral("\r\n"));
    }
};

class QiblahCaption : public QiblahPanelTest, public ::testing::WithParamInterface<ControlText> {};

TEST_P(QiblahCaption, IsThatOfTheLanguage) {
    in_both_languages<frmqib>(
        [](QWidget& form, Language language) { expect_caption(form, GetParam(), language); });
}

INSTANTIATE_TEST_SUITE_P(Every, QiblahCaption, ::testing::ValuesIn(captions), caption_name);

class QiblahMapCaption : public QiblahPanelTest, public ::testing::WithParamInterface<ControlText> {};

TEST_P(QiblahMapCaption, IsThatOfTheLanguage) {
    in_both_languages<frmqmap>(
        [](QWidget& form, Language language) { expect_caption(form, GetParam(), language); });
}

INSTANTIATE_TEST_SUITE_P(Every, QiblahMapCaption, ::testing::ValuesIn(map_captions), caption_name);

TEST_F(QiblahPanelTest, AStoredYearBeyondTheTheoriesIsToldBeforeTheRun) {
    set_period({200000, 6, 1}, {200000, 6, 30});
    frmqib form;
    form.show();
    click(form, "cmdqib");
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].title, QStringLiteral("Year Error"));
    EXPECT_TRUE(messages[0].text.contains(QStringLiteral("200000")));
    EXPECT_FALSE(exists("results.out"));
}

TEST_F(QiblahPanelTest, ADirectionWithoutDecimalsHasNone) {
    move_to("London", -0.125, 51.5);
    frmqib form;
    EXPECT_EQ(caption(form, "lblang"), QStringLiteral("119° From True North"));
    EXPECT_EQ(caption(form, "lblloc"), QStringLiteral("London"));
}

TEST_F(QiblahPanelTest, ANameWithAnAmpersandIsShownAsItIs) {
    move_to("Bosnia & Herzegovina", 18, 44);
    frmqib form;
    EXPECT_EQ(control<QLabel>(form, "lblloc").text(), QStringLiteral("Bosnia & Herzegovina"));
}

TEST_F(QiblahPanelTest, AtTheKaabaThereIsNoPanel) {
    move_to("Kaaba", kaaba_longitude, kaaba_latitude);
    EXPECT_THROW(frmqib form, RunTimeFailure);
}

TEST_F(QiblahPanelTest, TheLineStandsUprightInTheDesign) {
    const DialLine line;
    EXPECT_EQ(line.x1(), 3015);
    EXPECT_EQ(line.y1(), 3000);
    EXPECT_EQ(line.x2(), 3015);
    EXPECT_EQ(line.y2(), 2040);
}

TEST_F(QiblahPanelTest, TheLineEndsWhereTheDirectionPoints) {
    frmqib form;
    const auto& line = control<DialLine>(form, "lin1");
    EXPECT_EQ(line.x1(), 3015);
    EXPECT_EQ(line.y1(), 3000);
    // sin 160.8 = 0.328867, cos 160.8 = -0.944376
    EXPECT_NEAR(line.x2(), 3015 + 960 * 0.328867, 0.001);
    EXPECT_NEAR(line.y2(), 3000 + 960 * 0.944376, 0.001);
}

TEST(DialGeometry, PointsAsACompassWithNorthUp) {
    const DialPoint east = dial_line_end(90);
    EXPECT_NEAR(east.x, 3975, 1e-9);
    EXPECT_NEAR(east.y, 3000, 1e-9);
    const DialPoint south = dial_line_end(180);
    EXPECT_NEAR(south.x, 3015, 1e-9);
    EXPECT_NEAR(south.y, 3960, 1e-9);
    const DialPoint west = dial_line_end(270);
    EXPECT_NEAR(west.x, 2055, 1e-9);
    EXPECT_NEAR(west.y, 3000, 1e-9);
    EXPECT_EQ(dial_line_end(0).y, 2040);
}

class QiblahBothLanguages : public QiblahPanelTest, public ::testing::WithParamInterface<Language> {
protected:
    QiblahBothLanguages() { set_language(GetParam()); }
};

TEST_P(QiblahBothLanguages, EveryControlIsNamedReachedAndWhole) {
    frmqib form;
    expect_usable(form);
    expect_captions(form, frmqib_twins(), GetParam());
}

TEST_P(QiblahBothLanguages, EveryControlOfTheMapIsNamedReachedAndWhole) {
    lay_out_map();
    frmqmap form;
    expect_usable(form);
    expect_captions(form, frmqmap_twins(), GetParam());
}

TEST_P(QiblahBothLanguages, TheDialIsNotMirrored) {
    frmqib form;
    form.show();
    const auto place = [&form](const char* name) { return control(form, name).geometry().center(); };
    const QPoint centre = place("Shape1");
    EXPECT_GT(place("lble").x(), centre.x());
    EXPECT_LT(place("lblw").x(), centre.x());
    EXPECT_LT(place("lbln").y(), centre.y());
    EXPECT_GT(place("lbls").y(), centre.y());
    EXPECT_EQ(control(form, "Shape1").geometry(), control(form, "lin1").geometry());
}

TEST_P(QiblahBothLanguages, TheLettersStandOutsideTheCircleAndInsideTheDial) {
    frmqib form;
    form.show();
    for (const QSize size : {form.minimumSizeHint(), form.sizeHint(), QSize(1400, 900), QSize(900, 1100)}) {
        form.resize(size);
        QApplication::processEvents();
        const QRect circle = control(form, "Shape1").geometry();
        EXPECT_EQ(circle.width(), circle.height());
        EXPECT_GT(circle.width(), 0);
        for (const char* name : {"lbln", "lbls", "lble", "lblw"}) {
            const QRect letter = control(form, name).geometry();
            EXPECT_FALSE(letter.intersects(circle)) << name;
            EXPECT_TRUE(control(form, "dial").rect().contains(letter)) << name;
        }
    }
}

/// Whether the drawing shows the accent's colour at a point of the dial's design.
bool shows_line_at(const QImage& picture, double x, double y, const QColor& accent) {
    const double scale = picture.width() / (2 * (dial_radius + 20));
    const QColor found = picture.pixelColor(static_cast<int>(picture.width() / 2.0 + (x - 3015) * scale),
                                            static_cast<int>(picture.height() / 2.0 + (y - 3000) * scale));
    return std::abs(found.red() - accent.red()) + std::abs(found.green() - accent.green()) +
               std::abs(found.blue() - accent.blue()) <
           40;
}

TEST_F(QiblahPanelTest, TheLineIsDrawnFromTheCentreToItsEndAtAnyScale) {
    for (const double direction : {0.0, 58.5, 160.8, 292.8}) {
        const DialPoint end = dial_line_end(static_cast<float>(direction));
        for (const int size : {160, 250, 1600}) {
            DialLine line;
            line.set_end(end);
            line.resize(size, size);
            QImage picture(line.size(), QImage::Format_RGB32);
            picture.fill(Qt::white);
            line.render(&picture, QPoint(), QRegion(), QWidget::RenderFlags());
            const QColor accent = accent_colour(line);
            const auto at = [&](double part) {
                return shows_line_at(picture, 3015 + part * (end.x - 3015), 3000 + part * (end.y - 3000),
                                     accent);
            };
            EXPECT_TRUE(at(0)) << direction << " at " << size;
            EXPECT_TRUE(at(0.5)) << direction << " at " << size;
            EXPECT_TRUE(at(0.93)) << direction << " at " << size;
            EXPECT_FALSE(at(1.04)) << direction << " at " << size;
            EXPECT_FALSE(at(-0.5)) << direction << " at " << size;
        }
    }
}

TEST_F(QiblahPanelTest, TheSunIsChosenInTheDesign) {
    frmqib form;
    EXPECT_TRUE(checked<QRadioButton>(form, "optsun"));
    EXPECT_FALSE(checked<QRadioButton>(form, "optsha"));
}

TEST_F(QiblahPanelTest, TheTimesOfTheSunAreWrittenAndShown) {
    frmqib form;
    form.show();
    click(form, "cmdqib");
    EXPECT_EQ(platform_double.shown_files, std::vector<std::string>{"results.out"});
    EXPECT_EQ(report().at(5), QStringLiteral("- Qiblah Direction is:   160.8 ° From True North"));
    EXPECT_EQ(report().at(6), QStringLiteral("- Qiblah Time you Chose is The Time At Which the SUN is at "
                                             "Qiblah Direction"));
    EXPECT_EQ(report().filter(QStringLiteral("/06/2024  ")).size(), 31); // the head's line and thirty rows
    EXPECT_EQ(open_window("frmwait"), nullptr);
}

TEST_F(QiblahPanelTest, TheTimesOfTheShadowAreWrittenAndShown) {
    frmqib form;
    form.show();
    click(form, "optsha");
    click(form, "cmdqib");
    EXPECT_EQ(platform_double.shown_files, std::vector<std::string>{"results.out"});
    EXPECT_EQ(report().at(5), QStringLiteral("- Qiblah Direction is:   160.8 ° From True North"));
    EXPECT_EQ(report().at(6), QStringLiteral("- Qiblah Time you Chose is The Time At Which the SUN'S SHADOW "
                                             "is at Qiblah Direction"));
}

TEST_F(QiblahPanelTest, TheReportIsEnglishInArabicToo) {
    frmqib english;
    click(english, "cmdqib");
    const std::string expected = content("results.out");
    set_language(Language::arabic);
    frmqib arabic;
    click(arabic, "cmdqib");
    EXPECT_EQ(content("results.out"), expected);
}

TEST_F(QiblahPanelTest, ACancelKeepsTheRowsSoFarAndShowsNothing) {
    frmqib form;
    form.show();
    during_run(1, [] { click(*open_window("frmwait"), "bcancel"); });
    click(form, "cmdqib");
    EXPECT_TRUE(platform_double.shown_files.empty());
    EXPECT_EQ(report().filter(QStringLiteral("30/06/2024  ")).size(), 0);
    EXPECT_TRUE(report().contains(QStringLiteral("* Remarks:-")));
    EXPECT_EQ(open_window("frmwait"), nullptr);
}

TEST_F(QiblahPanelTest, TheWindowOfTheRunTellsWhatIsComputed) {
    frmqib form;
    form.show();
    QString told;
    during_run(1, [&told] { told = caption(*open_window("frmwait"), "lblrun"); });
    click(form, "cmdqib");
    EXPECT_EQ(told, QStringLiteral("Qiblah Times"));
}

TEST_F(QiblahPanelTest, ThePanelMayBeClosedDuringItsRun) {
    QPointer<frmqib> form = new frmqib;
    form->setAttribute(Qt::WA_DeleteOnClose);
    form->show();
    during_run(1, [form] {
        form->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    });
    QTimer::singleShot(0, form, [form] { click(*form, "cmdqib"); });
    QElapsedTimer time;
    time.start();
    while (platform_double.shown_files.empty() && time.elapsed() < 10000)
        QApplication::processEvents();
    EXPECT_EQ(platform_double.shown_files, std::vector<std::string>{"results.out"});
    EXPECT_TRUE(form.isNull());
    EXPECT_EQ(report().filter(QStringLiteral("30/06/2024  ")).size(), 1);
}

TEST_F(QiblahPanelTest, ALocationSavedSinceNeedsTheFormToBeOpenedAgain) {
    frmqib form;
    move_to("Sydney", 151, -34);
    click(form, "cmdqib");
    EXPECT_EQ(caption(form, "lblloc"), QStringLiteral("Amman"));
    EXPECT_EQ(report().at(5), QStringLiteral("- Qiblah Direction is:   160.8 ° From True North"));
    EXPECT_TRUE(report().at(8).startsWith(QStringLiteral("- Sydney, ")));
    frmqib again;
    EXPECT_EQ(caption(again, "lblloc"), QStringLiteral("Sydney"));
    EXPECT_NE(again.direction(), form.direction());
}

TEST_F(QiblahPanelTest, TheTimeReferenceOfAnotherPanelDoesNotReachTheReport) {
    frmqib form;
    click(form, "cmdqib");
    const std::string expected = content("results.out");
    const TdtSpan phases_panel(1);
    click(form, "cmdqib");
    EXPECT_EQ(content("results.out"), expected);
}

TEST_F(QiblahPanelTest, CloseAndEscapeCloseIt) {
    frmqib form;
    form.show();
    click(form, "cmdclose");
    EXPECT_FALSE(form.isVisible());
    form.show();
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(QiblahPanelTest, TheMainPanelsButtonOpensItBesideTheOtherWindows) {
    const auto all = panels();
    const auto entry = std::find_if(all.begin(), all.end(),
                                    [](const Panel& panel) { return QByteArray(panel.form) == "frmqib"; });
    ASSERT_NE(entry, all.end());
    EXPECT_STREQ(entry->button, "cmdqib");
    EXPECT_FALSE(entry->modal);
    open_panel(*entry, nullptr);
    QWidget* form = open_window("frmqib");
    ASSERT_NE(form, nullptr);
    EXPECT_FALSE(form->isModal());
}

TEST_F(QiblahPanelTest, TheMapOpensModallyAboveTheOtherWindowsUntilItIsClosed) {
    lay_out_map();
    frmqib form;
    form.show();
    bool seen = false;
    QTimer::singleShot(0, &form, [&] {
        QWidget* map = QApplication::activeModalWidget();
        ASSERT_NE(map, nullptr);
        seen = map->objectName() == QStringLiteral("frmqmap");
        ASSERT_EQ(platform_double.kept_on_top.size(), 1U);
        EXPECT_EQ(platform_double.kept_on_top[0].panel, map);
        EXPECT_TRUE(platform_double.kept_on_top[0].on_top);
        click(*map, "cmdclose");
    });
    click(form, "cmdshowqmap");
    EXPECT_TRUE(seen);
    ASSERT_EQ(platform_double.kept_on_top.size(), 2U);
    EXPECT_EQ(platform_double.kept_on_top[1].panel, platform_double.kept_on_top[0].panel);
    EXPECT_FALSE(platform_double.kept_on_top[1].on_top);
    EXPECT_EQ(open_window("frmqmap"), nullptr);
}

TEST_F(QiblahPanelTest, TheMapShowsThePictureOfTheProgramFolderInItsProportions) {
    lay_out_map();
    frmqmap form;
    form.show();
    auto& box = control<PictureBox>(form, "imgqmap");
    const QImage picture(QString::fromStdString(path("qmap.gif")));
    ASSERT_FALSE(picture.isNull());
    EXPECT_EQ(box.picture().size(), picture.size());
    box.resize(picture.width() / 2, picture.height());
    const QImage shown = box.grab().toImage();
    const QColor window = form.palette().color(QPalette::Window);
    EXPECT_EQ(shown.pixelColor(shown.width() / 2, 2), window);                        // above the picture
    EXPECT_EQ(shown.pixelColor(2, shown.height() / 4 + 3), picture.pixelColor(4, 6)); // its white edge
}

TEST_F(QiblahPanelTest, AMissingPictureIsToldInItsPlace) {
    frmqmap form;
    form.show();
    const QImage shown = control(form, "imgqmap").grab().toImage();
    const QColor background = shown.pixelColor(0, 0);
    int written = 0;
    for (int x = 0; x < shown.width(); ++x)
        for (int y = 0; y < shown.height(); ++y)
            written += shown.pixelColor(x, y) != background;
    EXPECT_GT(written, 200);
}

INSTANTIATE_TEST_SUITE_P(In, QiblahBothLanguages, ::testing::ValuesIn(languages), language_name);

} // namespace
} // namespace halvane
