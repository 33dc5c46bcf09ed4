#!/usr/bin/env bash
# Links a release of the library with each linker that is installed, and compares the exported
# symbols with the same list. Where a linker cannot link what the compiler makes, configuration must say so.
#   linkers.sh SOURCE-DIRECTORY LIST COMPILER
set -euo pipefail
source=$1 list=$2 compiler=$3
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
unset KIVO_RENEW  # only the ordinary build may write the list

configure() {
  local linker=$1
  shift
  cmake -S "$source" -B "$scratch/build" -DCMAKE_CXX_COMPILER="$compiler" -DBUILD_TESTING=OFF \
    -DCMAKE_BUILD_TYPE=Release -DKIVO_BUILD_EXAMPLES=OFF -DKIVO_BUILD_DESCRIBE=OFF \
    -DCMAKE_SHARED_LINKER_FLAGS="-fuse-ld=$linker" "$@" >"$scratch/log" 2>&1
}

# The same build folder serves all linkers, so that objects are compiled again only for lld, which
# comes last.
for linker in bfd gold mold lld; do
  command -v "ld.$linker" >/dev/null || { echo "$linker: not installed"; continue; }
  { configure "$linker" && cmake --build "$scratch/build" --target kivo --parallel 2; } \
    >>"$scratch/log" 2>&1 || { cat "$scratch/log"; exit 1; }
  printf '%-5s ' "$linker:"
  "$here/exported_symbols.sh" "$scratch/build/src/libkivo.so" "$list"
done

if "$compiler" --version | grep -qi 'free software foundation' && command -v ld.lld >/dev/null; then
  for setting in -DCMAKE_INTERPROCEDURAL_OPTIMIZATION=ON -DCMAKE_CXX_FLAGS=-flto; do
    if configure lld "$setting"; then
      echo "$setting: lld is accepted, which links an empty library"
      exit 1
    fi
    grep -q 'lld cannot link what g++ makes with LTO' "$scratch/log"
    rm -rf "$scratch/build"
  done
  echo "lld with LTO: refused"
fi
