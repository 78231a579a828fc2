// SPDX-License-Identifier: MIT
#include "system/filecalls.h"

#include "system/windows/handle.h"
#include "system/windows/widepath.h"

#include <cerrno>
#include <cstring>
#include <thread>
#include <vector>

namespace halvane {
namespace {

/// Does `call` again for a while when another program has the file open for a moment, as scanners do.
template <class Call>
bool patiently(const Call& call) {
    constexpr std::chrono::seconds longest_wait(2);
    constexpr std::chrono::milliseconds between(1);
    const auto given_up = std::chrono::steady_clock::now() + longest_wait;
    for (;;) {
        if (call())
            return true;
        const DWORD error = ::GetLastError();
        const bool is_open_elsewhere = error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
        if (!is_open_elsewhere || std::chrono::steady_clock::now() >= given_up) {
            ::SetLastError(error);
            return false;
        }
        std::this_thread::sleep_for(between);
    }
}

/// Moves `from` over `to` also while others read what stood there. Not every file system can.
bool move_over_open_file(const std::wstring& from, const std::wstring& to) {
    const Handle file(::CreateFileW(from.c_str(), DELETE | SYNCHRONIZE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_WRITE_THROUGH, nullptr));
    std::wstring whole(32768, L'\0'); // the longest path of the system
    const DWORD length =
        ::GetFullPathNameW(to.c_str(), static_cast<DWORD>(whole.size()), whole.data(), nullptr);
    if (!file.is_open() || length == 0 || length >= whole.size())
        return false;
    constexpr auto rename_info_ex = static_cast<FILE_INFO_BY_HANDLE_CLASS>(22); // of Windows 10 1607
    const std::size_t name_size = length * sizeof(wchar_t);
    std::vector<FILE_RENAME_INFO> block(2 + name_size / sizeof(FILE_RENAME_INFO));
    FILE_RENAME_INFO& move = block.front();
    move.Flags = FILE_RENAME_FLAG_REPLACE_IF_EXISTS | FILE_RENAME_FLAG_POSIX_SEMANTICS;
    move.FileNameLength = static_cast<DWORD>(name_size);
    std::memcpy(static_cast<void*>(move.FileName), whole.data(), name_size);
    return ::SetFileInformationByHandle(file.get(), rename_info_ex, block.data(),
                                        static_cast<DWORD>(block.size() * sizeof(FILE_RENAME_INFO))) != 0;
}

bool is_folder(const std::wstring& path) {
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

} // namespace

Descriptor make_file(const std::string& path, unsigned /*rights*/) {
    return descriptor_of(open_file(path, GENERIC_WRITE | DELETE, CREATE_NEW), true);
}

void give_rights(int /*file*/, unsigned /*rights*/) {}

bool flush_file(int file) {
    if (::FlushFileBuffers(handle_of(file)) != 0)
        return true;
    tell_last_error();
    return false;
}

bool replace_file(const std::string& path, const std::string& place) {
    const std::wstring from = wide(path);
    const std::wstring to = wide(place);
    if (is_folder(to)) {
        errno = EISDIR;
        return false;
    }
    if (move_over_open_file(from, to))
        return true;
    const DWORD how = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    if (patiently([&] { return ::MoveFileExW(from.c_str(), to.c_str(), how) != 0; }))
        return true;
    tell_last_error();
    return false;
}

void flush_folder_of(const std::string& /*path*/) {} // MOVEFILE_WRITE_THROUGH has done so

void remove_file(const char* path) {
    ::DeleteFileW(wide(path).c_str());
}

bool is_own_file_unwritten_for(std::chrono::seconds time, const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA file{};
    FILETIME now{};
    ::GetSystemTimeAsFileTime(&now);
    constexpr DWORD no_regular = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    if (::GetFileAttributesExW(wide(path).c_str(), GetFileExInfoStandard, &file) == 0 ||
        (file.dwFileAttributes & no_regular) != 0)
        return false;
    constexpr std::int64_t ticks_per_second = 10'000'000;
    const auto ticks = [](const FILETIME& t) {
        return static_cast<std::int64_t>(std::uint64_t{t.dwHighDateTime} << 32U | t.dwLowDateTime);
    };
    return (ticks(now) - ticks(file.ftLastWriteTime)) / ticks_per_second > time.count();
}

} // namespace halvane
