#!/usr/bin/env bash
# Runs clang-tidy over the layers, with the compile commands of the build tree $1, JOBS units at a time: files that compile as one
# unit are looked at as one. A unit found clean is left alone until its preprocessed text, with the headers that it includes, or
# .clang-tidy changes.
set -eu
cd "$(dirname "$0")/.."
export build=$1
mkdir -p "$build/tidy"

tidy_one() {
  local key
  key=$({ cat .clang-tidy && g++ -std=c++20 -I. -E -C "$1"; } | sha256sum | cut -d' ' -f1)
  [ ! -e "$build/tidy/$key" ] || return 0
  if clang-tidy -p "$build" --quiet "$1" 2>/dev/null; then touch "$build/tidy/$key"; else echo "lint: $1 is not clean"; return 1; fi
}
export -f tidy_one

files=$(sed -n 's/^ *"file": "\(.*\)"$/\1/p' "$build/compile_commands.json" | grep -vE "^$PWD/(tests|benchmarks|examples)/|/tests/CMakeFiles/|verify_interface" | LC_ALL=C sort -u)
echo "$files" | xargs -P "${JOBS:-2}" -I{} bash -c 'tidy_one {}'
echo "lint: $(echo "$files" | wc -l) units clean"
