#!/usr/bin/env bash
# Compares the layout of the records of the interface, and its numbers, with what is promised on
# 64-bit Linux. With KIVO_RENEW=1 it writes the promise first: read its diff.
#   layout.sh SOURCE-DIRECTORY LIST COMPILER
set -euo pipefail
source=$1 list=$2 compiler=$3
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# The program calls nothing of the library and is linked without it.
"$compiler" -std=c++17 -fno-access-control -Wno-invalid-offsetof -I"$source/include" \
  -I"$source/platform/stratum2/include" -I"$source/platform/bedrock/include" \
  "$here/layout.cpp" -o "$scratch/layout"
"$scratch/layout" >"$scratch/actual"
if [ "${KIVO_RENEW:-}" = 1 ]; then
  cp "$scratch/actual" "$list"
fi
diff -u "$list" "$scratch/actual" && echo "$(wc -l <"$list") lines of $(basename "$compiler"), as promised"
