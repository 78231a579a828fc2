# SPDX-License-Identifier: MIT
# What a program for Windows has besides its code: icon, version, manifest.

# The icon, as pictures of every side that the shell and the window frames ask for.
set(WINDOWS_ICON ${PROJECT_BINARY_DIR}/halvane.ico)
set(DRAWING ${PROJECT_SOURCE_DIR}/panel/icons/halvane.svg)
find_program(RSVG_CONVERT rsvg-convert REQUIRED)
find_program(ICOTOOL icotool REQUIRED)
set(PICTURES)
foreach(SIDE 16 20 24 32 40 48 64 96 128 256)
  set(PICTURE ${PROJECT_BINARY_DIR}/icon/${SIDE}.png)
  add_custom_command(
    OUTPUT ${PICTURE}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/icon
    COMMAND ${RSVG_CONVERT} -w ${SIDE} -h ${SIDE} -o ${PICTURE} ${DRAWING}
    DEPENDS ${DRAWING})
  list(APPEND PICTURES ${PICTURE})
endforeach()
# The largest one as a PNG picture, which Windows takes there.
set(SMALL_PICTURES ${PICTURES})
list(POP_BACK SMALL_PICTURES LARGE_PICTURE)
add_custom_command(
  OUTPUT ${WINDOWS_ICON}
  COMMAND ${ICOTOOL} --create --output ${WINDOWS_ICON} ${SMALL_PICTURES} --raw ${LARGE_PICTURE}
  DEPENDS ${PICTURES})
add_custom_target(windows_icon DEPENDS ${WINDOWS_ICON})

# add_windows_resources(NAME DESCRIPTION): gives a program the icon and tells the shell what it is.
function(add_windows_resources NAME DESCRIPTION)
  get_target_property(FILE ${NAME} OUTPUT_NAME)
  if(NOT FILE)
    set(FILE ${NAME})
  endif()
  string(REPLACE "." "," VERSION_NUMBERS ${PROJECT_VERSION}.0)
  set(SOURCE ${CMAKE_CURRENT_BINARY_DIR}/${NAME}.rc)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/program.rc.in ${SOURCE} @ONLY)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/program.manifest ${CMAKE_CURRENT_BINARY_DIR}/program.manifest COPYONLY)
  set_source_files_properties(${SOURCE} PROPERTIES OBJECT_DEPENDS "${WINDOWS_ICON};${CMAKE_CURRENT_BINARY_DIR}/program.manifest")
  target_sources(${NAME} PRIVATE ${SOURCE})
  add_dependencies(${NAME} windows_icon)
endfunction()

# deliver_windows_runtime(): puts what the programs need besides Windows itself into the program folder: Qt with its
# plugins, its texts in Arabic, the compiler's runtime without its debugging symbols, and the fonts of painted pages.
# Afterwards the global property WINDOWS_RUNTIME lists the files, relative to that folder.
function(deliver_windows_runtime)
  set(FILES)
  macro(deliver FOLDER)
    foreach(FILE ${ARGN})
      get_filename_component(NAME ${FILE} NAME)
      configure_file(${FILE} ${HALVANE_PROGRAM_FOLDER}/${FOLDER}/${NAME} COPYONLY)
      list(APPEND FILES ${FOLDER}/${NAME})
    endforeach()
  endmacro()

  foreach(LIBRARY Core Gui Network PrintSupport Svg Widgets)
    get_target_property(DLL Qt6::${LIBRARY} IMPORTED_LOCATION_RELEASE)
    deliver(. ${DLL})
  endforeach()
  set(PLUGINS ${HALVANE_WINDOWS_CACHE}/qt/plugins)
  deliver(platforms ${PLUGINS}/platforms/qwindows.dll ${PLUGINS}/platforms/qoffscreen.dll)
  deliver(imageformats ${PLUGINS}/imageformats/qgif.dll)
  deliver(translations ${QT_HOST_PATH}/share/qt6/translations/qtbase_ar.qm)
  set(FONTS /usr/share/fonts/truetype)
  foreach(FONT noto/NotoSans-Regular noto/NotoSans-Bold noto/NotoSansArabic-Regular noto/NotoSansArabic-Bold
               dejavu/DejaVuSans)
    deliver(fonts ${FONTS}/${FONT}.ttf)
  endforeach()

  foreach(NAME libgcc_s_seh-1.dll libssp-0.dll libstdc++-6.dll libwinpthread-1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${NAME} OUTPUT_VARIABLE DLL OUTPUT_STRIP_TRAILING_WHITESPACE)
    # Each strip writes its date into the file.
    if(${DLL} IS_NEWER_THAN ${HALVANE_PROGRAM_FOLDER}/${NAME})
      execute_process(COMMAND ${CMAKE_STRIP} --strip-unneeded -o ${HALVANE_PROGRAM_FOLDER}/${NAME} ${DLL}
                      COMMAND_ERROR_IS_FATAL ANY)
    endif()
    list(APPEND FILES ./${NAME})
  endforeach()
  set_property(GLOBAL PROPERTY WINDOWS_RUNTIME ${FILES})
endfunction()
