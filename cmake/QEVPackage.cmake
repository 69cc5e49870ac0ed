# What other projects find with find_package(QEVSettings), and the Debian packages that cpack makes.
include(CMakePackageConfigHelpers)

install(EXPORT QEVSettingsTargets NAMESPACE QEVSettings::
  DESTINATION ${QEV_INSTALL_PACKAGE} COMPONENT dev)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/QEVSettingsConfig.cmake.in
  ${PROJECT_BINARY_DIR}/package/QEVSettingsConfig.cmake
  INSTALL_DESTINATION ${QEV_INSTALL_PACKAGE}
  PATH_VARS QEV_INSTALL_BUNDLES)
# Before version 1 a new minor version may take things away.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/package/QEVSettingsConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/package/QEVSettingsConfig.cmake
  ${PROJECT_BINARY_DIR}/package/QEVSettingsConfigVersion.cmake
  DESTINATION ${QEV_INSTALL_PACKAGE} COMPONENT dev)

# ICU is loaded at run time, so nothing in a binary names its package.
find_package(ICU REQUIRED COMPONENTS uc)
string(REGEX MATCH "^[0-9]+" icu_version "${ICU_VERSION}")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zorvantine)
# Each package has a summary of its own, which this one would stand before.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PACKAGE_VENDOR "The QEVSettings authors")
set(CPACK_PACKAGE_CONTACT "The QEVSettings authors <maintainers@zorvantine.example>")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL runtime dev)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS OFF)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME zorvantine)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION net)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
# tzdata has the names of the time zones.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS "libicu${icu_version}, tzdata")
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "settings of a network packet analyzer
The settings window of the analyzer: appearance, time zone and updates, the
capture, the interception proxy, every analyzer with its options, colours and
ports, and the fonts. The same preferences can be read, changed, moved and
checked from the shell.")

set(CPACK_DEBIAN_DEV_PACKAGE_NAME libqevsettings-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "libexpat1-dev, libicu${icu_version}, libsodium-dev, libsqlite3-dev, pkg-config")
if(QEV_WITH_QT)
  string(APPEND CPACK_DEBIAN_DEV_PACKAGE_DEPENDS ", libgl-dev, libqt6svg6-dev, qt6-base-dev")
endif()
set(CPACK_DEBIAN_DEV_DESCRIPTION "settings window of a network packet analyzer, as a library
Static libraries, headers and string tables for a host that shows the settings
window in an application of its own. CMake projects find them as QEVSettings.")

foreach(package zorvantine libqevsettings-dev)
  set(component runtime)
  if(package STREQUAL "libqevsettings-dev")
    set(component dev)
  endif()
  install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package}
    RENAME copyright COMPONENT ${component})
endforeach()
include(CPack)
