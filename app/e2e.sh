#!/usr/bin/env bash
# Runs the demonstration program once and checks what it printed.
#   e2e.sh ok     SCENARIO|- TEXT...   exit 0, the summary printed, every TEXT seen
#   e2e.sh refuse SCENARIO   TEXT...   non-zero exit, every TEXT in the refusal, nothing started
# JAVA, CLASSPATH and PIJ_LIBRARY come from the environment (set by the ctest entry). With
# LOADER_CLASSPATH set, the program and the managed API (CLASSPATH) run in a class loader of
# their own (com.vireo.test.OwnLoader, found on LOADER_CLASSPATH), as an application's classes
# do on the device; otherwise they are on the system class path.
set -u
mode=$1 scenario=$2
shift 2
args=()
[ "$scenario" != "-" ] && args=(--scenario "$scenario")
if [ -n "${LOADER_CLASSPATH:-}" ]; then
  run=(-cp "$LOADER_CLASSPATH" com.vireo.test.OwnLoader "$CLASSPATH" com.vireo.demo.Main)
else
  run=(-cp "$CLASSPATH" com.vireo.demo.Main)
fi
out=$("$JAVA" -Dplayerimpl.library="$PIJ_LIBRARY" "${run[@]}" "${args[@]}" 2>&1)
rc=$?
printf '%s\n' "$out"
fail() { echo "E2E FAILED: $*"; exit 1; }
if [ "$mode" = ok ]; then
  [ $rc -eq 0 ] || fail "exit status $rc, expected 0"
  grep -q '^== Summary' <<<"$out" || fail "no summary"
  grep -q 'calls made: ' <<<"$out" || fail "no count of calls"
else
  [ $rc -ne 0 ] || fail "exit status 0, expected a refusal"
  grep -q 'native_setup' <<<"$out" && fail "the player was set up despite the refusal"
  grep -q 'TVPLAYER_' <<<"$out" && fail "events arrived despite the refusal"
fi
for text in "$@"; do
  grep -qF -- "$text" <<<"$out" || fail "missing: $text"
done
echo "E2E OK"
