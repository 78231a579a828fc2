// SPDX-License-Identifier: MIT
#pragma once

#include "report/tablewriter.h"

namespace halvane {

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
