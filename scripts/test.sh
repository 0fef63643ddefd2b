#!/usr/bin/env bash
# The whole test suite: installs what is missing, builds, and runs
#   0. every library source compiled against the device's own headers (Android 8.0, gnu++14),
#   1. the AddressSanitizer/UndefinedBehaviorSanitizer build of every test inside the VM,
#   2. the ThreadSanitizer run of the call frame, player replacement and listener,
#   3. the fuzzers, a bounded time each (FUZZ_SECONDS, default 60),
#   4. the AArch64 cross build with its layout, slot and key report under qemu,
#   5. the Debug build (build-debug/), warnings as errors like every build: everything but the
#      benchmarks, or only the library under PIJ_QUICK=1,
#   6. the plain build's test suite (GoogleTest suites in the VM, the demonstration program
#      end to end, the short stress run, the export and layout checks).
# PIJ_QUICK=1 runs only steps 0, 5 and 6.
set -uo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh || exit 1
scripts/build.sh || exit 1
BUILD_DIR=${BUILD_DIR:-build}

failed=()
stage() {
  local name=$1
  shift
  echo "== $name"
  if "$@"; then echo "== $name: passed"; else echo "== $name: FAILED"; failed+=("$name"); fi
}

stage "device headers" scripts/device-headers.sh
if [ "${PIJ_QUICK:-0}" != 1 ]; then
  stage "sanitizers" scripts/sanitize.sh
  stage "thread sanitizer" tests/tsan/run.sh 10
  stage "fuzzing" scripts/fuzz.sh "${FUZZ_SECONDS:-60}"
  stage "aarch64 cross build" scripts/cross-aarch64.sh
  stage "debug build" scripts/debug-build.sh
else
  stage "debug build" scripts/debug-build.sh --library
fi

echo "== test suite"
ctest --test-dir "$BUILD_DIR" --output-on-failure -j2
suite=$?
if [ ${#failed[@]} -gt 0 ]; then
  echo "failed stages: ${failed[*]}"
  exit 1
fi
exit $suite
