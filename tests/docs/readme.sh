#!/usr/bin/env bash
# Compares the program in the README with examples/greet, and the commands in it with what greet
# really prints, or what a TAB offers if a command ends with "<TAB>".
#   readme.sh SOURCE-DIRECTORY GREET
set -euo pipefail
cd "$1"

block() { awk -v fence="\`\`\`$1" '$0 == fence { inside = 1; next } /^```$/ { inside = 0 } inside' README.md; }

diff -u examples/greet/main.cpp <(block cpp)

PATH=$(dirname "$2"):$PATH
while IFS= read -r line; do
  [[ $line == '$ '* ]] || continue
  echo "$line"
  command=${line#'$ '}
  if [[ $command == *'<TAB>' ]]; then
    scripts/press-tab "$2.bash" "${command%'<TAB>'}"
  else
    $command 2>&1 || true
  fi
done < <(block console) | diff -u <(block console) -
grep -q '^\$ greet' <(block console)
echo "the README shows what there is"
