# Lets everybody read what cpack is about to pack: the folders that it makes follow the umask of whoever runs it.
execute_process(COMMAND chmod -R u=rwX,go=rX ${CPACK_TEMPORARY_DIRECTORY} COMMAND_ERROR_IS_FATAL ANY)
