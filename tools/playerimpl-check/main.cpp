// playerimpl-check: tells whether a managed API build matches what the native library
// expects. Given a class path it starts a JVM on it and reports, one line per finding:
//   - every row of the native table whose method is missing, has another signature or is not
//     native on com/vireo/android/tvapi/impl/PlayerImpl;
//   - every TVPLAYER_* event code field that is missing or not a static int;
//   - every life-cycle member (mNativeContext, mNativeSurfaceTexture, mPlayerContext,
//     postEventFromNative) and android/view/Surface field the library binds to;
//   - every field of every managed value class the library builds or reads.
// The rows come from the library's own tables (linked in from its object files), not from a
// copy. Classes are inspected by reflection without being initialised, so the managed
// player's static initialiser (which loads the library) never runs.
//
// Usage: playerimpl-check [--list] CLASSPATH
// Exit status: 0 when nothing is missing, 1 when anything is, 2 when the check cannot run.
#include <jni.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "core/context.h"
#include "core/native_table.h"
#include "events/event_codes.h"
#include "marshal/value_classes.h"

namespace {

const char* const kPlayerClass = "com/vireo/android/tvapi/impl/PlayerImpl";
const char* const kSurfaceClass = "android/view/Surface";

// Members of the player class the life cycle binds to (native_init and the surface binding).
struct MemberRow {
    const char* name;
    const char* signature;
    bool isStatic;
    bool isMethod;
};
const MemberRow kLifeCycleMembers[] = {
    {"mNativeSurfaceTexture", "J", false, false},
    {"mNativeContext", "J", false, false},
    {"postEventFromNative", pij::kPostEventSignature, true, true},
    {"mPlayerContext", "I", false, false},
};
const MemberRow kSurfaceMembers[] = {
    {"mNativeObject", "J", false, false},
    {"mLock", "Ljava/lang/Object;", false, false},
};

// What reflection found for one member name: its JNI descriptor and modifiers.
struct Declared {
    std::string descriptor;
    bool isStatic = false;
    bool isNative = false;
};

class Inspector {
public:
    explicit Inspector(JNIEnv* env) : env_(env) {
        jclass c = env_->FindClass("java/lang/Class");
        forName_ = env_->GetStaticMethodID(
            c, "forName", "(Ljava/lang/String;ZLjava/lang/ClassLoader;)Ljava/lang/Class;");
        getSuperclass_ = env_->GetMethodID(c, "getSuperclass", "()Ljava/lang/Class;");
        getDeclaredMethods_ =
            env_->GetMethodID(c, "getDeclaredMethods", "()[Ljava/lang/reflect/Method;");
        getDeclaredFields_ =
            env_->GetMethodID(c, "getDeclaredFields", "()[Ljava/lang/reflect/Field;");
        jclass loader = env_->FindClass("java/lang/ClassLoader");
        jmethodID system =
            env_->GetStaticMethodID(loader, "getSystemClassLoader", "()Ljava/lang/ClassLoader;");
        loader_ = env_->NewGlobalRef(env_->CallStaticObjectMethod(loader, system));
        jclass method = env_->FindClass("java/lang/reflect/Method");
        methodName_ = env_->GetMethodID(method, "getName", "()Ljava/lang/String;");
        methodMods_ = env_->GetMethodID(method, "getModifiers", "()I");
        methodReturn_ = env_->GetMethodID(method, "getReturnType", "()Ljava/lang/Class;");
        methodParams_ = env_->GetMethodID(method, "getParameterTypes", "()[Ljava/lang/Class;");
        jclass field = env_->FindClass("java/lang/reflect/Field");
        fieldName_ = env_->GetMethodID(field, "getName", "()Ljava/lang/String;");
        fieldMods_ = env_->GetMethodID(field, "getModifiers", "()I");
        fieldType_ = env_->GetMethodID(field, "getType", "()Ljava/lang/Class;");
        methodType_ =
            static_cast<jclass>(env_->NewGlobalRef(env_->FindClass("java/lang/invoke/MethodType")));
        mtOf_ = env_->GetStaticMethodID(
            methodType_, "methodType",
            "(Ljava/lang/Class;[Ljava/lang/Class;)Ljava/lang/invoke/MethodType;");
        mtOfReturn_ = env_->GetStaticMethodID(methodType_, "methodType",
                                              "(Ljava/lang/Class;)Ljava/lang/invoke/MethodType;");
        mtDescriptor_ =
            env_->GetMethodID(methodType_, "toMethodDescriptorString", "()Ljava/lang/String;");
        ok_ = !env_->ExceptionCheck();
        env_->ExceptionClear();
    }

    bool ok() const { return ok_; }

    // Loads a class by its slash path without initialising it; nullptr (and `why` set) when it
    // cannot be loaded.
    jclass load(const char* path, std::string* why) {
        std::string dotted(path);
        for (char& ch : dotted) {
            if (ch == '/') ch = '.';
        }
        jstring name = env_->NewStringUTF(dotted.c_str());
        jobject cls =
            env_->CallStaticObjectMethod(classClass(), forName_, name, JNI_FALSE, loader_);
        env_->DeleteLocalRef(name);
        if (takeException(why)) return nullptr;
        return static_cast<jclass>(cls);
    }

    // Every method called `name` declared on `cls` or a superclass, or an error text.
    std::vector<Declared> methods(jclass cls, const char* name, std::string* why) {
        return collect(cls, name, true, why);
    }
    std::vector<Declared> fields(jclass cls, const char* name, std::string* why) {
        return collect(cls, name, false, why);
    }

private:
    static constexpr int kStatic = 0x0008;  // java.lang.reflect.Modifier values
    static constexpr int kNative = 0x0100;

    jclass classClass() {
        if (classClass_ == nullptr) {
            classClass_ =
                static_cast<jclass>(env_->NewGlobalRef(env_->FindClass("java/lang/Class")));
        }
        return classClass_;
    }

    bool takeException(std::string* why) {
        jthrowable t = env_->ExceptionOccurred();
        if (t == nullptr) return false;
        env_->ExceptionClear();
        jclass tc = env_->GetObjectClass(t);
        jmethodID toString = env_->GetMethodID(tc, "toString", "()Ljava/lang/String;");
        jstring text = static_cast<jstring>(env_->CallObjectMethod(t, toString));
        env_->ExceptionClear();
        *why = text != nullptr ? utf(text) : "exception";
        env_->DeleteLocalRef(tc);
        env_->DeleteLocalRef(t);
        return true;
    }

    std::string utf(jstring s) {
        const char* chars = env_->GetStringUTFChars(s, nullptr);
        std::string out = chars != nullptr ? chars : "";
        if (chars != nullptr) env_->ReleaseStringUTFChars(s, chars);
        env_->DeleteLocalRef(s);
        return out;
    }

    std::string descriptorOf(jobject mt) {
        jstring d = static_cast<jstring>(env_->CallObjectMethod(mt, mtDescriptor_));
        env_->DeleteLocalRef(mt);
        return utf(d);
    }

    std::vector<Declared> collect(jclass start, const char* name, bool wantMethods,
                                  std::string* why) {
        std::vector<Declared> found;
        jclass cls = static_cast<jclass>(env_->NewLocalRef(start));
        while (cls != nullptr) {
            jobjectArray members = static_cast<jobjectArray>(env_->CallObjectMethod(
                cls, wantMethods ? getDeclaredMethods_ : getDeclaredFields_));
            if (takeException(why)) {
                env_->DeleteLocalRef(cls);
                return {};
            }
            jsize n = env_->GetArrayLength(members);
            for (jsize i = 0; i < n; ++i) {
                jobject m = env_->GetObjectArrayElement(members, i);
                std::string memberName = utf(static_cast<jstring>(
                    env_->CallObjectMethod(m, wantMethods ? methodName_ : fieldName_)));
                if (memberName == name) {
                    Declared d;
                    jint mods = env_->CallIntMethod(m, wantMethods ? methodMods_ : fieldMods_);
                    d.isStatic = (mods & kStatic) != 0;
                    d.isNative = (mods & kNative) != 0;
                    if (wantMethods) {
                        jobject ret = env_->CallObjectMethod(m, methodReturn_);
                        jobject params = env_->CallObjectMethod(m, methodParams_);
                        d.descriptor = descriptorOf(
                            env_->CallStaticObjectMethod(methodType_, mtOf_, ret, params));
                        env_->DeleteLocalRef(ret);
                        env_->DeleteLocalRef(params);
                    } else {
                        jobject type = env_->CallObjectMethod(m, fieldType_);
                        // "()X" -> "X"
                        d.descriptor = descriptorOf(env_->CallStaticObjectMethod(methodType_,
                                                                                 mtOfReturn_, type))
                                           .substr(2);
                        env_->DeleteLocalRef(type);
                    }
                    if (takeException(why)) return {};
                    found.push_back(d);
                }
                env_->DeleteLocalRef(m);
            }
            env_->DeleteLocalRef(members);
            jclass super = static_cast<jclass>(env_->CallObjectMethod(cls, getSuperclass_));
            env_->DeleteLocalRef(cls);
            cls = super;
        }
        return found;
    }

    JNIEnv* env_;
    bool ok_ = false;
    jobject loader_ = nullptr;
    jclass classClass_ = nullptr;
    jclass methodType_ = nullptr;
    jmethodID forName_, getSuperclass_, getDeclaredMethods_, getDeclaredFields_;
    jmethodID methodName_, methodMods_, methodReturn_, methodParams_;
    jmethodID fieldName_, fieldMods_, fieldType_;
    jmethodID mtOf_, mtOfReturn_, mtDescriptor_;
};

int gFindings = 0;

void finding(const std::string& line) {
    std::printf("%s\n", line.c_str());
    ++gFindings;
}

std::string kindOf(const Declared& d) {
    return std::string(d.isStatic ? "static " : "instance ") + d.descriptor;
}

std::string listKinds(const std::vector<Declared>& ds) {
    std::string out;
    for (const Declared& d : ds) {
        if (!out.empty()) out += ", ";
        out += kindOf(d);
    }
    return out;
}

// One native row: a method of that name and signature must exist and be native. The library
// binds natives by explicit registration, so static or instance does not matter here.
void checkNative(Inspector& in, jclass cls, const JNINativeMethod& row) {
    std::string why;
    std::vector<Declared> ds = in.methods(cls, row.name, &why);
    std::string where = std::string(kPlayerClass) + "." + row.name + row.signature;
    if (!why.empty()) {
        finding("native " + where + ": cannot inspect (" + why + ")");
        return;
    }
    for (const Declared& d : ds) {
        if (d.descriptor == row.signature) {
            if (!d.isNative) finding("native " + where + ": declared but not native");
            return;
        }
    }
    if (ds.empty()) {
        finding("native " + where + ": missing");
    } else {
        finding("native " + where + ": other signature (" + listKinds(ds) + ")");
    }
}

// One field or static method the library looks up with exactly this signature.
void checkMember(Inspector& in, jclass cls, const char* clsPath, const MemberRow& row) {
    std::string why;
    std::vector<Declared> ds =
        row.isMethod ? in.methods(cls, row.name, &why) : in.fields(cls, row.name, &why);
    std::string what = row.isMethod ? "method " : "field ";
    std::string where = what + clsPath + "." + row.name + " " + row.signature;
    if (!why.empty()) {
        finding(where + ": cannot inspect (" + why + ")");
        return;
    }
    for (const Declared& d : ds) {
        if (d.descriptor == row.signature && d.isStatic == row.isStatic) return;
    }
    std::string want = std::string(row.isStatic ? "static " : "instance ") + row.signature;
    if (ds.empty()) {
        finding(where + ": missing");
    } else {
        finding(where + ": is " + listKinds(ds) + ", expected " + want);
    }
}

void checkClass(Inspector& in, const char* path, const MemberRow* rows, size_t n) {
    std::string why;
    jclass cls = in.load(path, &why);
    if (cls == nullptr) {
        finding(std::string("class ") + path + ": cannot be loaded (" + why + ")");
        return;
    }
    for (size_t i = 0; i < n; ++i) checkMember(in, cls, path, rows[i]);
}

int run(JNIEnv* env) {
    Inspector in(env);
    if (!in.ok()) {
        std::fprintf(stderr, "playerimpl-check: the VM lacks java.lang.reflect\n");
        return 2;
    }
    std::string why;
    jclass player = in.load(kPlayerClass, &why);
    if (player == nullptr) {
        finding(std::string("class ") + kPlayerClass + ": cannot be loaded (" + why + ")");
    } else {
        const JNINativeMethod* table = pij::nativeMethods();
        for (int i = 0; i < pij::kNativeMethodCount; ++i) checkNative(in, player, table[i]);
        for (int i = 0; i < pij::kEventCodeFieldCount; ++i) {
            checkMember(in, player, kPlayerClass,
                        MemberRow{pij::kEventCodeFields[i], "I", true, false});
        }
        for (const MemberRow& row : kLifeCycleMembers) {
            checkMember(in, player, kPlayerClass, row);
        }
    }
    checkClass(in, kSurfaceClass, kSurfaceMembers,
               sizeof kSurfaceMembers / sizeof *kSurfaceMembers);
    for (const pij::ManagedClassList* list : pij::valueClassLists()) {
        for (const pij::ManagedClass& mc : *list) {
            std::vector<MemberRow> rows;
            for (const pij::ManagedField& f : mc.fields) {
                rows.push_back(MemberRow{f.name, f.signature, f.isStatic, false});
            }
            checkClass(in, mc.path, rows.data(), rows.size());
        }
    }
    return gFindings == 0 ? 0 : 1;
}

// --list: what would be checked, one line per member, without a VM.
void list() {
    const JNINativeMethod* table = pij::nativeMethods();
    for (int i = 0; i < pij::kNativeMethodCount; ++i) {
        std::printf("native %s.%s%s\n", kPlayerClass, table[i].name, table[i].signature);
    }
    for (int i = 0; i < pij::kEventCodeFieldCount; ++i) {
        std::printf("field %s.%s I\n", kPlayerClass, pij::kEventCodeFields[i]);
    }
    for (const MemberRow& r : kLifeCycleMembers) {
        std::printf("%s %s.%s %s\n", r.isMethod ? "method" : "field", kPlayerClass, r.name,
                    r.signature);
    }
    for (const MemberRow& r : kSurfaceMembers) {
        std::printf("field %s.%s %s\n", kSurfaceClass, r.name, r.signature);
    }
    for (const pij::ManagedClassList* list : pij::valueClassLists()) {
        for (const pij::ManagedClass& mc : *list) {
            for (const pij::ManagedField& f : mc.fields) {
                std::printf("field %s.%s %s\n", mc.path, f.name, f.signature);
            }
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 2 && std::strcmp(argv[1], "--list") == 0) {
        list();
        return 0;
    }
    if (argc != 2 || argv[1][0] == '-') {
        std::fprintf(stderr, "usage: %s [--list] CLASSPATH\n", argv[0]);
        return 2;
    }
    std::string cp = std::string("-Djava.class.path=") + argv[1];
    JavaVMOption options[] = {{const_cast<char*>(cp.c_str()), nullptr},
                              {const_cast<char*>("-Xrs"), nullptr}};
    JavaVMInitArgs args{};
    args.version = JNI_VERSION_1_6;
    args.nOptions = sizeof options / sizeof *options;
    args.options = options;
    args.ignoreUnrecognized = JNI_FALSE;
    JavaVM* vm = nullptr;
    JNIEnv* env = nullptr;
    if (JNI_CreateJavaVM(&vm, &env, &args) != JNI_OK) {
        std::fprintf(stderr, "playerimpl-check: cannot start a JVM\n");
        return 2;
    }
    int status = run(env);
    std::fprintf(stderr, "playerimpl-check: %d finding(s)\n", gFindings);
    std::fflush(stdout);
    // Leave the VM to process exit; DestroyJavaVM would wait for non-daemon threads.
    return status;
}
