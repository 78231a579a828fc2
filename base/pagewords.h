// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"

namespace halvane {

/// "Page 1 of 12"
TwinWords words_of_page(int number, int pages);

} // namespace halvane
