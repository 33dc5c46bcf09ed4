# Linux on 64-bit RISC-V, where char is unsigned, with Debian's cross compiler. An emulator runs the programs.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR riscv64)
set(CMAKE_CXX_COMPILER riscv64-linux-gnu-g++)
set(CMAKE_C_COMPILER riscv64-linux-gnu-gcc)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-riscv64-static -L /usr/riscv64-linux-gnu)
