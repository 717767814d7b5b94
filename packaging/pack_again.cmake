# Packs what cpack has made once more, so that two builds give the same bytes: in the archive the files stand in the order
# in which the disk holds them, and the parts of the Debian package have modes by the umask.
set(unpacked ${CPACK_TEMPORARY_DIRECTORY}-again)
file(REMOVE_RECURSE ${unpacked})
file(MAKE_DIRECTORY ${unpacked})
if(CPACK_GENERATOR STREQUAL "DEB")
  execute_process(COMMAND ar x ${CPACK_PACKAGE_FILES} WORKING_DIRECTORY ${unpacked} COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE ${CPACK_PACKAGE_FILES})
  execute_process(COMMAND ar qcD ${CPACK_PACKAGE_FILES} debian-binary control.tar.gz data.tar.gz
                  WORKING_DIRECTORY ${unpacked} COMMAND_ERROR_IS_FATAL ANY)
else()
  execute_process(COMMAND tar xf ${CPACK_PACKAGE_FILES} WORKING_DIRECTORY ${unpacked} COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND tar --create --file=${CPACK_PACKAGE_FILES} --use-compress-program=gzip\ -9n --format=ustar
                          --sort=name --mtime=@$ENV{SOURCE_DATE_EPOCH} --owner=root:0 --group=root:0
                          --mode=u=rwX,go=rX ${CPACK_PACKAGE_FILE_NAME}
                  WORKING_DIRECTORY ${unpacked} COMMAND_ERROR_IS_FATAL ANY)
endif()
file(REMOVE_RECURSE ${unpacked})
