package android.view;

/** A Surface class without mLock, for the load-failure test. */
public class Surface {
    private long mNativeObject;
}
