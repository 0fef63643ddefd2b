// The suite's layer of the device runtime's JNI rules (harness/jni_rules.h) and the API's own
// class loader: both on in every test process, each rule ending a process whose judged
// library breaks it, and nobody else's calls judged.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

#include "harness/jni_rules.h"
#include "harness/jvm_harness.h"

namespace {

const char kTarget[] = "com/vireo/test/RulesTarget";
const char kJudgeMisbehaving[] = "libpij_misbehaving.so";

using Misbehave = void (*)(JNIEnv*, const char*, jclass, jobject, jobject);

Misbehave misbehaving() {
    void* lib = dlopen(PIJ_MISBEHAVING_LIBRARY, RTLD_NOW);
    return lib != nullptr ? reinterpret_cast<Misbehave>(dlsym(lib, "misbehave")) : nullptr;
}

// Runs the misuse named by PIJ_MISBEHAVE from the misbehaving library, then says it survived.
TEST(JniRulesChild, Misbehave) {
    if (!th::isChild()) GTEST_SKIP();
    Misbehave misbehave = misbehaving();
    ASSERT_NE(misbehave, nullptr) << dlerror();
    JNIEnv* e = th::env();
    jclass target = th::findClass(kTarget);
    jobject value = e->AllocObject(th::findClass("com/vireo/android/tvapi/common/vo/VideoArcInfo"));
    jobject targetObject = e->AllocObject(target);
    misbehave(e, getenv("PIJ_MISBEHAVE"), target, value, targetObject);
    e->ExceptionClear();
    printf("RESULT survived\n");
    fflush(stdout);
}

th::ChildResult misbehaveInChild(const std::string& how,
                                 std::map<std::string, std::string> env = {
                                     {"PIJ_JNI_RULES_JUDGE", kJudgeMisbehaving}}) {
    env["PIJ_MISBEHAVE"] = how;
    return th::runChild("JniRulesChild.Misbehave", env);
}

TEST(JniRules, EachRuleEndsTheProcessNamingTheCallTheRuleAndTheCaller) {
    if (th::isChild()) GTEST_SKIP();
    const struct {
        const char* how;
        const char* shown;
    } cases[] = {
        {"null_class", "GetStaticFieldID: a null class"},
        {"null_field", "GetStaticIntField: a null field id"},
        {"null_method", "CallStaticVoidMethodV: a null method id"},
        {"null_array", "GetArrayLength: a null array"},
        {"pending",
         "GetStaticFieldID: called with an exception pending (Ljava/lang/IllegalStateException;)"},
        {"bad_text", "NewStringUTF: text that is not Modified UTF-8 (byte 5 is 0x00)"},
        {"negative_length", "NewIntArray: a negative array length (-1)"},
        {"boolean_static_field", "SetStaticBooleanField: the value is a jboolean of 2"},
        {"boolean_argument",
         "CallStaticVoidMethodV: argument 1 of take(ZI)V is a jboolean of 2, neither 0 nor 1"},
        {"boolean_argument_array",
         "CallStaticVoidMethodA: argument 1 of take(ZI)V is a jboolean "
         "of 255"},
        {"boolean_field_of_other_object", "SetBooleanField: the value is a jboolean of 2"},
    };
    for (const auto& c : cases) {
        const th::ChildResult r = misbehaveInChild(c.how);
        EXPECT_TRUE(r.signaled && r.signal == SIGABRT) << c.how << "\n" << r.output;
        EXPECT_NE(r.output.find(std::string("device JNI rule broken: ") + c.shown),
                  std::string::npos)
            << c.how << "\n"
            << r.output;
        EXPECT_NE(r.output.find(std::string("; called from ") + kJudgeMisbehaving + "+0x"),
                  std::string::npos)
            << c.how << "\n"
            << r.output;
        EXPECT_EQ(r.output.find("RESULT survived"), std::string::npos) << c.how;
    }
}

TEST(JniRules, RuleAbidingCallsAndOtherCallersPass) {
    if (th::isChild()) GTEST_SKIP();
    // Every rule kept, with the exempt record boolean and the calls allowed while an
    // exception is pending.
    th::ChildResult r = misbehaveInChild("well");
    EXPECT_TRUE(r.exited && r.exitCode == 0) << r.output;
    EXPECT_NE(r.output.find("RESULT survived"), std::string::npos) << r.output;
    // Misuse that HotSpot survives, from a library nobody judges, or with the layer off.
    for (const char* how : {"pending", "boolean_argument", "boolean_static_field"}) {
        for (const auto& env :
             {std::map<std::string, std::string>{},
              std::map<std::string, std::string>{{"PIJ_JNI_RULES_JUDGE", kJudgeMisbehaving},
                                                 {"PIJ_JNI_RULES", "off"}}}) {
            r = misbehaveInChild(how, env);
            EXPECT_TRUE(r.exited && r.exitCode == 0) << how << "\n" << r.output;
            EXPECT_EQ(r.output.find("device JNI rule broken"), std::string::npos) << r.output;
        }
    }
}

// Every test process runs this way unless a comparison run turns either off.
TEST(JniRules, TheSuiteRunsUnderTheRulesWithTheApiInItsOwnLoader) {
    if (getenv("PIJ_JNI_RULES") != nullptr || getenv("PIJ_SYSTEM_CLASS_PATH") != nullptr) {
        GTEST_SKIP() << "a comparison run";
    }
    JNIEnv* e = th::env();
    EXPECT_TRUE(th::jni_rules::installed());
    ASSERT_TRUE(th::apiInOwnLoader());
    ASSERT_NE(th::playerClass(), nullptr);
    // A thread without a managed caller, as a service thread, does not see the API.
    EXPECT_EQ(e->FindClass("com/vireo/android/tvapi/impl/PlayerImpl"), nullptr);
    EXPECT_TRUE(e->ExceptionCheck());
    e->ExceptionClear();
}

}  // namespace
