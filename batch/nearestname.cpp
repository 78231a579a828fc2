// SPDX-License-Identifier: MIT
#include "batch/nearestname.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace halvane {
namespace {

/// Levenshtein's distance, one row of the table at a time.
std::size_t changes_between(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (const char letter : a) {
        std::size_t diagonal = row[0]++;
        for (std::size_t i = 0; i < b.size(); ++i) {
            const std::size_t replaced = diagonal + (letter == b[i] ? 0 : 1);
            diagonal = row[i + 1];
            row[i + 1] = std::min({replaced, diagonal + 1, row[i] + 1});
        }
    }
    return row.back();
}

} // namespace

std::string nearest_name(std::string_view word, const std::vector<std::string>& names) {
    const auto begun = std::find_if(names.begin(), names.end(), [word](const std::string& name) {
        return !word.empty() && name.starts_with(word);
    });
    if (begun != names.end())
        return *begun;
    return *std::min_element(names.begin(), names.end(), [word](const std::string& a, const std::string& b) {
        return changes_between(word, a) < changes_between(word, b);
    });
}

} // namespace halvane
