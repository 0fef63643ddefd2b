#!/usr/bin/env bash
# run_case.sh TOOL STATUS EXPECTED ARGS...: runs the tool with ARGS and checks its exit status
# and its findings (every line but the INFO ones) against the file EXPECTED, where "-" means
# none but the summary line. Prints the whole output when anything differs.
tool=$1 status=$2 expected=$3
shift 3
out=$("$tool" "$@")
got=$?
findings=$(grep -v '^INFO ' <<<"$out" | grep -v -E '^(OK|FAILED|LINKS ONLY):')
want=""
[ "$expected" != - ] && want=$(grep -v '^#' "$expected")
fail=0
if [ "$got" -ne "$status" ]; then
  echo "exit status $got, expected $status"
  fail=1
fi
if [ "$findings" != "$want" ]; then
  echo "findings differ:"
  diff <(echo "$want") <(echo "$findings")
  fail=1
fi
[ "$fail" -eq 0 ] || { echo "--- output:"; echo "$out"; }
exit "$fail"
