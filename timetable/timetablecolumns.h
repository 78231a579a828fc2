// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"

#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace halvane {

/// What a timetable can show of a day.
enum class TimetableColumn {
    date,
    weekday,
    hijri,
    imsak,
    fajer,
    fajer_iqamah,
    shuroq,
    dhohur,
    dhohur_iqamah,
    jumuah,
    aser,          ///< by the profile's shadow
    aser_standard, ///< a shadow longer by the object's height than at noon
    aser_hanafi,   ///< by twice the height
    aser_iqamah,
    maghreb,
    maghreb_iqamah,
    isha,
    isha_iqamah,
    midnight,
    last_third,
    moon_phase,
    qiblah_sun,
    rules ///< which times a rule has made
};

/// A column's names.
struct ColumnNames {
    TimetableColumn column;
    const char* key; ///< in files and on the command line
    TwinText halvane;
    TwinText common; ///< the usual English spelling; the Arabic one is the same
};

/// Every column, in the order of a day.
std::span<const ColumnNames> column_names();
const ColumnNames& names_of(TimetableColumn column);
std::optional<TimetableColumn> find_column(std::string_view key);

/// Those of a new page.
std::vector<TimetableColumn> usual_columns();

} // namespace halvane
