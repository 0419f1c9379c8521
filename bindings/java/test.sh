#!/bin/sh
# Builds the binding and runs its tests (JUnit 4).
set -eu
here=$(cd "$(dirname "$0")" && pwd)
jar=$("$here/build.sh")
out=$(dirname "$jar")
junit=/usr/share/java/junit4.jar:/usr/share/java/hamcrest-core.jar
mkdir -p "$out/tests"
javac --release 17 -cp "$jar:$junit" -d "$out/tests" "$here"/tests/*.java
javac --release 17 -cp "$jar" -d "$out/tests" "$here/../../samples/bindings/ParseZone.java"
java -Djava.library.path="$out" -cp "$jar:$out/tests" ParseZone | diff "$here/../../samples/passport.out" -
java -Dvarnel.root="$here/../.." -Djava.library.path="$out" -Xcheck:jni -cp "$jar:$out/tests:$junit" \
  org.junit.runner.JUnitCore VarnelTest
