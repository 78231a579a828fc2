// SPDX-License-Identifier: MIT
#include "report/column.h"

#include <type_traits>

namespace halvane {
namespace {

ValueType type_of(const std::string& /*text*/) {
    return ValueType::text;
}
ValueType type_of(bool /*flag*/) {
    return ValueType::flag;
}
ValueType type_of(int /*number*/) {
    return ValueType::whole;
}
ValueType type_of(double /*number*/) {
    return ValueType::number;
}
ValueType type_of(const DateNumbers& /*date*/) {
    return ValueType::date;
}
ValueType type_of(const ClockValue& /*clock*/) {
    return ValueType::clock;
}
ValueType type_of(const MomentValue& /*moment*/) {
    return ValueType::moment;
}

} // namespace

bool is_of_type(const Value& value, ValueType type) {
    return std::visit(
        [type](const auto& held) {
            if constexpr (std::is_same_v<std::decay_t<decltype(held)>, std::monostate>)
                return true;
            else
                return type_of(held) == type;
        },
        value);
}

void add_fact(Facts& facts, const char* key, Value value) {
    facts.emplace_back(key, std::move(value));
}

} // namespace halvane
