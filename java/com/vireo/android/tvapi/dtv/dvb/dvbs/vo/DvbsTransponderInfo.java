package com.vireo.android.tvapi.dtv.dvb.dvbs.vo;

/**
 * One transponder of a satellite. The native side stores polarity, satelliteId and rf in
 * 8 bits, symbolRate and tpId in 16: keep the values within those widths.
 */
public class DvbsTransponderInfo {
    public int frequency;
    public int symbolRate;
    public byte polarity;
    public short satelliteId;
    public short rf;
    public int tpId;
}
