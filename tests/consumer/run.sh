#!/usr/bin/env bash
# Installs the build tree $1, moves what was installed elsewhere, and builds programs against it: through CMake, and with the
# flags of pkg-config. Uses the compiler $2.
set -eu
build=$1 compiler=$2
here=$(cd "$(dirname "$0")" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"
fail() { echo "consumer: $*" >&2; exit 1; }

cmake --install "$build" --prefix "$scratch/first" >/dev/null
cmake --install "$build" --prefix "$scratch/alone" --component library >/dev/null
mkdir moved
mv first moved/second
prefix=$scratch/moved/second
if grep -rIl --include='*.cmake' --include='*.pc' -e "$scratch/first" -e "$build" "$prefix"; then fail "the files above name a place that is gone"; fi
tools=$(find "$prefix" -name 'libgattr_session.so')

configure() { # folder, prefix, components
  cmake -S "$here" -B "$1" -G Ninja -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_PREFIX_PATH="$2" -DCMAKE_BUILD_TYPE=Release "-Dcomponents=$3"
}
refused() { # reason, then as configure
  local reason=$1
  shift
  if configure "$@" >refused.log 2>&1; then fail "components \"$3\" should not be found"; fi
  grep -qF "refused: $reason" refused.log || { cat refused.log; fail "the reason is another than: $reason"; }
}

echo "consumer: find_package"
configure build "$prefix" "${tools:+session}"
cmake --build build
build/consumer

echo "consumer: what is missing is told"
refused 'There is no component "sessions"; there is "session".' unknown "$prefix" "sessions"
refused 'The component "session" is not installed here' missing "$scratch/alone" "session"
configure alone-too "$scratch/alone" "" >/dev/null

echo "consumer: pkg-config"
PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name DDB_GeometricAttributes.pc)")
export PKG_CONFIG_PATH
libdir=$(pkg-config --variable=libdir DDB_GeometricAttributes)
with_pkg_config() { # package, source
  local name=${2##*/}
  # shellcheck disable=SC2046  # the flags are words
  "$compiler" "$here/$2.cpp" -o "$name" -H $(pkg-config --cflags --libs "$1") "-Wl,-rpath,$libdir" 2>"$name.headers" ||
    { cat "$name.headers"; exit 1; }
  if grep -iE '^\.+ .*(sqlite|nlohmann|/fmt/|cli11)' "$name.headers"; then fail "its users need these headers"; fi
  grep -q "^\.* $prefix/" "$name.headers" || fail "no header is the installed one"
  "./$name"
}
with_pkg_config DDB_GeometricAttributes main
if [ -n "$tools" ]; then
  with_pkg_config gattr_session session
  with_pkg_config gattr_session ../../examples/embed >said
  grep -qx "Stamp in Form: status 3, u2 = -12" said || { cat said; fail "examples/embed.cpp says something else"; }
  build/session
  "$prefix/bin/gattr" --help >/dev/null && echo "consumer: gattr runs"
fi

# Exported is nothing of the standard library, of packages inside, or of functions' own function objects.
for library in "$libdir"/*.so; do
  nm -D --defined-only "$library" | awk '{print $3}' >exported
  [ -s exported ] || fail "$library exports nothing"
  if grep -E '^_Z(GV)?Z?(T[ISV])?Z?N?K?(St|S[abdios])|nlohmann|sqlite|EUl|ENKUl' exported; then fail "${library##*/} exports the above"; fi
done
echo "consumer: exports are the library's own"
