// SPDX-License-Identifier: MIT
#pragma once

#include "system/descriptor.h"

#include <optional>
#include <string>

namespace halvane {

/// Where an output goes: what the trusted links of a path lead to, one after the other. Links of the user
/// and of the administrator are trusted; another user's could make this user's program write whatever its
/// owner wants, so the file takes its place. A link of the system to an open pipe or device has no name to
/// follow: it is its own place.
struct OutputPlace {
    enum class Kind {
        unknown,  ///< errno tells why
        file,     ///< a regular file, a link that is to be replaced, or nothing yet
        folder,   ///< which is no place for an output
        in_place, ///< a pipe or a device, which is never replaced
        socket    ///< the same of a socket
    };
    Kind kind = Kind::unknown;
    std::string path;
    std::optional<unsigned> rights; ///< of a regular file that is there
};

OutputPlace output_place(const std::string& path);

/// Opens a pipe, a device or a socket for writing; a pipe's reader may come a little later. When it is not
/// open errno tells why.
Descriptor open_in_place(const OutputPlace& place);

/// Standard output once more, closed with its owner; when it is not open errno tells why.
Descriptor copy_of_standard_output();

} // namespace halvane
