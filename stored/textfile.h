// SPDX-License-Identifier: MIT
#pragma once

#include "system/descriptor.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace halvane {

/// Opens a regular file for reading, and no other: the others are not even touched, for some wait and some
/// act.
/// Error  raises RunTimeFailure naming the file when it cannot be opened or is of another kind (a pipe, a
/// device, a folder).
Descriptor open_regular_file(const std::string& path);

inline constexpr std::size_t mebibyte = std::size_t{1024} * 1024;
/// No stored file, series file or picture of the program comes near it.
inline constexpr std::size_t largest_stored_file = 16 * mebibyte; // [bytes]

/// The bytes of a regular file of at most `largest_stored_file` bytes.
/// Error  raises RunTimeFailure naming the file when it cannot be read, is of another kind or is larger.
std::string read_file(const std::string& path);

/// The same as UTF-8 text: a byte order mark is dropped, and a file whose bytes are not UTF-8 is taken as
/// Windows-1256.
std::string read_text_file(const std::string& path);

/// Replaces `path` by `content` in one step: writes beside it, flushes to disk, renames over it. Whatever
/// happens, the file afterwards holds either its old content or the new one, whole. It keeps its rights.
/// Error  raises RunTimeFailure naming the file; the old content then stands.
void save_text_file(const std::string& path, std::string_view content);

} // namespace halvane
