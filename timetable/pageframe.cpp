// SPDX-License-Identifier: MIT
#include "timetable/pageframe.h"

#include "base/twintext.h"

#include <QPainterPath>
#include <QString>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace halvane {
namespace {

LineAnchor opposite(LineAnchor anchor) {
    return anchor == LineAnchor::left ? LineAnchor::right : LineAnchor::left;
}

/// An eight-pointed star of two squares.
QPainterPath star(const QPointF& centre, double radius) {
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (const double turn : {0.0, std::numbers::pi / 4}) {
        QPolygonF square;
        for (int corner = 0; corner <= 4; ++corner) {
            const double angle = turn + corner * std::numbers::pi / 2;
            square << centre + radius * QPointF(std::cos(angle), std::sin(angle));
        }
        path.addPolygon(square);
    }
    return path;
}

} // namespace

QSizeF paper_size(PaperSize paper) {
    return paper == PaperSize::a4 ? QSizeF(210, 297) : QSizeF(215.9, 279.4);
}

PageFont page_font(double points, bool bold, const QColor& colour) {
    PageFont font;
    font.points = points;
    font.bold = bold;
    font.colour = colour;
    return font;
}

std::vector<PageSide> sides_of(PageLanguage language, double left, double right) {
    const double middle = (left + right) / 2;
    switch (language) {
    case PageLanguage::english:
        return {{Language::english, left, right}};
    case PageLanguage::arabic:
        return {{Language::arabic, left, right}};
    case PageLanguage::both:
        break;
    }
    return {{Language::english, left, middle - between_columns / 2},
            {Language::arabic, middle + between_columns / 2, right}};
}

double SideWriter::write(const std::string& words, const PageFont& font, double top) const {
    if (words.empty())
        return top;
    const PageText text(words, font, side_.language, side_.width());
    draw(text, font, top, side_.start(), side_.anchor());
    return top + text.height();
}

double SideWriter::write_pair(const std::string& first, const std::string& second, const PageFont& first_font,
                              const PageFont& second_font, double top) const {
    const PageText start(first, first_font, side_.language);
    const PageText end(second, second_font, side_.language);
    if (start.width() + between_columns + end.width() > side_.width())
        return write(second, second_font, write(first, first_font, top));
    draw(start, first_font, top, side_.start(), side_.anchor());
    draw(end, first_font, top, side_.end(), opposite(side_.anchor()));
    return top + std::max(start.height(), end.height());
}

void SideWriter::draw(const PageText& text, const PageFont& font, double top, double anchor_at,
                      LineAnchor anchor) const {
    if (painter_ != nullptr)
        text.draw(*painter_, QPointF(anchor_at, top + baseline_below_top * em_of(font)), anchor);
}

double paint_star_rule(QPainter& painter, double left, double right, double top) {
    const double middle = (left + right) / 2;
    const double y = top + 3 * page_units;
    const double radius = 1.9 * page_units;
    const double gap = 1.2 * page_units;
    painter.setPen(QPen(PageColours::green, 0.4 * page_units));
    painter.drawLine(QPointF(left, y), QPointF(middle - radius - gap, y));
    painter.drawLine(QPointF(middle + radius + gap, y), QPointF(right, y));
    painter.setPen(Qt::NoPen);
    painter.setBrush(PageColours::green);
    painter.drawPath(star(QPointF(middle, y), radius));
    painter.setBrush(Qt::white);
    painter.drawEllipse(QPointF(middle, y), 0.35 * radius, 0.35 * radius);
    return y + 3 * page_units;
}

double paint_foot_rule(QPainter& painter, double left, double right, double bottom) {
    constexpr double rule_above = 4.2 * page_units;
    constexpr double words_above = 3.8 * page_units;
    painter.setPen(QPen(PageColours::hairline, 0.2 * page_units));
    painter.drawLine(QPointF(left, bottom - rule_above), QPointF(right, bottom - rule_above));
    return bottom - words_above;
}

void paint_foot(QPainter& painter, const std::vector<PageSide>& sides, double bottom,
                const TwinWords& words) {
    const PageFont font = page_font(7.5, false, PageColours::quiet);
    const double left = sides.front().left;
    const double right = sides.back().right;
    const double top = paint_foot_rule(painter, left, right, bottom);
    if (sides.size() == 1) {
        SideWriter(&painter, sides.front())
            .write_pair(program_name, words.in(sides.front().language), font, font, top);
        return;
    }
    for (const PageSide& side : sides)
        SideWriter(&painter, side).write(words.in(side.language), font, top);
    const QPointF middle((left + right) / 2, top + baseline_below_top * em_of(font));
    PageText(program_name, font, Language::english).draw(painter, middle, LineAnchor::centre);
}

double notes_points(double room, const std::function<double(double points)>& height_of) {
    constexpr double usual = 8;
    constexpr double least = 4;
    constexpr double step = 0.25;
    double points = usual;
    while (points > least && height_of(points) > room)
        points -= step;
    return points;
}

} // namespace halvane
