// SPDX-License-Identifier: MIT
#include "stored/textfile.h"

#include "base/failure.h"
#include "stored/outputfile.h"
#include "stored/windows1256.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace halvane {
namespace {

/// What stands in the place of a file.
TwinWords other_kind(mode_t mode) {
    if (S_ISDIR(mode))
        return {"a folder", "مجلد"};
    if (S_ISFIFO(mode))
        return {"a named pipe", "أنبوب"};
    if (S_ISSOCK(mode))
        return {"a socket", "مقبس"};
    return {"a device", "جهاز"};
}

TwinWords at_most(std::size_t size) {
    const std::string megabytes = std::to_string(size / mebibyte);
    return {"a file of at most " + megabytes + " MB", "ملف لا يزيد على " + megabytes + " ميغابايت"};
}

/// In     known  whether the system has given the status
void require_regular(bool known, const struct stat& status, const std::string& path) {
    if (!known)
        throw file_failure(FileAction::open, path, errno);
    if (!S_ISREG(status.st_mode))
        throw damaged_file(path, {"a file", "ملف"}, other_kind(status.st_mode));
}

/// Up to `count` further bytes; none at the end.
std::size_t read_some(const Descriptor& file, char* bytes, std::size_t count, const std::string& path) {
    for (;;) {
        const ssize_t taken = ::read(file.number(), bytes, count);
        if (taken >= 0)
            return static_cast<std::size_t>(taken);
        if (errno != EINTR)
            throw file_failure(FileAction::read, path, errno);
    }
}

} // namespace

Descriptor open_regular_file(const std::string& path) {
    struct stat status {};
    require_regular(::stat(path.c_str(), &status) == 0, status, path);
    Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    require_regular(file.is_open() && ::fstat(file.number(), &status) == 0, status, path);
    return file;
}

std::string read_file(const std::string& path) {
    const Descriptor file = open_regular_file(path);
    const auto require_allowed = [&path](std::size_t size) {
        if (size > largest_stored_file)
            throw damaged_file(path, at_most(largest_stored_file), {"a larger one", "ملف أكبر"});
    };
    require_allowed(file.size());
    std::string bytes;
    bytes.reserve(file.size() + 1);
    std::array<char, 65536> block{};
    for (std::size_t count = 0; (count = read_some(file, block.data(), block.size(), path)) > 0;) {
        bytes.append(block.data(), count);
        require_allowed(bytes.size()); // it may grow, or not know its size
    }
    return bytes;
}

std::string read_text_file(const std::string& path) {
    std::string bytes = read_file(path);
    if (bytes.starts_with("\xEF\xBB\xBF"))
        bytes.erase(0, 3);
    return is_utf8(bytes) ? bytes : utf8_of_windows1256(bytes);
}

void save_text_file(const std::string& path, std::string_view content) {
    OutputFile file(path, FileRights::as_before);
    file.write(content);
    file.commit();
}

} // namespace halvane
