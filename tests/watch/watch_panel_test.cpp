// SPDX-License-Identifier: MIT
#include "panel/messages.h"
#include "routines/seriesloader.h"
#include "stored/loclist.h"
#include "tests/panel/panelchecks.h"
#include "tests/support/places.h"
#include "timetable/pageprinter.h"
#include "timetable/paperview.h"
#include "watch/frmwatch.h"
#include "watch/watchcsv.h"
#include "watch/watchpainter.h"

#include <QComboBox>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QPrinter>

namespace halvane {
namespace {

// The clock of the tests shows 21 June 2024, the place is Amman. The conjunctions near it are those of 6 June
// and of 5 July 2024 (Astronomical Almanac).

class WatchPanelTest : public PanelTest {
protected:
    WatchPanelTest() {
        load_series();
        set_file_chooser([this](const QString& /*title*/, const QString& proposed) {
            proposed_name = proposed;
            return chosen_file;
        });
    }
    ~WatchPanelTest() override { set_file_chooser({}); }

    static void settle(const frmwatch& form) {
        ASSERT_TRUE(QTest::qWaitFor([&form] { return form.is_settled(); }, 60000));
    }
    static int pages(QWidget& form) { return control<PaperView>(form, "preview").pages(); }
    static QString state(QWidget& form) { return caption(form, "lblstate"); }

    /// The evening after the conjunction of 6 July 2024.
    static void show_july(frmwatch& form) {
        form.choose(CrescentKind::new_crescent, DateNumbers{2024, 7, 6});
    }

    std::string saved_as(frmwatch& form, const std::string& name) {
        chosen_file = QString::fromStdString(path(name));
        click(form, "cmdsave");
        return exists(name) ? content(name) : std::string();
    }

    QString proposed_name;
    QString chosen_file;
};

TEST_F(WatchPanelTest, SpeaksBothLanguages) {
    in_both_languages<frmwatch>([](frmwatch& form, Language language) {
        expect_captions(form, frmwatch_twins(), language);
        show_july(form);
        expect_usable(form);
    });
}

TEST_F(WatchPanelTest, OpensWithTodayAndTellsThatTheMoonIsNoCrescent) {
    frmwatch form;
    EXPECT_EQ(chosen(form, "cboday"), QStringLiteral("21"));
    EXPECT_EQ(chosen(form, "cbomonth"), QStringLiteral("June"));
    EXPECT_EQ(text(form, "txtyear"), QStringLiteral("2024"));
    EXPECT_TRUE(checked(form, "optnew"));
    EXPECT_TRUE(checked(form, "optstored"));
    EXPECT_EQ(form.watch(), nullptr);
    EXPECT_EQ(pages(form), 0);
    EXPECT_TRUE(state(form).contains(QStringLiteral("the Moon is no crescent"))) << state(form).toStdString();
}

TEST_F(WatchPanelTest, ShowsTheChosenDay) {
    frmwatch form;
    show_july(form);
    ASSERT_NE(form.watch(), nullptr);
    EXPECT_EQ(pages(form), 1);
    EXPECT_TRUE(state(form).isEmpty());
    EXPECT_GT(form.watch()->lag().value(), 0);
    const double before = form.watch()->settings.day;
    click(form, "cmdafter");
    EXPECT_EQ(form.watch()->settings.day, before + 1);
    EXPECT_EQ(chosen(form, "cboday"), QStringLiteral("7"));
    click(form, "cmdbefore");
    click(form, "cmdbefore");
    EXPECT_EQ(form.watch()->settings.day, before - 1);
}

TEST_F(WatchPanelTest, FollowsEachChoice) {
    add_location(place_at({39, 50}, {21, 26}, 3, "Makkah"));
    frmwatch form;
    form.choose(CrescentKind::new_crescent, DateNumbers{2024, 7, 4});
    click(form, "optold");
    settle(form);
    ASSERT_NE(form.watch(), nullptr);
    EXPECT_FALSE(form.watch()->is_new());
    click(form, "optlisted");
    control<QComboBox>(form, "cboplace").setEditText(QStringLiteral("Makkah"));
    settle(form);
    ASSERT_NE(form.watch(), nullptr) << state(form).toStdString();
    EXPECT_EQ(form.watch()->settings.place.location.name, "Makkah");
    control<QComboBox>(form, "cboplace").setEditText(QStringLiteral("Nowhere"));
    settle(form);
    EXPECT_EQ(form.watch(), nullptr);
    EXPECT_TRUE(state(form).contains(QStringLiteral("Nowhere")));
    click(form, "optstored");
    settle(form);
    EXPECT_NE(form.watch(), nullptr);
    choose(form, "cboday", QStringLiteral("31"));
    choose(form, "cbomonth", QStringLiteral("February"));
    settle(form);
    EXPECT_EQ(form.watch(), nullptr);
    EXPECT_EQ(pages(form), 0);
}

TEST_F(WatchPanelTest, SavesWhatTheEndingSays) {
    frmwatch form;
    show_july(form);
    EXPECT_EQ(saved_as(form, "sheet.csv"), csv_of(*form.watch()));
    EXPECT_EQ(proposed_name, QStringLiteral("watch-Amman-2024-07-06.pdf"));
    EXPECT_TRUE(state(form).contains(QStringLiteral("sheet.csv")));
    saved_as(form, "sheet.png");
    EXPECT_EQ(QImage(QString::fromStdString(path("sheet.png"))).width(), usual_picture_width);
    EXPECT_TRUE(saved_as(form, "sheet.pdf").starts_with("%PDF-"));
    EXPECT_TRUE(saved_as(form, "sheet").starts_with("%PDF-"));
    EXPECT_TRUE(messages.empty());
}

TEST_F(WatchPanelTest, TellsAFailedSave) {
    frmwatch form;
    show_july(form);
    chosen_file = QString::fromStdString(path("none/sheet.pdf"));
    click(form, "cmdsave");
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_TRUE(messages[0].text.contains(QStringLiteral("sheet.pdf")));
}

TEST_F(WatchPanelTest, SavesNothingWithoutASheet) {
    frmwatch form;
    EXPECT_EQ(saved_as(form, "sheet.pdf"), "");
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_TRUE(messages[0].text.contains(QStringLiteral("no crescent")));
}

TEST_F(WatchPanelTest, APrinterTakesThePages) {
    frmwatch form;
    show_july(form);
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(path("printed.pdf")));
    set_paper(printer, PaperSize::letter);
    const auto watch = std::make_shared<const CrescentWatch>(*form.watch());
    ASSERT_TRUE(print_pages(printer, painted_pages(watch, {Language::english, PaperSize::letter})));
    QFile file(printer.outputFileName());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().count("/Type /Page\n"), 1);
}

TEST_F(WatchPanelTest, TurnsThePagesOfALongWatch) {
    frmwatch form;
    form.choose(CrescentKind::new_crescent, DateNumbers{2024, 7, 11});
    ASSERT_GT(pages(form), 1);
    EXPECT_FALSE(enabled(form, "cmdprevious"));
    click(form, "cmdnext");
    EXPECT_EQ(caption(form, "lblpage"), QStringLiteral("Page 2 of %1").arg(pages(form)));
    click(form, "cmdprevious");
    EXPECT_EQ(control<PaperView>(form, "preview").page(), 0);
}

TEST_F(WatchPanelTest, ShowsThePageInTheChosenLanguageAndPaper) {
    frmwatch form;
    show_july(form);
    PaperView& preview = control<PaperView>(form, "preview");
    const int a4 = preview.heightForWidth(1000);
    const QImage english = preview.grab().toImage();
    control<QComboBox>(form, "cbolanguage").setCurrentIndex(1);
    settle(form);
    EXPECT_NE(preview.grab().toImage(), english);
    choose(form, "cbopaper", QStringLiteral("Letter"));
    settle(form);
    EXPECT_LT(preview.heightForWidth(1000), a4);
}

} // namespace
} // namespace halvane
