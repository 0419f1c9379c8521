#!/bin/sh
# Builds the wheel into build/python, with Debian's tools and without network: ./dev python
set -eu
cd "$(dirname "$0")"
out=$(cd ../.. && pwd)/build/python
mkdir -p "$out"
rm -f "$out"/*.whl
/usr/bin/python3 setup.py -q egg_info --egg-base "$out" build --build-base "$out/work" \
  --build-temp "$out/work/temp" bdist_wheel -d "$out" >"$out/log.txt" 2>&1 || {
  cat "$out/log.txt" >&2
  exit 1
}
ls "$out"/*.whl
