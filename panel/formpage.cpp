// SPDX-License-Identifier: MIT
#include "panel/formpage.h"

#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QLayout>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

namespace halvane {

namespace {

/// What the screen of `widget` has room for, less the frame that the desktop puts around a window.
QSize room_on_screen(const QWidget& widget) {
    constexpr int title_lines = 3; // the tallest title bars of desktops
    const int edge = widget.style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, nullptr, &widget);
    return widget.screen()->availableSize() -
           QSize(2 * edge, title_lines * widget.fontMetrics().lineSpacing());
}

/// Takes the last row of `form`, its buttons, out of the layout. nullptr where the form has none of its own.
QLayout* taken_button_row(QWidget& form) {
    auto* const row = form.findChild<QLayout*>(QStringLiteral("buttonrow"));
    if (row == nullptr || row->parent() != form.layout())
        return nullptr;
    form.layout()->removeItem(row);
    return row;
}

} // namespace

FormPage::FormPage(QWidget& form, Qt::Orientations grows) : QScrollArea(&form), grows_(grows) {
    setObjectName(QStringLiteral("page"));
    QLayout* const buttons = taken_button_row(form);
    auto* content = new QWidget(this);
    content->setLayout(form.layout());
    setWidget(content);
    setWidgetResizable(true);
    setAlignment(Qt::AlignCenter);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    auto* whole = new QVBoxLayout(&form);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSpacing(0);
    if (buttons == nullptr)
        whole->addWidget(this);
    else
        add_foot(form, *buttons, *whole);
    for (QComboBox* list : content->findChildren<QComboBox*>())
        list->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (now != nullptr && isAncestorOf(now))
            ensureWidgetVisible(now);
    });
}

/// Puts the buttons below the page, where they stay while the page scrolls; in a larger window both stay
/// together in the middle.
void FormPage::add_foot(QWidget& form, QLayout& buttons, QVBoxLayout& whole) {
    constexpr int before_the_rests = 1000; // the page takes all the room that it can use
    const QMargins margins = widget()->layout()->contentsMargins();
    foot_ = new QWidget(&form);
    foot_->setLayout(&buttons);
    buttons.setContentsMargins(margins.left(), 0, margins.right(), margins.bottom());
    whole.addStretch(1);
    whole.addWidget(this, before_the_rests);
    whole.addWidget(foot_);
    whole.addStretch(1);
}

QSize FormPage::sizeHint() const {
    return within_screen(widget()->sizeHint());
}

QSize FormPage::minimumSizeHint() const {
    return within_screen(widget()->minimumSizeHint());
}

/// A wheel that scrolls the page does not turn the lists that it meets on its way.
bool FormPage::eventFilter(QObject* watched, QEvent* event) {
    const auto* const list = qobject_cast<QComboBox*>(watched);
    if (event->type() == QEvent::Wheel && list != nullptr && !list->hasFocus()) {
        event->ignore();
        return true;
    }
    return QScrollArea::eventFilter(watched, event);
}

bool FormPage::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest) {
        limit_content();
        updateGeometry();
    }
    return QScrollArea::event(event);
}

void FormPage::resizeEvent(QResizeEvent* event) {
    limit_content();
    QScrollArea::resizeEvent(event);
}

/// The room for `wanted`, with the bars that it takes where the screen is too small.
QSize FormPage::within_screen(QSize wanted) const {
    QSize room = room_on_screen(*this);
    if (foot_ != nullptr) {
        wanted.setWidth(std::max(wanted.width(), foot_->sizeHint().width()));
        room.rheight() -= foot_->sizeHint().height();
    }
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    if (wanted.height() > room.height())
        wanted.rwidth() += bar;
    if (wanted.width() > room.width())
        wanted.rheight() += bar;
    return wanted.boundedTo(room);
}

void FormPage::limit_content() {
    const QSize hint = widget()->sizeHint();
    const int width = (grows_ & Qt::Horizontal) != 0 ? QWIDGETSIZE_MAX : hint.width();
    int height = QWIDGETSIZE_MAX;
    if ((grows_ & Qt::Vertical) == 0) {
        const int narrowest = widget()->minimumSizeHint().width();
        const int given = std::max(narrowest, std::min(width, viewport()->width()));
        height = widget()->hasHeightForWidth() ? widget()->heightForWidth(given) : hint.height();
    }
    widget()->setMaximumSize(width, height);
    if (foot_ != nullptr) {
        setMaximumHeight(height);
        foot_->setMaximumWidth(width);
    }
}

QWidget& page_of(QWidget& form) {
    auto* page = form.findChild<FormPage*>(QString(), Qt::FindDirectChildrenOnly);
    return page == nullptr ? form : *page->widget();
}

void fit_form(QWidget& form, Qt::Orientations grows) {
    form.ensurePolished();
    new FormPage(form, grows);
    form.resize(form.layout()->sizeHint());
}

} // namespace halvane
