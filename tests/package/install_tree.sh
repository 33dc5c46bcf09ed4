#!/usr/bin/env bash
# Installs the library into a prefix, moves the prefix to where the consumers look for it, and
# checks the installed files: no file is missing or too many, and none contains an absolute path.
#   install_tree.sh SOURCE-DIRECTORY BUILD-DIRECTORY PREFIX
set -euo pipefail
source=$1 build=$2 prefix=$3
first=$prefix.first
rm -rf "$prefix" "$first"
cmake --install "$build" --prefix "$first" >/dev/null
mv "$first" "$prefix"

fail() { echo "$*"; exit 1; }

library=$(find "$prefix" -name libkivo.so)
libdir=$(dirname "$library")
version=$(PKG_CONFIG_PATH=$libdir/pkgconfig pkg-config --modversion kivo)
soname=libkivo.so.${version%.*}

expected_files() {
  (cd "$source" && find include/kivo -name '*.h')
  printf '%s\n' include/bedrock/{assertion,export}.h include/stratum2/variant.h share/man/man7/kivo.7 \
    share/kivo/description.schema.json bin/kivo-describe share/man/man1/kivo-describe.1 \
    share/bash-completion/completions/kivo-describe share/zsh/site-functions/_kivo-describe \
    share/fish/vendor_completions.d/kivo-describe.fish
  for file in libkivo.so "$soname" "libkivo.so.$version" pkgconfig/kivo.pc \
    cmake/kivo/kivo-{config,config-version,targets,targets-CONFIGURATION}.cmake \
    cmake/kivo/kivo-{descriptions,describe-targets,describe-targets-CONFIGURATION}.cmake; do
    echo "${libdir#"$prefix"/}/$file"
  done
}
(cd "$prefix" && find . ! -type d -printf '%P\n') |
  sed -E '/-config-version/!s/(kivo(-describe)?-targets)-[a-z]+/\1-CONFIGURATION/' | sort |
  diff <(expected_files | sort) - || fail "these files are missing (<) or too many (>)"

while IFS= read -r header; do
  [ -e "$prefix/include/$header" ] || fail "a header includes $header, which is not installed"
done < <(grep -rhoP '#include <\K(kivo|stratum2|bedrock)/[^>]+' "$prefix/include" | sort -u)

# Searches text and binary files alike.
! grep -rlF -e "$source" -e "$build" -e "$first" "$prefix" ||
  fail "these files name the place they come from"
! grep -rnE '(=|")/[^"]' "$libdir/cmake" "$libdir/pkgconfig" ||
  fail "these lines name a place"
[ "$(readlink "$library")" = "$soname" ] || fail "libkivo.so leads to $(readlink "$library")"

dynamic=$(readelf --dynamic --wide "$library")
grep -qF "soname: [$soname]" <<<"$dynamic" || fail "the soname is not $soname"
! grep -E 'RPATH|RUNPATH' <<<"$dynamic" || fail "the library looks for others in a place of its own"
! grep NEEDED <<<"$dynamic" | grep -vE '\[(libstdc\+\+|libgcc_s|libm|libc)\.so' ||
  fail "the library needs more than the C++ standard library"
# The tool finds the library in any place where both are installed.
"$prefix/bin/kivo-describe" -version | grep -qx "kivo-describe $version" ||
  fail "kivo-describe does not run"

echo "$(find "$prefix" -type f | wc -l) files, none of which names a place"
