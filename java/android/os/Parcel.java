package android.os;

/**
 * Workstation stand-in for the platform Parcel: mNativePtr holds the address of a native
 * android::Parcel (0 for none).
 */
public final class Parcel {
    private long mNativePtr;

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
}
