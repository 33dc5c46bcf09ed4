#!/usr/bin/env bash
# Makes the Debian packages and installs them with dpkg into a separate root. Builds the installed
# examples with the installed library, runs them, and removes the packages again.
#   debian_packages.sh SOURCE-DIRECTORY WORK-DIRECTORY
# Exits with 77 if there is no dpkg. The work directory can be used again: the library is built in
# it only once.
set -euo pipefail
source=$1 work=$2
command -v dpkg-deb >/dev/null || { echo "this is no Debian system"; exit 77; }
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

fail() { echo "$*"; exit 1; }

# Runs a step and shows its output only if it fails.
quietly() { "$@" >"$scratch/log" 2>&1 || { cat "$scratch/log"; fail "failed: $*"; }; }

quietly "$source/scripts/package" --unchecked "$work"
library=$(echo "$work"/libkivo[0-9]*.deb) dev=$(echo "$work"/libkivo-dev_*.deb)
doc=$(echo "$work"/libkivo-doc_*.deb) describe=$(echo "$work"/kivo-describe_*.deb)
field() { dpkg-deb --field "$1" "$2"; }
package=$(field "$library" Package) version=$(field "$library" Version)
multiarch=$(dpkg-architecture -q DEB_HOST_MULTIARCH)

# An empty root. Its status file lists only the installed packages that the library depends on, so
# that dpkg can check the dependencies.
root=$scratch/root
mkdir -p "$root"/var/lib/dpkg/{info,updates,triggers}
field "$library" Depends | sed 's/([^)]*)//g; s/,/\n/g' | xargs dpkg-query --status \
  >"$root/var/lib/dpkg/status"
inRoot() { PATH=$PATH:/usr/sbin:/sbin dpkg --root="$root" --force-not-root --log=/dev/null "$@"; }

# Without the library, dpkg must refuse to configure libkivo-dev.
! inRoot --install "$dev" >"$scratch/log" 2>&1 ||
  fail "libkivo-dev was installed without the library"
grep -qF "libkivo-dev depends on $package (= $version)" "$scratch/log" ||
  { cat "$scratch/log"; fail "libkivo-dev does not ask for $package of its own version"; }
quietly inRoot --install "$library" "$dev" "$doc" "$describe"

# Checks the files and the control files of the packages.
holds() {
  local name=$1 others
  others=$(inRoot --listfiles "$name" | while IFS= read -r file; do
    [ -d "$root$file" ] || echo "$file"
  done | grep -vE "^/usr/($2|share/doc/$name/.*)$") || return 0
  fail "$name holds $others"
}
holds "$package" "lib/$multiarch/libkivo[.]so[.][0-9.]+"
holds libkivo-dev "include/.*[.]h|share/kivo/description[.]schema[.]json|lib/$multiarch/(libkivo[.](so|a)|(cmake|pkgconfig)/.*)"
holds kivo-describe "bin/kivo-describe|lib/$multiarch/cmake/kivo/kivo-describe-targets.*[.]cmake|share/man/man1/kivo-describe[.]1[.]gz|share/(bash-completion/completions/|zsh/vendor-completions/_|fish/vendor_completions.d/)kivo-describe([.]fish)?"
holds libkivo-doc "share/man/man7/kivo[.]7[.]gz"
dpkg-deb --raw-extract "$library" "$scratch/raw"
for control in symbols shlibs triggers md5sums; do
  [ -s "$scratch/raw/DEBIAN/$control" ] || fail "$package has no $control"
done
for name in "$package" libkivo-dev kivo-describe libkivo-doc; do
  texts=$root/usr/share/doc/$name
  zgrep -qF "kivo ($version) " "$texts/changelog.Debian.gz" || fail "$name: another changelog"
  grep -qx 'License: Expat' "$texts/copyright" || fail "$name: no licence"
done
[ -e "$root/usr/share/doc/libkivo-doc/README.md" ] || fail "libkivo-doc: no README.md"
libdir=$root/usr/lib/$multiarch
for binary in "$libdir/libkivo.so" "$root/usr/bin/kivo-describe"; do
  sections=$(readelf --sections --dynamic --wide "$binary")
  ! grep -E '[.]symtab|[.]debug|RPATH|RUNPATH' <<<"$sections" || fail "$binary is not stripped"
done
! grep -rlF -e "$source" -e "$work" "$root/usr" || fail "these files name the place they come from"

# Builds the examples as a user of the package would, and one of them with pkg-config.
cp -r "$root/usr/share/doc/libkivo-dev/examples" "$scratch/examples"
quietly cmake -S "$scratch/examples" -B "$scratch/build" -DCMAKE_PREFIX_PATH="$root/usr" \
  -DCMAKE_BUILD_TYPE=Debug
grep -qF "kivo_DIR:PATH=$libdir/" "$scratch/build/CMakeCache.txt" ||
  fail "CMake found another libkivo"
quietly cmake --build "$scratch/build" --parallel 2
read -ra flags <<<"$(PKG_CONFIG_LIBDIR=$libdir/pkgconfig pkg-config --cflags --libs kivo)"
quietly "${CXX:-g++}" -std=c++17 "$scratch/examples/greet/main.cpp" "${flags[@]}" \
  -o "$scratch/greet"

# The archive is beside the shared library.
read -ra flags <<<"$(PKG_CONFIG_LIBDIR=$libdir/pkgconfig pkg-config --cflags --libs kivo-static)"
quietly "${CXX:-g++}" -std=c++17 "$scratch/examples/greet/main.cpp" "${flags[@]}" \
  -o "$scratch/greet-static"
read -ra flags <<<"$(PKG_CONFIG_LIBDIR=$libdir/pkgconfig pkg-config --static --cflags --libs kivo)"
quietly "${CXX:-g++}" -std=c++17 "$scratch/examples/greet/main.cpp" "${flags[@]}" -static \
  -o "$scratch/greet-whole"
for greet in greet-static greet-whole; do
  greeting=$("$scratch/$greet" World)
  [ "$greeting" = "Hello World" ] || fail "$greet printed: $greeting"
done

textkit=$scratch/build/textkit/textkit
loaded=$(ldd "$textkit")
[[ $loaded == *"=> $libdir/libkivo.so."* ]] || fail "textkit loads other libraries: $loaded"
text=$source/README.md
read -ra counted <<<"$("$textkit" -count "$text")"
read -ra expected <<<"$(wc -lwc "$text")"
[ "${counted[*]}" = "${expected[*]}" ] || fail "textkit -count: ${counted[*]}; wc: ${expected[*]}"
greeting=$(LD_LIBRARY_PATH=$libdir "$scratch/greet" World)
[ "$greeting" = "Hello World" ] || fail "greet printed: $greeting"

# The examples ask for manual pages.
quietly cmake --install "$scratch/build" --prefix "$scratch/installed"
for tool in greet notebook textkit; do
  page=$(LC_ALL=C.UTF-8 man -M "$scratch/installed/share/man" "$tool") || fail "no page of $tool"
  grep -q "^ *$tool - " <<<"$page" || fail "the page of $tool: $page"
  for script in bash-completion/completions/$tool zsh/site-functions/_$tool \
    fish/vendor_completions.d/$tool.fish; do
    [ -s "$scratch/installed/share/$script" ] || fail "no $script"
  done
done

# The package of a tool that was built like this must depend on the package of the library.
mkdir -p "$scratch/tool/debian"
printf 'Source: tool\n\nPackage: tool\nArchitecture: any\n' >"$scratch/tool/debian/control"
dependencies=$(cd "$scratch/tool" && dpkg-shlibdeps -O -S"$scratch/raw" -e"$textkit" 2>"$scratch/log") ||
  { cat "$scratch/log"; fail "dpkg-shlibdeps does not find what textkit depends on"; }
[[ $dependencies == *"$package (>= "* ]] || fail "textkit depends on: $dependencies"

quietly inRoot --purge "$package" libkivo-dev kivo-describe libkivo-doc
[ -z "$(find "$root" -name '*kivo*')" ] || fail "left behind: $(find "$root" -name '*kivo*')"
echo "installed $(cd "$work" && echo *.deb), built and ran the examples, and removed them"
