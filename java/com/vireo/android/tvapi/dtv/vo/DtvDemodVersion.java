package com.vireo.android.tvapi.dtv.vo;

// Firmware version of a demodulator, as the characters the demodulator reports.
public class DtvDemodVersion {
    public char[] name;
    public char[] version;
    public char[] build;
    public char[] changelist;

    public DtvDemodVersion() {
        name = new char[4];
        version = new char[2];
        build = new char[2];
        changelist = new char[8];
    }
}
