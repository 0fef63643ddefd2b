package com.vireo.test;

/**
 * Runs a piece of the native test under a managed frame of this class, as the device runs a
 * handler: FindClass made there resolves through this class's loader.
 */
public final class ManagedCaller {
    private ManagedCaller() {}

    public static void call(long body) {
        run(body);
    }

    private static native void run(long body);
}
