// SPDX-License-Identifier: MIT
#include "report/report.h"

#include "base/numberformat.h"

namespace halvane {
namespace {

int characters(std::string_view text) {
    int count = 0;
    for (const char c : text)
        if ((static_cast<unsigned char>(c) & 0xC0U) != 0x80U)
            ++count;
    return count;
}

} // namespace

Report& Report::text(std::string_view value) {
    result_.text() += value;
    column_ += characters(value);
    return *this;
}

Report& Report::spc(int count) {
    result_.text().append(static_cast<std::size_t>(count), ' ');
    column_ += count;
    return *this;
}

Report& Report::tab(int column) {
    if (column_ > column)
        end_line();
    return spc(column - column_);
}

Report& Report::item(double value) {
    return text(number_item(value));
}

Report& Report::item(float value) {
    return text(number_item(value));
}

Report& Report::end_line() {
    result_.text() += line_end_;
    column_ = 1;
    result_.end_line();
    return *this;
}

Report& Report::rule(int count) {
    return text(std::string(static_cast<std::size_t>(count), '=')).end_line();
}

} // namespace halvane
