# The Objective-C class as an installed library, and the packages that CPack makes: cmake/packages/run makes them.

# What is installed below without naming a component belongs to the command.
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME command)
if(NOT VARNEL_INSTALL)
  return()
endif()

# The class is installed when it was asked for by ON. What AUTO finds is for the tests: what is installed does
# not depend on what else happens to be on the machine.
if(VARNEL_BUILD_FACADE STREQUAL "ON" AND TARGET varnel_foundation)
  install(TARGETS varnel_foundation LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT foundation)
  varnel_install_pc(varnel-foundation foundation)
endif()

if(NOT PROJECT_IS_TOP_LEVEL)
  return()
endif()

# ---- Debian packages: libvarnel1, libvarnel-documents1, libvarnel-dev and varnel ----------------------

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME varnel)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package says its own
set(CPACK_PACKAGE_VENDOR "The Varnel authors")
set(CPACK_PACKAGE_CONTACT "The Varnel authors <varnel@example.com>")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/cmake/packages/debian-rules.cmake")
set(CPACK_VARNEL_PACKAGING "${PROJECT_SOURCE_DIR}/cmake/packages")

# The static library comes from a build of its own, the rest from this one.
set(VARNEL_STATIC_BUILD "" CACHE PATH "The build of the static library that the packages are to hold")
mark_as_advanced(VARNEL_STATIC_BUILD)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL library documents development command)
set(CPACK_COMPONENTS_GROUPING IGNORE)
if(VARNEL_STATIC_BUILD)
  set(CPACK_INSTALL_CMAKE_PROJECTS
    "${VARNEL_STATIC_BUILD};Varnel;ALL;/;${PROJECT_BINARY_DIR};Varnel;ALL;/")
endif()
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/src" "${PROJECT_BINARY_DIR}/src/documents")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME libvarnel${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY >=)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA "${PROJECT_SOURCE_DIR}/cmake/packages/triggers")
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION "reader of machine-readable zones of travel documents: library
Varnel reads the text of the machine-readable zone of a passport, an identity
card or a visa (ICAO Doc 9303: TD1, TD2, TD3, MRV-A and MRV-B) into twelve
values. It allocates nothing and keeps no state.")

set(CPACK_DEBIAN_DOCUMENTS_PACKAGE_NAME libvarnel-documents${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_DOCUMENTS_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_DOCUMENTS_PACKAGE_DEPENDS
  "libvarnel${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
set(CPACK_DEBIAN_DOCUMENTS_PACKAGE_CONTROL_EXTRA "${PROJECT_SOURCE_DIR}/cmake/packages/triggers")
set(CPACK_COMPONENT_DOCUMENTS_DESCRIPTION "inspector of machine-readable zones of travel documents: library
The documents library inspects the zone of a passport, an identity card or a
visa: whether its check digits hold, what is wrong with it and where. It also
composes zones and reads the barcodes of driver's licences.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libvarnel-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
  "libvarnel${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}), \
libvarnel-documents${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "reader of machine-readable zones of travel documents: headers
The headers for C, C++17 and Objective-C, the static libraries, the files by
which CMake and pkg-config find Varnel, its guide and samples.")

set(CPACK_DEBIAN_COMMAND_PACKAGE_NAME varnel)
set(CPACK_DEBIAN_COMMAND_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_COMMAND_PACKAGE_DEPENDS
  "libvarnel${PROJECT_VERSION_MAJOR} (>= ${PROJECT_VERSION}), \
libvarnel-documents${PROJECT_VERSION_MAJOR} (>= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_COMMAND_DESCRIPTION "reader of machine-readable zones of travel documents: command
The command varnel reads machine-readable zones from files or standard input
and prints JSON, CSV or a table, for one document or for many as a stream.
It also looks up AAMVA data elements and encodes names as Soundex.")

# ---- source archive ---------------------------------------------------------------------------------

# cmake/packages/run names the folder of the tracked files; anybody else's is this one without its builds.
set(VARNEL_SOURCE_TREE "${PROJECT_SOURCE_DIR}" CACHE PATH "What the source archive holds")
mark_as_advanced(VARNEL_SOURCE_TREE)
set(CPACK_SOURCE_GENERATOR TGZ)
set(CPACK_SOURCE_PACKAGE_FILE_NAME varnel-${PROJECT_VERSION})
set(CPACK_SOURCE_INSTALLED_DIRECTORIES "${VARNEL_SOURCE_TREE};/")
set(CPACK_SOURCE_IGNORE_FILES "")
if(VARNEL_SOURCE_TREE STREQUAL PROJECT_SOURCE_DIR)
  set(CPACK_SOURCE_IGNORE_FILES "/[.]git/" "^${PROJECT_SOURCE_DIR}/(build|out)/")
endif()
set(CPACK_VERBATIM_VARIABLES ON)

configure_file("${PROJECT_SOURCE_DIR}/cmake/packages/changelog.in" "${PROJECT_BINARY_DIR}/debian-changelog" @ONLY)
set(CPACK_VARNEL_CHANGELOG "${PROJECT_BINARY_DIR}/debian-changelog")
include(CPack)
