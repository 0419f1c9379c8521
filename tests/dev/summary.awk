# One sentence of the results that ctest wrote as JUnit XML: how many tests passed, failed and were skipped, which
# and why, and how long it took. Exit code 1 when one failed, or when there is no result at all.

/<testcase name="/ {
  name = $0
  sub(/.*<testcase name="/, "", name)
  sub(/".*/, "", name)
  if ($0 ~ /status="run"/) passed++
  else if ($0 ~ /status="fail"/) failed = failed (failures++ ? ", " : "") name
  is_skipped = $0 !~ /status="(run|fail)"/
}
# Tests say "skipped: REASON"; GoogleTest says where it skipped, and why in the line after that.
is_skipped && /<skipped message="SKIP_/ { skips++; skipped = skipped (skips > 1 ? ", " : "") name; next }
is_skipped && /<skipped message="/ { failed = failed (failures++ ? ", " : "") name " (not run)"; is_skipped = 0 }
is_skipped && reason_follows { skipped = skipped ": " $0; is_skipped = reason_follows = 0 }
is_skipped && /skipped: / { sub(/.*skipped: /, ""); skipped = skipped ": " $0; is_skipped = 0 }
is_skipped && /: Skipped$/ { reason_follows = 1 }

END {
  printf "./dev: %d tests passed, %d failed%s, %d skipped%s, in %d seconds\n", passed, failures,
    failures ? " (" failed ")" : "", skips, skips ? " (" skipped ")" : "", seconds
  exit failures > 0 || passed == 0
}
