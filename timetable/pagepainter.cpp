// SPDX-License-Identifier: MIT
#include "timetable/pagepainter.h"

#include "timetable/pagetable.h"
#include "timetable/pagetext.h"

#include <QPainterPath>
#include <QString>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>
#include <vector>

namespace halvane {
namespace {

constexpr double margin = 15 * page_units;
constexpr double foot_height = 6 * page_units;
constexpr double least_row_height = 4.4 * page_units;
constexpr double between_columns = 6 * page_units; ///< of the two languages

constexpr TwinText page_of_pages{"Page %1 of %2", "صفحة %1 من %2"};
constexpr const char* program_name = "Halvane";

PageFont font_of(double points, bool bold, const QColor& colour) {
    PageFont font;
    font.points = points;
    font.bold = bold;
    font.colour = colour;
    return font;
}

/// A column of the page for one language: the whole width, or a half of it.
struct PageSide {
    Language language;
    double left;
    double right;

    double width() const { return right - left; }
    LineAnchor anchor() const { return language == Language::english ? LineAnchor::left : LineAnchor::right; }
    double start() const { return language == Language::english ? left : right; }
    double end() const { return language == Language::english ? right : left; }
};

LineAnchor opposite(LineAnchor anchor) {
    return anchor == LineAnchor::left ? LineAnchor::right : LineAnchor::left;
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

/// What stands above and below the table, in one language.
class SideWriter {
public:
    SideWriter(QPainter* painter, const PageSide& side) : painter_(painter), side_(side) {}

    /// Writes a text below `top`, and gives where it ends; without a painter it is measured only.
    double write(const std::string& words, const PageFont& font, double top) const {
        if (words.empty())
            return top;
        const PageText text(words, font, side_.language, side_.width());
        draw(text, font, top, side_.start(), side_.anchor());
        return top + text.height();
    }

    /// Writes two texts on one line, from its start and up to its end, or below one another where they are
    /// long.
    double write_pair(const std::string& first, const std::string& second, const PageFont& first_font,
                      const PageFont& second_font, double top) const {
        const PageText start(first, first_font, side_.language);
        const PageText end(second, second_font, side_.language);
        if (start.width() + between_columns + end.width() > side_.width())
            return write(second, second_font, write(first, first_font, top));
        draw(start, first_font, top, side_.start(), side_.anchor());
        draw(end, first_font, top, side_.end(), opposite(side_.anchor()));
        return top + std::max(start.height(), end.height());
    }

private:
    void draw(const PageText& text, const PageFont& font, double top, double anchor_at,
              LineAnchor anchor) const {
        if (painter_ != nullptr)
            text.draw(*painter_, QPointF(anchor_at, top + baseline_below_top * em_of(font)), anchor);
    }

    QPainter* painter_;
    PageSide side_;
};

/// A page that is being painted, in page units.
class Page {
public:
    Page(QPainter& painter, const QSizeF& size, const TimetableSheet& sheet, const PageSettings& settings)
        : painter_(painter), sheet_(sheet), settings_(settings), left_(margin), right_(size.width() - margin),
          top_(margin), bottom_(size.height() - margin), sides_(sides_of(settings.language, left_, right_)) {}

    void paint(int number, int pages) {
        const double table_top = paint_rule(write_head());
        const PageTable table(sheet_, settings_.language, right_ - left_);
        const double room = bottom_ - foot_height - table_top;
        const double notes_size = notes_points(room - table.least_height(least_row_height));
        const double notes_height = write_notes(nullptr, 0, notes_size);
        const double table_bottom =
            table.paint(painter_, QRectF(left_, table_top, right_ - left_, room - notes_height));
        write_notes(&painter_, table_bottom, notes_size);
        write_foot(number, pages);
    }

private:
    double write_head() const {
        double end = top_;
        for (const PageSide& side : sides_)
            end = std::max(end, write_head_of(side));
        return end;
    }

    double write_head_of(const PageSide& side) const {
        const SideWriter writer(&painter_, side);
        const Language language = side.language;
        const std::string& place = sheet_.place.in(language);
        const PageFont name = fitting(place, font_of(21, true, PageColours::ink), language, side.width(), 13);
        double top = writer.write(place, name, top_);
        top = writer.write_pair(sheet_.title.in(language), sheet_.hijri_months.in(language),
                                font_of(12.5, true, PageColours::green),
                                font_of(12.5, false, PageColours::ink), top);
        top += 0.8 * page_units;
        const PageFont small = font_of(8.5, false, PageColours::quiet);
        if (sides_.size() == 1)
            top = writer.write_pair(sheet_.coordinates.in(language), sheet_.zone.in(language), small, small,
                                    top);
        else
            top = writer.write(sheet_.zone.in(language), small,
                               writer.write(sheet_.coordinates.in(language), small, top));
        return writer.write(sheet_.rules.in(language), small, top);
    }

    /// The rule below the head, with a star in its middle.
    double paint_rule(double top) const {
        const double middle = (left_ + right_) / 2;
        const double y = top + 3 * page_units;
        const double radius = 1.9 * page_units;
        const double gap = 1.2 * page_units;
        painter_.setPen(QPen(PageColours::green, 0.4 * page_units));
        painter_.drawLine(QPointF(left_, y), QPointF(middle - radius - gap, y));
        painter_.drawLine(QPointF(middle + radius + gap, y), QPointF(right_, y));
        painter_.setPen(Qt::NoPen);
        painter_.setBrush(PageColours::green);
        painter_.drawPath(star(QPointF(middle, y), radius));
        painter_.setBrush(Qt::white);
        painter_.drawEllipse(QPointF(middle, y), 0.35 * radius, 0.35 * radius);
        return y + 3 * page_units;
    }

    /// The size at which the notes fill no more than `room`.
    double notes_points(double room) const {
        double points = 8;
        while (points > 4 && write_notes(nullptr, 0, points) > room)
            points -= 0.25;
        return points;
    }

    /// Writes the notes below `top`, and gives how high they are.
    double write_notes(QPainter* painter, double top, double points) const {
        if (sheet_.notes.empty())
            return 0;
        double end = top;
        for (const PageSide& side : sides_) {
            const SideWriter writer(painter, side);
            double y = top + 2 * page_units;
            for (const TwinWords& note : sheet_.notes)
                y = writer.write(note.in(side.language), font_of(points, false, PageColours::quiet), y);
            end = std::max(end, y);
        }
        return end - top;
    }

    void write_foot(int number, int pages) const {
        const PageFont font = font_of(7.5, false, PageColours::quiet);
        painter_.setPen(QPen(PageColours::hairline, 0.2 * page_units));
        painter_.drawLine(QPointF(left_, bottom_ - 4.2 * page_units),
                          QPointF(right_, bottom_ - 4.2 * page_units));
        const double top = bottom_ - 3.8 * page_units;
        if (sides_.size() == 1)
            SideWriter(&painter_, sides_.front())
                .write_pair(program_name, page_words(sides_.front().language, number, pages), font, font,
                            top);
        else
            write_foot_of_both(font, top, number, pages);
    }

    void write_foot_of_both(const PageFont& font, double top, int number, int pages) const {
        for (const PageSide& side : sides_)
            SideWriter(&painter_, side).write(page_words(side.language, number, pages), font, top);
        const QPointF middle((left_ + right_) / 2, top + baseline_below_top * em_of(font));
        PageText(program_name, font, Language::english).draw(painter_, middle, LineAnchor::centre);
    }

    std::string page_words(Language language, int number, int pages) const {
        std::string words =
            QString::fromUtf8(page_of_pages.in(language)).arg(number).arg(pages).toStdString();
        const bool arabic = language == Language::arabic && settings_.digits == PageDigits::arabic;
        return arabic ? arabic_digits(words) : words;
    }

    QPainter& painter_;
    const TimetableSheet& sheet_;
    const PageSettings& settings_;
    double left_;
    double right_;
    double top_;
    double bottom_;
    std::vector<PageSide> sides_;
};

} // namespace

QSizeF paper_size(PaperSize paper) {
    return paper == PaperSize::a4 ? QSizeF(210, 297) : QSizeF(215.9, 279.4);
}

void paint_page(QPainter& painter, const QRectF& paper, const TimetableSheet& sheet,
                const PageSettings& settings, int number, int pages) {
    const QSizeF size = paper_size(settings.paper) * page_units;
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.translate(paper.topLeft());
    painter.scale(paper.width() / size.width(), paper.height() / size.height());
    Page(painter, size, sheet, settings).paint(number, pages);
    painter.restore();
}

} // namespace halvane
