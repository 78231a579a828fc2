// SPDX-License-Identifier: MIT
#pragma once

#include "base/datenumbers.h"
#include "base/twintext.h"
#include "calendar/hijricalendar.h"
#include "calendar/yearlimits.h"

#include <optional>
#include <string>
#include <string_view>

namespace halvane {

/// What the days of a timetable are.
enum class SpanKind { month, year, hijri_month, hijri_year, dates };
constexpr bool is_hijri(SpanKind kind) {
    return kind == SpanKind::hijri_month || kind == SpanKind::hijri_year;
}

/// The days of a timetable, both ends inside.
struct DaySpan {
    SpanKind kind = SpanKind::dates;
    double first = 0; ///< 0 h of the first civil date                                            [d]
    double last = 0;  ///< 0 h of the last one                                                    [d]

    int days() const { return static_cast<int>(last - first) + 1; }
    bool operator==(const DaySpan&) const = default;
};

/// At most so many days make one timetable.
inline constexpr int most_days = 36600;
/// Hijri years of a timetable; they lie within theory_years.
inline constexpr YearRange hijri_timetable_years{1, hijri_theory_years.last};

/// A span, or why there is none.
struct SpanAnswer {
    DaySpan span;
    std::optional<TwinWords> refused;
};

SpanAnswer month_span(double year, double month);
SpanAnswer year_span(double year);
/// In     hijri  by which its months begin; null for the tabular calendar
/// Error  raises RunTimeFailure, as the reckoning does; so do the others that take one.
SpanAnswer hijri_month_span(double year, double month, const HijriReckoningPointer& hijri = nullptr);
SpanAnswer hijri_year_span(double year, const HijriReckoningPointer& hijri = nullptr);
SpanAnswer dates_span(const DateNumbers& from, const DateNumbers& to);

// The same from a command line's texts: "2026-02", "2026", "1447-09", "1447", "2026-02-18".
SpanAnswer month_span(std::string_view text);
SpanAnswer year_span(std::string_view text);
SpanAnswer hijri_month_span(std::string_view text, const HijriReckoningPointer& hijri = nullptr);
SpanAnswer hijri_year_span(std::string_view text, const HijriReckoningPointer& hijri = nullptr);
SpanAnswer dates_span(std::string_view from, std::string_view to);

} // namespace halvane
