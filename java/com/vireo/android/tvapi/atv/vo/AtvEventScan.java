package com.vireo.android.tvapi.atv.vo;

/** Analogue scan progress; one shared object is refilled by every analogue scan event. */
public class AtvEventScan {
    public short percent;
    public int frequencyKHz;
    public short scannedChannelNum;
    public short curScannedChannel;
    public boolean bIsScaningEnable;

    public AtvEventScan() {}
}
