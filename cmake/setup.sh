#!/usr/bin/env bash
# Installs the Debian packages that the build and its tests need, with "python" those of the Python module and its tests, with "checks"
# those of format, lint, documentation and the second compiler, with "browser" what reports are tried in, with "fuzz" the fuzz targets'
# runtime, with "abi" what reads the layout of types. Silent where nothing is missing.
set -eu
case "${1:-build}" in
  build) packages=(g++ cmake ninja-build pkg-config git ccache
    libgtest-dev libgmock-dev libbenchmark-dev
    libsqlite3-dev nlohmann-json3-dev libcli11-dev libfmt-dev libedit-dev) ;;
  python) packages=(python3 python3-dev python3-venv pybind11-dev mypy python3-numpy python3-pandas python3-jsonschema) ;;
  checks) packages=(clang clang-format clang-tidy doxygen) ;;
  browser) packages=(python3 chromium fonts-dejavu-core) ;;
  fuzz) packages=(clang libclang-rt-dev) ;;
  abi) packages=(abigail-tools) ;;
  *) echo "setup: build, python, checks, browser, fuzz or abi, not $1" >&2; exit 2 ;;
esac

if ! command -v dpkg-query >/dev/null; then
  echo "setup: not a Debian system; provide what these packages hold: ${packages[*]}" >&2
  exit 0
fi
missing=()
for package in "${packages[@]}"; do
  state=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) || state=none
  [ "$state" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  if ! sudo -n true 2>/dev/null; then
    echo "setup: these packages are missing, and there is no permission to install them. As root, run:" >&2
    echo "  apt-get install ${missing[*]}" >&2
    exit 1
  fi
  as_root=(sudo -n)
fi
echo "setup: installing ${missing[*]}"
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
