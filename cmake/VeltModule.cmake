# SPDX-License-Identifier: MIT
# velt_module(NAME SOURCES file... [LINKS target...] [PRIVATE_LINKS target...])
# One module of the house: a static library velt_NAME. Includes are written from the project's
# root ("platform/date.h"). The shared library for integrators is made of these.
function(velt_module NAME)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS;PRIVATE_LINKS" ${ARGN})
  add_library(velt_${NAME} STATIC ${ARG_SOURCES})
  target_include_directories(velt_${NAME} PUBLIC
    "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>")
  target_link_libraries(velt_${NAME} PUBLIC ${ARG_LINKS} PRIVATE
    "$<BUILD_INTERFACE:velt_options>" ${ARG_PRIVATE_LINKS})
endfunction()

# velt_test(NAME SOURCES file... LINKS target...)
# A GoogleTest program, with its own main() where its sources have one; each of its cases is one test of ctest.
function(velt_test NAME)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${NAME} ${ARG_SOURCES})
  target_include_directories(${NAME} PRIVATE "${PROJECT_SOURCE_DIR}")
  target_link_libraries(${NAME} PRIVATE ${ARG_LINKS} GTest::gmock_main velt_options)
  if(VELT_SANITIZE)
    # What is to be checked is what the tests call. The tests themselves, compiled like this, take a
    # third of the time.
    target_compile_options(${NAME} PRIVATE -O0 -fno-sanitize=undefined)
  endif()
  gtest_discover_tests(${NAME} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 120)
endfunction()
