#include "ephemeris/seriesterms_sets.h"

#include "ephemeris/modgeneral.h"

#include <immintrin.h>
#include <sleef.h>

#define VECTOR __m128d
#define WIDTH 2
#define LOAD _mm_loadu_pd
#define STORE _mm_storeu_pd
#define SET _mm_set1_pd
#define MULTIPLY _mm_mul_pd
#define ADD _mm_add_pd
#define SINE Sleef_sind2_u35sse2
#define COSINE Sleef_cosd2_u35sse2

#include "ephemeris/seriesterms_vector.inc"

namespace halvane {

const SeriesTerms sse2_terms{"sse2",
                             cosine_of_rate,
                             sine,
                             cosine,
                             sine_and_cosine,
                             main_argument,
                             secondary_argument,
                             fundamental_argument};

} // namespace halvane
