// The two compact forms a library's dynamic relocations may take besides plain REL/RELA
// tables: Android's packed format (DT_ANDROID_REL/DT_ANDROID_RELA, the "APS2" stream the
// platform linker reads since Android 6) and the relative-only format (DT_RELR). Both are
// decoded here into the entries a plain table would hold; the ELF reader gives them meaning.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace abi_check {

// One relocation as a plain RELA table would hold it; r_info keeps the machine's 64-bit layout
// (symbol index in the high 32 bits, type in the low 32).
struct RawRelocation {
    uint64_t offset = 0;
    uint64_t info = 0;
    int64_t addend = 0;
};

// Decodes an Android packed stream: "APS2", then signed LEB128 numbers: the relocation count,
// the initial offset, and groups. Each group gives its size and flags, then whatever its
// entries share (offset step, info, addend step), then each entry's own fields; offsets and
// addends are deltas from the previous relocation's. Returns false with a reason in `error`
// (bad magic, a stream cut short, a group larger than the count left) and `out` unusable.
bool decodeAndroidPacked(const uint8_t* data, size_t size, std::vector<RawRelocation>& out,
                         std::string& error);

// Decodes a RELR table into the addresses of the words it relocates: an even entry is one
// address, an odd entry a bitmap of the 63 words after the last address it covers.
std::vector<uint64_t> decodeRelr(const uint64_t* entries, size_t count);

}  // namespace abi_check
