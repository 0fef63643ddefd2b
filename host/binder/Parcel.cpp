// The members of android::Parcel this project uses, against the platform's own header, in
// the platform's wire format: little-endian int32 values on 4-byte boundaries; a String8
// as its byte length, its bytes and a NUL, padded to 4, except that an empty String8 is its
// length 0 alone (Android 8.0 writes and reads it so). Reads past the end give 0 and an
// empty string, as on the device.
#include <memory>
#include <limits>

#include <binder/Parcel.h>
#include <utils/String8.h>

#include <cstdlib>
#include <cstring>

namespace android {

namespace {

constexpr size_t pad4(size_t n) { return (n + 3) & ~size_t(3); }

}  // namespace

Parcel::Parcel() { initState(); }

Parcel::~Parcel() { freeDataNoInit(); }

void Parcel::initState() {
    mError = NO_ERROR;
    mData = nullptr;
    mDataSize = 0;
    mDataCapacity = 0;
    mDataPos = 0;
    mObjects = nullptr;
    mObjectsSize = 0;
    mObjectsCapacity = 0;
    mNextObjectHint = 0;
    mObjectsSorted = false;
    mRequestHeaderPresent = false;
    mWorkSourceRequestHeaderPosition = 0;
    mFdsKnown = true;
    mHasFds = false;
    mAllowFds = true;
    mOwner = nullptr;
    mOwnerCookie = nullptr;
    mOpenAshmemSize = 0;
}

void Parcel::freeDataNoInit() { free(mData); }

void Parcel::freeData() {
    freeDataNoInit();
    initState();
}

const uint8_t* Parcel::data() const { return mData; }
size_t Parcel::dataSize() const { return mDataSize > mDataPos ? mDataSize : mDataPos; }
size_t Parcel::dataAvail() const { return mDataSize > mDataPos ? mDataSize - mDataPos : 0; }
size_t Parcel::dataPosition() const { return mDataPos; }
size_t Parcel::dataCapacity() const { return mDataCapacity; }

status_t Parcel::setDataSize(size_t size) {
    status_t err = setDataCapacity(size);
    if (err != NO_ERROR) return err;
    mDataSize = size;
    if (mDataPos > size) mDataPos = size;
    return NO_ERROR;
}

void Parcel::setDataPosition(size_t pos) const {
    if (pos > static_cast<size_t>(std::numeric_limits<int32_t>::max())) {
        mDataPos = 0;
        return;
    }
    mDataPos = pos;
}

status_t Parcel::setDataCapacity(size_t size) {
    if (size > static_cast<size_t>(std::numeric_limits<int32_t>::max())) return BAD_VALUE;
    if (size <= mDataCapacity) return NO_ERROR;
    auto* grown = static_cast<uint8_t*>(realloc(mData, size));
    if (grown == nullptr) return NO_MEMORY;
    memset(grown + mDataCapacity, 0, size - mDataCapacity);
    mData = grown;
    mDataCapacity = size;
    return NO_ERROR;
}

status_t Parcel::setData(const uint8_t* buffer, size_t len) {
    if (len > static_cast<size_t>(std::numeric_limits<int32_t>::max())) return BAD_VALUE;
    freeData();
    status_t err = setDataCapacity(len);
    if (err != NO_ERROR) return err;
    if (len > 0) memcpy(mData, buffer, len);
    mDataSize = len;
    return NO_ERROR;
}

status_t Parcel::write(const void* data, size_t len) {
    if (len > static_cast<size_t>(std::numeric_limits<int32_t>::max())) return BAD_VALUE;
    void* dest = writeInplace(len);
    if (dest == nullptr) return NO_MEMORY;
    if (len > 0) memcpy(dest, data, len);
    return NO_ERROR;
}

void* Parcel::writeInplace(size_t len) {
    if (len > static_cast<size_t>(std::numeric_limits<int32_t>::max())) return nullptr;
    const size_t padded = pad4(len);
    const size_t end = mDataPos + padded;
    if (end > mDataCapacity && setDataCapacity(end + end / 2 + 16) != NO_ERROR) return nullptr;
    uint8_t* dest = mData + mDataPos;
    if (padded > len) memset(dest + len, 0, padded - len);
    mDataPos = end;
    if (end > mDataSize) mDataSize = end;
    return dest;
}

status_t Parcel::writeInt32(int32_t val) { return write(&val, sizeof(val)); }
status_t Parcel::writeUint32(uint32_t val) { return write(&val, sizeof(val)); }
status_t Parcel::writeInt64(int64_t val) { return write(&val, sizeof(val)); }

status_t Parcel::writeString8(const String8& str) {
    status_t err = writeInt32(static_cast<int32_t>(str.bytes()));
    if (err != NO_ERROR || str.bytes() == 0) return err;
    return write(str.c_str(), str.bytes() + 1);
}

status_t Parcel::read(void* outData, size_t len) const {
    const void* src = readInplace(len);
    if (src == nullptr) return NOT_ENOUGH_DATA;
    memcpy(outData, src, len);
    return NO_ERROR;
}

const void* Parcel::readInplace(size_t len) const {
    if (len > static_cast<size_t>(std::numeric_limits<int32_t>::max())) return nullptr;
    const size_t padded = pad4(len);
    if (mDataPos + padded < mDataPos || mDataPos + padded > mDataSize) return nullptr;
    const void* src = mData + mDataPos;
    mDataPos += padded;
    return src;
}

status_t Parcel::readInt32(int32_t* pArg) const { return read(pArg, sizeof(*pArg)); }

int32_t Parcel::readInt32() const {
    int32_t v = 0;
    return read(&v, sizeof(v)) == NO_ERROR ? v : 0;
}

status_t Parcel::readUint32(uint32_t* pArg) const { return read(pArg, sizeof(*pArg)); }

uint32_t Parcel::readUint32() const {
    uint32_t v = 0;
    return read(&v, sizeof(v)) == NO_ERROR ? v : 0;
}

status_t Parcel::readInt64(int64_t* pArg) const { return read(pArg, sizeof(*pArg)); }

int64_t Parcel::readInt64() const {
    int64_t v = 0;
    return read(&v, sizeof(v)) == NO_ERROR ? v : 0;
}

status_t Parcel::readString8(String8* pArg) const {
    const size_t start = mDataPos;
    int32_t size = 0;
    if (readInt32(&size) != NO_ERROR || size < 0) {
        *pArg = String8();
        return size < 0 ? UNEXPECTED_NULL : NOT_ENOUGH_DATA;
    }
    if (size == 0) {  // the length alone: no bytes, no NUL, no padding
        *pArg = String8();
        return NO_ERROR;
    }
    const char* str = static_cast<const char*>(readInplace(static_cast<size_t>(size) + 1));
    if (str == nullptr) {
        mDataPos = start + sizeof(int32_t);
        *pArg = String8();
        return BAD_VALUE;
    }
    *pArg = String8(str, static_cast<size_t>(size));
    return NO_ERROR;
}

String8 Parcel::readString8() const {
    String8 s;
    readString8(&s);
    return s;
}

}  // namespace android
