# SPDX-License-Identifier: MIT
# cmake -DSOURCE=FOLDER -DHEADER=FILE -P WriteCommit.cmake: the commit of a checkout as a header, rewritten only when it is
# another one; an empty text for sources that are no checkout of their own.
set(COMMIT "")
find_program(GIT git)
if(GIT)
  execute_process(COMMAND ${GIT} rev-parse --show-toplevel WORKING_DIRECTORY ${SOURCE} OUTPUT_VARIABLE TOP ERROR_QUIET
                                                                              OUTPUT_STRIP_TRAILING_WHITESPACE)
  file(REAL_PATH ${SOURCE} FOLDER)
  if(TOP STREQUAL FOLDER)
    execute_process(COMMAND ${GIT} describe --always --dirty --abbrev=10 --exclude "*" WORKING_DIRECTORY ${SOURCE}
                    OUTPUT_VARIABLE COMMIT ERROR_QUIET OUTPUT_STRIP_TRAILING_WHITESPACE)
  endif()
endif()
file(CONFIGURE OUTPUT ${HEADER} CONTENT [[// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// The commit that the program was built from, "-dirty" behind it for changed sources; empty where it is not known.
inline constexpr char commit[] = "@COMMIT@";

} // namespace halvane
]] @ONLY)
