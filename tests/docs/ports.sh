#!/usr/bin/env bash
# Checks the ports without building them: each has its files and its row of figures, its patches name
# files of the tool alone, and the shell finds no mistake in scripts/ports and the recipes.
#   ports.sh SOURCE-DIRECTORY
set -euo pipefail
cd "$1"
failures=0
complain() { echo "$*" >&2; failures=$((failures + 1)); }

ports=0
for folder in examples/ports/*/; do
  ports=$((ports + 1))
  name=$(basename "$folder")
  for file in README.md recipe apart port.patch; do
    [ -e "$folder$file" ] || complain "$folder: there is no $file"
  done
  grep -q '^| licence |' "$folder/README.md" || complain "$folder: README.md states no licence"
  grep -qF "[$name](../$folder" docs/performance.md || complain "$name: docs/performance.md has no row"
  for patch in "$folder"*.patch; do
    ! grep -E '^(---|\+\+\+) ' "$patch" | grep -vE '^(--- a/|\+\+\+ b/|(---|\+\+\+) /dev/null$)[A-Za-z0-9_./-]*$' >&2 ||
      complain "$patch: other files than those of the tool"
  done
done
[ $ports -gt 0 ] || complain "there are no ports"
shellcheck scripts/ports examples/ports/*/recipe || complain "shellcheck found mistakes"
[ $failures -eq 0 ] || exit 1
echo "$ports ports have their files"
