// SPDX-License-Identifier: MIT
#include "timetable/comparisonwindow.h"

#include "panel/panelstyle.h"
#include "panel/viewerpages.h"

#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QTextDocument>
#include <QTextOption>
#include <QVBoxLayout>
#include <algorithm>

namespace halvane {

namespace {

constexpr int most_lines = 30;
constexpr double least_points = 6;
constexpr double of_the_screen = 0.9;

constexpr ControlText twins[] = {
    {"frmcomparison", "Comparison of Two Tables", "مقارنة جدولين"},
    {"txtcomparison@spoken", "Comparison", "المقارنة"},
    {"cmdclose", "&Close", "إ&غلاق"},
};

/// The width and height that the text has in a font.
QSize size_of(const QString& text, const QFont& font) {
    return QFontMetrics(font).size(0, text);
}

/// A fixed font in which the lines fit on the screen.
QFont fitting_type(const QString& text, int width) {
    QFont type(fixed_family());
    type.setStyleHint(QFont::Monospace);
    while (type.pointSizeF() > least_points && size_of(text, type).width() > width)
        type.setPointSizeF(type.pointSizeF() - 1);
    return type;
}

/// Lines run in the direction of the language, whatever they begin with.
void set_direction(QPlainTextEdit& view, Language language) {
    QTextOption option = view.document()->defaultTextOption();
    option.setTextDirection(direction_of(language));
    option.setAlignment(Qt::AlignAbsolute | (language == Language::english ? Qt::AlignLeft : Qt::AlignRight));
    view.document()->setDefaultTextOption(option);
}

} // namespace

ComparisonWindow::ComparisonWindow(const QString& text, Language language, QWidget* owner) : QDialog(owner) {
    setObjectName(QStringLiteral("frmcomparison"));
    auto* const view =
        new QPlainTextEdit(language == Language::arabic ? with_figures_in_order(text) : text, this);
    view->setObjectName(QStringLiteral("txtcomparison"));
    view->setReadOnly(true);
    view->setTabChangesFocus(true);
    view->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    auto* const close_button = new QPushButton(this);
    close_button->setObjectName(QStringLiteral("cmdclose"));
    connect(close_button, &QPushButton::clicked, this, &QDialog::accept);

    auto* const buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(close_button);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(view, 1);
    layout->addLayout(buttons);
    set_spacing(*this);
    apply_language(*this, twins, language);
    set_direction(*view, language);
    const int edge = 2 * (view->frameWidth() + static_cast<int>(view->document()->documentMargin())) +
                     view->style()->pixelMetric(QStyle::PM_ScrollBarExtent) + space_unit(*this);
    const QMargins margins = layout->contentsMargins();
    const int width = static_cast<int>(screen()->availableSize().width() * of_the_screen) - edge -
                      margins.left() - margins.right();
    view->setFont(fitting_type(text, width));
    const QSize room = size_of(text, view->font());
    const int height = std::min(room.height(), most_lines * view->fontMetrics().lineSpacing());
    view->setMinimumSize(std::min(room.width(), width) + edge, height + edge);
}

} // namespace halvane
