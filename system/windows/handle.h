// SPDX-License-Identifier: MIT
#pragma once

#include "system/descriptor.h"

#include <string>
#include <utility>
#include <windows.h>

namespace halvane {

/// A handle of the system, closed with its owner.
class Handle {
public:
    explicit Handle(HANDLE handle = INVALID_HANDLE_VALUE) : handle_(handle) {}
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() {
        if (is_open())
            ::CloseHandle(handle_);
    }
    HANDLE get() const { return handle_; }
    bool is_open() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE release() { return std::exchange(handle_, INVALID_HANDLE_VALUE); }

private:
    HANDLE handle_;
};

/// Puts the number of the C library for the system's last error into errno.
void tell_last_error();

/// Opens what is at `path` without reading or writing it, to ask about it. Others may do with it what they
/// want meanwhile.
/// In     flags  beside those that folders need
HANDLE open_to_ask(const std::string& path, DWORD flags = 0);

/// The same to read or write it; on failure errno tells why.
/// In     access       GENERIC_READ, GENERIC_WRITE
///        disposition  as of CreateFileW
///        attributes   of a new file, and flags
HANDLE open_file(const std::string& path, DWORD access, DWORD disposition,
                 DWORD attributes = FILE_ATTRIBUTE_NORMAL);

/// A number of the C library for the handle, which it owns from now on; bytes go through it as they are.
Descriptor descriptor_of(HANDLE handle, bool writes);

/// The handle of a number; INVALID_HANDLE_VALUE of none.
HANDLE handle_of(int descriptor);

} // namespace halvane
