# SPDX-License-Identifier: MIT
# The settings that every target of the project is built with, and the functions that declare a
# room.

if(NOT DEFINED CMAKE_CXX_STANDARD)
  set(CMAKE_CXX_STANDARD 20)
endif()
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)

# Two components are installed: `runtime`, the program with the shared libraries, and `dev`, what
# other hosts are built with. Headers and resources have folders of their own, because other
# projects have rooms of the same names; the names of libraries begin with QEVSettings_.
include(GNUInstallDirs)
set(QEV_INSTALL_HEADERS ${CMAKE_INSTALL_INCLUDEDIR}/QEVSettings)
set(QEV_INSTALL_PACKAGE ${CMAKE_INSTALL_LIBDIR}/cmake/QEVSettings)
set(QEV_INSTALL_BUNDLES ${CMAKE_INSTALL_DATADIR}/QEVSettings)
set(ZORVANTINE_INSTALL_RESOURCES ${CMAKE_INSTALL_DATADIR}/zorvantine)

add_library(qev_options INTERFACE)
target_compile_options(qev_options INTERFACE -Wall -Wextra -Wpedantic)
if(QEV_WARNINGS_ARE_ERRORS)
  target_compile_options(qev_options INTERFACE -Werror)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # Optimised, g++ 12 sees overlapping copies in every concatenation of strings, and optionals that
  # hold nothing being destroyed.
  target_compile_options(qev_options INTERFACE
    -Wno-restrict $<$<NOT:$<CONFIG:Debug>>:-Wno-maybe-uninitialized>)
endif()
if(QEV_SANITIZERS)
  target_compile_options(qev_options INTERFACE
    -fsanitize=${QEV_SANITIZERS} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(qev_options INTERFACE -fsanitize=${QEV_SANITIZERS})
endif()

# Shared libraries export the names of the project's namespaces, with their types and vtables, and
# nothing else.
set(exported "")
foreach(namespace
    QEVSettings QEVCommonTools QEVCoreComponents QEVDependencies QEVKonstantsKeys QEVLog QEVModels
    appkit foundation headless qt sparkle viewkit)
  foreach(kind "" typeinfo?for? typeinfo?name?for? vtable?for? VTT?for? guard?variable?for?
      non-virtual?thunk?to? virtual?thunk?to?)
    string(APPEND exported "      ${kind}${namespace}::*;\n")
  endforeach()
endforeach()
set(QEV_EXPORTED_SYMBOLS ${PROJECT_BINARY_DIR}/exported_symbols.map)
file(CONFIGURE OUTPUT ${QEV_EXPORTED_SYMBOLS} CONTENT [[
{
  global:
    extern "C++" {
@exported@    };
  local:
    *;
};
]] @ONLY)
# Before version 1 each minor version has another binary interface.
set(QEV_SOVERSION ${PROJECT_VERSION_MAJOR})
if(PROJECT_VERSION_MAJOR EQUAL 0)
  set(QEV_SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
endif()

# qev_library(NAME SOURCES a.cpp… [PUBLIC target…] [PRIVATE target…] [COMPONENT Qt])
#
# Declares the library of the current folder, static or shared as BUILD_SHARED_LIBS says, or an
# interface library where there are no sources. Every target links it as QEVSettings::NAME. The
# target itself is QEVSettings_NAME, which leaves short names such as "qt" to a host that builds
# this project as a part of its own. Public headers are in include/; only targets that link the
# library find them, so an include against the arrows does not compile. Private headers are included
# by their path from the current folder. A library of the component Qt is found with that component
# only.
function(qev_library name)
  cmake_parse_arguments(ARG "" "COMPONENT" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
  set(target QEVSettings_${name})
  if(ARG_SOURCES)
    add_library(${target} ${ARG_SOURCES})
    target_include_directories(${target}
      PUBLIC $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/include>
      PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${target}
      PUBLIC ${ARG_PUBLIC}
      PRIVATE ${ARG_PRIVATE} $<BUILD_INTERFACE:qev_options>)
    set(scope PUBLIC)
  else()
    add_library(${target} INTERFACE)
    target_include_directories(${target} INTERFACE
      $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/include>)
    target_link_libraries(${target} INTERFACE ${ARG_PUBLIC})
    set(scope INTERFACE)
  endif()
  target_compile_features(${target} ${scope} cxx_std_20)
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${name})
  get_target_property(type ${target} TYPE)
  if(type STREQUAL "SHARED_LIBRARY")
    set_target_properties(${target} PROPERTIES
      VERSION ${PROJECT_VERSION}
      SOVERSION ${QEV_SOVERSION}
      DEFINE_SYMBOL ""
      INSTALL_RPATH "$ORIGIN"
      LINK_DEPENDS ${QEV_EXPORTED_SYMBOLS})
    target_link_options(${target} PRIVATE -Wl,--version-script=${QEV_EXPORTED_SYMBOLS})
  endif()
  add_library(QEVSettings::${name} ALIAS ${target})
  set_property(GLOBAL APPEND PROPERTY QEVSettings${ARG_COMPONENT}_LIBRARIES ${target})
  if(NOT QEV_WITH_INSTALL)
    return()
  endif()
  install(TARGETS ${target} EXPORT QEVSettings${ARG_COMPONENT}Targets
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dev
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT dev
    INCLUDES DESTINATION ${QEV_INSTALL_HEADERS})
  install(DIRECTORY include/ DESTINATION ${QEV_INSTALL_HEADERS} COMPONENT dev)
endfunction()

# qev_resource_bundle(NAME): puts resources/NAME_NAME.bundle of the current folder next to the
# programs of this build, and into the installed resources of the program. Hosts get it from
# qev_settings_bundles.
function(qev_resource_bundle name_of_library)
  set(target QEVSettings_${name_of_library})
  set(name ${name_of_library}_${name_of_library}.bundle)
  set(source ${CMAKE_CURRENT_SOURCE_DIR}/resources/${name})
  file(GLOB_RECURSE files CONFIGURE_DEPENDS ${source}/*)
  set(stamp ${CMAKE_CURRENT_BINARY_DIR}/${name}.stamp)
  add_custom_command(OUTPUT ${stamp}
    COMMAND ${CMAKE_COMMAND} -E rm -rf ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${name}
    COMMAND ${CMAKE_COMMAND} -E copy_directory ${source} ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${name}
    COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
    DEPENDS ${files}
    VERBATIM)
  add_custom_target(${target}_resources ALL DEPENDS ${stamp})
  add_dependencies(${target} ${target}_resources)
  set_property(GLOBAL APPEND PROPERTY QEVSettings_BUNDLES ${source})
  if(QEV_WITH_INSTALL)
    if(QEV_WITH_HOST)
      install(DIRECTORY ${source} DESTINATION ${ZORVANTINE_INSTALL_RESOURCES} COMPONENT runtime)
    endif()
    if(BUILD_SHARED_LIBS AND name_of_library STREQUAL "QEVSettings")
      # The module also looks next to the library that it is a part of.
      install(DIRECTORY ${source} DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime)
    endif()
  endif()
endfunction()
