// SPDX-License-Identifier: MIT
#pragma once

#include "hijri/hijriconverter.h"
#include "hijri/hijriyears.h"
#include "hijri/keptrule.h"

#include <optional>
#include <string>
#include <vector>

namespace halvane {

/// What one or two rules ask for.
struct AskedParts {
    bool place = false;     ///< of the list, or the stored location
    bool is_listed = false; ///< a place of the list alone
    bool criterion = false;
    bool region = false; ///< and until when a crescent in it counts
};

/// In     other   null: none
///        before  until when a crescent that is seen anywhere counts: until Fajer it is a place's
AskedParts asked_of(const HijriRule& rule, const HijriRule* other, SeenBefore before);

/// The rule in words, with its source, or that of the criterion that it asks for, in a line of its own.
TwinWords told_words(const HijriRule& rule, const CataloguedCriterion& criterion);

/// The classes of a criterion that may count as seen: a class's index is one above its place here.
std::vector<TwinText> classes_to_see(const CataloguedCriterion& criterion);

/// What is told of a year that has no months here; nothing for a whole one of hijri_rule_years.
std::optional<TwinWords> refused_hijri_year(double year);

/// The civil year of the first day of a Hijri year in the tabular calendar.
double civil_year_of(double hijri_year);

/// A month's row, as it is shown.
struct MonthRow {
    /// By one rule.
    struct Part {
        std::string first_day; ///< "Wednesday, 18 February 2026"
        std::string days;
        std::string margin;
        std::string notes;
        bool may_differ = false;
    };
    std::string month;
    std::vector<Part> parts; ///< for each rule
    std::string difference;  ///< of the second rule from the first; empty with one rule alone
};

/// The rows of the first year.
std::vector<MonthRow> rows_of(const HijriYears& years, Language language);

/// "1447, Umm al-Qura: 354 days. Months that may differ by a day: 2. ...": the first year in a few sentences.
TwinWords summary_of(const HijriYears& years);

/// "Wednesday, 18 February 2026"
std::string long_date(double day_number, Language language);
/// "Wednesday, 1 Ramadan 1447"
std::string long_hijri_date(const HijriDay& day, Language language);

} // namespace halvane
