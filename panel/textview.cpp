// SPDX-License-Identifier: MIT
#include "panel/textview.h"

#include "panel/messages.h"
#include "panel/panelstyle.h"
#include "panel/textviewface.h"

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QTextLayout>
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace halvane {

namespace {

constexpr std::int64_t copied_at_once = 1048576; // bytes
constexpr int drag_pause = 50;                   // [ms]
constexpr int lines_without_letters = 200;

constexpr TwinText copy_text{"&Copy", "&نسخ"};
constexpr TwinText select_all_text{"Select &All", "&تحديد الكل"};

const QString text_type = QStringLiteral("text/plain");

/// A part of a text that is read when the clipboard's taker asks for it.
class TextPart : public QMimeData {
public:
    TextPart(std::shared_ptr<const KeptText> text, TextPlace from, TextPlace to)
        : text_(std::move(text)), from_(from), to_(to) {}
    bool hasFormat(const QString& type) const override { return type == text_type; }
    QStringList formats() const override { return {text_type}; }

protected:
    QVariant retrieveData(const QString& type, QMetaType) const override {
        if (type != text_type)
            return {};
        try {
            return text_->between(from_, to_);
        } catch (const RunTimeFailure&) {
            return {}; // nothing can be given any more; the viewer has told why
        }
    }

private:
    std::shared_ptr<const KeptText> text_;
    TextPlace from_;
    TextPlace to_;
};

/// The parts of a line, one for each run of letters and figures.
std::pair<int, int> word_at(const QString& line, int column) {
    const auto belongs = [&line](int at) {
        return line[at].isLetterOrNumber() || line[at].isMark() || line[at] == u':' || line[at] == u'/';
    };
    int from = std::min(column, static_cast<int>(line.size()));
    int to = from;
    while (from > 0 && belongs(from - 1))
        --from;
    while (to < line.size() && belongs(to))
        ++to;
    return {from, to};
}

} // namespace

TextView::TextView(std::shared_ptr<const KeptText> text, Kind kind, Language language, QWidget* parent)
    : QAbstractScrollArea(parent), text_(std::move(text)), kind_(kind), language_(language) {
    install_textview_face();
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setCursor(Qt::IBeamCursor);
    viewport()->setBackgroundRole(QPalette::Base);
    set_style();
}

void TextView::set_style() {
    style_ = LineStyle(font(), kind_ == Kind::prose);
    row_height_ = std::ceil(style_.height);
    widest_ = 0;
    set_ranges();
    viewport()->update();
}

double TextView::left_edge() const {
    return space_unit(*this) / 2.0;
}

double TextView::page_width() const {
    const double longest = static_cast<double>(text_->longest_line()) * style_.column;
    return std::max({longest, widest_, viewport()->width() - 2 * left_edge()});
}

int TextView::whole_lines() const {
    return std::max(1, static_cast<int>(viewport()->height() / row_height_));
}

std::int64_t TextView::top_line() const {
    return verticalScrollBar()->value();
}

void TextView::set_ranges() {
    constexpr std::int64_t most = std::numeric_limits<int>::max();
    const int lines = whole_lines();
    verticalScrollBar()->setRange(
        0, static_cast<int>(std::clamp<std::int64_t>(text_->lines() - lines, 0, most)));
    verticalScrollBar()->setPageStep(lines);
    verticalScrollBar()->setSingleStep(1);
    const double beyond = page_width() + 2 * left_edge() - viewport()->width();
    horizontalScrollBar()->setRange(0, std::max(0, static_cast<int>(std::ceil(beyond))));
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setSingleStep(static_cast<int>(style_.column * 4));
}

Qt::LayoutDirection TextView::direction(std::int64_t line) const {
    if (kind_ == Kind::table)
        return Qt::LeftToRight;
    // A line without letters goes with the nearest one above that has some.
    for (std::int64_t above = line; above >= 0 && above > line - lines_without_letters; --above) {
        const QString content = text_->line(above);
        if (direction_of(content, Qt::LeftToRight) == direction_of(content, Qt::RightToLeft))
            return direction_of(content, Qt::LeftToRight);
    }
    return Qt::LeftToRight;
}

void TextView::set_line(QTextLayout& layout, std::int64_t line) const {
    lay_out(layout, text_->line(line), style_, direction(line), page_width());
}

void TextView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    paint_lines(painter, event->rect());
    if (text_->lost())
        painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap,
                         words_of(*text_->lost(), language_));
}

void TextView::paint_lines(QPainter& painter, const QRect& part) {
    painter.setPen(palette().color(QPalette::Text));
    const double widest_before = widest_;
    const auto first = static_cast<std::int64_t>(part.top() / row_height_);
    const auto last = static_cast<std::int64_t>(part.bottom() / row_height_);
    for (std::int64_t row = first; row <= last && top_line() + row < text_->lines(); ++row)
        paint_line(painter, top_line() + row, static_cast<double>(row) * row_height_);
    if (widest_ > widest_before)
        QMetaObject::invokeMethod(this, &TextView::set_ranges, Qt::QueuedConnection);
}

void TextView::paint_line(QPainter& painter, std::int64_t line, double top) {
    QTextLayout layout;
    set_line(layout, line);
    const QTextLine shown = layout.lineAt(0);
    if (shown.naturalTextWidth() > page_width())
        widest_ = shown.naturalTextWidth();
    const QPointF origin(left_edge() - horizontalScrollBar()->value(), top + drop(layout, style_));

    QList<QTextLayout::FormatRange> selections;
    const auto [from, to] = std::minmax(anchor_, cursor_);
    if (from < to && from.line <= line && line <= to.line) {
        QTextLayout::FormatRange selection;
        const int length = static_cast<int>(layout.text().size());
        selection.start = line == from.line ? from.column : 0;
        selection.length = (line == to.line ? to.column : length) - selection.start;
        selection.format.setBackground(palette().brush(QPalette::Highlight));
        selection.format.setForeground(palette().brush(QPalette::HighlightedText));
        selections << selection;
    }
    layout.draw(&painter, origin, selections);
    if (line == cursor_.line && hasFocus())
        layout.drawCursor(&painter, origin, std::min(cursor_.column, static_cast<int>(layout.text().size())));
}

void TextView::resizeEvent(QResizeEvent*) {
    set_ranges();
}

void TextView::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        set_style();
}

void TextView::scrollContentsBy(int, int) {
    viewport()->update();
}

void TextView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void TextView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

// --- Places ---

TextPlace TextView::place_at(const QPointF& point) const {
    const auto row = static_cast<std::int64_t>(std::floor(point.y() / row_height_));
    const std::int64_t line = std::clamp<std::int64_t>(top_line() + row, 0, text_->lines() - 1);
    QTextLayout layout;
    set_line(layout, line);
    return {line, layout.lineAt(0).xToCursor(point.x() - left_edge() + horizontalScrollBar()->value())};
}

QRect TextView::rectangle_of(const TextPlace& place) const {
    QTextLayout layout;
    set_line(layout, place.line);
    const double x = layout.lineAt(0).cursorToX(place.column) + left_edge() - horizontalScrollBar()->value();
    const double y = static_cast<double>(place.line - top_line()) * row_height_;
    return QRectF(x, y, style_.column, row_height_).toRect();
}

void TextView::select(const TextPlace& anchor, const TextPlace& cursor) {
    const std::int64_t line_before = cursor_.line;
    anchor_ = anchor;
    cursor_ = cursor;
    bring_into_sight(cursor);
    viewport()->update();
    tell_readers(line_before);
}

/// What a screen reader reads is the cursor's line.
void TextView::tell_readers(std::int64_t line_before) {
    if (!QAccessible::isActive())
        return;
    if (cursor_.line != line_before) {
        QAccessibleTextUpdateEvent changed(this, 0, text_->line(line_before), text_->line(cursor_.line));
        QAccessible::updateAccessibility(&changed);
    }
    QAccessibleTextCursorEvent moved(this, cursor_.column);
    QAccessible::updateAccessibility(&moved);
}

void TextView::select_all() {
    anchor_ = {};
    cursor_ = text_->end();
    viewport()->update();
}

void TextView::move_to(const TextPlace& place, bool keep_anchor) {
    select(keep_anchor ? anchor_ : place, place);
}

void TextView::show_from(std::int64_t line) {
    move_to({line, 0}, false);
    verticalScrollBar()->setValue(static_cast<int>(line));
}

void TextView::bring_into_sight(const TextPlace& place) {
    const std::int64_t top = top_line();
    const int lines = whole_lines();
    if (place.line < top || place.line >= top + lines) {
        const bool near = place.line >= top - 1 && place.line <= top + lines;
        const std::int64_t wanted = !near              ? place.line - lines / 2
                                    : place.line < top ? place.line
                                                       : place.line - lines + 1;
        verticalScrollBar()->setValue(static_cast<int>(std::max<std::int64_t>(0, wanted)));
    }
    QTextLayout layout;
    set_line(layout, place.line);
    const int x = static_cast<int>(layout.lineAt(0).cursorToX(place.column));
    const int width = viewport()->width() - static_cast<int>(2 * left_edge());
    if (x < horizontalScrollBar()->value())
        horizontalScrollBar()->setValue(x);
    else if (x > horizontalScrollBar()->value() + width)
        horizontalScrollBar()->setValue(x - width);
}

TextPlace TextView::lines_away(std::int64_t count) const {
    const std::int64_t line = std::clamp<std::int64_t>(cursor_.line + count, 0, text_->lines() - 1);
    QTextLayout from;
    set_line(from, cursor_.line);
    QTextLayout to;
    set_line(to, line);
    return {line, to.lineAt(0).xToCursor(from.lineAt(0).cursorToX(cursor_.column))};
}

/// The place one character or word to the left or to the right, in the line or in the next one.
TextPlace TextView::beside(bool to_left, bool by_word) const {
    QTextLayout layout;
    set_line(layout, cursor_.line);
    const bool forward = to_left == (direction(cursor_.line) == Qt::RightToLeft);
    const int length = static_cast<int>(layout.text().size());
    if (forward && cursor_.column >= length)
        return cursor_.line + 1 < text_->lines() ? TextPlace{cursor_.line + 1, 0} : cursor_;
    if (!forward && cursor_.column <= 0)
        return cursor_.line > 0
                   ? TextPlace{cursor_.line - 1, static_cast<int>(text_->line(cursor_.line - 1).size())}
                   : cursor_;
    const auto mode = by_word ? QTextLayout::SkipWords : QTextLayout::SkipCharacters;
    return {cursor_.line, forward ? layout.nextCursorPosition(cursor_.column, mode)
                                  : layout.previousCursorPosition(cursor_.column, mode)};
}

bool TextView::move_by_key(const QKeyEvent& event) {
    const bool keep = event.modifiers().testFlag(Qt::ShiftModifier);
    const bool control = event.modifiers().testFlag(Qt::ControlModifier);
    switch (event.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
        move_to(beside(event.key() == Qt::Key_Left, control), keep);
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        move_to(lines_away(event.key() == Qt::Key_Up ? -1 : 1), keep);
        return true;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown: {
        const int step = event.key() == Qt::Key_PageUp ? -whole_lines() : whole_lines();
        verticalScrollBar()->setValue(verticalScrollBar()->value() + step);
        move_to(lines_away(step), keep);
        return true;
    }
    case Qt::Key_Home:
        move_to(control ? TextPlace{} : TextPlace{cursor_.line, 0}, keep);
        return true;
    case Qt::Key_End:
        move_to(control ? text_->end()
                        : TextPlace{cursor_.line, static_cast<int>(text_->line(cursor_.line).size())},
                keep);
        return true;
    default:
        return false;
    }
}

void TextView::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        copy();
    } else if (event->matches(QKeySequence::SelectAll)) {
        select_all();
    } else if (!move_by_key(*event)) {
        event->ignore();
    }
}

void TextView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    move_to(place_at(event->position()), event->modifiers().testFlag(Qt::ShiftModifier));
    dragging_ = true;
}

void TextView::mouseMoveEvent(QMouseEvent* event) {
    if (!dragging_)
        return;
    drag_point_ = event->position();
    const bool outside = !viewport()->rect().contains(drag_point_.toPoint());
    if (!outside)
        drag_timer_.stop();
    else if (!drag_timer_.isActive())
        drag_timer_.start(drag_pause, this);
    move_to(place_at(drag_point_), true);
}

void TextView::mouseReleaseEvent(QMouseEvent*) {
    drag_timer_.stop();
    if (std::exchange(dragging_, false))
        offer_selection();
}

void TextView::mouseDoubleClickEvent(QMouseEvent* event) {
    const TextPlace place = place_at(event->position());
    const auto [from, to] = word_at(text_->line(place.line), place.column);
    select({place.line, from}, {place.line, to});
    offer_selection();
}

void TextView::timerEvent(QTimerEvent* event) {
    if (event->timerId() == drag_timer_.timerId())
        move_to(place_at(drag_point_), true);
    else
        QAbstractScrollArea::timerEvent(event);
}

void TextView::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    if (event->angleDelta().y() > 0)
        emit larger();
    else if (event->angleDelta().y() < 0)
        emit smaller();
}

void TextView::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    QAction* copying = menu.addAction(text_of(copy_text, language_), this, &TextView::copy);
    copying->setEnabled(has_selection());
    menu.addAction(text_of(select_all_text, language_), this, &TextView::select_all);
    menu.setLayoutDirection(direction_of(language_));
    menu.exec(event->globalPos());
}

// --- Copying ---

QString TextView::selected_text() const {
    const auto [from, to] = std::minmax(anchor_, cursor_);
    return text_->between(from, to);
}

QMimeData* TextView::new_mime_data() const {
    const TextPlace from = has_selection() ? std::min(anchor_, cursor_) : TextPlace{};
    const TextPlace to = has_selection() ? std::max(anchor_, cursor_) : text_->end();
    if (text_->bytes_between(from, to) > copied_at_once)
        return new TextPart(text_, from, to);
    auto* copied = new QMimeData;
    copied->setText(text_->between(from, to));
    return copied;
}

void TextView::copy() {
    try {
        QGuiApplication::clipboard()->setMimeData(new_mime_data());
    } catch (const RunTimeFailure& failure) {
        emit cannot_copy(words_of(failure, language_));
    }
}

/// What X11's middle button puts down.
void TextView::offer_selection() const {
    QClipboard& clipboard = *QGuiApplication::clipboard();
    if (clipboard.supportsSelection() && has_selection() && !text_->lost())
        clipboard.setMimeData(new_mime_data(), QClipboard::Selection);
}

} // namespace halvane
