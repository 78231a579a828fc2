// SPDX-License-Identifier: MIT
#include "system/outputplace.h"

#include "system/windows/handle.h"
#include "system/windows/widepath.h"

#include <cerrno>

namespace halvane {
namespace {

/// What the links of `path` lead to; `path` itself when that cannot be told. Only administrators make links
/// here.
std::string followed(const std::string& path) {
    const Handle target(open_to_ask(path));
    std::wstring found(32768, L'\0'); // the longest path of the system
    const DWORD length = target.is_open() ? ::GetFinalPathNameByHandleW(target.get(), found.data(),
                                                                        static_cast<DWORD>(found.size()), 0)
                                          : 0;
    return length == 0 || length >= found.size() ? path : narrow(found.substr(0, length));
}

} // namespace

OutputPlace output_place(const std::string& path) {
    OutputPlace place;
    place.path = path;
    place.kind = OutputPlace::Kind::file;
    if (path.starts_with("\\\\.\\") || path.starts_with("//./")) {
        place.kind = OutputPlace::Kind::in_place;
        return place;
    }
    const DWORD attributes = ::GetFileAttributesW(wide(path).c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0)
        place.path = followed(path);
    const Handle present(open_to_ask(place.path));
    if (!present.is_open())
        return place;
    if (::GetFileType(present.get()) != FILE_TYPE_DISK)
        place.kind = OutputPlace::Kind::in_place;
    else if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        place.kind = OutputPlace::Kind::folder;
    return place;
}

Descriptor open_in_place(const OutputPlace& place) {
    return descriptor_of(open_file(place.path, GENERIC_WRITE, OPEN_EXISTING), true);
}

Descriptor copy_of_standard_output() {
    HANDLE copy = INVALID_HANDLE_VALUE;
    const HANDLE output = ::GetStdHandle(STD_OUTPUT_HANDLE);
    if (output == nullptr || output == INVALID_HANDLE_VALUE) {
        errno = EBADF;
        return Descriptor();
    }
    if (::DuplicateHandle(::GetCurrentProcess(), output, ::GetCurrentProcess(), &copy, 0, FALSE,
                          DUPLICATE_SAME_ACCESS) == 0) {
        tell_last_error();
        return Descriptor();
    }
    return descriptor_of(copy, true);
}

} // namespace halvane
