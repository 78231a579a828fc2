// SPDX-License-Identifier: MIT
#include "tools/makeseries/publishedtable.h"

#include <algorithm>
#include <fstream>

namespace halvane {

namespace {

std::vector<std::string> split_at_commas(std::string_view line) {
    std::vector<std::string> fields;
    std::size_t start = 0;
    while (true) {
        const std::size_t comma = line.find(',', start);
        fields.emplace_back(line.substr(start, comma - start));
        if (comma == std::string_view::npos) {
            return fields;
        }
        start = comma + 1;
    }
}

bool read_line(std::istream& input, std::string& line) {
    if (!std::getline(input, line)) {
        return false;
    }
    if (line.ends_with('\r')) {
        line.pop_back();
    }
    return true;
}

bool all_digits(std::string_view text) {
    return !text.empty() && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

} // namespace

void PublishedTable::reject(const std::string& reason) const {
    throw BadTable(file.string() + ": " + reason);
}

void PublishedTable::reject(const PublishedRow& row, const std::string& reason) const {
    reject("line " + std::to_string(row.line) + ": " + reason);
}

bool is_plain_decimal(std::string_view text) {
    if (text.starts_with('-')) {
        text.remove_prefix(1);
    }
    const std::size_t point = text.find('.');
    if (point == std::string_view::npos) {
        return all_digits(text);
    }
    return all_digits(text.substr(0, point)) && all_digits(text.substr(point + 1));
}

PublishedTable read_published_table(const std::filesystem::path& file, std::string_view head) {
    PublishedTable table{file, {}};
    std::ifstream input(file, std::ios::binary);
    if (!input) {
        table.reject("cannot be opened");
    }
    std::string line;
    if (!read_line(input, line) || line != head) {
        table.reject("line 1: expected the head \"" + std::string(head) + "\", found \"" + line + "\"");
    }
    const std::size_t width = split_at_commas(head).size();
    std::size_t number = 1;
    while (read_line(input, line)) {
        PublishedRow row{++number, split_at_commas(line)};
        if (row.fields.size() != width) {
            table.reject(row, "expected " + std::to_string(width) + " fields, found " +
                                  std::to_string(row.fields.size()));
        }
        table.rows.push_back(std::move(row));
    }
    if (input.bad()) {
        table.reject("could not be read to its end");
    }
    return table;
}

void require_numbers(const PublishedTable& table, std::size_t first_column) {
    for (const PublishedRow& row : table.rows) {
        for (std::size_t column = first_column; column < row.fields.size(); ++column) {
            if (!is_plain_decimal(row.fields[column])) {
                table.reject(row, "field " + std::to_string(column + 1) + ": expected a number, found \"" +
                                      row.fields[column] + "\"");
            }
        }
    }
}

void require_row_count(const PublishedTable& table, std::size_t count) {
    if (table.rows.size() != count) {
        table.reject("expected " + std::to_string(count) + " rows, found " +
                     std::to_string(table.rows.size()));
    }
}

} // namespace halvane
