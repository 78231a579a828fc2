// SPDX-License-Identifier: MIT
#include "report/jsonwriter.h"

#include "base/failure.h"
#include "base/version.h"
#include "report/valuetext.h"

#include <nlohmann/json.hpp>

#include <stdexcept>

namespace halvane {
namespace {

using Json = nlohmann::ordered_json;

Json json_of(std::monostate /*missing*/) {
    return nullptr;
}
Json json_of(const std::string& text) {
    return text;
}
Json json_of(bool flag) {
    return flag;
}
Json json_of(int number) {
    return number;
}
Json json_of(double number) {
    return require_finite(number, {"a number of the table", "رقم في الجدول"});
}
Json json_of(const DateNumbers& date) {
    return iso_date(date);
}
Json json_of(const ClockValue& clock) {
    const std::optional<std::string> text = iso_time(clock.time);
    return text ? Json(*text) : Json(nullptr);
}
Json json_of(const MomentValue& moment) {
    return iso_moment(moment.jd);
}

Json json_of(const Value& value) {
    return std::visit([](const auto& held) { return json_of(held); }, value);
}

const char* name_of(ValueType type) {
    switch (type) {
    case ValueType::text:
        return "text";
    case ValueType::flag:
        return "flag";
    case ValueType::whole:
        return "whole";
    case ValueType::number:
        return "number";
    case ValueType::date:
        return "date";
    case ValueType::clock:
        return "clock";
    case ValueType::moment:
        return "moment";
    }
    throw std::logic_error("a type of values without a name");
}

/// Bytes that are not UTF-8, as an unlucky name of a place may hold, are replaced.
std::string dumped(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

} // namespace

void JsonWriter::begin(std::string_view task, const Facts& facts, std::span<const Column> columns) {
    Json head{{"program", "Halvane"}, {"version", version}, {"task", task}};
    Json& told = head["facts"] = Json::object();
    for (const Fact& fact : facts)
        told[fact.key] = json_of(fact.value);
    Json& list = head["columns"] = Json::array();
    for (const Column& column : columns) {
        keys_.push_back(column.key);
        list.push_back({{"key", column.key},
                        {"heading", {{"en", column.heading.english}, {"ar", column.heading.arabic}}},
                        {"unit", column.unit},
                        {"type", name_of(column.type)}});
    }
    text() += dumped(head);
    text().pop_back(); // the object goes on
    text() += ",\"rows\":[";
}

void JsonWriter::row(std::span<const Value> values) {
    Json row = Json::object();
    for (std::size_t i = 0; i < values.size(); ++i)
        row[keys_.at(i)] = json_of(values[i]);
    text() += has_rows_ ? ",\n" : "\n";
    text() += dumped(row);
    has_rows_ = true;
    end_line();
}

void JsonWriter::end() {
    text() += "\n]}\n";
}

} // namespace halvane
