// Conversion of a managed android.os.Parcel to the native parcel it owns.
#pragma once

#include <jni.h>

#include "core/parcel.h"

// The android::Parcel held in the managed parcel's mNativePtr (owned by the managed object,
// never freed here), or null for a null reference or an unset pointer. Looked up afresh at
// every call; nothing is cached.
android::Parcel* VndkGetParcelForJavaObject(JNIEnv* env, jobject parcel);
