// The demonstration program's window into the simulator: the native methods of
// com.vireo.demo.Simulator. The JVM finds them here because this library is loaded as a
// dependency of libplayerimpl_jni, which the managed player class loads.
#include <gui/Surface.h>
#include <jni.h>

#include "sim_internal.h"

namespace host {
namespace sim {

void* newSurface(uint64_t uniqueId) {
    auto* s = new android::Surface(new android::IGraphicBufferProducer(), uniqueId);
    s->incStrong(reinterpret_cast<void*>(&newSurface));
    return s;
}

void releaseSurface(void* surface) {
    if (surface == nullptr) return;
    static_cast<android::Surface*>(surface)->decStrong(reinterpret_cast<void*>(&newSurface));
}

}  // namespace sim
}  // namespace host

extern "C" {

// Chooses the scenario file (null or "" for the built-in one); returns the refusal
// message, or null when the file was accepted.
JNIEXPORT jstring JNICALL Java_com_vireo_demo_Simulator_useScenario(JNIEnv* env, jclass,
                                                                    jstring path) {
    std::string p;
    if (path != nullptr) {
        const char* chars = env->GetStringUTFChars(path, nullptr);
        if (chars == nullptr) return nullptr;
        p = chars;
        env->ReleaseStringUTFChars(path, chars);
    }
    std::string error = host::sim::useScenarioFile(p);
    return error.empty() ? nullptr : env->NewStringUTF(error.c_str());
}

JNIEXPORT jboolean JNICALL Java_com_vireo_demo_Simulator_timelineDone(JNIEnv*, jclass) {
    return host::sim::timelineDone() ? JNI_TRUE : JNI_FALSE;
}

JNIEXPORT jlong JNICALL Java_com_vireo_demo_Simulator_newSurface(JNIEnv*, jclass, jlong id) {
    return static_cast<jlong>(
        reinterpret_cast<intptr_t>(host::sim::newSurface(static_cast<uint64_t>(id))));
}

JNIEXPORT void JNICALL Java_com_vireo_demo_Simulator_releaseSurface(JNIEnv*, jclass,
                                                                    jlong surface) {
    host::sim::releaseSurface(reinterpret_cast<void*>(static_cast<intptr_t>(surface)));
}

}  // extern "C"
