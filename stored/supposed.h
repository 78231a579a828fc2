// SPDX-License-Identifier: MIT
#pragma once

#include "stored/coor.h"
#include "stored/date.h"
#include "stored/loc.h"
#include "stored/phase.h"
#include "stored/pref.h"
#include "stored/tele.h"
#include "stored/visib.h"

namespace halvane {

/// While it lives, the reader of its record (read_loc, read_pref ...) answers as if the record were stored;
/// the file is neither read nor touched. There is at most one of each record.
template <class Record>
class Supposed {
public:
    [[nodiscard]] explicit Supposed(const Record& record);
    Supposed(const Supposed&) = delete;
    Supposed& operator=(const Supposed&) = delete;
    ~Supposed();
};

using SupposedLocation = Supposed<Location>;
using SupposedPreferences = Supposed<Preferences>;

/// A record as it would read after it has been stored: numbers beyond its limits are the limits.
Location as_stored(const Location& location);
Preferences as_stored(const Preferences& preferences);
CalculationDate as_stored(const CalculationDate& date);

// One of each record of a single line, defined beside its reader.
template <>
Supposed<EphemerisSettings>::Supposed(const EphemerisSettings& record);
template <>
Supposed<EphemerisSettings>::~Supposed();
template <>
Supposed<CalculationDate>::Supposed(const CalculationDate& record);
template <>
Supposed<CalculationDate>::~Supposed();
template <>
Supposed<Location>::Supposed(const Location& record);
template <>
Supposed<Location>::~Supposed();
template <>
Supposed<PhaseSettings>::Supposed(const PhaseSettings& record);
template <>
Supposed<PhaseSettings>::~Supposed();
template <>
Supposed<Preferences>::Supposed(const Preferences& record);
template <>
Supposed<Preferences>::~Supposed();
template <>
Supposed<TelescopeSettings>::Supposed(const TelescopeSettings& record);
template <>
Supposed<TelescopeSettings>::~Supposed();
template <>
Supposed<CrescentSettings>::Supposed(const CrescentSettings& record);
template <>
Supposed<CrescentSettings>::~Supposed();

} // namespace halvane
