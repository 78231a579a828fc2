// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace halvane {

/// A temporary file in the folder of what it will become. It goes with the object unless it has been moved
/// into its place, and goes as well when a signal ends the process.
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

    int descriptor() const { return descriptor_; }
    /// Flushes and closes the file and renames it over `place`. Returns whether that was done, else errno
    /// tells why not and the file is gone.
    bool move_to(const std::string& place);

private:
    bool close();
    void remove();

    std::string path_;
    int descriptor_ = -1;
    int slot_ = -1; ///< among the files that a signal removes
};

/// Removes every unfinished file of this process; a signal handler may call it.
void remove_unfinished_files();

/// What a program does first: a closed standard stream gives its number to no file, a write without a reader
/// or beyond a limit of file sizes is an error and no end, and a signal that ends the program removes the
/// unfinished files before.
void begin_program();

/// Removes the unfinished files and ends the process by signal `number` as if it had not been caught.
void end_by_signal(int number);

/// Removes the unfinished files of this user in `folder` (the present one when empty) that have not been
/// written to for a day: a killed process left them.
void remove_old_leftovers(const std::string& folder);

} // namespace halvane
