package com.vireo.android.tvapi.common.vo;

/** A caption style of another build: currProgInfoEdgeColor is missing. */
public class CaptionOptionSetting {
    public short currProgInfoFGColor;
    public short currProgInfoBGColor;
    public short currProgInfoFGOpacity;
    public short currProgInfoBGOpacity;
    public short currProgInfoFontSize;
    public short currProgInfoFontStyle;
    public short currProgInfoEdgeStyle;
    public short currProgInfoItalicsAttr;
    public short currProgInfoUnderlineAttr;
}
