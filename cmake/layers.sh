#!/usr/bin/env bash
# Refuses an include that points up, or across from one attribute family to another. Includes are written from the root.
set -eu
cd "$(dirname "$0")/.."

base="platform/CoreUtils platform/BasicUtils"
library="platform framework"
kpr="$library module/kpr/Types.h module/kpr/kprC_Names.h module/kpr/kprC_assert.h"
tools="$library module text store command"
# Room: the rooms or headers that it may include beside itself. The longest room that a file lies in counts.
rooms="
platform/CoreUtils:
platform/BasicUtils: platform/CoreUtils
platform/CaeUtils: $base
platform/CoreGeometry: $base platform/CaeUtils
platform/NonGeometricAttributes: $base platform/CaeUtils
platform/ModelServices: $base
framework: platform
module: $library module
module/kpr: $library
module/kpr/engine: $kpr
module/kpr/procedures: $kpr module/kpr/engine
module/kpr/family: $kpr module/kpr/engine module/kpr/procedures
module/kpr/records: $kpr module/kpr/engine
module/kpr/steps: $kpr module/kpr/engine module/kpr/procedures module/kpr/records
module/kpr/mesh: $kpr module/kpr/engine module/kpr/procedures module/kpr/family
module/kpr/model: $kpr module/kpr/engine module/kpr/procedures module/kpr/records module/kpr/steps
module/kbc: $library module/kpr
module/klo: $library module/kpr
module/kin: $library module/kpr
module/kor: $library module/kpr
module/kpf: $library module/kpr
module/kse: $library
module/pto: $library
module/kco: $library
module/kef: $library
module/kad: $library
module/kar: $library
module/kfd: $library
module/kcn: $library
module/utf: $library
text: platform
store: $library module/kpr/engine text
command: $library module text store
embed: $tools
report: $tools
cli: $tools report
python: $tools report
"

cmake/sources.sh platform framework module text store command embed report cli python | xargs grep -nH '^ *# *include *"' | awk -v rooms="$rooms" '
  function inside(path, room) { return path == room || index(path, room "/") == 1 }
  function room_of(path,  room, best) {
    for (room in allowed) { if (inside(path, room) && length(room) > length(best)) { best = room } }
    return best
  }
  BEGIN {
    count = split(rooms, lines, "\n")
    for (i = 1; i <= count; ++i) { if (split(lines[i], part, ":") > 1) { allowed[part[1]] = part[1] part[2] } }
  }
  {
    split($0, place, ":")
    split($0, quoted, "\"")
    room = room_of(place[1])
    ok = 0
    size = split(allowed[room], may, " ")
    for (i = 1; i <= size; ++i) { ok = ok || inside(quoted[2], may[i]) }
    if (!ok) { printf "%s:%s: %s may not include \"%s\"\n", place[1], place[2], room, quoted[2]; bad = 1 }
  }
  END { exit bad }'
echo "layers: all includes point down"
