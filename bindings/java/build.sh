#!/bin/sh
# Builds build/java/varnel.jar and the native library beside it: ./dev java
set -eu
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
out=$root/build/java
rm -rf "$out/classes"
mkdir -p "$out/classes"
cmake -S "$root" -B "$out/work" -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=OFF -DVARNEL_BUILD_CLI=OFF \
  -DVARNEL_BUILD_FACADE=OFF -DVARNEL_INSTALL=OFF >/dev/null
cmake --build "$out/work" --target varnel_documents >/dev/null
javac=$(readlink -f "$(command -v javac)")
home=${javac%/bin/javac}
cc -std=c99 -O2 -fPIC -fvisibility=hidden -shared -Wall -Wextra -I "$root/include" -I "$home/include" \
  -I "$home/include/linux" "$here/src/varnel_jni.c" "$out/work/src/documents/libvarnel_documents.a" \
  "$out/work/src/libvarnel.a" -o "$out/libvarnel_jni.so"
javac --release 17 -Xlint:all -Werror -d "$out/classes" "$here/src/varnel/Varnel.java"
jar --create --file "$out/varnel.jar" -C "$out/classes" .
ls "$out/varnel.jar"
