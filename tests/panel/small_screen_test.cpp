// SPDX-License-Identifier: MIT
#include "ephemeris/series.h"
#include "panel/panelstyle.h"
#include "routines/seriesloader.h"
#include "tests/panel/everyform.h"
#include "tests/panel/panelchecks.h"

#include <QApplication>
#include <QLabel>
#include <QLayout>
#include <QLocale>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QTemporaryFile>
#include <QTest>
#include <memory>

// Every form on the smallest screen that it must serve: 1920 x 1080 at a scale of 2.

namespace halvane {
namespace {

constexpr int screen_width = 960;  // [device independent pixels]
constexpr int screen_height = 540; // [device independent pixels]
constexpr int layout_wait = 5000;  // [ms]
constexpr int window_frame = 36;   // of a desktop's title bar [device independent pixels]

using FormAndLanguage = std::tuple<std::string, Language>;

class SmallScreenTest : public PanelTest, public ::testing::WithParamInterface<FormAndLanguage> {
protected:
    SmallScreenTest() {
        load_series();
        set_language(std::get<1>(GetParam()));
        form_ = make_form(std::get<0>(GetParam()));
        form_->show();
        QCoreApplication::processEvents();
    }
    QWidget& form() { return *form_; }

private:
    std::unique_ptr<QWidget> form_;
};

TEST_P(SmallScreenTest, TheScreenIsTheSmallOne) {
    EXPECT_EQ(form().screen()->size(), QSize(screen_width, screen_height));
}

TEST_P(SmallScreenTest, TheWindowHasRoomOnTheScreen) {
    EXPECT_LE(form().width(), screen_width);
    EXPECT_LE(form().height(), screen_height - window_frame);
}

TEST_P(SmallScreenTest, NoTextIsCut) {
    EXPECT_EQ(cut_texts(form()), QStringList());
}

TEST_P(SmallScreenTest, TheLastRowOfButtonsNeverScrolls) {
    const std::string& name = std::get<0>(GetParam());
    if (name == "frmmain" || name == "frmmap")
        GTEST_SKIP() << "its buttons stand in the page";
    const auto* const row = form().findChild<QLayout*>(QStringLiteral("buttonrow"));
    ASSERT_NE(row, nullptr);
    for (int item = 0; item < row->count(); ++item) {
        const QWidget* const button = row->itemAt(item)->widget();
        if (button == nullptr || !button->isVisibleTo(&form()))
            continue;
        EXPECT_EQ(button->visibleRegion().boundingRect(), button->rect())
            << button->objectName().toStdString();
    }
}

TEST_P(SmallScreenTest, TheFocusShowsItsControlWhole) {
    form().activateWindow();
    for (QWidget* control : form().findChildren<QWidget*>()) {
        const bool takes_focus = (control->focusPolicy() & Qt::TabFocus) != 0 && control->isEnabled() &&
                                 control->isVisibleTo(&form()) && control->window() == &form();
        if (!takes_focus)
            continue;
        control->setFocus(Qt::TabFocusReason);
        QCoreApplication::processEvents();
        // A form that calculates may be laying out the words that just came.
        static_cast<void>(
            QTest::qWaitFor([control] { return !control->visibleRegion().isEmpty(); }, layout_wait));
        const QRect place(control->mapTo(&form(), QPoint()), control->size());
        EXPECT_TRUE(form().rect().contains(place))
            << control->objectName().toStdString() << " at " << place.x() << ' ' << place.y() << ", "
            << place.width() << " x " << place.height();
        EXPECT_FALSE(control->visibleRegion().isEmpty()) << control->objectName().toStdString();
    }
}

TEST_P(SmallScreenTest, EveryTextCanBeScrolledTo) {
    for (QWidget* control : form().findChildren<QWidget*>()) {
        const bool has_text =
            qobject_cast<QLabel*>(control) != nullptr || qobject_cast<QAbstractButton*>(control) != nullptr;
        if (!has_text || !control->isVisibleTo(&form()))
            continue;
        for (QWidget* around = control->parentWidget(); around != nullptr; around = around->parentWidget())
            if (auto* area = qobject_cast<QScrollArea*>(around))
                area->ensureWidgetVisible(control, 0, 0);
        const QRect place(control->mapTo(&form(), QPoint()), control->size());
        EXPECT_TRUE(form().rect().contains(place)) << control->objectName().toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Forms, SmallScreenTest,
                         ::testing::Combine(::testing::ValuesIn(form_names()),
                                            ::testing::ValuesIn(languages)),
                         [](const ::testing::TestParamInfo<FormAndLanguage>& row) {
                             return std::get<0>(row.param) +
                                    (std::get<1>(row.param) == Language::english ? "English" : "Arabic");
                         });

/// Writes the description of the screen that the platform reads.
void describe_screen(QTemporaryFile& file) {
    file.open();
    file.write(QStringLiteral("{\"synchronousWindowSystemEvents\":false,\"windowFrameMargins\":false,"
                              "\"screens\":[{\"name\":\"small\",\"x\":0,\"y\":0,\"width\":%1,\"height\":%2,"
                              "\"logicalDpi\":96,\"logicalBaseDpi\":96,\"dpr\":1}]}")
                   .arg(screen_width)
                   .arg(screen_height)
                   .toUtf8());
    file.flush();
}

} // namespace
} // namespace halvane

int main(int count, char** words) {
    QTemporaryFile screen;
    halvane::describe_screen(screen);
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screen.fileName().toUtf8());
    qputenv("QT_STYLE_OVERRIDE", "Fusion");
    QApplication application(count, words);
    halvane::use_halvane_look();
    halvane::use_halvane_keys();
    halvane::handle_events_while_waiting();
    QLocale::setDefault(QLocale::c());
    ::testing::InitGoogleTest(&count, words);
    return RUN_ALL_TESTS();
}
