// SPDX-License-Identifier: MIT
#include "tools/makeseries/seriesfiles.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string_view>

namespace halvane {

namespace {

constexpr std::size_t amplitude_decimals = 11;

/// A group of VSOP87D terms: how many are published, how many `term.vsk` takes, and one unit of its
/// amplitudes there in units of the last published digit (1e-11).
struct SunGroup {
    std::string_view name;
    std::size_t published;
    std::size_t selected;
    std::int64_t unit;
};

constexpr std::array<SunGroup, 17> sun_groups{{
    {"L0", 559, 78, 1000},
    {"L1", 341, 39, 100},
    {"L2", 142, 27, 100},
    {"L3", 22, 8, 1},
    {"L4", 11, 4, 1},
    {"L5", 5, 4, 1},
    {"B0", 184, 7, 1000},
    {"B1", 99, 3, 100},
    {"B2", 49, 0, 1},
    {"B3", 11, 0, 1},
    {"B4", 5, 0, 1},
    {"R0", 526, 50, 1000},
    {"R1", 292, 14, 100},
    {"R2", 139, 8, 100},
    {"R3", 27, 2, 1},
    {"R4", 10, 4, 1},
    {"R5", 3, 0, 1},
}};

constexpr std::size_t nutation_rows = 63;
constexpr std::size_t moon_rows = 60;
constexpr std::size_t mterm_fields = 10;

constexpr std::array<std::size_t, 12> elp_block_rows{218, 244, 154, 25, 188, 64, 64, 12, 154, 114, 68, 19};

bool is_main_problem(std::size_t block) {
    return block == 1 || block == 5 || block == 9;
}

void append_record(std::string& file, std::span<const std::string> fields) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
        file += i == 0 ? "" : ",";
        file += fields[i];
    }
    file += "\r\n";
}

std::string row_name(const std::string& group, const std::string& rank) {
    std::string name = "row ";
    return name.append(rank).append(" of group ").append(group);
}

/// Throws unless the rows from `first` on are `count` rows with this key and the ranks 1, 2, 3 ...
void require_block(const PublishedTable& table, std::size_t first, std::size_t count,
                   const std::string& key) {
    for (std::size_t i = 0; i < count; ++i) {
        const std::string expected = row_name(key, std::to_string(i + 1));
        if (first + i >= table.rows.size()) {
            table.reject("ends before " + expected);
        }
        const PublishedRow& row = table.rows[first + i];
        const std::string found = row_name(row.fields[0], row.fields[1]);
        if (found != expected) {
            table.reject(row, std::string("expected ").append(expected).append(", found ").append(found));
        }
    }
}

void check_vsop87d(const PublishedTable& table) {
    std::size_t first = 0;
    for (const SunGroup& group : sun_groups) {
        require_block(table, first, group.published, std::string(group.name));
        first += group.published;
    }
    require_row_count(table, first);
    require_numbers(table, 2);
}

void check_elp2000_85(const PublishedTable& table) {
    constexpr std::size_t secondary_end = 5;
    std::size_t first = 0;
    for (std::size_t block = 1; block <= elp_block_rows.size(); ++block) {
        const std::size_t count = elp_block_rows[block - 1];
        require_block(table, first, count, std::to_string(block));
        for (std::size_t i = first; i < first + count; ++i) {
            const PublishedRow& row = table.rows[i];
            for (std::size_t column = 2; column < row.fields.size(); ++column) {
                const std::string& field = row.fields[column];
                const bool used = is_main_problem(block) || column < secondary_end;
                if (used ? !is_plain_decimal(field) : !field.empty()) {
                    table.reject(row, "field " + std::to_string(column + 1) + ": expected " +
                                          (used ? "a number" : "nothing") + ", found \"" + field + "\"");
                }
            }
        }
        first += count;
    }
    require_row_count(table, first);
}

/// The published amplitude in units of its last digit.
std::int64_t amplitude_in_last_digits(const PublishedTable& table, const PublishedRow& row) {
    std::string digits = row.fields[2];
    const std::size_t point = digits.find('.');
    if (point == std::string::npos || digits.size() - point - 1 != amplitude_decimals) {
        table.reject(row, "expected an amplitude of " + std::to_string(amplitude_decimals) +
                              " decimals, found \"" + digits + "\"");
    }
    digits.erase(point, 1);
    constexpr std::size_t safe_digits = 18;
    if (digits.size() > safe_digits) {
        table.reject(row, "the amplitude \"" + row.fields[2] + "\" is too long");
    }
    return std::stoll(digits);
}

std::int64_t divide_half_up(std::int64_t value, std::int64_t unit) {
    const std::int64_t doubled = 2 * value + unit;
    const std::int64_t quotient = doubled / (2 * unit);
    return doubled % (2 * unit) < 0 ? quotient - 1 : quotient;
}

struct SunTerm {
    std::int64_t amplitude;
    const PublishedRow* row;
};

std::vector<SunTerm> largest_terms(const PublishedTable& table, std::size_t first, const SunGroup& group) {
    std::vector<SunTerm> terms;
    for (std::size_t i = first; i < first + group.published; ++i) {
        terms.push_back({amplitude_in_last_digits(table, table.rows[i]), &table.rows[i]});
    }
    std::ranges::stable_sort(terms, [](const SunTerm& a, const SunTerm& b) {
        return std::abs(a.amplitude) > std::abs(b.amplitude);
    });
    terms.resize(group.selected);
    return terms;
}

/// Appends the rows of one table of `mterm.vsk`: the argument multiples, the argument-free columns as
/// printed, and zeros up to the width of the file.
void append_mterm_rows(std::string& file, std::size_t& ordinal, const PublishedTable& table) {
    for (const PublishedRow& row : table.rows) {
        std::vector<std::string> record{std::to_string(++ordinal)};
        record.insert(record.end(), row.fields.begin(), row.fields.end());
        record.resize(mterm_fields, "0");
        append_record(file, record);
    }
}

} // namespace

PublishedSeries read_published_series(const std::filesystem::path& folder) {
    PublishedSeries series{
        read_published_table(folder / "vsop87d-earth.csv", "group,rank,A,B,C"),
        read_published_table(folder / "meeus-nutation.csv", "D,M,Mprime,F,Omega,psi0,psi1,eps0,eps1"),
        read_published_table(folder / "meeus-moon-lr.csv", "D,M,Mprime,F,lon,dist"),
        read_published_table(folder / "meeus-moon-b.csv", "D,M,Mprime,F,lat"),
        read_published_table(folder / "elp2000-85.csv", "block,n,A,a0,a1,a2,a3,a4"),
    };
    check_vsop87d(series.vsop87d);
    check_elp2000_85(series.elp2000_85);
    require_row_count(series.nutation, nutation_rows);
    require_row_count(series.moon_lr, moon_rows);
    require_row_count(series.moon_b, moon_rows);
    for (const PublishedTable* table : {&series.nutation, &series.moon_lr, &series.moon_b}) {
        require_numbers(*table, 0);
    }
    return series;
}

std::string termfull_file(const PublishedTable& vsop87d) {
    std::string file;
    for (const PublishedRow& row : vsop87d.rows) {
        append_record(file, std::span(row.fields).subspan(2));
    }
    return file;
}

std::string term_file(const PublishedTable& vsop87d) {
    std::string file;
    std::size_t ordinal = 0;
    std::size_t first = 0;
    for (const SunGroup& group : sun_groups) {
        for (const SunTerm& term : largest_terms(vsop87d, first, group)) {
            const std::array<std::string, 4> record{
                std::to_string(++ordinal), std::to_string(divide_half_up(term.amplitude, group.unit)),
                term.row->fields[3], term.row->fields[4]};
            append_record(file, record);
        }
        first += group.published;
    }
    return file;
}

std::string mterm_file(const PublishedTable& nutation, const PublishedTable& moon_lr,
                       const PublishedTable& moon_b) {
    std::string file;
    std::size_t ordinal = 0;
    for (const PublishedTable* table : {&nutation, &moon_lr, &moon_b}) {
        append_mterm_rows(file, ordinal, *table);
    }
    return file;
}

std::string elp_file(const PublishedTable& elp2000_85) {
    std::string file;
    for (const PublishedRow& row : elp2000_85.rows) {
        std::vector<std::string> record(row.fields.begin() + 1, row.fields.end());
        std::erase(record, "");
        append_record(file, record);
    }
    return file;
}

} // namespace halvane
