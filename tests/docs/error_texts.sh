#!/usr/bin/env bash
# Compares the tables of messages in docs/command-line.md with the real messages. Each row has the
# typed command, the message, and in the first table the exit status. Every message of the library
# must be in a table.
#   error_texts.sh SOURCE-DIRECTORY SAMPLE-TOOLS
set -euo pipefail
source=$1 sampleTools=$2
document=$source/docs/command-line.md

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
mkdir bin
for name in tool archive nameless; do ln -s "$sampleTools" "bin/$name"; done
export PATH="$work/bin:$PATH"
failures=0
complain() { printf '%s\n' "$@" >&2; failures=$((failures + 1)); }

# Column $2 of the row $1, without the backticks around its text.
column() { awk -F ' [|] ' -v n="$2" '{ sub(/^[|] /, ""); text = $n; gsub(/^`|`$/, "", text); print text }' <<<"$1"; }

# A message that ends a parse is the whole output.
checkFailure() {
  local typed expected wanted shown status=0
  typed=$(column "$1" 1) expected=$(column "$1" 2) wanted=$(column "$1" 3)
  # shellcheck disable=SC2086
  shown=$($typed 2>&1) || status=$?
  [ "$shown" = "$expected" ] && [ "$status" = "$wanted" ] ||
    complain "$typed" "  shows    $shown [$status]" "  and not  $expected [$wanted]"
}

# Any other message is the first line of the output, and the exit status is 0.
checkRemark() {
  local typed expected shown status=0
  typed=$(column "$1" 1) expected=$(column "$1" 2)
  # shellcheck disable=SC2086
  shown=$($typed 2>&1) || status=$?
  [ "${shown%%$'\n'*}" = "$expected" ] && [ "$status" = 0 ] ||
    complain "$typed" "  shows    ${shown%%$'\n'*} [$status]" "  and not  $expected [0]"
}

rows() { awk -v head="$1" 'index($0, head) == 1 { inside = 1; next } !/^[|]/ { inside = 0 } inside && /^[|] `/' "$document"; }

checked=0
while IFS= read -r row; do
  checkFailure "$row"
  checked=$((checked + 1))
done < <(rows '| typed | message |')
while IFS= read -r row; do
  checkRemark "$row"
  checked=$((checked + 1))
done < <(rows '| typed | text |')

# The pieces of messages: the literals in the sources that have a blank and a word. Not among them
# are the texts of the trace, which are in a line that names the trace or begin with a colon, the
# text that only help uses, and that of the exception for a column without room.
pieces() {
  grep -hvE 'trace|out <<|#include|\(which is|^ *//' "$source"/src/{options,recognizers,parser,help}/*.cpp |
    awk -F '"' '{ for (i = 2; i < NF; i += 2) print $i }' |
    grep -E ' ' | grep -E '[a-z]{3}' | grep -vE "^'?:|^, message: $|^ .default.$" | sed 's/\\n$//' | sort -u
}
documented=$(rows '| typed |')
pieceCount=0
while IFS= read -r piece; do
  pieceCount=$((pieceCount + 1))
  grep -qF -- "$piece" <<<"$documented" || complain "not in the tables: $piece"
done < <(pieces)

[ "$checked" -ge 20 ] || complain "only $checked rows found"
[ "$pieceCount" -ge 10 ] || complain "only $pieceCount pieces of messages found"
echo "$checked messages and $pieceCount pieces of messages checked, $failures failures"
[ "$failures" -eq 0 ]
