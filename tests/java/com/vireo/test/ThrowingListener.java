package com.vireo.test;

import com.vireo.android.tvapi.impl.PlayerImpl;

/** A listener of one player that throws from its first few events, as a faulty app would. */
public final class ThrowingListener implements PlayerImpl.OnEventListener {
    private int mThrowsLeft;

    private ThrowingListener(int throwsLeft) {
        mThrowsLeft = throwsLeft;
    }

    public static void install(PlayerImpl player, int throwsLeft) {
        player.addEventListener(new ThrowingListener(throwsLeft));
    }

    @Override
    public void onEvent(PlayerImpl player, int what, int ext1, int ext2, Object obj) {
        if (mThrowsLeft > 0) {
            mThrowsLeft--;
            throw new IllegalStateException("listener failed on event " + what);
        }
    }
}
