# What `cmake --install` puts down: library, headers, CMake package, pkg-config file.
#
# The static and the shared library may share a prefix: each has its own file of CMake targets, and
# VarnelConfig.cmake chooses. Everything finds the rest from where it lies itself, so that an installed tree
# may be moved.
include(CMakePackageConfigHelpers)

# ---- library and headers ----------------------------------------------------------------------------

install(TARGETS varnel EXPORT VarnelTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT library)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/Varnel" DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  COMPONENT development FILES_MATCHING PATTERN "*.h" PATTERN "*.hpp")

# ---- CMake package ----------------------------------------------------------------------------------

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Varnel)
if(BUILD_SHARED_LIBS)
  set(kind Shared)
else()
  set(kind Static)
endif()
install(EXPORT VarnelTargets FILE Varnel${kind}Targets.cmake NAMESPACE Varnel:: DESTINATION ${package_dir}
  COMPONENT development)
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/VarnelConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/VarnelConfig.cmake" INSTALL_DESTINATION ${package_dir}
  NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/VarnelConfigVersion.cmake"
  COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/VarnelConfig.cmake" "${PROJECT_BINARY_DIR}/VarnelConfigVersion.cmake"
  DESTINATION ${package_dir} COMPONENT development)

# ---- pkg-config file --------------------------------------------------------------------------------

# Installs NAME.pc made from cmake/NAME.pc.in, as part of a component. Its prefix is as seen from the folder
# of the file itself, unless the library's folder was given as an absolute path.
function(varnel_install_pc name component)
  if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
    set(pc_prefix "${CMAKE_INSTALL_PREFIX}")
  else()
    file(RELATIVE_PATH up "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
    string(REGEX REPLACE "/$" "" up "${up}")
    set(pc_prefix "\${pcfiledir}/${up}")
  endif()
  set(pc_includedir "\${prefix}")
  cmake_path(APPEND pc_includedir "${CMAKE_INSTALL_INCLUDEDIR}")
  set(pc_libdir "\${prefix}")
  cmake_path(APPEND pc_libdir "${CMAKE_INSTALL_LIBDIR}")
  configure_file("${PROJECT_SOURCE_DIR}/cmake/${name}.pc.in" "${PROJECT_BINARY_DIR}/${name}.pc" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/${name}.pc" DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
    COMPONENT ${component})
endfunction()

varnel_install_pc(varnel development)
