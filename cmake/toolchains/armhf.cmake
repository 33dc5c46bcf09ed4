# Linux on 32-bit ARM, where char is unsigned, with Debian's cross compiler. An emulator runs the programs.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR armhf)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm-static -L /usr/arm-linux-gnueabihf)
