#!/usr/bin/env bash
# Lists the C++ files of the folders given, by default of all that hold code of ours.
set -eu
cd "$(dirname "$0")/.."
[ $# -gt 0 ] || set -- platform framework module store command report cli python tests benchmarks examples
find $(ls -d "$@" 2>/dev/null) -name '*.h' -o -name '*.cpp' | LC_ALL=C sort
