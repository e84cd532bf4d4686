# SPDX-License-Identifier: GPL-3.0-or-later
# Shared build settings: warnings, sanitizers, and the per-folder library helper.

add_compile_options(-Wall -Wextra)

if(LUMIDESK_SANITIZE)
  add_compile_options(-fsanitize=${LUMIDESK_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=${LUMIDESK_SANITIZE})
endif()

# lumidesk_folder_library(<target> [LIBS ...])
# One library per source folder. Sources are picked up from the folder so
# that adding a class is adding its .h/.cpp pair.
function(lumidesk_folder_library target)
  cmake_parse_arguments(ARG "" "" "LIBS" ${ARGN})
  file(GLOB _sources CONFIGURE_DEPENDS
       "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp" "${CMAKE_CURRENT_SOURCE_DIR}/*.h"
       "${CMAKE_CURRENT_SOURCE_DIR}/*.ui" "${CMAKE_CURRENT_SOURCE_DIR}/*.qrc")
  list(FILTER _sources EXCLUDE REGEX "/main\\.cpp$")
  set(_cpp ${_sources})
  list(FILTER _cpp INCLUDE REGEX "\\.cpp$")
  if(_cpp)
    add_library(${target} STATIC ${_sources})
    target_include_directories(${target} PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}" "${CMAKE_SOURCE_DIR}")
    target_link_libraries(${target} PUBLIC ${ARG_LIBS})
    # moc and uic must run again when a file joins or leaves the folder, but
    # their build step does not watch the folder: drop its stamp instead.
    set(_listed "${CMAKE_CURRENT_BINARY_DIR}/${target}_sources.txt")
    string(JOIN "\n" _content ${_sources})
    set(_before "")
    if(EXISTS "${_listed}")
      file(READ "${_listed}" _before)
    endif()
    if(NOT _before STREQUAL _content)
      file(WRITE "${_listed}" "${_content}")
      file(REMOVE "${CMAKE_CURRENT_BINARY_DIR}/${target}_autogen/timestamp")
    endif()
  else()
    add_library(${target} INTERFACE)
    target_include_directories(${target} INTERFACE "${CMAKE_CURRENT_SOURCE_DIR}" "${CMAKE_SOURCE_DIR}")
    target_link_libraries(${target} INTERFACE ${ARG_LIBS})
  endif()
endfunction()

# lumidesk_finds_engine(<target>)
# An executable that opens the engine libraries by bare name: its RPATH
# (DT_RPATH, which dlopen honours on behalf of Qt) points at them.
function(lumidesk_finds_engine target)
  target_link_options(${target} PRIVATE -Wl,--disable-new-dtags)
  set_target_properties(${target} PROPERTIES
    BUILD_RPATH "${LUMIDESK_ENGINE_DIR}"
    INSTALL_RPATH "$ORIGIN/../${LUMIDESK_INSTALL_ENGINE_DIR}")
  if(TARGET glowEngine)
    add_dependencies(${target} glowEngine glowproEngine)
  endif()
endfunction()

# Adds every direct subfolder that has a CMakeLists.txt, except those named
# after EXCLUDE (already added by the caller).
function(lumidesk_add_subfolders)
  cmake_parse_arguments(ARG "" "" "EXCLUDE" ${ARGN})
  file(GLOB _children RELATIVE "${CMAKE_CURRENT_SOURCE_DIR}" "${CMAKE_CURRENT_SOURCE_DIR}/*")
  list(SORT _children)
  foreach(_child ${_children})
    if(_child IN_LIST ARG_EXCLUDE)
      continue()
    endif()
    if(EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/${_child}/CMakeLists.txt")
      add_subdirectory(${_child})
    endif()
  endforeach()
endfunction()
