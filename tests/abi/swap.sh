#!/usr/bin/env bash
# Builds a program against an older build of the library. Runs it, without building it again, with
# newer builds: with the library under test, and with a library whose internal classes have grown,
# built by another compiler if there is one. The program must print the same each time.
#
# The older build is that of the first release with the same soname. Before there is such a release,
# it is that of the commit that last wrote kivo.abi: there the binary interface was last changed on
# purpose. Without a git history, as in a source archive, it is made from these sources: then only
# the optimization and the internal classes differ, and the output says so.
#   swap.sh SOURCE-DIRECTORY LIBRARY COMPILER [OTHER-COMPILER]
# With KIVO_RENEW=1 the expected output is written from the run with the older build.
set -euo pipefail
source=$1 library=$2 compiler=$3 otherCompiler=${4:-$3}
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
. "$here/library_build.sh"

sonameOf() { readelf --dynamic "$1" | sed -n 's/.*(SONAME).*\[\(.*\)\]/\1/p'; }
soname=$(sonameOf "$library")

# The revision that the older build is made from; empty if there is no git history.
olderRevision() {
  local tags
  tags=$(git -C "$source" tag --list "v${soname#libkivo.so.}.*" --sort=version:refname \
    2>/dev/null) || return 0
  if [ -n "$tags" ]; then
    echo "${tags%%$'\n'*}"
  else
    git -C "$source" log -1 --format=%h -- tests/abi/kivo.abi 2>/dev/null || true
  fi
}

# Copies the sources of the library, from a revision or from the working tree, without build
# folders.
copySources() {
  mkdir "$2"
  if [ -n "$1" ]; then
    git -C "$source" archive "$1" | tar -x -C "$2"
  else
    tar -c -C "$source" --exclude-vcs --exclude-tag-all=CMakeCache.txt . | tar -x -C "$2"
  fi
}

# Adds a field before all others to the internal classes.
growInternals() {
  local grown
  for grown in parser/basic_parser.h:BasicParser result/parse_result.h:ParseResult \
               options/option_description.h:OptionDescription storage/garbage.h:Garbage; do
    sed -i -E "s/^class ${grown#*:} .*\{\$/&\n  long m_grown[3] = {1, 2, 3};/" "$1/src/${grown%:*}"
    grep -q m_grown "$1/src/${grown%:*}" || { echo "cannot grow ${grown#*:}"; return 1; }
  done
}

buildProgram() {
  quietly cmake --install "$scratch/older" --prefix "$scratch/prefix"
  quietly "$compiler" -std=c++17 -I"$scratch/prefix/include" "$here/swap_consumer.cpp" \
    -L"$scratch/prefix/lib" -lkivo -o "$scratch/program"
}

#   runWith DIRECTORY DESCRIPTION
runWith() {
  local status=0
  export LD_LIBRARY_PATH=$1
  ldd "$scratch/program" | grep -F "$soname => $1/" >/dev/null ||
    { echo "$2: not what the program loads"; return 1; }
  LD_BIND_NOW=1 "$scratch/program" >"$scratch/printed" 2>&1 || status=$?
  [ $status = 0 ] ||
    { cat "$scratch/printed"; echo "$2: the program ended with status $status"; return 1; }
  if [ "${KIVO_RENEW:-}" = 1 ] && [ "$1" = "$scratch/prefix/lib" ]; then
    cp "$scratch/printed" "$here/swap.txt"
  fi
  diff -u "$here/swap.txt" "$scratch/printed" || { echo "$2: printed something else"; return 1; }
  echo "runs with $2"
}

revision=$(olderRevision)
copySources "$revision" "$scratch/older_sources"
buildLibrary "$scratch/older_sources" "$scratch/older" "$compiler" -O0
if [ "$(sonameOf "$scratch/older/src/libkivo.so")" != "$soname" ]; then
  echo "the older build is another library by its soname: there is nothing to swap"
  exit 1
fi
buildProgram
copySources "" "$scratch/grown_sources"
growInternals "$scratch/grown_sources"
buildLibrary "$scratch/grown_sources" "$scratch/grown" "$otherCompiler" -O2

runWith "$scratch/prefix/lib" "the library it was built with: ${revision:-these sources}, -O0"
runWith "$(cd "$(dirname "$library")" && pwd)" "the library under test"
runWith "$scratch/grown/src" "a library of grown classes, by $(basename "$otherCompiler")"
