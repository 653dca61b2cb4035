# SPDX-License-Identifier: MIT
# Debian packages of what VeltInstall installs: cpack in the build folder.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VENDOR "The VELT Viewers authors")
set(CPACK_PACKAGE_CONTACT "The VELT Viewers authors <velt@localhost>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL library dev designer panel)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(library_package "libveltviewers${PROJECT_VERSION_MAJOR}")
set(same_version "(= ${PROJECT_VERSION})")

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME ${library_package})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION
  "Controls for telecontrol operator stations\n Live OPC values, alarm history, trends and the link to the runtime, as Qt widgets.")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA "${PROJECT_SOURCE_DIR}/packaging/triggers")

set(CPACK_DEBIAN_DEV_PACKAGE_NAME libveltviewers-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "${library_package} ${same_version}, qt6-base-dev")
set(CPACK_COMPONENT_DEV_DESCRIPTION
  "Controls for telecontrol operator stations: development\n Headers, CMake package and pkg-config file.")

set(CPACK_DEBIAN_DESIGNER_PACKAGE_NAME velt-viewers-designer)
set(CPACK_DEBIAN_DESIGNER_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_DESIGNER_PACKAGE_DEPENDS "${library_package} ${same_version}")
set(CPACK_DEBIAN_DESIGNER_PACKAGE_RECOMMENDS "designer-qt6")
set(CPACK_COMPONENT_DESIGNER_DESCRIPTION
  "Controls for telecontrol operator stations: form designer\n Plugins of Qt Designer with the four controls and their property pages.")

set(CPACK_DEBIAN_PANEL_PACKAGE_NAME velt-panel)
set(CPACK_DEBIAN_PANEL_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PANEL_PACKAGE_DEPENDS "${library_package} ${same_version}")
set(CPACK_DEBIAN_PANEL_PACKAGE_RECOMMENDS "qt6-translations-l10n, fonts-dejavu-core")
set(CPACK_COMPONENT_PANEL_DESCRIPTION
  "Operator panel for telecontrol installations\n Hosts forms with the VELT controls; command line tools and a demo installation.")
include(CPack)
