#!/usr/bin/env bash
# Gives each fuzz target a time to make inputs of its own from those in tests/fuzz/corpus: fuzz.sh [seconds each]. What it learns stays in
# build/fuzz/corpus, for the next time; an input that ends a target is left in build/fuzz/found, and told.
set -uo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
build=build/fuzz
export TMPDIR=${TMPDIR:-/dev/shm}  # the model files are small and many
[ -w "$TMPDIR" ] || unset TMPDIR

failed=0
for corpus in tests/fuzz/corpus/*; do
  target=${corpus##*/}
  learned=$build/corpus/$target
  found=$build/found/$target-
  mkdir -p "$learned" "${found%/*}"
  log=$build/$target.log
  if "$build/bin/fuzz_$target" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=2048 -max_len=8192 -artifact_prefix="$found" \
    -print_final_stats=1 -entropic=0 "$learned" "$corpus" >"$log" 2>&1; then
    awk -v target="$target" '/^stat::number_of_executed_units/ {units = $2} /^stat::new_units_added/ {added = $2}
      END {printf "%s: %d inputs, %d of them new ground\n", target, units, added}' "$log"
  else
    failed=1
    echo "$target: an input ends it ($log):"
    grep -E 'ERROR|runtime error|SUMMARY|Test unit written|what was|has changed' "$log" | head -n 5
  fi
done
exit $failed
