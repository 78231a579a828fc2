// SPDX-License-Identifier: MIT
#pragma once

#include "base/failure.h"
#include "system/descriptor.h"
#include "system/outputplace.h"
#include "system/unfinishedfile.h"

#include <memory>
#include <string>
#include <string_view>

namespace halvane {

/// Standard output, in the place of a file's name.
inline constexpr std::string_view standard_output = "-";

/// Who may read and write a file that is put in the place of an earlier one.
enum class FileRights {
    as_before, ///< those of the earlier file: a stored file
    of_umask   ///< of those, at most what the user's umask leaves: a result
};

/// A file that is being written. A regular file, or none yet, is written beside its place and takes it on
/// commit; until then, and when it is given up, an earlier file stands untouched. A link of the user or of
/// the administrator is followed to what it leads to; that of anyone else is not, and the file takes its
/// place. A pipe, a socket and a device are never replaced: they are written in place, as is standard output.
class OutputFile {
public:
    /// Error  raises RunTimeFailure naming `path`; so do the others.
    OutputFile(std::string path, FileRights rights);
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    void write(std::string_view bytes);
    /// Puts what has been written in its place.
    void commit();

private:
    void open_beside(FileRights rights);

    std::string path_; ///< as it was given, for messages
    OutputPlace place_;
    std::unique_ptr<UnfinishedFile> beside_;
    Descriptor in_place_;
};

/// Writes all of `bytes` to `path` in one step as OutputFile tells, with the rights of a result.
/// Error  raises RunTimeFailure naming the file; an earlier one then stands.
void save_result(const std::string& path, std::string_view bytes);

/// Whether `path` is a name of standard output: "-" or its name in /dev.
bool is_standard_output(std::string_view path);

/// The failure of a write to `path`, from errno.
RunTimeFailure write_failure(const std::string& path);

} // namespace halvane
