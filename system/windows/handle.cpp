// SPDX-License-Identifier: MIT
#include "system/windows/handle.h"

#include "system/windows/widepath.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <io.h>

namespace halvane {
namespace {

struct KnownError {
    DWORD system;
    int number;
};

constexpr DWORD disk_quota_exceeded = 1295; // not in the headers of this compiler

constexpr std::array<KnownError, 29> known_errors{{
    {ERROR_FILE_NOT_FOUND, ENOENT},
    {ERROR_PATH_NOT_FOUND, ENOENT},
    {ERROR_INVALID_DRIVE, ENOENT},
    {ERROR_BAD_NETPATH, ENOENT},
    {ERROR_BAD_NET_NAME, ENOENT},
    {ERROR_INVALID_NAME, ENOENT},
    {ERROR_BAD_PATHNAME, ENOENT},
    {ERROR_DIRECTORY, ENOTDIR},
    {ERROR_ACCESS_DENIED, EACCES},
    {ERROR_PRIVILEGE_NOT_HELD, EPERM},
    {ERROR_WRITE_PROTECT, EROFS},
    {ERROR_SHARING_VIOLATION, EBUSY},
    {ERROR_LOCK_VIOLATION, EBUSY},
    {ERROR_PIPE_BUSY, EBUSY},
    {ERROR_USER_MAPPED_FILE, EBUSY},
    {ERROR_FILE_EXISTS, EEXIST},
    {ERROR_ALREADY_EXISTS, EEXIST},
    {ERROR_DISK_FULL, ENOSPC},
    {ERROR_HANDLE_DISK_FULL, ENOSPC},
    {disk_quota_exceeded, ENOSPC},
    {ERROR_FILE_TOO_LARGE, EFBIG},
    {ERROR_TOO_MANY_OPEN_FILES, EMFILE},
    {ERROR_NOT_ENOUGH_MEMORY, ENOMEM},
    {ERROR_OUTOFMEMORY, ENOMEM},
    {ERROR_BROKEN_PIPE, EPIPE},
    {ERROR_NO_DATA, EPIPE},
    {ERROR_FILENAME_EXCED_RANGE, ENAMETOOLONG},
    {ERROR_INVALID_HANDLE, EBADF},
    {ERROR_BAD_EXE_FORMAT, ENOEXEC},
}};

constexpr DWORD any_sharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

} // namespace

void tell_last_error() {
    const DWORD last = ::GetLastError();
    errno = EIO;
    for (const KnownError& known : known_errors)
        if (known.system == last)
            errno = known.number;
}

HANDLE open_to_ask(const std::string& path, DWORD flags) {
    return ::CreateFileW(wide(path).c_str(), FILE_READ_ATTRIBUTES, any_sharing, nullptr, OPEN_EXISTING,
                         FILE_FLAG_BACKUP_SEMANTICS | flags, nullptr);
}

HANDLE open_file(const std::string& path, DWORD access, DWORD disposition, DWORD attributes) {
    const HANDLE handle =
        ::CreateFileW(wide(path).c_str(), access, any_sharing, nullptr, disposition, attributes, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        tell_last_error();
    return handle;
}

Descriptor descriptor_of(HANDLE handle, bool writes) {
    if (handle == INVALID_HANDLE_VALUE)
        return Descriptor();
    const int number = ::_open_osfhandle(reinterpret_cast<std::intptr_t>(handle),
                                         _O_BINARY | _O_NOINHERIT | (writes ? _O_WRONLY : _O_RDONLY));
    if (number < 0)
        ::CloseHandle(handle);
    return Descriptor(number);
}

HANDLE handle_of(int descriptor) {
    return descriptor < 0 ? INVALID_HANDLE_VALUE : reinterpret_cast<HANDLE>(::_get_osfhandle(descriptor));
}

} // namespace halvane
