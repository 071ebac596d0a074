# SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
# SPDX-License-Identifier: MIT
# What every target has in common: language, warnings, sanitizers, precompiled headers.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTOGEN_ORIGIN_DEPENDS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# What differs between the platforms is in one source file each, NAME_unix.cpp and NAME_windows.cpp.
if(WIN32)
  set(BRINDLE_PLATFORM windows)
else()
  set(BRINDLE_PLATFORM unix)
endif()

find_program(CCACHE ccache)
if(CCACHE)
  # One clone reuses what another has compiled: paths count from the root of the tree, and
  # precompiled headers are cached like the sources that include them.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
    CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1
    CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE})
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-fpch-preprocess)
  endif()
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wold-style-cast -Wconversion
  -Wnon-virtual-dtor -Woverloaded-virtual -Werror
  # Members left out of a designated initializer take their default: a call states only what
  # differs.
  -Wno-missing-field-initializers)
if(BRINDLE_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

add_compile_definitions(QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS
  QT_NO_FOREACH QT_DISABLE_DEPRECATED_BEFORE=0x060400)

if(BRINDLE_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(BRINDLE_COVERAGE)
  add_compile_options(--coverage)
  add_link_options(--coverage)
endif()

# brindle_library(NAME [WIDGETS] SOURCES... LINKS...): one static library. Only with WIDGETS may it
# use the toolkit's windows.
function(brindle_library name)
  cmake_parse_arguments(ARG "WIDGETS" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${ARG_LINKS})
  if(ARG_WIDGETS)
    brindle_precompile(${name})
  endif()
endfunction()

# The toolkit's headers are precompiled once, by the lowest library that uses windows.
function(brindle_precompile name)
  if(NOT BRINDLE_PCH)
    return()
  endif()
  if(name STREQUAL brindle_input)
    target_precompile_headers(${name} PRIVATE <QtWidgets>)
  else()
    target_precompile_headers(${name} REUSE_FROM brindle_input)
  endif()
endfunction()
