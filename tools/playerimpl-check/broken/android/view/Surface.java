package android.view;

/** A Surface whose lock has another type, for the check tool's test. */
public class Surface {
    private final String mLock = ""; // planted: not an Object field
    private long mNativeObject; // right
}
