// SPDX-License-Identifier: MIT
#pragma once

#include "report/tablewriter.h"

#include <string>
#include <string_view>

namespace halvane {

/// Puts a text behind a line as a field of RFC 4180: in quote marks where it needs them.
void append_csv_field(std::string& line, std::string_view text);
/// The same, always in quote marks: a reader then keeps blanks at its ends.
void append_quoted_csv_field(std::string& line, std::string_view text);

/// Comma-separated values by RFC 4180, in UTF-8 without a byte order mark. The facts are left out. A missing
/// value is an empty field.
class CsvWriter final : public TableWriter {
public:
    using TableWriter::TableWriter;
    void begin(std::string_view task, const Facts& facts, std::span<const Column> columns) override;
    void row(std::span<const Value> values) override;
    void end() override;
};

} // namespace halvane
