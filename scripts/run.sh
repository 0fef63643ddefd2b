#!/usr/bin/env bash
# The main job: installs what is missing, builds, and runs the demonstration program against
# the simulated TV. Pass --scenario FILE to run a scenario of your own instead of the
# built-in one (a path relative to where you are).
set -euo pipefail
args=()
while [ $# -gt 0 ]; do
  if [ "$1" = --scenario ] && [ $# -gt 1 ]; then
    case $2 in /*) f=$2 ;; *) f=$PWD/$2 ;; esac
    args+=(--scenario "$f")
    shift 2
  else
    args+=("$1")
    shift
  fi
done
cd "$(dirname "$0")/.."
scripts/deps.sh
BUILD_DIR=${BUILD_DIR:-build}
# Only what the program needs: the library, its substitutes and the two jars.
cmake -S . -B "$BUILD_DIR" -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$BUILD_DIR" -j"$(nproc)" --target playerimpl_jni playerimpl_demo >/dev/null
exec java -Dplayerimpl.library="$PWD/$BUILD_DIR/lib/libplayerimpl_jni.so" \
  -cp "$BUILD_DIR/java/playerimpl_managed.jar:$BUILD_DIR/java/playerimpl_demo.jar" \
  com.vireo.demo.Main "${args[@]+"${args[@]}"}"
