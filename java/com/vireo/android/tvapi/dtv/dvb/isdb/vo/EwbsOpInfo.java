package com.vireo.android.tvapi.dtv.dvb.isdb.vo;

/** The answer to one EWBS operation query. */
public class EwbsOpInfo {
    public int reqOp;
    public int returnCode;
    public int value;
}
