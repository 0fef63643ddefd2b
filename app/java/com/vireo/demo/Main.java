package com.vireo.demo;

import com.vireo.android.tvapi.atv.vo.AtvEventScan;
import com.vireo.android.tvapi.dtv.vo.DtvEventScan;
import com.vireo.android.tvapi.impl.PlayerImpl;
import java.lang.reflect.Array;
import java.lang.reflect.Field;
import java.lang.reflect.Modifier;
import java.util.Map;
import java.util.TreeMap;
import java.util.concurrent.Callable;
import java.util.concurrent.ConcurrentHashMap;
import java.util.concurrent.atomic.AtomicInteger;

/**
 * Drives the managed player API through the native library against the workstation's
 * simulated TV: set-up, a channel scan, events as they arrive, picture, audio and
 * multiplex information, remote keys, a bound video surface, and the tear-down.
 *
 * <p>Usage: Main [--scenario FILE] [--fast]. Without --scenario the file named by the
 * PLAYERIMPL_SCENARIO environment variable is used, else the built-in scenario.
 */
public final class Main {
    private static final Map<String, AtomicInteger> EVENTS = new ConcurrentHashMap<>();
    private static final Map<String, Integer> CALLS = new TreeMap<>();
    private static final Object PRINT = new Object();
    private static volatile int lastProgress = -1;

    private Main() {}

    public static void main(String[] args) throws Exception {
        String scenario = System.getenv("PLAYERIMPL_SCENARIO");
        if (scenario != null && scenario.isEmpty()) scenario = null;
        for (int i = 0; i < args.length; i++) {
            if (args[i].equals("--scenario") && i + 1 < args.length) {
                scenario = args[++i];
            } else {
                System.err.println("usage: Main [--scenario FILE]");
                System.exit(2);
            }
        }
        // Loads the native library (the managed class does it when it is initialised).
        Class.forName("com.vireo.android.tvapi.impl.PlayerImpl");
        String refused = Simulator.useScenario(scenario);
        if (refused != null) {
            System.err.println("error: " + refused);
            System.exit(2);
        }
        System.out.println("== Scenario: " + (scenario == null ? "built-in default" : scenario));

        System.out.println("== native_setup: connecting a player to the simulated TV");
        PlayerImpl player = call("native_setup", PlayerImpl::new);
        player.addEventListener((p, what, ext1, ext2, obj) -> onEvent(what, ext1, ext2, obj));

        long deadline = System.currentTimeMillis() + 30_000;
        while (!Simulator.timelineDone() && System.currentTimeMillis() < deadline) {
            Thread.sleep(20);
        }
        synchronized (PRINT) {
            System.out.println("== Timeline delivered");
        }

        info(player, "after the scan");
        System.out.println("== Remote keys");
        key(player, "CHANNEL_UP", 166);
        key(player, "INFO", 165);
        key(player, "digit 1", 8);
        key(player, "TV_TELETEXT", 233);
        Thread.sleep(300);
        info(player, "after the keys");

        System.out.println("== Satellites");
        int sats = call("getCurrentSatelliteCount", player::getCurrentSatelliteCount);
        System.out.println("   " + sats + " satellite(s)");
        for (int i = 0; i < sats; i++) {
            final int index = i;
            System.out.println("   #" + i + " " + show(call("getSatelliteInfo",
                    () -> player.getSatelliteInfo(index))) + ", "
                    + call("getTransponderCount", () -> player.getTransponderCount(index))
                    + " transponder(s)");
        }

        System.out.println("== Video surface");
        long nativeSurface = Simulator.newSurface(42);
        android.view.Surface surface = new android.view.Surface(nativeSurface);
        call("_setVideoSurface", () -> {
            player._setVideoSurface(surface, 0);
            return null;
        });
        System.out.println("   bound surface 42");
        boolean destroyed = call("_destoryVideoSurface", () -> player._destoryVideoSurface(surface));
        System.out.println("   released: " + destroyed);

        System.out.println("== native_finalize");
        call("native_finalize", () -> {
            player.release();
            return null;
        });
        Simulator.releaseSurface(nativeSurface);
        Thread.sleep(100);

        synchronized (PRINT) {
            System.out.println("== Summary");
            System.out.println("   events received by kind:");
            new TreeMap<>(EVENTS).forEach((k, v) -> System.out.printf("     %-44s %d%n", k, v.get()));
            int total = CALLS.values().stream().mapToInt(Integer::intValue).sum();
            System.out.println("   calls made: " + total + " (" + CALLS.size() + " methods)");
            CALLS.forEach((k, v) -> System.out.printf("     %-44s %d%n", k, v));
        }
        System.exit(0);
    }

    private static void onEvent(int what, int ext1, int ext2, Object obj) {
        String name = PlayerImpl.eventName(what);
        if (name == null) name = "event " + what;
        EVENTS.computeIfAbsent(name, k -> new AtomicInteger()).incrementAndGet();
        synchronized (PRINT) {
            if (obj instanceof AtvEventScan) {
                AtvEventScan s = (AtvEventScan) obj;
                bar("ATV scan", s.percent, s.frequencyKHz + " kHz, " + s.scannedChannelNum + " found");
            } else if (obj instanceof DtvEventScan) {
                DtvEventScan s = (DtvEventScan) obj;
                bar("DTV scan", s.scanPercentageNum, "RF " + s.currRFCh + " " + s.rfSignalName
                        + ", " + s.dtvSrvCount + " services");
            } else {
                if (lastProgress >= 0) {
                    System.out.println();
                    lastProgress = -1;
                }
                System.out.printf("   %s ext1=%d ext2=%d%s%n", name, ext1, ext2,
                        obj == null ? "" : " " + show(obj));
            }
        }
    }

    private static void bar(String label, int percent, String detail) {
        int p = Math.max(0, Math.min(100, percent));
        StringBuilder b = new StringBuilder("\r   ").append(label).append(" [");
        for (int i = 0; i < 20; i++) b.append(i < p / 5 ? '#' : '.');
        b.append(String.format("] %3d%% %s", p, detail));
        System.out.print(b);
        lastProgress = p;
        if (p >= 100) {
            System.out.println();
            lastProgress = -1;
        }
    }

    private static void key(PlayerImpl player, String name, int code) {
        boolean r = call("processKey", () -> player.processKey(code, true));
        synchronized (PRINT) {
            System.out.println("   key " + name + " (" + code + ") -> " + r);
        }
    }

    private static void info(PlayerImpl player, String when) throws InterruptedException {
        Thread.sleep(100);
        synchronized (PRINT) {
            System.out.println("== Information " + when);
            table("video", call("getVideoInfo", player::getVideoInfo));
            table("aspect", call("native_getAspectRatio", player::native_getAspectRatio));
            table("audio", call("getAudioInfo", player::getAudioInfo));
            table("multiplex", call("getCurrentMuxInfo", player::getCurrentMuxInfo));
            table("signal", call("getCurrentSignalInformation", player::getCurrentSignalInformation));
            System.out.println("   signal stable: "
                    + call("isSignalStable", player::isSignalStable) + ", language: "
                    + call("getLanguageCode", player::getLanguageCode));
        }
    }

    /** A value object as a two-column table of its fields, or "n/a" for a null result. */
    private static void table(String title, Object o) {
        System.out.println("   +-- " + title);
        if (o == null) {
            System.out.println("   |   n/a");
            return;
        }
        for (Field f : o.getClass().getDeclaredFields()) {
            if (Modifier.isStatic(f.getModifiers())) continue;
            System.out.printf("   |   %-24s %s%n", f.getName(), value(o, f));
        }
    }

    private static String show(Object o) {
        if (o == null) return "n/a";
        StringBuilder b = new StringBuilder("{");
        for (Field f : o.getClass().getDeclaredFields()) {
            if (Modifier.isStatic(f.getModifiers())) continue;
            if (b.length() > 1) b.append(", ");
            b.append(f.getName()).append('=').append(value(o, f));
        }
        return b.append('}').toString();
    }

    private static String value(Object o, Field f) {
        try {
            f.setAccessible(true);
            Object v = f.get(o);
            if (v == null || !v.getClass().isArray()) {
                return v != null && !f.getType().isPrimitive() && !(v instanceof String)
                        ? show(v) : String.valueOf(v);
            }
            StringBuilder b = new StringBuilder("[");
            int n = Array.getLength(v);
            for (int i = 0; i < Math.min(n, 4); i++) {
                if (i > 0) b.append(", ");
                Object e = Array.get(v, i);
                b.append(e == null || e instanceof Number || e instanceof Character
                        || e instanceof Boolean ? String.valueOf(e) : show(e));
            }
            return b.append(n > 4 ? ", ...]" : "]").toString();
        } catch (ReflectiveOperationException | RuntimeException e) {
            return "?";
        }
    }

    private static <T> T call(String method, Callable<T> c) {
        synchronized (CALLS) {
            CALLS.merge(method, 1, Integer::sum);
        }
        try {
            return c.call();
        } catch (Exception e) {
            throw new IllegalStateException(method + " failed", e);
        }
    }
}
