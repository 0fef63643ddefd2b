package android.view;

/**
 * Workstation stand-in for the platform Surface: the two fields the native library reads.
 * mNativeObject holds the address of a native android::Surface, guarded by mLock.
 */
public class Surface {
    private final Object mLock = new Object();
    private long mNativeObject;

    public Surface() {}

    public Surface(long nativeObject) {
        mNativeObject = nativeObject;
    }

    public long getNativeObject() {
        synchronized (mLock) {
            return mNativeObject;
        }
    }

    public void setNativeObject(long nativeObject) {
        synchronized (mLock) {
            mNativeObject = nativeObject;
        }
    }
}
