package com.vireo.android.tvapi.dtv.dvb.dvbt;

// Internal state of the DVB-T demodulator. u16DemodState is a byte, as the demodulator
// reports eight bits.
public class DtvDemodDvbtInfo {
    public short u16Version;
    public byte u16DemodState;
    public float SfoValue;
    public float TotalCfo;
    public short u16ChannelLength;
    public byte u8Fft;
    public byte u8Constel;
    public byte u8Gi;
    public byte u8HpCr;
    public byte u8LpCr;
    public byte u8Hiearchy;
    public byte u8Fd;
    public byte u8ChLen;
    public byte u8SnrSel;
    public byte u8PertoneNum;
    public byte u8DigAci;
    public byte u8FlagCi;
    public byte u8TdCoef;
}
