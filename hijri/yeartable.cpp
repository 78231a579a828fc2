// SPDX-License-Identifier: MIT
#include "hijri/yeartable.h"

#include "hijri/monthsrules.h"
#include "panel/formlanguage.h"
#include "panel/namelabel.h"

namespace halvane {
namespace {

constexpr TwinText month_title{"Month", "الشهر"};
constexpr TwinText first_day_title{"First day", "اليوم الأول"};
constexpr TwinText days_title{"Days", "الأيام"};
constexpr TwinText margin_title{"Margin", "الهامش"};
constexpr TwinText notes_title{"Notes", "ملاحظات"};
constexpr TwinText difference_title{"Difference", "الفرق"};

/// Of the columns that show_row fills: the first days of the rules side by side, then the rest of each.
QStringList year_titles(const HijriYears& years, Language language) {
    const bool is_compared = years.rules.size() > 1;
    QStringList first_days{text_of(month_title, language)};
    QStringList rest;
    for (const RuleMonths& rule : years.rules) {
        const QString by =
            is_compared ? u'\n' + shortened(text_of(rule.settings.rule->name, language)) : QString();
        first_days << text_of(first_day_title, language) + by;
        for (const TwinText& title : {days_title, margin_title, notes_title})
            rest << text_of(title, language) + by;
    }
    if (is_compared)
        first_days << text_of(difference_title, language);
    return first_days + rest;
}

void show_row(CellTable& table, int row, const MonthRow& month) {
    int column = 0;
    const auto show = [&table, row, &column](const std::string& text, bool is_marked) {
        table.show_cell(row, column++, isolated(QString::fromStdString(text)), is_marked);
    };
    show(month.month, month.parts.front().may_differ);
    for (const MonthRow::Part& part : month.parts)
        show(part.first_day, part.may_differ);
    if (!month.difference.empty())
        show(month.difference, false);
    for (const MonthRow::Part& part : month.parts)
        for (const std::string& text : {part.days, part.margin, part.notes})
            show(text, part.may_differ);
}

} // namespace

void YearTable::show_year(const HijriYears& years, Language language) {
    show_columns(year_titles(years, language));
    const std::vector<MonthRow> rows = rows_of(years, language);
    setRowCount(static_cast<int>(rows.size()));
    for (int row = 0; row < rowCount(); ++row)
        show_row(*this, row, rows[static_cast<std::size_t>(row)]);
    fit_cells();
}

} // namespace halvane
