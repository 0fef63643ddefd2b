// A stand-in for the JNI environment and the VM, enough for the library's call frame,
// player replacement, listener and payload events to run without a JVM: a player object with
// its two long fields, global and local references as heap handles (so that a reference
// used after its deletion is visible to the sanitizers), thread attachment, and a static
// call that counts posts. Shared by the ThreadSanitizer run and the payload fuzzer.
#pragma once

#include <jni.h>

#include <atomic>
#include <cstdarg>
#include <mutex>
#include <vector>

#include "core/context.h"

// The library logs through the platform log; here every line is dropped.
extern "C" __attribute__((visibility("default"))) int __android_log_print(int, const char*,
                                                                          const char*, ...) {
    return 0;
}

namespace fake {

// ---- Objects and references ----

struct Object {
    std::atomic<int> kind{0};
    jlong context = 0;  // mNativeContext: read and written only under the library's lock
    jlong surface = 0;  // mNativeSurfaceTexture
};

// A reference is a handle on the heap pointing at its object.
struct Handle {
    Object* target;
};

inline Object gPlayerObject;
inline Object gWeakObject;
inline Object gClassObject;
inline std::atomic<long> gGlobals{0};
inline std::atomic<long> gPosts{0};

inline Object* deref(jobject ref) { return ref ? reinterpret_cast<Handle*>(ref)->target : nullptr; }
inline jobject newHandle(Object* o) {
    return o ? reinterpret_cast<jobject>(new Handle{o}) : nullptr;
}

inline jfieldID const kContextField = reinterpret_cast<jfieldID>(1);
inline jfieldID const kSurfaceField = reinterpret_cast<jfieldID>(2);
inline jfieldID const kOtherField = reinterpret_cast<jfieldID>(3);

inline jlong JNICALL getLong(JNIEnv*, jobject obj, jfieldID f) {
    Object* o = deref(obj);
    return f == kContextField ? o->context : f == kSurfaceField ? o->surface : 0;
}
inline void JNICALL setLong(JNIEnv*, jobject obj, jfieldID f, jlong v) {
    Object* o = deref(obj);
    if (f == kContextField) o->context = v;
    if (f == kSurfaceField) o->surface = v;
}
inline jobject JNICALL newGlobal(JNIEnv*, jobject obj) {
    if (obj == nullptr) return nullptr;
    gGlobals.fetch_add(1);
    return newHandle(deref(obj));
}
inline void JNICALL deleteGlobal(JNIEnv*, jobject obj) {
    if (obj == nullptr) return;
    gGlobals.fetch_sub(1);
    delete reinterpret_cast<Handle*>(obj);
}
// Local references live until the end of the run: the harness keeps no frames.
inline std::mutex gLocalsLock;
inline std::vector<Handle*> gLocals;
inline jobject keepLocal(Object* o) {
    if (o == nullptr) return nullptr;
    auto* h = new Handle{o};
    std::lock_guard<std::mutex> guard(gLocalsLock);
    gLocals.push_back(h);
    return reinterpret_cast<jobject>(h);
}
inline jobject JNICALL newLocal(JNIEnv*, jobject obj) { return keepLocal(deref(obj)); }
inline void JNICALL deleteLocal(JNIEnv*, jobject) {}
inline jclass JNICALL getObjectClass(JNIEnv*, jobject) {
    return static_cast<jclass>(keepLocal(&gClassObject));
}
inline jclass JNICALL findClass(JNIEnv*, const char*) {
    return static_cast<jclass>(keepLocal(&gClassObject));
}
inline jmethodID JNICALL getMethodId(JNIEnv*, jclass, const char*, const char*) {
    return reinterpret_cast<jmethodID>(1);
}
inline jfieldID JNICALL getFieldId(JNIEnv*, jclass, const char*, const char*) {
    return kOtherField;
}
// Objects the managed side would own; freed by resetLocals.
inline std::vector<Object*> gMadeObjects;
inline Object* madeObject() {
    std::lock_guard<std::mutex> guard(gLocalsLock);
    gMadeObjects.push_back(new Object);
    return gMadeObjects.back();
}
inline jobject JNICALL newObjectV(JNIEnv*, jclass, jmethodID, va_list) {
    return keepLocal(madeObject());
}
inline jobject JNICALL allocObject(JNIEnv*, jclass) { return keepLocal(madeObject()); }
inline jboolean JNICALL exceptionCheck(JNIEnv*) { return JNI_FALSE; }
inline void JNICALL exceptionClear(JNIEnv*) {}
inline jint JNICALL pushFrame(JNIEnv*, jint) { return JNI_OK; }
inline jobject JNICALL popFrame(JNIEnv*, jobject r) { return r; }
// A value set on an object is read back by no one; touching the object is what counts.
inline void JNICALL setShort(JNIEnv*, jobject o, jfieldID, jshort) { deref(o)->kind.store(1); }
inline void JNICALL setInt(JNIEnv*, jobject o, jfieldID, jint) { deref(o)->kind.store(2); }
inline void JNICALL setBool(JNIEnv*, jobject o, jfieldID, jboolean) { deref(o)->kind.store(3); }
inline void JNICALL setObject(JNIEnv*, jobject o, jfieldID, jobject) { deref(o)->kind.store(4); }
inline jstring JNICALL newStringUtf(JNIEnv*, const char*) {
    return static_cast<jstring>(keepLocal(madeObject()));
}
inline jintArray JNICALL newIntArray(JNIEnv*, jsize) {
    return static_cast<jintArray>(keepLocal(madeObject()));
}
inline void JNICALL setIntRegion(JNIEnv*, jintArray, jsize, jsize, const jint*) {}
inline void JNICALL callStaticVoidV(JNIEnv*, jclass cls, jmethodID, va_list args) {
    deref(cls);  // the listener's class reference must still be alive
    jobject weak = va_arg(args, jobject);
    deref(weak);
    gPosts.fetch_add(1);
}

inline JNINativeInterface gFunctions;
inline _JNIEnv gEnv;
inline JNIInvokeInterface gInvoke;
inline _JavaVM gVm;

inline jint JNICALL getJavaVm(JNIEnv*, JavaVM** vm) {
    *vm = &gVm;
    return JNI_OK;
}
inline jint JNICALL attach(JavaVM*, JNIEnv** env, void*) {
    *env = &gEnv;
    return JNI_OK;
}

inline void installEnvironment() {
    gFunctions = JNINativeInterface{};
    gFunctions.GetLongField = getLong;
    gFunctions.SetLongField = setLong;
    gFunctions.NewGlobalRef = newGlobal;
    gFunctions.DeleteGlobalRef = deleteGlobal;
    gFunctions.NewLocalRef = newLocal;
    gFunctions.DeleteLocalRef = deleteLocal;
    gFunctions.GetObjectClass = getObjectClass;
    gFunctions.FindClass = findClass;
    gFunctions.GetMethodID = getMethodId;
    gFunctions.GetFieldID = getFieldId;
    gFunctions.NewObjectV = newObjectV;
    gFunctions.AllocObject = allocObject;
    gFunctions.ExceptionCheck = exceptionCheck;
    gFunctions.ExceptionClear = exceptionClear;
    gFunctions.PushLocalFrame = pushFrame;
    gFunctions.PopLocalFrame = popFrame;
    gFunctions.SetShortField = setShort;
    gFunctions.SetIntField = setInt;
    gFunctions.SetBooleanField = setBool;
    gFunctions.SetObjectField = setObject;
    gFunctions.NewStringUTF = newStringUtf;
    gFunctions.NewIntArray = newIntArray;
    gFunctions.SetIntArrayRegion = setIntRegion;
    gFunctions.CallStaticVoidMethodV = callStaticVoidV;
    gFunctions.GetJavaVM = getJavaVm;
    gEnv.functions = &gFunctions;
    gInvoke = JNIInvokeInterface{};
    gInvoke.AttachCurrentThread = attach;
    gVm.functions = &gInvoke;

    pij::gPlayerFields.context = kContextField;
    pij::gPlayerFields.surfaceTexture = kSurfaceField;
    pij::gPlayerFields.postEvent = reinterpret_cast<jmethodID>(1);
}

// Frees every local reference and object made since the last call (the fuzzer's iterations).
inline void resetLocals() {
    std::lock_guard<std::mutex> guard(gLocalsLock);
    for (Handle* h : gLocals) delete h;
    gLocals.clear();
    for (Object* o : gMadeObjects) delete o;
    gMadeObjects.clear();
}

}  // namespace fake
