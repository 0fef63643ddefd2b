// A stand-in for the JNI environment and the VM, enough for the library's call frame,
// player replacement, native_init, listener and payload events to run without a JVM: a player
// object with its two long fields, global and local references as heap handles (so that a
// reference used after its deletion is visible to the sanitizers), static int fields that
// each answer a code of their own, thread attachment, and a static call that counts posts.
// Shared by the ThreadSanitizer run, the payload fuzzer, the native dispatcher test and the
// key report.
#pragma once

#include <jni.h>

#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "core/context.h"

namespace fake {

// Where the library's log lines go: dropped unless a user sets this (priority and text).
inline std::function<void(int, const char*)> gOnLog;
// Every post of an event: code, ext1, ext2 and object, after it is counted.
inline std::function<void(jint, jint, jint, jobject)> gOnPost;

}  // namespace fake

// The library logs through the platform log.
extern "C" __attribute__((visibility("default"))) int __android_log_print(int prio, const char*,
                                                                          const char* fmt, ...) {
    if (!fake::gOnLog) return 0;
    char buf[1024];
    va_list ap;
    va_start(ap, fmt);
    std::vsnprintf(buf, sizeof buf, fmt, ap);
    va_end(ap);
    fake::gOnLog(prio, buf);
    return 1;
}

namespace fake {

// ---- Objects and references ----

struct Object {
    std::atomic<int> kind{0};  // what was last stored in one of its other fields
    // mNativeContext: replaced under the library's lock, but written by suspend without it, as
    // its callers expect; the VM reads and writes a long field whole, so it is atomic here.
    std::atomic<jlong> context{0};
    jlong surface = 0;         // mNativeSurfaceTexture
    jlong nativeObject = 0;    // a Surface's mNativeObject, set before any thread reads it
};

// A reference is a handle on the heap pointing at its object.
struct Handle {
    Object* target;
};

inline Object gPlayerObject, gWeakObject, gClassObject;
inline std::atomic<long> gGlobals{0}, gPosts{0};

inline Object* deref(jobject ref) { return ref ? reinterpret_cast<Handle*>(ref)->target : nullptr; }
inline jobject newHandle(Object* o) {
    return o ? reinterpret_cast<jobject>(new Handle{o}) : nullptr;
}

inline jfieldID const kContextField = reinterpret_cast<jfieldID>(1);
inline jfieldID const kSurfaceField = reinterpret_cast<jfieldID>(2);
inline jfieldID const kOtherField = reinterpret_cast<jfieldID>(3);
inline jfieldID const kSurfaceNativeField = reinterpret_cast<jfieldID>(4);
inline jfieldID const kSurfaceLockField = reinterpret_cast<jfieldID>(5);

// Static int fields: each name asked for answers a code of its own (5000, 5007, ...); their
// ids are 1-based indexes into the names.
inline std::vector<std::string> gStaticFields;
inline std::map<std::string, jint> gCodes;
inline jint codeOf(const std::string& field) {
    return gCodes.emplace(field, 5000 + static_cast<jint>(gCodes.size()) * 7).first->second;
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

// Local references, and the objects the managed side would own, live until resetLocals: the
// stand-in keeps no frames.
inline std::mutex gLocalsLock;
inline std::vector<Handle*> gLocals;
inline std::vector<Object*> gMadeObjects;
inline jobject keepLocal(Object* o) {
    if (o == nullptr) return nullptr;
    auto* h = new Handle{o};
    std::lock_guard<std::mutex> guard(gLocalsLock);
    gLocals.push_back(h);
    return reinterpret_cast<jobject>(h);
}
inline jobject madeObject() {
    auto* o = new Object;
    std::lock_guard<std::mutex> guard(gLocalsLock);
    gMadeObjects.push_back(o);
    gLocals.push_back(new Handle{o});
    return reinterpret_cast<jobject>(gLocals.back());
}

inline JNINativeInterface gFunctions;
inline _JNIEnv gEnv;
inline JNIInvokeInterface gInvoke;
inline _JavaVM gVm;

inline void installEnvironment() {
    JNINativeInterface& f = gFunctions = JNINativeInterface{};
    f.GetLongField = [](JNIEnv*, jobject obj, jfieldID id) -> jlong {
        if (id == kContextField) return deref(obj)->context.load(std::memory_order_relaxed);
        if (id == kSurfaceNativeField) return deref(obj)->nativeObject;
        return id == kSurfaceField ? deref(obj)->surface : 0;
    };
    f.SetLongField = [](JNIEnv*, jobject obj, jfieldID id, jlong v) {
        if (id == kContextField) deref(obj)->context.store(v, std::memory_order_relaxed);
        if (id == kSurfaceField) deref(obj)->surface = v;
    };
    // A Surface's lock object is any object; its monitor is always entered.
    f.GetObjectField = [](JNIEnv*, jobject, jfieldID) { return keepLocal(&gClassObject); };
    f.MonitorEnter = [](JNIEnv*, jobject) -> jint { return JNI_OK; };
    f.MonitorExit = [](JNIEnv*, jobject) -> jint { return JNI_OK; };
    f.NewGlobalRef = newGlobal;
    f.DeleteGlobalRef = deleteGlobal;
    // Weak references are counted with the global ones; none of the stand-in's objects is
    // ever collected.
    f.NewWeakGlobalRef = [](JNIEnv* e, jobject obj) { return jweak(newGlobal(e, obj)); };
    f.DeleteWeakGlobalRef = [](JNIEnv* e, jweak obj) { deleteGlobal(e, obj); };
    f.IsSameObject = [](JNIEnv*, jobject a, jobject b) -> jboolean {
        return deref(a) == deref(b) ? JNI_TRUE : JNI_FALSE;
    };
    f.NewLocalRef = [](JNIEnv*, jobject obj) { return keepLocal(deref(obj)); };
    f.DeleteLocalRef = [](JNIEnv*, jobject) {};
    f.GetObjectClass = [](JNIEnv*, jobject) { return jclass(keepLocal(&gClassObject)); };
    f.FindClass = [](JNIEnv*, const char*) { return jclass(keepLocal(&gClassObject)); };
    f.GetMethodID = [](JNIEnv*, jclass, const char*, const char*) { return jmethodID(1); };
    f.GetFieldID = [](JNIEnv*, jclass, const char* name, const char*) {
        const std::string n = name;
        return n == "mNativeContext"          ? kContextField
               : n == "mNativeSurfaceTexture" ? kSurfaceField
                                              : kOtherField;
    };
    f.GetStaticMethodID = [](JNIEnv*, jclass, const char*, const char*) { return jmethodID(1); };
    f.GetStaticFieldID = [](JNIEnv*, jclass, const char* name, const char*) {
        gStaticFields.emplace_back(name);
        return reinterpret_cast<jfieldID>(gStaticFields.size());
    };
    f.GetStaticIntField = [](JNIEnv*, jclass, jfieldID id) {
        return codeOf(gStaticFields.at(reinterpret_cast<size_t>(id) - 1));
    };
    f.NewObjectV = [](JNIEnv*, jclass, jmethodID, va_list) { return madeObject(); };
    f.AllocObject = [](JNIEnv*, jclass) { return madeObject(); };
    f.ExceptionCheck = [](JNIEnv*) -> jboolean { return JNI_FALSE; };
    f.ExceptionClear = [](JNIEnv*) {};
    f.PushLocalFrame = [](JNIEnv*, jint) -> jint { return JNI_OK; };
    f.PopLocalFrame = [](JNIEnv*, jobject r) { return r; };
    // A value stored in an object is read back by no one; touching the object is what counts.
    f.SetShortField = [](JNIEnv*, jobject o, jfieldID, jshort) { deref(o)->kind.store(1); };
    f.SetIntField = [](JNIEnv*, jobject o, jfieldID, jint) { deref(o)->kind.store(2); };
    f.SetBooleanField = [](JNIEnv*, jobject o, jfieldID, jboolean) { deref(o)->kind.store(3); };
    f.SetObjectField = [](JNIEnv*, jobject o, jfieldID, jobject) { deref(o)->kind.store(4); };
    f.NewStringUTF = [](JNIEnv*, const char*) { return jstring(madeObject()); };
    f.NewIntArray = [](JNIEnv*, jsize) { return jintArray(madeObject()); };
    f.SetIntArrayRegion = [](JNIEnv*, jintArray, jsize, jsize, const jint*) {};
    f.CallStaticVoidMethodV = [](JNIEnv*, jclass cls, jmethodID, va_list args) {
        deref(cls);                    // the listener's class reference must still be alive
        deref(va_arg(args, jobject));  // and so must its weak reference
        gPosts.fetch_add(1);
        const jint code = va_arg(args, jint);
        const jint ext1 = va_arg(args, jint);
        const jint ext2 = va_arg(args, jint);
        jobject obj = va_arg(args, jobject);
        if (gOnPost) gOnPost(code, ext1, ext2, obj);
    };
    f.GetJavaVM = [](JNIEnv*, JavaVM** vm) -> jint {
        *vm = &gVm;
        return JNI_OK;
    };
    gEnv.functions = &gFunctions;
    gInvoke = JNIInvokeInterface{};
    gInvoke.AttachCurrentThread = [](JavaVM*, JNIEnv** env, void*) -> jint {
        *env = &gEnv;
        return JNI_OK;
    };
    gInvoke.GetEnv = [](JavaVM*, void** env, jint) -> jint {
        *env = &gEnv;
        return JNI_OK;
    };
    gVm.functions = &gInvoke;

    pij::gPlayerFields.context = kContextField;
    pij::gPlayerFields.surfaceTexture = kSurfaceField;
    pij::gPlayerFields.postEvent = reinterpret_cast<jmethodID>(1);
    pij::gSurfaceFields.nativeObject = kSurfaceNativeField;
    pij::gSurfaceFields.lock = kSurfaceLockField;
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
