#include "harness/jni_rules.h"

// The JDK's jvmti.h, next to Android's jni.h (see local_refs.h).
#ifndef _JAVASOFT_JNI_H_
#define _JAVASOFT_JNI_H_
#endif
#include PIJ_JVMTI_HEADER

#include <dlfcn.h>
#include <link.h>

#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <string>
#include <type_traits>
#include <unordered_map>

namespace th {
namespace jni_rules {
namespace {

// ---- The tables ----

// The VM's table as it was (HotSpot's checked functions under -Xcheck:jni); every wrapper ends
// in it.
JNINativeInterface gOriginal;
// Ours. The JDK's table is longer than Android's by the functions of later JNI versions
// (GetModule from 9, IsVirtualThread from 19); they are copied and not judged.
struct Table {
    JNINativeInterface jni;
    void* later[2];
};
Table gTable;
jvmtiEnv* gJvmti = nullptr;
std::atomic<bool> gInstalled{false};

size_t laterFunctions(jint version) {
    if (version >= 0x00130000) return 2;
    if (version >= 0x00090000) return 1;
    return 0;
}

// ---- Who called ----

struct Library {
    uintptr_t start;  // lowest and highest address of its loaded segments
    uintptr_t end;
    uintptr_t base;  // the load address; messages give offsets from it
    bool judged;
    std::string name;
};
constexpr int kMaxLibraries = 256;
Library gLibraries[kMaxLibraries];
std::atomic<int> gLibraryCount{0};
std::mutex gLibraryLock;
std::string gJudgedNames;  // ":libplayerimpl_jni.so:<PIJ_JNI_RULES_JUDGE>:"

struct Search {
    uintptr_t pc;
    Library found;
    bool ok;
};

int findObject(dl_phdr_info* info, size_t, void* data) {
    auto* s = static_cast<Search*>(data);
    uintptr_t lo = UINTPTR_MAX, hi = 0;
    for (int i = 0; i < info->dlpi_phnum; ++i) {
        const ElfW(Phdr)& ph = info->dlpi_phdr[i];
        if (ph.p_type != PT_LOAD) continue;
        const uintptr_t start = info->dlpi_addr + ph.p_vaddr;
        if (start < lo) lo = start;
        if (start + ph.p_memsz > hi) hi = start + ph.p_memsz;
    }
    if (s->pc < lo || s->pc >= hi) return 0;
    const char* path = info->dlpi_name != nullptr ? info->dlpi_name : "";
    const char* slash = strrchr(path, '/');
    const std::string name = slash != nullptr ? slash + 1 : path;
    s->found = Library{lo, hi, info->dlpi_addr,
                       !name.empty() && gJudgedNames.find(":" + name + ":") != std::string::npos,
                       name.empty() ? "the executable" : name};
    s->ok = true;
    return 1;
}

// The judged library holding `pc`, or null. Each object is looked up once; a library loaded
// later is found by its first call.
const Library* judgedLibrary(uintptr_t pc) {
    int n = gLibraryCount.load(std::memory_order_acquire);
    for (int i = 0; i < n; ++i) {
        if (pc >= gLibraries[i].start && pc < gLibraries[i].end) {
            return gLibraries[i].judged ? &gLibraries[i] : nullptr;
        }
    }
    Search s{pc, {}, false};
    dl_iterate_phdr(&findObject, &s);
    if (!s.ok) return nullptr;  // not in a loaded object: generated code
    std::lock_guard<std::mutex> guard(gLibraryLock);
    n = gLibraryCount.load(std::memory_order_relaxed);
    for (int i = 0; i < n; ++i) {
        if (gLibraries[i].start == s.found.start) {
            return gLibraries[i].judged ? &gLibraries[i] : nullptr;
        }
    }
    if (n == kMaxLibraries) {
        fprintf(stderr, "device JNI rules: more than %d objects call JNI\n", kMaxLibraries);
        abort();
    }
    gLibraries[n] = s.found;
    gLibraryCount.store(n + 1, std::memory_order_release);
    return gLibraries[n].judged ? &gLibraries[n] : nullptr;
}

// ---- Judging one call ----

enum Flags : unsigned {
    kNone = 0,
    kExceptionAllowed = 1,  // may be called with an exception pending
    kNewArray = 2,          // its jsize is the length of a new array
    kModifiedUtf8 = 4,      // its text must be Modified UTF-8
    kRecordBooleans = 8,    // SetBooleanField: see below
};

// The library copies records into value objects row by row (marshal/marshal_util.h), and a
// record's boolean byte goes into the managed boolean field whole, as the service wrote it:
// the managed side reads any non-zero byte as true there. So SetBooleanField on an object of
// the managed API's classes is exempt from the 0-or-1 rule; on any other object, and every
// other jboolean (static fields, method arguments), it holds.
constexpr char kRecordBooleanPackage[] = "Lcom/vireo/android/tvapi/";

struct Call {
    JNIEnv* env;
    const char* function;
    uintptr_t pc;
    const Library* library;
    unsigned flags;
    jobject object;  // the first object argument, if any
    jmethodID method;
};

[[noreturn]] void fail(const Call& c, const std::string& rule) {
    fprintf(stderr, "device JNI rule broken: %s: %s; called from %s+%#zx\n", c.function,
            rule.c_str(), c.library->name.c_str(), static_cast<size_t>(c.pc - c.library->base));
    fflush(stderr);
    abort();
}

struct JvmtiText {
    char* p = nullptr;
    ~JvmtiText() {
        if (p != nullptr) gJvmti->Deallocate(reinterpret_cast<unsigned char*>(p));
    }
};

// A local reference the layer makes for itself, deleted through the VM's own table.
struct OwnLocal {
    JNIEnv* env;
    jobject ref;
    ~OwnLocal() {
        if (ref != nullptr) gOriginal.DeleteLocalRef(env, ref);
    }
};

// "Ljava/lang/IllegalStateException;", or "?".
std::string classSignatureOf(JNIEnv* env, jobject obj) {
    OwnLocal cls{env, gOriginal.GetObjectClass(env, obj)};
    JvmtiText sig;
    if (cls.ref == nullptr || gJvmti->GetClassSignature(static_cast<jclass>(cls.ref), &sig.p,
                                                        nullptr) != JVMTI_ERROR_NONE) {
        return "?";
    }
    return sig.p;
}

void judgePendingException(const Call& c) {
    if (!gOriginal.ExceptionCheck(c.env)) return;
    OwnLocal pending{c.env, gOriginal.ExceptionOccurred(c.env)};
    fail(c, "called with an exception pending (" + classSignatureOf(c.env, pending.ref) + ")");
}

// How many continuation bytes the lead byte announces, as the device's runtime reads text:
// by its high four bits, 1111 0xxx opening a four-byte sequence. -1 for a byte that cannot
// lead (10xx xxxx, 1111 1xxx).
int continuationBytes(unsigned char lead) {
    switch (lead >> 4) {
        case 0x8:
        case 0x9:
        case 0xA:
        case 0xB:
            return -1;
        case 0xC:
        case 0xD:
            return 1;
        case 0xE:
            return 2;
        case 0xF:
            return (lead & 0x08) == 0 ? 3 : -1;
        default:
            return 0;
    }
}

void judgeText(const Call& c, const char* text) {
    if (text == nullptr) return;
    const auto* p = reinterpret_cast<const unsigned char*>(text);
    for (size_t i = 0; p[i] != 0;) {
        const int follow = continuationBytes(p[i]);
        size_t bad = i;
        bool ok = follow >= 0;
        for (int k = 1; ok && k <= follow; ++k) {
            bad = i + k;
            ok = (p[bad] & 0xC0) == 0x80;  // the NUL ends a cut-short sequence here too
        }
        if (!ok) {
            char what[96];
            snprintf(what, sizeof what, "text that is not Modified UTF-8 (byte %zu is 0x%02x)", bad,
                     p[bad]);
            fail(c, what);
        }
        i += 1 + follow;
    }
}

struct MethodInfo {
    std::string name;
    std::string params;  // one letter per parameter: its type, L for any reference
};

const MethodInfo& methodInfo(jmethodID m) {
    static std::mutex lock;
    static std::unordered_map<jmethodID, MethodInfo> cache;
    std::lock_guard<std::mutex> guard(lock);
    auto it = cache.find(m);
    if (it != cache.end()) return it->second;
    MethodInfo info;
    JvmtiText name, sig;
    if (gJvmti->GetMethodName(m, &name.p, &sig.p, nullptr) == JVMTI_ERROR_NONE) {
        info.name = std::string(name.p) + sig.p;
        for (const char* s = sig.p + 1; *s != ')' && *s != 0; ++s) {
            while (*s == '[') ++s;
            const bool array = s > sig.p + 1 && s[-1] == '[';
            if (*s == 'L') s = strchr(s, ';');
            info.params += array ? 'L' : (*s == ';' ? 'L' : *s);
        }
    }
    return cache.emplace(m, info).first->second;
}

void judgeBoolean(const Call& c, unsigned value, const std::string& what) {
    if (value <= 1) return;
    if ((c.flags & kRecordBooleans) != 0 && c.object != nullptr &&
        classSignatureOf(c.env, c.object).rfind(kRecordBooleanPackage, 0) == 0) {
        return;
    }
    fail(c, what + " is a jboolean of " + std::to_string(value) + ", neither 0 nor 1");
}

void judgeArgument(const Call& c, size_t k, char type, unsigned value) {
    if (type == 'Z') {
        judgeBoolean(c, value,
                     "argument " + std::to_string(k + 1) + " of " + methodInfo(c.method).name);
    }
}

void judgeArguments(const Call& c, va_list ap) {
    const std::string& params = methodInfo(c.method).params;
    va_list copy;
    va_copy(copy, ap);
    for (size_t k = 0; k < params.size(); ++k) {
        switch (params[k]) {
            case 'J':
                va_arg(copy, jlong);
                break;
            case 'F':
            case 'D':
                va_arg(copy, double);
                break;
            case 'L':
                va_arg(copy, jobject);
                break;
            default:  // promoted to int
                judgeArgument(c, k, params[k], static_cast<unsigned>(va_arg(copy, int)));
        }
    }
    va_end(copy);
}

void judgeArguments(const Call& c, const jvalue* args) {
    const std::string& params = methodInfo(c.method).params;
    for (size_t k = 0; k < params.size() && args != nullptr; ++k) {
        judgeArgument(c, k, params[k], args[k].z);
    }
}

template <typename T>
void judgeArguments(const Call&, T) {}

// One argument, by its type.
template <typename T>
void judgeArgument(Call& c, T v) {
    if constexpr (std::is_same<T, jclass>::value) {
        if (v == nullptr) fail(c, "a null class");
    } else if constexpr (std::is_same<T, jfieldID>::value) {
        if (v == nullptr) fail(c, "a null field id");
    } else if constexpr (std::is_convertible<T, jarray>::value) {
        if (v == nullptr) fail(c, "a null array");
    } else if constexpr (std::is_same<T, jmethodID>::value) {
        if (v == nullptr) fail(c, "a null method id");
        c.method = v;
    } else if constexpr (std::is_same<T, jobject>::value) {
        if (c.object == nullptr) c.object = v;
    } else if constexpr (std::is_same<T, jboolean>::value) {
        judgeBoolean(c, v, "the value");
    } else if constexpr (std::is_same<T, jsize>::value) {
        if ((c.flags & kNewArray) != 0 && v < 0) {
            fail(c, "a negative array length (" + std::to_string(v) + ")");
        }
    } else if constexpr (std::is_same<T, const char*>::value) {
        if ((c.flags & kModifiedUtf8) != 0) judgeText(c, v);
    } else {
        judgeArguments(c, v);  // a method's arguments (after its id), or nothing to judge
    }
}

template <typename... A>
void judge(Call& c, A... a) {
    if ((c.flags & kExceptionAllowed) == 0) judgePendingException(c);
    (judgeArgument(c, a), ...);
}

// ---- The wrappers ----

template <auto M>
const char* gName = nullptr;
template <auto M>
unsigned gFlags = kNone;

template <typename T>
struct Fn;
template <typename R, typename... A>
struct Fn<R (*JNINativeInterface::*)(JNIEnv*, A...)> {
    template <auto M>
    static R judged(uintptr_t pc, const char* name, JNIEnv* env, A... a) {
        if (const Library* lib = judgedLibrary(pc)) {
            Call c{env, name, pc, lib, gFlags<M>, nullptr, nullptr};
            judge(c, a...);
        }
        return (gOriginal.*M)(env, a...);
    }
    template <auto M>
    static R JNICALL wrapper(JNIEnv* env, A... a) {
        return judged<M>(reinterpret_cast<uintptr_t>(__builtin_return_address(0)), gName<M>, env,
                         a...);
    }
};

template <auto M>
void hook(const char* name, unsigned flags) {
    gName<M> = name;
    gFlags<M> = flags;
    gTable.jni.*M = &Fn<decltype(M)>::template wrapper<M>;
}

struct VaEnd {
    va_list& ap;
    ~VaEnd() { va_end(ap); }
};

// The variadic calls, judged as their va_list forms under their own names.
#define PIJ_TYPES(X)                                                             \
    X(Object, jobject)                                                           \
    X(Boolean, jboolean)                                                         \
    X(Byte, jbyte)                                                               \
    X(Char, jchar) X(Short, jshort) X(Int, jint) X(Long, jlong) X(Float, jfloat) \
        X(Double, jdouble) X(Void, void)

// One variadic call: `Name` with the parameters before the method id, forwarded as `Name`V.
#define PIJ_VARIADIC(R, Name, Params, ...)                                                        \
    R JNICALL Name(JNIEnv* env, PIJ_UNPAREN Params, jmethodID m, ...) {                           \
        va_list ap;                                                                               \
        va_start(ap, m);                                                                          \
        VaEnd end{ap};                                                                            \
        return Fn<decltype(&JNINativeInterface::Name##V)>::judged<&JNINativeInterface::Name##V>(  \
            reinterpret_cast<uintptr_t>(__builtin_return_address(0)), #Name, env, __VA_ARGS__, m, \
            ap);                                                                                  \
    }
#define PIJ_UNPAREN(...) __VA_ARGS__
#define PIJ_CALLS(T, R)                                                             \
    PIJ_VARIADIC(R, Call##T##Method, (jobject obj), obj)                            \
    PIJ_VARIADIC(R, CallNonvirtual##T##Method, (jobject obj, jclass cls), obj, cls) \
    PIJ_VARIADIC(R, CallStatic##T##Method, (jclass cls), cls)
PIJ_TYPES(PIJ_CALLS)
PIJ_VARIADIC(jobject, NewObject, (jclass cls), cls)
#undef PIJ_CALLS
#undef PIJ_VARIADIC

#define PIJ_HOOK(Name, flags) hook<&JNINativeInterface::Name>(#Name, flags)

void hookAll() {
    constexpr unsigned kEx = kExceptionAllowed;
    PIJ_HOOK(GetVersion, kNone);
    PIJ_HOOK(DefineClass, kNone);
    PIJ_HOOK(FindClass, kNone);
    PIJ_HOOK(FromReflectedMethod, kNone);
    PIJ_HOOK(FromReflectedField, kNone);
    PIJ_HOOK(ToReflectedMethod, kNone);
    PIJ_HOOK(GetSuperclass, kNone);
    PIJ_HOOK(IsAssignableFrom, kNone);
    PIJ_HOOK(ToReflectedField, kNone);
    PIJ_HOOK(Throw, kNone);
    PIJ_HOOK(ThrowNew, kNone);
    PIJ_HOOK(ExceptionOccurred, kEx);
    PIJ_HOOK(ExceptionDescribe, kEx);
    PIJ_HOOK(ExceptionClear, kEx);
    PIJ_HOOK(FatalError, kNone);
    PIJ_HOOK(PushLocalFrame, kNone);
    PIJ_HOOK(PopLocalFrame, kEx);
    PIJ_HOOK(NewGlobalRef, kNone);
    PIJ_HOOK(DeleteGlobalRef, kEx);
    PIJ_HOOK(DeleteLocalRef, kEx);
    PIJ_HOOK(IsSameObject, kNone);
    PIJ_HOOK(NewLocalRef, kNone);
    PIJ_HOOK(EnsureLocalCapacity, kNone);
    PIJ_HOOK(AllocObject, kNone);
    PIJ_HOOK(NewObjectV, kNone);
    PIJ_HOOK(NewObjectA, kNone);
    gTable.jni.NewObject = &NewObject;
    PIJ_HOOK(GetObjectClass, kNone);
    PIJ_HOOK(IsInstanceOf, kNone);
    PIJ_HOOK(GetMethodID, kNone);
    PIJ_HOOK(GetFieldID, kNone);
    PIJ_HOOK(GetStaticMethodID, kNone);
    PIJ_HOOK(GetStaticFieldID, kNone);
#define PIJ_TYPED(T, J)                                                \
    gTable.jni.Call##T##Method = &Call##T##Method;                     \
    gTable.jni.CallNonvirtual##T##Method = &CallNonvirtual##T##Method; \
    gTable.jni.CallStatic##T##Method = &CallStatic##T##Method;         \
    PIJ_HOOK(Call##T##MethodV, kNone);                                 \
    PIJ_HOOK(Call##T##MethodA, kNone);                                 \
    PIJ_HOOK(CallNonvirtual##T##MethodV, kNone);                       \
    PIJ_HOOK(CallNonvirtual##T##MethodA, kNone);                       \
    PIJ_HOOK(CallStatic##T##MethodV, kNone);                           \
    PIJ_HOOK(CallStatic##T##MethodA, kNone);
    PIJ_TYPES(PIJ_TYPED)
#undef PIJ_TYPED
#define PIJ_FIELDS(T, J)                                                                   \
    PIJ_HOOK(Get##T##Field, kNone);                                                        \
    PIJ_HOOK(Set##T##Field, (std::is_same<J, jboolean>::value ? kRecordBooleans : kNone)); \
    PIJ_HOOK(GetStatic##T##Field, kNone);                                                  \
    PIJ_HOOK(SetStatic##T##Field, kNone);
#define PIJ_PRIMITIVE_ARRAYS(T, J)            \
    PIJ_HOOK(New##T##Array, kNewArray);       \
    PIJ_HOOK(Get##T##ArrayElements, kNone);   \
    PIJ_HOOK(Release##T##ArrayElements, kEx); \
    PIJ_HOOK(Get##T##ArrayRegion, kNone);     \
    PIJ_HOOK(Set##T##ArrayRegion, kNone);
#define PIJ_VALUE_TYPES(X) \
    X(Boolean, jboolean)   \
    X(Byte, jbyte)         \
    X(Char, jchar) X(Short, jshort) X(Int, jint) X(Long, jlong) X(Float, jfloat) X(Double, jdouble)
    PIJ_FIELDS(Object, jobject)
    PIJ_VALUE_TYPES(PIJ_FIELDS)
    PIJ_VALUE_TYPES(PIJ_PRIMITIVE_ARRAYS)
#undef PIJ_VALUE_TYPES
#undef PIJ_PRIMITIVE_ARRAYS
#undef PIJ_FIELDS
    PIJ_HOOK(NewString, kNone);
    PIJ_HOOK(GetStringLength, kNone);
    PIJ_HOOK(GetStringChars, kNone);
    PIJ_HOOK(ReleaseStringChars, kEx);
    PIJ_HOOK(NewStringUTF, kModifiedUtf8);
    PIJ_HOOK(GetStringUTFLength, kNone);
    PIJ_HOOK(GetStringUTFChars, kNone);
    PIJ_HOOK(ReleaseStringUTFChars, kEx);
    PIJ_HOOK(GetArrayLength, kNone);
    PIJ_HOOK(NewObjectArray, kNewArray);
    PIJ_HOOK(GetObjectArrayElement, kNone);
    PIJ_HOOK(SetObjectArrayElement, kNone);
    PIJ_HOOK(RegisterNatives, kNone);
    PIJ_HOOK(UnregisterNatives, kNone);
    PIJ_HOOK(MonitorEnter, kNone);
    PIJ_HOOK(MonitorExit, kEx);
    PIJ_HOOK(GetJavaVM, kNone);
    PIJ_HOOK(GetStringRegion, kNone);
    PIJ_HOOK(GetStringUTFRegion, kNone);
    PIJ_HOOK(GetPrimitiveArrayCritical, kNone);
    PIJ_HOOK(ReleasePrimitiveArrayCritical, kEx);
    PIJ_HOOK(GetStringCritical, kNone);
    PIJ_HOOK(ReleaseStringCritical, kEx);
    PIJ_HOOK(NewWeakGlobalRef, kNone);
    PIJ_HOOK(DeleteWeakGlobalRef, kEx);
    PIJ_HOOK(ExceptionCheck, kEx);
    PIJ_HOOK(NewDirectByteBuffer, kNone);
    PIJ_HOOK(GetDirectBufferAddress, kNone);
    PIJ_HOOK(GetDirectBufferCapacity, kNone);
    PIJ_HOOK(GetObjectRefType, kNone);
}

}  // namespace

bool install(JavaVM* vm) {
    static std::once_flag once;
    std::call_once(once, [vm] {
        const char* off = getenv("PIJ_JNI_RULES");
        if (off != nullptr && strcmp(off, "off") == 0) return;
        gJudgedNames = ":libplayerimpl_jni.so:";
        if (const char* more = getenv("PIJ_JNI_RULES_JUDGE"))
            gJudgedNames += std::string(more) + ":";
        JNIEnv* env = nullptr;
        if (vm->GetEnv(reinterpret_cast<void**>(&gJvmti), JVMTI_VERSION_1_2) != JNI_OK ||
            vm->GetEnv(reinterpret_cast<void**>(&env), JNI_VERSION_1_6) != JNI_OK) {
            fprintf(stderr, "device JNI rules: the VM offers no JVMTI\n");
            abort();
        }
        jniNativeInterface* current = nullptr;
        if (gJvmti->GetJNIFunctionTable(&current) != JVMTI_ERROR_NONE) {
            fprintf(stderr, "device JNI rules: no JNI function table\n");
            abort();
        }
        memcpy(&gOriginal, current, sizeof gOriginal);
        memcpy(&gTable, current,
               sizeof gTable.jni + laterFunctions(gOriginal.GetVersion(env)) * sizeof(void*));
        gJvmti->Deallocate(reinterpret_cast<unsigned char*>(current));
        hookAll();
        if (gJvmti->SetJNIFunctionTable(reinterpret_cast<jniNativeInterface*>(&gTable)) !=
            JVMTI_ERROR_NONE) {
            fprintf(stderr, "device JNI rules: the VM refused the table\n");
            abort();
        }
        gInstalled = true;
    });
    return gInstalled;
}

bool installed() { return gInstalled; }

}  // namespace jni_rules
}  // namespace th
