// SPDX-License-Identifier: MIT
#include "report/tablewriter.h"

#include "report/csvwriter.h"
#include "report/jsonwriter.h"

#include <array>
#include <stdexcept>

namespace halvane {
namespace {

constexpr std::array<ReportFormat, 3> formats{ReportFormat::text, ReportFormat::csv, ReportFormat::json};

} // namespace

const char* name_of(ReportFormat format) {
    switch (format) {
    case ReportFormat::text:
        return "text";
    case ReportFormat::csv:
        return "csv";
    case ReportFormat::json:
        return "json";
    }
    throw std::logic_error("a format without a name");
}

std::span<const ReportFormat> report_formats() {
    return formats;
}

std::optional<ReportFormat> format_of(std::string_view name) {
    for (const ReportFormat format : formats)
        if (name == name_of(format))
            return format;
    return std::nullopt;
}

std::unique_ptr<TableWriter> table_writer(ReportFormat format, TextResult& result) {
    switch (format) {
    case ReportFormat::csv:
        return std::make_unique<CsvWriter>(result);
    case ReportFormat::json:
        return std::make_unique<JsonWriter>(result);
    case ReportFormat::text:
        break;
    }
    throw std::logic_error("the text has no rows");
}

} // namespace halvane
