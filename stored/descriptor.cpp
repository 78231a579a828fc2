// SPDX-License-Identifier: MIT
#include "stored/descriptor.h"

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace halvane {

std::size_t Descriptor::size() const {
    struct stat status {};
    return ::fstat(number_, &status) == 0 ? static_cast<std::size_t>(status.st_size) : 0;
}

bool Descriptor::close() {
    return !is_open() || ::close(std::exchange(number_, -1)) == 0;
}

bool write_whole(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(file, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

} // namespace halvane
