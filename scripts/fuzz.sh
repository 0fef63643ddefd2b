#!/usr/bin/env bash
# Builds the libFuzzer targets with clang and runs each for a bounded time, starting from
# the seeds kept in fuzz/corpus/ (new inputs found go to a scratch copy, not the repository).
#
#   scripts/fuzz.sh            60 s per target
#   scripts/fuzz.sh 600        ten minutes per target
#   BUILD_DIR=dir scripts/fuzz.sh
# A crash leaves its input in $BUILD_DIR/artifacts/ and fails the script.
set -euo pipefail
cd "$(dirname "$0")/.."
SECONDS_PER_TARGET=${1:-${FUZZ_SECONDS:-60}}
BUILD_DIR=${BUILD_DIR:-build-fuzz}
if ! command -v clang++ >/dev/null || ! dpkg-query -W -f='${Status}' libclang-rt-dev 2>/dev/null | grep -q 'install ok installed'; then
  SUDO=""; [ "$(id -u)" -ne 0 ] && SUDO=sudo
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq clang libclang-rt-dev >/dev/null
fi
scripts/deps.sh
cmake -S fuzz -B "$BUILD_DIR" -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$BUILD_DIR" -j2
mkdir -p "$BUILD_DIR/artifacts"
# Leaks are reported: these targets run no JVM. Every UBSan finding is fatal.
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
status=0
for target in parcel_reader payloads; do
  work="$BUILD_DIR/corpus/$target"
  rm -rf "$work"
  mkdir -p "$work"
  cp fuzz/corpus/$target/* "$work"/
  echo "== fuzz_$target for ${SECONDS_PER_TARGET} s"
  if ! "$BUILD_DIR/fuzz_$target" "$work" -max_total_time="$SECONDS_PER_TARGET" -max_len=4096 \
        -artifact_prefix="$BUILD_DIR/artifacts/$target-" -print_final_stats=1 2>"$BUILD_DIR/fuzz_$target.log"; then
    status=1
    tail -40 "$BUILD_DIR/fuzz_$target.log"
  fi
  grep -E 'stat::number_of_executed_units|stat::peak_rss_mb|Done [0-9]+ runs' "$BUILD_DIR/fuzz_$target.log" || true
done
if [ "$status" -eq 0 ]; then echo "fuzzing: 2 passed, 0 failed"; else echo "fuzzing: a target found a crash"; fi
exit "$status"
