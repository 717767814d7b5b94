# Packs what cpack has made once more, so that two builds give the same bytes: in the archive the files stand in the order
# in which the disk holds them, the parts of the Debian package have modes by the umask, and its Installed-Size counts the
# folders as large as that disk has them.
set(unpacked ${CPACK_TEMPORARY_DIRECTORY}-again)
set(pack tar --create --use-compress-program=gzip\ -9n --format=ustar --sort=name --mtime=@$ENV{SOURCE_DATE_EPOCH}
         --owner=root:0 --group=root:0 --mode=u=rwX,go=rX)
file(REMOVE_RECURSE ${unpacked})
file(MAKE_DIRECTORY ${unpacked})
if(CPACK_GENERATOR STREQUAL "DEB")
  execute_process(COMMAND ar x ${CPACK_PACKAGE_FILES} WORKING_DIRECTORY ${unpacked} COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE ${CPACK_PACKAGE_FILES})
  # In kibibytes, each file rounded up and each folder as one: as Debian's own tools count.
  execute_process(COMMAND tar tvf data.tar.gz
                  COMMAND awk "{ size += /^d/ ? 1 : int(($3 + 1023) / 1024) } END { print size }"
                  WORKING_DIRECTORY ${unpacked} OUTPUT_VARIABLE size OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  file(ARCHIVE_EXTRACT INPUT ${unpacked}/control.tar.gz DESTINATION ${unpacked}/control)
  file(READ ${unpacked}/control/control control)
  string(REGEX REPLACE "Installed-Size: [0-9]+" "Installed-Size: ${size}" control "${control}")
  file(WRITE ${unpacked}/control/control "${control}")
  execute_process(COMMAND ${pack} --file=../control.tar.gz .
                  WORKING_DIRECTORY ${unpacked}/control COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND ar qcD ${CPACK_PACKAGE_FILES} debian-binary control.tar.gz data.tar.gz
                  WORKING_DIRECTORY ${unpacked} COMMAND_ERROR_IS_FATAL ANY)
else()
  execute_process(COMMAND tar xf ${CPACK_PACKAGE_FILES} WORKING_DIRECTORY ${unpacked} COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND ${pack} --file=${CPACK_PACKAGE_FILES} ${CPACK_PACKAGE_FILE_NAME}
                  WORKING_DIRECTORY ${unpacked} COMMAND_ERROR_IS_FATAL ANY)
endif()
file(REMOVE_RECURSE ${unpacked})
