#!/usr/bin/env bash
# Builds programs in C++17 and C++20 that use the library in one of the ways in which a project can
# use it, with warnings as errors, and runs them.
#   consume.sh (find_package | pkg-config) COMPILER PREFIX
#   consume.sh (add_subdirectory | FetchContent) COMPILER SOURCE-DIRECTORY BUILD-DIRECTORY
# Exits with 77 if the compiler is not installed. The build directory can be used again: the library
# is built in it only once.
set -euo pipefail
way=$1 compiler=$2 place=$3
consumer=$(cd "$(dirname "${BASH_SOURCE[0]}")/consumer" && pwd)
warnings="-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Werror"
command -v "$compiler" >/dev/null || { echo "$compiler is not installed"; exit 77; }
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

fail() { echo "$*"; exit 1; }

# Runs a step and shows its output only if it fails.
quietly() { "$@" >"$scratch/log" 2>&1 || { cat "$scratch/log"; fail "failed: $*"; }; }

buildByCMake() {
  local directory=$1
  shift
  quietly cmake -S "$consumer" -B "$directory" -DWAY="$way" -DCMAKE_CXX_COMPILER="$compiler" \
    -DWARNINGS="$warnings" "$@"
  ! grep -A 5 'CMake.*Warning' "$scratch/log" || fail "configuring drew a warning"
  quietly cmake --build "$directory" --parallel 2
  programs=$directory
}

buildByPkgConfig() {
  local libdir standard flags
  libdir=$(dirname "$(find "$place" -name libkivo.so)")
  export PKG_CONFIG_PATH=$libdir/pkgconfig LD_LIBRARY_PATH=$libdir
  eval "flags=($warnings $(pkg-config --cflags --libs 'kivo >= 3.3'))"  # pkg-config quotes blanks
  for standard in 17 20; do
    quietly "$compiler" -O2 "-std=c++$standard" "$consumer/main.cpp" "${flags[@]}" \
      -o "$scratch/$way-$standard"
  done
  programs=$scratch
}

# Runs a program and checks its exit status and output.
check() {
  local expectedStatus=$1 expected=$2 status=0 actual
  shift 2
  actual=$("$@") || status=$?
  [ "$status" = "$expectedStatus" ] && [ "$actual" = "$expected" ] ||
    fail "$* ended with $status and printed: $actual"
}

case $way in
  find_package)
    buildByCMake "$scratch/build" -DCMAKE_PREFIX_PATH="$place" -DCMAKE_BUILD_TYPE=Release ;;
  pkg-config)
    buildByPkgConfig ;;
  add_subdirectory | FetchContent)
    buildByCMake "$4" -DKIVO_SOURCE_DIR="$place" -DCMAKE_BUILD_TYPE=Debug \
      -DCMAKE_CXX_FLAGS_DEBUG=-O0 ;;
  *)
    fail "no such way: $way" ;;
esac

# Checks the order in which the dynamic linker searches the libraries; cmake/kivo.pc.in says why.
checkOrder() {
  local order
  order=$(readelf --dynamic "$1" | grep -oE 'lib(stdc\+\+|kivo)\.so' | paste -sd ' ')
  [ "$order" = "libstdc++.so libkivo.so" ] || fail "$1 loads in the order: $order"
}

for standard in 17 20; do
  checkOrder "$programs/$way-$standard"
  check 0 $'level = 2\n2 nothing\n4\nmore!' "$programs/$way-$standard" --lev=2 -- more
  check 2 "Value validation problem in argument '--level=3': Option 'level' does not allow value '3'. Possible values follows: '1', '2'" \
    "$programs/$way-$standard" --level=3
done
echo "built with $compiler and run, by way of $way"
