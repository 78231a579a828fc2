// SPDX-License-Identifier: MIT
#pragma once

#include "panel/formlanguage.h"

#include <span>

namespace halvane {

/// The texts of `frmtimetable`.
std::span<const ControlText> frmtimetable_twins();

} // namespace halvane
