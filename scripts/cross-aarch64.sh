#!/usr/bin/env bash
# AArch64 cross build and layout check. Installs what is missing (cross compiler, qemu-user,
# lld, the arm64 AOSP libraries), cross-builds the library with its host substitutes and the
# native layout program into build-aarch64/ (or $CROSS_BUILD_DIR), builds the same program for
# this machine into build-layout-host/, runs both (the AArch64 one under qemu-aarch64) and fails
# when either reports a slot out of place or when the two reports differ in any size, offset
# or slot. Then checks the AArch64 substitutes' binary interface, as linked and relinked with
# packed relocations (Android's format and RELR).
set -euo pipefail
cd "$(dirname "$0")/.."
CROSS_BUILD_DIR=${CROSS_BUILD_DIR:-build-aarch64}
HOST_BUILD_DIR=${LAYOUT_HOST_BUILD_DIR:-build-layout-host}
SUDO=""; [ "$(id -u)" -ne 0 ] && SUDO=sudo

# ---- what the cross build needs ----
if ! dpkg --print-foreign-architectures | grep -qx arm64; then
  $SUDO dpkg --add-architecture arm64
  export PIJ_APT_UPDATE=1
fi
scripts/deps.sh cmake make g++ g++-aarch64-linux-gnu qemu-user lld \
  android-libutils-dev android-liblog-dev android-libnativehelper-dev \
  android-platform-frameworks-native-headers \
  android-libutils-dev:arm64 android-liblog-dev:arm64 android-libnativehelper-dev:arm64

# The arm64 libbacktrace (under libutils) needs p7zip's 7z.so, whose package cannot be
# installed next to the build machine's own: its arm64 copy is unpacked into the build tree.
mkdir -p "$CROSS_BUILD_DIR"
EXTRA_LIBS="$PWD/$CROSS_BUILD_DIR/arm64-extra"
if [ ! -f "$EXTRA_LIBS/7z.so" ]; then
  tmp=$(mktemp -d)
  (cd "$tmp" && apt-get download -q p7zip-full:arm64 >/dev/null && dpkg-deb -x p7zip-full_*.deb x)
  mkdir -p "$EXTRA_LIBS"
  cp "$tmp/x/usr/lib/p7zip/7z.so" "$EXTRA_LIBS/"
  rm -rf "$tmp"
fi

# ---- AArch64: the library and the layout program ----
cmake -S . -B "$CROSS_BUILD_DIR" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/toolchain-aarch64.cmake" \
  -DCMAKE_EXE_LINKER_FLAGS="-Wl,-rpath-link,$EXTRA_LIBS" >/dev/null
cmake --build "$CROSS_BUILD_DIR" -j"$(nproc)" --target playerimpl_jni playerimpl_layout \
  packed_substitutes
readelf -h "$CROSS_BUILD_DIR/lib/libplayerimpl_jni.so" | grep -q "Machine: *AArch64" \
  || { echo "libplayerimpl_jni.so is not an AArch64 library"; exit 1; }

# ---- x86-64: the same program, built without the JVM parts ----
cmake -S . -B "$HOST_BUILD_DIR" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DPIJ_BUILD_TESTS=OFF -DPIJ_BUILD_BENCH=OFF >/dev/null
cmake --build "$HOST_BUILD_DIR" -j"$(nproc)" --target playerimpl_layout

# ---- run both and compare ----
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
status=0
"$HOST_BUILD_DIR/bin/playerimpl_layout" >"$out/x86-64.txt" || status=1
LD_LIBRARY_PATH=/usr/lib/aarch64-linux-gnu/android:$EXTRA_LIBS${LD_LIBRARY_PATH:+:$LD_LIBRARY_PATH} \
  qemu-aarch64 -L /usr/aarch64-linux-gnu "$CROSS_BUILD_DIR/bin/playerimpl_layout" \
  >"$out/aarch64.txt" || status=1
grep '^FAIL' "$out/x86-64.txt" | sed 's/^/x86-64: /' || true
grep '^FAIL' "$out/aarch64.txt" | sed 's/^/aarch64: /' || true
if ! diff -u "$out/x86-64.txt" "$out/aarch64.txt"; then
  echo "layout: the x86-64 and AArch64 reports differ"
  status=1
fi
rows=$(wc -l <"$out/aarch64.txt")
if [ "$status" -eq 0 ]; then
  echo "layout: $rows report lines identical on x86-64 and AArch64, no slot out of place"
else
  echo "layout: FAILED"
fi

# ---- the AArch64 substitutes' binary interface, read from this machine ----
# playerimpl-abi-check only reads the files, so the x86-64 build of it checks the AArch64
# libraries: every import of the library is exported, every slot holds its operation; the
# same for the substitutes relinked by ld.lld with packed relocations (lib/packed-*/).
if ! dpkg-query -W -f='${Status}' libelf-dev 2>/dev/null | grep -q 'install ok installed'; then
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq libelf-dev >/dev/null
fi
cmake --build "$HOST_BUILD_DIR" -j"$(nproc)" --target playerimpl-abi-check
for variant in plain packed-android packed-relr; do
  lib=$CROSS_BUILD_DIR/lib
  [ "$variant" = plain ] || lib=$lib/$variant
  abi_status=0
  "$HOST_BUILD_DIR/bin/playerimpl-abi-check" "$lib/libPlayerImpl_hidl.so" "$lib/libtvdisplay.so" \
    --library "$CROSS_BUILD_DIR/lib/libplayerimpl_jni.so" >"$out/abi-$variant.txt" || abi_status=$?
  grep -v '^INFO ' "$out/abi-$variant.txt" | sed "s/^/abi aarch64 $variant: /"
  if [ "$abi_status" -ne 0 ]; then
    echo "abi: the AArch64 substitutes ($variant) do not match our headers (status $abi_status)"
    status=1
  fi
done
exit "$status"
