# Packages: Debian's, one for each component, and a .tar.gz of all.
set(CPACK_GENERATOR DEB TGZ)
set(CPACK_PACKAGE_VENDOR CoreKit)
set(CPACK_PACKAGE_CONTACT "CoreKit maintainers <corekit@example.org>")
set(CPACK_PACKAGE_NAME corekit)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_ARCHIVE_COMPONENT_INSTALL OFF)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# Debug packages hold something where the build made debug information: preset "package".
if(CMAKE_CXX_FLAGS MATCHES "-g")
  set(CPACK_DEBIAN_DEBUGINFO_PACKAGE ON)
  # It takes the information out by itself; what was stripped before has none left.
  file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/each-generator.cmake @ONLY CONTENT [[
if(CPACK_GENERATOR STREQUAL "DEB")
  set(CPACK_STRIP_FILES OFF)
endif()
]])
  set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_BINARY_DIR}/each-generator.cmake)
endif()

# corekit_package(COMPONENT NAME SECTION DEPENDS SUMMARY DESCRIPTION)
function(corekit_package component name section depends summary description)
  list(APPEND CPACK_COMPONENTS_ALL ${component})
  set(CPACK_COMPONENTS_ALL ${CPACK_COMPONENTS_ALL} PARENT_SCOPE)
  string(TOUPPER ${component} id)
  foreach(field "PACKAGE_NAME;${name}" "FILE_NAME;DEB-DEFAULT" "PACKAGE_SECTION;${section}" "PACKAGE_DEPENDS;${depends}")
    list(POP_FRONT field key)
    set(CPACK_DEBIAN_${id}_${key} "${field}" PARENT_SCOPE)
  endforeach()
  set(CPACK_COMPONENT_${id}_DESCRIPTION "${summary}\n${description}" PARENT_SCOPE)
  # What Debian expects beside the files of every package.
  set(documents ${PROJECT_BINARY_DIR}/packages/${name})
  file(CONFIGURE OUTPUT ${documents}/copyright @ONLY CONTENT [[
Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/
Upstream-Name: CoreKit

Files: *
Copyright: 2026 the CoreKit developers
License: all-rights-reserved
 No licence is granted beyond what its developers agree on with you.
]])
  if(section STREQUAL libs)
    string(REGEX REPLACE "[0-9]+$" "" library ${name})
    file(WRITE ${documents}/shlibs "${library} ${PROJECT_VERSION_MAJOR} ${name} (>= ${PROJECT_VERSION})\n")
    file(WRITE ${documents}/triggers "activate-noawait ldconfig\n")
    # Written while packing, from the library as it is packed.
    set(CPACK_DEBIAN_${id}_PACKAGE_CONTROL_EXTRA ${documents}/shlibs ${documents}/triggers ${documents}/symbols
      PARENT_SCOPE)
  endif()
  file(CONFIGURE OUTPUT ${documents}/changelog.Debian @ONLY CONTENT [[
corekit (@PROJECT_VERSION@-1) stable; urgency=medium

  * See /usr/share/doc/libcorekit-dev/changes.md.

 -- CoreKit maintainers <corekit@example.org>  Sun, 22 Nov 2026 00:00:00 +0000
]])
  find_program(GZIP gzip REQUIRED)
  execute_process(COMMAND ${GZIP} -9nf ${documents}/changelog.Debian)
  install(FILES ${documents}/copyright ${documents}/changelog.Debian.gz
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} COMPONENT ${component})
endfunction()

set(same "(= ${PROJECT_VERSION}-1)")
corekit_package(core libcorekit0 libs "" "class library for broadcast prompting"
  "Text in seven scripts, files, settings, logs, networks and devices.")
set(development "libcorekit0 ${same}")
if(TARGET CoreKit::ui)
  corekit_package(ui libcorekit-ui0 libs "libcorekit0 ${same}" "window half of the CoreKit class library"
    "Fonts, drawing, windows, controls and dialogs, on Qt 6.")
  string(APPEND development ", libcorekit-ui0 ${same}")
  corekit_package(prompter corekit-prompter text "libcorekit-ui0 ${same}" "desktop prompter for scripts in two languages"
    "Shows a script to its reader on any display, and is edited while it runs.")
  set(tool "libcorekit0 ${same}, libcorekit-ui0 ${same}")
else()
  set(tool "libcorekit0 ${same}")
endif()
corekit_package(tools corekit-tools utils "${tool}" "command-line tool of the CoreKit class library"
  "Draws and shapes text, and reads and mends the files that CoreKit keeps.")
corekit_package(dev libcorekit-dev libdevel "${development}" "headers of the CoreKit class library"
  "Headers, the files of CMake and pkg-config, and examples.")
install(FILES ${PROJECT_SOURCE_DIR}/docs/changes.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libcorekit-dev
  COMPONENT dev RENAME changelog.md)

configure_file(${PROJECT_SOURCE_DIR}/cmake/before-packing.cmake.in ${PROJECT_BINARY_DIR}/before-packing.cmake @ONLY)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_BINARY_DIR}/before-packing.cmake)
set(CPACK_POST_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/after-packing.cmake)
include(CPack)
