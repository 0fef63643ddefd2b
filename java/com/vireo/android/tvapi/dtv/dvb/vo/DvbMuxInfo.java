package com.vireo.android.tvapi.dtv.dvb.vo;

// The multiplex (transport stream) that carries a DVB service.
public class DvbMuxInfo {
    public int satTableId;
    public int networkTableID;
    public int refCnt;
    public int transportStreamId;
    public int originalNetworkId;
    public int networkId;
    public int cellID;
    public short rfNumber;
    public int frequency;
    public int lossSignalFrequency;
    public int lossSignalStartTime;
    public int symbRate;
    public short modulationMode;
    public int plpID;
    public boolean lpCoding;
    public short satID;
    public short bandwidth;
    public int polarityPilotsReserved;
}
