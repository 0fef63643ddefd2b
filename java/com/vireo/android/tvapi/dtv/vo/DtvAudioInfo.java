package com.vireo.android.tvapi.dtv.vo;

// Audio tracks of the current DTV programme.
public class DtvAudioInfo {
    public short audioLangNum;
    public AudioInfo[] audioInfos;
    public short currentAudioIndex;
    public short currentChannelMode;

    public DtvAudioInfo() {
        audioInfos = new AudioInfo[0];
    }
}
