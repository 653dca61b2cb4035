# SPDX-License-Identifier: MIT
# Installation of the library, the programs, and the package for find_package().
include(CMakePackageConfigHelpers)

install(TARGETS VeltViewers EXPORT VeltViewersTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
foreach(folder platform framework alarmviewer adapters/standard widgets)
  install(DIRECTORY "${PROJECT_SOURCE_DIR}/${folder}/"
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/velt/${folder}" FILES_MATCHING PATTERN "*.h")
endforeach()
install(TARGETS velt velt-panel velt-demo-server RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
set_target_properties(velt-panel PROPERTIES INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")

set(config_folder "${CMAKE_INSTALL_LIBDIR}/cmake/VeltViewers")
install(EXPORT VeltViewersTargets NAMESPACE VeltViewers:: DESTINATION ${config_folder})
configure_package_config_file("${CMAKE_CURRENT_LIST_DIR}/VeltViewersConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/VeltViewersConfig.cmake" INSTALL_DESTINATION ${config_folder})
write_basic_package_version_file("${PROJECT_BINARY_DIR}/VeltViewersConfigVersion.cmake"
  COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/VeltViewersConfig.cmake"
  "${PROJECT_BINARY_DIR}/VeltViewersConfigVersion.cmake" DESTINATION ${config_folder})
