#!/usr/bin/env bash
# Lists the C++ files of the project, tracked or new, each once; folders as arguments narrow it.
set -eu
cd "$(dirname "$0")/.."
git ls-files --cached --others --exclude-standard -- "$@" | sort -u | while read -r file; do
  case "$file" in *.h | *.cpp) [ ! -f "$file" ] || echo "$file" ;; esac
done
