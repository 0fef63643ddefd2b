package com.vireo.android.tvapi.dtv.vo;

// The ATSC emergency alert in progress. The arrays always hold every entry of the alert
// record (31 location codes and exceptions); the counts say how many are valid. Texts are
// arrays of byte values, not strings.
public class MwAtscEasInfo {
    public VapiPsipEasException[] astException;
    public VapiPsipEasLocationCode[] astLocationCode;
    public int u8VerNum;
    public int u16EAS_EventID;
    public int[] au8EAS_OriginatorCode;
    public int u8AlertTimeRemain;
    public int u32EventStartTime;
    public int u16EventDuration;
    public int u8AlertPriority;
    public int u16DetailsMajorNum;
    public int u16DetailsMinorNum;
    public int u8LocationCodeCount;
    public int u8ExceptionCount;
    public short[] au8EAS_EventCode;
    public short[] au8NatActText;
    public short[] au8AlertText;

    public MwAtscEasInfo() {
        astException = new VapiPsipEasException[0];
        astLocationCode = new VapiPsipEasLocationCode[0];
        au8EAS_OriginatorCode = new int[3];
        au8EAS_EventCode = new short[5];
        au8NatActText = new short[128];
        au8AlertText = new short[512];
    }
}
