// A managed side of another build than the library's, lacking a member that native_init or
// native_setup looks up: an event code of the player class, or a scan-progress class. Each
// runs in a child VM whose class path holds such a build. The look-up that fails stops the
// native with the runtime's error pending for the managed caller; no JNI call is made with a
// null class or id (the device's runtime ends the process on one), and the VM neither ends
// nor warns.
#include <gtest/gtest.h>
#include <jni.h>

#include <cstdio>
#include <string>

#include "harness/jvm_harness.h"
#include "playerimpl_host/host_player.h"

namespace {

std::string probe(const char* method) {
    JNIEnv* e = th::env();
    jclass probeClass = th::findClass("com/vireo/test/Probe");
    auto s = static_cast<jstring>(e->CallStaticObjectMethod(
        probeClass, e->GetStaticMethodID(probeClass, method, "()Ljava/lang/String;")));
    th::failOnPendingException();
    std::string out = th::toStdString(s);
    e->DeleteLocalRef(s);
    return out;
}

TEST(SetupMismatchChild, PlayerClassWithoutAnEventCode) {
    if (!th::isChild()) GTEST_SKIP();
    printf("RESULT init %s\n", probe("initPlayerClass").c_str());
    fflush(stdout);
}

TEST(SetupMismatchChild, NoAnalogueScanClass) {
    if (!th::isChild()) GTEST_SKIP();
    const int disconnects = host::HostPlayer::disconnectCount();
    printf("RESULT setup %s\n", probe("newPlayer").c_str());
    printf("RESULT disconnects %d\n", host::HostPlayer::disconnectCount() - disconnects);
    fflush(stdout);
}

void expectCleanChild(const th::ChildResult& r) {
    EXPECT_TRUE(r.exited && r.exitCode == 0) << r.output;
    EXPECT_EQ(r.output.find("FATAL"), std::string::npos) << r.output;
    EXPECT_EQ(r.output.find("WARNING"), std::string::npos) << r.output;
}

TEST(SetupMismatch, AMissingEventCodeStopsNativeInitWithTheRuntimesError) {
    if (th::isChild()) GTEST_SKIP();
    const th::ChildResult r = th::runChild(
        "SetupMismatchChild.PlayerClassWithoutAnEventCode",
        {{"PIJ_CLASSPATH", std::string(PIJ_NO_EVENT_CODE_JAR) + ":" + PIJ_MANAGED_JAR + ":" +
                               PIJ_TESTJAVA_JAR}});
    expectCleanChild(r);
    EXPECT_NE(r.output.find("RESULT init java.lang.NoSuchFieldError\n"), std::string::npos)
        << r.output;
}

TEST(SetupMismatch, AMissingScanClassStopsNativeSetupAndLetsThePlayerGo) {
    if (th::isChild()) GTEST_SKIP();
    const th::ChildResult r =
        th::runChild("SetupMismatchChild.NoAnalogueScanClass",
                     {{"PIJ_CLASSPATH", std::string(PIJ_NO_SCAN_CLASS_JAR) + ":" + PIJ_TESTJAVA_JAR}});
    expectCleanChild(r);
    for (const char* shown :
         {"RESULT setup java.lang.NoClassDefFoundError\n", "RESULT disconnects 1\n"}) {
        EXPECT_NE(r.output.find(shown), std::string::npos) << shown << "\n" << r.output;
    }
}

}  // namespace
