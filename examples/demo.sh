#!/usr/bin/env bash
# Replays the examples, prints their histories, shows a refusal. Leaves build/demo/forming.gadb. GATTR names another program.
set -eu
cd "$(dirname "$0")/.."
gattr=${GATTR:-$(command -v gattr || echo build/release/bin/gattr)}
out=build/demo
mkdir -p "$out"
rm -f "$out"/*.gadb

bold='' plain=''
if [ -t 1 ] && [ -z "${NO_COLOR:-}" ]; then bold=$'\e[1m' plain=$'\e[0m'; fi
say() { printf '\n%s%s%s\n\n' "$bold" "$1" "$plain"; }
run() { printf '$ gattr %s\n' "$*"; "$gattr" "$@"; }

say "A forming sequence: what everything does in every step."
run replay examples/forming.jsonl -o "$out/forming.gadb"
run history "$out/forming.gadb"

say "Frequencies and modal steps on a pre-stressed state."
run replay examples/prestressed_modes.jsonl -o "$out/prestressed_modes.gadb"
run history "$out/prestressed_modes.gadb"

say "Loads: bolts that keep their length under pressure, and a step that looks at them in the base state."
run replay examples/bolted_flange.jsonl -o "$out/bolted_flange.gadb"
run history "$out/bolted_flange.gadb"

say "An edit that makes no sense is refused, by number, and changes nothing."
edit='{"command": "move", "boundaryCondition": "Punch", "fromStepName": "Draw-1", "toStepName": "Retract"}'
printf "$ echo '%s' | gattr replay --on %s -\n" "$edit" "$out/forming.gadb"
status=0
echo "$edit" | "$gattr" replay --on "$out/forming.gadb" - 2>&1 || status=$?
echo "(exit status $status)"

say "The model is in $out/forming.gadb. Go on with: gattr --help"
