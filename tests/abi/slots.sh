#!/usr/bin/env bash
# Compares the order and number of the virtual functions of the interfaces, as the compiler dumps
# them, with what is promised. With KIVO_RENEW=1 it writes the promise first: read its diff. A
# destructor takes two slots.
#   slots.sh SOURCE-DIRECTORY LIST COMPILER
set -euo pipefail
source=$1 list=$2 compiler=$3
probe=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/slots.cpp
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

compile() {
  "$compiler" -std=c++17 -I"$source/include" -I"$source/platform/stratum2/include" \
    -I"$source/platform/bedrock/include" "$probe" "$@"
}

# Prints "CLASS OWNER::FUNCTION" for each slot, without the entries before the first slot.
dumpedByGcc() {
  compile -fsyntax-only -fdump-lang-class="$scratch/dump"
  sed -E 's/\(int \(\*\)\(\.\.\.\)\)//' "$scratch/dump" | awk '
    /^Vtable for / { class = $3; next }
    /^$/ { class = "" }
    class != "" && /^[0-9]/ && $2 != "0" && $2 !~ /^\(&/ { print class, $2 }'
}

dumpedByClang() {
  compile -S -o /dev/null -Xclang -fdump-vtable-layouts >"$scratch/dump"
  awk -v quote="'" '
    /^Vtable for / { split($0, parts, quote); class = parts[2]; next }
    /^$/ { class = "" }
    class != "" && $2 == "|" && !/ offset_to_top \(0\)$/ && !/ RTTI$/ {
      sub(/^[^|]*\| /, ""); sub(/\(.*/, ""); sub(/.*[ *&]/, ""); print class, $0 }' "$scratch/dump"
}

listed() {
  local interface
  for interface in EventHandler IParser IOption IParseResult; do
    awk -v interface=$interface '
      BEGIN { probe = interface "Probe" }
      $1 == probe {
        sub("kivo_3_3::", "", $2); sub("^" probe "::", "", $2); sub("^~.*", "(destructor)", $2)
        slots[count++] = $2
      }
      END {
        print interface ", " count + 0 " slots"
        for (i = 0; i < count; ++i) print "  " i " " slots[i]
      }' "$1"
  done
}

if "$compiler" -dM -E -x c++ /dev/null | grep -w __clang__ >/dev/null; then
  dumpedByClang >"$scratch/slots"
else
  dumpedByGcc >"$scratch/slots"
fi
if [ "${KIVO_RENEW:-}" = 1 ]; then
  listed "$scratch/slots" >"$list"
fi
listed "$scratch/slots" | diff -u "$list" - && echo "the slots of $(basename "$compiler") are those promised"
