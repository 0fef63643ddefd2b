#!/usr/bin/env bash
# packed_streams.sh TOOL: the decoder of Android's packed relocations (TOOL --decode-packed
# FILE) on hand-made streams: grouped and ungrouped entries, with and without addends, and
# damaged streams, which must give one clear ERROR line and status 2.
tool=$1
dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT
passed=0 failed=0

# The numbers of the stream are signed LEB128: seven bits a byte, low bits first.
sleb() {
  local v=$1 byte
  while :; do
    byte=$((v & 0x7f))
    v=$((v >> 7))
    if { [ "$v" -eq 0 ] && [ $((byte & 0x40)) -eq 0 ]; } ||
       { [ "$v" -eq -1 ] && [ $((byte & 0x40)) -ne 0 ]; }; then
      printf '\\x%02x' "$byte"
      return
    fi
    printf '\\x%02x' $((byte | 0x80))
  done
}

# stream NAME MAGIC NUMBER...: writes MAGIC and the numbers to $dir/NAME.
stream() {
  local name=$1 magic=$2 n
  shift 2
  { printf '%s' "$magic"; for n in "$@"; do printf '%b' "$(sleb "$n")"; done; } >"$dir/$name"
}

# check NAME STATUS EXPECTED: the decoder's output and status for $dir/NAME.
check() {
  local name=$1 status=$2 want=$3 out got
  out=$("$tool" --decode-packed "$dir/$name")
  got=$?
  if [ "$got" -eq "$status" ] && [ "$out" == "$want" ]; then
    passed=$((passed + 1))
    return
  fi
  echo "$name: status $got (expected $status); output differs:"
  diff <(echo "$want") <(echo "$out")
  failed=$((failed + 1))
}

# x86-64 relocation infos: a relative one (type 8), and an absolute one on symbol 3 (type 1).
relative=8
absolute=$(((3 << 32) | 1))
# Group flags.
by_info=1 by_offset=2 by_addend=4 has_addend=8

# One group whose entries share everything: offset step, info and addend.
stream grouped APS2 3 0x1000 3 $((by_info | by_offset | by_addend | has_addend)) 8 $relative 32
check grouped 0 "offset 0x1008 type 8 symbol 0 addend 32
offset 0x1010 type 8 symbol 0 addend 32
offset 0x1018 type 8 symbol 0 addend 32
3 relocations"

# Entries with nothing grouped: each its own offset step, info and addend step (negative too).
stream ungrouped APS2 2 0x2000 2 $has_addend 0x10 $relative 0x100 0x18 $absolute -0x80
check ungrouped 0 "offset 0x2010 type 8 symbol 0 addend 256
offset 0x2028 type 1 symbol 3 addend 128
2 relocations"

# A group with addends, then one without: its addends are 0, not the last one carried on.
stream mixed APS2 3 0x3000 1 $((by_info | has_addend)) $relative 8 0x40 \
  2 $((by_info | by_offset)) 8 $absolute
check mixed 0 "offset 0x3008 type 8 symbol 0 addend 64
offset 0x3010 type 1 symbol 3 addend 0
offset 0x3018 type 1 symbol 3 addend 0
3 relocations"

# Damaged streams: cut short, a group larger than the count left, another magic, empty.
head -c -1 "$dir/grouped" >"$dir/truncated"
check truncated 2 \
  "ERROR $dir/truncated: the stream is cut short: it ends after 11 bytes, inside a group's addend step"
head -c 9 "$dir/ungrouped" >"$dir/cut-in-header"
check cut-in-header 2 \
  "ERROR $dir/cut-in-header: the stream is cut short: it ends after 9 bytes, inside a group's flags"
stream oversized APS2 1 0 2 $((by_info | by_offset)) 8 $relative
check oversized 2 "ERROR $dir/oversized: a group of 2 relocations where 1 remain"
stream other-magic APS1 1 0 1 0 8 $relative
check other-magic 2 "ERROR $dir/other-magic: the packed relocations do not start with \"APS2\""
: >"$dir/empty"
check empty 2 "ERROR $dir/empty: the packed relocations do not start with \"APS2\""

echo "packed streams: $passed passed, $failed failed"
[ "$failed" -eq 0 ]
