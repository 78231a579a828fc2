// SPDX-License-Identifier: MIT
#pragma once

#include "system/descriptor.h"

#include <string>

namespace halvane {

/// What can stand in the place of a file.
enum class FileKind { regular, folder, pipe, socket, device };

/// A file that was to be opened. It is open only when it is regular and the system has nothing against it,
/// else errno tells.
struct RegularFile {
    Descriptor file;
    FileKind kind = FileKind::regular;
};

/// Opens a regular file for reading, and no other: the others are not even touched, for some wait and some
/// act.
RegularFile open_regular(const std::string& path);

/// A new file in `folder` without a name, to be written and read; it is gone when it is closed. Not open
/// where the folder has no room for it.
Descriptor nameless_file(const std::string& folder);

} // namespace halvane
