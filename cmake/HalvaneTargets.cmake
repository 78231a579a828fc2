# SPDX-License-Identifier: MIT
# What every target of the project shares: the language, the warnings and the way rooms are linked.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()
# The rooms go into a shared library, too, which shows its interface alone.
if(NOT WIN32)
  set(CMAKE_POSITION_INDEPENDENT_CODE ON)
  set(CMAKE_CXX_VISIBILITY_PRESET hidden)
  set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
endif()

# The programs and every data file they read stand together in one folder that can be moved.
set(HALVANE_PROGRAM_FOLDER ${CMAKE_BINARY_DIR}/halvane)

add_library(halvane_settings INTERFACE)
configure_file(${PROJECT_SOURCE_DIR}/base/version.h.in ${PROJECT_BINARY_DIR}/generated/base/version.h @ONLY)
target_include_directories(halvane_settings INTERFACE ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR}/generated)
target_compile_options(
  halvane_settings
  INTERFACE -Wall
            -Wextra
            -Wpedantic
            -Wshadow
            -Wconversion
            -Wold-style-cast
            -Wnon-virtual-dtor
            -Woverloaded-virtual
            -Werror
            # GCC 12 sees overlapping copies in std::string's operator+ (GCC bug 105651).
            $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
            # One rounding per operation on every processor: reports must not depend on the machine.
            -ffp-contract=off)
if(HALVANE_SANITIZE)
  target_compile_options(halvane_settings INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                    -fno-omit-frame-pointer)
  target_link_options(halvane_settings INTERFACE -fsanitize=address,undefined)
endif()
if(HALVANE_SANITIZE_THREADS)
  target_compile_options(halvane_settings INTERFACE -fsanitize=thread -fno-omit-frame-pointer)
  target_link_options(halvane_settings INTERFACE -fsanitize=thread)
endif()
# As Debian builds programs that read what others have written (dpkg-buildflags, hardening=+all); its compilers make
# position-independent programs by themselves. A sanitizer has checks of its own in these places.
if(NOT HALVANE_SANITIZE AND NOT HALVANE_SANITIZE_THREADS)
  include(CheckCXXCompilerFlag)
  # For Windows GCC 12 fails on the second one, whose work the system's own check of the stack does there; the marks of
  # the first one are Linux's.
  if(NOT WIN32)
    check_cxx_compiler_flag(-fcf-protection HALVANE_HAS_CONTROL_FLOW_PROTECTION)
    check_cxx_compiler_flag(-fstack-clash-protection HALVANE_HAS_STACK_CLASH_PROTECTION)
  endif()
  target_compile_options(
    halvane_settings
    INTERFACE -fstack-protector-strong
              $<$<BOOL:${HALVANE_HAS_STACK_CLASH_PROTECTION}>:-fstack-clash-protection>
              $<$<BOOL:${HALVANE_HAS_CONTROL_FLOW_PROTECTION}>:-fcf-protection>
              -Wformat-security
              # Without optimisation it only warns that it does nothing.
              $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE>
              $<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=2>)
  if(WIN32)
    target_link_options(halvane_settings INTERFACE -fstack-protector-strong)
    target_link_libraries(halvane_settings INTERFACE ssp)
  else()
    target_link_options(halvane_settings INTERFACE LINKER:-z,relro LINKER:-z,now)
  endif()
endif()
if(WIN32)
  # One file: the compiler's runtime, its threads and its stack protector are linked into the program. With Qt's DLLs,
  # which exceptions pass through, all share one runtime.
  if(NOT HALVANE_PANELS)
    add_link_options(-static)
  endif()
  # Windows 10 and later, by the calls that take UTF-16.
  target_compile_definitions(halvane_settings INTERFACE _WIN32_WINNT=0x0A00 WIN32_LEAN_AND_MEAN NOMINMAX UNICODE _UNICODE)
endif()
if(HALVANE_FUZZ)
  target_compile_options(halvane_settings INTERFACE -fsanitize=fuzzer-no-link)
endif()

# halvane_room(NAME SOURCES ... USES ...): a folder as a library that sees only the rooms it names.
function(halvane_room NAME)
  cmake_parse_arguments(ROOM "" "" "SOURCES;USES" ${ARGN})
  add_library(${NAME} STATIC ${ROOM_SOURCES})
  target_link_libraries(${NAME} PUBLIC halvane_settings ${ROOM_USES})
endfunction()

# halvane_common_headers(NAME FOLDER FILE USES ...): the headers of FILE.h compiled once, by FILE.cpp beside it, for the
# targets that halvane_takes_common_headers names. Clang reads them one by one, and so do clang-tidy and clangd: a source
# still includes what it uses.
function(halvane_common_headers NAME FOLDER FILE)
  cmake_parse_arguments(HEADERS "" "" "USES" ${ARGN})
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    return()
  endif()
  add_library(${NAME} OBJECT ${FOLDER}/${FILE}.cpp)
  target_link_libraries(${NAME} PRIVATE halvane_settings ${HEADERS_USES})
  target_precompile_headers(${NAME} PRIVATE ${FOLDER}/${FILE}.h)
  target_compile_options(${NAME} PRIVATE -fpch-preprocess) # for the compiler's cache
endfunction()

# halvane_takes_common_headers(NAME HEADERS): both are compiled with the same options, but for the optimisation.
function(halvane_takes_common_headers NAME HEADERS)
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    target_precompile_headers(${NAME} REUSE_FROM ${HEADERS})
    target_compile_options(${NAME} PRIVATE -fpch-preprocess)
  endif()
endfunction()

# halvane_panel(NAME SOURCES ... USES ...): the forms of a folder, over Qt; their .ui files lie beside them.
function(halvane_panel NAME)
  cmake_parse_arguments(PANEL "" "" "SOURCES;USES" ${ARGN})
  halvane_room(${NAME} SOURCES ${PANEL_SOURCES} USES ${PANEL_USES} Qt6::Widgets)
  if(NOT NAME STREQUAL halvane_panel_support)
    target_link_libraries(${NAME} PUBLIC halvane_panel_support)
  endif()
  set_target_properties(${NAME} PROPERTIES AUTOMOC ON AUTOUIC ON AUTORCC ON)
  halvane_takes_common_headers(${NAME} halvane_panel_headers)
endfunction()

# halvane_program(NAME [PANELS] DESCRIPTION text): a delivered program, in the program folder.
function(halvane_program NAME)
  cmake_parse_arguments(PROGRAM "PANELS" "DESCRIPTION" "" ${ARGN})
  set_target_properties(${NAME} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${HALVANE_PROGRAM_FOLDER} WIN32_EXECUTABLE
                                                                                              ${PROGRAM_PANELS})
  add_dependencies(${NAME} program_folder)
  if(WIN32)
    add_windows_resources(${NAME} "${PROGRAM_DESCRIPTION}")
  endif()
endfunction()

# halvane_panel_test(NAME SOURCES ... USES ...): GoogleTests of panels, run without a screen.
function(halvane_panel_test NAME)
  cmake_parse_arguments(TEST "" "" "SOURCES;USES" ${ARGN})
  add_executable(${NAME} ${TEST_SOURCES})
  target_link_libraries(${NAME} PRIVATE halvane_panel_harness ${TEST_USES})
  set_target_properties(${NAME} PROPERTIES AUTOMOC ON)
  halvane_takes_common_headers(${NAME} halvane_panel_headers)
  gtest_discover_tests(${NAME} PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen" DISCOVERY_TIMEOUT 60)
endfunction()
