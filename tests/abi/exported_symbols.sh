#!/usr/bin/env bash
# Compares what the shared library exports with the list that is promised; with
# KIVO_RENEW=1 it writes the list instead, to be read in the diff. A symbol from outside
# our namespaces, an instance of a standard template say, is refused either way.
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
