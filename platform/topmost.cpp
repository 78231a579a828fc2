// SPDX-License-Identifier: MIT
#include "platform/topmost.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>
#include <QWindow>
#include <algorithm>

namespace halvane {

namespace {

void set_on_top(QWidget& window, bool on_top) {
    if (window.windowHandle() != nullptr)
        window.windowHandle()->setFlag(Qt::WindowStaysOnTopHint, on_top);
}

bool is_panel_or_box(const QWidget& widget) {
    return widget.windowType() == Qt::Window || widget.windowType() == Qt::Dialog;
}

} // namespace

void TopMost::keep(QWidget& panel, bool on_top) {
    if (panels_.isEmpty())
        QCoreApplication::instance()->installEventFilter(this);
    panels_.removeAll(nullptr);
    panels_.removeAll(&panel);
    if (on_top)
        panels_.append(&panel);
    // A change of the widget's flag hides it; showing it again activates it.
    if (panel.windowFlags().testFlag(Qt::WindowStaysOnTopHint) != on_top) {
        const bool shown = panel.isVisible();
        panel.setWindowFlag(Qt::WindowStaysOnTopHint, on_top);
        panel.setVisible(shown);
    }
    if (on_top && panel.isVisible())
        panel.raise();
    let_go();
}

bool TopMost::keeps_one() const {
    return std::any_of(panels_.begin(), panels_.end(),
                       [](const QPointer<QWidget>& panel) { return panel != nullptr && panel->isVisible(); });
}

void TopMost::let_follow(QWidget& window) {
    if (!followers_.contains(&window))
        followers_.append(&window);
    set_on_top(window, true);
    // Once it is on the screen.
    QMetaObject::invokeMethod(&window, &QWidget::raise, Qt::QueuedConnection);
}

/// With the last kept panel gone, what followed it is a window among the others.
void TopMost::let_go() {
    if (keeps_one())
        return;
    for (const QPointer<QWidget>& window : followers_)
        if (window != nullptr)
            set_on_top(*window, false);
    followers_.clear();
}

bool TopMost::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Show && event->type() != QEvent::Hide)
        return false;
    auto* const window = qobject_cast<QWidget*>(watched);
    if (window == nullptr || !is_panel_or_box(*window))
        return false;
    if (panels_.contains(window)) {
        if (event->type() == QEvent::Hide)
            QMetaObject::invokeMethod(this, &TopMost::let_go, Qt::QueuedConnection);
    } else if (event->type() == QEvent::Show && keeps_one()) {
        let_follow(*window);
    }
    return false;
}

} // namespace halvane
