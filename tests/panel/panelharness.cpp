// SPDX-License-Identifier: MIT
#include "tests/panel/panelharness.h"

#include "panel/messages.h"
#include "panel/panelsupport.h"
#include "routines/machineclock.h"
#include "stored/alert.h"
#include "stored/coor.h"
#include "stored/date.h"
#include "stored/loc.h"
#include "stored/loclist.h"
#include "stored/phase.h"
#include "stored/pref.h"
#include "stored/programfolder.h"
#include "stored/tele.h"
#include "stored/textfile.h"
#include "stored/visib.h"
#include "tests/support/places.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMap>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <filesystem>
#include <ostream>

void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace halvane {

void PrintTo(const ControlText& twin, std::ostream* out) {
    *out << twin.control;
}

namespace {

namespace fs = std::filesystem;

Location amman() {
    Location location = place_at({35, 56}, {31, 57}, 2, "Amman");
    location.elevation = 1000;
    return location;
}

Location sydney() {
    Location location = place_at({151, 12}, {-33, 52}, 10, "Sydney");
    location.elevation = 39;
    return location;
}

void write_fresh_files() {
    write_pref(Preferences{});
    write_loc(amman());
    write_date(CalculationDate{});
    write_alert(AlertSettings{});
    write_phase(PhaseSettings{});
    write_visib(CrescentSettings{});
    write_coor(EphemerisSettings{});
    write_tele(TelescopeSettings{});
    save_text_file(program_path("loc.txt"), "");
    add_location(sydney());
    add_location(amman());
}

QWidget& form_or_control(QWidget& form, const QString& name) {
    if (name.isEmpty() || name == form.objectName())
        return form;
    auto* found = form.findChild<QWidget*>(name);
    return found != nullptr ? *found : form;
}

QString caption_of(QWidget& widget) {
    if (auto* label = qobject_cast<QLabel*>(&widget))
        return label->text();
    if (auto* button = qobject_cast<QAbstractButton*>(&widget))
        return button->text();
    if (auto* frame = qobject_cast<QGroupBox*>(&widget))
        return frame->title();
    return widget.windowTitle();
}

bool takes_input(QWidget* widget) {
    return qobject_cast<QLineEdit*>(widget) != nullptr || qobject_cast<QComboBox*>(widget) != nullptr ||
           qobject_cast<QAbstractButton*>(widget) != nullptr ||
           qobject_cast<QAbstractItemView*>(widget) != nullptr;
}

/// Controls that a part of another widget makes for itself have names of Qt or none.
bool is_own(QWidget* widget) {
    return !widget->objectName().isEmpty() && !widget->objectName().startsWith(QLatin1String("qt_"));
}

bool is_operable(QWidget& form, QWidget* widget) {
    return takes_input(widget) && is_own(widget) && widget->isVisibleTo(&form) && widget->isEnabled();
}

QString plain(QString text) {
    return text.remove(u'&');
}

} // namespace

std::string RecordingPlatform::short_time(int hour, int minute, int) {
    return QStringLiteral("%1:%2")
        .arg(hour, 2, 10, QLatin1Char('0'))
        .arg(minute, 2, 10, QLatin1Char('0'))
        .toStdString();
}

QWidget* open_window(const char* name) {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->objectName() == QLatin1String(name))
            return window;
    return nullptr;
}

QString caption(QWidget& form, const char* name) {
    return caption_of(form_or_control(form, QString::fromLatin1(name)));
}

void click(QWidget& form, const char* name) {
    auto& button = control<QAbstractButton>(form, name);
    ASSERT_TRUE(button.isEnabled()) << name;
    // An option or box reacts within its indicator and text only.
    const bool option =
        qobject_cast<QRadioButton*>(&button) != nullptr || qobject_cast<QCheckBox*>(&button) != nullptr;
    const int from_edge = button.height() / 2;
    const int x =
        option ? (button.isRightToLeft() ? button.width() - from_edge : from_edge) : button.width() / 2;
    QTest::mouseClick(&button, Qt::LeftButton, Qt::NoModifier, QPoint(x, button.height() / 2));
}

namespace {

/// QTest knows the keys of Latin letters only.
void type(QWidget& box, QChar character) {
    if (character.unicode() < 0x80) {
        QTest::keyClicks(&box, character);
        return;
    }
    for (const QEvent::Type part : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(part, Qt::Key_unknown, Qt::NoModifier, character);
        QApplication::sendEvent(&box, &event);
    }
}

} // namespace

void enter(QWidget& form, const char* name, const QString& text) {
    auto& box = control<QLineEdit>(form, name);
    ASSERT_TRUE(box.isEnabled()) << name;
    box.selectAll();
    QTest::keyClick(&box, Qt::Key_Delete);
    for (const QChar character : text)
        type(box, character);
}

void choose(QWidget& form, const char* name, const QString& text) {
    auto* widget = form.findChild<QWidget*>(QString::fromLatin1(name));
    ASSERT_NE(widget, nullptr) << name;
    ASSERT_TRUE(widget->isEnabled()) << name;
    if (auto* list = qobject_cast<QComboBox*>(widget)) {
        const int row = list->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
        ASSERT_GE(row, 0) << name << " has no " << text.toStdString();
        list->setCurrentIndex(row);
        emit list->activated(row);
    } else {
        auto* box = qobject_cast<QListWidget*>(widget);
        ASSERT_NE(box, nullptr) << name << " is no list";
        const QList<QListWidgetItem*> found = box->findItems(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
        ASSERT_FALSE(found.isEmpty()) << name << " has no " << text.toStdString();
        QTest::mouseClick(box->viewport(), Qt::LeftButton, Qt::NoModifier,
                          box->visualItemRect(found[0]).center());
        box->setCurrentItem(found[0]);
    }
}

QString text(QWidget& form, const char* name) {
    return control<QLineEdit>(form, name).text();
}

QString chosen(QWidget& form, const char* name) {
    return control<QComboBox>(form, name).currentText();
}

QStringList entries(QWidget& form, const char* name) {
    const auto& list = control<QComboBox>(form, name);
    QStringList texts;
    for (int row = 0; row < list.count(); ++row)
        texts << list.itemText(row);
    return texts;
}

bool enabled(QWidget& form, const char* name) {
    return control(form, name).isEnabled();
}

void focus(QWidget& form, const char* name) {
    QFocusEvent event(QEvent::FocusIn, Qt::TabFocusReason);
    QApplication::sendEvent(&control(form, name), &event);
}

QStringList wrong_captions(QWidget& form, std::span<const ControlText> twins, Language language) {
    QStringList wrong;
    for (const ControlText& twin : twins) {
        const QStringList target = QString::fromLatin1(twin.control).split(u'@');
        const bool is_form = target[0].isEmpty() || target[0] == form.objectName();
        if (!is_form && form.findChild<QWidget*>(target[0]) == nullptr) {
            wrong << target[0] + QStringLiteral(": missing");
            continue;
        }
        QWidget& widget = form_or_control(form, target[0]);
        const QString shown = target.size() == 1                     ? caption_of(widget)
                              : target[1] == QLatin1String("spoken") ? widget.accessibleName()
                                                                     : widget.toolTip();
        if (shown != text_of(twin.text, language))
            wrong << QString::fromLatin1(twin.control) + QStringLiteral(": \"") + shown + u'"';
    }
    return wrong;
}

QStringList nameless_controls(QWidget& form) {
    QStringList nameless;
    for (QWidget* widget : form.findChildren<QWidget*>()) {
        if (!takes_input(widget) || !is_own(widget))
            continue;
        QAccessibleInterface* face = QAccessible::queryAccessibleInterface(widget);
        if (face == nullptr || face->text(QAccessible::Name).trimmed().isEmpty())
            nameless << widget->objectName();
    }
    return nameless;
}

QStringList unreachable_controls(QWidget& form) {
    QStringList unreachable;
    for (QWidget* widget : form.findChildren<QWidget*>())
        if (is_operable(form, widget) && (widget->focusPolicy() & Qt::TabFocus) == 0)
            unreachable << widget->objectName();
    return unreachable;
}

QStringList tab_order(QWidget& form) {
    QStringList order;
    for (QWidget* next = form.nextInFocusChain(); next != &form; next = next->nextInFocusChain())
        if (form.isAncestorOf(next) && takes_input(next) && is_own(next) &&
            (next->focusPolicy() & Qt::TabFocus) != 0)
            order << next->objectName();
    return order;
}

QStringList shared_access_keys(QWidget& form) {
    QMap<QString, QStringList> owners;
    for (QWidget* widget : form.findChildren<QWidget*>()) {
        auto* label = qobject_cast<QLabel*>(widget);
        if (!widget->isVisibleTo(&form) || (label != nullptr && label->buddy() == nullptr))
            continue;
        const QKeySequence key = QKeySequence::mnemonic(caption_of(*widget));
        if (!key.isEmpty())
            owners[key.toString()] << widget->objectName();
    }
    QStringList shared;
    for (auto entry = owners.cbegin(); entry != owners.cend(); ++entry)
        if (entry.value().size() > 1)
            shared << entry.key() + QStringLiteral(": ") + entry.value().join(u' ');
    return shared;
}

namespace {

/// The room that the text of a label or button needs.
QSize needed_room(QWidget& widget) {
    if (auto* label = qobject_cast<QLabel*>(&widget); label != nullptr && label->wordWrap())
        return {0, label->heightForWidth(label->width())};
    if (auto* button = qobject_cast<QPushButton*>(&widget))
        return button->fontMetrics().size(Qt::TextShowMnemonic, button->text());
    return widget.minimumSizeHint();
}

QStringList cut_texts_now(QWidget& form) {
    QStringList cut;
    for (QWidget* widget : form.findChildren<QWidget*>()) {
        const bool has_text =
            qobject_cast<QLabel*>(widget) != nullptr || qobject_cast<QAbstractButton*>(widget) != nullptr;
        if (!has_text || !widget->isVisibleTo(&form) || !is_own(widget))
            continue;
        const QSize needed = needed_room(*widget);
        if (widget->width() < needed.width() || widget->height() < needed.height())
            cut << widget->objectName();
    }
    return cut;
}

} // namespace

QStringList cut_texts(QWidget& form) {
    constexpr int layout_wait = 5000; // [ms]
    static_cast<void>(QTest::qWaitFor([&form] { return cut_texts_now(form).isEmpty(); }, layout_wait));
    return cut_texts_now(form);
}

PanelTest::PanelTest() {
    for (const char* name : {"help.txt", "map.gif"})
        fs::create_symlink(delivered(name), folder_ / name);
    write_fresh_files();
    set_machine_time({2024, 6, 21, 15, 7, 0});
    set_machine_zone(2);
    set_platform(&platform_double);
    set_message_presenter([this](QMessageBox& box) { return present(box); });
    set_main_panel_reload([this] { ++main_panel_reloads; });
}

PanelTest::~PanelTest() {
    for (QWidget* window : QApplication::topLevelWidgets())
        window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    set_main_panel_reload({});
    set_message_presenter({});
    set_platform(nullptr);
    use_machine_clock();
    use_standard_texts(Language::english);
}

void PanelTest::set_language(Language language) {
    Preferences preferences = read_pref();
    preferences.set_language(language);
    write_pref(preferences);
}

void PanelTest::set_period(DateNumbers start, DateNumbers end) {
    CalculationDate date;
    date.system_date = false;
    date.period = true;
    date.start = start;
    date.end = end;
    write_date(date);
}

void PanelTest::during_run(int pass, const std::function<void()>& action) {
    auto* timer = new QTimer(&timers_);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, left = pass, action]() mutable {
        QWidget* wait = open_window("frmwait");
        if (wait == nullptr || caption(*wait, "lblpro1") == QStringLiteral("0") || --left > 0)
            return;
        timer->stop();
        action();
    });
    timer->start(0);
}

std::string PanelTest::path(const std::string& name) const {
    return (folder_ / name).string();
}

std::string PanelTest::content(const std::string& name) const {
    return read_text_file(path(name));
}

void PanelTest::put(const std::string& name, const std::string& content) const {
    save_text_file(path(name), content);
}

void PanelTest::remove(const std::string& name) const {
    fs::remove(path(name));
}

bool PanelTest::exists(const std::string& name) const {
    return fs::exists(path(name));
}

bool PanelTest::present(QMessageBox& box) {
    SeenMessage seen;
    seen.title = box.windowTitle();
    seen.text = box.text();
    seen.informative_text = box.informativeText();
    seen.exclamation = box.icon() == QMessageBox::Warning;
    for (QAbstractButton* button : box.buttons())
        seen.buttons << plain(button->text());
    if (const QPushButton* button = box.defaultButton())
        seen.of_enter = plain(button->text());
    seen.direction = box.layoutDirection();
    messages.push_back(seen);
    if (answers_.empty())
        return box.standardButtons() == QMessageBox::Ok;
    const bool answer = answers_.front();
    answers_.pop_front();
    return answer;
}

} // namespace halvane
