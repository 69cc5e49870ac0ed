# SPDX-License-Identifier: MIT
# qev_settings_bundles(TARGET): puts the string tables next to a program, where it finds them in its
# build folder, and with them the pictures of the appearance choice and the names of the time zones.
function(qev_settings_bundles target)
  get_property(folder GLOBAL PROPERTY QEVSettings_BUNDLES_DIR)
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${CMAKE_COMMAND} -E copy_directory ${folder} $<TARGET_FILE_DIR:${target}>
    VERBATIM)
endfunction()
