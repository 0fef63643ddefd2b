package com.vireo.android.tvapi.dtv.vo;

/** Digital scan progress of another build: signalQuality is missing. */
public class DtvEventScan {
    public int scanStatus;
    public short currRFCh;
    public short scanPercentageNum;
    public short dtvSrvCount;
    public short radioSrvCount;
    public short dataSrvCount;
    public short signalStrength;
    public int currFrequency;
    public int userData;
    public boolean isVHF;
    public String rfSignalName;

    public DtvEventScan() {}
}
