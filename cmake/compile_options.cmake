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

# Makes the sources of a part of the shared library: nothing is visible from outside
# unless it says so.
function(kivo_library_part target)
  target_link_libraries(${target} PRIVATE kivo_options)
  set_target_properties(${target} PROPERTIES
    POSITION_INDEPENDENT_CODE ON
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON
    CXX_EXTENSIONS OFF)
endfunction()
