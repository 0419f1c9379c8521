#!/bin/sh
# Builds the page into build/page: static files, to be served from any folder of any web server (./dev page)
set -eu
here=$(cd "$(dirname "$0")" && pwd)
"$here/../build.sh" >/dev/null
root=$(cd "$here/../../.." && pwd)
out=$root/build/page
rm -rf "$out"
mkdir -p "$out"
cp "$here/index.html" "$here/page.css" "$here/page.js" "$here/words.js" "$out/"
cp "$root/build/javascript/package/varnel.js" "$root/build/javascript/package/wasm.js" "$out/"
{
  printf '// What the findings of a barcode mean, from docs/barcode.schema.json.\nexport default '
  node -p 'JSON.stringify(Object.fromEntries(JSON.parse(require("fs").readFileSync(process.argv[1], "utf8"))
    .properties.findings.items.properties.code.oneOf.map((each) => [each.const, each.description])))' \
    "$root/docs/barcode.schema.json"
} >"$out/licence_findings.js"
ls "$out/index.html"
