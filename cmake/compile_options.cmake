# The compile options of every target of this project; tools that link the library do not get them.
add_library(kivo_options INTERFACE)
target_compile_features(kivo_options INTERFACE cxx_std_17)
target_compile_options(kivo_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor
  -Wold-style-cast -Wcast-qual -Wcast-align -Woverloaded-virtual -Wformat=2 -Wundef
  -Wextra-semi -Wimplicit-fallthrough
  # clang++ from 17 on warns of std::stable_sort() of libstdc++ 12.
  $<$<AND:$<CXX_COMPILER_ID:Clang>,$<VERSION_GREATER_EQUAL:$<CXX_COMPILER_VERSION>,17>>:-Wno-deprecated-declarations>
  $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond;-Wduplicated-branches;-Wlogical-op>
  $<$<BOOL:${KIVO_WARNINGS_AS_ERRORS}>:-Werror>
  # Keeps absolute paths of the build machine out of the binaries.
  -ffile-prefix-map=${PROJECT_SOURCE_DIR}/=
  -ffile-prefix-map=${PROJECT_BINARY_DIR}=.)
# On 32 bits, stat() fails for a file of more than 2 GB, or of a time after 2038, without these.
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  target_compile_definitions(kivo_options INTERFACE _FILE_OFFSET_BITS=64 _TIME_BITS=64)
endif()

# A release of the shared library uses LTO if the compiler supports it, unless the user has set
# CMAKE_INTERPROCEDURAL_OPTIMIZATION. LTO with -O2 is as fast as -O3 file by file, and a third
# smaller. The archive never does: only the linker plugin of the same compiler could read it.
if(kivo_is_archive)
  set(kivo_release_as_a_whole OFF)
elseif(DEFINED CMAKE_INTERPROCEDURAL_OPTIMIZATION)
  set(kivo_release_as_a_whole ${CMAKE_INTERPROCEDURAL_OPTIMIZATION})
else()
  include(CheckIPOSupported)
  check_ipo_supported(RESULT kivo_release_as_a_whole OUTPUT kivo_why_not LANGUAGES CXX)
endif()

# What g++ leaves for LTO is nothing for lld, which would link an empty library without an error.
set(kivo_linker "${CMAKE_CXX_FLAGS} ${CMAKE_SHARED_LINKER_FLAGS} -fuse-ld=${CMAKE_LINKER_TYPE}")
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND kivo_linker MATCHES "-fuse-ld=(lld|LLD)"
   AND NOT kivo_is_archive)
  if(CMAKE_INTERPROCEDURAL_OPTIMIZATION OR CMAKE_CXX_FLAGS MATCHES "-flto")
    message(FATAL_ERROR "lld cannot link what g++ makes with LTO: take another linker, or no LTO")
  endif()
  message(STATUS "No LTO, because lld cannot link what g++ makes with it")
  set(kivo_release_as_a_whole OFF)
endif()

# Compiles a target as a part of the library. Symbols are hidden unless they are marked
# visible. Thread-local variables use the initial-exec model, so that the library does not call the
# dynamic linker to find them. With g++, loops and jump targets are not aligned: that saves 8 KB (a
# stripped libkivo.so of 199,632 bytes instead of 207,824) and makes nothing slower (a typical
# command line and fifty options take 1 to 3 % less time).
#
# In the archive, each function has a section, so that --gc-sections drops what a tool does not use.
function(kivo_library_part target)
  target_link_libraries(${target} PRIVATE kivo_options)
  target_compile_options(${target} PRIVATE
    -frtti  # a project that includes the library may do without
    -ftls-model=initial-exec $<$<CONFIG:Release>:-O2>
    $<$<AND:$<CONFIG:Release>,$<CXX_COMPILER_ID:GNU>>:-fno-align-loops;-fno-align-jumps>)
  set_target_properties(${target} PROPERTIES
    INTERPROCEDURAL_OPTIMIZATION_RELEASE ${kivo_release_as_a_whole}
    POSITION_INDEPENDENT_CODE ON
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON
    CXX_EXTENSIONS OFF)
  if(kivo_is_archive)
    target_compile_definitions(${target} PUBLIC KIVO_STATIC)
    target_compile_options(${target} PRIVATE -ffunction-sections -fdata-sections
      -fno-lto)  # after the flags of the user, which may ask for LTO
  endif()
endfunction()
