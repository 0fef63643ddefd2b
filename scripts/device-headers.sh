#!/usr/bin/env bash
# Compiles the library's sources against the device's own headers (Android 8.0, arm64), at the
# device's language level (gnu++14), with the module's own warnings and hidden visibility, and
# fails on any diagnostic. Nothing is linked: the check is that `m libplayerimpl_jni` would
# compile every file.
#
#   scripts/device-headers.sh                 every source under jni/
#   scripts/device-headers.sh FILE...         only these
#   scripts/device-headers.sh --stamp S --depfile D FILE
#                                             one file, as the CMake build calls it: touches S
#                                             on success and writes D for incremental rebuilds
#
# The headers are taken from $PIJ_DEVICE_HEADERS, or from ../shared/aosp-8.0-arm64-headers
# beside the project. Any folder laid out the same way works: a flags.txt with the release's
# compiler flags, @H@ standing for the folder itself. Without headers the check says so and
# does nothing (under CI that is a failure).
set -uo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
H=${PIJ_DEVICE_HEADERS:-$root/../shared/aosp-8.0-arm64-headers}
stamp=""
depfile=""
while [ $# -gt 0 ]; do
  case $1 in
    --stamp) stamp=$2; shift 2 ;;
    --depfile) depfile=$2; shift 2 ;;
    *) break ;;
  esac
done

if [ ! -f "$H/flags.txt" ]; then
  echo "device headers: none found at $H (set PIJ_DEVICE_HEADERS to a folder with flags.txt);" \
       "the library was NOT compiled against the device's headers"
  [ "${CI:-}" = true ] && exit 1
  [ -n "$stamp" ] && touch "$stamp"
  exit 0
fi
H=$(cd "$H" && pwd)
CLANGXX=${CLANGXX:-clang++}
command -v "$CLANGXX" >/dev/null || { echo "device headers: $CLANGXX not found"; exit 1; }
# shellcheck disable=SC2207
flags=($(sed "s|@H@|$H|g" "$H/flags.txt"))
flags+=(-std=gnu++14 -I"$root/jni" -fsyntax-only)

if [ -n "$stamp" ]; then
  "$CLANGXX" "${flags[@]}" ${depfile:+-MD -MF "$depfile" -MT "$stamp"} "$1" || exit 1
  touch "$stamp"
  exit 0
fi

if [ $# -gt 0 ]; then
  files=("$@")
else
  mapfile -t files < <(cd "$root" && find jni -name '*.cpp' | sort)
fi
cd "$root"
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
export CLANGXX
printf '%s\n' "${files[@]}" | xargs -P "$(nproc)" -I{} sh -c \
  '"$CLANGXX" "$@" "{}" >"'"$out"'/$(echo "{}" | tr / _).log" 2>&1 || echo "{}" >>"'"$out"'/failed"' \
  sh "${flags[@]}"
bad=0
for f in "${files[@]}"; do
  log="$out/$(echo "$f" | tr / _).log"
  if [ -s "$log" ]; then
    cat "$log"
    bad=$((bad + 1))
  fi
done
[ -f "$out/failed" ] && bad=$((bad > 0 ? bad : 1))
if [ "$bad" -ne 0 ]; then
  echo "device headers: $bad of ${#files[@]} sources do not compile cleanly against $H at gnu++14"
  exit 1
fi
echo "device headers: ${#files[@]} sources compile against $H at gnu++14 with no diagnostic"
