// SPDX-License-Identifier: MIT
#pragma once

#include "base/numberformat.h"
#include "base/record.h"
#include "stored/typedvalue.h"

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <vector>

namespace halvane {

/// A field as the documentation tells it.
struct FieldNote {
    std::string name; ///< words joined by hyphens, as "fajer-angle"
    std::string kind;
    std::string range; ///< what a typed value may be
    std::string meaning;
    std::string value; ///< of the record that was asked, in the form of the file
};

/// Whether a typed value has found its field.
enum class FieldAnswer { taken, no_field, no_value };

/// What a field may hold: how it is read, written, told and taken from a command line. Readers raise what
/// RecordReader raises. `take` returns false for a text outside the range, which the file may hold all the
/// same.
namespace kind {

struct Text {
    static void read(RecordReader& reader, std::string& value) { value = reader.text(); }
    static void write(RecordWriter& writer, const std::string& value) { writer.text(value); }
    static std::string words() { return "text"; }
    static std::string range() { return "any text"; }
    static bool take(std::string_view text, std::string& value) {
        value = text;
        return true;
    }
};

/// A text that is one of the letters of `choices`.
struct Letter : Text {
    const char* choices;
    constexpr explicit Letter(const char* letters) : choices(letters) {}
    std::string range() const { return choice_of_letters(choices); }
    bool take(std::string_view text, std::string& value) const {
        return text.size() == 1 && std::string_view(choices).find(text) != std::string_view::npos &&
               Text::take(text, value);
    }
};

struct Number {
    double least = -std::numeric_limits<double>::max();
    double most = std::numeric_limits<double>::max();
    static void read(RecordReader& reader, double& value) { value = reader.number(); }
    static void write(RecordWriter& writer, double value) { writer.number(value); }
    static std::string words() { return "number"; }
    std::string range() const { return range_words("a number", least, most); }
    bool take(std::string_view text, double& value) const { return take_number(text, least, most, value); }
};

/// A text that is a number, as it stands in a box of a panel.
struct NumberText : Text {
    Number number;
    std::string range() const { return number.range(); }
    bool take(std::string_view text, std::string& value) const {
        double ignored = 0;
        return number.take(text, ignored) && Text::take(text, value);
    }
};

/// A number whose magnitude is at most `limit`; one beyond it is written as the limit.
struct NumberWithin {
    double limit;
    void read(RecordReader& reader, double& value) const { value = reader.number_within(limit); }
    void write(RecordWriter& writer, double value) const { writer.number_within(value, limit); }
    std::string words() const { return "number within " + plain_number(limit); }
    std::string range() const { return range_words("a number", -limit, limit); }
    bool take(std::string_view text, double& value) const { return take_number(text, -limit, limit, value); }
};

/// A whole number of 16 bits.
struct WholeNumber {
    int least = std::numeric_limits<std::int16_t>::min();
    int most = std::numeric_limits<std::int16_t>::max();
    static void read(RecordReader& reader, int& value) { value = reader.integer(); }
    static void write(RecordWriter& writer, int value) { writer.number(value); }
    static std::string words() { return "whole number"; }
    std::string range() const { return range_words("a whole number", least, most); }
    bool take(std::string_view text, int& value) const {
        double number = 0;
        if (!take_number(text, least, most, number) || number != static_cast<int>(number))
            return false;
        value = static_cast<int>(number);
        return true;
    }
};

struct Boolean {
    static void read(RecordReader& reader, bool& value) { value = reader.boolean(); }
    static void write(RecordWriter& writer, bool value) { writer.boolean(value); }
    static std::string words() { return "Boolean"; }
    static std::string range() { return "true or false"; }
    static bool take(std::string_view text, bool& value) {
        value = text == "true";
        return value || text == "false";
    }
};

/// A Boolean in the form of a number: 1 is true, any other false.
struct Flag {
    static void read(RecordReader& reader, bool& value) { value = reader.number() == 1; }
    static void write(RecordWriter& writer, bool value) { writer.number(value ? 1 : 0); }
    static std::string words() { return "1 or 0"; }
    static std::string range() { return "1 or 0"; }
    static bool take(std::string_view text, bool& value) {
        value = text == "1";
        return value || text == "0";
    }
};

} // namespace kind

/// A member of a record, or several of them one after the other when `what` is a list of fields itself.
template <class Record, class Value, class Kind>
class Field {
public:
    /// In     name     words joined by hyphens, by which the command line and the documentation call it
    ///        meaning  what the value is, with its unit, as the documentation tells it
    constexpr Field(Value Record::*member, Kind what, const char* name, const char* meaning)
        : member_(member), kind_(what), name_(name), meaning_(meaning) {}

    void read(RecordReader& reader, Record& record) const { kind_.read(reader, record.*member_); }
    void write(RecordWriter& writer, const Record& record) const { kind_.write(writer, record.*member_); }
    void clear(Record& record) const { record.*member_ = Value(); }
    template <class Other>
    constexpr bool holds(Other Record::*member) const {
        if constexpr (std::is_same_v<Other, Value>)
            return member == member_;
        else
            return false;
    }
    constexpr const char* name() const { return name_; }
    constexpr const char* meaning() const { return meaning_; }
    void tell(std::vector<FieldNote>& notes, const Record& record) const {
        if constexpr (is_single) {
            RecordWriter writer;
            kind_.write(writer, record.*member_);
            notes.push_back({name_, kind_.words(), kind_.range(), meaning_, writer.fields()});
        } else {
            for (const FieldNote& part : kind_.notes(record.*member_))
                notes.push_back({name_ + ("-" + part.name), part.kind, part.range,
                                 meaning_ + (": " + part.meaning), part.value});
        }
    }
    /// Puts a typed value into the record where this is its field.
    FieldAnswer take(std::string_view name, std::string_view text, Record& record) const {
        if constexpr (is_single) {
            if (name != name_)
                return FieldAnswer::no_field;
            Value value{};
            if (!kind_.take(text, value))
                return FieldAnswer::no_value;
            record.*member_ = value;
            return FieldAnswer::taken;
        } else {
            const std::string begin = name_ + std::string("-");
            return name.starts_with(begin) ? kind_.take(name.substr(begin.size()), text, record.*member_)
                                           : FieldAnswer::no_field;
        }
    }

private:
    static constexpr bool is_single = requires(const Kind& kind) { kind.words(); };

    Value Record::*member_;
    Kind kind_;
    const char* name_;
    const char* meaning_;
};

/// The fields of a record in the order of its file. Its reader, its writer, its blank form and its rows in
/// the documentation all follow from this list.
template <class RecordType, class... Fields>
class FieldList {
public:
    using Record = RecordType;

    template <class... Values, class... Kinds>
    constexpr explicit FieldList(Field<Record, Values, Kinds>... fields) : fields_(fields...) {}

    /// Fills `record` field by field, so that what precedes a failure stands.
    void read(RecordReader& reader, Record& record) const {
        for_each([&](const auto& field) { field.read(reader, record); });
    }
    void write(RecordWriter& writer, const Record& record) const {
        for_each([&](const auto& field) { field.write(writer, record); });
    }
    /// The record as a line of its file.
    std::string line(const Record& record) const {
        RecordWriter writer;
        write(writer, record);
        return writer.line();
    }
    /// A record whose fields are 0, empty and false.
    Record blank() const {
        Record record;
        for_each([&](const auto& field) { field.clear(record); });
        return record;
    }
    /// What the field of `member` means; null when the list has none.
    template <class Value>
    constexpr const char* meaning_of(Value Record::*member) const {
        const char* meaning = nullptr;
        for_each([&](const auto& field) { meaning = field.holds(member) ? field.meaning() : meaning; });
        return meaning;
    }
    /// Its name; null when the list has none.
    template <class Value>
    constexpr const char* name_of(Value Record::*member) const {
        const char* name = nullptr;
        for_each([&](const auto& field) { name = field.holds(member) ? field.name() : name; });
        return name;
    }
    /// Every single field, those of a list within this one too.
    std::vector<FieldNote> notes(const Record& record = Record()) const {
        std::vector<FieldNote> notes;
        for_each([&](const auto& field) { field.tell(notes, record); });
        return notes;
    }
    /// Puts a typed value into the field of that name; a value outside its range changes nothing.
    FieldAnswer take(std::string_view name, std::string_view text, Record& record) const {
        FieldAnswer answer = FieldAnswer::no_field;
        for_each([&](const auto& field) {
            if (answer == FieldAnswer::no_field)
                answer = field.take(name, text, record);
        });
        return answer;
    }

private:
    template <class Visit>
    constexpr void for_each(const Visit& visit) const {
        std::apply([&](const auto&... field) { (visit(field), ...); }, fields_);
    }

    std::tuple<Fields...> fields_;
};

template <class Record, class... Values, class... Kinds>
FieldList(Field<Record, Values, Kinds>...) -> FieldList<Record, Field<Record, Values, Kinds>...>;

} // namespace halvane
