// SPDX-License-Identifier: MIT
#include "system/commandline.h"

namespace halvane {

CommandLine::CommandLine(int count, char** words) : words_(words, words + count) {
    words_.push_back(nullptr);
}

} // namespace halvane
