package com.vireo.test;

import com.vireo.android.tvapi.common.vo.VideoInfo;
import com.vireo.android.tvapi.dtv.vo.DtvAudioInfo;
import com.vireo.android.tvapi.impl.PlayerImpl;

/**
 * What the benchmarks time the player's natives against: natives with the player's
 * signatures whose handlers the benchmark program registers (an empty one, and ones doing
 * part or all of the work the player's handler must do), and one managed loop per native, all
 * of the same shape, so that each call site stays monomorphic and the VM's call path is the
 * one a device uses.
 */
public final class BenchFloors {
    /** A player proxy's address, read by the floors that go through the call frame. */
    long mNativeContext;

    public native boolean nop();
    public native boolean nopTrace();
    public native boolean nopFrame();

    public native VideoInfo videoPhysical();
    public native VideoInfo videoLookups();
    public native VideoInfo videoRequired();

    public native DtvAudioInfo audioPhysical();
    public native DtvAudioInfo audioLookups();
    public native DtvAudioInfo audioRequired();

    public static int loopNop(BenchFloors f, int n) {
        int t = 0;
        for (int i = 0; i < n; i++) {
            if (f.nop()) t++;
        }
        return t;
    }

    public static int loopNopTrace(BenchFloors f, int n) {
        int t = 0;
        for (int i = 0; i < n; i++) {
            if (f.nopTrace()) t++;
        }
        return t;
    }

    public static int loopNopFrame(BenchFloors f, int n) {
        int t = 0;
        for (int i = 0; i < n; i++) {
            if (f.nopFrame()) t++;
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

    public static int loopVideoPhysical(BenchFloors f, int n) {
        int t = 0;
        for (int i = 0; i < n; i++) {
            t += f.videoPhysical().frameRate;
        }
        return t;
    }

    public static int loopVideoLookups(BenchFloors f, int n) {
        int t = 0;
        for (int i = 0; i < n; i++) {
            t += f.videoLookups().frameRate;
        }
        return t;
    }

    public static int loopVideoRequired(BenchFloors f, int n) {
        int t = 0;
        for (int i = 0; i < n; i++) {
            t += f.videoRequired().frameRate;
        }
        return t;
    }

    public static int loopGetVideoInfo(PlayerImpl p, int n) {
        int t = 0;
        for (int i = 0; i < n; i++) {
            t += p.getVideoInfo().frameRate;
        }
        return t;
    }

    public static int loopAudioPhysical(BenchFloors f, int n) {
        int t = 0;
        for (int i = 0; i < n; i++) {
            t += f.audioPhysical().audioInfos.length;
        }
        return t;
    }

    public static int loopAudioLookups(BenchFloors f, int n) {
        int t = 0;
        for (int i = 0; i < n; i++) {
            t += f.audioLookups().audioInfos.length;
        }
        return t;
    }

    public static int loopAudioRequired(BenchFloors f, int n) {
        int t = 0;
        for (int i = 0; i < n; i++) {
            t += f.audioRequired().audioInfos.length;
        }
        return t;
    }

    public static int loopGetAudioInfo(PlayerImpl p, int n) {
        int t = 0;
        for (int i = 0; i < n; i++) {
            t += p.getAudioInfo().audioInfos.length;
        }
        return t;
    }
}
