package com.vireo.test;

/** Loads a native library from managed code, so its JNI_OnLoad sees the application loader. */
public final class Loader {
    private Loader() {}

    public static String load(String path) {
        try {
            System.load(path);
            return "loaded";
        } catch (Throwable t) {
            return t.getClass().getName() + " " + t.getMessage();
        }
    }
}
