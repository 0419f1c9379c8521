# Cross-builds Varnel for iOS with clang and lld against the stub SDK, on a system without Apple's: to check
# that it compiles and links and how the framework is built. Releases are built on a Mac, see docs/ios.md.
#
#   cmake -S . -B build/arm64 -G Ninja -DCMAKE_TOOLCHAIN_FILE=apple/stub-toolchain.cmake
#         -DVARNEL_SLICE=arm64-device
#
# VARNEL_SLICE is one of arm64-device, armv7-device, x86_64-simulator, arm64-simulator, i386-simulator.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES VARNEL_SLICE)
if(NOT VARNEL_SLICE MATCHES "^([^-]+)-(device|simulator)$")
  message(FATAL_ERROR "VARNEL_SLICE is '${VARNEL_SLICE}', not an architecture with -device or -simulator")
endif()
set(slice_architecture ${CMAKE_MATCH_1})

set(CMAKE_SYSTEM_NAME iOS)
set(CMAKE_SYSTEM_PROCESSOR ${slice_architecture})
set(CMAKE_OSX_ARCHITECTURES ${slice_architecture})
if(VARNEL_SLICE MATCHES "-device$")
  set(CMAKE_OSX_SYSROOT "${CMAKE_CURRENT_LIST_DIR}/stub-sdk/iPhoneOS.sdk")
  set(slice_suffix "")
else()
  set(CMAKE_OSX_SYSROOT "${CMAKE_CURRENT_LIST_DIR}/stub-sdk/iPhoneSimulator.sdk")
  set(slice_suffix "-simulator")
endif()
# The first simulator for arm64 is that of iOS 14.
set(CMAKE_OSX_DEPLOYMENT_TARGET 9.0)
if(VARNEL_SLICE STREQUAL "arm64-simulator")
  set(CMAKE_OSX_DEPLOYMENT_TARGET 14.0)
endif()

set(slice_target ${slice_architecture}-apple-ios${CMAKE_OSX_DEPLOYMENT_TARGET}${slice_suffix})
foreach(language IN ITEMS C CXX OBJC)
  set(CMAKE_${language}_COMPILER_TARGET ${slice_target})
endforeach()
find_program(CMAKE_C_COMPILER clang REQUIRED)
find_program(CMAKE_CXX_COMPILER clang++ REQUIRED)
find_program(CMAKE_OBJC_COMPILER clang REQUIRED) # CMake wants the whole path of this one
foreach(tool IN ITEMS ar ranlib install-name-tool)
  string(TOUPPER CMAKE_${tool} variable)
  string(REPLACE "-" "_" variable ${variable})
  find_program(${variable} NAMES llvm-${tool} llvm-${tool}-14 REQUIRED)
endforeach()
# libc++ is that of every iOS, and none of it is used.
set(CMAKE_CXX_FLAGS_INIT "-stdlib=libc++")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-fuse-ld=lld")
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY) # there is no C++ library to link a program with
