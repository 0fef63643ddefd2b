package com.vireo.test;

import com.vireo.android.tvapi.impl.PlayerImpl;

/**
 * The floor for timing a native call: a boolean native with nothing behind it (its handler
 * is registered by the benchmark), and managed loops that call it or a player command.
 */
public final class EmptyNative {
    public native boolean nop();

    public static int loopNop(EmptyNative e, int n) {
        int t = 0;
        for (int i = 0; i < n; i++) {
            if (e.nop()) t++;
        }
        return t;
    }

    public static int loopCloseTeletext(PlayerImpl p, int n) {
        int t = 0;
        for (int i = 0; i < n; i++) {
            if (p.closeTeletext()) t++;
        }
        return t;
    }
}
