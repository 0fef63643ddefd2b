package com.vireo.android.tvapi.common.vo;

/** The caption style being chosen; the native side passes the low 8 bits of each value. */
public class CaptionOptionSetting {
    public short currProgInfoFGColor;
    public short currProgInfoBGColor;
    public short currProgInfoFGOpacity;
    public short currProgInfoBGOpacity;
    public short currProgInfoFontSize;
    public short currProgInfoFontStyle;
    public short currProgInfoEdgeStyle;
    public short currProgInfoEdgeColor;
    public short currProgInfoItalicsAttr;
    public short currProgInfoUnderlineAttr;
}
