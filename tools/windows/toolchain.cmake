# SPDX-License-Identifier: MIT
# Debian's cross compiler for 64-bit Windows. POSIX threads: std::thread and std::mutex are in its library.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# What libraries.sh, qt.sh and svg.sh have built.
if(DEFINED ENV{XDG_CACHE_HOME})
  set(HALVANE_WINDOWS_CACHE $ENV{XDG_CACHE_HOME}/halvane-windows)
else()
  set(HALVANE_WINDOWS_CACHE $ENV{HOME}/.cache/halvane-windows)
endif()

list(APPEND CMAKE_FIND_ROOT_PATH ${HALVANE_WINDOWS_CACHE}/libraries ${HALVANE_WINDOWS_CACHE}/qt
     ${HALVANE_WINDOWS_CACHE}/svg /usr/x86_64-w64-mingw32)
# Qt's programs of the build (moc, uic, rcc) are those of the building system.
set(QT_HOST_PATH /usr)
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake)
set(QT_ADDITIONAL_PACKAGES_PREFIX_PATH ${HALVANE_WINDOWS_CACHE}/svg)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Programs that the build itself runs, and the tests.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/underwine)

set(ZLIB_USE_STATIC_LIBS ON)
