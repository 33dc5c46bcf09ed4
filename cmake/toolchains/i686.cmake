# Linux on 32-bit x86, with Debian's cross compiler. The programs run natively on an x86-64 machine:
# they name the cross compiler's dynamic linker and libraries, so the processes that a test starts
# need no emulator either.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_CXX_COMPILER i686-linux-gnu-g++)
set(CMAKE_C_COMPILER i686-linux-gnu-gcc)
set(kivo_target_libraries /usr/i686-linux-gnu/lib)
set(CMAKE_EXE_LINKER_FLAGS_INIT
    "-Wl,--dynamic-linker=${kivo_target_libraries}/ld-linux.so.2,-rpath,${kivo_target_libraries}")
# Without an emulator, CMake would not run the programs of a cross build.
set(CMAKE_CROSSCOMPILING_EMULATOR /usr/bin/env)
