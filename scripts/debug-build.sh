#!/usr/bin/env bash
# Configures and builds the Debug build into build-debug/ (or $DEBUG_BUILD_DIR). Unoptimised
# code meets other warnings than the optimised build does (GCC's format and overflow checks
# see other values), and every warning is an error here too.
#   scripts/debug-build.sh            everything but the benchmarks
#   scripts/debug-build.sh --library  the library only
set -euo pipefail
cd "$(dirname "$0")/.."
DEBUG_BUILD_DIR=${DEBUG_BUILD_DIR:-build-debug}
cmake -S . -B "$DEBUG_BUILD_DIR" -DCMAKE_BUILD_TYPE=Debug -DPIJ_BUILD_BENCH=OFF >/dev/null
if [ "${1:-}" = --library ]; then
  cmake --build "$DEBUG_BUILD_DIR" -j2 --target playerimpl_jni
else
  cmake --build "$DEBUG_BUILD_DIR" -j2
fi
