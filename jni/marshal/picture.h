// Records the player fills for the picture queries: aspect ratio, video timing and the
// signal of the current DTV programme. Laid out field by field as the player writes them;
// the asserts below keep every target (the device is AArch64, LP64) on the same layout.
#pragma once

#include <utils/String8.h>

#include <cstddef>
#include <cstdint>

struct VideoArcInfoRec {
    int32_t arcType;
    int32_t threeDimensionArcType;
    int16_t adjArcLeft;
    int16_t adjArcRight;
    int16_t adjArcUp;
    int16_t adjArcDown;
    uint8_t bSetCusWin;  // boolean byte, carried whole
};
static_assert(sizeof(VideoArcInfoRec) == 20, "VideoArcInfoRec size");
static_assert(offsetof(VideoArcInfoRec, threeDimensionArcType) == 4, "VideoArcInfoRec layout");
static_assert(offsetof(VideoArcInfoRec, adjArcLeft) == 8, "VideoArcInfoRec layout");
static_assert(offsetof(VideoArcInfoRec, adjArcRight) == 10, "VideoArcInfoRec layout");
static_assert(offsetof(VideoArcInfoRec, adjArcUp) == 12, "VideoArcInfoRec layout");
static_assert(offsetof(VideoArcInfoRec, adjArcDown) == 14, "VideoArcInfoRec layout");
static_assert(offsetof(VideoArcInfoRec, bSetCusWin) == 16, "VideoArcInfoRec layout");

struct VideoInfoRec {
    int16_t hResolution;
    int16_t vResolution;
    int32_t frameRate;
    int8_t modeIndex;
    int32_t enScanType;  // the player's enumeration, as its number
    int32_t arcDescriptionType;
    int32_t arcType;
    int32_t afdAspectRatio;
};
static_assert(sizeof(VideoInfoRec) == 28, "VideoInfoRec size");
static_assert(offsetof(VideoInfoRec, vResolution) == 2, "VideoInfoRec layout");
static_assert(offsetof(VideoInfoRec, frameRate) == 4, "VideoInfoRec layout");
static_assert(offsetof(VideoInfoRec, modeIndex) == 8, "VideoInfoRec layout");
static_assert(offsetof(VideoInfoRec, enScanType) == 12, "VideoInfoRec layout");
static_assert(offsetof(VideoInfoRec, arcDescriptionType) == 16, "VideoInfoRec layout");
static_assert(offsetof(VideoInfoRec, arcType) == 20, "VideoInfoRec layout");
static_assert(offsetof(VideoInfoRec, afdAspectRatio) == 24, "VideoInfoRec layout");

struct DtvProgramSignalInfoRec {
    uint16_t rfNumber;
    int32_t modulationMode;
    uint16_t amMode;
    int32_t quality;
    int32_t strength;
    int32_t symbolRate;
    android::String8 networkName;
};
static_assert(sizeof(android::String8) == sizeof(void*), "String8 is one pointer");
static_assert(offsetof(DtvProgramSignalInfoRec, modulationMode) == 4, "signal record layout");
static_assert(offsetof(DtvProgramSignalInfoRec, amMode) == 8, "signal record layout");
static_assert(offsetof(DtvProgramSignalInfoRec, quality) == 12, "signal record layout");
static_assert(offsetof(DtvProgramSignalInfoRec, strength) == 16, "signal record layout");
static_assert(offsetof(DtvProgramSignalInfoRec, symbolRate) == 20, "signal record layout");
static_assert(offsetof(DtvProgramSignalInfoRec, networkName) == 24, "signal record layout");
static_assert(sizeof(DtvProgramSignalInfoRec) == 24 + sizeof(void*), "signal record size");
