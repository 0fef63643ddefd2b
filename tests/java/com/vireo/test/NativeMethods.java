package com.vireo.test;

import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.util.ArrayList;
import java.util.List;

/** Lists the public instance native methods of a class as "name signature" lines. */
public final class NativeMethods {
    private NativeMethods() {}

    public static String[] of(Class<?> c) {
        List<String> out = new ArrayList<>();
        for (Method m : c.getDeclaredMethods()) {
            int mod = m.getModifiers();
            if (!Modifier.isNative(mod) || !Modifier.isPublic(mod) || Modifier.isStatic(mod)) {
                continue;
            }
            StringBuilder sig = new StringBuilder("(");
            for (Class<?> p : m.getParameterTypes()) {
                sig.append(descriptor(p));
            }
            sig.append(')').append(descriptor(m.getReturnType()));
            out.add(m.getName() + " " + sig);
        }
        return out.toArray(new String[0]);
    }

    private static String descriptor(Class<?> t) {
        if (t.isArray()) return "[" + descriptor(t.getComponentType());
        if (t == void.class) return "V";
        if (t == boolean.class) return "Z";
        if (t == byte.class) return "B";
        if (t == char.class) return "C";
        if (t == short.class) return "S";
        if (t == int.class) return "I";
        if (t == long.class) return "J";
        if (t == float.class) return "F";
        if (t == double.class) return "D";
        return "L" + t.getName().replace('.', '/') + ";";
    }
}
