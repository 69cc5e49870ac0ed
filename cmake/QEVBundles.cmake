# SPDX-License-Identifier: MIT
# Gathers what a host puts next to its program, in the form in which it is installed.

set(QEVSettings_BUNDLES_DIR ${PROJECT_BINARY_DIR}/share/QEVSettings)
get_property(bundles GLOBAL PROPERTY QEVSettings_BUNDLES)
file(COPY ${bundles} DESTINATION ${QEVSettings_BUNDLES_DIR})
# Pictures of the appearance choice, and names of the time zones: a host may have others.
file(COPY ${PROJECT_SOURCE_DIR}/host/resources/ DESTINATION ${QEVSettings_BUNDLES_DIR}
  FILES_MATCHING PATTERN QEVAqua*.svg PATTERN LocalizableTimeZones.strings)

file(GLOB_RECURSE gathered ${PROJECT_SOURCE_DIR}/host/resources/*)
foreach(bundle IN LISTS bundles)
  file(GLOB_RECURSE files ${bundle}/*)
  list(APPEND gathered ${files})
endforeach()
set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${gathered})

# For a project around this one, whose folders do not see this folder's variables.
set_property(GLOBAL PROPERTY QEVSettings_BUNDLES_DIR ${QEVSettings_BUNDLES_DIR})
include(${CMAKE_CURRENT_LIST_DIR}/QEVSettingsBundles.cmake)
