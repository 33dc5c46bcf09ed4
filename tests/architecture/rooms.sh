#!/usr/bin/env bash
# Checks the #include lines against the plan: which folder of src/ may include which. Public headers
# must not include src/, the platform layers must not include the library, and the reference must
# not include src/.
#   rooms.sh SOURCE-DIRECTORY
set -euo pipefail
cd "$1"

declare -A mayInclude=(
  [base]=""
  [storage]="base"
  [options]="storage base"
  [recognizers]="options storage base"
  [result]="options storage base"
  [help]="options storage base"
  [describe]="options storage base"
  [parser]="recognizers result help describe options storage base"
  [tool]=""
)
violations=0

complain() { echo "$1"; violations=$((violations + 1)); }

# Prints "FILE INCLUDED" for every include in quotes below the given folders.
includes() {
  grep -rHoE --include='*.h' --include='*.cpp' '^#include "[^"]+"' "$@" |
    sed -E 's/:#include "(.*)"$/ \1/'
}

checked=0
while read -r file included; do
  checked=$((checked + 1))
  room=$(cut -d/ -f2 <<<"$file")
  target=${included%%/*}
  [[ $target == bedrock || $target == stratum2 || $target == "$room" ]] && continue
  [[ -v mayInclude[$room] ]] || { complain "$file: the room $room is not in the plan"; continue; }
  [[ " ${mayInclude[$room]} " == *" $target "* ]] || complain "$file may not include $included"
done < <(includes src)

rooms=$(IFS='|' && echo "${!mayInclude[*]}")
if grep -rnE "#include (\"|<($rooms)/)" include; then
  complain "a public header includes what is not public"
fi
if grep -rnE "#include [<\"]($rooms|bedrock)/" tools examples; then
  complain "a tool includes what is not public"
fi
if grep -rnE "#include [<\"](kivo|$rooms)/" platform; then
  complain "a platform layer includes the library that stands on it"
fi
if grep -rnE '#include [<"]stratum2/' platform/bedrock; then
  complain "bedrock includes stratum2, which stands on it"
fi

# The reference proves nothing if it includes what it is compared with. Only its scenarios may
# include the library, to run it and to reset the state of the process.
while read -r file included; do
  [[ $file == tests/reference/scenarios/* ]] && continue
  checked=$((checked + 1))
  [[ $included == reference/* || $included == bedrock/* || $included == stratum2/* ]] ||
    complain "$file may not include $included"
done < <(includes tests/reference)

[ "$checked" -gt 0 ] || complain "no includes found: is $1 the source directory?"
echo "$checked includes checked, $violations violations"
[ "$violations" -eq 0 ]
