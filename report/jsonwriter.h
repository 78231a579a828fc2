// SPDX-License-Identifier: MIT
#pragma once

#include "report/tablewriter.h"

#include <vector>

namespace halvane {

/// One JSON object (RFC 8259): "program", "version", "task", "facts", "columns" (each with its key, headings
/// in both languages, unit and type), "rows" (one object each, a line of its own) and "complete". A missing
/// value is null.
class JsonWriter final : public TableWriter {
public:
    using TableWriter::TableWriter;
    void begin(std::string_view task, const Facts& facts, std::span<const Column> columns) override;
    void row(std::span<const Value> values) override;
    void end() override;

private:
    std::vector<const char*> keys_;
    bool has_rows_ = false;
};

} // namespace halvane
