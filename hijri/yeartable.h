// SPDX-License-Identifier: MIT
#pragma once

#include "base/language.h"
#include "hijri/celltable.h"
#include "hijri/hijriyears.h"

namespace halvane {

/// The months of a Hijri year by one rule or by two side by side.
class YearTable : public CellTable {
    Q_OBJECT
public:
    using CellTable::CellTable;

    /// Shows the first year.
    void show_year(const HijriYears& years, Language language);
};

} // namespace halvane
