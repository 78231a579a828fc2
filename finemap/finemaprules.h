// SPDX-License-Identifier: MIT
#pragma once

#include "finemap/finemap.h"
#include "stored/loc.h"

#include <string>
#include <vector>

namespace halvane {

/// The evenings, or mornings, of a conjunction: its civil date in Universal Time and the two after it, or
/// before it for an old crescent; 0 h of each                                                    [d]
std::vector<double> days_of_crescent(double conjunction, CrescentKind kind);

/// The conjunction so many months later; nothing beyond the years of the theories.
/// In     conjunction  geocentric; Julian day, UT1                                               [d]
std::optional<double> conjunction_after(Ephemeris& ephemeris, double conjunction, int months);

/// The criteria that have a map of this kind of crescent.
std::vector<const CataloguedCriterion*> mapped_criteria(CrescentKind kind);

/// A place as it is told: "31.95° N  35.93° E".
std::string place_text(const MapPosition& place);

/// What a map says of a place: a line with the class, then one with lag, age, altitude, elongation and the
/// measure.
TwinWords answer_words(const FineMapSettings& settings, const PlaceAnswer& answer);

/// All the numbers of a place, with what every criterion says of it; clocks in Universal Time.
TwinWords numbers_of_place(Ephemeris& ephemeris, const FineMapSettings& settings, const MapPosition& place);

/// A place of a map as a location: at sea level, on the clock of its longitude in whole hours.
/// In     stored  whose other settings are kept
Location location_at(const MapPosition& place, const Location& stored);

/// A limit as it is typed.
struct TypedLimit {
    std::optional<double> value; ///< nothing for an empty box
    bool is_wrong = false;       ///< neither a number nor nothing, or far beyond any use
};
TypedLimit typed_limit(const std::string& text);

} // namespace halvane
