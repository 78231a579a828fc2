// SPDX-License-Identifier: MIT
#include "report/report.h"

#include "base/numberformat.h"

#include <utility>

namespace halvane {
namespace {

constexpr std::size_t buffer_limit = 65536;

int characters(std::string_view text) {
    int count = 0;
    for (const char c : text)
        if ((static_cast<unsigned char>(c) & 0xC0U) != 0x80U)
            ++count;
    return count;
}

} // namespace

Report::Report(std::string path) {
    file_.emplace(std::move(path), FileRights::of_umask);
}

Report& Report::text(std::string_view value) {
    buffer_ += value;
    column_ += characters(value);
    return *this;
}

Report& Report::spc(int count) {
    buffer_.append(static_cast<std::size_t>(count), ' ');
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
    buffer_ += "\r\n";
    column_ = 1;
    if (file_ && buffer_.size() >= buffer_limit)
        flush();
    return *this;
}

Report& Report::rule(int count) {
    return text(std::string(static_cast<std::size_t>(count), '=')).end_line();
}

void Report::flush() {
    file_->write(buffer_);
    buffer_.clear();
}

void Report::commit() {
    if (!file_)
        return;
    flush();
    file_->commit();
    file_.reset();
}

} // namespace halvane
