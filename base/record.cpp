// SPDX-License-Identifier: MIT
#include "base/record.h"

#include "base/failure.h"
#include "base/numberformat.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>
#include <utility>

namespace halvane {
namespace {

constexpr TwinText number_words{"a number", "رقم"};

bool is_line_end(char c) {
    return c == '\r' || c == '\n';
}

bool is_blank(char c) {
    return c == ' ' || c == '\t';
}

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && is_blank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && is_blank(text.back()))
        text.remove_suffix(1);
    return text;
}

/// What a message shows of a damaged field: enough to find it, not a whole damaged file.
std::string excerpt(std::string_view text) {
    constexpr std::size_t longest = 40;
    std::size_t end = std::min(longest, text.size());
    while (end > 0 && end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U)
        --end;
    std::string shown(text.substr(0, end));
    for (char& c : shown)
        if (static_cast<unsigned char>(c) < 0x20U)
            c = ' ';
    return text.size() > longest ? shown + "..." : shown;
}

} // namespace

RecordReader::RecordReader(std::string_view text, std::string path) : text_(text), path_(std::move(path)) {}

bool RecordReader::at_end() {
    while (position_ < text_.size() && (is_line_end(text_[position_]) || is_blank(text_[position_])))
        ++position_;
    return position_ >= text_.size();
}

void RecordReader::start_record() {
    if (field_ > 0)
        ++record_;
    field_ = 0;
}

RecordReader::Field RecordReader::next_field() {
    ++field_;
    while (position_ < text_.size() && is_blank(text_[position_]))
        ++position_;
    if (position_ >= text_.size())
        return {};
    Field field{{}, text_[position_] == '"', true};
    if (field.quoted) {
        const std::size_t start = position_ + 1;
        const std::size_t close = text_.find('"', start);
        if (close == std::string_view::npos)
            raise({text_.substr(position_), false, true},
                  {"a closing double quote mark", "علامة تنصيص ختامية"});
        field.text = text_.substr(start, close - start);
        position_ = close + 1;
    }
    const std::size_t start = position_;
    while (position_ < text_.size() && text_[position_] != ',' && !is_line_end(text_[position_]))
        ++position_;
    const std::string_view rest = trimmed(text_.substr(start, position_ - start));
    if (field.quoted && !rest.empty())
        raise({rest, false, true}, {"a comma or a line end", "فاصلة أو نهاية سطر"});
    if (!field.quoted)
        field.text = rest;
    if (position_ < text_.size()) {
        const char separator = text_[position_++];
        if (separator == '\r' && position_ < text_.size() && text_[position_] == '\n')
            ++position_;
    }
    return field;
}

void RecordReader::raise(const Field& field, const TwinWords& wanted) const {
    FailureParts parts;
    parts.kind = FailureKind::damaged_file;
    parts.file = path_;
    parts.record = record_;
    parts.field = field_;
    parts.wanted = wanted;
    const std::string shown = "\"" + excerpt(field.text) + "\"";
    parts.found = field.present ? TwinWords(shown, shown) : TwinWords("the end of the file", "نهاية الملف");
    throw RunTimeFailure(parts);
}

std::string RecordReader::text() {
    const Field field = next_field();
    if (!field.present)
        raise(field, {"a text", "نص"});
    return std::string(field.text);
}

double RecordReader::number() {
    const Field field = next_field();
    if (!field.present || field.quoted)
        raise(field, number_words);
    std::string_view digits = field.text;
    if (digits.size() > 1 && digits[0] == '+' && digits[1] != '-')
        digits.remove_prefix(1);
    double value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (result.ec != std::errc() || result.ptr != digits.data() + digits.size() || !std::isfinite(value))
        raise(field, number_words);
    return value;
}

double RecordReader::number_within(double limit) {
    const double value = number();
    if (std::fabs(value) > limit)
        raise({plain_number(value), false, true},
              {"a number within " + plain_number(limit), "رقم لا يتجاوز " + plain_number(limit)});
    return value;
}

bool RecordReader::boolean() {
    const Field field = next_field();
    if (field.present && !field.quoted && field.text == "#TRUE#")
        return true;
    if (field.present && !field.quoted && field.text == "#FALSE#")
        return false;
    raise(field, {"#TRUE# or #FALSE#", "#TRUE# أو #FALSE#"});
}

int RecordReader::integer() {
    constexpr double lowest = -32768;
    constexpr double highest = 32767;
    const double value = number();
    if (value != std::floor(value) || value < lowest || value > highest)
        raise({plain_number(value), false, true}, {"a whole number of 16 bits", "عدد صحيح من 16 بت"});
    return static_cast<int>(value);
}

void RecordWriter::separate() {
    if (!line_.empty())
        line_ += ',';
}

RecordWriter& RecordWriter::text(std::string_view value) {
    separate();
    line_ += '"';
    for (const char c : value)
        line_ += c == '"' ? '\'' : is_line_end(c) ? ' ' : c;
    line_ += '"';
    return *this;
}

RecordWriter& RecordWriter::number(double value) {
    separate();
    line_ += plain_number(value);
    return *this;
}

RecordWriter& RecordWriter::number_within(double value, double limit) {
    return number(std::clamp(value, -limit, limit));
}

RecordWriter& RecordWriter::boolean(bool value) {
    separate();
    line_ += value ? "#TRUE#" : "#FALSE#";
    return *this;
}

} // namespace halvane
