// SPDX-License-Identifier: MIT
#include "timetable/timetablesheet.h"

#include "base/numberformat.h"
#include "calendar/modday.h"
#include "timetable/cells.h"
#include "timetable/pagedigits.h"
#include "timetable/placewords.h"
#include "timetable/sheetnotes.h"

#include <algorithm>
#include <span>

namespace halvane {
namespace {

using Rows = std::span<const TimetableRow>;

/// Why there is no time.
TwinText word_of(NoEvent reason) {
    switch (reason) {
    case NoEvent::up:
        return {"up", "طالعة"};
    case NoEvent::down:
        return {"down", "غائبة"};
    case NoEvent::bright:
        return {"bright", "مضيئة"};
    case NoEvent::dark:
        return {"dark", "مظلمة"};
    case NoEvent::none:
        break;
    }
    return {"–", "–"};
}

TwinWords civil_month(double month) {
    const int number = static_cast<int>(month);
    return {civil_month_name(number, Language::english), civil_month_name(number, Language::arabic)};
}

TwinWords hijri_month(double month) {
    return {hijri_month_name(month, Language::english), hijri_month_name(month, Language::arabic)};
}

TwinWords with_number(const TwinWords& words, double number) {
    return joined(words, " ", alike(plain_number(number)));
}

/// "February 2026", or "February - March 2026", "December 2026 - January 2027".
TwinWords month_range(const TwinWords& first, double first_year, const TwinWords& last, double last_year) {
    if (first_year != last_year)
        return joined(with_number(first, first_year), " – ", with_number(last, last_year));
    if (first.english == last.english)
        return with_number(first, first_year);
    return with_number(joined(first, " – ", last), first_year);
}

TwinWords civil_range(Rows rows) {
    return month_range(civil_month(rows.front().date.month), rows.front().date.year,
                       civil_month(rows.back().date.month), rows.back().date.year);
}

TwinWords hijri_range(Rows rows) {
    return month_range(hijri_month(rows.front().hijri.month), rows.front().hijri.year,
                       hijri_month(rows.back().hijri.month), rows.back().hijri.year);
}

/// Lays out the rows of one sheet.
class SheetMaker {
public:
    SheetMaker(const Timetable& timetable, const PageSettings& page, Rows rows)
        : timetable_(timetable), page_(page), rows_(rows), by_hijri_(is_hijri(timetable.settings.span.kind)) {
    }

    TimetableSheet run() {
        const TwinWords title{"Prayer times", "مواقيت الصلاة"};
        TimetableSheet sheet;
        sheet.month = by_hijri_ ? hijri_range(rows_) : civil_range(rows_);
        sheet.title = {title.english + ", " + sheet.month.english, title.arabic + "، " + sheet.month.arabic};
        sheet.hijri_months = by_hijri_ ? civil_range(rows_) : hijri_range(rows_);
        sheet.place = alike(timetable_.settings.place.location.name);
        sheet.coordinates = coordinates_words(timetable_.settings.place.location);
        sheet.zone = zone_words(timetable_.settings.place, rows_);
        sheet.rules = rules_words(timetable_.settings.profile, page_.names);
        for (const TimetableColumn column : page_.columns)
            sheet.columns.push_back({column, heading(column)});
        for (const TimetableRow& row : rows_)
            sheet.rows.push_back(row_of(row));
        sheet.notes = notes_of(timetable_, page_, rows_);
        take_digits(sheet);
        return sheet;
    }

private:
    TwinWords heading(TimetableColumn column) const {
        const ColumnNames& names = names_of(column);
        return page_.names == PrayerNames::common ? names.common : names.halvane;
    }

    SheetRow row_of(const TimetableRow& row) const {
        SheetRow result;
        for (const TimetableColumn column : page_.columns)
            result.cells.push_back(cell(row, column));
        result.friday = row.is_friday();
        result.hijri_month_begins = row.hijri.day == 1;
        result.clock_changes = row.clock_changes;
        return result;
    }

    SheetCell cell(const TimetableRow& row, TimetableColumn column) const {
        switch (column) {
        case TimetableColumn::date:
            return {date_words(row)};
        case TimetableColumn::weekday:
            return {weekday_words(row)};
        case TimetableColumn::hijri:
            return {hijri_words(row)};
        case TimetableColumn::moon_phase:
            return {words_of(row.moon)};
        case TimetableColumn::rules:
            return {alike(machine_text(timetable_, row, column))};
        default:
            return times_cell(row, column);
        }
    }

    TwinWords date_words(const TimetableRow& row) const {
        TwinWords day = alike(plain_number(row.date.day));
        if (!by_hijri_ || !(is_first(row) || row.date.day == 1))
            return day;
        return joined(day, " ", civil_month(row.date.month));
    }

    TwinWords hijri_words(const TimetableRow& row) const {
        TwinWords day = alike(plain_number(row.hijri.day));
        if (by_hijri_ || !(is_first(row) || row.hijri.day == 1))
            return day;
        return joined(day, " ", hijri_month(row.hijri.month));
    }

    bool is_first(const TimetableRow& row) const { return &row == &rows_.front(); }

    static TwinWords weekday_words(const TimetableRow& row) {
        constexpr std::size_t short_name = 3;
        const double noon = row.jd + 0.5;
        return {weekday_name(noon, Language::english).substr(0, short_name),
                weekday_name(noon, Language::arabic)};
    }

    SheetCell times_cell(const TimetableRow& row, TimetableColumn column) const {
        SheetCell cell;
        for (const RowTime& time : times_in(row, column)) {
            const TwinWords words = time.clock ? clock_words(*time.clock, timetable_.to_second, page_.clock)
                                               : missing_words(time, column);
            cell.text = cell.text.english.empty() ? words : joined(cell.text, "  ", words);
            cell.marked = cell.marked || (is_by_rule(time.source) && !is_iqamah(column));
        }
        return cell;
    }

    /// An iqamah that is not held has an empty cell.
    static TwinWords missing_words(const RowTime& time, TimetableColumn column) {
        return is_iqamah(column) ? TwinWords() : TwinWords(word_of(time.missing));
    }

    void take_digits(TimetableSheet& sheet) const {
        const auto take = [this](TwinWords& words) { words = in_digits(words, page_.digits); };
        for (TwinWords* words :
             {&sheet.title, &sheet.month, &sheet.hijri_months, &sheet.coordinates, &sheet.zone, &sheet.rules})
            take(*words);
        for (SheetRow& row : sheet.rows)
            for (SheetCell& cell : row.cells)
                take(cell.text);
        for (TwinWords& note : sheet.notes)
            take(note);
    }

    const Timetable& timetable_;
    const PageSettings& page_;
    Rows rows_;
    bool by_hijri_;
};

} // namespace

std::vector<TimetableSheet> sheets_of(const Timetable& timetable, const PageSettings& page) {
    const bool by_hijri = is_hijri(timetable.settings.span.kind);
    const auto month_of = [by_hijri](const TimetableRow& row) {
        return by_hijri ? row.hijri.month : row.date.month;
    };
    const Rows rows(timetable.rows);
    std::vector<TimetableSheet> sheets;
    for (std::size_t first = 0; first < rows.size();) {
        std::size_t end = first + 1;
        while (end < rows.size() && month_of(rows[end]) == month_of(rows[first]))
            ++end;
        sheets.push_back(SheetMaker(timetable, page, rows.subspan(first, end - first)).run());
        first = end;
    }
    return sheets;
}

} // namespace halvane
