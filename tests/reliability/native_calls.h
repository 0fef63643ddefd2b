// Calls any native method of the managed player class by reflection, with argument sets
// chosen to be hostile (nulls, empty and oversized arrays and strings, extreme integers).
// The list of methods comes from the managed class itself, so the sweep covers whatever
// the managed side declares without repeating a list of names here.
#pragma once

#include <jni.h>

#include <climits>
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

// "int" -> "I", "java.lang.String" -> "Ljava/lang/String;", "[I" stays.
inline std::string descriptorOf(const std::string& javaName) {
    static const std::pair<const char*, const char*> kPrimitive[] = {
        {"boolean", "Z"}, {"byte", "B"},  {"char", "C"},   {"short", "S"}, {"int", "I"},
        {"long", "J"},    {"float", "F"}, {"double", "D"}, {"void", "V"}};
    for (const auto& p : kPrimitive) {
        if (javaName == p.first) return p.second;
    }
    std::string d = javaName;
    for (char& c : d) {
        if (c == '.') c = '/';
    }
    return d[0] == '[' ? d : "L" + d + ";";
}

inline std::string classNameOf(JNIEnv* e, jobject cls) {
    jclass classClass = th::findClass("java/lang/Class");
    auto s = static_cast<jstring>(
        e->CallObjectMethod(cls, e->GetMethodID(classClass, "getName", "()Ljava/lang/String;")));
    th::failOnPendingException();
    std::string out = th::toStdString(s);
    e->DeleteLocalRef(s);
    return out;
}

// Every native method the managed player class declares.
inline std::vector<NativeMethod> managedNatives() {
    JNIEnv* e = th::env();
    jclass classClass = th::findClass("java/lang/Class");
    jclass methodClass = th::findClass("java/lang/reflect/Method");
    jclass modifierClass = th::findClass("java/lang/reflect/Modifier");
    auto methods = static_cast<jobjectArray>(e->CallObjectMethod(
        th::playerClass(),
        e->GetMethodID(classClass, "getDeclaredMethods", "()[Ljava/lang/reflect/Method;")));
    th::failOnPendingException();
    jmethodID getModifiers = e->GetMethodID(methodClass, "getModifiers", "()I");
    jmethodID getName = e->GetMethodID(methodClass, "getName", "()Ljava/lang/String;");
    jmethodID getParams = e->GetMethodID(methodClass, "getParameterTypes", "()[Ljava/lang/Class;");
    jmethodID getReturn = e->GetMethodID(methodClass, "getReturnType", "()Ljava/lang/Class;");
    jmethodID isNative = e->GetStaticMethodID(modifierClass, "isNative", "(I)Z");
    jmethodID isStatic = e->GetStaticMethodID(modifierClass, "isStatic", "(I)Z");

    std::vector<NativeMethod> out;
    const jsize n = e->GetArrayLength(methods);
    for (jsize i = 0; i < n; ++i) {
        jobject m = e->GetObjectArrayElement(methods, i);
        const jint mods = e->CallIntMethod(m, getModifiers);
        th::failOnPendingException();
        const bool nat = e->CallStaticBooleanMethod(modifierClass, isNative, mods);
        th::failOnPendingException();
        if (!nat) {
            e->DeleteLocalRef(m);
            continue;
        }
        NativeMethod nm;
        nm.isStatic = e->CallStaticBooleanMethod(modifierClass, isStatic, mods);
        th::failOnPendingException();
        auto name = static_cast<jstring>(e->CallObjectMethod(m, getName));
        th::failOnPendingException();
        nm.name = th::toStdString(name);
        e->DeleteLocalRef(name);
        auto params = static_cast<jobjectArray>(e->CallObjectMethod(m, getParams));
        th::failOnPendingException();
        nm.sig = "(";
        for (jsize k = 0; k < e->GetArrayLength(params); ++k) {
            jobject p = e->GetObjectArrayElement(params, k);
            nm.params.push_back(descriptorOf(classNameOf(e, p)));
            nm.sig += nm.params.back();
            e->DeleteLocalRef(p);
        }
        e->DeleteLocalRef(params);
        jobject r = e->CallObjectMethod(m, getReturn);
        th::failOnPendingException();
        nm.ret = descriptorOf(classNameOf(e, r));
        e->DeleteLocalRef(r);
        nm.sig += ")" + nm.ret;
        nm.id = e->FromReflectedMethod(m);
        e->DeleteLocalRef(m);
        out.push_back(nm);
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
    Result r;
    r.kind = m.ret[0];
    if (m.isStatic) {
        jclass c = th::playerClass();
        switch (r.kind) {
            case 'V':
                e->CallStaticVoidMethodA(c, m.id, args);
                break;
            case 'Z':
                r.v.z = e->CallStaticBooleanMethodA(c, m.id, args);
                break;
            case 'I':
                r.v.i = e->CallStaticIntMethodA(c, m.id, args);
                break;
            default:
                r.v.l = e->CallStaticObjectMethodA(c, m.id, args);
                break;
        }
        return r;
    }
    switch (r.kind) {
        case 'V':
            e->CallNonvirtualVoidMethodA(player, th::playerClass(), m.id, args);
            break;
        case 'Z':
            r.v.z = e->CallNonvirtualBooleanMethodA(player, th::playerClass(), m.id, args);
            break;
        case 'B':
            r.v.b = e->CallNonvirtualByteMethodA(player, th::playerClass(), m.id, args);
            break;
        case 'S':
            r.v.s = e->CallNonvirtualShortMethodA(player, th::playerClass(), m.id, args);
            break;
        case 'I':
            r.v.i = e->CallNonvirtualIntMethodA(player, th::playerClass(), m.id, args);
            break;
        case 'J':
            r.v.j = e->CallNonvirtualLongMethodA(player, th::playerClass(), m.id, args);
            break;
        default:
            r.v.l = e->CallNonvirtualObjectMethodA(player, th::playerClass(), m.id, args);
            break;
    }
    return r;
}

// ---- Hostile arguments ----

constexpr int kVariants = 4;

// A managed android.os.Parcel with a native parcel behind it, or one without (pointer 0).
inline jobject makeParcel(JNIEnv* e, bool withNative) {
    jclass c = th::findClass("android/os/Parcel");
    jobject p = withNative ? e->CallStaticObjectMethod(
                                 c, e->GetStaticMethodID(c, "obtain", "()Landroid/os/Parcel;"))
                           : e->NewObject(c, e->GetMethodID(c, "<init>", "(J)V"), jlong{0});
    th::failOnPendingException();
    return p;
}

// A managed Surface with no native surface behind it.
inline jobject emptySurface(JNIEnv* e) {
    jclass c = th::findClass("android/view/Surface");
    jobject s = e->NewObject(c, e->GetMethodID(c, "<init>", "(J)V"), jlong{0});
    th::failOnPendingException();
    return s;
}

// One argument of descriptor `d` for variant `k`: 0 the zero/null value, 1 the minimum
// (empty array, empty string), 2 the maximum (oversized array or string), 3 minus one or an
// object whose fields are all defaults. Object arguments are local references.
inline jvalue hostileArg(JNIEnv* e, const std::string& d, int k) {
    jvalue v{};
    switch (d[0]) {
        case 'Z':
            v.z = (k % 2) ? JNI_TRUE : JNI_FALSE;
            return v;
        case 'B':
            v.b = k == 1 ? SCHAR_MIN : k == 2 ? SCHAR_MAX : k == 3 ? -1 : 0;
            return v;
        case 'S':
            v.s = k == 1 ? SHRT_MIN : k == 2 ? SHRT_MAX : k == 3 ? -1 : 0;
            return v;
        case 'I':
            v.i = k == 1 ? INT_MIN : k == 2 ? INT_MAX : k == 3 ? -1 : 0;
            return v;
        case 'J':
            v.j = k == 1 ? LLONG_MIN : k == 2 ? LLONG_MAX : k == 3 ? -1 : 0;
            return v;
        default:
            break;
    }
    if (k == 0) return v;  // null
    if (d == "[I") {
        v.l = e->NewIntArray(k == 1 ? 0 : k == 2 ? (1 << 20) : 1);
        return v;
    }
    if (d == "Ljava/lang/String;") {
        if (k == 1) {
            v.l = e->NewStringUTF("");
        } else {
            // A megabyte of text, or a short one outside ASCII.
            std::string s = k == 2 ? std::string(1 << 20, 'x') : "\xc3\xa4\xe2\x82\xac";
            v.l = e->NewStringUTF(s.c_str());
        }
        return v;
    }
    if (d == "Landroid/os/Parcel;") {
        v.l = makeParcel(e, k != 3);
        return v;
    }
    if (d == "Landroid/view/Surface;") {
        v.l = emptySurface(e);
        return v;
    }
    if (d == "Ljava/lang/Object;") {
        v.l = e->NewStringUTF("not a weak reference");
        return v;
    }
    if (d[0] == 'L') {
        // A value object built without a constructor: every field null or zero.
        jclass c = e->FindClass(d.substr(1, d.size() - 2).c_str());
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
        const char c = m.params[i][0];
        if ((c != 'L' && c != '[') || args[i].l == nullptr) continue;
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
    for (const std::string& n : processEnding()) {
        if (n == name) return true;
    }
    return false;
}

}  // namespace rel
