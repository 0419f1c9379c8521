# The Objective-C class: src/Varnel.m over the portable entry and export.
#
#   varnel_framework   for iOS: Varnel.framework, see apple/CMakeLists.txt
#   varnel_foundation  elsewhere: a shared library of the core and the class
#
# Where Foundation is not available the class is left out; ON makes that an error.
set(facade_default AUTO)
if(NOT PROJECT_IS_TOP_LEVEL)
  set(facade_default OFF)
endif()
set(VARNEL_BUILD_FACADE ${facade_default} CACHE STRING "Build the Objective-C class: AUTO, ON or OFF")
set_property(CACHE VARNEL_BUILD_FACADE PROPERTY STRINGS AUTO ON OFF)
if(NOT VARNEL_BUILD_FACADE)
  return()
endif()

# Says why the class cannot be built; to be followed by return().
macro(varnel_leave_facade_out reason)
  if(VARNEL_BUILD_FACADE STREQUAL "AUTO")
    message(STATUS "The Objective-C class is left out: ${reason}")
  else()
    message(FATAL_ERROR "The Objective-C class cannot be built: ${reason}")
  endif()
endmacro()

# ---- a compiler -------------------------------------------------------------------------------------

# Objective-C is compiled as C is, with the same compiler and flags (those of the sanitizers too).
if(NOT DEFINED ENV{OBJC})
  set(ENV{OBJC} "${CMAKE_C_COMPILER}")
endif()
if(NOT DEFINED CMAKE_OBJC_FLAGS)
  set(CMAKE_OBJC_FLAGS "${CMAKE_C_FLAGS}" CACHE STRING "Flags of the Objective-C compiler")
endif()
include(CheckLanguage)
check_language(OBJC)
if(NOT CMAKE_OBJC_COMPILER)
  varnel_leave_facade_out("${CMAKE_C_COMPILER} does not compile Objective-C (Debian: gobjc)")
  return()
endif()
enable_language(OBJC)

# ---- Foundation -------------------------------------------------------------------------------------

set(foundation_options "")
set(foundation_libraries "")
if(APPLE)
  set(foundation_libraries "-framework Foundation")
else()
  find_program(GNUSTEP_CONFIG gnustep-config)
  if(NOT GNUSTEP_CONFIG)
    varnel_leave_facade_out("gnustep-config is not found (Debian: libgnustep-base-dev gnustep-make)")
    return()
  endif()
  execute_process(COMMAND "${GNUSTEP_CONFIG}" --objc-flags
    OUTPUT_VARIABLE foundation_flags OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND "${GNUSTEP_CONFIG}" --base-libs
    OUTPUT_VARIABLE foundation_libraries OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  # What it says of dependency files, optimisation and warnings is for this build to decide.
  separate_arguments(foundation_options UNIX_COMMAND "${foundation_flags}")
  list(FILTER foundation_options EXCLUDE REGEX "^(-MMD|-MP|-g|-O2|-I\\.|-Wall|-Wno-import)$")
  list(TRANSFORM foundation_options REPLACE "^-I" "-isystem")
  separate_arguments(foundation_libraries UNIX_COMMAND "${foundation_libraries}")
  if(CMAKE_OBJC_COMPILER_ID MATCHES "Clang")
    list(APPEND foundation_options -fobjc-runtime=gcc)
    find_program(VARNEL_GCC gcc) # whose folder of headers is that of the Objective-C runtime, too
    if(VARNEL_GCC)
      execute_process(COMMAND "${VARNEL_GCC}" -print-file-name=include
        OUTPUT_VARIABLE gcc_include OUTPUT_STRIP_TRAILING_WHITESPACE)
      list(APPEND foundation_options -idirafter "${gcc_include}")
    endif()
  endif()
endif()
if(CMAKE_OBJC_COMPILER_ID MATCHES "Clang")
  list(APPEND foundation_options -fno-objc-arc)
else()
  list(APPEND foundation_options -std=gnu99) # else it is C90
endif()

include(CheckOBJCSourceCompiles)
set(CMAKE_REQUIRED_FLAGS ${foundation_options})
list(JOIN CMAKE_REQUIRED_FLAGS " " CMAKE_REQUIRED_FLAGS)
set(CMAKE_REQUIRED_LIBRARIES ${foundation_libraries})
check_objc_source_compiles("
  #import <Foundation/Foundation.h>
  int main(void) { return [[NSString string] length] != 0; }" VARNEL_FOUNDATION_COMPILES)
unset(CMAKE_REQUIRED_FLAGS)
unset(CMAKE_REQUIRED_LIBRARIES)
if(NOT VARNEL_FOUNDATION_COMPILES)
  varnel_leave_facade_out("${CMAKE_OBJC_COMPILER} does not compile or link a program with Foundation")
  return()
endif()

# ---- the class--------------------------------------------------------------------------------------

# What Objective-C code over Foundation is compiled and linked with; shared with the tests.
add_library(varnel_foundation_options INTERFACE)
target_compile_options(varnel_foundation_options INTERFACE $<$<COMPILE_LANGUAGE:OBJC>:${foundation_options}>)
target_link_libraries(varnel_foundation_options INTERFACE ${foundation_libraries})

# Adds Objective-C sources over Foundation to a target.
function(varnel_add_objective_c target)
  list(TRANSFORM ARGN PREPEND "${PROJECT_SOURCE_DIR}/src/" OUTPUT_VARIABLE sources)
  target_sources(${target} PRIVATE ${sources})
  target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}/src")
  target_include_directories(${target} PUBLIC "${PROJECT_SOURCE_DIR}/include")
  target_link_libraries(${target} PUBLIC varnel_foundation_options)
  varnel_warnings(${target})
endfunction()

# Adds the class Varnel and its category to a target.
function(varnel_add_facade target)
  varnel_add_objective_c(${target} Varnel.m)
endfunction()

if(CMAKE_SYSTEM_NAME STREQUAL "iOS")
  add_subdirectory(apple)
else()
  # Symbols are visible here: gcc has no attribute that would make a class visible by itself.
  add_library(varnel_foundation SHARED $<TARGET_OBJECTS:varnel>)
  varnel_add_facade(varnel_foundation)
  set_target_properties(varnel_foundation PROPERTIES
    OUTPUT_NAME VarnelFoundation
    LINKER_LANGUAGE CXX # the Objective-C linker leaves the run path of the build tree out
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR})

  # The documents library with the class VarnelInspector, over the library above.
  if(VARNEL_BUILD_DOCUMENTS)
    add_library(varnel_documents_foundation SHARED $<TARGET_OBJECTS:varnel_documents>)
    varnel_add_objective_c(varnel_documents_foundation documents/VarnelInspector.m)
    target_link_libraries(varnel_documents_foundation PUBLIC varnel_foundation)
    set_target_properties(varnel_documents_foundation PROPERTIES
      OUTPUT_NAME VarnelDocumentsFoundation
      LINKER_LANGUAGE CXX
      VERSION ${PROJECT_VERSION}
      SOVERSION ${PROJECT_VERSION_MAJOR})
  endif()
endif()
