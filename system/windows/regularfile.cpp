// SPDX-License-Identifier: MIT
#include "system/regularfile.h"

#include "system/windows/handle.h"
#include "system/windows/widepath.h"

#include <random>

namespace halvane {
namespace {

/// A name in the folder of the devices, whose opening may wait and act.
bool is_device_name(const std::string& path) {
    return path.starts_with("\\\\.\\") || path.starts_with("//./");
}

FileKind kind_of(HANDLE handle) {
    const DWORD type = ::GetFileType(handle);
    if (type == FILE_TYPE_PIPE)
        return FileKind::pipe;
    if (type != FILE_TYPE_DISK)
        return FileKind::device;
    BY_HANDLE_FILE_INFORMATION information{};
    const bool is_folder = ::GetFileInformationByHandle(handle, &information) != 0 &&
                           (information.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    return is_folder ? FileKind::folder : FileKind::regular;
}

} // namespace

RegularFile open_regular(const std::string& path) {
    if (is_device_name(path))
        return {Descriptor(), FileKind::device};
    {
        const Handle asked(open_to_ask(path));
        if (!asked.is_open()) {
            tell_last_error();
            return {};
        }
        if (const FileKind kind = kind_of(asked.get()); kind != FileKind::regular)
            return {Descriptor(), kind};
    }
    Handle opened(open_file(path, GENERIC_READ, OPEN_EXISTING));
    if (!opened.is_open())
        return {};
    if (const FileKind kind = kind_of(opened.get()); kind != FileKind::regular)
        return {Descriptor(), kind};
    return {descriptor_of(opened.release(), false), FileKind::regular};
}

Descriptor nameless_file(const std::string& folder) {
    std::random_device random;
    const std::string path = folder + "/.halvane-copy-" + std::to_string(random()) + std::to_string(random());
    return descriptor_of(
        open_file(path, GENERIC_READ | GENERIC_WRITE | DELETE, CREATE_NEW,
                  FILE_ATTRIBUTE_TEMPORARY | FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE),
        true);
}

} // namespace halvane
