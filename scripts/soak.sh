#!/usr/bin/env bash
# A long run of the stress test: four managed threads calling every kind of native, players
# set up, finalised and suspended under them, two service threads firing every event.
#
#   scripts/soak.sh [seconds]     default 1800 (30 minutes); BUILD_DIR picks the build tree
#
# The figures (calls, events, set-ups, findings) are printed at the end and kept in
# $BUILD_DIR/soak.log.
set -euo pipefail
cd "$(dirname "$0")/.."
SECONDS_TO_RUN=${1:-1800}
BUILD_DIR=${BUILD_DIR:-build-soak}
scripts/deps.sh
cmake -S . -B "$BUILD_DIR" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DPIJ_BUILD_BENCH=OFF >/dev/null
cmake --build "$BUILD_DIR" -j2 --target test_stress
LOG="$BUILD_DIR/soak.log"
echo "soak of ${SECONDS_TO_RUN} s started $(date -u +%FT%TZ) on $(nproc) cores" | tee "$LOG"
start=$(date +%s)
set +e
PIJ_SOAK_SECONDS="$SECONDS_TO_RUN" "$BUILD_DIR/bin/test_stress" >>"$LOG" 2>&1
rc=$?
set -e
end=$(date +%s)
echo "soak ended $(date -u +%FT%TZ) after $((end - start)) s, exit status $rc" | tee -a "$LOG"
grep -E '^STRESS|FAILED|DEADLOCK' "$LOG" || true
exit "$rc"
