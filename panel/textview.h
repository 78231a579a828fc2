// SPDX-License-Identifier: MIT
#pragma once

#include "panel/formlanguage.h"
#include "panel/kepttext.h"
#include "panel/textline.h"

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <memory>

class QMimeData;

namespace halvane {

/// Shows a text for reading, of which only the lines on the screen are laid out, so that its size costs
/// neither time nor memory. Places are chosen by mouse and keyboard, the text between two can be copied.
class TextView : public QAbstractScrollArea {
    Q_OBJECT
public:
    /// How the lines stand.
    enum class Kind {
        table, ///< letters of one width, all lines from the left
        prose, ///< the widget's own letters, each line in the direction of its letters
    };

    TextView(std::shared_ptr<const KeptText> text, Kind kind, Language language, QWidget* parent = nullptr);

    const KeptText& text() const { return *text_; }
    /// Where the selection began, and where it ends now; the same place when nothing is selected.
    const TextPlace& anchor() const { return anchor_; }
    const TextPlace& cursor() const { return cursor_; }
    bool has_selection() const { return anchor_ != cursor_; }
    QString selected_text() const;
    /// Selects from `anchor` to `cursor` and brings the latter into sight.
    void select(const TextPlace& anchor, const TextPlace& cursor);
    void select_all();
    /// The direction in which a line is shown.
    Qt::LayoutDirection direction(std::int64_t line) const;
    /// The line that stands highest, and how many stand whole below each other.
    std::int64_t top_line() const;
    int whole_lines() const;
    /// The place nearest to a point of the viewport, and the strip of the viewport before a place.
    TextPlace place_at(const QPointF& point) const;
    QRect rectangle_of(const TextPlace& place) const;
    /// Puts the cursor at the start of a line and that line highest.
    void show_from(std::int64_t line);
    /// What the clipboard takes: the selection, or all of the text. A long one is made when it is asked for.
    QMimeData* new_mime_data() const;
    /// Copies the selection, or all of the text.
    void copy();

signals:
    /// The text can no longer be read; `words` tell why.
    void cannot_copy(const QString& words);
    /// A turn of the wheel with Ctrl.
    void larger();
    void smaller();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    void set_style();
    void set_ranges();
    double page_width() const;
    double left_edge() const;
    void set_line(QTextLayout& layout, std::int64_t line) const;
    void paint_lines(QPainter& painter, const QRect& part);
    void paint_line(QPainter& painter, std::int64_t line, double top);
    void move_to(const TextPlace& place, bool keep_anchor);
    bool move_by_key(const QKeyEvent& event);
    TextPlace beside(bool to_left, bool by_word) const;
    TextPlace lines_away(std::int64_t count) const;
    void bring_into_sight(const TextPlace& place);
    void offer_selection() const;
    void tell_readers(std::int64_t line_before);

    std::shared_ptr<const KeptText> text_;
    Kind kind_;
    Language language_;
    LineStyle style_;
    double row_height_ = 1;
    double widest_ = 0; ///< of the lines seen so far
    TextPlace anchor_;
    TextPlace cursor_;
    bool dragging_ = false;
    QBasicTimer drag_timer_;
    QPointF drag_point_;
};

} // namespace halvane
