#!/usr/bin/env bash
# Builds the library without and with optimization, and optimized as a whole, and holds
# the symbols that each exports against the one list.
#   exported_symbols_any_build.sh SOURCE-DIRECTORY LIST COMPILER
set -euo pipefail
source=$1 list=$2 compiler=$3
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
. "$here/library_build.sh"

unset KIVO_RENEW  # the list is written from the ordinary build
for flags in "-O0" "-O2" "-O2 -flto"; do
  build="$scratch/build${flags// /}"
  buildLibrary "$source" "$build" "$compiler" "$flags"
  printf '%-10s ' "$flags:"
  "$here/exported_symbols.sh" "$build/src/libkivo.so" "$list"
done
