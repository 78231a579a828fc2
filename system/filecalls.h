// SPDX-License-Identifier: MIT
// The calls that an unfinished file is made of. What fails leaves its reason in errno.
#pragma once

#include "system/descriptor.h"

#include <chrono>
#include <string>

namespace halvane {

/// Makes a file that is not there yet, open for writing. Not open when errno tells why not.
/// In     rights  at most these, where the system knows such; the umask takes from them
Descriptor make_file(const std::string& path, unsigned rights);

/// Gives the open file these rights; a file system without rights refuses, and keeps its own.
void give_rights(int file, unsigned rights);

/// Brings to the disk what has been written.
bool flush_file(int file);

/// Moves the file `path` to `place`, over what stands there: at any moment one of the two does.
bool replace_file(const std::string& path, const std::string& place);

/// Brings to the disk which file stands at `path`; nothing where that cannot be asked for.
void flush_folder_of(const std::string& path);

/// Removes a file, also one that this process has open; a signal handler may call it.
void remove_file(const char* path);

/// Whether `path` is a regular file of this user that has not been written to for so long.
bool is_own_file_unwritten_for(std::chrono::seconds time, const std::string& path);

} // namespace halvane
