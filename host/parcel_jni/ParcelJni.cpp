// Workstation natives of the managed android.os.Parcel: a managed Parcel can own a native
// android::Parcel of the workstation's libbinder, fill it and read it back, so that tests
// and the simulated TV exchange real parcels with the library. Loaded by the managed Parcel
// class from the path in the system property "playerimpl.hostparcel.library".
#include <jni.h>

// The platform's Parcel header needs <memory> and <limits> ahead of it.
// clang-format off
#include <limits>
#include <memory>
#include <binder/Parcel.h>
// clang-format on
#include <utils/String8.h>

namespace {

android::Parcel* parcelAt(jlong ptr) { return reinterpret_cast<android::Parcel*>(ptr); }

jlong nativeCreate(JNIEnv*, jclass) { return reinterpret_cast<jlong>(new android::Parcel()); }

void nativeDestroy(JNIEnv*, jclass, jlong ptr) { delete parcelAt(ptr); }

void nativeWriteInt(JNIEnv*, jclass, jlong ptr, jint value) {
    if (ptr != 0) parcelAt(ptr)->writeInt32(value);
}

jint nativeReadInt(JNIEnv*, jclass, jlong ptr) { return ptr != 0 ? parcelAt(ptr)->readInt32() : 0; }

void nativeWriteString8(JNIEnv* env, jclass, jlong ptr, jstring value) {
    if (ptr == 0) return;
    android::String8 text;
    if (value != nullptr) {
        const char* chars = env->GetStringUTFChars(value, nullptr);
        if (chars == nullptr) return;
        text.setTo(chars);
        env->ReleaseStringUTFChars(value, chars);
    }
    parcelAt(ptr)->writeString8(text);
}

jstring nativeReadString8(JNIEnv* env, jclass, jlong ptr) {
    if (ptr == 0) return nullptr;
    android::String8 text = parcelAt(ptr)->readString8();
    return env->NewStringUTF(text.c_str());
}

void nativeSetDataPosition(JNIEnv*, jclass, jlong ptr, jint pos) {
    if (ptr != 0 && pos >= 0) parcelAt(ptr)->setDataPosition(static_cast<size_t>(pos));
}

jint nativeDataPosition(JNIEnv*, jclass, jlong ptr) {
    return ptr != 0 ? static_cast<jint>(parcelAt(ptr)->dataPosition()) : 0;
}

jint nativeDataSize(JNIEnv*, jclass, jlong ptr) {
    return ptr != 0 ? static_cast<jint>(parcelAt(ptr)->dataSize()) : 0;
}

#define NATIVE(name, sig) \
    { const_cast<char*>(#name), const_cast<char*>(sig), reinterpret_cast<void*>(&name) }

const JNINativeMethod kMethods[] = {
    NATIVE(nativeCreate, "()J"),
    NATIVE(nativeDestroy, "(J)V"),
    NATIVE(nativeWriteInt, "(JI)V"),
    NATIVE(nativeReadInt, "(J)I"),
    NATIVE(nativeWriteString8, "(JLjava/lang/String;)V"),
    NATIVE(nativeReadString8, "(J)Ljava/lang/String;"),
    NATIVE(nativeSetDataPosition, "(JI)V"),
    NATIVE(nativeDataPosition, "(J)I"),
    NATIVE(nativeDataSize, "(J)I"),
};

#undef NATIVE

}  // namespace

extern "C" JNIEXPORT jint JNI_OnLoad(JavaVM* vm, void*) {
    JNIEnv* env = nullptr;
    if (vm->GetEnv(reinterpret_cast<void**>(&env), JNI_VERSION_1_4) != JNI_OK) return JNI_ERR;
    jclass cls = env->FindClass("android/os/Parcel");
    if (cls == nullptr) return JNI_ERR;
    jint n = static_cast<jint>(sizeof(kMethods) / sizeof(kMethods[0]));
    if (env->RegisterNatives(cls, kMethods, n) != JNI_OK) return JNI_ERR;
    env->DeleteLocalRef(cls);
    return JNI_VERSION_1_4;
}
