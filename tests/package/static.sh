#!/usr/bin/env bash
# Builds the archive of the library, checks its objects and its symbols, installs it alone and beside
# the shared library, and builds and runs programs that link it.
#   static.sh SOURCE-DIRECTORY BUILD-DIRECTORY WORK-DIRECTORY COMPILER [OTHER-COMPILER]
# BUILD-DIRECTORY has the shared library. Exits with 77 if the compiler is not installed. The work
# directory can be used again: the archive is built in it only once.
set -euo pipefail
source=$1 sharedBuild=$2 work=$3 compiler=$4 otherCompiler=${5:-$4}
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
command -v "$compiler" >/dev/null || { echo "$compiler is not installed"; exit 77; }
command -v "$otherCompiler" >/dev/null || otherCompiler=$compiler
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

fail() { echo "$*"; exit 1; }

# Runs a step and shows its output only if it fails.
quietly() { "$@" >"$scratch/log" 2>&1 || { cat "$scratch/log"; fail "failed: $*"; }; }

configure() {
  quietly cmake -S "$source" -DCMAKE_CXX_COMPILER="$compiler" -DBUILD_SHARED_LIBS=OFF \
    -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_LIBDIR=lib -DBUILD_TESTING=OFF \
    -DKIVO_BUILD_EXAMPLES=OFF "$@"
}

configure -B "$work"
quietly cmake --build "$work" --parallel 2
archive=$work/src/libkivo.a
[ ! -e "$work/src/libkivo.so" ] || fail "the shared library was built, too"

# Every object has machine code for any linker, even if the flags of the user ask for LTO.
configure -B "$scratch/lto" -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_FLAGS=-flto -DCMAKE_INTERPROCEDURAL_OPTIMIZATION=ON
quietly cmake --build "$scratch/lto" --target stratum2
isMachineCode() {
  local sections
  sections=$(readelf --sections --wide "$1" 2>&1) && [[ $sections == *" .text"* ]] &&
    [[ $sections != *lto* ]] && [[ $sections != *"not an ELF"* ]]
}
find "$work/src" "$work/platform" -name '*.o' >"$scratch/list"
[ "$(ar t "$archive" | wc -l)" = "$(wc -l <"$scratch/list")" ] || fail "objects are missing"
find "$scratch/lto/platform" -name '*.o' >>"$scratch/list"
while IFS= read -r object; do
  isMachineCode "$object" || fail "no machine code, or not only that: $object"
done <"$scratch/list"

# All symbols of the library are hidden. Templates of the standard library do not count, whatever
# their arguments are.
ours='^_ZZ?([TG][A-Z])?(N[A-Z]*)?(8kivo_3_3|8stratum2|7BEDROCK)'
visible=$(readelf --symbols --wide "$archive" | awk '
  ($5 == "GLOBAL" || $5 == "WEAK") && $6 != "HIDDEN" && $7 != "UND" { print $8 }' |
  grep -E "$ours" || true)
[ -z "$visible" ] || fail "visible symbols: $visible"
nm --defined-only --extern-only "$archive" 2>/dev/null | awk '$2 ~ /^[TDBRV]$/ { print $3 }' |
  grep -E "$ours" | LC_ALL=C sort -u >"$scratch/defined"
[ -s "$scratch/defined" ] || fail "the archive defines nothing"

# Both in one prefix, in both orders of installation, and the archive alone.
alone="$scratch/archive alone" both="$scratch/shared first" reversed="$scratch/archive first"
install() { quietly cmake --install "$1" --prefix "$2"; }
install "$work" "$alone"
install "$sharedBuild" "$both"
install "$work" "$both"
install "$work" "$reversed"
install "$sharedBuild" "$reversed"
diff -r --no-dereference --exclude=kivo-describe --exclude='kivo-config-version.cmake' \
  "$both" "$reversed" || fail "the order of installation makes a difference"
libdir() { dirname "$(find "$1" -name kivo-static.pc)" | sed 's,/pkgconfig$,,'; }
for prefix in "$both" "$alone"; do
  [ -e "$(libdir "$prefix")/libkivo.a" ] || fail "no libkivo.a in $prefix"
  ! grep -rlF -e "$source" -e "$work" "$prefix/lib/cmake" "$(libdir "$prefix")/pkgconfig" ||
    fail "these files name the place they come from"
done
[ -e "$(libdir "$both")/libkivo.so" ] || fail "no libkivo.so beside the archive"
[ -z "$(find "$alone" -name 'libkivo.so*')" ] || fail "a shared library beside the archive alone"

# Checks that a program runs, and which of the two libraries it has, "shared" or "archive".
check() {
  local program=$1 library=$2 status=0 printed needed
  printed=$(LD_LIBRARY_PATH=$(libdir "$both") "$program" --lev=2 -- more) || status=$?
  [ "$status" = 0 ] && [ "$printed" = $'level = 2\n2 nothing\n4\nmore!' ] ||
    fail "$program ended with $status and printed: $printed"
  needed=$(readelf --dynamic "$program" 2>/dev/null | grep -c 'libkivo' || true)
  [ "$needed" = "$([ "$library" = shared ] && echo 1 || echo 0)" ] ||
    fail "$program is not linked with the $library"
  checked=$((checked + 1))
}
checked=0

# The inline functions of the headers belong to the tool, which hides them if it hides its own.
shown() { nm --dynamic "$1" 2>/dev/null | awk '{ print $NF }' | LC_ALL=C sort -u; }
showsNone() { ! shown "$1" | grep -E "$ours" || fail "$1 shows these symbols"; }

# buildByCMake NAME PREFIX TARGET LIBRARY
buildByCMake() {
  quietly cmake -S "$here/consumer" -B "$scratch/$1" -DWAY=find_package -DLIBRARY="$3" \
    -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_BUILD_TYPE=Debug -DCMAKE_PREFIX_PATH="$2" \
    -DWARNINGS="-Wall -Wextra -Werror -fvisibility=hidden" -DCMAKE_EXE_LINKER_FLAGS=-rdynamic
  quietly cmake --build "$scratch/$1" --parallel 2
  check "$scratch/$1/find_package-17" "$4"
  check "$scratch/$1/find_package-20" "$4"
}
buildByCMake cmake-alone "$alone" kivo::kivo archive
buildByCMake cmake-both "$both" kivo::kivo_static archive
showsNone "$scratch/cmake-alone/find_package-17"
showsNone "$scratch/cmake-both/find_package-17"
buildByCMake cmake-both-shared "$both" kivo::kivo shared

# byPkgConfig PREFIX COMPILER PKG-CONFIG-ARGUMENTS -- FLAG...: compiles the program of the consumers.
byPkgConfig() {
  local prefix=$1 with=$2 asked=() flags
  shift 2
  while [ "$1" != -- ]; do
    asked+=("$1")
    shift
  done
  shift
  flags=$(PKG_CONFIG_PATH=$(libdir "$prefix")/pkgconfig pkg-config --cflags --libs "${asked[@]}")
  eval "flags=($flags)"  # pkg-config quotes blanks
  quietly "$with" -std=c++17 -O1 -Wall -Wextra -Werror "$here/consumer/main.cpp" "${flags[@]}" "$@"
}
byPkgConfig "$alone" "$compiler" --static kivo -- -o "$scratch/program"
check "$scratch/program" archive
byPkgConfig "$alone" "$compiler" --static kivo -- -static -o "$scratch/whole"
check "$scratch/whole" archive
byPkgConfig "$both" "$compiler" --static kivo -- -static -o "$scratch/whole"
check "$scratch/whole" archive
byPkgConfig "$both" "$compiler" kivo-static -- -static-libstdc++ -static-libgcc -o "$scratch/program"
check "$scratch/program" archive
! readelf --dynamic "$scratch/program" | grep -F 'libstdc++' || fail "libstdc++ is not in the program"
byPkgConfig "$both" "$compiler" kivo -- -o "$scratch/program"
check "$scratch/program" shared

# Another compiler, and every linker.
byPkgConfig "$both" "$otherCompiler" kivo-static -- -o "$scratch/program"
check "$scratch/program" archive
for linker in bfd gold mold lld; do
  command -v "ld.$linker" >/dev/null || continue
  byPkgConfig "$both" "$compiler" kivo-static -- "-fuse-ld=$linker" -o "$scratch/program-$linker"
  check "$scratch/program-$linker" archive
done

# What a tool does not use is dropped.
byPkgConfig "$both" "$compiler" kivo-static -- -Wl,--gc-sections -o "$scratch/small"
check "$scratch/small" archive
functions() { nm --defined-only "$1" | awk '{ print $3 }' | grep -cE "$ours"; }
[ "$(functions "$scratch/small")" -lt "$(functions "$scratch/program")" ] ||
  fail "--gc-sections drops nothing"

# No program and no shared object shows a symbol of the archive.
showsNone "$scratch/program"
showsNone "$scratch/whole"
byPkgConfig "$both" "$compiler" kivo-static -- -fvisibility=hidden -fPIC -shared \
  -o "$scratch/hidden.so"
showsNone "$scratch/hidden.so"
byPkgConfig "$both" "$compiler" kivo-static -- -fPIC -shared -o "$scratch/plain.so"
byPkgConfig "$both" "$compiler" kivo-static -- -rdynamic -o "$scratch/open"
for object in plain.so open; do
  ! comm -12 "$scratch/defined" <(shown "$scratch/$object") | grep . ||
    fail "$object shows these symbols of the archive"
done

quietly "$here/describe.sh" "$alone"
quietly "$here/describe.sh" "$both" kivo::kivo_static
echo "$(wc -l <"$scratch/defined") hidden symbols, $checked programs built with $compiler and run"
