# SPDX-License-Identifier: MIT
# Writes the PROGRAM's completions for bash, zsh and fish to files in FOLDER.
file(MAKE_DIRECTORY ${FOLDER})
foreach(shell bash zsh fish)
  execute_process(COMMAND ${PROGRAM} help --format ${shell}
    OUTPUT_FILE ${FOLDER}/zorvantine.${shell} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
