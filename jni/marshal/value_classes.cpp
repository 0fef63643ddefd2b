#include "core/log.h"

#include "marshal/value_classes.h"

namespace pij {
namespace {
const ManagedClassList* const kLists[] = {
    &kPayloadClasses, &kAtscEasClasses,   &kAudioClasses,  &kCaptionLogoClasses, &kDemodClasses,
    &kIsdbClasses,    &kMultiplexClasses, &kParcelClasses, &kPictureClasses,     &kSatelliteClasses,
};
}  // namespace

ConstRange<const ManagedClassList*> valueClassLists() {
    return ConstRange<const ManagedClassList*>{kLists, sizeof kLists / sizeof *kLists};
}

}  // namespace pij
