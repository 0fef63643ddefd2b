package com.vireo.android.tvapi.dtv.vo;

// ISO 639 language of an audio track: three characters, not terminated.
public class LangIso639 {
    public char[] isoLangInfo;
    public short audioMode;
    public short audioType;
    public boolean isValid;

    public LangIso639() {
        isoLangInfo = new char[3];
    }
}
