#!/usr/bin/env bash
# The library as the device sees it: its NEEDED libraries, its exported symbols, and what
# runs when it is loaded.
set -u
lib=$1
fail=0
needed=$(readelf -d "$lib" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p')
for want in libPlayerImpl_hidl.so libtvdisplay.so libgui.so libbinder.so; do
  echo "$needed" | grep -qx "$want" || { echo "missing NEEDED $want (unversioned)"; fail=1; }
done
echo "$needed" | grep -q '^libutils\.so' || { echo "missing NEEDED libutils"; fail=1; }
echo "$needed" | grep -q '^liblog\.so' || { echo "missing NEEDED liblog"; fail=1; }

exports=$(nm -D --defined-only "$lib" | awk '{print $3}')
for want in JNI_OnLoad suspend VndkGetSurface \
            com_vireo_android_tvapi_impl_PlayerImpl_closeTeletext \
            com_vireo_android_tvapi_impl_PlayerImpl_native_setup \
            com_vireo_android_tvapi_common_PlayerImpl_clearProgramBISSKeyByNumber; do
  echo "$exports" | grep -qx "$want" || { echo "not exported: $want"; fail=1; }
done
count=$(echo "$exports" | grep -c '^com_vireo_android_tvapi_\(impl\|common\)_PlayerImpl_')
[ "$count" -eq 149 ] || { echo "expected 149 exported handlers, found $count"; fail=1; }
# Nothing else of ours: no C++ symbols (helpers, tables, the listener) leak out.
leaked=$(echo "$exports" | grep -v -e '^com_vireo_android_tvapi_' -e '^JNI_OnLoad$' \
         -e '^suspend$' -e '^VndkGetSurface$' -e '^_init$' -e '^_fini$' \
         -e '^__bss_start$' -e '^_edata$' -e '^_end$')
if [ -n "$leaked" ]; then echo "exported beyond the handlers:"; echo "$leaked" | head -20; fail=1; fi
# Loading runs nothing of ours but the global lock's constructor: .init_array holds at most
# the compiler's own entry and that one (8 bytes each).
# A sanitizer build adds constructors of its own to every object; only a plain build counts.
if nm -D "$lib" | grep -q ' U __\(asan\|tsan\|ubsan\)_'; then
  init_size=0
else
  init_size=$(readelf -SW "$lib" | sed -n 's/.*\.init_array *INIT_ARRAY *[0-9a-f]* [0-9a-f]* \([0-9a-f]*\).*/\1/p')
fi
if [ $((16#${init_size:-0})) -gt 16 ]; then
  echo "$((16#$init_size / 8)) .init_array entries, at most 2 expected:"
  nm -C "$lib" | grep _GLOBAL__sub_I_ | grep -v '\.cold$'
  fail=1
fi
[ $fail -eq 0 ] && echo "exports, NEEDED entries and load-time code as expected"
exit $fail
