// SPDX-License-Identifier: MIT
#pragma once

#include "base/failure.h"
#include "stored/alert.h"
#include "stored/coor.h"
#include "stored/date.h"
#include "stored/loc.h"
#include "stored/phase.h"
#include "stored/pref.h"
#include "stored/tele.h"
#include "stored/visib.h"
#include "tests/support/programfolder.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace halvane {

/// A stored file of one record, whatever its record is.
struct StoredRecord {
    std::string name;
    std::size_t fields;
    std::function<void()> read;                  ///< reads it, for its failures
    std::function<std::function<bool()>()> keep; ///< a test whether it still reads as it does now
    std::function<void()> write_back;            ///< reads it and saves it again
};

template <class Record>
StoredRecord stored_record(const char* name, std::size_t fields, const Record& (*read)(),
                           void (*write)(const Record&)) {
    return {name, fields, [read] { read(); },
            [read]() -> std::function<bool()> {
                return [read, kept = std::make_shared<Record>(read())] { return read() == *kept; };
            },
            [read, write] { write(Record(read())); }};
}

/// Every stored file of one record, with the count of its fields.
inline std::vector<StoredRecord> stored_records() {
    return {stored_record("pref.vsk", 18, read_pref, write_pref),
            stored_record("loc.vsk", 16, read_loc, write_loc),
            stored_record("date.vsk", 18, read_date, write_date),
            stored_record("phase.vsk", 3, read_phase, write_phase),
            stored_record("visib.vsk", 18, read_visib, write_visib),
            stored_record("coor.vsk", 18, read_coor, write_coor),
            stored_record("tele.vsk", 11, read_tele, write_tele),
            stored_record("alert.vsk", 8, read_alert, write_alert)};
}

/// The fields of a record without commas in its texts.
inline std::vector<std::string> fields_of(std::string line) {
    while (!line.empty() && (line.back() == '\n' || line.back() == '\r'))
        line.pop_back();
    std::vector<std::string> fields{""};
    for (const char c : line)
        if (c == ',')
            fields.emplace_back();
        else
            fields.back() += c;
    return fields;
}

inline std::string record_of(const std::vector<std::string>& fields) {
    std::string line = fields.front();
    for (std::size_t i = 1; i < fields.size(); ++i)
        line += "," + fields[i];
    return line + "\r\n";
}

/// The record with another text in place of the field `number`, counted from 1.
inline std::string record_with(std::vector<std::string> fields, std::size_t number, const std::string& text) {
    fields.at(number - 1) = text;
    return record_of(fields);
}

/// The words of the failure that `run` raises; nothing when it raises none.
inline std::optional<std::string> failure_words(const std::function<void()>& run) {
    try {
        run();
    } catch (const RunTimeFailure& failure) {
        return failure.what();
    }
    return std::nullopt;
}

/// `run` raises a failure whose words hold all of `parts`.
inline void expect_failure_that_tells(const std::function<void()>& run,
                                      const std::vector<std::string>& parts) {
    const std::optional<std::string> words = failure_words(run);
    ASSERT_TRUE(words.has_value()) << "nothing was raised";
    for (const std::string& part : parts)
        EXPECT_NE(words->find(part), std::string::npos) << *words << " does not tell " << part;
}

} // namespace halvane
