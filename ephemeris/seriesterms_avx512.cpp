#include "ephemeris/seriesterms_sets.h"

#include "ephemeris/modgeneral.h"

#include <immintrin.h>
#include <sleef.h>

#define VECTOR __m512d
#define WIDTH 8
#define LOAD _mm512_loadu_pd
#define STORE _mm512_storeu_pd
#define SET _mm512_set1_pd
#define MULTIPLY _mm512_mul_pd
#define ADD _mm512_add_pd
#define SINE Sleef_sind8_u35avx512f
#define COSINE Sleef_cosd8_u35avx512f

#include "ephemeris/seriesterms_vector.inc"

namespace halvane {

const SeriesTerms avx512_terms{
    "avx512",           cosine_of_rate,      sine, cosine, sine_and_cosine, main_argument,
    secondary_argument, fundamental_argument};

} // namespace halvane
