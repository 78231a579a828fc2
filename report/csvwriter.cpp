// SPDX-License-Identifier: MIT
#include "report/csvwriter.h"

#include "report/valuetext.h"

namespace halvane {
namespace {

std::string field_of(std::monostate /*missing*/) {
    return {};
}
std::string field_of(const std::string& text) {
    std::string field;
    append_csv_field(field, text);
    return field;
}
std::string field_of(bool flag) {
    return flag ? "true" : "false";
}
std::string field_of(int number) {
    return std::to_string(number);
}
std::string field_of(double number) {
    return exact_number(number);
}
std::string field_of(const DateNumbers& date) {
    return iso_date(date);
}
std::string field_of(const ClockValue& clock) {
    return iso_time(clock.time).value_or(std::string());
}
std::string field_of(const MomentValue& moment) {
    return iso_moment(moment.jd);
}

} // namespace

void append_csv_field(std::string& line, std::string_view text) {
    if (text.find_first_of(",\"\r\n") == std::string_view::npos) {
        line += text;
        return;
    }
    append_quoted_csv_field(line, text);
}

void append_quoted_csv_field(std::string& line, std::string_view text) {
    line += '"';
    for (const char c : text)
        line.append(c == '"' ? 2 : 1, c);
    line += '"';
}

void CsvWriter::begin(std::string_view /*task*/, const Facts& /*facts*/, std::span<const Column> columns) {
    for (std::size_t i = 0; i < columns.size(); ++i)
        (text() += i == 0 ? "" : ",") += columns[i].key;
    text() += "\r\n";
}

void CsvWriter::row(std::span<const Value> values) {
    for (std::size_t i = 0; i < values.size(); ++i)
        (text() += i == 0 ? "" : ",") +=
            std::visit([](const auto& value) { return field_of(value); }, values[i]);
    text() += "\r\n";
    end_line();
}

void CsvWriter::end() {}

} // namespace halvane
