#!/usr/bin/env bash
# Builds the library without optimization, with optimization, and with LTO, and compares the
# exported symbols of each build with the same list.
#   exported_symbols_any_build.sh SOURCE-DIRECTORY LIST COMPILER
set -euo pipefail
source=$1 list=$2 compiler=$3
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
. "$here/library_build.sh"

unset KIVO_RENEW  # only the ordinary build may write the list
for flags in "-O0" "-O2" "-O2 -flto"; do
  build="$scratch/build${flags// /}"
  buildLibrary "$source" "$build" "$compiler" "$flags"
  printf '%-10s ' "$flags:"
  "$here/exported_symbols.sh" "$build/src/libkivo.so" "$list"
done
