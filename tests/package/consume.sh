#!/usr/bin/env bash
# Installs the library into a prefix, moves the prefix, and builds and runs a program
# against what lies there then.
#   consume.sh (find_package | pkg-config) BUILD-DIRECTORY COMPILER
set -euo pipefail
way=$1 build=$2 compiler=$3
consumer=$(cd "$(dirname "${BASH_SOURCE[0]}")/consumer" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

cmake --install "$build" --prefix "$scratch/first" >/dev/null
mv "$scratch/first" "$scratch/prefix"
libdir=$(dirname "$(find "$scratch/prefix" -name libkivo.so)")

case $way in
  find_package)
    cmake -S "$consumer" -B "$scratch/build" -DCMAKE_PREFIX_PATH="$scratch/prefix" \
      -DCMAKE_CXX_COMPILER="$compiler" >/dev/null
    cmake --build "$scratch/build" >/dev/null
    program=$scratch/build/consumer
    ;;
  pkg-config)
    export PKG_CONFIG_PATH=$libdir/pkgconfig
    read -ra flags <<<"$(pkg-config --cflags --libs 'kivo >= 3.3')"
    program=$scratch/consumer
    "$compiler" -std=c++17 -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror \
      "$consumer/main.cpp" "${flags[@]}" -o "$program"
    ;;
esac

export LD_LIBRARY_PATH=$libdir
actual=$("$program" --lev=2)
expected=$'level = 2\n2 nothing'
[ "$actual" = "$expected" ] || { echo "printed: $actual"; exit 1; }
status=0
actual=$("$program" --level=3) || status=$?
expected="Value validation problem in argument '--level=3': Option 'level' does not allow value '3'. Possible values follows: '1', '2'"
[ "$status" = 2 ] && [ "$actual" = "$expected" ] || { echo "$status, printed: $actual"; exit 1; }
if grep -rIl "$scratch/first" "$scratch/prefix"; then
  echo "installed files name the place they were installed to"
  exit 1
fi
echo "built and run by $way from a prefix that was moved"
