#!/usr/bin/env bash
# Configures the library with absolute install directories, some and all of them, and asks pkg-config
# for the flags.
#   absolute_directories.sh SOURCE-DIRECTORY
set -euo pipefail
source=$1
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# check NAME LIBDIR INCLUDEDIR EXPECTED-FLAGS
check() {
  cmake -S "$source" -B "$scratch/$1" -DCMAKE_INSTALL_PREFIX=/opt/kivo -DBUILD_TESTING=OFF \
    -DKIVO_BUILD_EXAMPLES=OFF -DKIVO_BUILD_DESCRIBE=OFF -DCMAKE_INSTALL_LIBDIR="$2" \
    -DCMAKE_INSTALL_INCLUDEDIR="$3" >"$scratch/log" 2>&1 || { cat "$scratch/log"; exit 1; }
  flags=$(PKG_CONFIG_PATH=$scratch/$1 PKG_CONFIG_ALLOW_SYSTEM_CFLAGS=1 \
    PKG_CONFIG_ALLOW_SYSTEM_LIBS=1 pkg-config --cflags --libs kivo | sed 's/ *$//')
  [ "$flags" = "$4" ] || { echo "$1: $flags"; exit 1; }
}

check both /srv/lib /srv/include "-I/srv/include -L/srv/lib -lstdc++ -lkivo"
check library /srv/lib include "-I/opt/kivo/include -L/srv/lib -lstdc++ -lkivo"
# Where kivo.pc is not absolute, the prefix is where kivo.pc is: here two folders above the build.
check headers lib /srv/include \
  "-I/srv/include -L$scratch/headers/../../lib -lstdc++ -lkivo"
echo "absolute install directories are in kivo.pc as they are"
