// SPDX-License-Identifier: MIT
#include "timetable/badline.h"

#include "base/failure.h"

namespace halvane {

TwinWords line_words(const std::string& path, int line, const TwinWords& words) {
    const std::string number = std::to_string(line);
    return {path + ", line " + number + ": " + words.english + ".",
            path + "، السطر " + number + ": " + words.arabic + "."};
}

void raise_bad_line(const std::string& path, int line, const std::string& english,
                    const std::string& arabic) {
    throw RunTimeFailure(line_words(path, line, {english, arabic}), FailureKind::damaged_file);
}

} // namespace halvane
