// SPDX-License-Identifier: MIT
#include "watch/watchtable.h"

#include "timetable/pagetext.h"

#include <algorithm>
#include <cstddef>

namespace halvane {
namespace {

constexpr double usual_points = 8;
constexpr double heading_part = 0.9; ///< of the points of the cells
constexpr double line_height = 3.6 * page_units;
constexpr double gap = 2.2 * page_units; ///< between columns, at least

} // namespace

WatchTable::WatchTable(const WatchSheet& sheet, Language language, double left, double right)
    : sheet_(sheet), language_(language), left_(left), right_(right), columns_(sheet.columns.size()) {
    columns_.back().figures = false;
    columns_.front().figures = false;
    share_width(left, right);
}

std::string WatchTable::heading_of(std::size_t number) const {
    const WatchColumn& column = sheet_.columns[number];
    const std::string unit = column.unit;
    return column.heading.in(language_) + (unit.empty() ? "" : " " + unit);
}

/// The cells of the clock tell the event too.
std::string WatchTable::cell_of(std::size_t row, std::size_t column) const {
    const WatchTableRow& content = sheet_.rows[row];
    const std::string& cell = content.cells[column].in(language_);
    const std::string& event = content.event.in(language_);
    return column == 0 && !event.empty() ? cell + "  " + event : cell;
}

double WatchTable::wanted_width(std::size_t number, double points) const {
    double widest =
        PageText(heading_of(number), page_font(heading_part * points, true, PageColours::ink), language_)
            .width();
    for (std::size_t row = 0; row < sheet_.rows.size(); ++row)
        widest = std::max(
            widest,
            PageText(cell_of(row, number), page_font(points, true, PageColours::ink), language_).width());
    return widest;
}

void WatchTable::share_width(double left, double right) {
    const double room = right - left - gap * static_cast<double>(columns_.size() - 1);
    double wanted = 0;
    for (std::size_t number = 0; number < columns_.size(); ++number)
        wanted += wanted_width(number, usual_points);
    points_ = std::min(usual_points, usual_points * room / wanted);
    double used = 0;
    for (std::size_t number = 0; number < columns_.size(); ++number) {
        columns_[number].width = wanted_width(number, points_);
        used += columns_[number].width;
    }
    const double between = (right - left - used) / static_cast<double>(columns_.size() - 1);
    const bool mirrored = language_ == Language::arabic;
    double begin = mirrored ? right : left;
    for (Column& column : columns_) {
        column.left = mirrored ? begin - column.width : begin;
        begin += (mirrored ? -1 : 1) * (column.width + between);
    }
}

double WatchTable::head_height() const {
    return 2 * line_height + 1.2 * page_units;
}

void WatchTable::paint_cell(QPainter& painter, const Column& column, const std::string& words,
                            double baseline, bool bold) const {
    // A figure's sign stands before it in Arabic too.
    const PageText text(words, page_font(points_, bold, PageColours::ink),
                        column.figures ? Language::english : language_);
    const bool at_left = !column.figures && language_ == Language::english;
    text.draw(painter, QPointF(at_left ? column.left : column.left + column.width, baseline),
              at_left ? LineAnchor::left : LineAnchor::right);
}

/// The names above neighbours of one group, with a line under each.
void WatchTable::paint_groups(QPainter& painter, double top) const {
    for (std::size_t first = 0; first < columns_.size();) {
        std::size_t end = first + 1;
        const TwinWords& group = sheet_.columns[first].group;
        while (end < columns_.size() && sheet_.columns[end].group.english == group.english)
            ++end;
        if (!group.english.empty()) {
            const Column& a = columns_[first];
            const Column& b = columns_[end - 1];
            const double left = std::min(a.left, b.left);
            const double right = std::max(a.left + a.width, b.left + b.width);
            PageText(group.in(language_), page_font(heading_part * points_, true, PageColours::ink),
                     language_)
                .draw(painter, QPointF((left + right) / 2, top + 2.6 * page_units), LineAnchor::centre);
            painter.setPen(QPen(PageColours::quiet, 0.15 * page_units));
            painter.drawLine(QPointF(left, top + line_height), QPointF(right, top + line_height));
        }
        first = end;
    }
}

void WatchTable::paint_head(QPainter& painter, double top) const {
    paint_groups(painter, top);
    for (std::size_t number = 0; number < columns_.size(); ++number) {
        const Column& column = columns_[number];
        const PageText text(heading_of(number), page_font(heading_part * points_, true, PageColours::ink),
                            language_);
        const bool at_left = !column.figures && language_ == Language::english;
        text.draw(
            painter,
            QPointF(at_left ? column.left : column.left + column.width, top + line_height + 2.8 * page_units),
            at_left ? LineAnchor::left : LineAnchor::right);
    }
    painter.setPen(QPen(PageColours::green, 0.3 * page_units));
    const double y = top + head_height() - 0.4 * page_units;
    painter.drawLine(QPointF(left_, y), QPointF(right_, y));
}

void WatchTable::paint_row(QPainter& painter, double top, double height, std::size_t number) const {
    const double em = em_of(page_font(points_, false, PageColours::ink));
    const bool event = !sheet_.rows[number].event.english.empty();
    for (std::size_t column = 0; column < columns_.size(); ++column)
        paint_cell(painter, columns_[column], cell_of(number, column), top + height / 2 + 0.36 * em, event);
    painter.setPen(QPen(PageColours::hairline, 0.1 * page_units));
    painter.drawLine(QPointF(left_, top + height), QPointF(right_, top + height));
}

} // namespace halvane
