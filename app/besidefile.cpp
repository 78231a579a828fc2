#include "app/besidefile.h"

#include "app/stored/textfile.h"

#include <unistd.h>
#include <utility>

namespace halvane {

BesideFile::BesideFile(const std::string& path) : path_(path), file_(open_beside(path, beside_)) {
    open(QIODevice::WriteOnly);
}

BesideFile::~BesideFile() {
    if (file_ < 0)
        return;
    ::close(file_);
    ::unlink(beside_.c_str());
}

qint64 BesideFile::readData(char*, qint64) {
    return -1;
}

qint64 BesideFile::writeData(const char* data, qint64 size) {
    if (failure_)
        return -1;
    try {
        write_all(file_, {data, static_cast<std::size_t>(size)}, path_);
    } catch (const RunTimeFailure& failure) {
        failure_ = failure;
        return -1;
    }
    return size;
}

void BesideFile::commit() {
    close();
    if (failure_)
        throw RunTimeFailure(*failure_);
    commit_beside(std::exchange(file_, -1), beside_, path_);
}

} // namespace halvane
