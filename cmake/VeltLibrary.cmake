# SPDX-License-Identifier: MIT
# The shared library for integrators, made of the modules.
if(CMAKE_LIBRARY_ARCHITECTURE)
  # Debian's own place for libraries, under every prefix.
  set(CMAKE_INSTALL_LIBDIR "lib/${CMAKE_LIBRARY_ARCHITECTURE}" CACHE PATH "Libraries")
endif()
include(GNUInstallDirs)

set(VELT_MODULES velt_platform velt_framework velt_intervallo velt_alarmviewer velt_opcviewer
  velt_rtuconfig velt_connviewer velt_trendviewer velt_access_jet velt_access velt_ini velt_opcua velt_qt
  velt_standard velt_chart velt_trendchart velt_widgets)

add_library(VeltViewers SHARED "${PROJECT_SOURCE_DIR}/widgets/version.cpp")
add_library(VeltViewers::VeltViewers ALIAS VeltViewers)
set_target_properties(VeltViewers PROPERTIES
  VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR})
target_compile_definitions(VeltViewers PRIVATE VELT_VERSION="${PROJECT_VERSION}")
target_compile_features(VeltViewers INTERFACE cxx_std_20)
target_include_directories(VeltViewers PUBLIC
  "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>"
  "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/velt>")
target_link_libraries(VeltViewers
  PUBLIC Qt6::Widgets
  PRIVATE "$<BUILD_INTERFACE:velt_options>")
# All objects of the modules: the public classes must be inside although nothing in the library
# calls them. The modules as libraries bring what they themselves link to.
foreach(module IN LISTS VELT_MODULES)
  target_sources(VeltViewers PRIVATE "$<TARGET_OBJECTS:${module}>")
  target_link_libraries(VeltViewers PRIVATE "$<BUILD_INTERFACE:${module}>")
endforeach()
