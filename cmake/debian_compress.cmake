# Run by cpack when the files are in place, before it makes packages of them.
file(GLOB_RECURSE documents
  "${CPACK_TEMPORARY_DIRECTORY}/changelog*" "${CPACK_TEMPORARY_DIRECTORY}/detect_layout.1")
execute_process(COMMAND gzip -9n ${documents} COMMAND_ERROR_IS_FATAL ANY)
