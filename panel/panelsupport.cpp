// SPDX-License-Identifier: MIT
#include "panel/panelsupport.h"

#include "routines/waitseconds.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalBlocker>
#include <QThread>
#include <utility>

namespace halvane {

namespace {

/// Selects the text of the box it watches. A click sets the cursor after the focus has come, so the selection
/// is made once more when the button is released without a drag.
class WholeTextSelector : public QObject {
public:
    explicit WholeTextSelector(QLineEdit& box) : QObject(&box), box_(box) { box.installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::FocusIn) {
            box_.selectAll();
            clicked_in_ = static_cast<QFocusEvent*>(event)->reason() == Qt::MouseFocusReason;
        } else if (event->type() == QEvent::MouseButtonRelease && std::exchange(clicked_in_, false) &&
                   !box_.hasSelectedText()) {
            QMetaObject::invokeMethod(&box_, &QLineEdit::selectAll, Qt::QueuedConnection);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QLineEdit& box_;
    bool clicked_in_ = false;
};

/// Qt gives Enter on a button of a window that is no dialog to nobody.
class FocusedButtonKeys : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress)
            return false;
        const auto* const key = static_cast<QKeyEvent*>(event);
        auto* const button = qobject_cast<QPushButton*>(watched);
        if (button == nullptr || (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter))
            return false;
        if (!key->isAutoRepeat())
            button->click();
        return true;
    }
};

/// Whether `window` is `other`, or was opened by it, at however many removes.
bool comes_from(const QWidget* window, const QWidget* other) {
    while (window != nullptr && window != other)
        window = window->parentWidget();
    return window != nullptr;
}

/// Whether a modal dialog stands between the user and a window. A window-modal one keeps only those waiting
/// that share an owner with it; a report, which has none, goes on.
bool is_blocked(const QWidget* window) {
    const QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr || comes_from(window, modal))
        return false;
    if (modal->windowModality() != Qt::WindowModal)
        return true;
    for (const QWidget* owner = modal->parentWidget(); owner != nullptr; owner = owner->parentWidget())
        if (comes_from(window, owner))
            return true;
    return false;
}

/// The end of a key's click comes as a timer's event. A button that the user cannot reach any more takes it
/// in silence.
class LateClickSilencer : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Timer)
            return false;
        auto* button = qobject_cast<QAbstractButton*>(watched);
        if (button == nullptr ||
            (button->isVisible() && button->isEnabled() && !is_blocked(button->window())))
            return false;
        const QSignalBlocker silence(button);
        watched->event(event);
        return true;
    }
};

void handle_pending_events() {
    constexpr unsigned long pause = 2; // [ms]
    QCoreApplication::processEvents();
    QThread::msleep(pause);
}

std::function<void()>& main_panel_reload() {
    static std::function<void()> current;
    return current;
}

QWidget* open_form(const char* name) {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->objectName() == QLatin1String(name) && window->isVisible())
            return window;
    return nullptr;
}

} // namespace

void silence_late_clicks() {
    qApp->installEventFilter(new LateClickSilencer(qApp));
}

void select_whole_text_on_focus(QWidget& form) {
    for (QLineEdit* box : form.findChildren<QLineEdit*>())
        new WholeTextSelector(*box);
}

void open_panel(const Panel& panel, QWidget* owner) {
    if (QWidget* open = open_form(panel.form)) {
        open->raise();
        open->activateWindow();
        return;
    }
    QPointer<QDialog> form = panel.make(owner);
    if (panel.modal) {
        // The panels of the program wait; reports and the progress window, which have no owner, do not.
        form->setWindowModality(Qt::WindowModal);
        form->exec();
        delete form.data();
    } else {
        form->setAttribute(Qt::WA_DeleteOnClose);
        form->show();
    }
}

void use_halvane_keys() {
    qApp->installEventFilter(new FocusedButtonKeys(qApp));
}

void handle_events_while_waiting() {
    set_pending_events_handler(handle_pending_events);
}

void reload_main_panel() {
    if (main_panel_reload())
        main_panel_reload()();
}

void set_main_panel_reload(std::function<void()> reload) {
    main_panel_reload() = std::move(reload);
}

} // namespace halvane
