// SPDX-License-Identifier: MIT
#include "fuzz/require.h"
#include "hijri/announcedlist.h"

#include <cstddef>
#include <cstdint>
#include <string>

/// Whatever stands in the list of announced starts: each line is used or told, the starts go together, and
/// what is written back reads the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace halvane;
    const AnnouncedList list = announced_of_text(std::string(data, data + size));
    fuzz::require(list.starts.size() + list.problems.size() == list.rows.size());
    for (const AnnouncedProblem& problem : list.problems)
        fuzz::require(problem.row < list.rows.size() && !problem.words.english.empty() &&
                      !problem.words.arabic.empty());
    for (std::size_t i = 1; i < list.starts.size(); ++i) {
        const int months = list.starts[i].month.value - list.starts[i - 1].month.value;
        const double days = list.starts[i].first_day - list.starts[i - 1].first_day;
        fuzz::require(months > 0 && days >= 29 * months && days <= 30 * months);
    }
    const AnnouncedList again = announced_of_text(text_of(list.rows));
    fuzz::require(again.rows.size() >= list.rows.size());
    const std::string text = text_of(again.rows);
    const AnnouncedList third = announced_of_text(text);
    fuzz::require(text_of(third.rows) == text && third.starts.size() == again.starts.size());
    return 0;
}
