// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace halvane {

/// A published table that is missing, short or not of its form. The words name the file, the line and what
/// was found there.
class BadTable : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// One row of a published table: its fields as printed, and its line in the file for messages.
struct PublishedRow {
    std::size_t line = 0;
    std::vector<std::string> fields;
};

/// A table of published numbers, row by row in the order of the publication. The digits stay text, so that a
/// number passes from the publication to a series file without being rounded.
struct PublishedTable {
    std::filesystem::path file;
    std::vector<PublishedRow> rows;

    /// Throws BadTable for this file; with a row, for its line.
    [[noreturn]] void reject(const std::string& reason) const;
    [[noreturn]] void reject(const PublishedRow& row, const std::string& reason) const;
};

/// True for a number in plain decimal notation: an optional minus sign, digits, at most one point with digits
/// on both sides, no exponent.
bool is_plain_decimal(std::string_view text);

/// Reads a comma-separated table whose first line must be `head`. Every row must have as many fields as the
/// head. Fields are not looked into. Throws BadTable when the file cannot be read or breaks one of these
/// rules.
PublishedTable read_published_table(const std::filesystem::path& file, std::string_view head);

/// Throws BadTable unless every field from `first_column` (0 based) on is a plain decimal number.
void require_numbers(const PublishedTable& table, std::size_t first_column);

/// Throws BadTable unless the table has exactly `count` rows.
void require_row_count(const PublishedTable& table, std::size_t count);

} // namespace halvane
