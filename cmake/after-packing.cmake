# The packer names the files of debug packages by their places in the build folder; their sums are written again, by
# the names that the files have once they are installed.
foreach(package ${CPACK_PACKAGE_FILES})
  if(NOT package MATCHES "[.]ddeb$")
    continue()
  endif()
  set(content "${package}.content")
  execute_process(COMMAND dpkg-deb --raw-extract "${package}" "${content}" COMMAND_ERROR_IS_FATAL ANY)
  file(GLOB_RECURSE files RELATIVE "${content}" "${content}/usr/*")
  execute_process(COMMAND md5sum -- ${files} WORKING_DIRECTORY "${content}" OUTPUT_FILE "${content}/DEBIAN/md5sums"
    COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND dpkg-deb --root-owner-group --build "${content}" "${package}" OUTPUT_QUIET
    COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE_RECURSE "${content}")
endforeach()
