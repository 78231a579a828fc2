// SPDX-License-Identifier: MIT
#include "panel/runnote.h"

#include "panel/panelstyle.h"

#include <QEvent>
#include <cmath>
#include <utility>

namespace halvane {

const TwinText running_words{"Running: %1, %2 %", "جار الحساب: %1، %2 %"};

RunNote::RunNote(QWidget& panel, QString what, Language language)
    : QLabel(&panel), panel_(panel), what_(std::move(what)), language_(language) {
    setObjectName(QStringLiteral("lblrunning"));
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignCenter);
    setAutoFillBackground(true);
    QPalette colours = palette();
    colours.setColor(QPalette::WindowText, accent_colour(panel));
    setPalette(colours);
    panel.installEventFilter(this);
    show_percent(0);
    take_place();
    show();
}

void RunNote::show_percent(double percent) {
    const int whole = static_cast<int>(std::floor(percent));
    if (whole == percent_)
        return;
    percent_ = whole;
    take_place();
}

/// The lower margin of a panel is as high as a line.
void RunNote::take_place() {
    const int height = fontMetrics().height();
    setGeometry(0, panel_.height() - height, panel_.width(), height);
    const QString all = text_of(running_words, language_).arg(what_, QString::number(percent_));
    setText(fontMetrics().elidedText(all, Qt::ElideMiddle, panel_.width()));
    raise();
}

bool RunNote::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &panel_ && event->type() == QEvent::Resize)
        take_place();
    return QLabel::eventFilter(watched, event);
}

} // namespace halvane
