// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

#include "tools/makeseries/publishedtable.h"

/// The four files of astronomical series, made from the publications they come from. Every file is a sequence
/// of lines of comma-separated plain decimal numbers ended by CR LF, without a head. The functions throw
/// BadTable when a table has not the rows of its publication.
namespace halvane {

/// The tables of numbers as published, one file each, by the names under which read_published_series finds
/// them.
struct PublishedSeries {
    PublishedTable vsop87d;    ///< vsop87d-earth.csv: Bretagnon and Francou 1988, VSOP87D, Earth
    PublishedTable nutation;   ///< meeus-nutation.csv: Meeus 1998, table 22.A
    PublishedTable moon_lr;    ///< meeus-moon-lr.csv: Meeus 1998, table 47.A
    PublishedTable moon_b;     ///< meeus-moon-b.csv: Meeus 1998, table 47.B
    PublishedTable elp2000_85; ///< elp2000-85.csv: Chapront-Touze and Chapront 1991
};

/// Reads and checks all five tables of a folder.
PublishedSeries read_published_series(const std::filesystem::path& folder);

/// `termfull.vsk`: all 2425 terms A cos(B + C tau) as published, in the order L0 to L5, B0 to B4, R0 to R5.
/// Fields A (radians or astronomical units), B (radians), C (radians per Julian millennium).
std::string termfull_file(const PublishedTable& vsop87d);

/// `term.vsk`: per group the 248 largest terms in all, by descending |A|, equal ones in publication order.
/// Fields ordinal, A in the group's unit rounded half up to a whole number, B and C as published.
std::string term_file(const PublishedTable& vsop87d);

/// `mterm.vsk`: 183 rows of 10 fields, the nutation, then the Moon's longitude and distance, then its
/// latitude. Fields ordinal, the multiples of D, M, M', F, then those of the table; fields without use are 0.
std::string mterm_file(const PublishedTable& nutation, const PublishedTable& moon_lr,
                       const PublishedTable& moon_b);

/// `elp.vsk`: 1324 rows in twelve blocks. Fields ordinal within the block, A, a0, a1 and, in the blocks 1, 5
/// and 9 of the main problem, a2, a3, a4.
std::string elp_file(const PublishedTable& elp2000_85);

} // namespace halvane
