// SPDX-License-Identifier: MIT
#include "system/descriptor.h"

#include "system/windows/handle.h"

#include <algorithm>
#include <io.h>

namespace halvane {
namespace {

constexpr std::size_t largest_block = 1 << 30; // what a call takes, whose counts have 32 bits

} // namespace

std::size_t Descriptor::size() const {
    LARGE_INTEGER size{};
    return ::GetFileSizeEx(handle_of(number_), &size) != 0 ? static_cast<std::size_t>(size.QuadPart) : 0;
}

bool Descriptor::close() {
    return !is_open() || ::_close(std::exchange(number_, -1)) == 0;
}

bool write_whole(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        DWORD count = 0;
        const auto block = static_cast<DWORD>(std::min(bytes.size(), largest_block));
        if (::WriteFile(handle_of(file), bytes.data(), block, &count, nullptr) == 0) {
            tell_last_error();
            return false;
        }
        bytes.remove_prefix(count);
    }
    return true;
}

std::ptrdiff_t read_some(int file, char* bytes, std::size_t count) {
    DWORD taken = 0;
    const auto block = static_cast<DWORD>(std::min(count, largest_block));
    if (::ReadFile(handle_of(file), bytes, block, &taken, nullptr) != 0)
        return taken;
    if (::GetLastError() == ERROR_BROKEN_PIPE)
        return 0; // its writer has ended
    tell_last_error();
    return -1;
}

std::ptrdiff_t read_at(int file, char* bytes, std::size_t count, std::int64_t offset) {
    DWORD taken = 0;
    OVERLAPPED place{};
    place.Offset = static_cast<DWORD>(offset);
    place.OffsetHigh = static_cast<DWORD>(offset >> 32);
    const auto block = static_cast<DWORD>(std::min(count, largest_block));
    if (::ReadFile(handle_of(file), bytes, block, &taken, &place) != 0)
        return taken;
    if (::GetLastError() == ERROR_HANDLE_EOF)
        return 0;
    tell_last_error();
    return -1;
}

} // namespace halvane
