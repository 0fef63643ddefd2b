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
scripts/build.sh >/dev/null
BUILD_DIR=${BUILD_DIR:-build}
exec java -Dplayerimpl.library="$PWD/$BUILD_DIR/lib/libplayerimpl_jni.so" \
  -cp "$BUILD_DIR/java/playerimpl_managed.jar:$BUILD_DIR/java/playerimpl_demo.jar" \
  com.vireo.demo.Main "${args[@]+"${args[@]}"}"
