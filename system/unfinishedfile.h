// SPDX-License-Identifier: MIT
#pragma once

#include "system/descriptor.h"

#include <string>

namespace halvane {

/// A temporary file in the folder of what it will become. It goes with the object unless it has been moved
/// into its place, and goes as well when a signal or a closed window ends the process.
class UnfinishedFile {
public:
    /// Makes the file, open for writing.
    /// In     folder  where it lies; empty for the present one
    ///        rights  at most these; the umask takes from them
    /// Error  raises nothing: descriptor() is then -1 and errno tells why.
    UnfinishedFile(const std::string& folder, unsigned rights);
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;
    ~UnfinishedFile();

    int descriptor() const { return file_.number(); }
    /// Flushes and closes the file and renames it over `place`. Returns whether that was done, else errno
    /// tells why not and the file is gone.
    bool move_to(const std::string& place);

private:
    void remove();

    std::string path_;
    Descriptor file_;
    int slot_ = -1; ///< among the files that a signal removes
};

/// Removes every unfinished file of this process; what ends the process may call it.
void remove_unfinished_files();

/// Removes the unfinished files of this user in `folder` (the present one when empty) that have not been
/// written to for a day: a killed process left them.
void remove_old_leftovers(const std::string& folder);

} // namespace halvane
