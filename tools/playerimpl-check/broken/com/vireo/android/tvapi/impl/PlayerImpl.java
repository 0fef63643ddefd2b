package com.vireo.android.tvapi.impl;

/**
 * A deliberately wrong managed player for the check tool's test. Each planted mismatch is
 * marked; everything the class does not declare is missing as well.
 */
public class PlayerImpl {
    public static final int TVPLAYER_DTV_AUTO_TUNING_SCAN_INFO = 1000; // right
    public static final long TVPLAYER_SIGNAL_UNLOCK = 1028; // planted: a long
    public final int TVPLAYER_TS_CHANGE = 1006; // planted: not static
    // planted: TVPLAYER_SIGNAL_LOCK is missing

    private int mNativeContext; // planted: an int
    private long mNativeSurfaceTexture; // right
    // planted: mPlayerContext is missing

    // planted: not static
    private void postEventFromNative(Object weakThis, int what, int ext1, int ext2, Object obj) {}

    private static native void native_init(); // right
    private native void native_setup(Object a0); // right
    private native void native_finalize(); // right
    public native boolean closeTeletext(int page); // planted: another signature
    public boolean stopCc() { // planted: not native
        return false;
    }
    // planted: startPcModeAtuoTune is missing
}
