#include "packed_relocations.h"

#include <cstring>

namespace abi_check {
namespace {

// Group flags of the packed stream.
constexpr int64_t kGroupedByInfo = 1;         // one info for every entry of the group
constexpr int64_t kGroupedByOffsetDelta = 2;  // one offset step for every entry
constexpr int64_t kGroupedByAddend = 4;       // one addend step for the group, none per entry
constexpr int64_t kGroupHasAddend = 8;        // without it, the group's addends are 0
constexpr int64_t kKnownFlags =
    kGroupedByInfo | kGroupedByOffsetDelta | kGroupedByAddend | kGroupHasAddend;

// Far more than any library holds; a claim beyond it is a damaged stream, refused before it
// costs memory (a group whose entries share everything takes no bytes per entry).
constexpr int64_t kMaxRelocations = int64_t{1} << 22;

// Reads signed LEB128 numbers from the stream after `start` bytes; the first failure names what
// was being read and where, and every later read fails too.
class Reader {
public:
    Reader(const uint8_t* data, size_t size, size_t start)
        : mData(data), mSize(size), mPos(start) {}

    bool next(const char* what, int64_t& value) {
        if (!mError.empty()) return false;
        uint64_t result = 0;
        unsigned shift = 0;
        size_t start = mPos;
        for (;;) {
            if (mPos >= mSize) {
                return fail("the stream is cut short: it ends after " + std::to_string(mSize) +
                            " bytes, inside " + what);
            }
            uint8_t byte = mData[mPos++];
            if (shift >= 64) {
                return fail(std::string("over-long number for ") + what + " at byte " +
                            std::to_string(start));
            }
            result |= uint64_t{byte & 0x7fu} << shift;
            shift += 7;
            if ((byte & 0x80) == 0) {
                if (shift < 64 && (byte & 0x40) != 0) result |= ~uint64_t{0} << shift;
                break;
            }
        }
        value = static_cast<int64_t>(result);
        return true;
    }

    bool fail(const std::string& error) {
        if (mError.empty()) mError = error;
        return false;
    }
    const std::string& error() const { return mError; }

private:
    const uint8_t* mData;
    size_t mSize;
    size_t mPos;
    std::string mError;
};

}  // namespace

bool decodeAndroidPacked(const uint8_t* data, size_t size, std::vector<RawRelocation>& out,
                         std::string& error) {
    out.clear();
    if (size < 4 || std::memcmp(data, "APS2", 4) != 0) {
        error = "the packed relocations do not start with \"APS2\"";
        return false;
    }
    Reader in(data, size, 4);
    int64_t count = 0;
    RawRelocation r;
    int64_t offset = 0;
    if (in.next("the relocation count", count) && in.next("the initial offset", offset)) {
        if (count < 0 || count > kMaxRelocations) {
            in.fail("a relocation count of " + std::to_string(count));
        }
    }
    r.offset = static_cast<uint64_t>(offset);
    int64_t left = count;
    while (in.error().empty() && left > 0) {
        int64_t groupSize = 0, flags = 0, offsetStep = 0, info = 0, addendStep = 0;
        if (!in.next("a group's size", groupSize) || !in.next("a group's flags", flags)) break;
        if (groupSize <= 0 || groupSize > left) {
            in.fail("a group of " + std::to_string(groupSize) + " relocations where " +
                    std::to_string(left) + " remain");
            break;
        }
        if ((flags & ~kKnownFlags) != 0) {
            in.fail("unknown group flags " + std::to_string(flags));
            break;
        }
        const bool byOffset = flags & kGroupedByOffsetDelta;
        const bool byInfo = flags & kGroupedByInfo;
        const bool hasAddend = flags & kGroupHasAddend;
        const bool byAddend = hasAddend && (flags & kGroupedByAddend);
        if (byOffset) in.next("a group's offset step", offsetStep);
        if (byInfo && in.next("a group's info", info)) r.info = static_cast<uint64_t>(info);
        if (byAddend && in.next("a group's addend step", addendStep)) r.addend += addendStep;
        if (!hasAddend) r.addend = 0;
        for (int64_t i = 0; i < groupSize && in.error().empty(); ++i) {
            int64_t step = offsetStep;
            if (!byOffset) in.next("an entry's offset step", step);
            if (!byInfo && in.next("an entry's info", info)) r.info = static_cast<uint64_t>(info);
            if (hasAddend && !byAddend && in.next("an entry's addend step", addendStep)) {
                r.addend += addendStep;
            }
            r.offset += static_cast<uint64_t>(step);
            if (in.error().empty()) out.push_back(r);
        }
        left -= groupSize;
    }
    if (!in.error().empty()) {
        error = in.error();
        return false;
    }
    return true;
}

std::vector<uint64_t> decodeRelr(const uint64_t* entries, size_t count) {
    std::vector<uint64_t> addresses;
    uint64_t next = 0;  // the first word the next bitmap covers
    for (size_t i = 0; i < count; ++i) {
        uint64_t entry = entries[i];
        if ((entry & 1) == 0) {
            addresses.push_back(entry);
            next = entry + 8;
            continue;
        }
        for (unsigned bit = 1; bit < 64; ++bit) {
            if ((entry >> bit) & 1) addresses.push_back(next + 8 * (bit - 1));
        }
        next += 63 * 8;
    }
    return addresses;
}

}  // namespace abi_check
