#!/usr/bin/env bash
# Runs scripts/bootstrap where the commands of the system are others: without packages, without
# root, without apt-get, with a compiler from elsewhere. Nothing is installed.
#   bootstrap.sh SOURCE-DIRECTORY
set -euo pipefail
source=$1
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

fail() { echo "$*"; exit 1; }

# A folder with the commands that the script itself needs, and with stand-ins.
commands=$scratch/commands
mkdir "$commands"
for name in bash grep; do
  ln -s "$(command -v "$name")" "$commands/$name"
done
standIn() {
  printf '#!/bin/bash\n%s\n' "$2" >"$commands/$1"
  chmod +x "$commands/$1"
}

# Checks the status and the whole of what is said for `bootstrap build`.
check() {
  local expectedStatus=$1 expected=$2 status=0 said
  shift 2
  said=$(env -i PATH="$commands" "$@" "$commands/bash" "$source/scripts/bootstrap" build 2>&1) ||
    status=$?
  [ "$status" = "$expectedStatus" ] && [ "$said" = "$expected" ] ||
    fail "$* ended with $status and said: $said"
}

all="g++ cmake make ninja-build nlohmann-json3-dev"
check 1 "Missing: $all. Nothing is installed, because there is no apt-get; install them yourself."
check 0 "Missing: $all. Nothing is installed, because KIVO_INSTALL is no." KIVO_INSTALL=no

# shellcheck disable=SC2016  # the stand-in expands it
standIn apt-get 'echo "apt-get $*"; [ "$1" != "${FAILS:-}" ]'
standIn id 'echo 1000'
check 1 "Missing: $all. Nothing is installed, because that takes root, and there is no sudo."

# shellcheck disable=SC2016
standIn sudo 'echo "sudo"; exec "$@"'
check 0 "Missing, and to be installed: $all
sudo
apt-get update -q
sudo
apt-get install -q -y --no-install-recommends $all"

standIn id 'echo 0'
check 1 "Missing, and to be installed: $all
apt-get update -q
Missing: $all. Nothing is installed, because apt-get update failed." FAILS=update
check 1 "Missing, and to be installed: $all
apt-get update -q
apt-get install -q -y --no-install-recommends $all
Missing: $all. Nothing is installed, because apt-get install failed; it says why above." \
  FAILS=install

# Commands in PATH count, whoever installed them; of the rest the packages are asked for.
standIn g++ ''
standIn ninja ''
# shellcheck disable=SC2016
standIn dpkg-query '[ "${!#}" != cmake ] || echo ii'
check 0 "Missing: make nlohmann-json3-dev. Nothing is installed, because KIVO_INSTALL is no." \
  KIVO_INSTALL=no
standIn make ''
# shellcheck disable=SC2016
standIn dpkg-query 'echo ii'
check 0 ""
echo "bootstrap says what is missing, and why it installs nothing"
