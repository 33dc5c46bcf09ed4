#!/usr/bin/env bash
# Compares the layout of the records of the interface, and its numbers, with what is promised on
# Linux for processors of the compiler's kind. With KIVO_RENEW=1 it writes the promise first: read
# its diff.
#   layout.sh SOURCE-DIRECTORY COMPILER [EMULATOR ...]
set -euo pipefail
source=$1 compiler=$2 emulator=("${@:3}")
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# Within a record, 32-bit x86 aligns numbers of 64 bits to 4 bytes; the other processors to 8.
case $("$compiler" -dM -E -x c++ /dev/null) in
  *__LP64__*) promised=layout.64-bit.txt ;;
  *__i386__*) promised=layout.i686.txt ;;
  *) promised=layout.32-bit.txt ;;
esac

# The program calls nothing of the library and is linked without it. An emulator need not find the
# libraries of its processor.
"$compiler" -std=c++17 -fno-access-control -Wno-invalid-offsetof -I"$source/include" \
  -I"$source/platform/stratum2/include" -I"$source/platform/bedrock/include" \
  ${emulator[0]:+-static} "$here/layout.cpp" -o "$scratch/layout"
"${emulator[@]}" "$scratch/layout" >"$scratch/actual"
if [ "${KIVO_RENEW:-}" = 1 ]; then
  cp "$scratch/actual" "$here/$promised"
fi
diff -u "$here/$promised" "$scratch/actual" &&
  echo "$(wc -l <"$here/$promised") lines of $(basename "$compiler"), as promised in $promised"
