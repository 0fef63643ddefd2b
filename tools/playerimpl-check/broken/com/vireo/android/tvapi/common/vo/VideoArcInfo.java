package com.vireo.android.tvapi.common.vo;

/** An aspect-ratio class with planted field mismatches, for the check tool's test. */
public class VideoArcInfo {
    public long arcType; // planted: a long
    public int threeDimensionArcType; // right
    public short adjArcLeft;
    public short adjArcRight;
    // planted: adjArcUp is missing
    public short adjArcDown;
    public static boolean bSetCusWin; // planted: static
}
