// The managed classes the library builds or reads, with every field it looks up (name and
// JNI type), so that tools checking a managed build against the library read exactly the
// rows the library looks its fields up from. All of it is constant data: each file that
// marshals values describes its classes in one list (PIJ_DESCRIBE in marshal/marshal_util.h),
// and value_classes.cpp gathers those lists. Nothing of it runs when the library is loaded.
#pragma once

#include <cstddef>

namespace pij {

// A constant array seen as a range.
template <typename T>
struct ConstRange {
    const T* first;
    size_t count;
    constexpr const T* begin() const { return first; }
    constexpr const T* end() const { return first + count; }
};

struct ManagedField {
    const char* name = nullptr;
    const char* signature = nullptr;
    bool isStatic = false;
};

struct ManagedClass {
    const char* path;
    ConstRange<ManagedField> fields;  // in the order the library looks them up
};

using ManagedClassList = ConstRange<ManagedClass>;

template <size_t N>
constexpr ManagedClassList classList(const ManagedClass (&classes)[N]) {
    return ManagedClassList{classes, N};
}

// The classes of each file that marshals values, defined there.
extern const ManagedClassList kAtscEasClasses;
extern const ManagedClassList kAudioClasses;
extern const ManagedClassList kCaptionLogoClasses;
extern const ManagedClassList kDemodClasses;
extern const ManagedClassList kIsdbClasses;
extern const ManagedClassList kMultiplexClasses;
extern const ManagedClassList kParcelClasses;
extern const ManagedClassList kPictureClasses;
extern const ManagedClassList kSatelliteClasses;
extern const ManagedClassList kPayloadClasses;

// Every file's list.
ConstRange<const ManagedClassList*> valueClassLists();

}  // namespace pij
