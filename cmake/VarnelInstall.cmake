# What `cmake --install` puts down: library, headers, CMake package, pkg-config file.
include(CMakePackageConfigHelpers)

install(TARGETS varnel EXPORT VarnelTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/Varnel" DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  FILES_MATCHING PATTERN "*.h" PATTERN "*.hpp")

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Varnel)
install(EXPORT VarnelTargets NAMESPACE Varnel:: DESTINATION ${package_dir})
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/VarnelConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/VarnelConfig.cmake" INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file("${PROJECT_BINARY_DIR}/VarnelConfigVersion.cmake"
  COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/VarnelConfig.cmake" "${PROJECT_BINARY_DIR}/VarnelConfigVersion.cmake"
  DESTINATION ${package_dir})

# The prefix as seen from the folder of the .pc file, so that an installed tree may be moved.
file(RELATIVE_PATH pc_prefix "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
string(REGEX REPLACE "/$" "" pc_prefix "${pc_prefix}")
configure_file("${PROJECT_SOURCE_DIR}/cmake/varnel.pc.in" "${PROJECT_BINARY_DIR}/varnel.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/varnel.pc" DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
