// SPDX-License-Identifier: MIT
#include "watch/crescentfigure.h"

#include "ephemeris/modgeneral.h"
#include "timetable/pageframe.h"
#include "timetable/pagetext.h"

#include <QTransform>
#include <cmath>
#include <string>

namespace halvane {
namespace {

constexpr QColor night{0x14, 0x1F, 0x2B};
constexpr QColor dark_disc{0x33, 0x42, 0x52};
constexpr QColor lit{0xFF, 0xF4, 0xD6};
constexpr QColor pale{0xC9, 0xD3, 0xDD};
constexpr double label_points = 6.5;
constexpr double line = 0.2 * page_units;

/// A unit step on the page towards an angle from the zenith that grows to the left.
QPointF towards(double zenith_angle) {
    const double angle = zenith_angle * radians_per_degree;
    return {-std::sin(angle), -std::cos(angle)};
}

class Figure {
public:
    Figure(QPainter& painter, const QRectF& square, const WatchPointing& pointing, Language language)
        : painter_(painter), square_(square), pointing_(pointing), language_(language),
          radius_(square.width() * 0.33) {}

    void paint() {
        painter_.setPen(Qt::NoPen);
        painter_.setBrush(night);
        painter_.drawRect(square_);
        painter_.setBrush(dark_disc);
        painter_.drawEllipse(centre(), radius_, radius_);
        painter_.setBrush(lit);
        painter_.drawPath(
            lit_part(radius_, pointing_.places.phase_angle, pointing_.zenith_angle).translated(centre()));
        paint_horns();
        constexpr TwinText zenith{"Zenith", "سمت الرأس"};
        constexpr TwinText sun{"Sun", "الشمس"};
        constexpr TwinText north{"N", "ش"};
        paint_pointer(0, zenith);
        paint_pointer(pointing_.zenith_angle, sun);
        paint_pointer(-pointing_.parallactic_angle, north);
        paint_measure();
    }

private:
    QPointF centre() const { return square_.center(); }

    void paint_horns() {
        const QPointF along = radius_ * towards(pointing_.zenith_angle + 90);
        painter_.setPen(QPen(pale, line / 2, Qt::DashLine));
        painter_.drawLine(centre() - along, centre() + along);
    }

    /// A line from the limb outwards with a word at its end.
    void paint_pointer(double zenith_angle, const TwinText& words) {
        const QPointF step = towards(zenith_angle);
        painter_.setPen(QPen(pale, line));
        painter_.drawLine(centre() + 1.06 * radius_ * step, centre() + 1.2 * radius_ * step);
        const PageFont font = page_font(label_points, false, pale);
        const PageText text(words.in(language_), font, language_);
        const double em = em_of(font);
        const QPointF middle =
            centre() + (1.25 * radius_ + 0.5 * em) * step + QPointF(step.x() * text.width() / 2, 0);
        text.draw(painter_, middle + QPointF(0, 0.35 * em), LineAnchor::centre);
    }

    /// Ten minutes of arc.
    void paint_measure() {
        constexpr double ten_minutes = 10.0 / 60; // [deg]
        const double length = ten_minutes / pointing_.places.semidiameter * radius_;
        const QPointF end = square_.bottomLeft() + QPointF(2 * page_units, -2 * page_units);
        painter_.setPen(QPen(pale, line));
        painter_.drawLine(end, end + QPointF(length, 0));
        for (const double x : {0.0, length})
            painter_.drawLine(end + QPointF(x, -0.6 * page_units), end + QPointF(x, 0.6 * page_units));
        PageText("10'", page_font(label_points, false, pale), Language::english)
            .draw(painter_, end + QPointF(length / 2, -page_units), LineAnchor::centre);
    }

    QPainter& painter_;
    QRectF square_;
    const WatchPointing& pointing_;
    Language language_;
    double radius_;
};

} // namespace

QPainterPath lit_part(double radius, double phase_angle, double zenith_angle) {
    constexpr int steps = 90; // of half a turn
    const double across = -std::cos(phase_angle * radians_per_degree);
    QPolygonF outline;
    for (int step = 0; step <= steps; ++step) {
        const double angle = pi * step / steps;
        outline << radius * QPointF(std::sin(angle), -std::cos(angle));
    }
    for (int step = steps; step >= 0; --step) {
        const double angle = pi * step / steps;
        outline << radius * QPointF(across * std::sin(angle), -std::cos(angle));
    }
    // The limb's middle lies to the right so far, a quarter of a turn to the right of the zenith.
    QTransform turn;
    turn.rotate(-(zenith_angle + 90));
    QPainterPath path;
    path.addPolygon(turn.map(outline));
    path.closeSubpath();
    return path;
}

void paint_crescent_figure(QPainter& painter, const QRectF& square, const WatchPointing& pointing,
                           Language language) {
    Figure(painter, square, pointing, language).paint();
}

} // namespace halvane
