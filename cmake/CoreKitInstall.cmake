# Install rules: libraries, headers, find_package(CoreKit) and pkg-config files. Programs have theirs beside them. Each
# rule names the package that it belongs to, see CoreKitPackages.cmake.
include(CMakePackageConfigHelpers)

set(installed_targets core)
if(TARGET CoreKit::ui)
  list(APPEND installed_targets ui)
endif()
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME dev)
foreach(target ${installed_targets})
  install(TARGETS ${target} EXPORT CoreKitTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${target} NAMELINK_COMPONENT dev)
endforeach()
install(CODE "set(SOURCE \"${PROJECT_SOURCE_DIR}\")\nset(INCLUDES \"${CMAKE_INSTALL_INCLUDEDIR}\")")
install(SCRIPT ${PROJECT_SOURCE_DIR}/cmake/CoreKitHeaders.cmake)
install(EXPORT CoreKitTargets NAMESPACE CoreKit:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/CoreKit)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/CoreKitConfig.cmake.in
  ${PROJECT_BINARY_DIR}/CoreKitConfig.cmake INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/CoreKit)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/CoreKitConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_SOURCE_DIR}/cmake/CoreKitVersionRecord.cmake ${PROJECT_BINARY_DIR}/CoreKitConfig.cmake ${PROJECT_BINARY_DIR}/CoreKitConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/CoreKit)

# The pkg-config files name the tree by where they lie in it, so that it can be moved.
file(RELATIVE_PATH COREKIT_PC_TO_PREFIX "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
foreach(library ${installed_targets})
  get_target_property(COREKIT_PC_LIBRARY ${library} OUTPUT_NAME)
  set(COREKIT_PC_REQUIRES "")
  if(NOT library STREQUAL core)
    set(COREKIT_PC_REQUIRES corekit)
  endif()
  configure_file(${PROJECT_SOURCE_DIR}/cmake/corekit.pc.in ${PROJECT_BINARY_DIR}/${COREKIT_PC_LIBRARY}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${COREKIT_PC_LIBRARY}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endforeach()

install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libcorekit-dev)
include(CoreKitPackages)
