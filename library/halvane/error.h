// SPDX-License-Identifier: MIT
#pragma once

#include "halvane/export.h"

#include <stdexcept>
#include <string>

namespace halvane::HALVANE_INLINE v1 {

/// What kind of thing failed.
enum class ErrorKind {
    bad_argument = 1, ///< a value outside its range, an unknown key or time zone
    missing_file,     ///< a series file that is not there
    damaged_file,     ///< a series file that is not of its form
    no_value,         ///< a calculation without an answer
    no_memory,        ///< the system gives no more memory
    cancelled,        ///< the caller's own Progress said so
    other,
};

/// The one exception of the library. `what()` is a whole sentence in English, UTF-8.
class HALVANE_EXPORT Error : public std::runtime_error {
public:
    /// In     words  a whole sentence
    Error(ErrorKind kind, const std::string& words);
    Error(const Error&) noexcept = default;
    ~Error() override;

    /// What kind of thing failed.
    ErrorKind kind() const noexcept { return kind_; }

private:
    ErrorKind kind_;
};

} // namespace halvane::HALVANE_INLINEv1
