// SPDX-License-Identifier: MIT
#include "batch/runoutput.h"
#include "batch/tasks.h"
#include "crescent/criterialist.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace halvane {

Task criteria_task() {
    const auto output = std::make_shared<RunOutput>();
    return {"criteria", "The criteria of crescent visibility with their classes, on standard output",
            [output](CLI::App& command) { add_output_options(command, *output); },
            [output](Progress& progress) { return write_and_tell(*criteria_run(), *output, progress); }};
}

} // namespace halvane
