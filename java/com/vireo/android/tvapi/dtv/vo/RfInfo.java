package com.vireo.android.tvapi.dtv.vo;

// The RF channel behind a channel index.
public class RfInfo {
    public short rfPhyNum;
    public int frequency;
    public boolean isVHF;
    public String rfName;

    public RfInfo() {
        rfName = "";
    }
}
