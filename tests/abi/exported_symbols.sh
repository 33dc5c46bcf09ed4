#!/usr/bin/env bash
# Compares what the shared library exports with the list that is promised; with
# KIVO_RENEW=1 it writes the list instead, to be read in the diff.
#   exported_symbols.sh LIBRARY LIST
set -euo pipefail

exported() { nm --dynamic --defined-only --extern-only "$1" | awk '{ print $3 }' | LC_ALL=C sort; }

if [ "${KIVO_RENEW:-}" = 1 ]; then
  exported "$1" >"$2"
fi
exported "$1" | diff -u "$2" - && echo "$(wc -l <"$2") symbols, as promised"
