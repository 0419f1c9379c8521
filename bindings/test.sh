#!/bin/sh
# Builds and tests the packages of all languages: ./dev test bindings
set -eu
cd "$(dirname "$0")"
failed=
for test in python javascript javascript/page java; do
  echo "bindings: testing $test" >&2
  "$test/test.sh" || failed="$failed $test"
done
echo "bindings: testing the cluster sample" >&2
PYTHONPATH=../build/python/site PYTHONDONTWRITEBYTECODE=1 /usr/bin/python3 python/tests/cluster.py || failed="$failed cluster"
[ -z "$failed" ] || {
  echo "bindings: failed:$failed" >&2
  exit 1
}
echo "bindings: all passed" >&2
