// SPDX-License-Identifier: MIT
#include "panel/textviewface.h"

#include "panel/textview.h"

#include <QAccessibleWidget>
#include <algorithm>

namespace halvane {

namespace {

class TextViewFace : public QAccessibleWidget, public QAccessibleTextInterface {
public:
    explicit TextViewFace(TextView& view)
        : QAccessibleWidget(&view, QAccessible::EditableText), view_(view) {}

    void* interface_cast(QAccessible::InterfaceType wanted) override {
        return wanted == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface*>(this)
                                                    : QAccessibleWidget::interface_cast(wanted);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = true;
        state.selectableText = true;
        return state;
    }

    void selection(int, int* start, int* end) const override {
        const auto [from, to] = selected();
        *start = from;
        *end = to;
    }
    int selectionCount() const override { return selected().first < selected().second ? 1 : 0; }
    void addSelection(int start, int end) override { setSelection(0, start, end); }
    void removeSelection(int) override { setCursorPosition(cursorPosition()); }
    void setSelection(int, int start, int end) override {
        view_.select({view_.cursor().line, start}, {view_.cursor().line, end});
    }
    int cursorPosition() const override { return view_.cursor().column; }
    void setCursorPosition(int position) override { setSelection(0, position, position); }
    QString text(int start, int end) const override { return line().mid(start, end - start); }
    using QAccessibleWidget::text;
    int characterCount() const override { return static_cast<int>(line().size()); }
    QRect characterRect(int offset) const override {
        const QRect place = view_.rectangle_of({view_.cursor().line, offset});
        return {view_.viewport()->mapToGlobal(place.topLeft()), place.size()};
    }
    int offsetAtPoint(const QPoint& point) const override {
        const TextPlace place = view_.place_at(view_.viewport()->mapFromGlobal(QPointF(point)));
        return place.line == view_.cursor().line ? place.column : -1;
    }
    void scrollToSubstring(int, int) override { view_.select(view_.anchor(), view_.cursor()); }
    QString attributes(int, int* start, int* end) const override {
        *start = 0;
        *end = characterCount();
        return {};
    }

private:
    QString line() const { return view_.text().line(view_.cursor().line); }
    /// The part of the line that is selected.
    std::pair<int, int> selected() const {
        const auto [from, to] = std::minmax(view_.anchor(), view_.cursor());
        const std::int64_t here = view_.cursor().line;
        return {from.line < here ? 0 : from.column, to.line > here ? characterCount() : to.column};
    }
    TextView& view_;
};

QAccessibleInterface* make_face(const QString&, QObject* object) {
    auto* const view = qobject_cast<TextView*>(object);
    return view != nullptr ? new TextViewFace(*view) : nullptr;
}

} // namespace

void install_textview_face() {
    static const bool installed = [] {
        QAccessible::installFactory(make_face);
        return true;
    }();
    static_cast<void>(installed);
}

} // namespace halvane
