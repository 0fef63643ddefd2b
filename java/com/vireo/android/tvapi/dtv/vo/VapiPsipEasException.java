package com.vireo.android.tvapi.dtv.vo;

// A channel exempt from an emergency alert.
public class VapiPsipEasException {
    public boolean bInBandRef;
    public int u16ExcMajorNum;
    public int u16ExcMinorNum;
    public int u16ExcOOB_SrcID;
}
