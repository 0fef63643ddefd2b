#!/usr/bin/env bash
# The main job: installs what is missing, builds, and runs the demonstration program.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh
scripts/build.sh >/dev/null
BUILD_DIR=${BUILD_DIR:-build}
exec java -Dplayerimpl.library="$PWD/$BUILD_DIR/lib/libplayerimpl_jni.so" \
  -cp "$BUILD_DIR/java/playerimpl_managed.jar:$BUILD_DIR/java/playerimpl_demo.jar" \
  com.vireo.demo.Main "$@"
