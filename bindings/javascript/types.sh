#!/bin/sh
# Writes src/inspection.d.ts from the schema: types.sh [--check]
set -eu
here=$(cd "$(dirname "$0")" && pwd)
schema=$here/../../docs/inspection.schema.json
types=$("$here/../../build/javascript/tools/node_modules/.bin/json2ts" -i "$schema" --additionalProperties=false \
  --maxItems=-1 --bannerComment "// From docs/inspection.schema.json, by types.sh.")
case ${1:-} in
--check) printf '%s\n' "$types" | diff "$here/src/inspection.d.ts" - ;;
*) printf '%s\n' "$types" >"$here/src/inspection.d.ts" ;;
esac
