#!/usr/bin/env bash
# Checks the table "Where to find" of docs/architecture.md: each file exists and defines the
# name beside it. Definitions begin at the left margin, calls and comments do not.
#   where_to_find.sh SOURCE-DIRECTORY
set -euo pipefail
cd "$1"
document=docs/architecture.md
leastRows=25
failures=0
rows=0

complain() { echo "$document: $1"; failures=$((failures + 1)); }

# Prints QUESTION | FILE | NAME for every row, without the bars around it and the backticks.
rows() {
  sed -n '/^## Where to find$/,/^## /p' "$document" | grep '^| ' | tail -n +2 |
    sed -E 's/^[|] //; s/ [|]$//' | tr -d '`'
}

defines() { grep -vE '^(//|#|$)' "$1" | grep -E '^[^ ]' | grep -wF -- "$2" >/dev/null; }

while IFS='|' read -r question file name rest; do
  rows=$((rows + 1))
  read -r file <<<"$file"
  read -r name <<<"$name"
  if [[ $question != *'? ' || -z $file || -z $name || -n $rest ]]; then
    complain "not a question, a file and a name: $question"
  elif [ ! -f "$file" ]; then
    complain "no such file: $file ($question)"
  elif ! defines "$file" "$name"; then
    complain "$file does not define $name ($question)"
    grep -rlwF --include='*.h' --include='*.cpp' -- "$name" include src platform |
      sed 's/^/  it is mentioned in /' || true
  fi
done < <(rows)

[ "$rows" -ge "$leastRows" ] || complain "only $rows rows of at least $leastRows"
echo "$rows rows checked, $failures wrong"
[ "$failures" -eq 0 ]
