package com.vireo.android.tvapi.common.vo;

/** An HbbTV user-interface event; a new object for every event. */
public class HbbtvEventInfo {
    public int eEvent;
    public int[] param;

    public HbbtvEventInfo() {}
}
