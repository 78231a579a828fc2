// SPDX-License-Identifier: MIT
#pragma once

#include "report/column.h"

namespace halvane {

/// The columns that rows of days begin with: `date` and `summer`.
template <class Row>
inline constexpr ColumnOf<Row> date_column{{"date", {"Date", "التاريخ"}, "", ValueType::date},
                                           [](const Row& row) -> Value { return row.date; }};

template <class Row>
inline constexpr ColumnOf<Row> summer_column{
    {"summer_time", {"Summer time", "التوقيت الصيفي"}, "", ValueType::flag},
    [](const Row& row) -> Value { return row.summer; }};

} // namespace halvane
