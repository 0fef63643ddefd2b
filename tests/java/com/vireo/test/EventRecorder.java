package com.vireo.test;

import com.vireo.android.tvapi.impl.PlayerImpl;
import java.util.ArrayList;
import java.util.List;

/** Records every event the library posts, for the native tests to read back. */
public final class EventRecorder {
    public static final class Event {
        public final int what;
        public final int ext1;
        public final int ext2;
        public final Object obj;
        public final String thread;

        Event(int what, int ext1, int ext2, Object obj, String thread) {
            this.what = what;
            this.ext1 = ext1;
            this.ext2 = ext2;
            this.obj = obj;
            this.thread = thread;
        }
    }

    private static final List<Event> sEvents = new ArrayList<>();

    static {
        PlayerImpl.addGlobalEventListener((player, what, ext1, ext2, obj) -> {
            synchronized (sEvents) {
                sEvents.add(new Event(what, ext1, ext2, obj, Thread.currentThread().getName()));
            }
        });
    }

    private EventRecorder() {}

    public static void clear() {
        synchronized (sEvents) {
            sEvents.clear();
        }
    }

    public static Event[] snapshot() {
        synchronized (sEvents) {
            return sEvents.toArray(new Event[0]);
        }
    }
}
