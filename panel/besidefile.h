// SPDX-License-Identifier: MIT
#pragma once

#include "base/failure.h"
#include "stored/outputfile.h"

#include <QIODevice>
#include <optional>
#include <string>

namespace halvane {

/// A device for writers that know no failure: what they write is a result (OutputFile) that takes its place
/// in one step, and only when every byte of it has been written. Given up, it leaves nothing.
class BesideFile : public QIODevice {
    Q_OBJECT
public:
    /// Error  raises RunTimeFailure naming `path` when its folder cannot be written.
    explicit BesideFile(const std::string& path);
    BesideFile(const BesideFile&) = delete;
    BesideFile& operator=(const BesideFile&) = delete;

    /// Error  raises RunTimeFailure naming `path` when a write has failed; its old content then stands.
    void commit();

protected:
    qint64 readData(char* data, qint64 size) override;
    qint64 writeData(const char* data, qint64 size) override;

private:
    OutputFile file_;
    std::optional<RunTimeFailure> failure_;
};

} // namespace halvane
