# Linux on old 32-bit ARM processors, without a floating-point unit and without atomic operations on 64
# bits, with Debian's cross compiler. An emulator runs the programs.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR armel)
set(CMAKE_CXX_COMPILER arm-linux-gnueabi-g++)
set(CMAKE_C_COMPILER arm-linux-gnueabi-gcc)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm-static -L /usr/arm-linux-gnueabi)
