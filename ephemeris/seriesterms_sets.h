#pragma once

#include "ephemeris/seriesterms.h"

namespace halvane {

extern const SeriesTerms plain_terms;
#ifdef HALVANE_VECTOR_TERMS
extern const SeriesTerms sse2_terms;
extern const SeriesTerms avx2_terms;
extern const SeriesTerms avx512_terms;
#endif

} // namespace halvane
