#include "app/stored/textfile.h"

#include "app/stored/failure.h"
#include "app/stored/outputfile.h"
#include "app/stored/windows1256.h"

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

/// An open file that goes with its name.
class OpenFile {
public:
    /// Opens a regular file and no other: the others are not even touched, for some wait and some act.
    explicit OpenFile(const std::string& path) : path_(path) {
        require_regular(::stat(path.c_str(), &status_) == 0);
        descriptor_ = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
        if (descriptor_ < 0)
            throw file_failure(FileAction::open, path_, errno);
        require_regular(::fstat(descriptor_, &status_) == 0);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() {
        if (descriptor_ >= 0)
            ::close(descriptor_);
    }

    std::size_t size() const { return static_cast<std::size_t>(status_.st_size); }
    /// Up to `count` further bytes; none at the end.
    std::size_t read(char* bytes, std::size_t count) const {
        for (;;) {
            const ssize_t taken = ::read(descriptor_, bytes, count);
            if (taken >= 0)
                return static_cast<std::size_t>(taken);
            if (errno != EINTR)
                throw file_failure(FileAction::read, path_, errno);
        }
    }

private:
    void require_regular(bool known) const {
        if (!known)
            throw file_failure(FileAction::open, path_, errno);
        if (!S_ISREG(status_.st_mode))
            throw damaged_file(path_, {"a file", "ملف"}, other_kind(status_.st_mode));
    }

    const std::string& path_;
    struct stat status_ {};
    int descriptor_ = -1;
};

} // namespace

std::string read_file(const std::string& path) {
    const OpenFile file(path);
    const auto require_allowed = [&path](std::size_t size) {
        if (size > largest_stored_file)
            throw damaged_file(path, at_most(largest_stored_file), {"a larger one", "ملف أكبر"});
    };
    require_allowed(file.size());
    std::string bytes;
    bytes.reserve(file.size() + 1);
    std::array<char, 65536> block{};
    for (std::size_t count = 0; (count = file.read(block.data(), block.size())) > 0;) {
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
