# For the scripts of this folder: builds the shared library alone.

# Runs a step and shows its output only if it fails. Needs the folder $scratch.
quietly() {
  "$@" >"$scratch/log" 2>&1 && return
  cat "$scratch/log"
  echo "failed: $*"
  return 1
}

#   buildLibrary SOURCE-DIRECTORY BUILD-DIRECTORY COMPILER FLAGS
# Builds the library into the folder src of the build directory. The build type "None" adds no flags
# to the given ones.
buildLibrary() {
  quietly cmake -S "$1" -B "$2" -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_COMPILER="$3" \
    -DCMAKE_CXX_FLAGS="$4" -DCMAKE_INSTALL_LIBDIR=lib -DBUILD_TESTING=OFF \
    -DKIVO_BUILD_EXAMPLES=OFF -DKIVO_BUILD_DESCRIBE=OFF -DKIVO_WARNINGS_AS_ERRORS=OFF
  quietly cmake --build "$2" --target kivo --parallel "$(nproc)"
}
