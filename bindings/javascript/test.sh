#!/bin/sh
# Builds the package, installs it into a folder of its own and tests what is in it, with node; then checks the
# types against the schema and with the TypeScript compiler.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
package=$("$here/build.sh")
out=$(cd "$here/../../build/javascript" && pwd)
mkdir -p "$out/tools" "$out/site"
cp "$here/tests/package.json" "$here/tests/package-lock.json" "$out/tools/"
(cd "$out/tools" && npm ci --silent --no-audit --no-fund)
cp "$here"/tests/* "$out/site/"
rm -rf "$out/site/node_modules"
(cd "$out/site" && npm install --silent --no-save --no-package-lock --no-audit --no-fund --offline "$package")
VARNEL_ROOT=$here/../.. node --test "$out/site/varnel.test.js"
cp "$here/../../samples/bindings/inspect_zone.mjs" "$out/site/"
node "$out/site/inspect_zone.mjs" | diff "$here/../../samples/bindings/inspect_zone.out" -
"$here/types.sh" --check
(cd "$out/site" && "$out/tools/node_modules/.bin/tsc" --noEmit --strict --target es2022 --module nodenext \
  --moduleResolution nodenext types.ts)
