// SPDX-License-Identifier: MIT
#include "ephemeris/series.h"
#include "panel/panelstyle.h"
#include "panel/viewer.h"
#include "routines/seriesloader.h"
#include "stored/programfolder.h"
#include "tests/panel/everyform.h"
#include "tests/panel/panelchecks.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFocusEvent>
#include <QGroupBox>
#include <QHeaderView>
#include <QLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStyle>
#include <QTabWidget>
#include <algorithm>
#include <memory>
#include <utility>

// What holds of every window of the program, whoever made it.

namespace halvane {
namespace {

/// Every window by its name; a viewer by the file that it shows.
std::vector<std::string> window_names() {
    std::vector<std::string> names = form_names();
    names.insert(names.end(), {"results.out", "help.txt"});
    return names;
}

std::unique_ptr<QWidget> make_window(const std::string& name) {
    std::unique_ptr<QWidget> form = make_form(name);
    return form ? std::move(form)
                : std::make_unique<Viewer>(QString::fromStdString(program_path(name)), nullptr);
}

/// Shows the page that a control stands on.
void show_tab_of(QWidget& control) {
    for (QWidget* around = control.parentWidget(); around != nullptr; around = around->parentWidget())
        if (auto* tabs = qobject_cast<QTabWidget*>(around))
            for (int page = 0; page < tabs->count(); ++page)
                if (tabs->widget(page)->isAncestorOf(&control))
                    tabs->setCurrentIndex(page);
}

/// The controls of one kind that the user can get at now.
template <class Control>
QList<Control*> usable(QWidget& form) {
    QList<Control*> found;
    for (Control* control : form.findChildren<Control*>())
        if (control->isVisibleTo(&form) && control->isEnabled() && control->window() == &form &&
            (control->focusPolicy() & Qt::TabFocus) != 0)
            found << control;
    return found;
}

using WindowAndLanguage = std::tuple<std::string, Language>;

class EveryWindowTest : public PanelTest, public ::testing::WithParamInterface<WindowAndLanguage> {
protected:
    EveryWindowTest() {
        load_series();
        put_long_files();
        set_language(std::get<1>(GetParam()));
        window_ = make_window(std::get<0>(GetParam()));
        window_->show();
        QCoreApplication::processEvents();
    }

    QWidget& window() { return *window_; }

    /// From now on the buttons do nothing but write down their names.
    QStringList& pressed_buttons() {
        for (QAbstractButton* button : window_->findChildren<QAbstractButton*>()) {
            button->disconnect(SIGNAL(clicked(bool)));
            QObject::connect(button, &QAbstractButton::clicked,
                             [this, button] { pressed_ << button->objectName(); });
        }
        return pressed_;
    }

private:
    void put_long_files() {
        constexpr int many = 9000;
        std::string list;
        std::string report;
        for (int line = 0; line < many; ++line) {
            report += std::to_string(line) + " a line of a report\r\n";
            if (line < 300)
                list += "\"Place " + std::to_string(line) + "\",1,0,0,1,0,0,1,1,0,0,0,1010,10\r\n";
        }
        put("loc.txt", list);
        put("results.out", report);
        remove("help.txt");
        put("help.txt", report);
    }

    std::unique_ptr<QWidget> window_;
    QStringList pressed_;
};

TEST_P(EveryWindowTest, EveryScrollBarIsAsWideAsItsStyleMakesIt) {
    for (QAbstractScrollArea* area : window().findChildren<QAbstractScrollArea*>()) {
        if (area->window() != &window() || qobject_cast<QHeaderView*>(area) != nullptr)
            continue; // of a list that is not open; titles scroll with their table
        show_tab_of(*area);
        area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
        QCoreApplication::processEvents();
        const QScrollBar* const bar = area->verticalScrollBar();
        const int wanted = bar->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, bar);
        EXPECT_GT(wanted, 0);
        EXPECT_EQ(bar->width(), wanted) << area->objectName().toStdString();
        EXPECT_TRUE(area->rect().contains(bar->rect().translated(bar->mapTo(area, QPoint()))))
            << area->objectName().toStdString();
    }
}

TEST_P(EveryWindowTest, EnterAndSpaceDoWhatTheFocusedButtonSays) {
    QStringList& pressed = pressed_buttons();
    for (QPushButton* button : usable<QPushButton>(window()))
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
            button->setFocus(Qt::TabFocusReason);
            pressed.clear();
            QTest::keyClick(button, key);
            EXPECT_EQ(pressed, QStringList{button->objectName()})
                << "key " << key << " on " << button->objectName().toStdString();
        }
}

TEST_P(EveryWindowTest, EnterInABoxListOrOptionIsTheDefaultButton) {
    if (qobject_cast<QDialog*>(&window()) == nullptr)
        return; // a window without a default button
    QStringList wanted;
    for (const QPushButton* button : usable<QPushButton>(window()))
        if (button->isDefault())
            wanted << button->objectName();
    QStringList& pressed = pressed_buttons();
    QList<QWidget*> inputs;
    for (QLineEdit* box : usable<QLineEdit>(window()))
        if (box->objectName() != QStringLiteral("txtfind"))
            inputs << box;
    for (QComboBox* list : usable<QComboBox>(window()))
        inputs << list;
    for (QRadioButton* option : usable<QRadioButton>(window()))
        inputs << option;
    for (QCheckBox* box : usable<QCheckBox>(window()))
        inputs << box;
    for (QWidget* input : inputs) {
        EXPECT_EQ(wanted.size(), 1);
        input->setFocus(Qt::TabFocusReason);
        pressed.clear();
        QTest::keyClick(input, Qt::Key_Return);
        EXPECT_EQ(pressed, wanted) << input->objectName().toStdString();
    }
}

/// The boxes of the window that take a number: all but the name of a place and the searches.
QList<QLineEdit*> number_boxes(QWidget& window) {
    QList<QLineEdit*> boxes;
    for (QLineEdit* box : window.findChildren<QLineEdit*>())
        if (box->objectName().startsWith(QStringLiteral("txt")) &&
            box->objectName() != QStringLiteral("txtname") && box->objectName() != QStringLiteral("txtfind"))
            boxes << box;
    return boxes;
}

void leave(QLineEdit& box) {
    QFocusEvent event(QEvent::FocusOut, Qt::TabFocusReason);
    QApplication::sendEvent(&box, &event);
}

/// The marks that stand in a box.
qsizetype signs_of(const QLineEdit& box) {
    const QList<QAction*> actions = box.actions();
    return std::count_if(actions.begin(), actions.end(),
                         [](const QAction* action) { return action->isVisible(); });
}

TEST_P(EveryWindowTest, ANumberBoxTakesArabicDigitsAndADecimalComma) {
    for (QLineEdit* box : number_boxes(window()))
        for (const auto& [typed, stored] :
             {std::pair{"٣", "3"}, {"۴۵", "45"}, {"٦٫٧", "6.7"}, {"-٨", "-8"}, {"9,5", "9.5"}}) {
            box->setText(QString::fromUtf8(typed));
            leave(*box);
            EXPECT_EQ(box->text(), QString::fromUtf8(stored)) << box->objectName().toStdString();
            EXPECT_EQ(box->accessibleDescription(), QString()) << box->objectName().toStdString();
        }
}

TEST_P(EveryWindowTest, ATextThatIsNoNumberIsMarkedUntilItIsOne) {
    for (QLineEdit* box : number_boxes(window())) {
        const QString tip = box->toolTip();
        box->setText(QStringLiteral("a"));
        leave(*box);
        EXPECT_EQ(signs_of(*box), 1) << box->objectName().toStdString();
        EXPECT_FALSE(box->accessibleDescription().isEmpty()) << box->objectName().toStdString();
        EXPECT_NE(box->toolTip(), tip) << box->objectName().toStdString();
        EXPECT_EQ(box->text(), QStringLiteral("a"));
        leave(*box);
        EXPECT_EQ(signs_of(*box), 1) << box->objectName().toStdString();
        box->setText(QStringLiteral("4"));
        EXPECT_EQ(signs_of(*box), 0) << box->objectName().toStdString();
        EXPECT_EQ(box->accessibleDescription(), QString());
        EXPECT_EQ(box->toolTip(), tip);
    }
}

/// The windows whose pictures or texts take all the room that there is.
bool grows(const QWidget& window) {
    static const QStringList growing{QStringLiteral("frmmap"),       QStringLiteral("frmqmap"),
                                     QStringLiteral("frmqib"),       QStringLiteral("frmtele"),
                                     QStringLiteral("frmtimetable"), QStringLiteral("frmmonths"),
                                     QStringLiteral("viewer")};
    return growing.contains(window.objectName());
}

TEST_P(EveryWindowTest, AMaximisedPanelKeepsItsGroupsTogether) {
    if (grows(window()))
        return;
    const auto places = [this] {
        QList<QPoint> all;
        const QList<QGroupBox*> groups = window().findChildren<QGroupBox*>();
        for (const QGroupBox* group : groups)
            all << group->mapTo(&window(), QPoint()) - groups.front()->mapTo(&window(), QPoint());
        return all;
    };
    const QList<QPoint> before = places();
    window().resize(1900, 1000);
    QCoreApplication::processEvents();
    const QList<QPoint> after = places();
    const int unit = space_unit(window());
    for (qsizetype group = 0; group < before.size(); ++group) {
        EXPECT_NEAR(after[group].x(), before[group].x(), unit);
        EXPECT_NEAR(after[group].y(), before[group].y(), unit);
    }
}

INSTANTIATE_TEST_SUITE_P(Windows, EveryWindowTest,
                         ::testing::Combine(::testing::ValuesIn(window_names()),
                                            ::testing::ValuesIn(languages)),
                         [](const ::testing::TestParamInfo<WindowAndLanguage>& row) {
                             std::string name = std::get<0>(row.param);
                             std::replace(name.begin(), name.end(), '.', '_');
                             return name +
                                    (std::get<1>(row.param) == Language::english ? "English" : "Arabic");
                         });

class StyledWindowsTest : public PanelTest {};

/// The margins and gaps of all layouts within `form`.
QStringList spacing_of(QWidget& form) {
    QStringList all;
    for (const QLayout* layout : form.findChildren<QLayout*>()) {
        const QMargins margins = layout->contentsMargins();
        all << QStringLiteral("%1: %2 %3 %4 %5, %6")
                   .arg(layout->objectName())
                   .arg(margins.left())
                   .arg(margins.top())
                   .arg(margins.right())
                   .arg(margins.bottom())
                   .arg(layout->spacing());
    }
    return all;
}

TEST_F(StyledWindowsTest, StylingTheMainPanelLeavesAnOpenPanelAsItIs) {
    frmmain main_panel(panels());
    main_panel.load();
    main_panel.show();
    for (const Panel& panel : panels()) {
        const std::unique_ptr<QDialog> form(panel.make(&main_panel));
        form->show();
        QCoreApplication::processEvents();
        const QStringList before = spacing_of(*form);
        set_spacing(main_panel);
        EXPECT_EQ(spacing_of(*form), before) << panel.form;
    }
}

} // namespace
} // namespace halvane
