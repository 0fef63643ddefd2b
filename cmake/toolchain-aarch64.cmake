# Cross build for the device's CPU (AArch64) with Debian's g++-aarch64-linux-gnu and the arm64
# AOSP packages (dpkg --add-architecture arm64; android-libutils-dev:arm64 and friends), which
# put their libraries under /usr/lib/aarch64-linux-gnu/android. The JVM-based parts of the
# tree are skipped when cross-compiling; the library, its host substitutes and the native
# layout program are built. scripts/cross-aarch64.sh drives it.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_LIBRARY_ARCHITECTURE aarch64-linux-gnu)

set(CMAKE_C_COMPILER aarch64-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)

# The cross compiler's own sysroot holds libc/libstdc++; the multiarch library directories
# (/usr/lib/aarch64-linux-gnu/...) hold the arm64 AOSP libraries, so libraries are searched in
# both places. Programs (javac, cmake helpers) always come from the build machine.
set(CMAKE_FIND_ROOT_PATH /usr/aarch64-linux-gnu)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY BOTH)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE BOTH)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)

# Lets ctest (and add_custom_command) run target programs on the build machine.
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-aarch64 -L /usr/aarch64-linux-gnu)
