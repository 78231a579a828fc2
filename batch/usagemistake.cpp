// SPDX-License-Identifier: MIT
#include "batch/usagemistake.h"

#include "batch/tasks.h"

#include <iostream>
#include <string>

namespace halvane {

int tell_mistake(const UsageMistake& mistake) {
    const std::string words = mistake.what();
    std::cerr << "halvane-report: " << words << (words.ends_with('.') ? "\n" : ".\n");
    return status_usage;
}

} // namespace halvane
