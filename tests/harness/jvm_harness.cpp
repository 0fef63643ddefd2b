#include "harness/jvm_harness.h"

#include "harness/jni_rules.h"

#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <dlfcn.h>
#include <fcntl.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>

extern char** environ;

namespace th {
namespace {

std::mutex gLogLock;
std::vector<LogLine> gLogs;
std::mutex gVmLock;
std::vector<std::string> gVmOut;
JavaVM* gVm = nullptr;
std::once_flag gVmOnce;
// ANDROID_LOG_ERROR (this file defines liblog's entry point, so it leaves out its header).
constexpr int kErrorPriority = 6;

jint JNICALL vmPrintf(FILE* fp, const char* format, va_list args) {
    char buf[4096];
    int n = vsnprintf(buf, sizeof buf, format, args);
    {
        std::lock_guard<std::mutex> guard(gVmLock);
        gVmOut.emplace_back(buf);
    }
    fputs(buf, fp);
    return n;
}

std::string envOr(const char* name, const char* fallback) {
    const char* v = getenv(name);
    return v != nullptr ? v : fallback;
}

// The managed API and the test classes: in a class loader of their own, as an app's classes
// are on the device, or (PIJ_SYSTEM_CLASS_PATH=1, for a comparison run) on the VM's class path.
// A child may be given other jars (a managed side with something missing).
std::string apiJars() { return envOr("PIJ_CLASSPATH", PIJ_TEST_CLASSPATH); }
bool onSystemClassPath() { return getenv("PIJ_SYSTEM_CLASS_PATH") != nullptr; }
jobject gLoader = nullptr;  // a global reference, or null on the system class path

[[noreturn]] void setUpFailed(JNIEnv* e, const char* what) {
    if (e != nullptr && e->ExceptionCheck()) e->ExceptionDescribe();
    fprintf(stderr, "%s\n", what);
    abort();
}

// The loader com.vireo.test.OwnLoader makes over the jars. Only that class is looked up on
// the VM's class path (the test jar); nothing is loaded from there, as the loader does not
// delegate to the application's class path.
void makeLoader(JNIEnv* e) {
    jclass own = e->FindClass("com/vireo/test/OwnLoader");
    jmethodID over =
        own != nullptr
            ? e->GetStaticMethodID(own, "over", "(Ljava/lang/String;)Ljava/lang/ClassLoader;")
            : nullptr;
    if (over == nullptr) setUpFailed(e, "no com.vireo.test.OwnLoader on the class path");
    jstring jars = e->NewStringUTF(apiJars().c_str());
    jobject loader = e->CallStaticObjectMethod(own, over, jars);
    if (loader == nullptr || e->ExceptionCheck()) setUpFailed(e, "cannot make the class loader");
    gLoader = e->NewGlobalRef(loader);
    for (jobject o : {jobject(own), jobject(jars), loader}) e->DeleteLocalRef(o);
}

void createVm() {
    std::string cp = "-Djava.class.path=" + (onSystemClassPath() ? apiJars() : PIJ_TESTJAVA_JAR);
    std::string lib = "-Dplayerimpl.library=" + envOr("PIJ_LIBRARY", PIJ_LIBRARY);
    std::vector<JavaVMOption> options;
    options.push_back({const_cast<char*>(cp.c_str()), nullptr});
    options.push_back({const_cast<char*>(lib.c_str()), nullptr});
#ifdef PIJ_HOSTPARCEL_LIBRARY
    // The natives of the workstation's managed Parcel (obtain, write, read).
    std::string parcelLib = "-Dplayerimpl.hostparcel.library=" +
                            envOr("PIJ_HOSTPARCEL_LIBRARY", PIJ_HOSTPARCEL_LIBRARY);
    options.push_back({const_cast<char*>(parcelLib.c_str()), nullptr});
#endif
    // Benchmarks may time the library without the checked JNI layer (PIJ_NO_CHECK_JNI set).
    if (getenv("PIJ_NO_CHECK_JNI") == nullptr) {
        options.push_back({const_cast<char*>("-Xcheck:jni"), nullptr});
    }
    options.push_back({const_cast<char*>("-Xmx512m"), nullptr});
    options.push_back({const_cast<char*>("vfprintf"), reinterpret_cast<void*>(&vmPrintf)});
    JavaVMInitArgs args{};
    args.version = JNI_VERSION_1_6;
    args.nOptions = static_cast<jint>(options.size());
    args.options = options.data();
    args.ignoreUnrecognized = JNI_FALSE;
    JNIEnv* e = nullptr;
    if (JNI_CreateJavaVM(&gVm, &e, &args) != JNI_OK)
        setUpFailed(nullptr, "cannot create the Java VM");
    // Before anything loads the library: every call it makes is judged from the first.
    jni_rules::install(gVm);
    if (!onSystemClassPath()) makeLoader(e);
}

}  // namespace

JavaVM* vm() {
    std::call_once(gVmOnce, createVm);
    return gVm;
}

JNIEnv* env() {
    JNIEnv* e = nullptr;
    if (vm()->GetEnv(reinterpret_cast<void**>(&e), JNI_VERSION_1_6) != JNI_OK) {
        vm()->AttachCurrentThread(&e, nullptr);
    }
    return e;
}

void* librarySymbol(const char* name) {
    playerClass();  // makes sure the VM has loaded the library
    void* handle = dlopen(PIJ_LIBRARY, RTLD_NOW | RTLD_NOLOAD);
    return handle != nullptr ? dlsym(handle, name) : nullptr;
}

std::vector<LogLine> logs() {
    std::lock_guard<std::mutex> guard(gLogLock);
    return gLogs;
}

void clearLogs() {
    std::lock_guard<std::mutex> guard(gLogLock);
    gLogs.clear();
}

int countLog(int prio, const std::string& text) {
    int n = 0;
    for (const LogLine& l : logs()) {
        if (l.prio == prio && l.text == text) ++n;
    }
    return n;
}

bool hasLog(int prio, const std::string& text) { return countLog(prio, text) > 0; }

std::vector<LogLine> logsContaining(const std::string& part) {
    std::vector<LogLine> out;
    for (const LogLine& l : logs()) {
        if (l.text.find(part) != std::string::npos) out.push_back(l);
    }
    return out;
}

std::string dumpLogs() {
    std::string s;
    for (const LogLine& l : logs()) {
        s += std::to_string(l.prio) + " " + l.tag + ": " + l.text + "\n";
    }
    return s;
}

std::string fatalLine(const std::string& fn, int line, const char* cls) {
    return "[Fatal jni_exception] " + fn + "(" + std::to_string(line) + "), " + cls;
}

bool hasFatal(const std::string& fn, const char* cls) {
    for (const auto& l : logsContaining("[Fatal jni_exception] " + fn + "(")) {
        if (l.prio == kErrorPriority && l.text.find(cls) != std::string::npos) return true;
    }
    return false;
}

std::vector<std::string> vmOutput() {
    std::lock_guard<std::mutex> guard(gVmLock);
    return gVmOut;
}

void clearVmOutput() {
    std::lock_guard<std::mutex> guard(gVmLock);
    gVmOut.clear();
}

void expectNoJniWarnings() {
    for (const std::string& line : vmOutput()) {
        EXPECT_EQ(line.find("WARNING"), std::string::npos) << "the VM printed: " << line;
    }
}

jclass loadClass(const char* path) {
    JNIEnv* e = env();
    if (gLoader == nullptr) return e->FindClass(path);
    std::string name = path;
    for (char& c : name) {
        if (c == '/') c = '.';
    }
    static jclass classClass =
        static_cast<jclass>(e->NewGlobalRef(e->FindClass("java/lang/Class")));
    static jmethodID forName = e->GetStaticMethodID(
        classClass, "forName", "(Ljava/lang/String;ZLjava/lang/ClassLoader;)Ljava/lang/Class;");
    jstring jname = e->NewStringUTF(name.c_str());
    auto c = static_cast<jclass>(
        e->CallStaticObjectMethod(classClass, forName, jname, JNI_TRUE, gLoader));
    const bool failed = e->ExceptionCheck();  // the checked VM wants a look after every call
    e->DeleteLocalRef(jname);
    return failed ? nullptr : c;
}

bool apiInOwnLoader() {
    vm();
    return gLoader != nullptr;
}

jclass findClass(const char* path) {
    static std::mutex lock;
    static std::map<std::string, jclass> cache;
    std::lock_guard<std::mutex> guard(lock);
    auto it = cache.find(path);
    if (it != cache.end()) return it->second;
    JNIEnv* e = env();
    jclass local = loadClass(path);
    if (local == nullptr) {
        e->ExceptionDescribe();
        e->ExceptionClear();
        ADD_FAILURE() << "no class " << path;
        return nullptr;
    }
    jclass global = static_cast<jclass>(e->NewGlobalRef(local));
    e->DeleteLocalRef(local);
    cache[path] = global;
    return global;
}

namespace {
void JNICALL runBody(JNIEnv*, jclass, jlong body) {
    (*reinterpret_cast<const std::function<void()>*>(body))();
}
}  // namespace

void underManagedCaller(const std::function<void()>& body) {
    JNIEnv* e = env();
    jclass caller = findClass("com/vireo/test/ManagedCaller");
    static std::once_flag registered;
    std::call_once(registered, [e, caller] {
        JNINativeMethod run{"run", "(J)V", reinterpret_cast<void*>(&runBody)};
        e->RegisterNatives(caller, &run, 1);
    });
    e->CallStaticVoidMethod(caller, e->GetStaticMethodID(caller, "call", "(J)V"),
                            static_cast<jlong>(reinterpret_cast<intptr_t>(&body)));
    failOnPendingException();
}

jclass playerClass() { return findClass("com/vireo/android/tvapi/impl/PlayerImpl"); }

jobject newPlayer() {
    JNIEnv* e = env();
    jclass c = playerClass();
    jmethodID ctor = e->GetMethodID(c, "<init>", "()V");
    jobject p = e->NewObject(c, ctor);
    failOnPendingException();
    return p;
}

jint staticInt(const char* field) {
    JNIEnv* e = env();
    jfieldID id = e->GetStaticFieldID(playerClass(), field, "I");
    if (id == nullptr) {
        e->ExceptionClear();
        ADD_FAILURE() << "no static int field " << field;
        return 0;
    }
    return e->GetStaticIntField(playerClass(), id);
}

void failOnPendingException() {
    JNIEnv* e = env();
    if (e->ExceptionCheck()) {
        e->ExceptionDescribe();
        e->ExceptionClear();
        ADD_FAILURE() << "a managed exception was pending";
    }
}

std::string takeExceptionName() {
    JNIEnv* e = env();
    jthrowable t = e->ExceptionOccurred();
    if (t == nullptr) return "none";
    e->ExceptionClear();
    jclass cls = e->GetObjectClass(t);
    jclass classClass = e->FindClass("java/lang/Class");
    jmethodID getName = e->GetMethodID(classClass, "getName", "()Ljava/lang/String;");
    auto name = static_cast<jstring>(e->CallObjectMethod(cls, getName));
    std::string out = e->ExceptionCheck() ? "unnamed" : toStdString(name);
    e->ExceptionClear();
    e->DeleteLocalRef(name);
    e->DeleteLocalRef(classClass);
    e->DeleteLocalRef(cls);
    e->DeleteLocalRef(t);
    return out;
}

jmethodID playerMethod(const char* name, const char* sig) {
    jmethodID m = env()->GetMethodID(playerClass(), name, sig);
    if (m == nullptr) {
        env()->ExceptionClear();
        ADD_FAILURE() << "no method " << name << sig;
    }
    return m;
}

std::string toStdString(jstring s, bool* isNull) {
    if (isNull != nullptr) *isNull = s == nullptr;
    if (s == nullptr) return "";
    JNIEnv* e = env();
    const char* c = e->GetStringUTFChars(s, nullptr);
    std::string out(c);
    e->ReleaseStringUTFChars(s, c);
    return out;
}

namespace {
jclass recorder() { return findClass("com/vireo/test/EventRecorder"); }
}  // namespace

void clearEvents() {
    JNIEnv* e = env();
    e->CallStaticVoidMethod(recorder(), e->GetStaticMethodID(recorder(), "clear", "()V"));
    failOnPendingException();
}

std::vector<Event> events() {
    JNIEnv* e = env();
    jclass r = recorder();
    auto snapshot = static_cast<jobjectArray>(e->CallStaticObjectMethod(
        r, e->GetStaticMethodID(r, "snapshot", "()[Lcom/vireo/test/EventRecorder$Event;")));
    failOnPendingException();
    std::vector<Event> out;
    if (snapshot == nullptr) return out;
    jclass ev = findClass("com/vireo/test/EventRecorder$Event");
    jfieldID what = e->GetFieldID(ev, "what", "I");
    jfieldID ext1 = e->GetFieldID(ev, "ext1", "I");
    jfieldID ext2 = e->GetFieldID(ev, "ext2", "I");
    jfieldID obj = e->GetFieldID(ev, "obj", "Ljava/lang/Object;");
    jfieldID thread = e->GetFieldID(ev, "thread", "Ljava/lang/String;");
    jsize n = e->GetArrayLength(snapshot);
    for (jsize i = 0; i < n; ++i) {
        jobject item = e->GetObjectArrayElement(snapshot, i);
        jobject o = e->GetObjectField(item, obj);
        auto t = static_cast<jstring>(e->GetObjectField(item, thread));
        const char* tc = e->GetStringUTFChars(t, nullptr);
        out.push_back(Event{e->GetIntField(item, what), e->GetIntField(item, ext1),
                            e->GetIntField(item, ext2), o ? e->NewGlobalRef(o) : nullptr, tc});
        e->ReleaseStringUTFChars(t, tc);
        e->DeleteLocalRef(t);
        if (o) e->DeleteLocalRef(o);
        e->DeleteLocalRef(item);
    }
    e->DeleteLocalRef(snapshot);
    return out;
}

void releaseEvents(std::vector<Event>& evs) {
    for (Event& ev : evs) {
        if (ev.obj) env()->DeleteGlobalRef(ev.obj);
        ev.obj = nullptr;
    }
}

bool isChild() { return getenv("PIJ_CHILD") != nullptr; }

ChildResult runChild(const std::string& filter, const std::map<std::string, std::string>& extra) {
    ChildResult result;
    char exe[4096];
    ssize_t len = readlink("/proc/self/exe", exe, sizeof exe - 1);
    if (len <= 0) return result;
    exe[len] = '\0';
    std::string out = ::testing::TempDir() + "pij_child_" + std::to_string(getpid()) + ".txt";

    std::vector<std::string> envs;
    for (char** e = environ; *e != nullptr; ++e) envs.emplace_back(*e);
    envs.emplace_back("PIJ_CHILD=1");
    for (const auto& kv : extra) envs.push_back(kv.first + "=" + kv.second);
    std::vector<char*> envp;
    for (std::string& s : envs) envp.push_back(&s[0]);
    envp.push_back(nullptr);

    std::string filterArg = "--gtest_filter=" + filter;
    std::vector<char*> argv = {exe, &filterArg[0], nullptr};

    posix_spawn_file_actions_t fa;
    posix_spawn_file_actions_init(&fa);
    posix_spawn_file_actions_addopen(&fa, 1, out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    posix_spawn_file_actions_adddup2(&fa, 1, 2);
    pid_t pid = 0;
    if (posix_spawn(&pid, exe, &fa, nullptr, argv.data(), envp.data()) != 0) {
        posix_spawn_file_actions_destroy(&fa);
        return result;
    }
    posix_spawn_file_actions_destroy(&fa);
    int status = 0;
    waitpid(pid, &status, 0);
    result.exited = WIFEXITED(status);
    result.exitCode = result.exited ? WEXITSTATUS(status) : -1;
    result.signaled = WIFSIGNALED(status);
    result.signal = result.signaled ? WTERMSIG(status) : 0;
    if (FILE* f = fopen(out.c_str(), "r")) {
        char buf[4096];
        size_t n;
        while ((n = fread(buf, 1, sizeof buf, f)) > 0) result.output.append(buf, n);
        fclose(f);
    }
    unlink(out.c_str());
    return result;
}

}  // namespace th

#ifndef PIJ_DEVICE_LOG_SINK
// Stands in for liblog's entry point (the test executable exports it), so that every line
// the library writes is captured. The benchmarks build this file with PIJ_DEVICE_LOG_SINK
// and bring a sink that costs what the device's logger costs instead.
extern "C" __attribute__((visibility("default"))) int __android_log_print(int prio, const char* tag,
                                                                          const char* fmt, ...) {
    char buf[8192];
    va_list ap;
    va_start(ap, fmt);
    vsnprintf(buf, sizeof buf, fmt, ap);
    va_end(ap);
    {
        std::lock_guard<std::mutex> guard(th::gLogLock);
        th::gLogs.push_back(th::LogLine{prio, tag ? tag : "", buf});
    }
    if (th::isChild()) {
        fprintf(stdout, "LOG %d %s\n", prio, buf);
        fflush(stdout);
    }
    return 1;
}
#endif  // PIJ_DEVICE_LOG_SINK
