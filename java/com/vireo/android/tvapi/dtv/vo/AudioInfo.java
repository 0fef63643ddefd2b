package com.vireo.android.tvapi.dtv.vo;

// One audio track.
public class AudioInfo {
    public LangIso639 isoLangInfo;
    public int audioPid;
    public short audioType;
    public boolean broadcastMixAd;
    public short aacType;
    public short aacProfileAndLevel;

    public AudioInfo() {
        isoLangInfo = new LangIso639();
    }
}
