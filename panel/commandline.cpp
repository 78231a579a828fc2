// SPDX-License-Identifier: MIT
#include "panel/commandline.h"

#include "stored/versiontext.h"
#include "system/console.h"

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace halvane {

namespace {

/// A full disk or a closed pipe is a failure.
int status_of_output() {
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

std::optional<int> answer_on_terminal(int count, const char* const* words, const char* name,
                                      const char* help) {
    for (int i = 1; i < count; ++i) {
        const std::string_view word = words[i];
        if (word == "--version") {
            open_starters_terminal();
            std::printf("%s\n", version_text(name).c_str());
            return status_of_output();
        }
        if (word == "--help" || word == "-h") {
            open_starters_terminal();
            std::printf("Usage: %s [--help] [--version]\n\n%s", name, help);
            return status_of_output();
        }
    }
    return std::nullopt;
}

} // namespace halvane
