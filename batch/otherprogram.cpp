// SPDX-License-Identifier: MIT
#include "batch/otherprogram.h"

#include "base/failure.h"
#include "stored/programfolder.h"
#include "system/executable.h"

#include <cerrno>
#include <string>

namespace halvane {
namespace {

RunTimeFailure no_program(const std::string& path, int error) {
    const FailureParts parts = file_failure(FileAction::open, path, error).parts();
    return RunTimeFailure(TwinWords{words_of(parts, Language::english) + " This program makes the pages.",
                                    words_of(parts, Language::arabic) + " هذا البرنامج يصنع الصفحات."},
                          parts.kind);
}

} // namespace

void become_program(const char* program, char** words) {
    const std::string path = executable_folder() + "/" + program_file(program);
    continue_as(path, words);
    throw no_program(path, errno);
}

} // namespace halvane
