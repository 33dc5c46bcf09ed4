#!/usr/bin/env bash
# Lints a manual page with man and mandoc. At least one of them must be installed.
#   manual_page.sh PAGE
set -euo pipefail
page=$1
linters=0
if command -v mandoc >/dev/null; then
  mandoc -T lint -W warning "$page"
  linters=$((linters + 1))
fi
if command -v man >/dev/null && command -v groff >/dev/null; then
  warnings=$(LC_ALL=C.UTF-8 MANROFFSEQ='' MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >/dev/null)
  [ -z "$warnings" ] || { echo "$warnings"; exit 1; }
  linters=$((linters + 1))
fi
[ "$linters" -gt 0 ] || { echo "neither mandoc nor man is installed"; exit 1; }
echo "$linters linters had nothing to say of ${page##*/}"
