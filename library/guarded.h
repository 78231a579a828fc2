// SPDX-License-Identifier: MIT
#pragma once

#include "halvane/error.h"

#include <exception>
#include <string>

namespace halvane::v1 {

/// The library's own exception for any other one; an Error stays what it is.
[[noreturn]] void raise_as_error(std::exception_ptr failure);

/// Does `work`; whatever it raises leaves as an Error.
template <class Work>
auto guarded(Work&& work) {
    try {
        return work();
    } catch (...) {
        raise_as_error(std::current_exception());
    }
}

/// Raises Error (bad_argument).
[[noreturn]] void raise_bad_argument(const std::string& words);

/// Error  raises Error (bad_argument) for a number that is not within the limits, both inside; "... must be
/// from
///        `least` to `most`".
void require_within(const char* what, double value, double least, double most);

/// Raises Error (bad_argument) that names every known key.
/// In     known  rows with a `key`
template <class Rows>
[[noreturn]] void raise_unknown_key(const char* what, const std::string& key, const Rows& known) {
    std::string words = std::string("There is no ") + what + " \"" + key + "\"; known are";
    const char* before = " ";
    for (const auto& row : known) {
        ((words += before) += row.key);
        before = ", ";
    }
    raise_bad_argument(words + ".");
}

} // namespace halvane::v1
