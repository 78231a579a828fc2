// SPDX-License-Identifier: MIT
#include "timetable/csvtable.h"

#include <algorithm>
#include <array>
#include <csv.h>
#include <memory>
#include <utility>

namespace halvane {
namespace {

constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

char small(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool alike(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return small(x) == small(y); });
}

char separator_of(std::string_view head) {
    constexpr std::array<char, 3> separators{',', ';', '\t'};
    return *std::max_element(separators.begin(), separators.end(), [head](char a, char b) {
        return std::count(head.begin(), head.end(), a) < std::count(head.begin(), head.end(), b);
    });
}

/// Takes what the parser finds, line by line of the text.
class Rows {
public:
    explicit Rows(char separator) {
        csv_init(&parser_, CSV_STRICT | CSV_STRICT_FINI);
        csv_set_delim(&parser_, static_cast<unsigned char>(separator));
    }
    Rows(const Rows&) = delete;
    Rows& operator=(const Rows&) = delete;
    ~Rows() { csv_free(&parser_); }

    /// In     line  with its end
    /// Returns whether it is of the form
    bool take(std::string_view line) {
        ++line_;
        return csv_parse(&parser_, line.data(), line.size(), add_field, end_row, this) == line.size();
    }
    bool finish() { return csv_fini(&parser_, add_field, end_row, this) == 0; }
    int line() const { return line_; }
    std::vector<CsvRow> rows;

private:
    static void add_field(void* text, std::size_t size, void* self) {
        Rows& rows = *static_cast<Rows*>(self);
        if (rows.row_.fields.empty())
            rows.row_.line = rows.line_;
        rows.row_.fields.emplace_back(text == nullptr ? "" : static_cast<const char*>(text), size);
    }
    static void end_row(int /*character*/, void* self) {
        Rows& rows = *static_cast<Rows*>(self);
        rows.rows.push_back(std::exchange(rows.row_, {}));
    }

    csv_parser parser_{};
    int line_ = 0;
    CsvRow row_;
};

char separator_of_text(std::string_view text) {
    return separator_of(text.substr(0, text.find('\n')));
}

std::string_view without_byte_order_mark(std::string_view text) {
    if (text.starts_with(byte_order_mark))
        text.remove_prefix(byte_order_mark.size());
    return text;
}

/// Takes the first line off a text, with its end.
std::string_view cut_line(std::string_view& text) {
    const std::size_t size = std::min(text.find('\n'), text.size() - 1) + 1;
    const std::string_view line = text.substr(0, size);
    text.remove_prefix(size);
    return line;
}

std::vector<CsvRow> rows_of(std::string_view text, const std::string& path) {
    Rows rows(separator_of_text(text));
    while (!text.empty())
        if (!rows.take(cut_line(text)))
            raise_bad_line(path, rows.line(), "a quote mark within a field stands alone",
                           "علامة تنصيص منفردة داخل حقل");
    if (!rows.finish())
        raise_bad_line(path, rows.line(), "a quote mark is not closed", "علامة تنصيص لم تغلق");
    return std::move(rows.rows);
}

/// The rows of a line; nothing where its quote marks do not go together.
std::optional<std::vector<CsvRow>> rows_of_line(std::string_view line, char separator) {
    Rows rows(separator);
    if (!rows.take(line) || !rows.finish())
        return std::nullopt;
    return std::move(rows.rows);
}

} // namespace

std::optional<std::size_t> CsvTable::column(std::string_view heading) const {
    for (std::size_t i = 0; i < head.fields.size(); ++i)
        if (alike(head.fields[i], heading))
            return i;
    return std::nullopt;
}

CsvTable read_csv_table(std::string_view text, const std::string& path) {
    std::vector<CsvRow> rows = rows_of(without_byte_order_mark(text), path);
    if (rows.empty())
        raise_bad_line(path, 1, "the head row is missing", "سطر العناوين مفقود");
    CsvTable table;
    table.head = std::move(rows.front());
    for (std::size_t i = 1; i < rows.size(); ++i) {
        const std::size_t fields = rows[i].fields.size();
        if (fields != table.head.fields.size()) {
            const TwinWords words = field_count_words(table.head.fields.size(), fields);
            raise_bad_line(path, rows[i].line, words.english, words.arabic);
        }
        table.rows.push_back(std::move(rows[i]));
    }
    return table;
}

std::vector<CsvLine> read_csv_lines(std::string_view text) {
    text = without_byte_order_mark(text);
    const char separator = separator_of_text(text);
    std::vector<CsvLine> lines;
    for (int number = 1; !text.empty(); ++number) {
        std::string_view line = cut_line(text);
        if (std::optional<std::vector<CsvRow>> rows = rows_of_line(line, separator)) {
            for (CsvRow& row : *rows)
                lines.push_back({number, std::move(row.fields), {}});
            continue;
        }
        while (line.ends_with('\n') || line.ends_with('\r'))
            line.remove_suffix(1);
        lines.push_back({number, {}, std::string(line)});
    }
    return lines;
}

TwinWords field_count_words(std::size_t wanted, std::size_t found) {
    const std::string wanted_count = std::to_string(wanted);
    const std::string found_count = std::to_string(found);
    return {"wanted " + wanted_count + " fields, found " + found_count,
            "المطلوب " + wanted_count + " من الحقول، و الموجود " + found_count};
}

} // namespace halvane
