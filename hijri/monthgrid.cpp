// SPDX-License-Identifier: MIT
#include "hijri/monthgrid.h"

#include "base/numberformat.h"
#include "calendar/civildate.h"
#include "calendar/modday.h"
#include "hijri/hijritexts.h"
#include "timetable/pagedigits.h"
#include "timetable/pageframe.h"
#include "timetable/pagetext.h"
#include "timetable/placewords.h"

#include <QPen>
#include <algorithm>
#include <string>
#include <vector>

namespace halvane {
namespace {

constexpr int days_of_week = 7;
constexpr int friday = 5;
constexpr double a_sunday = 6; // day number of one
constexpr double greatest_row_height = 46 * page_units;
constexpr double padding = 1.4 * page_units;
constexpr double number_points = 23;
constexpr double civil_points = 11;
constexpr double line_height = 1.2; ///< of the em, of single words below one another
constexpr double number_height = 9.5 * page_units;
constexpr QColor white_day{0xFB, 0xF3, 0xD9};
constexpr QColor dark_moon{0x3A, 0x45, 0x40};

/// A text of a cell.
struct CellLine {
    std::string text;
    Language language;
};

class Grid {
public:
    Grid(QPainter& painter, const QRectF& room, const MonthSheet& sheet, const MonthPage& page)
        : painter_(painter), room_(room), sheet_(sheet), page_(page), width_(room.width() / days_of_week),
          first_weekday_(sheet.days.front().weekday), month_points_(points_of_months()) {}

    double paint() const {
        const double top = paint_headings();
        const int rows =
            (first_weekday_ + static_cast<int>(sheet_.days.size()) + days_of_week - 1) / days_of_week;
        const double height = std::min(greatest_row_height, (room_.bottom() - top) / rows);
        for (int row = 0; row < rows; ++row)
            for (int weekday = 0; weekday < days_of_week; ++weekday)
                paint_cell(QRectF(left_of(weekday), top + row * height, width_, height),
                           row * days_of_week + weekday - first_weekday_);
        const QRectF frame(room_.left(), top, room_.width(), rows * height);
        painter_.setBrush(Qt::NoBrush);
        painter_.setPen(QPen(PageColours::green, 0.4 * page_units));
        painter_.drawLine(frame.bottomLeft(), frame.bottomRight());
        return frame.bottom();
    }

private:
    bool mirrored() const { return page_.language == PageLanguage::arabic; }

    std::vector<Language> shown_languages() const {
        std::vector<Language> shown;
        if (page_.language != PageLanguage::arabic)
            shown.push_back(Language::english);
        if (page_.language != PageLanguage::english)
            shown.push_back(Language::arabic);
        return shown;
    }

    double left_of(int weekday) const {
        return room_.left() + width_ * (mirrored() ? days_of_week - 1 - weekday : weekday);
    }

    /// Paints the names of the weekdays, and gives where they end.
    double paint_headings() const {
        const std::vector<Language> shown = shown_languages();
        const PageFont font = page_font(shown.size() == 1 ? 10 : 9, true, Qt::white);
        const double line = PageText("x", font, shown.front()).height();
        const double height = line * static_cast<double>(shown.size()) + 2 * page_units;
        painter_.fillRect(QRectF(room_.left(), room_.top(), room_.width(), height), PageColours::green);
        for (int weekday = 0; weekday < days_of_week; ++weekday) {
            double top = room_.top() + page_units;
            for (const Language language : shown) {
                const std::string name = weekday_name(a_sunday + weekday, language);
                const PageFont fitted = fitting(name, font, language, width_ - padding, 6);
                PageText(name, fitted, language)
                    .draw(painter_,
                          QPointF(left_of(weekday) + width_ / 2, top + baseline_below_top * em_of(font)),
                          LineAnchor::centre);
                top += line;
            }
        }
        return room_.top() + height;
    }

    // --- A cell ---

    void paint_cell(const QRectF& cell, int index) const {
        const bool holds_day = index >= 0 && index < static_cast<int>(sheet_.days.size());
        if (holds_day)
            paint_tint(cell, sheet_.days[static_cast<std::size_t>(index)]);
        painter_.setBrush(Qt::NoBrush);
        painter_.setPen(QPen(PageColours::hairline, 0.2 * page_units));
        painter_.drawRect(cell);
        if (holds_day)
            paint_day(cell.adjusted(padding, padding, -padding, -padding),
                      sheet_.days[static_cast<std::size_t>(index)]);
    }

    void paint_tint(const QRectF& cell, const MonthDay& day) const {
        if (day.is_white_day())
            painter_.fillRect(cell, white_day);
        else if (day.weekday == friday)
            painter_.fillRect(cell, PageColours::friday);
    }

    void paint_day(const QRectF& inner, const MonthDay& day) const {
        paint_number(inner, day);
        const double date_bottom = paint_date(inner, day);
        const double top = std::max(inner.top() + number_height, date_bottom + 0.4 * page_units);
        const double bottom = day.phase ? paint_phase(inner, *day.phase) : inner.bottom();
        paint_words(QRectF(QPointF(inner.left(), top), QPointF(inner.right(), bottom)), feasts_in(day));
    }

    /// Paints the Moon at the bottom of a cell, its name beside it, and gives where they begin.
    double paint_phase(const QRectF& inner, Phase phase) const {
        constexpr double radius = 2.5 * page_units;
        constexpr double greatest = 7.5;
        constexpr double least = 5;
        const std::vector<Language> shown = shown_languages();
        const double middle = inner.bottom() - radius;
        const double x = mirrored() ? inner.right() - radius : inner.left() + radius;
        paint_moon(painter_, QPointF(x, middle), radius, phase, latitude_of(sheet_.place.location) < 0);
        const double side = 2 * radius + 0.8 * page_units;
        double top =
            middle - line_height * em_of(page_font(greatest, false)) * static_cast<double>(shown.size()) / 2;
        for (const Language language : shown) {
            const std::string words = phase_words(phase).in(language);
            const PageFont font = fitting(words, page_font(greatest, false, PageColours::quiet), language,
                                          inner.width() - side, least);
            PageText(words, font, language)
                .draw(painter_,
                      QPointF(mirrored() ? inner.right() - side : inner.left() + side,
                              top + baseline_below_top * em_of(font)),
                      mirrored() ? LineAnchor::right : LineAnchor::left);
            top += line_height * em_of(page_font(greatest, false));
        }
        return middle - radius - 0.6 * page_units;
    }

    bool is_kept(const MonthDay& day) const {
        return std::any_of(day.feasts.begin(), day.feasts.end(), [](const Feast* feast) {
            return !feast->is_of_each_month() && !feast->of_the_night;
        });
    }

    /// A number, which stands once for both languages.
    std::string number_text(double number) const {
        return in_digits(alike(plain_number(number)), page_.digits).in(shown_languages().back());
    }

    PageText number_of(const MonthDay& day, const QColor& colour) const {
        return {number_text(day.hijri.day), page_font(number_points, true, colour), Language::english};
    }

    static std::string civil_month_of(const MonthDay& day, Language language) {
        return civil_month_name(static_cast<int>(civil_date(day.day_number).month), language);
    }

    /// The size in which the civil months stand beside the days of the month                      [pt]
    double points_of_months() const {
        constexpr double greatest = 7.5;
        constexpr double least = 4;
        const double inner = width_ - 2 * padding;
        double points = greatest;
        for (const MonthDay& day : sheet_.days)
            for (const Language language : shown_languages())
                points =
                    std::min(points, fitting(civil_month_of(day, language), page_font(greatest, true),
                                             language, inner - number_of(day, {}).width() - padding, least)
                                         .points);
        return points;
    }

    void paint_number(const QRectF& inner, const MonthDay& day) const {
        const double baseline = inner.top() + 0.78 * em_of(page_font(number_points, true));
        number_of(day, is_kept(day) ? PageColours::green : PageColours::ink)
            .draw(painter_, QPointF(mirrored() ? inner.right() : inner.left(), baseline),
                  mirrored() ? LineAnchor::right : LineAnchor::left);
    }

    /// Paints the civil date in the other corner, and gives where it ends.
    double paint_date(const QRectF& inner, const MonthDay& day) const {
        const double date = civil_date(day.day_number).day;
        const bool bold = date == 1;
        double top = inner.top() - 0.4 * page_units;
        const auto draw = [&](const std::string& words, const PageFont& font, Language language) {
            PageText(words, font, language)
                .draw(painter_,
                      QPointF(mirrored() ? inner.left() : inner.right(),
                              top + baseline_below_top * em_of(font)),
                      mirrored() ? LineAnchor::left : LineAnchor::right);
            top += em_of(font) * line_height;
        };
        draw(number_text(date), page_font(civil_points, bold, PageColours::quiet), Language::english);
        for (const Language language : shown_languages())
            draw(civil_month_of(day, language), page_font(month_points_, bold, PageColours::quiet), language);
        return top;
    }

    std::vector<CellLine> feasts_in(const MonthDay& day) const {
        std::vector<CellLine> lines;
        for (const Language language : shown_languages())
            for (const Feast* const feast : day.feasts)
                if (!feast->is_of_each_month())
                    lines.push_back(
                        {std::string(feast->name.in(language)) + (feast->of_the_night ? night_mark : ""),
                         language});
        return lines;
    }

    /// Writes lines at the bottom of `room`, in the greatest letters that it holds.
    void paint_words(const QRectF& room, const std::vector<CellLine>& lines) const {
        constexpr double greatest = 8.5;
        constexpr double least = 4;
        double points = greatest;
        while (points > least && (words_height(room, lines, points) > room.height()))
            points -= 0.25;
        double top = room.bottom() - words_height(room, lines, points);
        for (const CellLine& line : lines) {
            const PageFont font = page_font(points, true, PageColours::green);
            const PageText text(line.text, font, line.language, room.width());
            const bool right = line.language == Language::arabic;
            text.draw(painter_,
                      QPointF(right ? room.right() : room.left(), top + baseline_below_top * em_of(font)),
                      right ? LineAnchor::right : LineAnchor::left);
            top += text.height();
        }
    }

    static double words_height(const QRectF& room, const std::vector<CellLine>& lines, double points) {
        double height = 0;
        for (const CellLine& line : lines)
            height += PageText(line.text, page_font(points, true), line.language, room.width()).height();
        return height;
    }

    QPainter& painter_;
    QRectF room_;
    const MonthSheet& sheet_;
    MonthPage page_;
    double width_; ///< of a day
    int first_weekday_;
    double month_points_;
};

} // namespace

double paint_month_grid(QPainter& painter, const QRectF& room, const MonthSheet& sheet,
                        const MonthPage& page) {
    return Grid(painter, room, sheet, page).paint();
}

void paint_moon(QPainter& painter, const QPointF& centre, double radius, Phase phase, bool mirrored) {
    const QRectF disc(centre - QPointF(radius, radius), centre + QPointF(radius, radius));
    constexpr int right_half = -90 * 16; // Qt counts sixteenths of a degree from the right, counter-clockwise
    constexpr int left_half = 90 * 16;
    constexpr int half_circle = 180 * 16;
    painter.setPen(Qt::NoPen);
    painter.setBrush(phase == Phase::full_moon ? QColor(Qt::white) : dark_moon);
    painter.drawEllipse(disc);
    if (phase == Phase::first_quarter || phase == Phase::last_quarter) {
        painter.setBrush(Qt::white);
        painter.drawPie(disc, (phase == Phase::first_quarter) != mirrored ? right_half : left_half,
                        half_circle);
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(dark_moon, 0.25 * page_units));
    painter.drawEllipse(disc);
}

} // namespace halvane
