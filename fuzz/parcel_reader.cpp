// Fuzzes the reading side of the workstation android::Parcel: any bytes as the parcel's
// data, then any sequence of reads and repositionings. Reads past the end must fail or
// yield zero and an empty string, never touch memory outside the data, and the position
// must never pass the end.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstdint>
#include <vector>

#include "core/parcel.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzedDataProvider in(data, size);
    std::vector<uint8_t> bytes =
        in.ConsumeBytes<uint8_t>(in.ConsumeIntegralInRange<size_t>(0, 4096));
    android::Parcel p;
    p.setData(bytes.data(), bytes.size());
    uint8_t buffer[256];
    while (in.remaining_bytes() > 0) {
        switch (in.ConsumeIntegralInRange<int>(0, 9)) {
            case 0:
                (void)p.readInt32();
                break;
            case 1:
                (void)p.readUint32();
                break;
            case 2:
                (void)p.readInt64();
                break;
            case 3: {
                android::String8 s = p.readString8();
                (void)s.length();
                break;
            }
            case 4: {
                android::String8 s;
                (void)p.readString8(&s);
                break;
            }
            case 5: {
                const size_t n = in.ConsumeIntegralInRange<size_t>(0, sizeof buffer);
                if (p.read(buffer, n) != android::OK) break;
                break;
            }
            case 6: {
                const size_t n = in.ConsumeIntegral<size_t>();
                const auto* q = static_cast<const uint8_t*>(p.readInplace(n));
                // What is handed out lies inside the data.
                if (q != nullptr && (q < p.data() || q + n > p.data() + p.dataSize())) {
                    __builtin_trap();
                }
                if (q != nullptr && n > 0) (void)q[n - 1];
                break;
            }
            case 7:
                p.setDataPosition(in.ConsumeIntegral<size_t>());
                break;
            case 8: {
                int32_t v = 0;
                (void)p.readInt32(&v);
                break;
            }
            default:
                (void)p.dataAvail();
                break;
        }
        if (p.dataPosition() > p.dataSize()) __builtin_trap();
        if (p.dataAvail() > p.dataSize()) __builtin_trap();
    }
    return 0;
}
