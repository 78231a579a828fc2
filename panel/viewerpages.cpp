// SPDX-License-Identifier: MIT
#include "panel/viewerpages.h"

#include "base/pagewords.h"
#include "panel/textline.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

namespace halvane {

namespace {

constexpr double margin = 15;       // [mm]
constexpr double largest_type = 10; // [pt]
constexpr double points_of_inch = 72;
constexpr double head_type = 9;           // [pt]
constexpr double head_rows = 1.8;         // of the head's lines, down to the text
constexpr double head_line = 1.25;        // of the head's lines, down to the line under it
constexpr std::int64_t widest_page = 145; // columns; a longer line is broken

void widen_margins(QPagedPaintDevice& device) {
    const QMarginsF now = device.pageLayout().margins(QPageLayout::Millimeter);
    device.setPageMargins(QMarginsF(std::max(margin, now.left()), std::max(margin, now.top()),
                                    std::max(margin, now.right()), std::max(margin, now.bottom())),
                          QPageLayout::Millimeter);
}

/// The longest line that is not broken.
std::int64_t columns_of(const KeptText& text) {
    if (text.longest_line() <= widest_page)
        return std::max<std::int64_t>(1, text.longest_line());
    std::int64_t longest = 1;
    for (std::int64_t line = 0; line < text.lines(); ++line)
        if (const qsizetype length = text.line(line).size(); length <= widest_page)
            longest = std::max<std::int64_t>(longest, length);
    return longest;
}

QFont fitting_font(QPaintDevice& device, bool is_table, double width, std::int64_t columns) {
    QFont font(is_table ? QFont(fixed_family()) : QGuiApplication::font());
    font.setFixedPitch(is_table);
    const QString longest(columns, u'0');
    const auto wanted = [&] { return QFontMetricsF(font, &device).horizontalAdvance(longest); };
    // Fonts come in whole pixels of the device.
    int pixels = static_cast<int>(largest_type / points_of_inch * device.logicalDpiY());
    font.setPixelSize(pixels);
    if (wanted() > width)
        pixels = static_cast<int>(std::ceil(pixels * width / wanted()));
    for (font.setPixelSize(std::max(1, pixels)); pixels > 1 && wanted() > width;)
        font.setPixelSize(--pixels);
    return font;
}

/// Deals rows out to pages.
class Pages {
public:
    Pages(const PrintedText& printed, std::int64_t rows) : rows_(rows) {
        // Titles that would take most of the page stand where they are only.
        titles_ = 2 * printed.titles < rows ? printed.titles : 0;
        behind_titles_ = printed.first_title + printed.titles;
    }
    /// Takes the next row, which is one of `line`; whether it begins a page.
    bool next(std::int64_t line) {
        ++row;
        if (number > 0 && row < rows_)
            return false;
        ++number;
        repeats_titles = titles_ > 0 && line >= behind_titles_;
        row = repeats_titles ? titles_ : 0;
        return true;
    }

    int number = 0;
    std::int64_t row = 0; ///< of the page
    bool repeats_titles = false;

private:
    std::int64_t rows_;
    std::int64_t titles_;
    std::int64_t behind_titles_;
};

/// Hands every row of the text to `take(line, row, direction)` until that answers false.
template <class Take>
void for_each_row(const PrintedText& printed, std::int64_t columns, Take take) {
    const KeptText& text = *printed.text;
    Qt::LayoutDirection direction = Qt::LeftToRight;
    const bool ends_with_line_end = text.lines() > 1 && text.line(text.lines() - 1).isEmpty();
    const std::int64_t lines = text.lines() - (ends_with_line_end ? 1 : 0);
    for (std::int64_t line = 0; line < lines; ++line) {
        const QString content = text.line(line);
        if (!printed.is_table)
            direction = direction_of(content, direction);
        qsizetype at = 0;
        do {
            if (!take(line, content.mid(at, columns), direction))
                return;
            at += columns;
        } while (at < content.size());
    }
}

/// Draws the pages of one text.
class Printer {
public:
    Printer(QPagedPaintDevice& device, const PrintedText& printed, const PageRange& range)
        : device_(device), printed_(printed), range_(range), painter_(&device), width_(device.width()),
          columns_(columns_of(*printed.text)),
          style_(fitting_font(device, printed.is_table, width_, columns_), !printed.is_table, &device) {
        head_font_ = QGuiApplication::font();
        head_font_.setPointSizeF(head_type);
        const double head_height = QFontMetricsF(head_font_, &device).lineSpacing();
        line_at_ = head_height * head_line;
        body_at_ = head_height * head_rows;
        const double room = device.height() - body_at_;
        rows_ = std::max<std::int64_t>(1, static_cast<std::int64_t>(room / style_.height));
    }

    int count() const {
        Pages pages(printed_, rows_);
        for_each_row(printed_, columns_, [&pages](std::int64_t line, const QString&, Qt::LayoutDirection) {
            pages.next(line);
            return true;
        });
        return pages.number;
    }

    /// Returns whether all was printed.
    bool print(int count, Progress* progress) {
        const int last = range_.last > 0 ? std::min(range_.last, count) : count;
        Pages pages(printed_, rows_);
        bool given_up = false;
        for_each_row(printed_, columns_,
                     [&](std::int64_t line, const QString& row, Qt::LayoutDirection direction) {
                         const bool begins = pages.next(line);
                         if (pages.number > last)
                             return false;
                         if (begins && progress != nullptr) {
                             progress->percent(100.0 * (pages.number - 1) / count);
                             given_up = !progress->yield();
                         }
                         if (given_up)
                             return false;
                         if (pages.number < range_.first)
                             return true;
                         if (begins)
                             begin_page(pages, count);
                         draw_row(pages.row, row, direction);
                         return true;
                     });
        return !given_up;
    }

private:
    void begin_page(const Pages& pages, int count) {
        if (pages.number > std::max(1, range_.first))
            device_.newPage();
        draw_head(pages.number, count);
        if (pages.repeats_titles)
            for (std::int64_t title = 0; title < printed_.titles; ++title)
                draw_row(title, printed_.text->line(printed_.first_title + title), Qt::LeftToRight);
    }
    void draw_head(int number, int count) {
        const bool from_right = printed_.language == Language::arabic;
        painter_.setFont(head_font_);
        painter_.setLayoutDirection(from_right ? Qt::RightToLeft : Qt::LeftToRight);
        const QFontMetricsF metrics(head_font_, &device_);
        const QString page = text_of(words_of_page(number, count), printed_.language);
        const double page_width = metrics.horizontalAdvance(page);
        const double title_width = width_ - page_width - metrics.horizontalAdvance(u'0') * 2;
        const double height = metrics.lineSpacing();
        const QString title = metrics.elidedText(printed_.title, Qt::ElideMiddle, title_width);
        painter_.drawText(QRectF(from_right ? width_ - title_width : 0, 0, title_width, height),
                          Qt::AlignLeading | Qt::TextSingleLine | Qt::TextDontClip, title);
        painter_.drawText(QRectF(from_right ? 0 : width_ - page_width, 0, page_width, height),
                          Qt::AlignTrailing | Qt::TextSingleLine | Qt::TextDontClip, page);
        painter_.drawLine(QPointF(0, line_at_), QPointF(width_, line_at_));
    }
    void draw_row(std::int64_t row, const QString& text, Qt::LayoutDirection direction) {
        QTextLayout layout(QString(), style_.font, &device_);
        lay_out(layout, text, style_, direction, width_);
        layout.draw(&painter_,
                    QPointF(0, body_at_ + static_cast<double>(row) * style_.height + drop(layout, style_)));
    }

    QPagedPaintDevice& device_;
    const PrintedText& printed_;
    PageRange range_;
    QPainter painter_;
    double width_;
    std::int64_t columns_;
    LineStyle style_;
    QFont head_font_;
    double line_at_ = 0;
    double body_at_ = 0;
    std::int64_t rows_ = 1;
};

/// Whether text set in `family` comes out with one width, whatever font stands in for it.
bool is_fixed(const QString& family) {
    return QFontInfo(QFont(family)).fixedPitch();
}

} // namespace

QString fixed_family() {
    return fixed_family(QFontDatabase::systemFont(QFontDatabase::FixedFont).family());
}

QString fixed_family(const QString& told) {
    if (is_fixed(told))
        return told;
    for (const char* name : {"DejaVu Sans Mono", "Noto Sans Mono", "Liberation Mono", "monospace"})
        if (QString family = QString::fromLatin1(name); is_fixed(family))
            return family;
    for (const QString& family : QFontDatabase::families(QFontDatabase::Latin))
        if (QFontDatabase::isFixedPitch(family))
            return family;
    return told;
}

int print_pages(QPagedPaintDevice& device, const PrintedText& printed, const PageRange& range,
                Progress* progress) {
    widen_margins(device);
    Printer printer(device, printed, range);
    const int count = printer.count();
    return printer.print(count, progress) ? count : 0;
}

} // namespace halvane
