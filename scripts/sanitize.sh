#!/usr/bin/env bash
# Builds the "asan" preset (library, substitutes and tests under AddressSanitizer and
# UndefinedBehaviorSanitizer) and runs the whole ctest suite with the sanitizer runtime
# preloaded into every test process, which embeds the JVM.
#
#   scripts/sanitize.sh            build into build-asan and run every test
#   BUILD_DIR=dir scripts/sanitize.sh
#   scripts/sanitize.sh -R test_stress   extra arguments go to ctest
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh
BUILD_DIR=${BUILD_DIR:-build-asan}
cmake --preset asan -B "$BUILD_DIR" >/dev/null
cmake --build "$BUILD_DIR" -j2

# The runtime must come first in the process: the JVM's own libraries are not instrumented
# and would otherwise be loaded before it, which ASan refuses. libstdc++ comes right behind
# it: the plain `java` launcher (the demonstration program's tests) does not link it, and
# ASan finds no C++ exception runtime to forward to when an instrumented library loaded
# later throws.
LIBASAN=$(gcc -print-file-name=libasan.so)
LIBSTDCXX=$(g++ -print-file-name=libstdc++.so)
export LD_PRELOAD="$LIBASAN:$LIBSTDCXX"
# handle_segv=0 and allow_user_segv_handler=1: the JVM turns SIGSEGV into null-pointer
#   exceptions and safepoint polls; ASan must leave that signal to it.
# detect_leaks=0: the JVM is not leak-clean (its arenas, code cache and threads are never
#   freed), so leak checking would report the VM, not us; the stress test counts our own
#   proxies, listeners and global references instead.
# abort_on_error=1: a finding ends the test process with a core-style abort that ctest sees.
# detect_stack_use_after_return=0: the JVM walks native stacks; fake stacks confuse it.
# check_printf=0: when a library's JNI_OnLoad fails, the JVM unloads it and then formats its
#   own event-log line from the library name that dlclose has just freed (inside libjvm's
#   os::dll_unload, not in this library); the printf checks would stop the load-failure
#   tests there. Every other check stays on.
export ASAN_OPTIONS=handle_segv=0:allow_user_segv_handler=1:detect_leaks=0:abort_on_error=1:detect_stack_use_after_return=0:check_printf=0
# Every undefined-behaviour finding is fatal and shows where it happened.
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
# The stress test runs its normal length here; PIJ_SOAK_SECONDS may lengthen it.
ctest --test-dir "$BUILD_DIR" --output-on-failure -j2 "$@"
