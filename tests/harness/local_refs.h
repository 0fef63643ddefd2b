// Live JNI local references, counted by walking the VM's heap roots through JVMTI: every
// root of kind JVMTI_HEAP_REFERENCE_JNI_LOCAL is one reference held in some thread's local
// frames, including the top-level frame of a native thread that was attached and never
// detached (where a reference, once made, stays until it is deleted).
//
// Needs PIJ_JVMTI_HEADER, the path of the JDK's jvmti.h. That header includes the JDK's
// own jni.h; the one the library and the harness use is already in, so the JDK's is kept
// out by its include guard.
#pragma once

#include <jni.h>

#ifndef _JAVASOFT_JNI_H_
#define _JAVASOFT_JNI_H_
#endif
#include PIJ_JVMTI_HEADER

namespace th {

namespace local_refs_detail {

struct Count {
    jlong thread;  // count only this thread's references; -1 for every thread
    long n;
};

inline jint JNICALL onReference(jvmtiHeapReferenceKind kind, const jvmtiHeapReferenceInfo* info,
                                jlong, jlong, jlong, jlong*, jlong*, jint, void* data) {
    auto* c = static_cast<Count*>(data);
    if (kind == JVMTI_HEAP_REFERENCE_JNI_LOCAL &&
        (c->thread < 0 || info->jni_local.thread_id == c->thread)) {
        ++c->n;
    }
    return 0;  // roots only: nothing behind them is visited
}

inline jvmtiEnv* jvmti(JavaVM* vm) {
    static jvmtiEnv* env = [vm] {
        jvmtiEnv* e = nullptr;
        if (vm->GetEnv(reinterpret_cast<void**>(&e), JVMTI_VERSION_1_2) != JNI_OK) return e;
        jvmtiCapabilities caps{};
        caps.can_tag_objects = 1;  // FollowReferences needs it
        if (e->AddCapabilities(&caps) != JVMTI_ERROR_NONE) {
            e->DisposeEnvironment();
            e = nullptr;
        }
        return e;
    }();
    return env;
}

}  // namespace local_refs_detail

// The id JVMTI reports for the calling thread (java.lang.Thread's getId()), or -1. Makes no
// local reference that outlives the call. On a service thread right after an event the look at
// pending exceptions comes first (the checked VM wants one after every post); one left pending
// by a managed listener is not this function's to clear, so it answers -1.
inline jlong currentThreadId(JNIEnv* env) {
    if (env->ExceptionCheck()) return -1;
    jclass threadClass = env->FindClass("java/lang/Thread");
    jobject self = env->CallStaticObjectMethod(
        threadClass, env->GetStaticMethodID(threadClass, "currentThread", "()Ljava/lang/Thread;"));
    jlong id = -1;
    if (!env->ExceptionCheck()) {
        id = env->CallLongMethod(self, env->GetMethodID(threadClass, "getId", "()J"));
    }
    if (env->ExceptionCheck()) {
        env->ExceptionDescribe();
        env->ExceptionClear();
        id = -1;
    }
    env->DeleteLocalRef(self);
    env->DeleteLocalRef(threadClass);
    return id;
}

// Live JNI local references of the thread with JVMTI id `threadId` (or of every thread, for
// -1); -1 when the VM offers no JVMTI with object tagging. Any attached thread may call it.
inline long liveLocalRefs(JavaVM* vm, jlong threadId = -1) {
    jvmtiEnv* e = local_refs_detail::jvmti(vm);
    if (e == nullptr) return -1;
    jvmtiHeapCallbacks callbacks{};
    callbacks.heap_reference_callback = &local_refs_detail::onReference;
    local_refs_detail::Count count{threadId, 0};
    if (e->FollowReferences(0, nullptr, nullptr, &callbacks, &count) != JVMTI_ERROR_NONE) {
        return -1;
    }
    return count.n;
}

}  // namespace th
