package com.vireo.test;

import java.lang.reflect.Field;

/**
 * Writes a byte other than 0 or 1 into a boolean field, as memory the managed side shares with
 * native code can hold one: the VM's own stores (JNI's SetBooleanField among them) keep bit 0.
 */
public final class RawBoolean {
    private RawBoolean() {}

    public static void put(Object target, String field, byte value) throws Exception {
        Field unsafeField = sun.misc.Unsafe.class.getDeclaredField("theUnsafe");
        unsafeField.setAccessible(true);
        sun.misc.Unsafe unsafe = (sun.misc.Unsafe) unsafeField.get(null);
        Field f = target.getClass().getDeclaredField(field);
        unsafe.putByte(target, unsafe.objectFieldOffset(f), value);
    }
}
