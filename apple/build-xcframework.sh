#!/bin/sh
# Builds Varnel.xcframework and VarnelDocuments.xcframework on a Mac, for iOS 9.0 and later: devices and simulator.
#
#   apple/build-xcframework.sh [FOLDER]      puts them into FOLDER, or into out/
#
# Needs Xcode and CMake. The architectures may be chosen by the environment:
#
#   DEVICE_ARCHITECTURES      arm64           ("arm64 armv7" with an Xcode that still has armv7)
#   SIMULATOR_ARCHITECTURES   "arm64 x86_64"  (and i386 likewise)
set -eu

root=$(cd "$(dirname "$0")/.." && pwd)
output=${1:-$root/out}
build=$root/build/xcframework
device_architectures=${DEVICE_ARCHITECTURES:-arm64}
simulator_architectures=${SIMULATOR_ARCHITECTURES:-arm64 x86_64}

for tool in cmake xcodebuild; do
  if ! command -v "$tool" >/dev/null; then
    echo "$0: $tool is not found; it needs Xcode and CMake, on a Mac" >&2
    exit 1
  fi
done

# build_framework SDK ARCHITECTURES: leaves $build/SDK/apple/Varnel.framework and VarnelDocuments.framework.
build_framework() {
  cmake -S "$root" -B "$build/$1" -G "Unix Makefiles" \
    -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_SYSTEM_NAME=iOS \
    -DCMAKE_OSX_SYSROOT="$1" \
    -DCMAKE_OSX_ARCHITECTURES="$(echo "$2" | tr ' ' ';')" \
    -DCMAKE_OSX_DEPLOYMENT_TARGET=9.0 \
    -DVARNEL_BUILD_CLI=OFF -DVARNEL_BUILD_TESTS=OFF -DVARNEL_INSTALL=OFF -DVARNEL_BUILD_FACADE=ON
  cmake --build "$build/$1" --target varnel_framework varnel_documents_framework
}

rm -rf "$build" "$output/Varnel.xcframework" "$output/VarnelDocuments.xcframework"
build_framework iphoneos "$device_architectures"
build_framework iphonesimulator "$simulator_architectures"
mkdir -p "$output"
for framework in Varnel VarnelDocuments; do
  xcodebuild -create-xcframework \
    -framework "$build/iphoneos/apple/$framework.framework" \
    -framework "$build/iphonesimulator/apple/$framework.framework" \
    -output "$output/$framework.xcframework"
done
