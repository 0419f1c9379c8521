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
# For size: optimised as a whole when it is linked and once more after it, with memory instructions that every engine
# has that knows top-level await. (The linking clang is given no level, or it would call wasm-opt without these features.)
flags="--target=wasm32-wasi -Oz -flto -mbulk-memory -msign-ext -I $root/include -I $root/src -I $root/bindings
  -DVARNEL_STATIC"
objects=
for source in "$here/src/varnel.c" $(find "$root/src" -name '*.cpp' | sort); do
  object=$out/$(printf '%s' "${source#"$root"/}" | tr '/' '_').o
  # shellcheck disable=SC2086 # a list of words, here and below
  case $source in
  *.c) clang $flags -std=c99 -c "$source" -o "$object" ;;
  *) clang++ $flags -std=c++17 -fno-exceptions -fno-rtti -fno-threadsafe-statics -c "$source" -o "$object" ;;
  esac
  objects="$objects $object"
done
# shellcheck disable=SC2086
clang --target=wasm32-wasi -flto -nostartfiles $objects -Wl,--no-entry -Wl,--gc-sections -Wl,--strip-all \
  -Wl,-z,stack-size=65536 -o "$out/linked.wasm"
wasm-opt -Oz --enable-bulk-memory --enable-sign-ext "$out/linked.wasm" -o "$out/varnel.wasm"
{
  printf '// The libraries as WebAssembly, in base64.\nexport default "'
  base64 -w0 "$out/varnel.wasm"
  printf '";\n'
} >"$package/wasm.js"
cp "$here"/src/varnel.js "$here"/src/*.d.ts "$here/README.md" "$root/LICENSE" "$package/"
sed "s/\"version\": \"0.0.0\"/\"version\": \"$version\"/" "$here/package.json" >"$package/package.json"
(cd "$package" && npm pack --silent --pack-destination "$out" >/dev/null)
ls "$out"/*.tgz
