#!/usr/bin/env bash
# Installs the Debian 12 packages the build needs, where missing.
set -euo pipefail
pkgs=(cmake g++ make openjdk-17-jdk-headless googletest libgtest-dev libbenchmark-dev
      android-libutils-dev android-liblog-dev android-libnativehelper-dev
      android-platform-frameworks-native-headers nlohmann-json3-dev
      clang libclang-rt-dev libelf-dev)
missing=()
for p in "${pkgs[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  SUDO=""; [ "$(id -u)" -ne 0 ] && SUDO=sudo
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq "${missing[@]}" >/dev/null
fi
