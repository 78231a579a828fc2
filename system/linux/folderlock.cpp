// SPDX-License-Identifier: MIT
#include "system/folderlock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>

namespace halvane {

FolderLock::Answer FolderLock::take() {
    if (!held_.is_open())
        held_ = Descriptor(::open(path_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!held_.is_open())
        return Answer::refused;
    if (::flock(held_.number(), LOCK_EX | LOCK_NB) == 0)
        return Answer::taken;
    return errno == EWOULDBLOCK || errno == EINTR ? Answer::held : Answer::refused;
}

} // namespace halvane
