#include "ephemeris/seriesterms_sets.h"

#include "ephemeris/modgeneral.h"

#include <immintrin.h>
#include <sleef.h>

#define VECTOR __m256d
#define WIDTH 4
#define LOAD _mm256_loadu_pd
#define STORE _mm256_storeu_pd
#define SET _mm256_set1_pd
#define MULTIPLY _mm256_mul_pd
#define ADD _mm256_add_pd
#define SINE Sleef_sind4_u35avx2
#define COSINE Sleef_cosd4_u35avx2

#include "ephemeris/seriesterms_vector.inc"

namespace halvane {

const SeriesTerms avx2_terms{"avx2",
                             cosine_of_rate,
                             sine,
                             cosine,
                             sine_and_cosine,
                             main_argument,
                             secondary_argument,
                             fundamental_argument};

} // namespace halvane
