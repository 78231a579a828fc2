#include "app/stored/textfile.h"

#include "app/stored/failure.h"
#include "app/stored/windows1256.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace halvane {
namespace {

std::string read_bytes(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        throw file_failure(FileAction::open, path, errno);
    std::string bytes;
    struct stat status {};
    if (::fstat(file, &status) == 0 && status.st_size > 0)
        bytes.reserve(static_cast<std::size_t>(status.st_size) + 1);
    char block[65536];
    for (;;) {
        const ssize_t count = ::read(file, block, sizeof block);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0) {
            const int error = errno;
            ::close(file);
            throw file_failure(FileAction::read, path, error);
        }
        if (count == 0)
            break;
        bytes.append(block, static_cast<std::size_t>(count));
    }
    ::close(file);
    return bytes;
}

void flush_folder_of(const std::string& path) {
    const std::filesystem::path parent = std::filesystem::path(path).parent_path();
    const int folder = ::open(parent.empty() ? "." : parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return;
    ::fsync(folder);
    ::close(folder);
}

} // namespace

std::string read_text_file(const std::string& path) {
    std::string bytes = read_bytes(path);
    if (bytes.starts_with("\xEF\xBB\xBF"))
        bytes.erase(0, 3);
    return is_utf8(bytes) ? bytes : utf8_of_windows1256(bytes);
}

int open_beside(const std::string& path, std::string& beside) {
    beside = path + ".XXXXXX";
    const int file = ::mkstemp(beside.data());
    if (file < 0)
        throw file_failure(FileAction::write, path, errno);
    struct stat status {};
    const mode_t mode = ::stat(path.c_str(), &status) == 0 ? status.st_mode & 0777U : 0644U;
    if (::fchmod(file, mode) != 0)
        errno = 0; // a file system without modes keeps its own
    return file;
}

void write_all(int file, std::string_view content, const std::string& path) {
    while (!content.empty()) {
        const ssize_t count = ::write(file, content.data(), content.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            throw file_failure(FileAction::write, path, errno);
        content.remove_prefix(static_cast<std::size_t>(count));
    }
}

void commit_beside(int file, const std::string& beside, const std::string& path) {
    const bool flushed = ::fsync(file) == 0;
    const bool closed = ::close(file) == 0;
    if (!flushed || !closed || ::rename(beside.c_str(), path.c_str()) != 0) {
        const int error = errno;
        ::unlink(beside.c_str());
        throw file_failure(FileAction::write, path, error);
    }
    flush_folder_of(path);
}

void save_text_file(const std::string& path, std::string_view content) {
    std::string beside;
    const int file = open_beside(path, beside);
    try {
        write_all(file, content, path);
    } catch (...) {
        ::close(file);
        ::unlink(beside.c_str());
        throw;
    }
    commit_beside(file, beside, path);
}

} // namespace halvane
