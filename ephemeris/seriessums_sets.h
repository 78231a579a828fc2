// SPDX-License-Identifier: MIT
#pragma once

#include "ephemeris/seriessums.h"

namespace halvane {

extern const SeriesSums base_sums;
#ifdef HALVANE_X86_SETS
extern const SeriesSums avx2_sums;
extern const SeriesSums avx512_sums;
#endif

} // namespace halvane
