# SPDX-License-Identifier: MIT
# The shared library for integrators, made of the modules, and its installation.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(VELT_MODULES velt_platform velt_framework velt_intervallo velt_alarmviewer velt_access_jet
  velt_access velt_ini velt_qt velt_standard velt_widgets)

add_library(VeltViewers SHARED)
add_library(VeltViewers::VeltViewers ALIAS VeltViewers)
set_target_properties(VeltViewers PROPERTIES
  LINKER_LANGUAGE CXX
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
target_include_directories(VeltViewers INTERFACE
  "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>"
  "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/velt>")

install(TARGETS VeltViewers EXPORT VeltViewersTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
foreach(folder platform framework alarmviewer adapters/standard widgets)
  install(DIRECTORY "${PROJECT_SOURCE_DIR}/${folder}/"
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/velt/${folder}" FILES_MATCHING PATTERN "*.h")
endforeach()
install(TARGETS velt velt-panel RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
set_target_properties(velt-panel PROPERTIES INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")

set(config_folder "${CMAKE_INSTALL_LIBDIR}/cmake/VeltViewers")
install(EXPORT VeltViewersTargets NAMESPACE VeltViewers:: DESTINATION ${config_folder})
configure_package_config_file("${CMAKE_CURRENT_LIST_DIR}/VeltViewersConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/VeltViewersConfig.cmake" INSTALL_DESTINATION ${config_folder})
write_basic_package_version_file("${PROJECT_BINARY_DIR}/VeltViewersConfigVersion.cmake"
  COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/VeltViewersConfig.cmake"
  "${PROJECT_BINARY_DIR}/VeltViewersConfigVersion.cmake" DESTINATION ${config_folder})
