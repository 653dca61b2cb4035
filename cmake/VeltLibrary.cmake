# SPDX-License-Identifier: MIT
# The shared library for integrators, made of the modules.
include(GNUInstallDirs)

set(VELT_MODULES velt_platform velt_framework velt_intervallo velt_alarmviewer velt_access_jet
  velt_access velt_ini velt_qt velt_standard velt_widgets)

add_library(VeltViewers SHARED "${PROJECT_SOURCE_DIR}/widgets/version.cpp")
target_compile_definitions(VeltViewers PRIVATE VELT_VERSION="${PROJECT_VERSION}")
target_link_libraries(VeltViewers PRIVATE "$<BUILD_INTERFACE:velt_options>")
add_library(VeltViewers::VeltViewers ALIAS VeltViewers)
set_target_properties(VeltViewers PROPERTIES
  VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR})
# Whole archives: the public classes must be inside although nothing in the library calls them.
list(JOIN VELT_MODULES "," modules)
set_target_properties(VeltViewers PROPERTIES LINK_LIBRARY_OVERRIDE "WHOLE_ARCHIVE,${modules}")
foreach(module IN LISTS VELT_MODULES)
  target_link_libraries(VeltViewers PRIVATE "$<BUILD_INTERFACE:${module}>")
endforeach()
target_link_libraries(VeltViewers PUBLIC Qt6::Widgets)
target_compile_features(VeltViewers INTERFACE cxx_std_20)
target_include_directories(VeltViewers PUBLIC
  "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>"
  "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/velt>")
