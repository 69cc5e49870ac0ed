# The settings that every target of ours is built with, and one way to declare a room of the house.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

# What is installed comes in two components: `runtime`, the program, and `dev`, the library for other hosts.
# The library keeps to folders of its own, because its rooms have names that others have too.
include(GNUInstallDirs)
set(QEV_INSTALL_HEADERS ${CMAKE_INSTALL_INCLUDEDIR}/QEVSettings)
set(QEV_INSTALL_LIBRARIES ${CMAKE_INSTALL_LIBDIR}/QEVSettings)
set(QEV_INSTALL_PACKAGE ${CMAKE_INSTALL_LIBDIR}/cmake/QEVSettings)
set(QEV_INSTALL_BUNDLES ${CMAKE_INSTALL_DATADIR}/QEVSettings)
set(ZORVANTINE_INSTALL_RESOURCES ${CMAKE_INSTALL_DATADIR}/zorvantine)

add_library(qev_options INTERFACE)
target_compile_options(qev_options INTERFACE -Wall -Wextra -Wpedantic)
if(QEV_WARNINGS_ARE_ERRORS)
  target_compile_options(qev_options INTERFACE -Werror)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # Optimised, g++ 12 sees overlapping copies in every concatenation of strings, and optionals that hold nothing
  # being destroyed.
  target_compile_options(qev_options INTERFACE -Wno-restrict $<$<NOT:$<CONFIG:Debug>>:-Wno-maybe-uninitialized>)
endif()
if(QEV_SANITIZERS)
  target_compile_options(qev_options INTERFACE
    -fsanitize=${QEV_SANITIZERS} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(qev_options INTERFACE -fsanitize=${QEV_SANITIZERS})
endif()

# qev_library(NAME SOURCES a.cpp… [PUBLIC target…] [PRIVATE target…])
#
# A static library for the current folder. Its public headers stand in include/, and only the targets
# that name it see them: an include against the arrows does not compile. Other projects know it as QEVSettings::NAME.
function(qev_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
  if(ARG_SOURCES)
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/include>)
    target_link_libraries(${name} PUBLIC ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE} $<BUILD_INTERFACE:qev_options>)
    set(scope PUBLIC)
  else()
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/include>)
    target_link_libraries(${name} INTERFACE ${ARG_PUBLIC})
    set(scope INTERFACE)
  endif()
  target_compile_features(${name} ${scope} cxx_std_20)
  add_library(QEVSettings::${name} ALIAS ${name})
  install(TARGETS ${name} EXPORT QEVSettingsTargets
    ARCHIVE DESTINATION ${QEV_INSTALL_LIBRARIES} COMPONENT dev
    INCLUDES DESTINATION ${QEV_INSTALL_HEADERS})
  install(DIRECTORY include/ DESTINATION ${QEV_INSTALL_HEADERS} COMPONENT dev)
endfunction()

# qev_resource_bundle(TARGET): puts resources/TARGET_TARGET.bundle of the current folder where programs that
# link the target find it: next to them while they are built, and with the program's own resources when installed.
# Other projects copy it from where the package puts it.
function(qev_resource_bundle target)
  set(name ${target}_${target}.bundle)
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
  install(DIRECTORY ${source} DESTINATION ${ZORVANTINE_INSTALL_RESOURCES} COMPONENT runtime)
  install(DIRECTORY ${source} DESTINATION ${QEV_INSTALL_BUNDLES} COMPONENT dev)
endfunction()
