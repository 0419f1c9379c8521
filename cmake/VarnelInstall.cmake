# What `cmake --install` puts down: libraries, headers, CMake package, pkg-config files, documents.
#
# The static and the shared libraries may share a prefix: each kind has its own files of CMake targets, and
# VarnelConfig.cmake chooses. Everything finds the rest from where it lies itself, so that an installed tree
# may be moved.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Varnel)
if(BUILD_SHARED_LIBS)
  set(kind Shared)
else()
  set(kind Static)
endif()

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
  set(pc_definitions "")
  if(WIN32 AND NOT BUILD_SHARED_LIBS)
    set(pc_definitions " -DVARNEL_STATIC") # else the headers import from a DLL
  endif()
  configure_file("${PROJECT_SOURCE_DIR}/cmake/${name}.pc.in" "${PROJECT_BINARY_DIR}/${name}.pc" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/${name}.pc" DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
    COMPONENT ${component})
endfunction()

# Installs a library as a component, with its CMake targets Varnel${part}${kind}Targets.cmake.
function(varnel_install_library target part component)
  install(TARGETS ${target} EXPORT Varnel${part}Targets
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${component} NAMELINK_COMPONENT development
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT ${component})
  install(EXPORT Varnel${part}Targets FILE Varnel${part}${kind}Targets.cmake NAMESPACE Varnel::
    DESTINATION ${package_dir} COMPONENT development)
endfunction()

# ---- the core ---------------------------------------------------------------------------------------

varnel_install_library(varnel "" library)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/Varnel" DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  COMPONENT development FILES_MATCHING PATTERN "*.h" PATTERN "*.hpp" PATTERN "documents*" EXCLUDE)
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/VarnelConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/VarnelConfig.cmake" INSTALL_DESTINATION ${package_dir}
  NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/VarnelConfigVersion.cmake"
  COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/VarnelConfig.cmake" "${PROJECT_BINARY_DIR}/VarnelConfigVersion.cmake"
  DESTINATION ${package_dir} COMPONENT development)
varnel_install_pc(varnel development)

# ---- the documents library --------------------------------------------------------------------------

if(TARGET varnel_documents)
  varnel_install_library(varnel_documents Documents documents)
  install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/Varnel" DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
    COMPONENT development FILES_MATCHING PATTERN "documents.h*" PATTERN "documents/*.h"
    PATTERN "mrz" EXCLUDE PATTERN "pdf417" EXCLUDE)
  varnel_install_pc(varnel-documents development)
endif()

# ---- documents for people ---------------------------------------------------------------------------

# Where they are there: a project that contains Varnel may have left them out.
foreach(component IN ITEMS library documents development command foundation)
  install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT ${component}
    OPTIONAL)
endforeach()
install(DIRECTORY "${PROJECT_SOURCE_DIR}/docs" DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development
  OPTIONAL FILES_MATCHING PATTERN "*.md" PATTERN "*.svg" PATTERN "*.schema.json" PATTERN "reference.md" EXCLUDE)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/samples" DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development
  OPTIONAL)
