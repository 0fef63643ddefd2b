package com.vireo.android.tvapi.common.vo;

/** An aspect-ratio class of another build: adjArcUp is missing. */
public class VideoArcInfo {
    public int arcType;
    public int threeDimensionArcType;
    public short adjArcLeft;
    public short adjArcRight;
    public short adjArcDown;
    public boolean bSetCusWin;
}
