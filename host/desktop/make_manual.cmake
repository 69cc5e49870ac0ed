# SPDX-License-Identifier: MIT
# Writes the manual page to OUTPUT: the TEMPLATE with the description of its commands that the
# PROGRAM prints.
execute_process(COMMAND ${PROGRAM} help --format man
  OUTPUT_VARIABLE COMMANDS COMMAND_ERROR_IS_FATAL ANY)
configure_file(${TEMPLATE} ${OUTPUT} @ONLY)
