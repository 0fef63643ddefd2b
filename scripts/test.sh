#!/usr/bin/env bash
# The whole test suite: installs what is missing, builds, and runs every test.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh
scripts/build.sh
BUILD_DIR=${BUILD_DIR:-build}
ctest --test-dir "$BUILD_DIR" --output-on-failure -j2
