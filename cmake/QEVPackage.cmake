# SPDX-License-Identifier: MIT
# What other projects find with find_package(QEVSettings) and pkg-config.
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
# Before version 1 a new minor version may take things away, later a new major version.
set(compatibility SameMajorVersion)
if(PROJECT_VERSION_MAJOR EQUAL 0)
  set(compatibility SameMinorVersion)
endif()
write_basic_package_version_file(${PROJECT_BINARY_DIR}/package/QEVSettingsConfigVersion.cmake
  COMPATIBILITY ${compatibility})
install(FILES
  ${CMAKE_CURRENT_LIST_DIR}/QEVSettingsBundles.cmake
  ${PROJECT_BINARY_DIR}/package/QEVSettingsConfig.cmake
  ${PROJECT_BINARY_DIR}/package/QEVSettingsConfigVersion.cmake
  DESTINATION ${QEV_INSTALL_PACKAGE} COMPONENT dev)

# qev_pkg_config(NAME DESCRIPTION REQUIRES LIBRARIES): the same for projects that use pkg-config.
# REQUIRES are the lines that name the packages required.
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
  # A system's own folder of libraries needs no run path.
  if(BUILD_SHARED_LIBS AND NOT CMAKE_SKIP_INSTALL_RPATH)
    string(PREPEND QEV_PC_LIBRARIES "-Wl,-rpath,\${libdir} ")
  endif()
  # An installed tree can be moved.
  file(RELATIVE_PATH QEV_PC_PREFIX ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
  set(QEV_PC_NAME ${name})
  set(QEV_PC_DESCRIPTION ${description})
  set(QEV_PC_REQUIRES ${requires})
  configure_file(${PROJECT_SOURCE_DIR}/cmake/QEVSettings.pc.in
    ${PROJECT_BINARY_DIR}/package/${name}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/package/${name}.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)
endfunction()

get_property(libraries GLOBAL PROPERTY QEVSettings_LIBRARIES)
# A shared library brings what it uses with it.
set(requires "Requires:")
if(BUILD_SHARED_LIBS)
  set(requires "Requires.private:")
endif()
qev_pkg_config(QEVSettings "${PROJECT_DESCRIPTION}" "${requires} expat, libsodium, sqlite3"
  "${libraries}")
if(QEV_WITH_QT)
  get_property(libraries GLOBAL PROPERTY QEVSettingsQt_LIBRARIES)
  # The real window uses the libraries of the other file, and so stands before them.
  set(own "QEVSettings = ${PROJECT_VERSION}")
  set(modules "Qt6DBus, Qt6Network, Qt6Svg, Qt6Widgets")
  if(BUILD_SHARED_LIBS)
    set(requires "Requires: ${own}\nRequires.private: ${modules}")
  else()
    set(requires "Requires: ${own}, ${modules}")
  endif()
  qev_pkg_config(QEVSettingsQt "${PROJECT_DESCRIPTION}, on Qt 6" "${requires}" "${libraries}")
endif()

# Licences, those of the icons and of the time zones' names among them.
install(FILES ${PROJECT_SOURCE_DIR}/debian/copyright
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/QEVSettings COMPONENT dev)
if(QEV_WITH_HOST)
  install(FILES ${PROJECT_SOURCE_DIR}/debian/copyright
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/zorvantine COMPONENT runtime)
endif()
