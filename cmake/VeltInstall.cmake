# SPDX-License-Identifier: MIT
# Installation, as components: library, dev, designer, panel.
include(CMakePackageConfigHelpers)

set(VELT_PROGRAMS velt velt-panel velt-demo-server)

install(TARGETS VeltViewers EXPORT VeltViewersTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT dev)
foreach(folder platform framework alarmviewer connviewer opcviewer trendviewer adapters/standard
    widgets)
  install(DIRECTORY "${PROJECT_SOURCE_DIR}/${folder}/"
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/velt/${folder}" COMPONENT dev
    FILES_MATCHING PATTERN "*.h" PATTERN "internal" EXCLUDE PATTERN "chart" EXCLUDE)
endforeach()

set(config_folder "${CMAKE_INSTALL_LIBDIR}/cmake/VeltViewers")
install(EXPORT VeltViewersTargets NAMESPACE VeltViewers:: DESTINATION ${config_folder}
  COMPONENT dev)
configure_package_config_file("${CMAKE_CURRENT_LIST_DIR}/VeltViewersConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/VeltViewersConfig.cmake" INSTALL_DESTINATION ${config_folder})
write_basic_package_version_file("${PROJECT_BINARY_DIR}/VeltViewersConfigVersion.cmake"
  COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/VeltViewersConfig.cmake"
  "${PROJECT_BINARY_DIR}/VeltViewersConfigVersion.cmake" DESTINATION ${config_folder}
  COMPONENT dev)
configure_file("${PROJECT_SOURCE_DIR}/packaging/veltviewers.pc.in"
  "${PROJECT_BINARY_DIR}/veltviewers.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/veltviewers.pc"
  DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT dev)

# Where this Qt's designer looks; Qt Creator has a folder of its own.
install(TARGETS velt-designer-controls velt-designer-menu
  LIBRARY DESTINATION "${QT6_INSTALL_PLUGINS}/designer" COMPONENT designer)

install(TARGETS ${VELT_PROGRAMS} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT panel)
set_target_properties(${VELT_PROGRAMS} PROPERTIES
  INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
install(FILES "${PROJECT_SOURCE_DIR}/packaging/velt-panel.desktop"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/applications" COMPONENT panel)
install(FILES "${PROJECT_SOURCE_DIR}/packaging/velt-panel.svg"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps" COMPONENT panel)

# The manual pages are what the programs say of themselves.
find_program(HELP2MAN help2man)
if(HELP2MAN)
  foreach(program IN LISTS VELT_PROGRAMS)
    set(page "${PROJECT_BINARY_DIR}/man/${program}.1")
    add_custom_command(OUTPUT "${page}"
      COMMAND "${HELP2MAN}" --no-info --section=1 "--manual=VELT Viewers"
        "--output=${page}" "$<TARGET_FILE:${program}>"
      DEPENDS ${program} COMMENT "Manual page of ${program}" VERBATIM)
    list(APPEND pages "${page}")
  endforeach()
  file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/man")
  add_custom_target(man ALL DEPENDS ${pages})
  install(FILES ${pages} DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT panel)
else()
  message(STATUS "help2man is missing: no manual pages")
endif()

# Debian's place for the licence of each package.
foreach(entry IN ITEMS "library libveltviewers${PROJECT_VERSION_MAJOR}" "dev libveltviewers-dev"
    "designer velt-viewers-designer" "panel velt-panel")
  separate_arguments(entry)
  list(GET entry 0 component)
  list(GET entry 1 package)
  install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" RENAME copyright
    DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${package}" COMPONENT ${component})
endforeach()
