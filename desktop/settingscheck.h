// SPDX-License-Identifier: MIT
#pragma once

#include "stored/date.h"
#include "stored/loc.h"
#include "stored/pref.h"

#include <optional>

namespace halvane {

enum class RefusalReason {
    no_times,    ///< the prayer times of the day have no finite value with it
    beyond_limit ///< the record would hold another number in its place
};

/// The first value of a record that keeps it from being stored.
template <class Field>
struct RefusedValue {
    Field field; ///< where the value stands in the record
    RefusalReason reason;
    double limit = 0; ///< largest magnitude that the record holds; for beyond_limit
};

/// What keeps `location` from being the current one: with it today's prayer times must exist.
std::optional<RefusedValue<double Location::*>> refused_value(const Location& location);

/// What keeps `preferences` from being in force: with them today's prayer times must exist.
std::optional<RefusedValue<double Preferences::*>> refused_value(const Preferences& preferences);

/// What keeps `date` from being calculated for: the prayer times of its first and its last day must exist.
/// The field is that of the panel's boxes which are in use; the machine's date needs none.
std::optional<RefusedValue<DateNumbers CalculationDate::*>> refused_value(const CalculationDate& date);

} // namespace halvane
