package com.vireo.android.tvapi.common.vo;

// Signal of the current DTV programme.
public class DtvProgramSignalInfo {
    public short rfNumber;
    public int modulationMode;
    public short amMode;
    public int quality;
    public int strength;
    public int symbolRate;
    public String networkName;

    public DtvProgramSignalInfo() {
        networkName = "";
    }
}
