# What other projects find with find_package(QEVSettings), and the Debian packages that cpack makes.
include(CMakePackageConfigHelpers)

install(EXPORT QEVSettingsTargets NAMESPACE QEVSettings::
  DESTINATION ${QEV_INSTALL_PACKAGE} COMPONENT dev)
if(QEV_WITH_QT)
  install(EXPORT QEVSettingsQtTargets NAMESPACE QEVSettings::
    DESTINATION ${QEV_INSTALL_PACKAGE} COMPONENT dev)
endif()
install(DIRECTORY ${QEVSettings_BUNDLES_DIR}/ DESTINATION ${QEV_INSTALL_BUNDLES} COMPONENT dev)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/QEVSettingsConfig.cmake.in
  ${PROJECT_BINARY_DIR}/package/QEVSettingsConfig.cmake
  INSTALL_DESTINATION ${QEV_INSTALL_PACKAGE}
  PATH_VARS QEV_INSTALL_BUNDLES)
# Before version 1 a new minor version may take things away.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/package/QEVSettingsConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES
  ${CMAKE_CURRENT_LIST_DIR}/QEVSettingsBundles.cmake
  ${PROJECT_BINARY_DIR}/package/QEVSettingsConfig.cmake
  ${PROJECT_BINARY_DIR}/package/QEVSettingsConfigVersion.cmake
  DESTINATION ${QEV_INSTALL_PACKAGE} COMPONENT dev)

# ICU is loaded at run time, so nothing in a binary names its package.
find_package(ICU REQUIRED COMPONENTS uc)
string(REGEX MATCH "^[0-9]+" icu_version "${ICU_VERSION}")
# qev_pkg_config(NAME DESCRIPTION REQUIRES LIBRARIES): the same for projects that use pkg-config.
function(qev_pkg_config name description requires libraries)
  # The order of static libraries does not matter within a group.
  set(QEV_PC_LIBRARIES "-Wl,--start-group")
  foreach(library IN LISTS libraries)
    get_target_property(type ${library} TYPE)
    if(NOT type STREQUAL "INTERFACE_LIBRARY")
      string(APPEND QEV_PC_LIBRARIES " -l${library}")
    endif()
  endforeach()
  string(APPEND QEV_PC_LIBRARIES " -Wl,--end-group")
  if(BUILD_SHARED_LIBS)
    string(PREPEND QEV_PC_LIBRARIES "-Wl,-rpath,\${libdir} ")
  endif()
  # An installed tree can be moved.
  file(RELATIVE_PATH QEV_PC_PREFIX ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
  set(QEV_PC_NAME ${name})
  set(QEV_PC_DESCRIPTION ${description})
  set(QEV_PC_REQUIRES ${requires})
  configure_file(${PROJECT_SOURCE_DIR}/cmake/QEVSettings.pc.in ${PROJECT_BINARY_DIR}/package/${name}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/package/${name}.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)
endfunction()

get_property(libraries GLOBAL PROPERTY QEVSettings_LIBRARIES)
qev_pkg_config(QEVSettings "${PROJECT_DESCRIPTION}" "expat, libsodium, sqlite3" "${libraries}")
if(QEV_WITH_QT)
  get_property(libraries GLOBAL PROPERTY QEVSettingsQt_LIBRARIES)
  # The real window uses the libraries of the other file, and so stands before them.
  qev_pkg_config(QEVSettingsQt "${PROJECT_DESCRIPTION}, on Qt 6"
    "QEVSettings = ${PROJECT_VERSION}, Qt6DBus, Qt6Network, Qt6Svg, Qt6Widgets" "${libraries}")
endif()

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
