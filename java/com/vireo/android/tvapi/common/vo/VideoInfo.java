package com.vireo.android.tvapi.common.vo;

// Value object filled by the native library; its fields come with the code that fills it.
public class VideoInfo {
}
