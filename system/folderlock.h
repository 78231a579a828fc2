// SPDX-License-Identifier: MIT
#pragma once

#include "system/descriptor.h"

#include <string>

namespace halvane {

/// Keeps a folder for one process and one object of it. A process that ends gives it back, however it ends.
class FolderLock {
public:
    enum class Answer {
        taken,
        held,   ///< by another one now
        refused ///< by the system: errno tells why
    };

    explicit FolderLock(std::string folder) : path_(std::move(folder)) {}
    /// Takes the lock if it is free; waits for nothing.
    Answer take();

private:
    std::string path_;
    Descriptor held_;
};

} // namespace halvane
