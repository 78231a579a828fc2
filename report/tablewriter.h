// SPDX-License-Identifier: MIT
#pragma once

#include "report/column.h"
#include "report/textresult.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace halvane {

/// The formats that a run can be written in.
enum class ReportFormat {
    text, ///< the fixed report
    csv,  ///< RFC 4180: a row of keys, then the rows; UTF-8
    json  ///< one object: the facts, the columns, the rows
};

/// "text", "csv", "json": its name on a command line and, but for the text, the ending of its files.
const char* name_of(ReportFormat format);
/// Every format, the text first.
std::span<const ReportFormat> report_formats();
/// The format of a name; nothing for any other text.
std::optional<ReportFormat> format_of(std::string_view name);

/// Writes the rows of one run in a machine format.
class TableWriter {
public:
    explicit TableWriter(TextResult& result) : result_(result) {}
    TableWriter(const TableWriter&) = delete;
    TableWriter& operator=(const TableWriter&) = delete;
    virtual ~TableWriter() = default;

    /// In     task  its name on the command line
    virtual void begin(std::string_view task, const Facts& facts, std::span<const Column> columns) = 0;
    /// In     values  as many as there are columns, each of its column's type
    virtual void row(std::span<const Value> values) = 0;
    /// After the last row.
    virtual void end() = 0;

protected:
    std::string& text() { return result_.text(); }
    void end_line() { result_.end_line(); }

private:
    TextResult& result_;
};

/// The writer of a machine format (not of the text), over `result`.
std::unique_ptr<TableWriter> table_writer(ReportFormat format, TextResult& result);

} // namespace halvane
