#!/usr/bin/env bash
# Checks the links between the documents: each file and each heading must exist. A file or folder of
# this project that a document names must exist too.
#   links.sh SOURCE-DIRECTORY
set -euo pipefail
cd "$1"
failures=0
links=0
complain() { echo "$*" >&2; failures=$((failures + 1)); }

# The anchors of a document's headings, made as the usual viewers make them.
anchors() {
  sed -n '/^```/,/^```/!s/^#\{1,6\} //p' "$1" | tr '[:upper:]' '[:lower:]' |
    sed 's/[^a-z0-9 _-]//g; s/ /-/g'
}

withoutBlocks() { sed '/^```/,/^```/d' "$1"; }

for document in *.md docs/*.md examples/*/README.md examples/ports/*/README.md platform/README.md; do
  folder=$(dirname "$document")
  while IFS= read -r link; do
    [[ $link == http*://* || $link == mailto:* ]] && continue
    links=$((links + 1))
    file=${link%%#*}
    target=${file:+$folder/$file}
    target=${target:-$document}
    if [ ! -e "$target" ]; then
      complain "$document: no such file: $link"
    elif [[ $link == *'#'* ]] && ! anchors "$target" | grep -qxF -- "${link#*#}"; then
      complain "$document: no such heading: $link"
    fi
  done < <(withoutBlocks "$document" | grep -oE '\]\([^)]+\)' | sed 's/^](//; s/)$//' || true)

  while IFS= read -r name; do
    links=$((links + 1))
    [ -e "$name" ] || [ -e "$folder/$name" ] || complain "$document: no such file: $name"
  done < <(withoutBlocks "$document" |
    grep -oE '`(include|src|platform|tests|docs|scripts|examples|cmake|bench|\.ci)/[A-Za-z0-9_./-]*`' |
    tr -d '`' || true)
done

[ "$links" -ge 20 ] || complain "only $links links found"
echo "$links links checked, $failures broken"
[ "$failures" -eq 0 ]
