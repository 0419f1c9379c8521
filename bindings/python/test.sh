#!/bin/sh
# Builds the wheel, unpacks it into a folder of its own and tests what is in it: unit tests, the examples in the
# docstrings, and the types with mypy.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
wheel=$("$here/build.sh")
site=$here/../../build/python/site
rm -rf "$site"
/usr/bin/python3 -m zipfile -e "$wheel" "$site"
site=$(cd "$site" && pwd)
cd "$here"
export PYTHONPATH="$site" PYTHONDONTWRITEBYTECODE=1
/usr/bin/python3 -m unittest discover -s tests
/usr/bin/python3 ../../samples/bindings/inspect_zone.py | diff ../../samples/bindings/inspect_zone.out -
/usr/bin/python3 -c 'import doctest, sys, varnel
failed, tried = doctest.testmod(varnel)
print(f"{tried} examples in docstrings, {failed} failed")
sys.exit(failed or not tried)'
/usr/bin/python3 -m mypy --cache-dir "$site/../mypy" --strict "$site/varnel" tests
