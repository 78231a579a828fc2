// SPDX-License-Identifier: MIT
#pragma once

#include "base/progress.h"

#include <functional>
#include <optional>
#include <string>

namespace halvane {

/// Makes the bytes of a file beside the event loop, so that a cancel is answered at once. The work owns or
/// shares all that it needs: after a cancel nobody waits for the rest.
/// Returns nothing after a cancel. Error  raises what the work raises
std::optional<std::string> made_beside(std::function<std::string()> work, Progress& progress);

} // namespace halvane
