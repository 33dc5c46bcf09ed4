#!/usr/bin/env bash
# Compares the symbols that the shared library exports with the promised list. With KIVO_RENEW=1 it
# writes the list first: read its diff. A symbol outside of our namespaces, such as an instance of a
# standard template, fails in both cases.
#   exported_symbols.sh LIBRARY LIST
set -euo pipefail
library=$1 list=$2

exported() {
  nm --dynamic --defined-only --extern-only "$library" | awk '{ print $3 }' | LC_ALL=C sort
}

foreign() {
  exported | c++filt |
    grep -Ev '^((vtable|typeinfo|typeinfo name) for )?(kivo_3_3|stratum2|BEDROCK)::' || true
}

if [ -n "$(foreign)" ]; then
  echo "exported, and not ours:"
  foreign
  exit 1
fi
if [ "${KIVO_RENEW:-}" = 1 ]; then
  exported >"$list"
fi
exported | diff -u "$list" - && echo "$(wc -l <"$list") symbols, as promised"
