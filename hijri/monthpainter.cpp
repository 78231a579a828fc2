// SPDX-License-Identifier: MIT
#include "hijri/monthpainter.h"

#include "base/pagewords.h"
#include "calendar/civildate.h"
#include "hijri/hijritexts.h"
#include "hijri/monthgrid.h"
#include "timetable/clockunits.h"
#include "timetable/pagedigits.h"
#include "timetable/pageframe.h"
#include "timetable/placewords.h"
#include "timetable/skydays.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace halvane {
namespace {

constexpr double noon = 0.5;

TwinWords span_words(const MonthSheet& sheet) {
    return joined(date_words(civil_date(sheet.days.front().day_number)), " - ",
                  date_words(civil_date(sheet.days.back().day_number)));
}

/// "Time zone Asia/Amman (UT +2, UT +3)"
TwinWords zone_words(const MonthSheet& sheet) {
    std::vector<int> offsets;
    for (const MonthDay& day : sheet.days) {
        const double ahead = clock_on(sheet.place, day.day_number - noon).ahead();
        const int offset = static_cast<int>(std::lround(ahead * seconds_of_hour));
        if (std::find(offsets.begin(), offsets.end(), offset) == offsets.end())
            offsets.push_back(offset);
    }
    return zone_words(sheet.place, offsets);
}

/// What is told of the first day, each with its margin where it has one.
std::vector<TwinWords> warnings_of(const MonthSheet& sheet, PageDigits digits) {
    std::vector<TwinWords> warnings;
    for (const TwinWords& note : notes_of(sheet.month))
        warnings.push_back(in_digits(sentence(joined({"First day: ", "أول يوم: "}, "", note)), digits));
    if (sheet.month.may_differ())
        warnings.back() = joined(warnings.back(), "",
                                 {" Margin: " + margin_text(sheet.month) + ".",
                                  " الهامش: " + left_to_right(margin_text(sheet.month)) + "."});
    return warnings;
}

/// What the days of the page are, and its tint and mark.
TwinWords days_words(const MonthSheet& sheet) {
    const TwinWords words{"Each day begins at the sunset before it. Tinted: the white days.",
                          "يبدأ كل يوم من غروب الشمس قبله. الأيام المظللة هي الأيام البيض."};
    const bool has_nights = std::any_of(sheet.days.begin(), sheet.days.end(), [](const MonthDay& day) {
        return std::any_of(day.feasts.begin(), day.feasts.end(),
                           [](const Feast* feast) { return feast->of_the_night; });
    });
    const std::string mark = std::string(" ") + night_mark;
    return has_nights
               ? joined(words, mark.c_str(), {" In the night before the day.", " في الليلة السابقة لليوم."})
               : words;
}

/// A source, of books in Latin letters, keeps its digits.
std::vector<TwinWords> notes_of(const MonthSheet& sheet, PageDigits digits) {
    const std::string source = source_of(sheet.settings);
    const TwinWords rule = joined(name_of(sheet.settings), ": ", sentence(sheet.settings.rule->told));
    const TwinWords clock = joined({"Phases of the Moon by the clock of " + sheet.place.location.name + ": ",
                                    "أطوار القمر بتوقيت " + sheet.place.location.name + ": "},
                                   "", sentence(zone_words(sheet)));
    return {joined(in_digits(rule, digits), " ",
                   {"Source: " + source + ".", "المصدر: " + left_to_right(source) + "."}),
            in_digits(days_words(sheet), digits), in_digits(clock, digits)};
}

/// A page that is being painted, in page units.
class Page {
public:
    Page(QPainter& painter, const QSizeF& size, const MonthSheet& sheet, const MonthPage& page)
        : painter_(painter), sheet_(sheet), page_(page), left_(page_margin),
          right_(size.width() - page_margin), bottom_(size.height() - page_margin),
          sides_(sides_of(page.language, left_, right_)) {}

    void paint(int number, int pages) const {
        const double top = paint_star_rule(painter_, left_, right_, write_head());
        const double room = bottom_ - foot_height - top;
        const double least_grid = 0.75 * room;
        const double points =
            notes_points(room - least_grid, [this](double size) { return write_notes(nullptr, 0, size); });
        const double notes = write_notes(nullptr, 0, points);
        const double end =
            paint_month_grid(painter_, QRectF(left_, top, right_ - left_, room - notes), sheet_, page_);
        write_notes(&painter_, end, points);
        paint_foot(painter_, sides_, bottom_, in_digits(words_of_page(number, pages), page_.digits));
    }

private:
    double write_head() const {
        double end = page_margin;
        for (const PageSide& side : sides_)
            end = std::max(end, write_head_of(side));
        return end;
    }

    double write_head_of(const PageSide& side) const {
        const SideWriter writer(&painter_, side);
        const auto in = [&](const TwinWords& words) {
            return in_digits(words, page_.digits).in(side.language);
        };
        const std::string title = in(month_words(sheet_.month.number));
        const PageFont large = fitting(title, page_font(26, true, PageColours::ink), side.language,
                                       side.width() - page_units, 15);
        double top = writer.write(title, large, page_margin) + 2 * page_units; // letters reach below the line
        const PageFont green = page_font(12, true, PageColours::green);
        const PageFont plain = page_font(12, false, PageColours::ink);
        const std::string span = in(span_words(sheet_));
        const std::string rule = in(name_of(sheet_.settings));
        top = sides_.size() == 1 ? writer.write_pair(span, rule, green, plain, top)
                                 : writer.write(rule, plain, writer.write(span, green, top));
        for (const TwinWords& warning : warnings_of(sheet_, page_.digits))
            top = writer.write(warning.in(side.language), page_font(9, true, PageColours::ink),
                               top + 0.6 * page_units);
        return top;
    }

    /// Writes the notes below `top`, and gives how high they are.
    double write_notes(QPainter* painter, double top, double points) const {
        double end = top;
        for (const PageSide& side : sides_) {
            const SideWriter writer(painter, side);
            double y = top + 2 * page_units;
            for (const TwinWords& note : notes_of(sheet_, page_.digits))
                y = writer.write(note.in(side.language), page_font(points, false, PageColours::quiet), y);
            end = std::max(end, y);
        }
        return end - top;
    }

    QPainter& painter_;
    const MonthSheet& sheet_;
    MonthPage page_;
    double left_;
    double right_;
    double bottom_;
    std::vector<PageSide> sides_;
};

} // namespace

PaintedPages painted_pages(std::shared_ptr<const std::vector<MonthSheet>> sheets, const MonthPage& page) {
    const int count = static_cast<int>(sheets->size());
    return {page.paper, page.language, count,
            [sheets = std::move(sheets), page, count](QPainter& painter, const QRectF& room, int number) {
                const QSizeF size = paper_size(page.paper) * page_units;
                const MonthSheet& sheet = (*sheets)[static_cast<std::size_t>(number - 1)];
                painter.save();
                painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
                painter.translate(room.topLeft());
                painter.scale(room.width() / size.width(), room.height() / size.height());
                Page(painter, size, sheet, page).paint(number, count);
                painter.restore();
            }};
}

PaintedPages painted_pages(const std::shared_ptr<const MonthSheet>& sheet, const MonthPage& page) {
    return painted_pages(std::make_shared<const std::vector<MonthSheet>>(1, *sheet), page);
}

std::string document_title(const std::vector<MonthSheet>& sheets, PageLanguage language) {
    const auto title = [language](const MonthSheet& sheet) {
        return month_words(sheet.month.number)
            .in(language == PageLanguage::arabic ? Language::arabic : Language::english);
    };
    const std::string first = title(sheets.front());
    return sheets.size() == 1 ? first : first + " - " + title(sheets.back());
}

} // namespace halvane
