package com.vireo.android.tvapi.dtv.dvb.dvbs.vo;

/** A named user location; longitude and latitude as the player stores them (signed). */
public class LocationInfo {
    public String locationName;
    public int longitude;
    public int latitude;
}
