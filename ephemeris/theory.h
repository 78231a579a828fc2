// SPDX-License-Identifier: MIT
#pragma once

#include "ephemeris/series.h"

#include <memory>
#include <string_view>

namespace halvane {

/// The series, constant once they are read: any number of threads may share them.
class Theory {
public:
    std::shared_ptr<const SunSeries> complete_sun;         ///< `termfull.vsk`
    std::shared_ptr<const SunSeries> short_sun;            ///< `term.vsk`
    std::shared_ptr<const PeriodicTables> periodic_tables; ///< `mterm.vsk`
    std::shared_ptr<const MoonSeries> lunar_tables;        ///< `elp.vsk`

    /// One of the series.
    /// Error  raise RunTimeFailure when it has not been read.
    const SunSeries& termfull() const;
    const SunSeries& term() const;
    const PeriodicTables& mterm() const;
    const MoonSeries& elp() const;
};

using TheoryPointer = std::shared_ptr<const Theory>;

/// Read a series from the text of its file. Rows past the fixed count are not read.
/// In     path  of the file, for messages only
/// Error  raise RunTimeFailure naming the path, the row and the column for a short or damaged text.
std::shared_ptr<const SunSeries> read_termfull(std::string_view text, const std::string& path);
std::shared_ptr<const SunSeries> read_term(std::string_view text, const std::string& path);
std::shared_ptr<const PeriodicTables> read_mterm(std::string_view text, const std::string& path);
std::shared_ptr<const MoonSeries> read_elp(std::string_view text, const std::string& path);

} // namespace halvane
