#!/usr/bin/env bash
# The check tool against the workstation's managed build (must pass) and against a class path
# with planted mismatches (each must be reported, and nothing that is right).
# Usage: check_test.sh TOOL MANAGED_JAR BROKEN_JAR
set -uo pipefail
tool=$1 managed=$2 broken=$3
P=com/vireo/android/tvapi/impl/PlayerImpl
V=com/vireo/android/tvapi/common/vo/VideoArcInfo
passed=0 failed=0
ok() { passed=$((passed + 1)); }
bad() { echo "FAILED: $*"; failed=$((failed + 1)); }
has() { grep -qxF -- "$1" <<<"$out" && ok || bad "missing finding: $1"; }
hasnt() { grep -qF -- "$1" <<<"$out" && bad "unexpected finding about $1" || ok; }

# The workstation's managed side matches: no finding, exit 0.
out=$("$tool" "$managed" 2>/dev/null); rc=$?
[ "$rc" -eq 0 ] && ok || bad "workstation class path: exit $rc"
[ -z "$out" ] && ok || bad "workstation class path reported: $out"

# Every native row and every event code is checked.
list=$("$tool" --list)
[ "$(grep -c '^native ' <<<"$list")" -eq 150 ] && ok || bad "--list does not show 150 natives"
[ "$(grep -c "^field $P.TVPLAYER_" <<<"$list")" -eq 63 ] && ok || bad "--list: not 63 codes"

# The planted mismatches.
out=$("$tool" "$broken:$managed" 2>/dev/null); rc=$?
[ "$rc" -eq 1 ] && ok || bad "broken class path: exit $rc, expected 1"
has "native $P.closeTeletext()Z: other signature (instance (I)Z)"
has "native $P.stopCc()Z: declared but not native"
has "native $P.startPcModeAtuoTune()Z: missing"
hasnt "$P.native_init"
hasnt "$P.native_setup"
hasnt "$P.native_finalize"
has "field $P.TVPLAYER_SIGNAL_LOCK I: missing"
has "field $P.TVPLAYER_SIGNAL_UNLOCK I: is static J, expected static I"
has "field $P.TVPLAYER_TS_CHANGE I: is instance I, expected static I"
hasnt "TVPLAYER_DTV_AUTO_TUNING_SCAN_INFO"
has "field $P.mNativeContext J: is instance I, expected instance J"
has "field $P.mPlayerContext I: missing"
has "method $P.postEventFromNative (Ljava/lang/Object;IIILjava/lang/Object;)V: is instance (Ljava/lang/Object;IIILjava/lang/Object;)V, expected static (Ljava/lang/Object;IIILjava/lang/Object;)V"
hasnt "mNativeSurfaceTexture"
has "field android/view/Surface.mLock Ljava/lang/Object;: is instance Ljava/lang/String;, expected instance Ljava/lang/Object;"
hasnt "mNativeObject"
# The aspect-ratio class, once the library looks its fields up.
if grep -qF "field $V.arcType I" <<<"$list"; then
  has "field $V.arcType I: is instance J, expected instance I"
  has "field $V.adjArcUp S: missing"
  has "field $V.bSetCusWin Z: is static Z, expected instance Z"
  hasnt "$V.threeDimensionArcType"
  hasnt "$V.adjArcDown"
fi
# Every finding is one line of the documented kinds.
bad_lines=$(grep -vE '^(native|field|method|class) ' <<<"$out")
[ -z "$bad_lines" ] && ok || bad "unexpected output: $bad_lines"

# No managed player at all: one line for the class, exit 1.
out=$("$tool" /nonexistent 2>/dev/null); rc=$?
[ "$rc" -eq 1 ] && ok || bad "empty class path: exit $rc"
grep -q "^class $P: cannot be loaded" <<<"$out" && ok || bad "empty class path: class not reported"

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
