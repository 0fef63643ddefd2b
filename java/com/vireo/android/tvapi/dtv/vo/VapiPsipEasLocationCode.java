package com.vireo.android.tvapi.dtv.vo;

// A location an emergency alert applies to.
public class VapiPsipEasLocationCode {
    public int u8StateCode;
    public int u8CountySubdivision;
    public int u16CountyCode;
}
