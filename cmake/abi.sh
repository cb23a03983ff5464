#!/usr/bin/env bash
# What programs that are compiled already rely on: `abi.sh check BUILD` compares the libraries that BUILD installs with the baseline in
# cmake/abi, `abi.sh write BUILD` writes it. A line that is gone is refused: such a program would not start any more, or would take one
# thing for another. A new line is told. BUILD is one of the preset "release": what a compiler expands depends on how it optimizes.
#
# One file per library: the functions that it exports, and the classes whose type it does. layouts.txt: sizes, bases, members, places of
# virtual functions and values of enumerators, as the installed headers give them, read from debug information by abidw.
set -euo pipefail
cd "$(dirname "$0")/.."
what=$1 build=$2
baseline=$PWD/cmake/abi
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
now=$scratch/now
mkdir "$now"

for component in library session; do cmake --install "$build" --prefix "$scratch/prefix" --component $component >/dev/null; done
pkg=$(find "$scratch/prefix" -name gattr_session.pc)
export PKG_CONFIG_PATH=${pkg%/*} LC_ALL=C
pkg-config --modversion gattr_session | cut -d. -f1,2 >"$now/version.txt"

for library in "$(pkg-config --variable=libdir gattr_session)"/*.so; do
  nm -D --defined-only "$library" | awk '{print $3}' | c++filt |
    sed -E 's/^(vtable|typeinfo|typeinfo name) for /class /; s/^guard variable for //
      s/std::basic_string_view<char, std::char_traits<char> >/std::string_view/g
      s/std::(__cxx11::)?basic_string<char, std::char_traits<char>, std::allocator<char> >/std::string/g
      s/, std::(allocator|less)<[^<>]*(<[^<>]*>)?[^<>]*> ?>/>/g; s/\[abi:cxx11\]//; /::TheSlot\(\)::slot/d' |
    sort -u >"$now/$(basename "$library" .so).txt"
done

cd "$scratch/prefix/include/DDB_GeometricAttributes"
{
  find . -name '*.h' | sort | sed 's|.*|#include "&"|'
  echo 'extern "C" __attribute__((visibility("default"))) int begin(ddr_Model const* model) { return model != nullptr; }'
} >"$scratch/all.cpp"
# Whatever is exported, an installed header declares: each part of each name is a word of theirs.
# shellcheck disable=SC2046  # the flags are words
"${CXX:-c++}" $(pkg-config --cflags gattr_session) -I. -E -P "$scratch/all.cpp" | grep -oE '[A-Za-z_][A-Za-z0-9_]*' | sort -u >"$scratch/declared"
undeclared=0
for file in "$now"/lib*.txt; do
  sed -E 's/^class //; s/ const$//; s/operator *([^a-zA-Z ]+|[a-z]+ ?(\[\])?)?\(/operator_(/; :again; s/<[^<>]*>//g; t again
    s/\(.*//; s/.* //; s/operator_|operator.*//; s/~//g' "$file" | tr -s ':' '\n' | grep -v '^$' | sort -u | comm -23 - "$scratch/declared" >"$scratch/undeclared"
  while read -r name; do
    echo "abi: $(basename "$file" .txt): $name is exported, and no installed header declares it" >&2
    undeclared=1
  done <"$scratch/undeclared"
done
[ $undeclared = 0 ] || exit 1
# shellcheck disable=SC2046
"${CXX:-c++}" $(pkg-config --cflags gattr_session) -I. -g -femit-class-debug-always -fno-eliminate-unused-debug-types -fvisibility=hidden -fPIC \
  -shared -o "$scratch/all.so" "$scratch/all.cpp"
abidw --no-show-locs --no-corpus-path --no-comp-dir-path --no-architecture --load-all-types --out-file "$scratch/all.xml" "$scratch/all.so"
# Read twice: first what a type's number is called, then what is in it. Templates and what has no name are left to those that hold them.
awk -F "'" '
  function attribute(name,  at) { at = index($0, " " name "=\047"); return at ? substr($0, at + length(name) + 3, index(substr($0, at + length(name) + 3), "\047") - 1) : "" }
  function qualified(name,  i, all) { for (i = 1; i <= depth; ++i) { all = all scope[i] "::" } return all name }
  function plain(name) { return name ~ /^([a-z][a-z][a-z]C?_[A-Z]|gattr::)/ && name !~ /__anonymous|[&<]/ }
  FNR == 1 { ++pass; depth = 0 }
  /<(namespace|class|enum|union)-decl / {
    name = qualified(attribute("name"))
    if (attribute("id") != "") { called[attribute("id")] = name }
    if (pass == 2 && plain(name) && attribute("size-in-bits") != "") { print name ": " attribute("size-in-bits") / 8 " bytes" }
    if ($0 !~ /\/>$/) { scope[++depth] = attribute("name") }
    next
  }
  /<\/(namespace|class|enum|union)-decl>/ { --depth; next }
  pass == 1 { next }
  { within = qualified(""); sub(/::$/, "", within); if (!plain(within)) { next } }
  /<base-class / { base = called[attribute("type-id")]; gsub(/&lt;/, "<", base); gsub(/&gt;/, ">", base); print within ": base at " attribute("layout-offset-in-bits") / 8 " " base }
  /<data-member / { offset = attribute("layout-offset-in-bits"); next }
  /<var-decl / && offset != "" { print within ": at " offset / 8 " " attribute("name"); offset = "" }
  /<member-function / { slot = attribute("vtable-offset"); next }
  /<function-decl / && slot != "" { print within ": virtual " slot " " attribute("name"); slot = "" }
  /<enumerator / { print within ": " attribute("name") " = " attribute("value") }
' "$scratch/all.xml" "$scratch/all.xml" | sed 's/&amp;/\&/g' | sort -u -V >"$now/layouts.txt"

if [ "$what" = write ]; then
  rm -rf "$baseline"
  cp -r "$now" "$baseline"
  wc -l "$baseline"/*.txt
  exit
fi
if ! cmp -s "$baseline/version.txt" "$now/version.txt"; then
  echo "abi: the baseline is of version $(cat "$baseline/version.txt") and this is $(cat "$now/version.txt"): write its own with make abi-baseline" >&2
  exit 1
fi
gone=0 new=0
for file in "$baseline"/*.txt "$now"/*.txt; do
  name=$(basename "$file")
  [ "$file" = "$now/$name" ] && [ -e "$baseline/$name" ] && continue
  touch "$now/$name" "$scratch/none"
  before=$baseline/$name
  [ -e "$before" ] || before=$scratch/none
  comm -23 <(sort "$before") <(sort "$now/$name") >"$scratch/gone"
  comm -13 <(sort "$before") <(sort "$now/$name") >"$scratch/new"
  sed "s/^/abi: ${name%.txt}: gone: /" "$scratch/gone" >&2
  sed "s/^/abi: ${name%.txt}: new: /" "$scratch/new"
  gone=$((gone + $(wc -l <"$scratch/gone"))) new=$((new + $(wc -l <"$scratch/new")))
done
if [ $gone -gt 0 ]; then
  echo "abi: $gone lines of the baseline are gone: programs that were compiled before need to be compiled again (docs/versions.md)" >&2
  exit 1
fi
echo "abi: all that was exported is there as it was; $new lines are new: clean"
