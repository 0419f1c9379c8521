#!/bin/sh
# Compiles the libraries to WebAssembly and packs them: build/javascript/varnel-VERSION.tgz (./dev javascript)
set -eu
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
out=$root/build/javascript
package=$out/package
version=$(sed -n 's/^#define VARNEL_VERSION "\(.*\)"/\1/p' "$root/include/Varnel/Varnel.h")
rm -rf "$package" "$out"/*.tgz
mkdir -p "$package"
flags="--target=wasm32-wasi -I $root/include -I $root/src -I $root/bindings -DVARNEL_STATIC"
objects=
for source in "$here/src/varnel.c" $(find "$root/src" -name '*.cpp' | sort); do
  object=$out/$(printf '%s' "${source#"$root"/}" | tr '/' '_').o
  case $source in
  */documents/*) optimize=-Oz ;; # large, and quick enough
  *) optimize=-O2 ;;
  esac
  case $source in
  *.c) clang $flags $optimize -std=c99 -c "$source" -o "$object" ;;
  *) clang++ $flags $optimize -std=c++17 -fno-exceptions -fno-rtti -fno-threadsafe-statics -c "$source" -o "$object" ;;
  esac
  objects="$objects $object"
done
# shellcheck disable=SC2086 # a list of files
clang --target=wasm32-wasi -Oz -nostartfiles $objects -Wl,--no-entry -Wl,--gc-sections -Wl,--strip-all \
  -Wl,-z,stack-size=65536 -o "$out/varnel.wasm"
{
  printf '// The libraries as WebAssembly, in base64.\nexport default "'
  base64 -w0 "$out/varnel.wasm"
  printf '";\n'
} >"$package/wasm.js"
cp "$here"/src/varnel.js "$here"/src/*.d.ts "$here/README.md" "$root/LICENSE" "$package/"
sed "s/\"version\": \"0.0.0\"/\"version\": \"$version\"/" "$here/package.json" >"$package/package.json"
(cd "$package" && npm pack --silent --pack-destination "$out" >/dev/null)
ls "$out"/*.tgz
