// SPDX-License-Identifier: MIT
#include "system/regularfile.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace halvane {
namespace {

FileKind kind_of(mode_t mode) {
    if (S_ISREG(mode))
        return FileKind::regular;
    if (S_ISDIR(mode))
        return FileKind::folder;
    if (S_ISFIFO(mode))
        return FileKind::pipe;
    return S_ISSOCK(mode) ? FileKind::socket : FileKind::device;
}

} // namespace

RegularFile open_regular(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0)
        return {};
    if (!S_ISREG(status.st_mode))
        return {Descriptor(), kind_of(status.st_mode)};
    Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file.is_open() || ::fstat(file.number(), &status) != 0)
        return {};
    if (!S_ISREG(status.st_mode))
        return {Descriptor(), kind_of(status.st_mode)};
    return {std::move(file), FileKind::regular};
}

Descriptor nameless_file(const std::string& folder) {
    return Descriptor(::open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600));
}

} // namespace halvane
