// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "fuzz/require.h"
#include "timetable/foreigntable.h"
#include "timetable/timetableplaces.h"

#include <cstddef>
#include <cstdint>
#include <string>

/// Whatever stands in a table of places or of times: what is read lies in its ranges.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace halvane;
    const std::string text(data, data + size);
    try {
        for (const GivenPlace& place : places_of_text(text, "x.csv"))
            fuzz::require(!refused_place(place));
    } catch (const RunTimeFailure&) { // NOLINT: told in words
    }
    try {
        const ForeignTable table = foreign_table_of_text(text, "x.csv");
        for (const ForeignTable::Row& row : table.rows) {
            fuzz::require(row.seconds.size() == table.columns.size());
            for (const std::optional<int>& seconds : row.seconds)
                fuzz::require(!seconds || (*seconds >= 0 && *seconds <= 86400));
        }
    } catch (const RunTimeFailure&) { // NOLINT: told in words
    }
    return 0;
}
