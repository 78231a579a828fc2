// SPDX-License-Identifier: MIT
#include "system/folderlock.h"

#include "system/windows/handle.h"
#include "system/windows/widepath.h"

namespace halvane {

// A folder itself cannot be locked. What one process alone has open is a file that goes when it is closed or
// its process ends; on the folder of a server it locks out the other machines too.
FolderLock::Answer FolderLock::take() {
    const std::wstring name = wide(path_ + "/.halvane-lock");
    const HANDLE handle = ::CreateFileW(name.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, OPEN_ALWAYS,
                                        FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (handle != INVALID_HANDLE_VALUE) {
        held_ = descriptor_of(handle, true);
        return held_.is_open() ? Answer::taken : Answer::refused;
    }
    const bool is_shut_out = ::GetLastError() == ERROR_SHARING_VIOLATION;
    tell_last_error();
    // A file that is just going refuses to be opened, and is there still.
    const bool is_there = ::GetFileAttributesW(name.c_str()) != INVALID_FILE_ATTRIBUTES ||
                          ::GetLastError() == ERROR_ACCESS_DENIED;
    return is_shut_out || is_there ? Answer::held : Answer::refused;
}

} // namespace halvane
