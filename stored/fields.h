// SPDX-License-Identifier: MIT
#pragma once

#include "base/numberformat.h"
#include "base/record.h"

#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

namespace halvane {

/// A field as the documentation tells it.
struct FieldNote {
    std::string kind;
    std::string meaning;
};

/// What a field may hold: how it is read, written and told. Readers raise what RecordReader raises.
namespace kind {

struct Text {
    static void read(RecordReader& reader, std::string& value) { value = reader.text(); }
    static void write(RecordWriter& writer, const std::string& value) { writer.text(value); }
    static std::string words() { return "text"; }
};

struct Number {
    static void read(RecordReader& reader, double& value) { value = reader.number(); }
    static void write(RecordWriter& writer, double value) { writer.number(value); }
    static std::string words() { return "number"; }
};

/// A number whose magnitude is at most `limit`; one beyond it is written as the limit.
struct NumberWithin {
    double limit;
    void read(RecordReader& reader, double& value) const { value = reader.number_within(limit); }
    void write(RecordWriter& writer, double value) const { writer.number_within(value, limit); }
    std::string words() const { return "number within " + plain_number(limit); }
};

/// A whole number of 16 bits.
struct WholeNumber {
    static void read(RecordReader& reader, int& value) { value = reader.integer(); }
    static void write(RecordWriter& writer, int value) { writer.number(value); }
    static std::string words() { return "whole number"; }
};

struct Boolean {
    static void read(RecordReader& reader, bool& value) { value = reader.boolean(); }
    static void write(RecordWriter& writer, bool value) { writer.boolean(value); }
    static std::string words() { return "Boolean"; }
};

/// A Boolean in the form of a number: 1 is true, any other false.
struct Flag {
    static void read(RecordReader& reader, bool& value) { value = reader.number() == 1; }
    static void write(RecordWriter& writer, bool value) { writer.number(value ? 1 : 0); }
    static std::string words() { return "1 or 0"; }
};

} // namespace kind

/// A member of a record, or several of them one after the other when `what` is a list of fields itself.
template <class Record, class Value, class Kind>
class Field {
public:
    /// In     meaning  what the value is, with its unit, as the documentation tells it
    constexpr Field(Value Record::*member, Kind what, const char* meaning)
        : member_(member), kind_(what), meaning_(meaning) {}

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
    constexpr const char* meaning() const { return meaning_; }
    void tell(std::vector<FieldNote>& notes) const {
        if constexpr (requires { kind_.words(); })
            notes.push_back({kind_.words(), meaning_});
        else
            for (const FieldNote& part : kind_.notes())
                notes.push_back({part.kind, meaning_ + (": " + part.meaning)});
    }

private:
    Value Record::*member_;
    Kind kind_;
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
    /// Every single field, those of a list within this one too.
    std::vector<FieldNote> notes() const {
        std::vector<FieldNote> notes;
        for_each([&](const auto& field) { field.tell(notes); });
        return notes;
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
