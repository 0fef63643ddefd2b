package android.os;

/**
 * Workstation stand-in for the platform Parcel: mNativePtr holds the address of a native
 * android::Parcel (0 for none). A Parcel made by obtain() owns a real native parcel of the
 * workstation's libbinder (natives loaded from the path in the system property
 * "playerimpl.hostparcel.library") and can be filled and read like the platform's.
 */
public final class Parcel {
    static {
        String path = System.getProperty("playerimpl.hostparcel.library");
        if (path != null) {
            System.load(path);
        }
    }

    private long mNativePtr;
    private boolean mOwnsNative;

    public Parcel() {}

    public Parcel(long nativePtr) {
        mNativePtr = nativePtr;
    }

    public long nativePtr() {
        return mNativePtr;
    }

    public void setNativePtr(long nativePtr) {
        mNativePtr = nativePtr;
    }

    /** A Parcel owning a new, empty native parcel. */
    public static Parcel obtain() {
        Parcel p = new Parcel(nativeCreate());
        p.mOwnsNative = true;
        return p;
    }

    /** Frees the native parcel this Parcel owns, if any. */
    public void recycle() {
        if (mOwnsNative && mNativePtr != 0) {
            nativeDestroy(mNativePtr);
        }
        mNativePtr = 0;
        mOwnsNative = false;
    }

    public void writeInt(int value) {
        nativeWriteInt(mNativePtr, value);
    }

    public int readInt() {
        return nativeReadInt(mNativePtr);
    }

    /** Written as the platform's String8: byte length, bytes, NUL, padded to 4. */
    public void writeString8(String value) {
        nativeWriteString8(mNativePtr, value);
    }

    public String readString8() {
        return nativeReadString8(mNativePtr);
    }

    public void setDataPosition(int pos) {
        nativeSetDataPosition(mNativePtr, pos);
    }

    public int dataPosition() {
        return nativeDataPosition(mNativePtr);
    }

    public int dataSize() {
        return nativeDataSize(mNativePtr);
    }

    private static native long nativeCreate();
    private static native void nativeDestroy(long ptr);
    private static native void nativeWriteInt(long ptr, int value);
    private static native int nativeReadInt(long ptr);
    private static native void nativeWriteString8(long ptr, String value);
    private static native String nativeReadString8(long ptr);
    private static native void nativeSetDataPosition(long ptr, int pos);
    private static native int nativeDataPosition(long ptr);
    private static native int nativeDataSize(long ptr);
}
