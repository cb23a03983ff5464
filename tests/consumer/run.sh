#!/usr/bin/env bash
# Installs the build tree $1, moves what was installed elsewhere, and builds a program against it: through CMake, and with the
# flags of pkg-config. Uses the compiler $2.
set -eu
build=$1 compiler=$2
here=$(cd "$(dirname "$0")" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"

cmake --install "$build" --prefix "$scratch/first" >/dev/null
mkdir moved
mv first moved/second
prefix=$scratch/moved/second
if grep -rIl --include='*.cmake' --include='*.pc' -e "$scratch/first" -e "$build" "$prefix"; then
  echo "consumer: the files above name a place that is gone" >&2
  exit 1
fi

echo "consumer: find_package"
cmake -S "$here" -B build -G Ninja -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_BUILD_TYPE=Release
cmake --build build
build/consumer

echo "consumer: pkg-config"
PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name DDB_GeometricAttributes.pc)")
export PKG_CONFIG_PATH
libdir=$(pkg-config --variable=libdir DDB_GeometricAttributes)
# shellcheck disable=SC2046  # the flags are words
"$compiler" "$here/main.cpp" -o with-pkg-config $(pkg-config --cflags --libs DDB_GeometricAttributes) "-Wl,-rpath,$libdir"
./with-pkg-config

if [ -x "$prefix/bin/gattr" ]; then "$prefix/bin/gattr" --help >/dev/null && echo "consumer: gattr runs"; fi
