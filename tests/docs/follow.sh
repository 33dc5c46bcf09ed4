#!/usr/bin/env bash
# Follows a document as its reader would: saves its programs, compiles them with warnings as errors,
# runs its commands, and compares their output character by character.
#   follow.sh SOURCE-DIRECTORY BUILD-DIRECTORY COMPILER COMPILER-FLAGS SAMPLE-TOOLS DOCUMENT
#
# Blocks of a document are processed in order, in one shell and one folder:
#   cpp      whose first line is "// NAME": saved under that name, and compiled; if it
#            has two lines that begin with "// ----", it is the frame for later blocks
#   cpp      else: put into the frame between these two lines, saved and compiled
#   text, cmake   whose first line is "# NAME": saved under that name
#   sh       one command a line; each is run and has to succeed
#   console  run; what the commands print has to be what the block shows. A command that ends with
#            "<TAB>" is completed by bash with the script that was installed below the home folder
# A block of any other kind is an error. For documents other than the guide the
# library is installed first, by the commands that the guide gives.
set -euo pipefail
source=$1 build=$2 compiler=$3 flags=$4 sampleTools=$5 document=$6

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work"/{bin,home,blocks,guide,folder}

complain() { echo "$document: $*" >&2; exit 1; }

# Writes each block of $1 into the folder $2, as LINE-NUMBER.KIND.
split() {
  awk -v to="$2" '
    !inside && /^```/ { file = sprintf("%s/%04d.%s", to, NR, substr($0, 4)); printf "" > file; inside = 1; next }
    inside && $0 == "```" { inside = 0; close(file); next }
    inside { print > file }
    END { exit inside }' "$1" || complain "a block is not closed"
}

# The command g++ is the compiler of this build, with every warning on.
cat >"$work/bin/g++" <<COMPILER
#!/bin/sh
exec "$compiler" $flags -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Werror "\$@"
COMPILER
# The command cmake uses this build instead of the release build, and only checks that the presets
# exist.
cat >"$work/bin/cmake" <<CMAKE
#!/bin/sh
PATH=$PATH
hasPreset() { (cd "$source" && cmake --list-presets=\$1) | grep -q "\"\$2\""; }
case "\$1 \$2" in
  "--preset "*) hasPreset configure "\$2" ;;
  "--build --preset") hasPreset build "\$3" ;;
  "--install build/release") shift 2 && exec cmake --install "$build" "\$@" ;;
  *) exec cmake "\$@" ;;
esac
CMAKE
chmod +x "$work"/bin/*
ln -s "$sampleTools" "$work/bin/tool"
ln -s "$sampleTools" "$work/bin/archive"
export PATH="$work/bin:$PATH" HOME="$work/home" CXX="$work/bin/g++" LC_ALL=C.UTF-8
unset CMAKE_GENERATOR CXXFLAGS LDFLAGS

save() {
  local name
  name=$(sed -n '1s,^\(//\|#\) ,,p' "$1")
  [[ $name =~ ^[A-Za-z0-9._-]+$ ]] || complain "line ${1##*/}: no file name in the first line"
  cp "$1" "$name"
  echo "$name"
}

putIntoFrame() {
  [ -n "${frame:-}" ] || complain "line ${1##*/}: neither a file name nor a frame"
  awk -v snippet="$1" '
    /^ *\/\/ ----/ { print; if (marks++ == 0) while ((getline line < snippet) > 0) print line; next }
    marks != 1 { print }
    END { exit marks != 2 }' "$frame" >"$name" || complain "the frame has not two lines of dashes"
}

compile() {
  if head -n 1 "$1" | grep -qE '^// [A-Za-z0-9_-]+\.cpp$'; then
    name=$(save "$1")
    [ "$(grep -c '^ *// ----' "$1")" -ne 2 ] || frame=$1
  else
    putIntoFrame "$1"
  fi
  # shellcheck disable=SC2046
  g++ -std=c++17 "$name" -o "${name%.cpp}" $(pkg-config --cflags --libs kivo) ||
    complain "line ${1##*/}: does not compile"
  programs=$((programs + 1))
}

pressTab() {
  "$source/scripts/press-tab" "$HOME"/*/share/bash-completion/completions/"${1%% *}" "$1"
}

# Each command sees the exit status of the previous one.
converse() {
  local line command status=0
  while IFS= read -r line <&3; do
    [[ $line == '$ '* ]] || continue
    printf '%s\n' "$line"
    command=${line#'$ '}
    [[ $command != *'<TAB>' ]] || command="pressTab '${command%'<TAB>'}'"
    (exit "$status") && true
    eval "$command" 2>&1 </dev/null && status=0 || status=$?
  done 3<"$1"
}

follow() {
  local block
  for block in "$1"/*; do
    case $block in
      *.cpp) compile "$block" ;;
      *.text | *.cmake) save "$block" >/dev/null ;;
      *.sh) eval "$(sed 's/$/ || complain "a command failed"/' "$block")" >/dev/null ;;
      *.console)
        head -n 1 "$block" | grep -q '^\$ ' || complain "line ${block##*/}: no command"
        converse "$block" >"$work/output"
        diff -u --label "$document, from line ${block##*/}" --label "what comes out" \
          "$block" "$work/output" || complain "this is not what comes out"
        commands=$((commands + $(grep -c '^\$ ' "$block"))) ;;
      *) complain "line ${block##*/}: what is to be done with this?" ;;
    esac
  done
}

programs=0
commands=0
cd "$work/folder"
split "$source/$document" "$work/blocks"
if [ "$document" != docs/guide.md ]; then
  split "$source/docs/guide.md" "$work/guide"
  rm -f "$work"/guide/*.{cpp,text,cmake,console}
  # Keeps only the installation, which comes before the first program.
  find "$work/guide" -name '*.sh' | sort | tail -n +3 | xargs -r rm
  follow "$work/guide"
fi
follow "$work/blocks"
[ "$commands" -gt 0 ] || complain "there was nothing to follow"
echo "$document: $programs programs compiled, $commands commands run"
