package com.vireo.test;

/** What the misbehaving library of the JNI rules' tests reads, sets and calls. */
public final class RulesTarget {
    public static boolean flag;
    public static int calls;
    public boolean own;

    private RulesTarget() {}

    public static void take(boolean b, int n) {
        calls++;
    }
}
