#!/usr/bin/env bash
# Installs Debian 12 packages where missing: the ones named, or (with none named) those the
# build and the test suite need.
set -euo pipefail
if [ $# -gt 0 ]; then
  pkgs=("$@")
else
  pkgs=(cmake g++ make openjdk-17-jdk-headless googletest libgtest-dev libbenchmark-dev
        android-libutils-dev android-liblog-dev android-libnativehelper-dev
        android-platform-frameworks-native-headers nlohmann-json3-dev
        clang libclang-rt-dev libelf-dev lld)
fi
missing=()
for p in "${pkgs[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
SUDO=""; [ "$(id -u)" -ne 0 ] && SUDO=sudo
if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq "${missing[@]}" >/dev/null
elif [ -n "${PIJ_APT_UPDATE:-}" ]; then
  $SUDO apt-get update -qq  # a new architecture's package lists, even with nothing missing
fi
