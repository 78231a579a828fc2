// SPDX-License-Identifier: MIT
#pragma once

#include "base/datenumbers.h"
#include "base/twintext.h"
#include "calendar/taggedtime.h"

#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace halvane {

/// What the values of a column are, and how the machine formats write them. Each may be missing.
enum class ValueType {
    text,
    flag,   ///< true or false
    whole,  ///< a whole number
    number, ///< in the unit of the column, to the last digit of a double
    date,   ///< "2026-02-18"
    clock,  ///< of the row's local day: "04:57:12.345678", "24:00:00.000000" for its end; or "up", "down",
            ///< "bright", "dark" where there is no such time for that reason
    moment, ///< date and clock: "2026-02-18T04:57:12.345678"
};

/// A column of a tool's rows.
struct Column {
    const char* key; ///< its name in the machine formats: small letters and "_"
    TwinText heading;
    const char* unit; ///< of numbers: "deg", "h", "km" and so on; else empty
    ValueType type;
};

/// Hours of a local day, or why there are none.
struct ClockValue {
    TaggedTime time;
};

/// A moment by the Julian day of its own clock                                                      [d]
struct MomentValue {
    double jd = 0;
};

/// What stands in a column; nothing where it is missing.
using Value =
    std::variant<std::monostate, std::string, bool, int, double, DateNumbers, ClockValue, MomentValue>;

/// Whether a value is one of a type, or missing.
bool is_of_type(const Value& value, ValueType type);

/// A column and its value in a row.
template <class Row>
struct ColumnOf {
    Column column;
    Value (*value)(const Row& row);
};

/// What a run was made with, told once before its rows.
struct Fact {
    const char* key;
    Value value;
    Fact(const char* fact_key, Value fact_value) : key(fact_key), value(std::move(fact_value)) {}
};
using Facts = std::vector<Fact>;

void add_fact(Facts& facts, const char* key, Value value);

} // namespace halvane
