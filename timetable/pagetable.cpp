// SPDX-License-Identifier: MIT
#include "timetable/pagetable.h"

#include "timetable/cells.h"
#include "timetable/pagedigits.h"

#include <QPen>
#include <QString>
#include <algorithm>
#include <cmath>
#include <iterator>
#include <sstream>
#include <string>

namespace halvane {
namespace {

constexpr double greatest_points = 11;
constexpr double reference_points = 10;
constexpr double least_side_by_side = 7.6; ///< smaller cells have their languages below one another  [pt]
constexpr double stacked_part = 0.8;       ///< of the font, in such cells
constexpr double heading_part = 0.88;      ///< of the font
constexpr double greatest_heading = 8.8;   ///< [pt]
constexpr double padding = 1.0 * page_units;
constexpr double word_padding = 1.5 * page_units;    ///< words reach to both sides of their column
constexpr double heading_padding = 1.1 * page_units; ///< above and below
constexpr double greatest_row_height = 7.2 * page_units;
constexpr int usual_rows = 31;             ///< so that the months of a year have rows alike
constexpr double half_figure = 0.357;      ///< of the em: a figure's middle above the baseline
constexpr double between_languages = 0.55; ///< in a cell, of the em

PageFont font_of(double points, bool bold, const QColor& colour = PageColours::ink) {
    PageFont font;
    font.points = points;
    font.bold = bold;
    font.colour = colour;
    return font;
}

/// The width of a text by a font of one point.
double width_per_point(const std::string& text, bool bold, Language language) {
    return PageText(text, font_of(reference_points, bold), language).width() / reference_points;
}

double widest_word(const std::string& text, Language language) {
    std::istringstream words(text);
    double widest = 0;
    for (std::string word; words >> word;)
        widest = std::max(widest, width_per_point(word, true, language));
    return widest;
}

/// Whether a cell says in Arabic what it says in English, but for its digits: a page in both then has it
/// once.
bool alike(const TwinWords& words) {
    return words.arabic == words.english || words.arabic == arabic_digits(words.english);
}

/// The number that a text begins with, as the day of a date does.
std::string leading_number(const std::string& text) {
    return text.substr(0, text.find_first_not_of("0123456789"));
}

bool has_figures(const std::string& text) {
    const QString letters = QString::fromStdString(text);
    return std::any_of(letters.begin(), letters.end(), [](QChar letter) { return letter.isDigit(); });
}

double number_width(const TwinWords& words, bool bold) {
    return width_per_point(leading_number(words.english), bold, Language::english);
}

/// In bold type the numbers are wider; a column has place for both.
bool is_bold(const SheetRow& row) {
    return row.friday || row.hijri_month_begins;
}

double heading_points(double points) {
    return std::min(greatest_heading, heading_part * points);
}

/// The greatest font whose lines a row of `height` holds                                          [pt]
double points_of_row(double height, bool stacked) {
    const double ems = stacked ? 2 * stacked_part * 1.24 : 1.5;
    return height / (ems * em_of(font_of(1, false)));
}

/// Widths that fill `whole`: the narrowest columns are widened first, until they are alike.
std::vector<double> filled(std::vector<double> widths, double whole) {
    std::vector<double> falling = widths;
    std::sort(falling.rbegin(), falling.rend());
    double left = whole;
    auto count = static_cast<double>(falling.size());
    for (const double width : falling) {
        if (width * count <= left)
            break;
        left -= width;
        --count;
    }
    const double level = count > 0 ? left / count : 0;
    for (double& width : widths)
        width = std::max(width, level);
    return widths;
}

} // namespace

PageTable::PageTable(const TimetableSheet& sheet, PageLanguage language, double width)
    : sheet_(sheet), language_(language), width_(width), columns_(sheet.columns.size()) {
    measure();
    points_ = points_of_width();
    if (both() && points_ < least_side_by_side) {
        stacked_ = true;
        measure();
        points_ = points_of_width();
    }
    share_width();
}

Language PageTable::first_language() const {
    return mirrored() ? Language::arabic : Language::english;
}

const std::string& PageTable::said_once(const TwinWords& words) const {
    return both() ? words.arabic : words.in(first_language()); // in the digits of the page
}

double PageTable::cell_width(const TwinWords& words, bool bold) const {
    if (!both() || alike(words))
        return width_per_point(said_once(words), bold, first_language());
    const double english = width_per_point(words.english, bold, Language::english);
    const double arabic = width_per_point(words.arabic, bold, Language::arabic);
    if (stacked_)
        return stacked_part * std::max(english, arabic);
    return english + between_languages * em_of(font_of(1, false)) + arabic;
}

double PageTable::indent(const Column& column, const TwinWords& words, bool bold) {
    return column.numbers > 0 ? column.numbers - number_width(words, bold) : 0;
}

double PageTable::heading_width(const TwinWords& heading) const {
    double widest = 0;
    for (const Language language : languages)
        if (both() || language == first_language())
            widest = std::max(widest, widest_word(heading.in(language), language));
    return widest;
}

void PageTable::measure() {
    const double mark = width_per_point(rule_mark, false, first_language());
    for (std::size_t number = 0; number < columns_.size(); ++number) {
        Column& column = columns_[number];
        column = {};
        column.words = !has_times(sheet_.columns[number].column);
        column.heading = heading_width(sheet_.columns[number].heading);
        for (const SheetRow& row : sheet_.rows)
            if (column.words && !mirrored())
                column.numbers = std::max(column.numbers, number_width(row.cells[number].text, is_bold(row)));
        for (const SheetRow& row : sheet_.rows) {
            const SheetCell& cell = row.cells[number];
            const bool bold = is_bold(row);
            column.block =
                std::max(column.block, indent(column, cell.text, bold) + cell_width(cell.text, bold));
            if (cell.marked)
                column.mark = mark;
        }
    }
}

double PageTable::natural_width(const Column& column, double points) const {
    return std::max(points * (column.block + 2 * column.mark), heading_points(points) * column.heading) +
           2 * (column.words ? word_padding : padding);
}

double PageTable::points_of_width() const {
    const auto whole = [this](double points) {
        double sum = 0;
        for (const Column& column : columns_)
            sum += natural_width(column, points);
        return sum;
    };
    double points = greatest_points;
    while (points > 3 && whole(points) > width_)
        points -= 0.1;
    return points;
}

void PageTable::share_width() {
    std::vector<double> widths;
    widths.reserve(columns_.size());
    for (const Column& column : columns_)
        widths.push_back(natural_width(column, points_));
    widths = filled(std::move(widths), width_);
    double left = 0;
    for (std::size_t number = 0; number < columns_.size(); ++number) {
        columns_[number].width = widths[number];
        columns_[number].left = mirrored() ? width_ - left - widths[number] : left;
        left += widths[number];
    }
}

std::vector<PageText> PageTable::heading_lines(std::size_t number) const {
    const TwinWords& heading = sheet_.columns[number].heading;
    const PageFont font = font_of(heading_points(points_), true, Qt::white);
    const double width = columns_[number].width - padding;
    std::vector<PageText> lines;
    for (const Language language : languages)
        if (both() || language == first_language())
            lines.emplace_back(heading.in(language), font, language, width);
    return lines;
}

double PageTable::heading_height() const {
    double highest = 0;
    for (std::size_t number = 0; number < columns_.size(); ++number) {
        double height = 0;
        for (const PageText& text : heading_lines(number))
            height += text.height();
        highest = std::max(highest, height);
    }
    return highest + 2 * heading_padding;
}

double PageTable::least_height(double row_height) const {
    return heading_height() + row_height * std::max(usual_rows, static_cast<int>(sheet_.rows.size()));
}

double PageTable::paint(QPainter& painter, const QRectF& room) const {
    const double top = room.top() + heading_height();
    const int rows = std::max(usual_rows, static_cast<int>(sheet_.rows.size()));
    const double height = std::min(greatest_row_height, (room.bottom() - top) / rows);
    paint_headings(painter, QRectF(room.left(), room.top(), width_, top - room.top()));
    QRectF row(room.left(), top, width_, height);
    for (const SheetRow& content : sheet_.rows) {
        paint_row(painter, row, content);
        row.translate(0, height);
    }
    painter.setPen(QPen(PageColours::green, 0.4 * page_units));
    painter.drawLine(row.topLeft(), row.topRight());
    return row.top();
}

void PageTable::paint_headings(QPainter& painter, const QRectF& room) const {
    painter.fillRect(room, PageColours::green);
    const double em = em_of(font_of(heading_points(points_), true));
    for (std::size_t number = 0; number < columns_.size(); ++number) {
        const std::vector<PageText> lines = heading_lines(number);
        double height = 0;
        for (const PageText& text : lines)
            height += text.height();
        QPointF place(room.left() + columns_[number].left + columns_[number].width / 2,
                      room.center().y() - height / 2);
        for (const PageText& text : lines) {
            text.draw(painter, place + QPointF(0, baseline_below_top * em), LineAnchor::centre);
            place.ry() += text.height();
        }
    }
}

void PageTable::paint_row(QPainter& painter, const QRectF& row, const SheetRow& content) const {
    if (content.friday)
        painter.fillRect(row, PageColours::friday);
    QPen pen(PageColours::hairline, 0.15 * page_units);
    if (content.hijri_month_begins)
        pen = QPen(PageColours::green, 0.5 * page_units);
    else if (content.clock_changes)
        pen = QPen(PageColours::quiet, 0.3 * page_units, Qt::DashLine);
    painter.setPen(pen);
    painter.drawLine(row.topLeft(), row.topRight());
    for (std::size_t number = 0; number < columns_.size(); ++number) {
        const Column& column = columns_[number];
        const QRectF place(row.left() + column.left, row.top(), column.width, row.height());
        paint_cell(painter, place, number, content);
    }
}

void PageTable::paint_cell(QPainter& painter, const QRectF& place, std::size_t number,
                           const SheetRow& row) const {
    const Column& column = columns_[number];
    const SheetCell& cell = row.cells[number];
    if (cell.text.in(first_language()).empty())
        return;
    const bool begins = row.hijri_month_begins && sheet_.columns[number].column == TimetableColumn::hijri;
    const PageFont font = font_of(std::min(points_, points_of_row(place.height(), stacked_)),
                                  row.friday || begins, begins ? PageColours::green : PageColours::ink);
    const double half = font.points * column.block / 2;
    const double indented = font.points * indent(column, cell.text, font.bold);
    const QRectF block(place.center().x() - half + indented, place.top(), 2 * half - indented,
                       place.height());
    const double mark = !both() || alike(cell.text)
                            ? paint_text(painter, block, font, cell.text, column.words)
                        : stacked_ ? paint_stacked(painter, block, font, cell.text)
                                   : paint_side_by_side(painter, block, font, cell.text);
    if (cell.marked)
        paint_mark(painter, font, QPointF(mark, block.center().y() + half_figure * em_of(font)));
}

double PageTable::paint_text(QPainter& painter, const QRectF& block, const PageFont& font,
                             const TwinWords& words, bool begin_alike) const {
    const std::string& shown = said_once(words);
    const PageText text(shown, font, first_language());
    const double baseline = block.center().y() + half_figure * em_of(font);
    if (begin_alike && !mirrored())
        text.draw(painter, QPointF(block.left(), baseline), LineAnchor::left);
    else if (begin_alike || has_figures(shown))
        text.draw(painter, QPointF(block.right(), baseline), LineAnchor::right);
    else
        text.draw(painter, QPointF(block.center().x(), baseline), LineAnchor::centre);
    return mirrored() ? block.right() - text.width() : block.right();
}

double PageTable::paint_side_by_side(QPainter& painter, const QRectF& block, const PageFont& font,
                                     const TwinWords& words) const {
    const double baseline = block.center().y() + half_figure * em_of(font);
    PageText(words.english, font, Language::english)
        .draw(painter, QPointF(block.left(), baseline), LineAnchor::left);
    PageText(words.arabic, font, Language::arabic)
        .draw(painter, QPointF(block.right(), baseline), LineAnchor::right);
    return block.right();
}

double PageTable::paint_stacked(QPainter& painter, const QRectF& block, PageFont font,
                                const TwinWords& words) const {
    font.points *= stacked_part;
    const QPointF middle = block.center();
    const PageText english(words.english, font, Language::english);
    const PageText arabic(words.arabic, font, Language::arabic);
    english.draw(painter, middle - QPointF(0, 0.16 * em_of(font)), LineAnchor::centre);
    arabic.draw(painter, middle + QPointF(0, 0.94 * em_of(font)), LineAnchor::centre);
    return middle.x() + std::max(english.width(), arabic.width()) / 2;
}

void PageTable::paint_mark(QPainter& painter, PageFont font, const QPointF& place) const {
    font.bold = false;
    font.colour = PageColours::green;
    const PageText mark(rule_mark, font, first_language());
    mark.draw(painter, place, mirrored() ? LineAnchor::right : LineAnchor::left);
}

} // namespace halvane
