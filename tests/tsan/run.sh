#!/usr/bin/env bash
# Builds the native-only ThreadSanitizer harness with clang and runs it.
#   tests/tsan/run.sh [seconds]      default 10; BUILD_DIR picks the build tree
set -euo pipefail
cd "$(dirname "$0")/../.."
BUILD_DIR=${BUILD_DIR:-build-tsan}
cmake -S tests/tsan -B "$BUILD_DIR" -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$BUILD_DIR" -j2
# halt_on_error: the first race ends the run with status 66.
TSAN_OPTIONS="halt_on_error=1 second_deadlock_stack=1" "$BUILD_DIR/tsan_frame" "${1:-10}"
