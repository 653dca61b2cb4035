# SPDX-License-Identifier: MIT
# What every target of ours is compiled with. Not exported: users choose their own warnings.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE}")
endif()

find_package(Threads REQUIRED)

add_library(velt_options INTERFACE)
target_compile_options(velt_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror
  # Members left out of a designated initializer take their defaults: that is what they are for.
  -Wno-missing-field-initializers)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # At -O3 this compiler sees overlaps and overreads in the standard library that are not there.
  target_compile_options(velt_options INTERFACE -Wno-restrict -Wno-stringop-overread)
endif()

set(VELT_SANITIZE "" CACHE STRING "Sanitizers of our own code, as for -fsanitize=")
if(VELT_SANITIZE)
  add_compile_options(-fsanitize=${VELT_SANITIZE} -fno-omit-frame-pointer
                      -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${VELT_SANITIZE})
endif()
