// SPDX-License-Identifier: MIT
#include "alerts/alertwindow.h"

#include "panel/currentplatform.h"
#include "panel/namelabel.h"
#include "panel/panelstyle.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

namespace halvane {

namespace {

constexpr int open_time = 5 * 60 * 1000; // [ms]
constexpr double heading_size = 1.5;
constexpr double time_size = 3.6;
constexpr double place_size = 1.2;
constexpr int window_width = 34;   // units of space
constexpr double bar_height = 0.5; // units of space

constexpr TwinText close_text{"&Close", "إ&غلاق"};

QLabel* add_label(QVBoxLayout& column, const char* name, QLabel* label = new QLabel) {
    label->setObjectName(QString::fromLatin1(name));
    label->setAlignment(Qt::AlignCenter);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    column.addWidget(label);
    return label;
}

void show_text(QLabel& label, const QString& text) {
    label.setText(text);
    label.setVisible(!text.isEmpty());
}

void colour(QLabel& label, const QColor& ink) {
    QPalette colours = label.palette();
    colours.setColor(QPalette::WindowText, ink);
    label.setPalette(colours);
}

} // namespace

AlertWindow::AlertWindow() : timer_(new QTimer(this)) {
    setObjectName(QStringLiteral("alertwindow"));
    setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_ShowWithoutActivating);
    auto* column = new QVBoxLayout(this);
    heading_ = add_label(*column, "lblheading");
    time_ = add_label(*column, "lbltime");
    place_ = add_label(*column, "lblplace", new NameLabel);
    place_->setWordWrap(false);
    next_ = add_label(*column, "lblnext");
    notice_ = add_label(*column, "lblnotice");
    close_ = new QPushButton;
    close_->setObjectName(QStringLiteral("cmdclose"));
    column->addWidget(close_, 0, Qt::AlignCenter);
    timer_->setObjectName(QStringLiteral("timerclose"));
    timer_->setSingleShot(true);
    timer_->setInterval(open_time);
    connect(timer_, &QTimer::timeout, this, &QWidget::close);
    connect(close_, &QPushButton::clicked, this, &QWidget::close);
    set_sizes();
    platform().keep_on_top(this, true);
}

void AlertWindow::set_sizes() {
    const int unit = space_unit(*this);
    set_spacing(*this);
    setFixedWidth(window_width * unit);
    scale_font(*heading_, heading_size);
    scale_font(*time_, time_size);
    scale_font(*place_, place_size);
    QFont font = time_->font();
    font.setBold(true);
    time_->setFont(font);
}

void AlertWindow::show_alert(const AlertWords& words, Language language) {
    setLayoutDirection(direction_of(language));
    setWindowTitle(words.heading);
    show_text(*heading_, words.heading);
    show_text(*time_, words.time);
    show_text(*place_, words.place);
    show_text(*next_, words.next);
    show_text(*notice_, words.notice);
    close_->setText(text_of(close_text, language));
    colour(*time_, accent_colour(*this));
    colour(*next_, muted_colour(*this));
    setAccessibleName(words.heading + u' ' + words.time);
    layout()->activate();
    resize(width(), layout()->totalHeightForWidth(width()));
    place_on_screen();
    show();
    raise();
    timer_->start();
}

void AlertWindow::place_on_screen() {
    const QRect room = screen()->availableGeometry();
    move(room.center() - QPoint(width(), height()) / 2);
}

void AlertWindow::mouseReleaseEvent(QMouseEvent*) {
    close();
}

void AlertWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

void AlertWindow::closeEvent(QCloseEvent* event) {
    timer_->stop();
    event->accept();
    emit closed();
}

void AlertWindow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor accent = accent_colour(*this);
    painter.fillRect(0, 0, width(), static_cast<int>(bar_height * space_unit(*this)), accent);
    painter.setPen(accent);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace halvane
