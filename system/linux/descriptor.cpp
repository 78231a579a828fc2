// SPDX-License-Identifier: MIT
#include "system/descriptor.h"

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace halvane {
namespace {

/// Asks `call` again as long as a signal interrupts it.
template <class Call>
ssize_t uninterrupted(const Call& call) {
    for (;;) {
        const ssize_t count = call();
        if (count >= 0 || errno != EINTR)
            return count;
    }
}

} // namespace

std::size_t Descriptor::size() const {
    struct stat status {};
    return ::fstat(number_, &status) == 0 ? static_cast<std::size_t>(status.st_size) : 0;
}

bool Descriptor::close() {
    return !is_open() || ::close(std::exchange(number_, -1)) == 0;
}

bool write_whole(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = uninterrupted([&] { return ::write(file, bytes.data(), bytes.size()); });
        if (count < 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

std::ptrdiff_t read_some(int file, char* bytes, std::size_t count) {
    return uninterrupted([&] { return ::read(file, bytes, count); });
}

std::ptrdiff_t read_at(int file, char* bytes, std::size_t count, std::int64_t offset) {
    return uninterrupted([&] { return ::pread(file, bytes, count, offset); });
}

} // namespace halvane
