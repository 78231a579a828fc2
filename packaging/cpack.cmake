# SPDX-License-Identifier: MIT
# Read by cpack for each kind of package.
if(CPACK_GENERATOR STREQUAL "DEB")
  set(CPACK_PACKAGING_INSTALL_PREFIX /opt/halvane)
  # The unnamed component is the program folder.
  set(CPACK_INSTALL_CMAKE_PROJECTS
      "${CPACK_BUILD_FOLDER};Halvane;Unspecified;/;${CPACK_BUILD_FOLDER};Halvane;debian;/")
endif()
