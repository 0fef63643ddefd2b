package com.vireo.demo;

/**
 * The workstation simulator's hook: chooses the scenario before a player connects, tells
 * when its timeline has been delivered, and makes native surfaces to bind the video to.
 * The methods live in the workstation's player service library, loaded with the native
 * library of the managed player class, so that class must be initialised first.
 */
final class Simulator {
    private Simulator() {}

    /** Null when the file (or the built-in scenario, for null) was accepted; else the reason. */
    static native String useScenario(String path);

    static native boolean timelineDone();

    static native long newSurface(long uniqueId);

    static native void releaseSurface(long surface);
}
