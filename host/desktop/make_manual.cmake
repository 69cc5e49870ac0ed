# Writes the manual page to OUTPUT: the TEMPLATE with the PROGRAM's own description of its commands in it.
execute_process(COMMAND ${PROGRAM} help --format man OUTPUT_VARIABLE COMMANDS COMMAND_ERROR_IS_FATAL ANY)
configure_file(${TEMPLATE} ${OUTPUT} @ONLY)
