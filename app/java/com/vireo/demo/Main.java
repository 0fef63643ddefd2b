package com.vireo.demo;

import com.vireo.android.tvapi.impl.PlayerImpl;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.TimeUnit;

/** Drives the managed player API through the native library against the workstation's TV. */
public final class Main {
    private Main() {}

    public static void main(String[] args) throws Exception {
        System.out.println("== Loading libplayerimpl_jni and connecting a player");
        CountDownLatch teletextEvent = new CountDownLatch(1);
        PlayerImpl player = new PlayerImpl();
        player.addEventListener((p, what, ext1, ext2, obj) -> {
            System.out.printf("   event %s (%d) ext1=%d ext2=%d on thread %s%n",
                    PlayerImpl.eventName(what), what, ext1, ext2, Thread.currentThread().getName());
            if (what == PlayerImpl.TVPLAYER_CHANGE_TTX_STATUS) {
                teletextEvent.countDown();
            }
        });
        System.out.println("== Commands");
        System.out.println("   getPhaseRange() = " + player.getPhaseRange());
        System.out.println("   native_getVideoStandardDetectionState() = "
                + player.native_getVideoStandardDetectionState());
        System.out.println("   getLanguageCode() = \"" + player.getLanguageCode() + "\"");
        System.out.println("   closeTeletext() = " + player.closeTeletext());
        boolean arrived = teletextEvent.await(5, TimeUnit.SECONDS);
        System.out.println("== Tear-down");
        player.release();
        System.out.println("   after release, closeTeletext() = " + player.closeTeletext()
                + " (no player: the library logs its failure line)");
        System.out.println(arrived ? "== Done: the teletext event came back" : "== No event arrived");
        System.exit(arrived ? 0 : 1);
    }
}
