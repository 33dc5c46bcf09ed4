#!/usr/bin/env bash
# Compares the tables of docs/coming-from.md with its programs: every piece of code in the two
# columns of what you write has to occur in a block of the page; follow.sh compiles and runs the blocks. Code in the
# text of a link is not checked, because the link leads to its program.
#   coming_from.sh SOURCE-DIRECTORY
set -euo pipefail
document=$1/docs/coming-from.md
failures=0
complain() { printf '%s\n' "$@" >&2; failures=$((failures + 1)); }

# Puts all on one line, because a program may break an expression where a table cannot.
asOneLine() { tr '\n' ' ' | sed -E 's/ +/ /g'; }
blocks=$(sed -n '/^```[a-z]/,/^```$/p' "$document" | asOneLine | sed 's/ ->/->/g')

rows() {
  awk '/^[|] to [|] you wrote [|] you write [|] on the interfaces below [|]$/ { inside = 1; next }
       !/^[|]/ { inside = 0 }
       inside && !/^[|]---/' "$document"
}
lastColumns() { awk -F ' [|] ' '{ sub(/ [|]$/, "", $NF); print $(NF - 1), $NF }' | sed -E 's/\[[^]]*\]\([^)]*\)//g'; }

checked=0
while IFS= read -r code; do
  checked=$((checked + 1))
  [[ $blocks == *"${code// ->/->}"* ]] || complain "in no block of the page: $code"
done < <(rows | lastColumns | grep -oE '`[^`]+`' | tr -d '`')

[ "$checked" -ge 90 ] || complain "only $checked pieces of code found"
echo "$checked pieces of code checked, $failures missing"
[ "$failures" -eq 0 ]
