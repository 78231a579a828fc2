// SPDX-License-Identifier: MIT
#include "timetable/pagepainter.h"

#include "base/pagewords.h"
#include "timetable/pagedigits.h"
#include "timetable/pageframe.h"
#include "timetable/pagetable.h"
#include "timetable/pagetext.h"

#include <algorithm>
#include <string>
#include <vector>

namespace halvane {
namespace {

constexpr double least_row_height = 4.4 * page_units;

/// A page that is being painted, in page units.
class Page {
public:
    Page(QPainter& painter, const QSizeF& size, const TimetableSheet& sheet, const PageSettings& settings)
        : painter_(painter), sheet_(sheet), settings_(settings), left_(page_margin),
          right_(size.width() - page_margin), top_(page_margin), bottom_(size.height() - page_margin),
          sides_(sides_of(settings.language, left_, right_)) {}

    void paint(int number, int pages) {
        const double table_top = paint_star_rule(painter_, left_, right_, write_head());
        const PageTable table(sheet_, settings_.language, right_ - left_);
        const double room = bottom_ - foot_height - table_top;
        const double notes_size =
            notes_points(room - table.least_height(least_row_height),
                         [this](double points) { return write_notes(nullptr, 0, points); });
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
        const PageFont name =
            fitting(place, page_font(21, true, PageColours::ink), language, side.width(), 13);
        double top = writer.write(place, name, top_);
        top = writer.write_pair(sheet_.title.in(language), sheet_.hijri_months.in(language),
                                page_font(12.5, true, PageColours::green),
                                page_font(12.5, false, PageColours::ink), top);
        top += 0.8 * page_units;
        const PageFont small = page_font(8.5, false, PageColours::quiet);
        if (sides_.size() == 1)
            top = writer.write_pair(sheet_.coordinates.in(language), sheet_.zone.in(language), small, small,
                                    top);
        else
            top = writer.write(sheet_.zone.in(language), small,
                               writer.write(sheet_.coordinates.in(language), small, top));
        return writer.write(sheet_.rules.in(language), small, top);
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
                y = writer.write(note.in(side.language), page_font(points, false, PageColours::quiet), y);
            end = std::max(end, y);
        }
        return end - top;
    }

    void write_foot(int number, int pages) const {
        paint_foot(painter_, sides_, bottom_, in_digits(words_of_page(number, pages), settings_.digits));
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
