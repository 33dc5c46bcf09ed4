#!/usr/bin/env bash
# Compiles each public header alone, in C++17 and C++20, with warnings as errors.
#   headers_alone.sh SOURCE-DIRECTORY COMPILER
set -euo pipefail
cd "$1"

compiled=0
for header in include/kivo/*.h platform/stratum2/include/stratum2/variant.h \
              platform/bedrock/include/bedrock/{assertion,export}.h; do
  for standard in c++17 c++20; do
    "$2" -std=$standard -fsyntax-only -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion \
      -Wshadow -Wnon-virtual-dtor -Werror -Iinclude -Iplatform/stratum2/include \
      -Iplatform/bedrock/include -include "$header" -x c++ /dev/null
    compiled=$((compiled + 1))
  done
done
echo "$compiled compilations, without a warning"
