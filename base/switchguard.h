// SPDX-License-Identifier: MIT
#pragma once

#include <type_traits>
#include <utility>

namespace halvane {

/// Gives a process-wide variable another value for the span of a scope; every way out of it puts the old
/// value back.
template <class T>
class SwitchGuard {
public:
    [[nodiscard]] SwitchGuard(T& which, std::type_identity_t<T> value)
        : which_(which), saved_(std::exchange(which, std::move(value))) {}
    SwitchGuard(const SwitchGuard&) = delete;
    SwitchGuard& operator=(const SwitchGuard&) = delete;
    ~SwitchGuard() { which_ = std::move(saved_); }

private:
    T& which_;
    T saved_;
};

} // namespace halvane
