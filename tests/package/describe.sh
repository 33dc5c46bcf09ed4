#!/usr/bin/env bash
# Builds and installs a project whose CMakeLists.txt asks for the manual page and the completion of
# its tool, and shows the page with man. Then configures the project where the tool cannot run, and
# without kivo-describe: nothing must be made, and the project must say so.
#   describe.sh PREFIX [TARGET-OF-THE-LIBRARY]
set -euo pipefail
prefix=$1 library=${2:-kivo::kivo}
project=$(cd "$(dirname "${BASH_SOURCE[0]}")/described" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

fail() { echo "$*"; exit 1; }

# Configures, builds and installs the project; keeps the output in $scratch/log.
make() {
  local name=$1
  shift
  { cmake -S "$project" -B "$scratch/$name" -DCMAKE_PREFIX_PATH="$prefix" \
    -DLIBRARY="$library" "$@" &&
    cmake --build "$scratch/$name" &&
    cmake --install "$scratch/$name" --prefix "$scratch/$name-prefix"; } >"$scratch/log" 2>&1 ||
    { cat "$scratch/log"; fail "failed: $name"; }
}

shown() { MANWIDTH=80 LC_ALL=C.UTF-8 man -M "$1/share/man" hello-world; }

make native
page=$(shown "$scratch/native-prefix") || fail "man finds no page"
for text in "hello-world - Greets the world." "-loud, -l, -no-loud" "Shout." "Version: 1.2."; do
  grep -qF -e "$text" <<<"$page" || fail "the page lacks: $text"
done

data=$scratch/native-prefix/share
for script in bash-completion/completions/hello-world zsh/site-functions/_hello-world \
  fish/vendor_completions.d/hello-world.fish; do
  [ -s "$data/$script" ] || fail "no $script"
done

make emulated -DCMAKE_SYSTEM_NAME=Linux -DCMAKE_CROSSCOMPILING_EMULATOR=env
[ "$(shown "$scratch/emulated-prefix")" = "$page" ] || fail "an emulator changes the page"

# Checks that a project says what is missing, and installs the tool alone.
saysSo() {
  local name=$1 reason=$2
  grep -qF "No manual page and no completion of described will be installed: $reason" "$scratch/log" ||
    { cat "$scratch/log"; fail "$name: said nothing of what is missing"; }
  [ "$(cd "$scratch/$name-prefix" && find . -type f)" = ./bin/described ] ||
    fail "$name: other files than the tool were installed"
}

make cross -DCMAKE_SYSTEM_NAME=Linux
saysSo cross "this machine cannot run it"

cp -r "$prefix" "$scratch/without"
rm "$scratch/without/bin/kivo-describe" "$(find "$scratch/without" -name kivo-describe-targets.cmake)"
prefix=$scratch/without
make undescribed
saysSo undescribed "kivo-describe was not found"
echo "installed a manual page and completion, and none where that is not possible"
