package com.vireo.android.tvapi.dtv.dvb.dvbc;

// Internal state of the DVB-C demodulator; each field holds the demodulator's bits unchanged.
public class DtvDemodDvbcInfo {
    public short u16Version;
    public short u16SymbolRate;
    public byte eQamMode;
    public int u32IFFreq;
    public boolean bSpecInv;
    public boolean bSerialTS;
    public byte u8SarValue;
    public int u32ChkScanTimeStart;
    public byte eLockStatus;
    public short u16Strength;
    public short u16Quality;
    public int u32Intp;
    public int u32FcFs;
    public byte u8Qam;
    public short u16SymbolRateHal;
}
