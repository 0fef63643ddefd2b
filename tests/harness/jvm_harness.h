// The test harness: one OpenJDK VM per test process (created on first use, with
// -Xcheck:jni), the library loaded the way the device loads it, the library's log lines
// captured, and helpers to run a test case in a child process.
#pragma once

#include <jni.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace th {

// The VM and this thread's environment (the thread is attached if it was not).
JavaVM* vm();
JNIEnv* env();

// A symbol of the loaded library (loaded by the VM, so not in the global scope).
void* librarySymbol(const char* name);

// ---- Log lines of the library (tag, priority and formatted text) ----
struct LogLine {
    int prio;
    std::string tag;
    std::string text;
};
std::vector<LogLine> logs();
void clearLogs();
// Lines with this priority and exactly this text.
int countLog(int prio, const std::string& text);
bool hasLog(int prio, const std::string& text);
// Lines whose text contains `part`, any priority.
std::vector<LogLine> logsContaining(const std::string& part);
std::string dumpLogs();
// The line the library logs when `fn` (line `line`) raises or meets the managed exception
// class `cls`: "[Fatal jni_exception] fn(line), cls".
std::string fatalLine(const std::string& fn, int line, const char* cls);
// An error line of that kind from `fn`, at any line, naming `cls`.
bool hasFatal(const std::string& fn, const char* cls);

// ---- What the VM itself printed (for -Xcheck:jni warnings) ----
std::vector<std::string> vmOutput();
void clearVmOutput();
// Fails the current test when the VM printed a JNI warning since the last clear.
void expectNoJniWarnings();

// ---- Managed side ----
// Classes of the managed API and of the tests come from a class loader of their own (as an
// app's do on the device; a thread the library attached finds only the system's classes with
// FindClass), unless PIJ_SYSTEM_CLASS_PATH is set.
bool apiInOwnLoader();
// FindClass's counterpart through that loader: a new local reference, or null with the
// runtime's error pending. The class is initialised.
jclass loadClass(const char* path);
jclass findClass(const char* path);  // a global reference, cached
// Runs `body` on this thread under a managed caller's frame, as the device calls a handler, so
// that a handler called straight from the test finds the API's classes.
void underManagedCaller(const std::function<void()>& body);
jclass playerClass();
// Constructs a managed PlayerImpl (runs native_setup); a new local reference.
jobject newPlayer();
jint staticInt(const char* field);  // a TVPLAYER_ code by name
void failOnPendingException();      // describes, clears and fails the test

// Calls a method of the managed player object by name and signature, then checks for a
// pending exception (fails the test and clears it). Use these rather than raw Call*Method:
// -Xcheck:jni wants every call followed by a check.
jmethodID playerMethod(const char* name, const char* sig);

template <typename... A>
jboolean callZ(jobject obj, const char* name, const char* sig, A... args) {
    jboolean r = env()->CallBooleanMethod(obj, playerMethod(name, sig), args...);
    failOnPendingException();
    return r;
}
template <typename... A>
jint callI(jobject obj, const char* name, const char* sig, A... args) {
    jint r = env()->CallIntMethod(obj, playerMethod(name, sig), args...);
    failOnPendingException();
    return r;
}
template <typename... A>
void callV(jobject obj, const char* name, const char* sig, A... args) {
    env()->CallVoidMethod(obj, playerMethod(name, sig), args...);
    failOnPendingException();
}
// A local reference (or null).
template <typename... A>
jobject callL(jobject obj, const char* name, const char* sig, A... args) {
    jobject r = env()->CallObjectMethod(obj, playerMethod(name, sig), args...);
    failOnPendingException();
    return r;
}
// A string result as text; *isNull tells a null result apart from an empty one.
std::string toStdString(jstring s, bool* isNull = nullptr);

// ---- Events recorded by the managed test listener (com.vireo.test.EventRecorder) ----
struct Event {
    int what;
    int ext1;
    int ext2;
    jobject obj;  // a global reference, or null
    std::string thread;
};
void clearEvents();
std::vector<Event> events();  // the caller owns the global references in obj
void releaseEvents(std::vector<Event>& evs);

// ---- Child processes ----
// True in a process started by runChild.
bool isChild();
struct ChildResult {
    bool exited = false;
    int exitCode = -1;
    bool signaled = false;
    int signal = 0;
    std::string output;  // stdout and stderr; in a child every log line is echoed as
                         // "LOG <prio> <text>"
};
// Runs the test cases matching `filter` of this executable in a fresh process, with the
// extra environment given.
ChildResult runChild(const std::string& filter, const std::map<std::string, std::string>& env = {});

}  // namespace th
