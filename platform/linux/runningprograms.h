// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace halvane {

/// Whether the user runs a program whose executable file has this bare name, be it replaced on disk since.
bool user_runs(const std::string& executable);

} // namespace halvane
