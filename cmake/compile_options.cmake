# What every target of ours is compiled with; users of the library see none of it.
add_library(kivo_options INTERFACE)
target_compile_features(kivo_options INTERFACE cxx_std_17)
target_compile_options(kivo_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor
  -Wold-style-cast -Wcast-qual -Wcast-align -Woverloaded-virtual -Wformat=2 -Wundef
  -Wextra-semi -Wimplicit-fallthrough
  $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond;-Wduplicated-branches;-Wlogical-op>
  $<$<BOOL:${KIVO_WARNINGS_AS_ERRORS}>:-Werror>
  # No path of the machine that builds ends up in what is built.
  -ffile-prefix-map=${PROJECT_SOURCE_DIR}/=
  -ffile-prefix-map=${PROJECT_BINARY_DIR}=.)

# A release is optimized as a whole where the compiler can do that, unless somebody has
# decided about it: with -O2 that is as fast as -O3 file by file, and a third smaller.
if(DEFINED CMAKE_INTERPROCEDURAL_OPTIMIZATION)
  set(kivo_release_as_a_whole ${CMAKE_INTERPROCEDURAL_OPTIMIZATION})
else()
  include(CheckIPOSupported)
  check_ipo_supported(RESULT kivo_release_as_a_whole OUTPUT kivo_why_not LANGUAGES CXX)
endif()

# Makes the sources of a part of the shared library: nothing is visible from outside
# unless it says so, and what is of a thread is reached without the dynamic linker's help,
# which the library otherwise has no need of. With g++, loops and targets of jumps are not padded:
# that saves 8 KB (a stripped libkivo.so of 199,632 bytes instead of 207,824) and makes nothing
# slower (a typical command line and fifty options take 1 to 3 % less time).
function(kivo_library_part target)
  target_link_libraries(${target} PRIVATE kivo_options)
  target_compile_options(${target} PRIVATE
    -ftls-model=initial-exec $<$<CONFIG:Release>:-O2>
    $<$<AND:$<CONFIG:Release>,$<CXX_COMPILER_ID:GNU>>:-fno-align-loops;-fno-align-jumps>)
  set_target_properties(${target} PROPERTIES
    INTERPROCEDURAL_OPTIMIZATION_RELEASE ${kivo_release_as_a_whole}
    POSITION_INDEPENDENT_CODE ON
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON
    CXX_EXTENSIONS OFF)
endfunction()
