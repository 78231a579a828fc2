#pragma once

#include <string>
#include <string_view>

namespace halvane {

/// The whole content of a text file as UTF-8: a byte order mark is dropped, and a file whose bytes are not
/// UTF-8 is taken as Windows-1256.
/// Error  raises RunTimeFailure naming the file when it cannot be read.
std::string read_text_file(const std::string& path);

/// Replaces `path` by `content` in one step: writes beside it, flushes to disk, renames over it. Whatever
/// happens, the file afterwards holds either its old content or the new one, whole.
/// Error  raises RunTimeFailure naming the file; the old content then stands.
void save_text_file(const std::string& path, std::string_view content);

/// Opens a new file beside `path` for writing and stores its name in `beside`.
/// Error  raises RunTimeFailure naming `path`.
int open_beside(const std::string& path, std::string& beside);

/// Flushes and closes `file` and renames `beside` over `path`.
/// Error  raises RunTimeFailure naming `path`; `beside` is then removed.
void commit_beside(int file, const std::string& beside, const std::string& path);

/// Writes all of `content` to `file`.
/// Error  raises RunTimeFailure naming `path`.
void write_all(int file, std::string_view content, const std::string& path);

} // namespace halvane
