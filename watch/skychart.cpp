// SPDX-License-Identifier: MIT
#include "watch/skychart.h"

#include "ephemeris/modgeneral.h"
#include "timetable/clockunits.h"
#include "timetable/pageframe.h"
#include "timetable/pagetext.h"
#include "watch/localmoment.h"
#include "watch/watchsheet.h"

#include <QPolygonF>
#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <string>
#include <vector>

namespace halvane {
namespace {

constexpr double left_axis = 10 * page_units;
constexpr double lower_axis = 8.5 * page_units;
constexpr double label_points = 6.5;
constexpr double hair = 0.15 * page_units;
constexpr QColor ground{0xEE, 0xF2, 0xF0};

/// A place of the chart: azimuth counted on from the Sun's event, so that it may pass 0 and 360       [deg]
struct ChartPoint {
    double azimuth = 0;
    double altitude = 0;
};

/// The Sun or the Moon on its way.
struct Way {
    std::vector<ChartPoint> points; ///< one for each row
    double radius = 0;              ///< of the disc                                                  [deg]

    ChartPoint first() const { return points.front(); }
    ChartPoint last() const { return points.back(); }
    /// Whether it runs rather along the horizon than towards it.
    bool is_flat() const {
        return std::fabs(last().azimuth - first().azimuth) >
               1.5 * std::fabs(last().altitude - first().altitude);
    }
};

/// The side of a point that its label stands at.
enum class LabelSide { left, right, above, below };

/// What the axes hold.
struct ChartRange {
    double least_azimuth, greatest_azimuth, least_altitude, greatest_altitude;
};

double step_of_grid(double degree) {
    constexpr double least_gap = 7 * page_units;
    for (const double step : {1.0, 2.0, 5.0, 10.0, 20.0, 30.0})
        if (step * degree >= least_gap)
            return step;
    return 45;
}

class SkyChart {
public:
    SkyChart(QPainter& painter, const QRectF& room, const CrescentWatch& watch, Language language)
        : painter_(painter), watch_(watch), language_(language),
          frame_(room.adjusted(left_axis, 0, 0, -lower_axis)) {
        take_ways();
        take_range();
    }

    void paint() {
        paint_ground();
        paint_grid();
        paint_frame();
        painter_.save();
        painter_.setClipRect(frame_);
        paint_elongation();
        paint_way(sun_, true);
        paint_way(moon_, false);
        painter_.restore();
        write_names();
        write_events();
        write_best_time();
        write_clocks(moon_, false);
        write_clocks(sun_, true);
    }

private:
    void take_ways() {
        constexpr double sun_radius = 16.0 / 60; // at the mean distance
        const double start = watch_.rows.front().places.sun_azimuth;
        const auto near_start = [start](double azimuth) { return start + rev180(azimuth - start); };
        for (const WatchRow& row : watch_.rows) {
            moon_.points.push_back({near_start(row.places.moon_azimuth), row.places.moon_altitude});
            sun_.points.push_back({near_start(row.places.sun_azimuth), row.places.sun_altitude});
        }
        moon_.radius = watch_.rows.front().places.semidiameter;
        sun_.radius = sun_radius;
    }

    void take_range() {
        constexpr double beside = 18 * page_units; // room for the words
        constexpr double above = 6 * page_units;   // and for the names
        constexpr double widest_degree = 5 * page_units;
        ChartRange range{1e9, -1e9, 0, 0};
        for (const Way* way : {&sun_, &moon_})
            for (const ChartPoint& point : way->points) {
                range.least_azimuth = std::min(range.least_azimuth, point.azimuth);
                range.greatest_azimuth = std::max(range.greatest_azimuth, point.azimuth);
                range.least_altitude = std::min(range.least_altitude, point.altitude);
                range.greatest_altitude = std::max(range.greatest_altitude, point.altitude);
            }
        const double across = range.greatest_azimuth - range.least_azimuth;
        const double up = range.greatest_altitude - range.least_altitude;
        degree_ = std::min({widest_degree, (frame_.width() - 2 * beside) / std::max(across, 1.0),
                            (frame_.height() - 2 * above) / std::max(up, 1.0)});
        middle_azimuth_ = (range.least_azimuth + range.greatest_azimuth) / 2;
        middle_altitude_ = (range.least_altitude + range.greatest_altitude) / 2;
    }

    QPointF at(const ChartPoint& point) const {
        return frame_.center() +
               degree_ * QPointF(point.azimuth - middle_azimuth_, middle_altitude_ - point.altitude);
    }

    void paint_ground() {
        const double horizon = std::clamp(at({0, 0}).y(), frame_.top(), frame_.bottom());
        painter_.setPen(Qt::NoPen);
        painter_.setBrush(ground);
        painter_.drawRect(QRectF(QPointF(frame_.left(), horizon), frame_.bottomRight()));
    }

    void paint_grid() {
        const double step = step_of_grid(degree_);
        const double half_width = frame_.width() / degree_ / 2;
        const double half_height = frame_.height() / degree_ / 2;
        for (double azimuth = std::ceil((middle_azimuth_ - half_width) / step) * step;
             azimuth <= middle_azimuth_ + half_width; azimuth += step)
            paint_azimuth(azimuth);
        for (double altitude = std::ceil((middle_altitude_ - half_height) / step) * step;
             altitude <= middle_altitude_ + half_height; altitude += step)
            paint_altitude(altitude);
        paint_winds();
    }

    void paint_azimuth(double azimuth) {
        const double x = at({azimuth, 0}).x();
        painter_.setPen(QPen(PageColours::hairline, hair));
        painter_.drawLine(QPointF(x, frame_.top()), QPointF(x, frame_.bottom()));
        constexpr double half_label = 3 * page_units;
        if (x + half_label > frame_.right() || x - half_label < frame_.left() - left_axis)
            return;
        write(fixed_number(rev360(azimuth), 0) + "°", QPointF(x, frame_.bottom() + 2.9 * page_units),
              LineAnchor::centre, PageColours::quiet);
    }

    void paint_altitude(double altitude) {
        const double y = at({0, altitude}).y();
        painter_.setPen(QPen(PageColours::hairline, hair));
        painter_.drawLine(QPointF(frame_.left(), y), QPointF(frame_.right(), y));
        write(fixed_number(altitude, 0) + "°", QPointF(frame_.left() - page_units, y + 0.8 * page_units),
              LineAnchor::right, PageColours::quiet);
    }

    /// The winds below the azimuths, those of the sixteen that have room.
    void paint_winds() {
        constexpr double wind = 22.5; // [deg]
        const double half_width = frame_.width() / degree_ / 2;
        double free_from = frame_.left() - left_axis;
        for (double azimuth = std::ceil((middle_azimuth_ - half_width) / wind) * wind;
             azimuth <= middle_azimuth_ + half_width; azimuth += wind) {
            const double x = at({azimuth, 0}).x();
            const PageText words(compass_words(azimuth).in(language_), font(PageColours::ink), language_);
            const double left = x - words.width() / 2;
            painter_.setPen(QPen(PageColours::ink, 2 * hair));
            painter_.drawLine(QPointF(x, frame_.bottom()), QPointF(x, frame_.bottom() - 1.2 * page_units));
            if (left < free_from || left + words.width() > frame_.right() + page_units)
                continue;
            words.draw(painter_, QPointF(x, frame_.bottom() + 6.6 * page_units), LineAnchor::centre);
            free_from = left + words.width() + page_units;
        }
    }

    void paint_frame() {
        painter_.setBrush(Qt::NoBrush);
        painter_.setPen(QPen(PageColours::quiet, hair));
        painter_.drawRect(frame_);
        const double y = at({0, 0}).y();
        if (y < frame_.top() || y > frame_.bottom())
            return;
        painter_.setPen(QPen(PageColours::ink, 3 * hair));
        painter_.drawLine(QPointF(frame_.left(), y), QPointF(frame_.right(), y));
        constexpr TwinText horizon{"Horizon", "الأفق"};
        const PageText text(horizon.in(language_), font(PageColours::ink), language_);
        const QPointF baseline(frame_.left() + page_units, y + 2.8 * page_units);
        text.draw(painter_, baseline, LineAnchor::left);
        taken_.emplace_back(baseline - QPointF(0, em()), QSizeF(text.width(), 1.2 * em()));
    }

    // --- The ways ---

    ChartPoint between(const Way& way, double universal) const {
        const std::vector<WatchRow>& rows = watch_.rows;
        std::size_t next = 1;
        while (next + 1 < rows.size() && rows[next].universal < universal)
            ++next;
        if (rows.size() < 2)
            return way.first();
        const double part =
            (universal - rows[next - 1].universal) / (rows[next].universal - rows[next - 1].universal);
        const ChartPoint& a = way.points[next - 1];
        const ChartPoint& b = way.points[next];
        return {a.azimuth + part * (b.azimuth - a.azimuth), a.altitude + part * (b.altitude - a.altitude)};
    }

    /// The full ten minutes of the place's clock within the watch; Julian days, UT1                [d]
    std::vector<double> full_tens() const {
        constexpr int ten_minutes = 600; // [s]
        const double first = watch_.rows.front().universal;
        const double last = watch_.rows.back().universal;
        const int seconds = local_moment(watch_.settings.place, first).seconds;
        std::vector<double> moments;
        for (double after = ten_minutes - seconds % ten_minutes; first + after / seconds_of_day < last;
             after += ten_minutes)
            moments.push_back(first + after / seconds_of_day);
        return moments;
    }

    /// The clocks stand where the other way is not: the Moon ends, or begins, on the horizon where the Sun
    /// begins, or ends.
    LabelSide side_of(bool is_sun) const {
        const Way& way = is_sun ? sun_ : moon_;
        if (way.is_flat())
            return is_sun ? LabelSide::below : LabelSide::above;
        const bool moon_is_right = lower_end(moon_).azimuth > upper_end(sun_).azimuth;
        return moon_is_right != is_sun ? LabelSide::right : LabelSide::left;
    }

    static ChartPoint upper_end(const Way& way) {
        return way.first().altitude > way.last().altitude ? way.first() : way.last();
    }
    static ChartPoint lower_end(const Way& way) {
        return way.first().altitude > way.last().altitude ? way.last() : way.first();
    }

    void paint_way(const Way& way, bool is_sun) {
        const QColor& colour = is_sun ? PageColours::quiet : PageColours::ink;
        QPolygonF line;
        for (const ChartPoint& point : way.points)
            line << at(point);
        painter_.setBrush(Qt::NoBrush);
        painter_.setPen(QPen(colour, 2 * hair, is_sun ? Qt::DashLine : Qt::SolidLine));
        painter_.drawPolyline(line);
        paint_disc(is_sun == watch_.is_new() ? way.first() : way.last(), way.radius, is_sun);
        for (const double moment : full_tens())
            paint_disc(between(way, moment), way.radius, is_sun);
    }

    /// The disc as large as it is.
    void paint_disc(const ChartPoint& point, double radius, bool is_sun) {
        const double size = radius * degree_;
        painter_.setPen(QPen(is_sun ? PageColours::quiet : PageColours::ink, 2 * hair));
        painter_.setBrush(is_sun ? QBrush(Qt::white) : QBrush(PageColours::ink));
        painter_.drawEllipse(at(point), size, size);
    }

    /// Writes a label beside a point on the first of these sides where it stands on no other.
    void label(const std::string& words, const ChartPoint& point, double radius,
               std::initializer_list<LabelSide> sides) {
        const PageText text(words, font(PageColours::ink), language_);
        for (const LabelSide side : sides) {
            const QRectF place = place_of(text, at(point), radius, side);
            const bool taken = std::any_of(taken_.begin(), taken_.end(),
                                           [&place](const QRectF& other) { return other.intersects(place); });
            if (taken || !frame_.contains(place))
                continue;
            taken_.push_back(place);
            QColor backing = place.center().y() > at({0, 0}).y() ? ground : QColor(Qt::white);
            backing.setAlphaF(0.8F);
            painter_.fillRect(place, backing);
            text.draw(painter_, QPointF(place.center().x(), place.bottom() - 0.28 * em()),
                      LineAnchor::centre);
            return;
        }
    }

    static double em() { return em_of(font(PageColours::ink)); }

    QRectF place_of(const PageText& text, const QPointF& centre, double radius, LabelSide side) const {
        const double gap = radius * degree_ + 0.4 * page_units;
        const QSizeF size(text.width() + 0.6 * em(), 1.2 * em());
        QPointF middle = centre;
        switch (side) {
        case LabelSide::left:
            middle.rx() -= gap + size.width() / 2;
            break;
        case LabelSide::right:
            middle.rx() += gap + size.width() / 2;
            break;
        case LabelSide::above:
            middle.ry() -= gap + size.height() / 2;
            break;
        case LabelSide::below:
            middle.ry() += gap + size.height() / 2;
            break;
        }
        return {middle - QPointF(size.width(), size.height()) / 2, size};
    }

    std::string minute(double universal) const {
        return minute_of(local_moment(watch_.settings.place, universal));
    }

    void write_clocks(const Way& way, bool is_sun) {
        for (const double moment : full_tens())
            label(minute(moment), between(way, moment), way.radius, {side_of(is_sun)});
    }

    /// "Sunset 18:25" and "Moonset 19:30", where the ways have them.
    void write_events() {
        const bool is_new = watch_.is_new();
        write_event(sun_event_words(watch_.settings.kind), watch_.sun_event, sun_, is_new, true);
        if (watch_.moon_event.universal && watch_.moon_is_up())
            write_event(moon_event_words(watch_.settings.kind), *watch_.moon_event.universal, moon_, !is_new,
                        false);
    }

    void write_event(const TwinText& words, double universal, const Way& way, bool at_first, bool is_sun) {
        const ChartPoint point = at_first ? way.first() : way.last();
        const ChartPoint other = at_first ? way.last() : way.first();
        const LabelSide outward = point.azimuth > other.azimuth ? LabelSide::right : LabelSide::left;
        const LabelSide side = way.is_flat() ? outward : side_of(is_sun);
        label(std::string(words.in(language_)) + " " + minute(universal), point, way.radius,
              {side, opposite(side), LabelSide::above, LabelSide::below});
    }

    /// The line from the Sun to the Moon at Best Time, and rings around both.
    void paint_elongation() {
        if (!watch_.best_time)
            return;
        const ChartPoint moon = between(moon_, *watch_.best_time);
        const ChartPoint sun = between(sun_, *watch_.best_time);
        painter_.setPen(QPen(PageColours::green, 2 * hair, Qt::DotLine));
        painter_.drawLine(at(moon), at(sun));
        painter_.setPen(QPen(PageColours::green, 3 * hair));
        painter_.setBrush(Qt::NoBrush);
        for (const ChartPoint& point : {moon, sun}) {
            painter_.drawEllipse(at(point), ring(), ring());
            taken_.emplace_back(at(point) - QPointF(ring(), ring()), QSizeF(2 * ring(), 2 * ring()));
        }
    }

    double ring() const { return moon_.radius * degree_ + 0.9 * page_units; }

    void write_best_time() {
        if (!watch_.best_time)
            return;
        constexpr TwinText best{"Best Time", "أفضل وقت"};
        const LabelSide side = opposite(side_of(false));
        label(std::string(best.in(language_)) + " " + minute(*watch_.best_time),
              between(moon_, *watch_.best_time), ring() / degree_,
              {side, opposite(side), LabelSide::above, LabelSide::below});
    }

    static LabelSide opposite(LabelSide side) {
        switch (side) {
        case LabelSide::left:
            return LabelSide::right;
        case LabelSide::right:
            return LabelSide::left;
        case LabelSide::above:
            return LabelSide::below;
        case LabelSide::below:
            break;
        }
        return LabelSide::above;
    }

    /// The names of the two, over the highest Moon and under the lowest Sun.
    void write_names() {
        constexpr TwinText moon{"Moon", "القمر"};
        constexpr TwinText sun{"Sun", "الشمس"};
        write_name(moon, upper_end(moon_), moon_.radius, LabelSide::above);
        write_name(sun, lower_end(sun_), sun_.radius, LabelSide::below);
    }

    void write_name(const TwinText& words, const ChartPoint& point, double radius, LabelSide side) {
        const PageText text(words.in(language_), font(PageColours::ink, true), language_);
        const QRectF place = place_of(text, at(point), radius, side);
        taken_.push_back(place);
        text.draw(painter_, QPointF(place.center().x(), place.bottom() - 0.28 * em()), LineAnchor::centre);
    }

    static PageFont font(const QColor& colour, bool bold = false) {
        return page_font(label_points, bold, colour);
    }

    void write(const std::string& text, const QPointF& baseline, LineAnchor anchor, const QColor& colour) {
        PageText(text, font(colour), Language::english).draw(painter_, baseline, anchor);
    }

    QPainter& painter_;
    const CrescentWatch& watch_;
    Language language_;
    QRectF frame_;
    Way moon_;
    Way sun_;
    double degree_ = 1; ///< its length                                                          [page units]
    double middle_azimuth_ = 0;
    double middle_altitude_ = 0;
    std::vector<QRectF> taken_; ///< by words
};

} // namespace

void paint_sky_chart(QPainter& painter, const QRectF& room, const CrescentWatch& watch, Language language) {
    SkyChart(painter, room, watch, language).paint();
}

} // namespace halvane
