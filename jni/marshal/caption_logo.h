// The caption style record drawPreviewCCWin hands to the player, and the sizes of the
// logo buffers the two logo queries lend it.
#pragma once

#include <cstddef>
#include <cstdint>

// Ten bytes, each the low 8 bits of the managed short of the same name.
struct CaptionOptionSettingRec {
    uint8_t currProgInfoFGColor;
    uint8_t currProgInfoBGColor;
    uint8_t currProgInfoFGOpacity;
    uint8_t currProgInfoBGOpacity;
    uint8_t currProgInfoFontSize;
    uint8_t currProgInfoFontStyle;
    uint8_t currProgInfoEdgeStyle;
    uint8_t currProgInfoEdgeColor;
    uint8_t currProgInfoItalicsAttr;
    uint8_t currProgInfoUnderlineAttr;
};

static_assert(offsetof(CaptionOptionSettingRec, currProgInfoEdgeColor) == 7, "edge colour");
static_assert(offsetof(CaptionOptionSettingRec, currProgInfoUnderlineAttr) == 9, "underline");
static_assert(sizeof(CaptionOptionSettingRec) == 10, "ten bytes");

namespace pij {

// Elements in each logo buffer (bytes for getLogoData, ARGB words for getChannelLogoARGB).
constexpr int32_t kLogoCapacity = 2593;

}  // namespace pij
