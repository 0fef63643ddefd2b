package com.vireo.android.tvapi.common.vo;

// Timing of the current video source.
public class VideoInfo {
    public int hResolution;
    public int vResolution;
    public int frameRate;
    public int enScanType;
    public int modeIndex;
    public int arcDescriptionType;
    public int arcType;
    public int afdAspectRatio;
}
