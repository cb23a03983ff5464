#!/usr/bin/env bash
# Lists the C++ files of the folders given, by default of all that hold code of ours.
set -eu
cd "$(dirname "$0")/.."
[ $# -gt 0 ] || set -- platform framework module text store command embed report cli python tests benchmarks examples
find "$@" \( -name '*.h' -o -name '*.cpp' \) 2>/dev/null | LC_ALL=C sort
