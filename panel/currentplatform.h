// SPDX-License-Identifier: MIT
#pragma once

#include "platform/platform.h"

namespace halvane {

/// The platform in use.
Platform& platform();

/// The system's own; it shows text files in the program's viewer.
Platform& own_platform();

/// Puts another platform in place (tests); a null pointer gives the system's own back.
void set_platform(Platform* other);

} // namespace halvane
