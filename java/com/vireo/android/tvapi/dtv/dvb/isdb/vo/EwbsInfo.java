package com.vireo.android.tvapi.dtv.dvb.isdb.vo;

/**
 * EWBS warning information for one area code. codeList always has 100 entries; dataLen is
 * the number of codes the player reported and may exceed 100: read min(dataLen, 100).
 */
public class EwbsInfo {
    public int reqAreaCode;
    public int returnCode;
    public int titleType;
    public int[] codeList;
    public int dataLen;
}
