// SPDX-License-Identifier: MIT
#pragma once

#include "halvane/engine.h"
#include "halvane/events.h"
#include "halvane/halvane.h"
#include "library/guarded.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstring>
#include <exception>
#include <string>
#include <utility>

// What the functions of <halvane/halvane.h> share.

struct halvane_engine {
    halvane::v1::Engine engine;
};

struct halvane_clock {
    halvane::v1::Clock clock;
};

namespace halvane::v1 {

/// Keeps the words of a failure for this thread; returns its status.
halvane_status told_failure(const std::exception_ptr& failure) noexcept;

/// Does `work` for a C program: whatever it raises becomes a status.
template <class Work>
halvane_status called(Work&& work) noexcept {
    try {
        work();
        return HALVANE_OK;
    } catch (...) {
        return told_failure(std::current_exception());
    }
}

/// Raised where an array is smaller than what belongs into it.
struct TooSmall {
    std::size_t capacity;
    std::size_t wanted;
};

[[noreturn]] void raise_null(const char* name);
[[noreturn]] void raise_bad_size(const char* name, std::size_t size, std::size_t least);
[[noreturn]] void raise_unknown_members(const char* name);
[[noreturn]] void raise_bad_index(std::size_t index, std::size_t count);

/// Error  raises Error (bad_argument) for a null pointer.
template <class Value>
Value& required(Value* pointer, const char* name) {
    if (pointer == nullptr) [[unlikely]]
        raise_null(name);
    return *pointer;
}

inline const Engine& engine_of(const halvane_engine* engine) {
    return required(engine, "engine").engine;
}

inline const Clock& clock_of(const halvane_clock* clock) {
    return required(clock, "clock").clock;
}

/// The size of a record in the interface's first version. One that grows gets a number of its own here.
template <class Record>
constexpr std::size_t first_size = sizeof(Record);

template <class Record>
void require_size(const char* name, std::size_t size) {
    if (size < first_size<Record>) [[unlikely]]
        raise_bad_size(name, size, first_size<Record>);
}

/// Writes as much of a record as the caller's place of `size` bytes holds.
template <class Record>
void write_record(void* place, Record& values, std::size_t size) {
    values.size = size;
    if (size >= sizeof(Record)) [[likely]]
        std::memcpy(place, &values, sizeof(Record));
    else
        std::memcpy(place, &values, size);
}

/// A record of the caller that a function fills.
template <class Record>
class Filled {
public:
    Filled(Record* record, const char* name) : record_(&required(record, name)) {
        require_size<Record>(name, record->size);
    }

    void set(Record&& values) const { write_record(record_, values, record_->size); }

private:
    Record* record_;
};

/// A record of the caller that a function reads; `otherwise()` where there is none.
template <class Record, class Otherwise>
Record read_record(const Record* record, const char* name, Otherwise&& otherwise) {
    if (record == nullptr)
        return otherwise();
    require_size<Record>(name, record->size);
    Record own{};
    std::memcpy(&own, record, std::min(record->size, sizeof(Record)));
    const auto* bytes = reinterpret_cast<const unsigned char*>(record);
    for (std::size_t i = sizeof(Record); i < record->size; ++i)
        if (bytes[i] != 0)
            raise_unknown_members(name);
    return own;
}

/// An array of the caller that a function fills.
template <class Record>
class FilledArray {
public:
    FilledArray(Record* first, std::size_t capacity, std::size_t element_size, std::size_t* count,
                const char* name)
        : first_(reinterpret_cast<char*>(first)), capacity_(capacity), element_size_(element_size),
          count_(&required(count, "count")) {
        if (capacity > 0) {
            required(first, name);
            require_size<Record>(name, element_size);
        }
    }

    /// Error  raises TooSmall, and tells the caller the number.
    void require_room(std::size_t wanted) const {
        if (wanted <= capacity_)
            return;
        *count_ = wanted;
        throw TooSmall{capacity_, wanted};
    }

    void set(std::size_t index, Record&& values) const {
        write_record(first_ + index * element_size_, values, element_size_);
    }

    void set_count(std::size_t count) const { *count_ = count; }

    /// Every value as a record.
    template <class Values, class Record_of>
    void set_all(const Values& values, const Record_of& record_of) const {
        require_room(values.size());
        std::size_t index = 0;
        for (const auto& value : values)
            set(index++, record_of(value));
        set_count(index);
    }

private:
    char* first_;
    std::size_t capacity_;
    std::size_t element_size_;
    std::size_t* count_;
};

/// The same bytes as the other interface's type: both have the same members in the same order.
template <class To, class From>
To same(const From& from) {
    return std::bit_cast<To>(from);
}

/// A word of an enumeration by its number.
/// Error  raises Error (bad_argument) for a number that is none of them.
template <class Word>
Word word_of(const char* what, int number, Word last) {
    if (number < 0 || number > static_cast<int>(last)) [[unlikely]]
        require_within(what, number, 0, static_cast<int>(last));
    return static_cast<Word>(number);
}

inline std::string text_of(const char* text, const char* name) {
    return &required(text, name);
}

inline Instant instant_of(const halvane_instant& instant) {
    return {instant.jd, word_of("A time scale", instant.scale, TimeScale::dynamical)};
}

inline Horizon horizon_of(const halvane_horizon& horizon) {
    return {horizon.height_counts != 0, horizon.pressure, horizon.temperature};
}

inline Horizon horizon_of(const halvane_horizon* horizon) {
    return horizon == nullptr ? Horizon{} : horizon_of(*horizon);
}

inline halvane_horizon horizon_value(const Horizon& horizon) {
    return {horizon.height_counts, horizon.pressure, horizon.temperature};
}

/// The caller's function as a progress of the engine.
class CalledProgress final : public Progress {
public:
    CalledProgress(halvane_progress function, void* context) : function_(function), context_(context) {}
    bool goes_on(double percent) override { return function_(context_, percent) != 0; }
    /// Nothing where the caller gave no function.
    Progress* pointer() { return function_ == nullptr ? nullptr : this; }

private:
    halvane_progress function_;
    void* context_;
};

/// Error  raises Error (bad_argument) for an index beyond the list.
template <class List>
const auto& element_of(const List& list, std::size_t index) {
    if (index >= list.size())
        raise_bad_index(index, list.size());
    return list[index];
}

/// How many a list of the library has; 0 where it cannot be made.
template <class List>
std::size_t count_of(List list) noexcept {
    std::size_t count = 0;
    called([&] { count = list().size(); });
    return count;
}

} // namespace halvane::v1
