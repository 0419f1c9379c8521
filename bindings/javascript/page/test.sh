#!/bin/sh
# Builds the page and uses it as a person would, in Debian's Chromium.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
"$here/build.sh" >/dev/null
out=$(cd "$here/../../../build" && pwd)
tools=$out/javascript/tools
mkdir -p "$tools"
cp "$here/../tests/package.json" "$here/../tests/package-lock.json" "$tools/"
(cd "$tools" && npm ci --silent --no-audit --no-fund)
VARNEL_PAGE=$out/page VARNEL_TOOLS=$tools node --test "$here/page.test.js"
