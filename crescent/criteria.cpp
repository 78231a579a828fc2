// SPDX-License-Identifier: MIT
#include "crescent/criteria.h"

#include "ephemeris/modgeneral.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace halvane {
namespace {

/// The part of the lines that Yallop and "Vesk Criteria" share: -0.1018 W^3 + 0.7319 W^2 - 6.3226 W.
double line_of_width(double width) {
    return width * (-6.3226 + width * (0.7319 - 0.1018 * width));
}

/// The part of the two lines of Caldwell and Laney that the azimuths give.
double saao_line(double daz) {
    return 0.0004 * daz * daz * daz - 0.0157 * daz * daz - 0.0145 * daz;
}

} // namespace

double vesk_value(double arcv, double width) {
    return arcv - (line_of_width(width) + 7.1651);
}

VisibilityClass vesk_class(double value) {
    if (value >= 5.65)
        return VisibilityClass::easily_visible;
    if (value >= 2)
        return VisibilityClass::second_band;
    return value >= -0.97 ? VisibilityClass::optical_aid : VisibilityClass::not_possible;
}

const char* vesk_sentence(double value) {
    switch (vesk_class(value)) {
    case VisibilityClass::easily_visible:
        return "Easily Visible By Naked Eye.";
    case VisibilityClass::second_band:
        return "Visible With Optical Aid, Could Be Seen By Naked Eye.";
    case VisibilityClass::optical_aid:
        return "Visible With Optical Aid Only.";
    default:
        return "Not Visible Even With Optical Aid.";
    }
}

double yallop_value(double arcv, double width) {
    return (arcv - (11.8371 + line_of_width(width))) / 10;
}

std::optional<VisibilityClass> yallop_class(double q) {
    if (q > 0.216)
        return VisibilityClass::easily_visible;
    if (q > -0.014)
        return VisibilityClass::third_band;
    if (q > -0.16)
        return VisibilityClass::second_band;
    if (q > -0.232)
        return VisibilityClass::optical_aid;
    if (q < -0.232)
        return VisibilityClass::not_possible;
    return std::nullopt;
}

double apparent_lower_limb(double altitude, double semidiameter) {
    const double h = altitude - semidiameter;
    if (h + 5.11 == 0)
        return h; // the formula has a pole here, far below the horizon
    return h + 1.02 / std::tan((h + 10.3 / (h + 5.11)) * radians_per_degree) / 60;
}

double saao_value(double limb, double daz) {
    return limb - saao_line(daz);
}

VisibilityClass saao_class(double limb, double daz) {
    const double line = saao_line(daz);
    if (limb - (line + 8.1912) >= 0)
        return VisibilityClass::easily_visible;
    return limb - (line + 6.2912) >= 0 ? VisibilityClass::optical_aid : VisibilityClass::not_possible;
}

namespace {

double vesk_value_of(const CrescentQuantities& q) {
    return vesk_value(q.relative_altitude(), q.width_minutes());
}

VisibilityClass vesk_measure(const CrescentQuantities& q) {
    return vesk_class(vesk_value_of(q));
}

VisibilityClass yallop_measure(const CrescentQuantities& q) {
    return yallop_class(yallop_value(q.relative_altitude(), q.width_minutes()))
        .value_or(VisibilityClass::not_possible);
}

VisibilityClass saao_measure(const CrescentQuantities& q) {
    return saao_class(apparent_lower_limb(q.moon_altitude, q.semidiameter), std::fabs(q.relative_azimuth()));
}

using enum VisibilityClass;

constexpr LegendLine blue{optical_aid, {"Blue: Need Optical Aid", "كحلي: يحتاج مرقب/تلسكوب"}};
constexpr LegendLine green{easily_visible,
                           {"Green: Easily Visible by Naked Eye", "أخضر: يرى بسهولة بالعين المجردة"}};

constexpr CriterionRow table[] = {
    {.key = "vesk",
     .name = {"Vesk", "Vesk"},
     .moment = ObservationMoment::best_time,
     .measure = vesk_measure,
     .bands = {{blue,
                {second_band, {"Magenta: Could be Seen by Naked Eye", "زهري: قد يرى بالعين المجردة"}},
                green}},
     .report = {vesk_value_of, vesk_sentence}},
    {.key = "yallop",
     .name = {"Yallop", "يالوب"},
     .moment = ObservationMoment::best_time,
     .measure = yallop_measure,
     .bands = {{blue,
                {second_band, {"Magenta: May Need Optical Aid", "زهري: قد يحتاج مرقب/تلسكوب"}},
                {third_band,
                 {"Yellow: Naked Eye at Perfect Conditions", "أصفر: يرى بالعين المجردة في ظروف مثالية"}},
                green}}},
    {.key = "saao",
     .name = {"SAAO", "جنوب أفريقيا"},
     .moment = ObservationMoment::sun_event,
     .measure = saao_measure,
     .bands = {{{optical_aid, {"Blue: Crescent Visibility is Improbable", "كحلي: رؤية الهلال غير محتملة"}},
                {easily_visible, {"Green: Crescent Visibility is Possible", "أخضر: رؤية الهلال ممكنة"}}}}},
};

constexpr bool is_text(const char* text) {
    return text != nullptr && *text != '\0';
}

constexpr bool is_in_every_language(const TwinText& text) {
    return std::all_of(std::begin(languages), std::end(languages),
                       [&text](Language language) { return is_text(text.in(language)); });
}

/// Whether every row of the table passes `check`.
template <class Check>
constexpr bool every_row(Check check) {
    return std::all_of(std::begin(table), std::end(table), check);
}

constexpr bool has_key_of_its_own(const CriterionRow& row) {
    return is_text(row.key) &&
           std::count_if(std::begin(table), std::end(table), [&row](const CriterionRow& other) {
               return is_text(other.key) && std::string_view(row.key) == other.key;
           }) == 1;
}

/// Each line in both languages, one at least, and nothing behind the first empty one.
constexpr bool has_whole_lines(const CriterionRow& row) {
    const std::size_t count = row.lines().size();
    for (std::size_t i = 0; i < row.bands.size(); ++i)
        for (const Language language : languages)
            if (is_text(row.bands[i].text.in(language)) != (i < count))
                return false;
    return count > 0;
}

/// From the lowest band up, each class once, all above not_possible.
constexpr bool has_classes_in_order(const CriterionRow& row) {
    VisibilityClass below = not_possible;
    for (const LegendLine& line : row.lines()) {
        if (line.visibility <= below)
            return false;
        below = line.visibility;
    }
    return true;
}

constexpr bool has_verdict(const CriterionRow& row) {
    return row.report.value != nullptr && row.report.sentence != nullptr;
}

constexpr const CriterionRow& entry(Criterion criterion) {
    return table[static_cast<std::size_t>(criterion)];
}

constexpr bool is_named(Criterion criterion, std::string_view key) {
    return entry(criterion).key == key;
}

static_assert(every_row(has_key_of_its_own), "a criterion has no key of its own");
static_assert(every_row([](const CriterionRow& row) { return is_in_every_language(row.name); }),
              "a criterion lacks its name in a language");
static_assert(every_row([](const CriterionRow& row) { return row.moment != ObservationMoment{}; }),
              "a criterion has no moment of observation");
static_assert(every_row([](const CriterionRow& row) { return row.measure != nullptr; }),
              "a criterion has no measure");
static_assert(every_row(has_whole_lines), "a criterion lacks a line of its legend in a language");
static_assert(every_row(has_classes_in_order), "a criterion's classes are not in order");
static_assert(is_named(Criterion::vesk, "vesk") && is_named(Criterion::yallop, "yallop") &&
                  is_named(Criterion::saao, "saao"),
              "a name of a criterion stands for another row");
static_assert(has_verdict(entry(report_criterion)), "the report's criterion has no value or no verdict");

} // namespace

std::span<const CriterionRow> criteria() {
    return table;
}

const CriterionRow& row_of(Criterion criterion) {
    return entry(criterion);
}

std::optional<Criterion> criterion_of(std::string_view key) {
    const auto* const found = std::find_if(std::begin(table), std::end(table),
                                           [key](const CriterionRow& row) { return row.key == key; });
    if (found == std::end(table))
        return std::nullopt;
    return Criterion{static_cast<int>(found - std::begin(table))};
}

} // namespace halvane
