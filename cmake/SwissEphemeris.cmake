# SPDX-License-Identifier: MIT
# The Swiss Ephemeris library, an independent ephemeris that the measurements compare with. Only tests, benchmarks
# and tools link it; Debian: libswe-dev and swe-standard-data.
find_path(SWISS_EPHEMERIS_INCLUDE swephexp.h)
find_library(SWISS_EPHEMERIS_LIBRARY swe)
find_path(SWISS_EPHEMERIS_DATA sepl_18.se1 PATHS /usr/share/libswe/ephe /usr/share/swisseph /usr/local/share/swisseph)

set(HALVANE_SWISS_EPHEMERIS OFF)
if(SWISS_EPHEMERIS_INCLUDE AND SWISS_EPHEMERIS_LIBRARY AND SWISS_EPHEMERIS_DATA)
  set(HALVANE_SWISS_EPHEMERIS ON)
else()
  set(SWISS_EPHEMERIS_ABSENT
      "The Swiss Ephemeris is not installed: accuracy is NOT measured. Install libswe-dev and swe-standard-data.")
  message(WARNING "${SWISS_EPHEMERIS_ABSENT}")
endif()
