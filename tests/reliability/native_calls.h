// Calls any native method of the managed player class by reflection, with argument sets
// chosen to be hostile (nulls, empty and oversized arrays and strings, extreme integers).
// The list of methods comes from the managed class itself, so the sweep covers whatever
// the managed side declares without repeating a list of names here.
#pragma once

#include <jni.h>

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include "harness/jvm_harness.h"

namespace rel {

struct NativeMethod {
    std::string name;
    std::string sig;                  // JNI signature
    std::vector<std::string> params;  // JNI descriptors of the parameters
    std::string ret;                  // JNI descriptor of the result
    bool isStatic = false;
    jmethodID id = nullptr;
};

// The text of the String that method `id` of `o` returns.
inline std::string textOf(JNIEnv* e, jobject o, jmethodID id) {
    auto s = static_cast<jstring>(e->CallObjectMethod(o, id));
    th::failOnPendingException();
    std::string out = th::toStdString(s);
    e->DeleteLocalRef(s);
    return out;
}

// Every native method the managed player class declares.
inline std::vector<NativeMethod> managedNatives() {
    constexpr jint kNative = 0x100, kStatic = 0x8;  // java.lang.reflect.Modifier
    JNIEnv* e = th::env();
    jclass classClass = th::findClass("java/lang/Class");
    jclass methodClass = th::findClass("java/lang/reflect/Method");
    jmethodID descriptor = e->GetMethodID(classClass, "descriptorString", "()Ljava/lang/String;");
    jmethodID getModifiers = e->GetMethodID(methodClass, "getModifiers", "()I");
    jmethodID getName = e->GetMethodID(methodClass, "getName", "()Ljava/lang/String;");
    jmethodID getParams = e->GetMethodID(methodClass, "getParameterTypes", "()[Ljava/lang/Class;");
    jmethodID getReturn = e->GetMethodID(methodClass, "getReturnType", "()Ljava/lang/Class;");
    auto methods = static_cast<jobjectArray>(e->CallObjectMethod(
        th::playerClass(),
        e->GetMethodID(classClass, "getDeclaredMethods", "()[Ljava/lang/reflect/Method;")));
    th::failOnPendingException();

    std::vector<NativeMethod> out;
    for (jsize i = 0; i < e->GetArrayLength(methods); ++i) {
        jobject m = e->GetObjectArrayElement(methods, i);
        const jint mods = e->CallIntMethod(m, getModifiers);
        th::failOnPendingException();
        if (mods & kNative) {
            NativeMethod nm{textOf(e, m, getName),    "(", {}, "", (mods & kStatic) != 0,
                            e->FromReflectedMethod(m)};
            auto params = static_cast<jobjectArray>(e->CallObjectMethod(m, getParams));
            th::failOnPendingException();
            for (jsize k = 0; k < e->GetArrayLength(params); ++k) {
                jobject p = e->GetObjectArrayElement(params, k);
                nm.params.push_back(textOf(e, p, descriptor));
                nm.sig += nm.params.back();
                e->DeleteLocalRef(p);
            }
            e->DeleteLocalRef(params);
            jobject r = e->CallObjectMethod(m, getReturn);
            th::failOnPendingException();
            nm.ret = textOf(e, r, descriptor);
            nm.sig += ")" + nm.ret;
            e->DeleteLocalRef(r);
            out.push_back(nm);
        }
        e->DeleteLocalRef(m);
    }
    e->DeleteLocalRef(methods);
    return out;
}

// What a call returned: the JNI kind of the result and its value (an object result is a
// local reference the caller deletes).
struct Result {
    char kind = 'V';
    jvalue v{};
    bool isNull() const { return kind == 'L' || kind == '[' ? v.l == nullptr : false; }
};

// Calls the method with the arguments given and leaves any pending exception to the caller.
inline Result callRaw(JNIEnv* e, jobject player, const NativeMethod& m, const jvalue* args) {
    jclass c = th::playerClass();
#define PIJ_CALL_A(Type)                                      \
    (m.isStatic ? e->CallStatic##Type##MethodA(c, m.id, args) \
                : e->CallNonvirtual##Type##MethodA(player, c, m.id, args))
    Result r;
    r.kind = m.ret[0];
    if (r.kind == 'V') PIJ_CALL_A(Void);
    if (r.kind == 'Z') r.v.z = PIJ_CALL_A(Boolean);
    if (r.kind == 'B') r.v.b = PIJ_CALL_A(Byte);
    if (r.kind == 'S') r.v.s = PIJ_CALL_A(Short);
    if (r.kind == 'I') r.v.i = PIJ_CALL_A(Int);
    if (r.kind == 'J') r.v.j = PIJ_CALL_A(Long);
    if (r.kind == 'L' || r.kind == '[') r.v.l = PIJ_CALL_A(Object);
#undef PIJ_CALL_A
    return r;
}

// ---- Hostile arguments ----

constexpr int kVariants = 4;

// Variant k of an integer type: 0, the minimum, the maximum, minus one.
template <typename T>
T extreme(int k) {
    const T values[kVariants] = {0, std::numeric_limits<T>::min(), std::numeric_limits<T>::max(),
                                 T(-1)};
    return values[k];
}

// One argument of descriptor `d` for variant `k`: 0 the zero/null value, 1 the minimum
// (empty array, empty string), 2 the maximum (oversized array or string), 3 minus one or an
// object whose fields are all defaults. Object arguments are local references.
inline jvalue hostileArg(JNIEnv* e, const std::string& d, int k) {
    jvalue v{};
    if (d == "Z") v.z = (k % 2) ? JNI_TRUE : JNI_FALSE;
    if (d == "B") v.b = extreme<jbyte>(k);
    if (d == "S") v.s = extreme<jshort>(k);
    if (d == "I") v.i = extreme<jint>(k);
    if (d == "J") v.j = extreme<jlong>(k);
    if (d.size() == 1 || k == 0) return v;  // a primitive, or null
    if (d == "[I") {
        v.l = e->NewIntArray(k == 1 ? 0 : k == 2 ? (1 << 20) : 1);
    } else if (d == "Ljava/lang/String;") {
        // Empty, a megabyte of text, or a short one outside ASCII.
        const std::string s = k == 2   ? std::string(1 << 20, 'x')
                              : k == 1 ? ""
                                       : "\xc3\xa4\xe2\x82\xac";
        v.l = e->NewStringUTF(s.c_str());
    } else if (d == "Landroid/os/Parcel;" && k != 3) {
        jclass c = th::findClass("android/os/Parcel");
        v.l = e->CallStaticObjectMethod(c,
                                        e->GetStaticMethodID(c, "obtain", "()Landroid/os/Parcel;"));
        th::failOnPendingException();
    } else if (d == "Landroid/os/Parcel;" || d == "Landroid/view/Surface;") {
        // A Parcel or a Surface with no native object behind it.
        jclass c = th::findClass(d.substr(1, d.size() - 2).c_str());
        v.l = e->NewObject(c, e->GetMethodID(c, "<init>", "(J)V"), jlong{0});
        th::failOnPendingException();
    } else if (d == "Ljava/lang/Object;") {
        v.l = e->NewStringUTF("not a weak reference");
    } else if (d[0] == 'L') {
        // A value object built without a constructor: every field null or zero.
        jclass c = th::loadClass(d.substr(1, d.size() - 2).c_str());
        th::failOnPendingException();
        v.l = e->AllocObject(c);
        th::failOnPendingException();
        e->DeleteLocalRef(c);
    }
    return v;
}

inline std::vector<jvalue> hostileArgs(JNIEnv* e, const NativeMethod& m, int k) {
    std::vector<jvalue> args;
    for (const std::string& d : m.params) args.push_back(hostileArg(e, d, k));
    return args;
}

// Deletes the object arguments; a Parcel made by obtain() also frees its native parcel.
inline void releaseArgs(JNIEnv* e, const NativeMethod& m, std::vector<jvalue>& args) {
    for (size_t i = 0; i < args.size(); ++i) {
        if (m.params[i].size() == 1 || args[i].l == nullptr) continue;
        if (m.params[i] == "Landroid/os/Parcel;") {
            jclass pc = th::findClass("android/os/Parcel");
            e->CallVoidMethod(args[i].l, e->GetMethodID(pc, "recycle", "()V"));
            th::failOnPendingException();
        }
        e->DeleteLocalRef(args[i].l);
    }
}

// The life-cycle natives and the ones a test drives on its own terms.
inline bool isLifeCycle(const std::string& name) {
    return name == "native_init" || name == "native_setup" || name == "native_finalize";
}

// Without a player these write their failure line and then end the process.
inline const std::vector<std::string>& processEnding() {
    static const std::vector<std::string> names = {"native_atsc_setAntennaType",
                                                   "setCcMode",
                                                   "getCcMode",
                                                   "getAirChannelType",
                                                   "_setCurrentEventStatus",
                                                   "getAllBISSProgramInfo"};
    return names;
}
inline bool endsProcessWithoutPlayer(const std::string& name) {
    return std::find(processEnding().begin(), processEnding().end(), name) != processEnding().end();
}

}  // namespace rel
