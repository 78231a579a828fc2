# SPDX-License-Identifier: MIT
# HALVANE_PYTHON: the Python package. It is built where Python's headers and pybind11 are; an interpreter loads no module
# that a sanitizer is in.

# Debian's own interpreter and not one that stands before it in the PATH: it is the one that has NumPy.
if(NOT Python_EXECUTABLE AND EXISTS /usr/bin/python3 AND NOT WIN32)
  set(Python_EXECUTABLE /usr/bin/python3)
endif()
set(HALVANE_PYTHON_DEFAULT OFF)
if(NOT WIN32
   AND NOT HALVANE_SANITIZE
   AND NOT HALVANE_SANITIZE_THREADS
   AND NOT HALVANE_FUZZ)
  find_package(Python 3.11 QUIET COMPONENTS Interpreter Development.Module)
  find_package(pybind11 2.10 QUIET)
  if(Python_Development.Module_FOUND AND pybind11_FOUND)
    set(HALVANE_PYTHON_DEFAULT ON)
  endif()
endif()
option(HALVANE_PYTHON "Build the Python package" ${HALVANE_PYTHON_DEFAULT})
if(HALVANE_PYTHON)
  find_package(Python 3.11 REQUIRED COMPONENTS Interpreter Development.Module)
  find_package(pybind11 2.10 REQUIRED)
endif()
