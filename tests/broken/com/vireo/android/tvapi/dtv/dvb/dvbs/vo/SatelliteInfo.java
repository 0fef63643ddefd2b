package com.vireo.android.tvapi.dtv.dvb.dvbs.vo;

/** A satellite of another build: pin is missing. */
public class SatelliteInfo {
    public String satName;
    public int lowLOF;
    public int hiLOF;
    public int lnbFreq;
    public int lnbType;
    public short diseqcLevel;
    public short toneburstType;
    public short swt10Port;
    public short swt11Port;
    public short e22KOnOff;
    public short lnbPwrOnOff;
    public short ov12VOnOff;
    public short position;
    public int angle;
    public int numberOfTp;
    public short satelliteId;
    public short channelId;
    public int frequency;
    public boolean mdu;
    public short lnbIdx;
}
