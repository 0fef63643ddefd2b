// Parcel exchanges (RRT, V-chip, BISS, EWS), the BISS key, the caption preview and the two
// channel logo layouts, through a real VM and real native parcels.
#include <android/log.h>
#include <gtest/gtest.h>

#include <csignal>
#include <string>
#include <vector>

#include "core/PlayerImpl.h"
#include "core/parcel.h"
#include "harness/fields.h"
#include "harness/jvm_harness.h"
#include "harness/player_test.h"
#include "marshal/caption_logo.h"
#include "playerimpl_host/fake_player.h"

namespace {

constexpr int D = ANDROID_LOG_DEBUG;
constexpr int I = ANDROID_LOG_INFO;
constexpr int E = ANDROID_LOG_ERROR;

const char* kIse = "java/lang/IllegalStateException";
const std::string kSuccessLine = "[Error] parcelForJavaObject p != NULL";
const std::string kNoPtrLine =
    "[Fatal jni_exception] VndkGetParcelForJavaObject(111), java/lang/IllegalStateException";

// ---- The workstation's managed Parcel ----
jclass parcelClass() { return th::findClass("android/os/Parcel"); }
jobject obtainParcel() {
    jclass c = parcelClass();
    jobject p = th::env()->CallStaticObjectMethod(
        c, th::env()->GetStaticMethodID(c, "obtain", "()Landroid/os/Parcel;"));
    th::failOnPendingException();
    return p;
}
jobject parcelWithPointer(jlong ptr) {
    jclass c = parcelClass();
    jobject p = th::env()->NewObject(c, th::env()->GetMethodID(c, "<init>", "(J)V"), ptr);
    th::failOnPendingException();
    return p;
}
jmethodID parcelMethod(const char* name, const char* sig) {
    jmethodID m = th::env()->GetMethodID(parcelClass(), name, sig);
    th::failOnPendingException();
    return m;
}
jlong nativePtr(jobject p) {
    jlong v = th::env()->CallLongMethod(p, parcelMethod("nativePtr", "()J"));
    th::failOnPendingException();
    return v;
}
void parcelV(jobject p, const char* name, const char* sig, jint arg) {
    th::env()->CallVoidMethod(p, parcelMethod(name, sig), arg);
    th::failOnPendingException();
}
jint parcelI(jobject p, const char* name) {
    jint v = th::env()->CallIntMethod(p, parcelMethod(name, "()I"));
    th::failOnPendingException();
    return v;
}
std::string readString8(jobject p) {
    auto s = static_cast<jstring>(
        th::env()->CallObjectMethod(p, parcelMethod("readString8", "()Ljava/lang/String;")));
    th::failOnPendingException();
    std::string out = th::toStdString(s);
    if (s) th::env()->DeleteLocalRef(s);
    return out;
}
void recycle(jobject p) {
    th::env()->CallVoidMethod(p, parcelMethod("recycle", "()V"));
    th::failOnPendingException();
    th::env()->DeleteLocalRef(p);
}

class ParcelsLogos : public th::PlayerTest {
protected:
    ParcelsLogos() : PlayerTest(kSkipInChild) {}
};

// ---- Parcels ----

TEST_F(ParcelsLogos, PlayerWritesTheManagedParcelsOwnNativeParcel) {
    jobject request = obtainParcel();
    jobject reply = obtainParcel();
    ASSERT_NE(nativePtr(reply), 0);
    parcelV(request, "writeInt", "(I)V", 0x5EED);
    parcelV(request, "setDataPosition", "(I)V", 0);
    // The player reads the request and answers into the reply, as the service does.
    fake->onCall("getVChipRatingInfo", [](const host::OutArgs& o) {
        auto* in = static_cast<android::Parcel*>(o.p.at(0));
        auto* out = static_cast<android::Parcel*>(o.p.at(1));
        out->writeInt32(in->readInt32() + 1);
        out->writeString8(android::String8("TV-PG"));
    });
    fake->setResult("getVChipRatingInfo", 1);
    EXPECT_EQ(th::callZ(player, "native_getVChipRatingInfo",
                        "(Landroid/os/Parcel;Landroid/os/Parcel;)Z", request, reply),
              JNI_TRUE);
    EXPECT_TRUE(th::hasLog(D, "getRating"));
    EXPECT_EQ(th::countLog(D, kSuccessLine), 2) << "one line per converted parcel";
    auto call = fake->callsOf("getVChipRatingInfo").at(0);
    EXPECT_EQ(call.args[0], nativePtr(request));
    EXPECT_EQ(call.args[1], nativePtr(reply));
    parcelV(reply, "setDataPosition", "(I)V", 0);
    EXPECT_EQ(th::env()->CallIntMethod(reply, parcelMethod("readInt", "()I")), 0x5EEE);
    th::failOnPendingException();
    EXPECT_EQ(readString8(reply), "TV-PG");
    EXPECT_GT(parcelI(reply, "dataSize"), 4);
    recycle(request);
    recycle(reply);
}

TEST_F(ParcelsLogos, UnconvertibleParcelsReachThePlayerAsNull) {
    jobject unset = parcelWithPointer(0);
    jobject good = obtainParcel();
    fake->setResult("getEWSInfo", 3);
    EXPECT_EQ(th::callZ(player, "getEWSInfo", "(Landroid/os/Parcel;Landroid/os/Parcel;)Z", nullptr,
                        unset),
              JNI_TRUE);
    EXPECT_TRUE(th::hasLog(I, "getEWSInfo"));
    auto call = fake->callsOf("getEWSInfo").at(0);
    EXPECT_EQ(call.args[0], 0) << "null parcel, null pointer";
    EXPECT_EQ(call.args[1], 0) << "unset pointer, null pointer";
    EXPECT_EQ(th::countLog(E, kNoPtrLine), 1) << "only the unset pointer is reported\n"
                                              << th::dumpLogs();
    EXPECT_EQ(th::countLog(D, kSuccessLine), 0);

    // RRT: a fresh local request parcel and the converted reply.
    th::clearLogs();
    th::callV(player, "native_getRRTInformation", "(Landroid/os/Parcel;)V", good);
    auto rrt = fake->callsOf("getRRTInformation").at(0);
    EXPECT_NE(rrt.args[0], 0);
    EXPECT_NE(rrt.args[0], nativePtr(good));
    EXPECT_EQ(rrt.args[1], nativePtr(good));
    EXPECT_TRUE(th::hasLog(D, "getRRTInformation"));
    EXPECT_TRUE(th::hasLog(D, kSuccessLine));

    // BISS program list: the converted parcel, INFO trace.
    th::callV(player, "getAllBISSProgramInfo", "(Landroid/os/Parcel;)V", good);
    EXPECT_EQ(fake->callsOf("getAllBISSProgramInfo").at(0).args[0], nativePtr(good));
    EXPECT_TRUE(th::hasLog(I, "getAllBISSProgramInfo"));
    th::env()->DeleteLocalRef(unset);
    recycle(good);
}

TEST_F(ParcelsLogos, VChipAnswerIsReturnedWholeAndResetIsMasked) {
    // The runtime normalises a boolean coming back from a native, so the raw byte is read
    // from the exported handler itself.
    using Fn = jboolean (*)(JNIEnv*, jobject, jobject, jobject);
    auto fn = reinterpret_cast<Fn>(
        th::librarySymbol("com_vireo_android_tvapi_impl_PlayerImpl_native_getVChipRatingInfo"));
    ASSERT_NE(fn, nullptr);
    fake->setResult("getVChipRatingInfo", 2);
    EXPECT_EQ(fn(th::env(), player, nullptr, nullptr), 2);

    fake->setResult("resetRrtInformation", 2);
    EXPECT_EQ(th::callZ(player, "resetRrtInformation", "()Z"), JNI_FALSE);
    EXPECT_TRUE(th::hasLog(D, "re = 0"));
    fake->setResult("resetRrtInformation", 5);
    EXPECT_EQ(th::callZ(player, "resetRrtInformation", "()Z"), JNI_TRUE);
    EXPECT_TRUE(th::hasLog(D, "re = 1"));
}

TEST_F(ParcelsLogos, BissKeyArrivesAsExactlyItsBytesAndBadLengthsAreContained) {
    const char* sig = "(IILjava/lang/String;I)Z";
    std::vector<std::string> keys;
    fake->onCall("setProgramBISSKeyByNumber", [&](const host::OutArgs& o) {
        auto len = static_cast<size_t>(fake->calls().back().args.at(3));
        const auto* key = static_cast<const char*>(o.p.at(0));
        ASSERT_NE(key, nullptr);
        keys.emplace_back(key, len);
    });
    fake->setResult("setProgramBISSKeyByNumber", 3);
    jstring key = th::env()->NewStringUTF("0123456789ABCDEF");
    EXPECT_EQ(th::callZ(player, "setProgramBISSKeyByNumber", sig, 12, 1, key, 16), JNI_TRUE);
    auto call = fake->callsOf("setProgramBISSKeyByNumber").at(0);
    EXPECT_EQ(call.args[0], 12);
    EXPECT_EQ(call.args[1], 1);
    EXPECT_EQ(call.args[3], 16);
    ASSERT_EQ(keys.size(), 1u);
    EXPECT_EQ(keys[0], "0123456789ABCDEF");
    EXPECT_TRUE(th::hasLog(D, "re = 1"));

    // Length 0: nothing copied, the player still called.
    EXPECT_EQ(th::callZ(player, "setProgramBISSKeyByNumber", sig, 12, 1, key, 0), JNI_TRUE);
    ASSERT_EQ(keys.size(), 2u);
    EXPECT_EQ(keys[1], "");

    // A shorter length takes a prefix; a length past the text is cut to the text.
    th::clearLogs();
    th::callZ(player, "setProgramBISSKeyByNumber", sig, 12, 1, key, 4);
    th::callZ(player, "setProgramBISSKeyByNumber", sig, 12, 1, key, 4096);
    ASSERT_EQ(keys.size(), 4u);
    EXPECT_EQ(keys[2], "0123");
    EXPECT_EQ(keys[3], "0123456789ABCDEF");
    EXPECT_EQ(fake->calls().back().args[3], 16);
    EXPECT_EQ(th::logsContaining("4096").size(), 1u);
    EXPECT_EQ(th::logsContaining("4096")[0].prio, E);

    // A negative length and a null key are refused without calling the player.
    fake->clearCalls();
    th::clearLogs();
    EXPECT_EQ(th::callZ(player, "setProgramBISSKeyByNumber", sig, 12, 1, key, -1), JNI_FALSE);
    EXPECT_EQ(th::callZ(player, "setProgramBISSKeyByNumber", sig, 12, 1, nullptr, 16), JNI_FALSE);
    EXPECT_TRUE(fake->callsOf("setProgramBISSKeyByNumber").empty());
    int errors = 0;
    for (const auto& l : th::logs()) errors += l.prio == E;
    EXPECT_EQ(errors, 2) << th::dumpLogs();
    th::env()->DeleteLocalRef(key);
}

TEST_F(ParcelsLogos, WithoutAPlayerTheParcelHandlersReport) {
    th::callV(player, "release", "()V");
    th::clearLogs();
    jobject good = obtainParcel();
    th::callV(player, "native_getRRTInformation", "(Landroid/os/Parcel;)V", good);
    EXPECT_TRUE(th::hasFatal("com_vireo_android_tvapi_impl_PlayerImpl_native_getRRTInformation",
                             "com/vireo/android/tvapi/common/exception/TvUnsupportedException"));
    EXPECT_EQ(th::callZ(player, "resetRrtInformation", "()Z"), JNI_FALSE);
    EXPECT_TRUE(
        th::hasFatal("com_vireo_android_tvapi_common_PlayerImpl_resetRrtInformation", kIse));
    EXPECT_EQ(th::callZ(player, "native_getVChipRatingInfo",
                        "(Landroid/os/Parcel;Landroid/os/Parcel;)Z", good, good),
              JNI_FALSE);
    EXPECT_TRUE(
        th::hasFatal("com_vireo_android_tvapi_impl_PlayerImpl_native_getVChipRatingInfo", kIse));
    jstring key = th::env()->NewStringUTF("KEY");
    EXPECT_EQ(
        th::callZ(player, "setProgramBISSKeyByNumber", "(IILjava/lang/String;I)Z", 1, 2, key, 3),
        JNI_FALSE);
    EXPECT_TRUE(
        th::hasFatal("com_vireo_android_tvapi_common_PlayerImpl_setProgramBISSKeyByNumber", kIse));
    EXPECT_EQ(
        th::callZ(player, "getEWSInfo", "(Landroid/os/Parcel;Landroid/os/Parcel;)Z", good, good),
        JNI_FALSE);
    EXPECT_TRUE(th::hasFatal("com_vireo_android_tvapi_impl_PlayerImpl_getEWSInfo", kIse));
    EXPECT_EQ(th::countLog(D, kSuccessLine), 0) << "nothing converted without a player";
    th::env()->DeleteLocalRef(key);
    recycle(good);
}

// Runs in a child: the BISS program list without a player ends the process after its line.
TEST(ParcelsChild, BissProgramListWithoutAPlayer) {
    if (!th::isChild()) GTEST_SKIP();
    jobject p = th::newPlayer();
    th::callV(p, "release", "()V");
    jobject parcel = obtainParcel();
    th::callV(p, "getAllBISSProgramInfo", "(Landroid/os/Parcel;)V", parcel);
    printf("RESULT returned\n");
    fflush(stdout);
}

TEST(ParcelsEnd, BissProgramListWithoutAPlayerEndsTheProcessAfterItsLine) {
    if (th::isChild()) GTEST_SKIP();
    auto r = th::runChild("ParcelsChild.BissProgramListWithoutAPlayer");
    EXPECT_TRUE(r.signaled);
    EXPECT_EQ(r.signal, SIGABRT);
    EXPECT_EQ(r.output.find("RESULT returned"), std::string::npos);
    std::string line = th::fatalLine(
        "com_vireo_android_tvapi_common_PlayerImpl_getAllBISSProgramInfo", 4770, kIse);
    auto at = r.output.find("LOG 6 " + line);
    EXPECT_NE(at, std::string::npos) << r.output;
    EXPECT_NE(r.output.find("LOG 4 getAllBISSProgramInfo"), std::string::npos);
}

// ---- Caption preview ----

TEST_F(ParcelsLogos, CaptionStyleReachesThePlayerAsLowBytesInOrder) {
    const char* names[] = {"currProgInfoFGColor",     "currProgInfoBGColor",
                           "currProgInfoFGOpacity",   "currProgInfoBGOpacity",
                           "currProgInfoFontSize",    "currProgInfoFontStyle",
                           "currProgInfoEdgeStyle",   "currProgInfoEdgeColor",
                           "currProgInfoItalicsAttr", "currProgInfoUnderlineAttr"};
    jclass c = th::findClass("com/vireo/android/tvapi/common/vo/CaptionOptionSetting");
    jobject s = th::env()->AllocObject(c);
    for (int i = 0; i < 10; ++i) {
        th::env()->SetShortField(s, th::env()->GetFieldID(c, names[i], "S"),
                                 static_cast<jshort>(i == 0 ? 258 : (i == 9 ? -1 : 10 + i)));
    }
    th::failOnPendingException();
    CaptionOptionSettingRec seen{};
    fake->onCall("drawPreviewCCWin",
                 [&](const host::OutArgs& o) { seen = o.at<CaptionOptionSettingRec>(0); });
    fake->setResult("drawPreviewCCWin", 1);
    const char* sig = "(Lcom/vireo/android/tvapi/common/vo/CaptionOptionSetting;)Z";
    EXPECT_EQ(th::callZ(player, "drawPreviewCCWin", sig, s), JNI_TRUE);
    const auto* bytes = reinterpret_cast<const uint8_t*>(&seen);
    EXPECT_EQ(bytes[0], 2) << "258 keeps its low 8 bits";
    for (int i = 1; i < 9; ++i) EXPECT_EQ(bytes[i], 10 + i) << names[i];
    EXPECT_EQ(seen.currProgInfoUnderlineAttr, 0xFF);

    fake->clearCalls();
    th::clearLogs();
    EXPECT_EQ(th::callZ(player, "drawPreviewCCWin", sig, nullptr), JNI_FALSE);
    EXPECT_TRUE(fake->callsOf("drawPreviewCCWin").empty());
    EXPECT_TRUE(th::hasFatal("com_vireo_android_tvapi_impl_PlayerImpl_drawPreviewCCWin", kIse))
        << th::dumpLogs();
    th::env()->DeleteLocalRef(s);
}

// ---- Logos ----

TEST_F(ParcelsLogos, ByteLogoCarriesItsSizesBehindTheBytes) {
    fake->onCall("getLogoData", [](const host::OutArgs& o) {
        auto* bytes = static_cast<uint8_t*>(o.p.at(0));
        bytes[0] = 0xFF;
        bytes[1] = 0x80;
        bytes[pij::kLogoCapacity - 1] = 7;
        o.at<int32_t>(1) = 39;
        o.at<int32_t>(2) = -2;
    });
    fake->setResult("getLogoData", 3);
    auto a = static_cast<jintArray>(th::callL(player, "getLogoData", "()[I"));
    std::vector<jint> v = th::ints(a);
    ASSERT_EQ(v.size(), 2595u);
    EXPECT_EQ(v[0], 255) << "zero-extended, never -1";
    EXPECT_EQ(v[1], 128);
    EXPECT_EQ(v[2], 0);
    EXPECT_EQ(v[2592], 7);
    EXPECT_EQ(v[2593], 39);
    EXPECT_EQ(v[2594], -2);
    th::env()->DeleteLocalRef(a);

    fake->setResult("getLogoData", 2);
    th::clearLogs();
    EXPECT_EQ(th::callL(player, "getLogoData", "()[I"), nullptr);
    int errors = 0;
    for (const auto& l : th::logs()) errors += l.prio == E;
    EXPECT_EQ(errors, 0) << "a failed call is not logged";
}

TEST_F(ParcelsLogos, ArgbLogoCarriesItsSizesInFront) {
    int32_t a = 0, b = 0;
    fake->onCall("getChannelLogoARGB", [&](const host::OutArgs& o) {
        auto* px = static_cast<uint32_t*>(o.p.at(0));
        for (int i = 0; i < pij::kLogoCapacity; ++i) px[i] = 0xFF000000u + static_cast<uint32_t>(i);
        o.at<int32_t>(1) = a;
        o.at<int32_t>(2) = b;
    });
    fake->setResult("getChannelLogoARGB", 1);
    auto fetch = [&](int32_t na, int32_t nb) {
        a = na, b = nb;
        auto arr = static_cast<jintArray>(th::callL(player, "getChannelLogoARGB", "()[I"));
        std::vector<jint> v = th::ints(arr);
        if (arr) th::env()->DeleteLocalRef(arr);
        return v;
    };
    EXPECT_EQ(fetch(0, 0), (std::vector<jint>{1, 0}));
    EXPECT_EQ(fake->callsOf("getChannelLogoARGB").at(0).args[1], pij::kLogoCapacity);

    std::vector<jint> v = fetch(39, 40);
    ASSERT_EQ(v.size(), 1602u);
    EXPECT_EQ(v[0], 40);
    EXPECT_EQ(v[1], 40);
    EXPECT_EQ(static_cast<uint32_t>(v[2]), 0xFF000000u);
    EXPECT_EQ(static_cast<uint32_t>(v[1601]), 0xFF000000u + 1599);

    // Exactly the buffer is allowed; one row more, or a negative size, is refused.
    EXPECT_EQ(fetch(2592, 1).size(), 2595u);
    th::clearLogs();
    EXPECT_TRUE(fetch(2593, 1).empty());
    EXPECT_TRUE(fetch(-3, 5).empty());
    EXPECT_TRUE(fetch(0x7FFFFFFF, 0x7FFFFFFF).empty());
    int errors = 0;
    for (const auto& l : th::logs()) errors += l.prio == E;
    EXPECT_EQ(errors, 3) << th::dumpLogs();

    fake->setResult("getChannelLogoARGB", 0);
    EXPECT_TRUE(fetch(0, 0).empty());
}

TEST_F(ParcelsLogos, WithoutAPlayerTheLogoAndCaptionHandlersReport) {
    th::callV(player, "release", "()V");
    th::clearLogs();
    EXPECT_EQ(th::callL(player, "getLogoData", "()[I"), nullptr);
    EXPECT_EQ(th::callL(player, "getChannelLogoARGB", "()[I"), nullptr);
    EXPECT_EQ(th::callZ(player, "drawPreviewCCWin",
                        "(Lcom/vireo/android/tvapi/common/vo/CaptionOptionSetting;)Z", nullptr),
              JNI_FALSE);
    for (const char* h : {"getLogoData", "getChannelLogoARGB", "drawPreviewCCWin"}) {
        EXPECT_TRUE(th::hasFatal(std::string("com_vireo_android_tvapi_impl_PlayerImpl_") + h, kIse))
            << h;
    }
}

}  // namespace
