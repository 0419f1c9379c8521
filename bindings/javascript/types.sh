#!/bin/sh
# Writes the types of what goes in and out as JSON from the schemas: types.sh [--check]
set -eu
here=$(cd "$(dirname "$0")" && pwd)
for name in barcode composition inspection; do
  types=$("$here/../../build/javascript/tools/node_modules/.bin/json2ts" -i "$here/../../docs/$name.schema.json" \
    --additionalProperties=false --maxItems=-1 --bannerComment "// From docs/$name.schema.json, by types.sh.")
  case ${1:-} in
  --check) printf '%s\n' "$types" | diff "$here/src/$name.d.ts" - ;;
  *) printf '%s\n' "$types" >"$here/src/$name.d.ts" ;;
  esac
done
