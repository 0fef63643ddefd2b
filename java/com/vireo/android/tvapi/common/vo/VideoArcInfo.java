package com.vireo.android.tvapi.common.vo;

// Aspect-ratio state of the picture. Objects made by the native library are allocated without
// running this constructor, so fields the library does not write keep the VM's defaults.
public class VideoArcInfo {
    public int arcType;
    public int threeDimensionArcType;
    public short adjArcLeft;
    public short adjArcRight;
    public short adjArcUp;
    public short adjArcDown;
    public boolean bSetCusWin;
    // A managed-side label; the native library never writes it.
    public String description;

    public VideoArcInfo() {
        description = "";
    }
}
