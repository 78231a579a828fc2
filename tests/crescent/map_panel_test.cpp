// SPDX-License-Identifier: MIT
#include "crescent/conjunction.h"
#include "crescent/frmmap.h"
#include "crescent/legendlabel.h"
#include "crescent/mapimage.h"
#include "crescent/mapsheet.h"
#include "crescent/mapview.h"
#include "ephemeris/series.h"
#include "panel/messages.h"
#include "routines/crescentday.h"
#include "routines/namedengine.h"
#include "routines/seriesloader.h"
#include "tests/panel/panelchecks.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QImage>
#include <QMouseEvent>
#include <QPointer>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTimer>
#include <algorithm>
#include <cerrno>
#include <cmath>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <sys/resource.h>

namespace halvane {
namespace {

class PointList : public MapReceiver {
public:
    void point(const MapPoint& point) override { points.push_back(point); }
    bool go_on() override { return true; }
    std::vector<MapPoint> points;
};

/// Pixels of an image that are close to a colour.
int count_near(const QImage& image, const QColor& colour, int tolerance = 40) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            if (std::abs(pixel.red() - colour.red()) < tolerance &&
                std::abs(pixel.green() - colour.green()) < tolerance &&
                std::abs(pixel.blue() - colour.blue()) < tolerance)
                ++count;
        }
    return count;
}

QColor colour_of(VisibilityClass visibility) {
    const ClassColour colour = class_colour(visibility);
    return {colour.red, colour.green, colour.blue};
}

/// Softened by the smooth edges of the circles, yet far from every colour of the world's picture.
constexpr int on_screen = 90;

/// A write beyond this many bytes fails, as on a full disk.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) : ignored_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit small{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, ignored_);
    }

private:
    void (*ignored_)(int);
    rlimit before_{};
};

/// The New Moon of 29 March 2025, 10:58 UT (Astronomical Almanac).
class MapPanel : public PanelTest {
protected:
    MapPanel() {
        load_series();
        constexpr double new_moon = 2460763.957;
        conjunctionstart = new_moon;
        crescentkind = CrescentKind::new_crescent;
    }
    ~MapPanel() override { set_file_chooser({}); }

    static const std::vector<MapPoint>& points(QWidget& form) {
        return control<MapView>(form, "pic").points();
    }

    static std::vector<MapPoint> points_of(Criterion criterion, CrescentKind kind, int day) {
        MapRun run;
        run.criterion = criterion;
        run.kind = kind;
        run.conjunction = map_conjunction(named_ephemeris(), conjunctionstart);
        run.day = map_day(run.conjunction, kind, day);
        PointList list;
        draw_visibility_map(loaded_theory(), run, list);
        return list.points;
    }

    static QString mouse_over(QWidget& form, double x, double y) {
        auto& pic = control<MapView>(form, "pic");
        const QPointF place = pic.map_area().topLeft() + QPointF(x, y) * (pic.map_area().width() / map_width);
        QMouseEvent move(QEvent::MouseMove, place, pic.mapToGlobal(place), Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(&pic, &move);
        return caption(form, "lblmouse");
    }

    /// Runs `action` once during a drawing, after so many blocks.
    void during_draw(QWidget& form, int blocks, const std::function<void()>& action) {
        auto passes = std::make_shared<int>(0);
        auto* timer = new QTimer(qApp);
        QObject::connect(timer, &QTimer::timeout, timer, [=] {
            if (++*passes < blocks)
                return;
            timer->stop();
            timer->deleteLater();
            action();
        });
        timer->start(0);
        click(form, "cmddraw");
    }

    /// Whether a mark may hide a part of the circle at a pixel of the map.
    static bool is_under_a_mark(QWidget& form, const MapPixel& at) {
        const std::vector<MapMark>& marks = control<MapView>(form, "pic").marks();
        return std::any_of(marks.begin(), marks.end(), [&](const MapMark& mark) {
            return std::fabs(mark.centre.x - at.x) < 11 && std::fabs(mark.centre.y - at.y) < 13;
        });
    }

    /// Saves as `name` of the program folder; the dialog is asked once.
    void save_as(QWidget& form, const std::string& name) {
        set_file_chooser([this, name](const QString& title, const QString& proposed) {
            asked_title = title;
            proposed_name = proposed;
            return name.empty() ? QString() : QString::fromStdString(path(name));
        });
        click(form, "cmdsave");
    }

    QString asked_title;
    QString proposed_name;
};

TEST_F(MapPanel, BothLanguagesAreWholeReachableAndNamed) {
    in_both_languages<frmmap>([](QWidget& form, Language language) {
        form.show();
        choose(form, "cbocri", text_of(row_of(Criterion::yallop).name, language));
        click(form, "cmddraw");
        expect_usable(form);
        expect_captions(form, frmmap_twins(), language);
    });
}

TEST_F(MapPanel, TheCriteriaAreListedInOrder) {
    frmmap english;
    EXPECT_EQ(entries(english, "cbocri"), (QStringList{"Vesk", "Yallop", "SAAO"}));
    EXPECT_EQ(control<QComboBox>(english, "cbocri").currentIndex(), 0);
    set_language(Language::arabic);
    frmmap arabic;
    EXPECT_EQ(entries(arabic, "cbocri"), (QStringList{"Vesk", "يالوب", "جنوب أفريقيا"}));
}

TEST_F(MapPanel, ANewCrescentOffersTheDaysAfter) {
    frmmap form;
    EXPECT_EQ(caption(form, "fravis"), QStringLiteral("Visibility Day: Waxing (New) Crescent"));
    EXPECT_EQ(caption(form, "opt0"), QStringLiteral("29 March 2025"));
    EXPECT_EQ(caption(form, "opt1"), QStringLiteral("30 March 2025"));
    EXPECT_EQ(caption(form, "opt2"), QStringLiteral("31 March 2025"));
}

TEST_F(MapPanel, AnOldCrescentOffersTheDaysBefore) {
    crescentkind = CrescentKind::old_crescent;
    frmmap form;
    EXPECT_EQ(caption(form, "fravis"), QStringLiteral("Visibility Day: Waning (Old) Crescent"));
    EXPECT_EQ(caption(form, "opt0"), QStringLiteral("29 March 2025"));
    EXPECT_EQ(caption(form, "opt1"), QStringLiteral("28 March 2025"));
    EXPECT_EQ(caption(form, "opt2"), QStringLiteral("27 March 2025"));
}

TEST_F(MapPanel, TheDaysAreNamedInArabic) {
    set_language(Language::arabic);
    frmmap new_crescent;
    EXPECT_EQ(caption(new_crescent, "fravis"), QStringLiteral("يوم الرصد: هلال أول الشهر"));
    EXPECT_EQ(caption(new_crescent, "opt1"), QStringLiteral("30 آذار 2025"));
    crescentkind = CrescentKind::old_crescent;
    frmmap old_crescent;
    EXPECT_EQ(caption(old_crescent, "fravis"), QStringLiteral("يوم الرصد: هلال آخر الشهر"));
    EXPECT_EQ(caption(old_crescent, "opt1"), QStringLiteral("28 آذار 2025"));
}

struct LegendCase {
    const char* english_name;
    const char* english;
    const char* arabic_name;
    const char* arabic_start;
};

constexpr LegendCase legends[] = {
    {"Vesk",
     "Red: Impossible\r\nNo Color: Not Possible\r\nBlue: Need Optical Aid\r\n"
     "Magenta: Could be Seen by Naked Eye\r\nGreen: Easily Visible by Naked Eye\r\nCyan: Unknown",
     "Vesk",
     "أحمر: مستحيل\r\nغير ملون: رؤية الهلال غير ممكنة\r\nكحلي: يحتاج مرقب/تلسكوب\r\nزهري: قد يرى بالعين "
     "المجردة\r\n"},
    {"Yallop",
     "Red: Impossible\r\nNo Color: Not Possible\r\nBlue: Need Optical Aid\r\nMagenta: May Need Optical "
     "Aid\r\n"
     "Yellow: Naked Eye at Perfect Conditions\r\nGreen: Easily Visible by Naked Eye\r\nCyan: Unknown",
     "يالوب", "أحمر: مستحيل\r\nغير ملون: رؤية الهلال غير ممكنة\r\nكحلي: يحتاج مرقب/تلسكوب\r\n"},
    {"SAAO",
     "Red: Impossible\r\nNo Color: Not Possible\r\nBlue: Crescent Visibility is Improbable\r\n"
     "Green: Crescent Visibility is Possible\r\nCyan: Unknown",
     "جنوب أفريقيا", "أحمر: مستحيل\r\nغير ملون: رؤية الهلال غير ممكنة\r\n"},
};

class MapLegend : public MapPanel, public ::testing::WithParamInterface<LegendCase> {};

TEST_P(MapLegend, IsThatOfTheCriterion) {
    frmmap english;
    choose(english, "cbocri", QString::fromUtf8(GetParam().english_name));
    click(english, "cmddraw");
    EXPECT_EQ(caption(english, "lblleg"), QString::fromUtf8(GetParam().english));
    set_language(Language::arabic);
    frmmap arabic;
    choose(arabic, "cbocri", QString::fromUtf8(GetParam().arabic_name));
    click(arabic, "cmddraw");
    const QString shown = caption(arabic, "lblleg");
    EXPECT_TRUE(shown.startsWith(QString::fromUtf8(GetParam().arabic_start))) << shown.toStdString();
    EXPECT_EQ(shown.count(u'\n'), QString::fromUtf8(GetParam().english).count(u'\n'));
    EXPECT_FALSE(shown.contains(QRegularExpression(QStringLiteral("[A-Za-z]"))));
}

INSTANTIATE_TEST_SUITE_P(Every, MapLegend, ::testing::ValuesIn(legends),
                         [](const auto& row) { return std::string(row.param.english_name); });

TEST_F(MapPanel, EachLineOfTheLegendHasItsColourBesideIt) {
    for (const Language language : languages) {
        set_language(language);
        frmmap form;
        form.show();
        control<QComboBox>(form, "cbocri").setCurrentIndex(1);
        click(form, "cmddraw");
        auto& legend = control<LegendLabel>(form, "lblleg");
        const QImage picture = legend.grab().toImage();
        const std::vector<LegendLine>& lines = legend.legend();
        ASSERT_EQ(lines.size(), 7U);
        for (int line = 0; line < 7; ++line) {
            const VisibilityClass visibility = lines[static_cast<std::size_t>(line)].visibility;
            const QPoint centre = legend.swatch(line).center();
            const QColor expected = visibility == VisibilityClass::not_possible
                                        ? bare_colour(control<MapView>(form, "pic").map())
                                        : colour_of(visibility);
            EXPECT_EQ(picture.pixelColor(centre).rgb(), expected.rgb()) << line;
            const bool at_the_start =
                language == Language::english ? centre.x() < 20 : centre.x() > legend.width() - 20;
            EXPECT_TRUE(at_the_start) << line;
        }
    }
}

TEST_F(MapPanel, TheSwatchOfNoColorIsTheMapsOwnColourAlsoOnADarkPanel) {
    frmmap form;
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(32, 35, 38));
    dark.setColor(QPalette::WindowText, QColor(240, 240, 240));
    form.setPalette(dark);
    form.show();
    click(form, "cmddraw");
    auto& legend = control<LegendLabel>(form, "lblleg");
    auto& pic = control<MapView>(form, "pic");
    const QColor shown = legend.grab().toImage().pixelColor(legend.swatch(1).center());
    // The sea of the map, of which the most is: 60 north to 68 south, counted here on the file itself.
    const QImage map = QImage(QString::fromStdString(path("map.gif"))).convertToFormat(QImage::Format_RGB32);
    int of_shown = 0;
    const int area = (346 - 82) * map_width;
    for (int y = 82; y < 346; ++y)
        for (int x = 0; x < map_width; ++x)
            of_shown += map.pixelColor(x, y) == shown ? 1 : 0;
    EXPECT_GT(of_shown, area / 4) << shown.name().toStdString();
    EXPECT_EQ(shown, bare_colour(pic.map()));
}

TEST_F(MapPanel, EachLineOfTheLegendHasItsMarkBesideItsColour) {
    for (const Language language : languages) {
        set_language(language);
        frmmap form;
        form.show();
        click(form, "cmddraw");
        auto& legend = control<LegendLabel>(form, "lblleg");
        const QImage picture = legend.grab().toImage();
        std::set<std::vector<bool>> shapes;
        for (int line = 0; line < static_cast<int>(legend.legend().size()); ++line) {
            const QRect swatch = legend.swatch(line);
            const int side = swatch.width();
            const int left =
                language == Language::english ? swatch.left() + 2 * side : swatch.right() - 3 * side;
            std::vector<bool> shape;
            for (int y = swatch.top() - 2; y < swatch.bottom() + 2; ++y)
                for (int x = left; x < left + side + 1; ++x)
                    shape.push_back(picture.pixelColor(x, y).lightness() < 128);
            EXPECT_GT(std::count(shape.begin(), shape.end(), true), 4) << line;
            shapes.insert(shape);
        }
        EXPECT_EQ(shapes.size(), legend.legend().size()) << "a mark of its own for each class";
    }
}

TEST_F(MapPanel, TheInformationStandsInFiveLines) {
    frmmap form;
    EXPECT_EQ(caption(form, "lblinf"), QString());
    choose(form, "cbocri", QStringLiteral("Yallop"));
    click(form, "opt1");
    click(form, "cmddraw");
    EXPECT_EQ(caption(form, "lblinf").split(u'\n'),
              (QStringList{"New Crescent Visibility", "Yallop Criterion", "Shawwal 1446", "Sunday",
                           "30 March 2025"}));
}

TEST_F(MapPanel, TheInformationOfAnOldCrescentNamesTheMonthThatEnds) {
    crescentkind = CrescentKind::old_crescent;
    frmmap form;
    click(form, "opt2");
    click(form, "cmddraw");
    EXPECT_EQ(caption(form, "lblinf").split(u'\n'),
              (QStringList{"Old Crescent Visibility", "Vesk Criterion", "Ramadan 1446", "Thursday",
                           "27 March 2025"}));
}

TEST_F(MapPanel, TheInformationIsArabicInTheArabicPanel) {
    set_language(Language::arabic);
    frmmap form;
    choose(form, "cbocri", QStringLiteral("يالوب"));
    click(form, "opt1");
    click(form, "cmddraw");
    EXPECT_EQ(caption(form, "lblinf").split(u'\n'),
              (QStringList{"رؤية هلال أول الشهر", " معيار يالوب", "شوال 1446", "الأحد", "30 آذار 2025"}));
}

TEST_F(MapPanel, AWholeDrawPaintsEveryPointInDrawingOrder) {
    frmmap form;
    form.show();
    choose(form, "cbocri", QStringLiteral("SAAO"));
    click(form, "opt1");
    click(form, "cmddraw");
    const std::vector<MapPoint> expected = points_of(Criterion::saao, CrescentKind::new_crescent, 1);
    EXPECT_GT(expected.size(), 2000U);
    EXPECT_TRUE(points(form) == expected);
    EXPECT_TRUE(control(form, "cmddraw").isEnabled());
    for (const MapPoint& point : points(form)) {
        EXPECT_LE(point.latitude, 60);
        EXPECT_GE(point.latitude, -68);
    }
}

TEST_F(MapPanel, ThePaintedPointsShowOverTheMap) {
    frmmap form;
    form.show();
    auto& pic = control<MapView>(form, "pic");
    const QColor red = colour_of(VisibilityClass::impossible);
    EXPECT_EQ(count_near(pic.grab().toImage(), red, on_screen), 0);
    click(form, "cmddraw");
    EXPECT_GT(count_near(pic.grab().toImage(), red, on_screen), 2000);
}

TEST_F(MapPanel, EveryClassIsMarkedOnceTheDrawingEnds) {
    frmmap form;
    form.show();
    auto& pic = control<MapView>(form, "pic");
    choose(form, "cbocri", QStringLiteral("Yallop"));
    click(form, "opt1");
    during_draw(form, 100, [&] { EXPECT_TRUE(pic.marks().empty()); });
    std::set<VisibilityClass> drawn;
    for (const MapPoint& point : points(form))
        drawn.insert(point.visibility);
    std::set<VisibilityClass> marked;
    const QImage picture = pic.grab().toImage();
    for (const MapMark& mark : pic.marks()) {
        marked.insert(mark.visibility);
        const double scale = pic.map_area().width() / map_width;
        const QPointF centre = pic.map_area().topLeft() + QPointF(mark.centre.x, mark.centre.y) * scale;
        const QRect around(qRound(centre.x()) - 7, qRound(centre.y()) - 8, 15, 17);
        EXPECT_GT(count_near(picture.copy(around), map_ink(), 70), 8);
        EXPECT_GT(count_near(picture.copy(around), map_paper()), 20);
    }
    EXPECT_EQ(marked, drawn);
    click(form, "cmddraw");
    during_draw(form, 50, [&] { click(form, "cmdstop"); });
    EXPECT_FALSE(pic.marks().empty()) << "what is painted after a stop is marked too";
}

TEST_F(MapPanel, TheDrawingTellsItsPercentageAndAStopWhereItStopped) {
    for (const Language language : languages) {
        set_language(language);
        frmmap form;
        form.show();
        EXPECT_EQ(caption(form, "lblstate"), QString());
        std::vector<int> percentages;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &form, [&] {
            const auto told =
                QRegularExpression(QStringLiteral("([0-9]+) %")).match(caption(form, "lblstate"));
            ASSERT_TRUE(told.hasMatch());
            percentages.push_back(told.captured(1).toInt());
        });
        timer.start(0);
        click(form, "cmddraw");
        timer.stop();
        EXPECT_TRUE(std::is_sorted(percentages.begin(), percentages.end()));
        EXPECT_GT(std::set<int>(percentages.begin(), percentages.end()).size(), 50U);
        EXPECT_EQ(caption(form, "lblstate"), QString()) << "a whole drawing needs no words";
        during_draw(form, 234, [&] { click(form, "cmdstop"); }); // half of the 468 blocks
        const QString stopped = caption(form, "lblstate");
        const auto told = QRegularExpression(QStringLiteral("([0-9]+) %")).match(stopped);
        EXPECT_NEAR(told.captured(1).toInt(), 50, 2) << stopped.toStdString();
        click(form, "cmddraw");
        EXPECT_EQ(caption(form, "lblstate"), QString());
    }
}

TEST_F(MapPanel, AChoiceThatIsNotThatOfTheDrawingIsToldBesideIt) {
    for (const Language language : languages) {
        set_language(language);
        frmmap form;
        form.show();
        const QString words = language == Language::english ? QStringLiteral("of another day or criterion")
                                                            : QStringLiteral("ليوم آخر أو لمعيار آخر");
        const auto is_told = [&] { return caption(form, "lblstate").contains(words); };
        click(form, "opt1");
        EXPECT_FALSE(is_told()) << "nothing is drawn yet";
        click(form, "cmddraw");
        EXPECT_FALSE(is_told());
        click(form, "opt2");
        EXPECT_TRUE(is_told());
        click(form, "opt1");
        EXPECT_FALSE(is_told());
        control<QComboBox>(form, "cbocri").setCurrentIndex(1);
        EXPECT_TRUE(is_told());
        EXPECT_EQ(cut_texts(form), QStringList());
        click(form, "cmddraw");
        EXPECT_FALSE(is_told());
        click(form, "cmdstop"); // the criterion goes back to the first
        EXPECT_TRUE(is_told());
    }
}

TEST_F(MapPanel, APointIsACircleAtItsPlaceAtAnySize) {
    MapView view;
    QImage grey(map_width, map_height, QImage::Format_RGB32);
    grey.fill(Qt::white);
    view.show_map(grey);
    view.add_point({90, -40, VisibilityClass::optical_aid, true});
    view.add_point({-90, 40, VisibilityClass::not_possible, true});
    for (const int factor : {1, 3}) {
        view.resize(map_width * factor, map_height * factor);
        const QImage picture = view.grab().toImage();
        const MapPixel at = map_pixel(90, -40);
        const auto colour_at = [&](double dx, double dy) {
            return picture.pixelColor(static_cast<int>((at.x + 0.5 + dx) * factor),
                                      static_cast<int>((at.y + 0.5 + dy) * factor));
        };
        EXPECT_EQ(colour_at(0, 0), QColor(Qt::white)) << factor; // an outline
        EXPECT_LT(colour_at(2, 0).red(), 160) << factor;
        EXPECT_LT(colour_at(-2, 0).red(), 160) << factor;
        EXPECT_LT(colour_at(0, 2).red(), 160) << factor;
        EXPECT_EQ(colour_at(5, 0), QColor(Qt::white)) << factor;
        int inked = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                inked += picture.pixelColor(x, y).red() < 128 ? 1 : 0;
        // a ring of radius 2 and width 1: 4 pi pixels of the map
        EXPECT_NEAR(inked / static_cast<double>(factor * factor), 12.6, 5) << factor;
    }
}

TEST_F(MapPanel, TheMapKeepsItsAspectAndIsNotMirrored) {
    set_language(Language::arabic);
    frmmap form;
    form.resize(1300, 700);
    form.show();
    auto& pic = control<MapView>(form, "pic");
    const QRectF area = pic.map_area();
    EXPECT_NEAR(area.width() / area.height(), 748.0 / 412, 1e-9);
    EXPECT_EQ(pic.layoutDirection(), Qt::LeftToRight);
    const QImage shown = pic.grab().toImage().copy(area.toAlignedRect()).scaled(map_width, map_height);
    const QImage map = QImage(QString::fromStdString(path("map.gif"))).convertToFormat(QImage::Format_RGB32);
    double straight = 0;
    double mirrored = 0;
    for (int y = 20; y < map_height - 20; y += 4)
        for (int x = 20; x < map_width - 20; x += 4) {
            straight += std::abs(qGray(shown.pixel(x, y)) - qGray(map.pixel(x, y)));
            mirrored += std::abs(qGray(shown.pixel(map_width - 1 - x, y)) - qGray(map.pixel(x, y)));
        }
    EXPECT_LT(straight, mirrored / 2);
}

TEST_F(MapPanel, BlocksAppearOneByOneAndThePanelStaysAlive) {
    frmmap form;
    form.show();
    std::set<std::size_t> sizes;
    QString read_out;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &form, [&] {
        sizes.insert(points(form).size());
        EXPECT_FALSE(control(form, "cmddraw").isEnabled());
        read_out = mouse_over(form, 374, 206);
    });
    timer.start(0);
    click(form, "cmddraw");
    timer.stop();
    EXPECT_GT(sizes.size(), 200U); // of 468 blocks, those that paint anything
    EXPECT_EQ(read_out, QStringLiteral("Mouse Position: Long: 000.0, Lat: 00.0"));
}

TEST_F(MapPanel, TheDrawingUsesTheChoicesItStartedWith) {
    frmmap form;
    form.show();
    during_draw(form, 20, [&] {
        click(form, "opt2");
        choose(form, "cbocri", QStringLiteral("SAAO"));
    });
    const std::vector<MapPoint> expected = points_of(Criterion::vesk, CrescentKind::new_crescent, 0);
    EXPECT_TRUE(points(form) == expected);
}

TEST_F(MapPanel, ASecondDrawStartsFromACleanMap) {
    frmmap form;
    form.show();
    click(form, "cmddraw");
    click(form, "opt2");
    choose(form, "cbocri", QStringLiteral("Yallop"));
    click(form, "cmddraw");
    const std::vector<MapPoint> expected = points_of(Criterion::yallop, CrescentKind::new_crescent, 2);
    EXPECT_TRUE(points(form) == expected);
}

TEST_F(MapPanel, StopLeavesThePaintedPartAndLoadsTheCaptionsAnew) {
    frmmap form;
    form.show();
    choose(form, "cbocri", QStringLiteral("Yallop"));
    during_draw(form, 100, [&] {
        control<QRadioButton>(form, "opt0").setText(QStringLiteral("?"));
        click(form, "cmdstop");
    });
    const std::vector<MapPoint> whole = points_of(Criterion::yallop, CrescentKind::new_crescent, 0);
    EXPECT_GT(points(form).size(), 100U);
    EXPECT_LT(points(form).size(), whole.size() / 2);
    EXPECT_TRUE(std::equal(points(form).begin(), points(form).end(), whole.begin()));
    EXPECT_TRUE(control(form, "cmddraw").isEnabled());
    EXPECT_EQ(caption(form, "opt0"), QStringLiteral("29 March 2025"));
    EXPECT_EQ(control<QComboBox>(form, "cbocri").currentIndex(), 0);
    const QImage picture = control(form, "pic").grab().toImage();
    EXPECT_GT(count_near(picture, colour_of(VisibilityClass::impossible), on_screen), 100);
}

TEST_F(MapPanel, AfterAStopAndWithoutADrawingTheNextDrawIsWhole) {
    frmmap form;
    form.show();
    during_draw(form, 10, [&] { click(form, "cmdstop"); });
    click(form, "cmdstop");
    click(form, "cmddraw");
    EXPECT_EQ(points(form).size(), points_of(Criterion::vesk, CrescentKind::new_crescent, 0).size());
}

TEST_F(MapPanel, AStopActsAtOnce) {
    frmmap form;
    form.show();
    QElapsedTimer since;
    during_draw(form, 50, [&] {
        since.start();
        click(form, "cmdstop");
    });
    EXPECT_LT(since.elapsed(), 200);
}

TEST_F(MapPanel, ClosingDuringADrawEndsIt) {
    frmmap form;
    form.show();
    during_draw(form, 30, [&] { click(form, "cmdclose"); });
    EXPECT_FALSE(form.isVisible());
    EXPECT_LT(points(form).size(), points_of(Criterion::vesk, CrescentKind::new_crescent, 0).size() / 2);
}

TEST_F(MapPanel, APanelDeletedDuringItsDrawEndsIt) {
    QPointer<frmmap> form = new frmmap;
    form->setAttribute(Qt::WA_DeleteOnClose);
    form->show();
    during_draw(*form, 30, [&] { form->close(); });
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(form.isNull());
}

TEST_F(MapPanel, ADrawOfADestroyedPanelEnds) {
    const QPointer<frmmap> form = new frmmap;
    form->show();
    during_draw(*form, 30, [form] { form->deleteLater(); });
    EXPECT_TRUE(form.isNull());
}

TEST_F(MapPanel, ThePanelStaysOnTop) {
    frmmap form;
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    ASSERT_FALSE(platform_double.kept_on_top.empty());
    EXPECT_EQ(platform_double.kept_on_top.back().panel, static_cast<QWidget*>(&form));
    EXPECT_TRUE(platform_double.kept_on_top.back().on_top);
    const std::size_t once_active = platform_double.kept_on_top.size();
    click(form, "cmddraw");
    EXPECT_EQ(platform_double.kept_on_top.size(), once_active + 1);
    save_as(form, "");
    EXPECT_EQ(platform_double.kept_on_top.size(), once_active + 2);
}

TEST_F(MapPanel, TheDesktopKeepsThePanelOnTopWithoutHidingItAgain) {
    set_platform(nullptr);
    frmmap form;
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    EXPECT_TRUE(form.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    int hidden = 0;
    struct HideCounter : QObject {
        explicit HideCounter(int& count) : count_(count) {}
        bool eventFilter(QObject*, QEvent* event) override {
            count_ += event->type() == QEvent::Hide ? 1 : 0;
            return false;
        }
        int& count_;
    } counter(hidden);
    form.installEventFilter(&counter);
    click(form, "cmddraw");
    QCoreApplication::processEvents();
    EXPECT_EQ(hidden, 0);
    EXPECT_TRUE(form.isVisible());
}

struct MouseCase {
    double x;
    double y;
    const char* longitude;
    const char* latitude;
};

// longitude = (x - 374) 0.48387097, latitude = -(y - 206) 0.48231511, by hand
constexpr MouseCase places[] = {
    {374, 206, "000.0", "00.0"}, {500, 100, "061.0", "51.1"},  {300, 300, "-035.8", "-45.3"},
    {4, 20, "-179.0", "89.7"},   {745, 390, "179.5", "-88.7"},
};

TEST_F(MapPanel, TheMouseReadsThePlace) {
    frmmap english;
    english.show();
    for (const MouseCase& at : places)
        EXPECT_EQ(mouse_over(english, at.x, at.y),
                  QStringLiteral("Mouse Position: Long: %1, Lat: %2").arg(at.longitude, at.latitude));
    set_language(Language::arabic);
    frmmap arabic;
    arabic.show();
    for (const MouseCase& at : places)
        EXPECT_EQ(mouse_over(arabic, at.x, at.y), QStringLiteral("موقع الفأرة:  خط طول: %1 خط العرض: %2")
                                                      .arg(isolated(at.longitude), isolated(at.latitude)));
}

TEST_F(MapPanel, OutsideTheWorldTheReadOutIsBlank) {
    frmmap form;
    form.show();
    for (const auto& [x, y] : {std::pair{1, 206}, {746, 206}, {374, 19}, {374, 393}}) {
        EXPECT_NE(mouse_over(form, 374, 206), QString());
        EXPECT_EQ(mouse_over(form, x, y), QString()) << x << " " << y;
    }
    EXPECT_NE(mouse_over(form, 374, 206), QString());
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&control(form, "pic"), &leave);
    EXPECT_EQ(caption(form, "lblmouse"), QString());
}

TEST_F(MapPanel, TheLegendMarksTheClassUnderTheMouse) {
    frmmap form;
    form.show();
    click(form, "opt1");
    click(form, "cmddraw");
    const auto& legend = control<LegendLabel>(form, "lblleg");
    std::set<VisibilityClass> seen;
    for (const MapPoint& point : points(form)) {
        const MapPixel at = map_pixel(point.longitude, point.latitude);
        mouse_over(form, at.x + 1, at.y - 1);
        ASSERT_EQ(legend.marked(), std::optional(point.visibility))
            << point.longitude << " " << point.latitude;
        seen.insert(point.visibility);
    }
    EXPECT_GE(seen.size(), 4U);
    mouse_over(form, 374, 40); // 80 north
    EXPECT_FALSE(legend.marked());
    const MapPixel first = map_pixel(points(form)[0].longitude, points(form)[0].latitude);
    mouse_over(form, first.x, first.y);
    EXPECT_TRUE(legend.marked());
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&control(form, "pic"), &leave);
    EXPECT_FALSE(legend.marked());
}

TEST_F(MapPanel, TheClassUnderTheMouseIsToldInWordsForEveryClass) {
    for (const Language language : languages) {
        set_language(language);
        frmmap form;
        form.show();
        mouse_over(form, 374, 206);
        EXPECT_EQ(caption(form, "lblclass"), QString()) << "nothing is drawn yet";
        control<QComboBox>(form, "cbocri").setCurrentIndex(1);
        std::set<VisibilityClass> told;
        for (const char* day : {"opt0", "opt1", "opt2"}) {
            click(form, day);
            click(form, "cmddraw");
            for (const MapPoint& point : points(form)) {
                const MapPixel at = map_pixel(point.longitude, point.latitude);
                mouse_over(form, at.x + 1, at.y + 1);
                const std::vector<LegendLine>& legend = control<LegendLabel>(form, "lblleg").legend();
                const auto line =
                    std::find_if(legend.begin(), legend.end(), [&](const LegendLine& candidate) {
                        return candidate.visibility == point.visibility;
                    });
                ASSERT_NE(line, legend.end());
                ASSERT_EQ(caption(form, "lblclass"), QString::number(static_cast<int>(point.visibility)) +
                                                         QStringLiteral("  ") +
                                                         text_of(line->text, language));
                told.insert(point.visibility);
            }
        }
        EXPECT_GE(told.size(), 6U);
        const MapPixel north = map_pixel(0, 75);
        mouse_over(form, north.x, north.y);
        EXPECT_EQ(caption(form, "lblclass"), language == Language::english ? QStringLiteral("Not drawn here")
                                                                           : QStringLiteral("لم يرسم هنا"));
        mouse_over(form, 374, 19);
        EXPECT_EQ(caption(form, "lblclass"), QString()) << "outside the world";
    }
}

TEST_F(MapPanel, ABareBlockSaysThatItIsNotPossible) {
    frmmap form;
    form.show();
    click(form, "cmddraw");
    std::set<std::pair<int, int>> painted;
    for (const MapPoint& point : points(form))
        painted.emplace(point.longitude, point.latitude);
    int bare = 0;
    for (int longitude = -178; longitude <= 176; longitude += 2)
        for (int latitude = -68; latitude <= 60; latitude += 2) {
            if (painted.count({longitude, latitude}) != 0)
                continue;
            ++bare;
            const MapPixel at = map_pixel(longitude, latitude);
            mouse_over(form, at.x, at.y);
            ASSERT_EQ(caption(form, "lblclass"), QStringLiteral("3  No Color: Not Possible"));
        }
    EXPECT_GT(bare, 100);
}

TEST_F(MapPanel, ASaveProposesTheHijriMonthInTheProgramFolder) {
    frmmap english;
    save_as(english, "");
    EXPECT_EQ(proposed_name, QString::fromStdString(path("Shawwal 1446.gif")));
    set_language(Language::arabic);
    frmmap arabic;
    save_as(arabic, "");
    EXPECT_EQ(proposed_name, QString::fromStdString(path("شوال 1446.gif")));
    EXPECT_EQ(asked_title, QStringLiteral("حفظ الخريطة"));
}

TEST_F(MapPanel, ASavedPictureHoldsMapPointsAndLegend) {
    for (const Language language : languages) {
        set_language(language);
        frmmap form;
        form.show();
        click(form, "opt1");
        click(form, "cmddraw");
        save_as(form, language == Language::english ? "map of may.gif" : "map of may 2.gif");
        const QImage saved(QString::fromStdString(
                               path(language == Language::english ? "map of may.gif" : "map of may 2.gif")),
                           "GIF");
        ASSERT_EQ(saved.size(), QSize(MapSheet::width, MapSheet::height));
        for (const MapPoint& point : points(form)) {
            const MapPixel at = map_pixel(point.longitude, point.latitude);
            if (point.visibility == VisibilityClass::not_possible || point.longitude < -176 ||
                is_under_a_mark(form, at))
                continue;
            const QRect around(qRound(at.x) - 3, qRound(at.y) - 3, 7, 7);
            ASSERT_GT(count_near(saved.copy(around), colour_of(point.visibility)), 3)
                << point.longitude << " " << point.latitude;
        }
        const QImage band = saved.copy(0, map_height, map_width, MapSheet::height - map_height);
        for (const LegendLine& line : map_legend(Criterion::vesk)) {
            const bool coloured = line.visibility != VisibilityClass::not_possible;
            EXPECT_GT(count_near(band, coloured ? colour_of(line.visibility) : QColor(Qt::white)), 80)
                << line.text.english;
        }
        EXPECT_GT(count_near(band, QColor(34, 40, 49)), 300); // the words
    }
}

struct NameCase {
    const char* chosen;
    const char* saved;
};

constexpr NameCase saved_names[] = {
    {"Shawwal 1446", "Shawwal 1446.gif"},
    {"Shawwal 1446.gif", "Shawwal 1446.gif"},
    {"picture.bmp", "picture.gif"},
    {"picture.PNG", "picture.gif"},
    {"picture.jpeg", "picture.gif"},
    {"eclipse", "eclipse.gif"},
    {"abc", "abc.gif"},
    {"Yallop 18.02.2026", "Yallop 18.02.2026.gif"},
    {"Yallop 18.02.2026.gif", "Yallop 18.02.2026.gif"},
    {"شوال 1446.tif", "شوال 1446.gif"},
};

TEST_F(MapPanel, OnlyAPicturesEndingIsTakenOffTheName) {
    frmmap form;
    for (const NameCase& name : saved_names) {
        save_as(form, name.chosen);
        EXPECT_TRUE(exists(name.saved)) << name.chosen;
        EXPECT_TRUE(std::string(name.chosen) == name.saved || !exists(name.chosen)) << name.chosen;
        EXPECT_TRUE(caption(form, "lblsave").contains(QString::fromUtf8(name.saved))) << name.chosen;
        remove(name.saved);
    }
    EXPECT_TRUE(messages.empty());
}

TEST_F(MapPanel, TheConfirmationAsksForTheNameThatIsWritten) {
    for (const Language language : languages) {
        set_language(language);
        frmmap form;
        put("X.gif", "kept");
        messages.clear();
        int asked = 0;
        set_file_chooser([&](const QString&, const QString& proposed) {
            proposed_name = proposed;
            return ++asked == 1 ? QString::fromStdString(path("X.bmp")) : QString();
        });
        answer({false});
        click(form, "cmdsave");
        ASSERT_EQ(messages.size(), 1U);
        EXPECT_TRUE(messages[0].text.contains(QStringLiteral("X.gif"))) << messages[0].text.toStdString();
        EXPECT_EQ(messages[0].buttons.size(), 2);
        EXPECT_EQ(messages[0].of_enter, messages[0].buttons[1]) << "No";
        EXPECT_TRUE(content("X.gif") == "kept");
        EXPECT_EQ(asked, 2) << "the dialog comes again after No";
        EXPECT_EQ(proposed_name, QString::fromStdString(path("X.gif")));
        answer({true});
        save_as(form, "X.bmp");
        EXPECT_EQ(messages.size(), 2U);
        EXPECT_EQ(content("X.gif").substr(0, 3), "GIF");
    }
}

TEST_F(MapPanel, FilesOfTheProgramAreRefusedWithWords) {
    std::filesystem::create_directories(path("images/inner"));
    std::filesystem::create_directory_symlink(path("images"), path("pictures"));
    put("images/20.gif", "crescent");
    put("qmap.gif", "directions");
    std::filesystem::create_symlink(path("map.gif"), path("soft.gif"));
    std::filesystem::create_hard_link(path("qmap.gif"), path("hard.gif"));
    std::filesystem::create_symlink(path("date.vsk"), path("stored.gif"));
    const std::string map = content("map.gif");
    const std::string date = content("date.vsk");
    for (const Language language : languages) {
        set_language(language);
        frmmap form;
        for (const char* name : {"map.gif", "map.png", "map", "./images/../map.gif", "qmap.bmp",
                                 "images/20.gif", "images/new.gif", "images/inner/new.gif", "pictures/20.jpg",
                                 "soft.gif", "hard.gif", "stored.gif"}) {
            answer({true});
            save_as(form, name);
            const QString words = caption(form, "lblsave");
            const QString file =
                QFileInfo(QString::fromLatin1(name)).completeBaseName() + QStringLiteral(".gif");
            EXPECT_TRUE(words.contains(file)) << name << ": " << words.toStdString();
            EXPECT_TRUE(words.contains(language == Language::english ? QStringLiteral("of the program")
                                                                     : QStringLiteral("البرنامج")))
                << name << ": " << words.toStdString();
        }
        EXPECT_TRUE(messages.empty());
        EXPECT_NO_THROW(form.cmddraw_click());
    }
    EXPECT_TRUE(content("map.gif") == map);
    EXPECT_TRUE(content("qmap.gif") == "directions");
    EXPECT_TRUE(content("images/20.gif") == "crescent");
    EXPECT_TRUE(content("date.vsk") == date);
    EXPECT_FALSE(exists("images/new.gif"));
    EXPECT_FALSE(exists("images/inner/new.gif"));
}

TEST_F(MapPanel, GivingTheDialogUpSavesNothing) {
    frmmap form;
    const auto files = [this] {
        return std::distance(std::filesystem::directory_iterator(path("")),
                             std::filesystem::directory_iterator());
    };
    const auto before = files();
    save_as(form, "");
    EXPECT_EQ(files(), before);
}

TEST_F(MapPanel, ASaveThatFailsShowsNoBoxAndSaysWhyInALineOfItsOwn) {
    frmmap form;
    EXPECT_EQ(caption(form, "lblsave"), QString());
    save_as(form, "no such folder/may.gif");
    EXPECT_FALSE(exists("no such folder"));
    const QString words = caption(form, "lblsave");
    EXPECT_TRUE(words.startsWith(QStringLiteral("Not saved"))) << words.toStdString();
    const QString whole = words + control(form, "lblsave").toolTip();
    EXPECT_TRUE(whole.contains(QStringLiteral("may.gif"))) << whole.toStdString();
    EXPECT_TRUE(whole.contains(QString::fromUtf8(std::strerror(ENOENT)))) << whole.toStdString();
    set_file_chooser(
        [](const QString&, const QString&) -> QString { throw std::runtime_error("no dialog"); });
    click(form, "cmdsave");
    EXPECT_TRUE(caption(form, "lblsave").contains(QStringLiteral("no dialog")));
    EXPECT_TRUE(messages.empty());
    save_as(form, "may.gif");
    EXPECT_TRUE(caption(form, "lblsave").startsWith(QStringLiteral("Saved")));
}

TEST_F(MapPanel, ASaveThatFailsLosesNoPicture) {
    frmmap form;
    save_as(form, "kept.gif");
    const std::string before = content("kept.gif");
    click(form, "cmddraw");
    answer({true, true});
    {
        const FullDisk full(4096);
        save_as(form, "kept.gif");
    }
    EXPECT_TRUE(content("kept.gif") == before);
    EXPECT_TRUE(caption(form, "lblsave").startsWith(QStringLiteral("Not saved")));
    save_as(form, "kept.gif");
    EXPECT_FALSE(content("kept.gif") == before);
}

TEST_F(MapPanel, ASaveDuringADrawKeepsThePaintedPart) {
    frmmap form;
    form.show();
    during_draw(form, 100, [&] { save_as(form, "part.gif"); });
    const QImage saved(QString::fromStdString(path("part.gif")), "GIF");
    const QColor red = colour_of(VisibilityClass::impossible);
    EXPECT_GT(count_near(saved.copy(0, 0, map_width / 3, map_height), red), 100);
    EXPECT_LT(count_near(saved.copy(map_width / 2, 0, map_width / 2, map_height), red), 10);
    EXPECT_EQ(points(form).size(), points_of(Criterion::vesk, CrescentKind::new_crescent, 0).size());
}

TEST_F(MapPanel, AMissingPictureOfTheWorldIsAFailureOfTheDraw) {
    remove("map.gif");
    frmmap form;
    EXPECT_ANY_THROW(form.cmddraw_click());
}

} // namespace
} // namespace halvane
