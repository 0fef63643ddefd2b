package com.vireo.test;

import com.vireo.android.tvapi.impl.PlayerImpl;

/**
 * Hands every posted event straight to native test code, which counts it; nothing is kept
 * on the managed side, so a run of hours holds no growing list.
 */
public final class EventCounter {
    private EventCounter() {}

    private static native void counted(int what, int ext1, int ext2, Object obj);

    public static void install() {
        PlayerImpl.addGlobalEventListener((player, what, ext1, ext2, obj) -> counted(what, ext1, ext2, obj));
    }
}
