package com.vireo.test;

import com.vireo.android.tvapi.impl.PlayerImpl;

/** Runs a step of the player's life from managed code and names what it threw, or "none". */
public final class Probe {
    private Probe() {}

    /** The exception's class, or for a failed class initialiser the class of its cause. */
    private static String name(Throwable t) {
        if (t instanceof ExceptionInInitializerError && t.getCause() != null) {
            t = t.getCause();
        }
        return t.getClass().getName();
    }

    /** Initialises the player class (its initialiser loads the library and runs native_init). */
    public static String initPlayerClass() {
        try {
            Class.forName("com.vireo.android.tvapi.impl.PlayerImpl", true,
                    Probe.class.getClassLoader());
            return "none";
        } catch (Throwable t) {
            return name(t);
        }
    }

    /** Constructs a player object (native_setup). */
    public static String newPlayer() {
        try {
            new PlayerImpl();
            return "none";
        } catch (Throwable t) {
            return name(t);
        }
    }
}
