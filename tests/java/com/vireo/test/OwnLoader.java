package com.vireo.test;

import java.io.File;
import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.net.URL;
import java.net.URLClassLoader;
import java.util.Arrays;

/**
 * Runs a program whose classes, the managed API's among them, come from a class loader of their
 * own, as an application's do on the device: nothing of them is on the system class path, so a
 * class looked up by name on a thread that native code attached is not found there.
 *
 * <p>Usage: OwnLoader JAR[:JAR...] MAIN_CLASS [ARGS...]
 */
public final class OwnLoader {
    private OwnLoader() {}

    /** A class loader of their own over the jars (JAR[:JAR...]), above the platform's. */
    public static ClassLoader over(String jarList) throws Exception {
        String[] jars = jarList.split(File.pathSeparator);
        URL[] urls = new URL[jars.length];
        for (int i = 0; i < jars.length; i++) {
            urls[i] = new File(jars[i]).toURI().toURL();
        }
        return new URLClassLoader(urls, ClassLoader.getPlatformClassLoader());
    }

    public static void main(String[] args) throws Throwable {
        ClassLoader loader = over(args[0]);
        Thread.currentThread().setContextClassLoader(loader);
        Method main = Class.forName(args[1], true, loader).getMethod("main", String[].class);
        try {
            main.invoke(null, (Object) Arrays.copyOfRange(args, 2, args.length));
        } catch (InvocationTargetException e) {
            throw e.getCause();
        }
    }
}
