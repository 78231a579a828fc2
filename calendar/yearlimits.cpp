// SPDX-License-Identifier: MIT
#include "calendar/yearlimits.h"

#include "base/numberformat.h"
#include "base/record.h"

namespace halvane {
namespace {

/// A number that keeps its sign in front within Arabic text.
std::string left_to_right(const std::string& number) {
    return "\u2066" + number + "\u2069";
}

} // namespace

std::optional<Refusal> refused_year(double year, const YearRange& range) {
    if (range.holds(year))
        return std::nullopt;
    const std::string found = plain_number(year);
    const std::string first = plain_number(range.first);
    const std::string last = plain_number(range.last);
    return Refusal{{"Year Error", "خطأ"},
                   {"There is no answer for the year " + found + ": please enter a year from " + first +
                        " to " + last + ".",
                    "لا جواب للسنة " + left_to_right(found) + "، يرجى إدخال سنة من " + left_to_right(first) +
                        " إلى " + left_to_right(last) + "."}};
}

std::optional<Refusal> refused_period(const CalculationDate& date) {
    if (date.system_date)
        return std::nullopt;
    std::optional<Refusal> refused = refused_year(date.start.year, theory_years);
    if (!refused)
        refused = refused_year(date.end.year, theory_years);
    return refused;
}

std::optional<Refusal> refused_stored_period(const CalculationDate& date) {
    std::optional<Refusal> refused = refused_period(date);
    if (refused) {
        refused->text.english += " It stands in the Date menu.";
        refused->text.arabic += " السنة في قائمة التاريخ.";
    }
    return refused;
}

} // namespace halvane
