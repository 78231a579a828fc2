// SPDX-License-Identifier: MIT
#include "panel/besidefile.h"

namespace halvane {

BesideFile::BesideFile(const std::string& path) : file_(path, FileRights::of_umask) {
    open(QIODevice::WriteOnly);
}

qint64 BesideFile::readData(char*, qint64) {
    return -1;
}

qint64 BesideFile::writeData(const char* data, qint64 size) {
    if (failure_)
        return -1;
    try {
        file_.write({data, static_cast<std::size_t>(size)});
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
    file_.commit();
}

} // namespace halvane
