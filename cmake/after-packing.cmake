# Puts debug packages right: the packer sums up their files by their places in the build folder, where the installed
# ones are meant, and gives them no documents. Like Debian's own they share those of the package that they belong to.
foreach(package ${CPACK_PACKAGE_FILES})
  if(NOT package MATCHES "/([^/_]+)-dbgsym_[^/]*[.]ddeb$")
    continue()
  endif()
  set(name "${CMAKE_MATCH_1}")
  set(content "${package}.content")
  execute_process(COMMAND dpkg-deb --raw-extract "${package}" "${content}" COMMAND_ERROR_IS_FATAL ANY)
  file(GLOB_RECURSE files RELATIVE "${content}" "${content}/usr/*")
  execute_process(COMMAND md5sum -- ${files} WORKING_DIRECTORY "${content}" OUTPUT_FILE "${content}/DEBIAN/md5sums"
    COMMAND_ERROR_IS_FATAL ANY)
  file(MAKE_DIRECTORY "${content}/usr/share/doc")
  file(CREATE_LINK ${name} "${content}/usr/share/doc/${name}-dbgsym" SYMBOLIC)
  execute_process(COMMAND dpkg-deb --root-owner-group --build "${content}" "${package}" OUTPUT_QUIET
    COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE_RECURSE "${content}")
endforeach()
