// Parcel exchanges (RRT, V-chip, BISS, EWS), the BISS key, the caption preview and the two
// channel logo layouts, through a real VM and real native parcels.
#include <android/log.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "core/PlayerImpl.h"
#include "core/parcel.h"
#include "double/fake_player.h"
#include "harness/fields.h"
#include "harness/jni_rules.h"
#include "harness/jvm_harness.h"
#include "harness/player_test.h"
#include "marshal/caption_logo.h"

namespace {

constexpr int D = ANDROID_LOG_DEBUG;
constexpr int E = ANDROID_LOG_ERROR;

const char* kIse = "java/lang/IllegalStateException";
const char* kTwoParcels = "(Landroid/os/Parcel;Landroid/os/Parcel;)Z";
const char* kOneParcel = "(Landroid/os/Parcel;)V";
const char* kKeySig = "(IILjava/lang/String;I)Z";
const char* kCaptionSig = "(Lcom/vireo/android/tvapi/common/vo/CaptionOptionSetting;)Z";
const std::string kSuccessLine = "[Error] parcelForJavaObject p != NULL";
const std::string kNoPtrLine =
    "[Fatal jni_exception] VndkGetParcelForJavaObject(111), java/lang/IllegalStateException";

// ---- The workstation's managed Parcel ----

jobject obtainParcel() {
    JNIEnv* e = th::env();
    jclass c = th::findClass("android/os/Parcel");
    jobject p =
        e->CallStaticObjectMethod(c, e->GetStaticMethodID(c, "obtain", "()Landroid/os/Parcel;"));
    th::failOnPendingException();
    return p;
}
jobject parcelWithoutPointer() {
    jclass c = th::findClass("android/os/Parcel");
    return th::env()->NewObject(c, th::env()->GetMethodID(c, "<init>", "(J)V"), jlong{0});
}
jlong nativePtr(jobject p) { return th::env()->GetLongField(p, th::fieldId(p, "mNativePtr", "J")); }
void recycle(jobject p) {
    th::env()->CallVoidMethod(
        p, th::env()->GetMethodID(th::findClass("android/os/Parcel"), "recycle", "()V"));
    th::failOnPendingException();
    th::env()->DeleteLocalRef(p);
}

class ParcelsLogos : public th::PlayerTest {
protected:
    ParcelsLogos() : PlayerTest(kSkipInChild) {}
};

// ---- Parcels ----

TEST_F(ParcelsLogos, ParcelsReachThePlayerAsTheirNativeParcelsOrNull) {
    jobject request = obtainParcel();
    jobject reply = obtainParcel();
    fake->setResult(th::Op::getVChipRatingInfo, 1);
    EXPECT_EQ(th::callZ(player, "native_getVChipRatingInfo", kTwoParcels, request, reply),
              JNI_TRUE);
    th::callV(player, "native_getRRTInformation", kOneParcel, reply);
    th::callV(player, "getAllBISSProgramInfo", kOneParcel, reply);
    EXPECT_EQ(th::countLog(D, kSuccessLine), 4) << "one line per converted parcel";
    EXPECT_EQ(fake->callsOf(th::Op::getVChipRatingInfo).at(0).args,
              (std::vector<int64_t>{nativePtr(request), nativePtr(reply)}));
    auto args = fake->callsOf(th::Op::getRRTInformation).at(0).args;
    EXPECT_NE(args.at(0), 0) << "a request parcel of its own";
    EXPECT_NE(args.at(0), nativePtr(request));
    EXPECT_EQ(args.at(1), nativePtr(reply));
    EXPECT_EQ(fake->callsOf(th::Op::getAllBISSProgramInfo).at(0).args.at(0), nativePtr(reply));

    // A null parcel goes on as null, silently; one without a native parcel as null too, with
    // the report of line 111.
    th::clearLogs();
    jobject unset = parcelWithoutPointer();
    fake->setResult(th::Op::getEWSInfo, 3);
    EXPECT_EQ(th::callZ(player, "getEWSInfo", kTwoParcels, nullptr, unset), JNI_TRUE);
    EXPECT_EQ(fake->callsOf(th::Op::getEWSInfo).at(0).args, (std::vector<int64_t>{0, 0}));
    EXPECT_EQ(th::countLog(E, kNoPtrLine), 1) << th::dumpLogs();
    EXPECT_EQ(th::logs().size(), 2u) << "the trace and that report only: " << th::dumpLogs();
    th::env()->DeleteLocalRef(unset);

    // The V-chip answer byte is returned whole: the runtime normalises a boolean coming back
    // from a native, so the byte is read from the exported handler itself.
    using Fn = jboolean (*)(JNIEnv*, jobject, jobject, jobject);
    auto fn = reinterpret_cast<Fn>(
        th::librarySymbol("com_vireo_android_tvapi_impl_PlayerImpl_native_getVChipRatingInfo"));
    ASSERT_NE(fn, nullptr);
    fake->setResult(th::Op::getVChipRatingInfo, 2);
    EXPECT_EQ(fn(th::env(), player, request, reply), 2);
    // The RRT reset, by contrast, keeps bit 0.
    fake->setResult(th::Op::resetRrtInformation, 2);
    EXPECT_EQ(th::callZ(player, "resetRrtInformation", "()Z"), JNI_FALSE);
    recycle(request);
    recycle(reply);
}

TEST_F(ParcelsLogos, BissKeyArrivesAsExactlyItsBytesAndBadLengthsAreContained) {
    std::vector<std::string> keys;
    fake->onCall(th::Op::setProgramBISSKeyByNumber, [&](const th::OutArgs& o) {
        const auto args = fake->calls().back().args;  // program, type, key, length
        EXPECT_EQ(args.at(0), 12);
        keys.emplace_back(static_cast<const char*>(o.p.at(0)), static_cast<size_t>(args.at(3)));
    });
    fake->setResult(th::Op::setProgramBISSKeyByNumber, 3);
    jstring key = th::env()->NewStringUTF("0123456789ABCDEF");
    std::vector<jboolean> results;
    for (jint length : {16, 0, 4, 4096, -1}) {
        results.push_back(
            th::callZ(player, "setProgramBISSKeyByNumber", kKeySig, 12, 1, key, length));
    }
    results.push_back(th::callZ(player, "setProgramBISSKeyByNumber", kKeySig, 12, 1, nullptr, 16));
    th::env()->DeleteLocalRef(key);
    // A length past the key is cut to it; a negative length and a null key are refused
    // without calling the player. Each of the three writes one ERROR line.
    EXPECT_EQ(results, (std::vector<jboolean>{1, 1, 1, 1, 0, 0}));
    EXPECT_EQ(keys, (std::vector<std::string>{"0123456789ABCDEF", "", "0123", "0123456789ABCDEF"}));
    int errors = 0;
    for (const auto& l : th::logs()) errors += l.prio == E;
    EXPECT_EQ(errors, 3) << th::dumpLogs();
}

// ---- The BISS program list without a player ends the process ----

// Runs in a child: writes the fatal line, converts the reply parcel (PIJ_PARCEL=unset: one
// whose pointer is 0) with its own line, and only then ends the process.
TEST(ParcelsChild, BissProgramListWithoutAPlayer) {
    if (!th::isChild()) GTEST_SKIP();
    jobject p = th::newPlayer();
    th::callV(p, "release", "()V");
    const char* kind = std::getenv("PIJ_PARCEL");
    jobject parcel =
        kind && std::strcmp(kind, "unset") == 0 ? parcelWithoutPointer() : obtainParcel();
    th::callV(p, "getAllBISSProgramInfo", kOneParcel, parcel);
    printf("RESULT returned\n");
    fflush(stdout);
}

TEST(ParcelsEnd, BissProgramListWithoutAPlayerConvertsThenEndsTheProcess) {
    if (th::isChild()) GTEST_SKIP();
    const std::string fatal = th::fatalLine(
        "com_vireo_android_tvapi_common_PlayerImpl_getAllBISSProgramInfo", 4770, kIse);
    for (const auto& [kind, conversion] : {std::pair{"obtained", "LOG 3 " + kSuccessLine},
                                           std::pair{"unset", "LOG 6 " + kNoPtrLine}}) {
        SCOPED_TRACE(kind);
        auto r = th::runChild("ParcelsChild.BissProgramListWithoutAPlayer", {{"PIJ_PARCEL", kind}});
        EXPECT_TRUE(r.signaled);
        EXPECT_EQ(r.signal, SIGABRT);
        EXPECT_EQ(r.output.find("RESULT returned"), std::string::npos);
        auto fatalAt = r.output.find("LOG 6 " + fatal);
        auto conversionAt = r.output.find(conversion);
        ASSERT_NE(fatalAt, std::string::npos) << r.output;
        ASSERT_NE(conversionAt, std::string::npos) << r.output;
        EXPECT_LT(fatalAt, conversionAt) << "the fatal line first, then the conversion's";
        EXPECT_EQ(r.output.find("LOG ", conversionAt + 1), std::string::npos) << "then the end";
    }
}

// ---- Caption preview and logos ----

TEST_F(ParcelsLogos, CaptionStyleReachesThePlayerAsLowBytesInOrder) {
    const char* names[] = {"FGColor",   "BGColor",   "FGOpacity", "BGOpacity",   "FontSize",
                           "FontStyle", "EdgeStyle", "EdgeColor", "ItalicsAttr", "UnderlineAttr"};
    jobject s = th::newObject("com/vireo/android/tvapi/common/vo/CaptionOptionSetting");
    for (int i = 0; i < 10; ++i) {
        th::setS(s, (std::string("currProgInfo") + names[i]).c_str(),
                 static_cast<jshort>(i == 0 ? 258 : (i == 9 ? -1 : 10 + i)));
    }
    std::vector<int> seen;
    fake->onCall(th::Op::drawPreviewCCWin, [&](const th::OutArgs& o) {
        const auto* bytes = &o.at<CaptionOptionSettingRec>(0).currProgInfoFGColor;
        seen.assign(bytes, bytes + 10);
    });
    fake->setResult(th::Op::drawPreviewCCWin, 1);
    EXPECT_EQ(th::callZ(player, "drawPreviewCCWin", kCaptionSig, s), JNI_TRUE);
    EXPECT_EQ(seen, (std::vector<int>{2, 11, 12, 13, 14, 15, 16, 17, 18, 255})) << "258 gives 2";
    th::env()->DeleteLocalRef(s);

    fake->clearCalls();
    EXPECT_EQ(th::callZ(player, "drawPreviewCCWin", kCaptionSig, nullptr), JNI_FALSE);
    EXPECT_TRUE(fake->callsOf(th::Op::drawPreviewCCWin).empty());
    EXPECT_TRUE(th::hasFatal("com_vireo_android_tvapi_impl_PlayerImpl_drawPreviewCCWin", kIse));
}

TEST_F(ParcelsLogos, ByteLogoCarriesItsSizesBehindTheBytes) {
    fake->onCall(th::Op::getLogoData, [](const th::OutArgs& o) {
        std::memcpy(o.p.at(0), "\xFF\x80", 2);
        static_cast<uint8_t*>(o.p.at(0))[pij::kLogoCapacity - 1] = 7;
        o.at<int32_t>(1) = 39;
        o.at<int32_t>(2) = -2;
    });
    fake->setResult(th::Op::getLogoData, 3);
    auto a = static_cast<jintArray>(th::callL(player, "getLogoData", "()[I"));
    std::vector<jint> v = th::ints(a);
    th::env()->DeleteLocalRef(a);
    ASSERT_EQ(v.size(), 2595u);
    EXPECT_EQ(std::vector<jint>(v.begin(), v.begin() + 3), (std::vector<jint>{255, 128, 0}))
        << "zero-extended, never -1";
    EXPECT_EQ(std::vector<jint>(v.end() - 3, v.end()), (std::vector<jint>{7, 39, -2}));

    fake->setResult(th::Op::getLogoData, 2);
    th::clearLogs();
    EXPECT_EQ(th::callL(player, "getLogoData", "()[I"), nullptr);
    EXPECT_EQ(th::logs().size(), 1u) << "a failed call logs nothing beyond its trace line";
}

TEST_F(ParcelsLogos, ArgbLogoCarriesItsSizesInFrontAndStaysInItsBuffer) {
    int32_t a = 0, b = 0;
    fake->onCall(th::Op::getChannelLogoARGB, [&](const th::OutArgs& o) {
        auto* px = static_cast<uint32_t*>(o.p.at(0));
        for (int i = 0; i < pij::kLogoCapacity; ++i) px[i] = 0xFF000000u + static_cast<uint32_t>(i);
        o.at<int32_t>(1) = a;
        o.at<int32_t>(2) = b;
    });
    fake->setResult(th::Op::getChannelLogoARGB, 1);
    auto fetch = [&](int32_t na, int32_t nb) {
        a = na, b = nb;
        auto arr = static_cast<jintArray>(th::callL(player, "getChannelLogoARGB", "()[I"));
        std::vector<jint> v = th::ints(arr);
        th::env()->DeleteLocalRef(arr);
        return v;
    };
    EXPECT_EQ(fetch(0, 0), (std::vector<jint>{1, 0}));
    EXPECT_EQ(fake->callsOf(th::Op::getChannelLogoARGB).at(0).args.at(1), pij::kLogoCapacity);
    std::vector<jint> v = fetch(39, 40);
    ASSERT_EQ(v.size(), 1602u);
    EXPECT_EQ(std::vector<jint>(v.begin(), v.begin() + 3),
              (std::vector<jint>{40, 40, static_cast<jint>(0xFF000000u)}));
    EXPECT_EQ(static_cast<uint32_t>(v.back()), 0xFF000000u + 1599);

    // Exactly the 2593-word buffer is allowed; one row more, a negative size (also two
    // negatives whose product is small), or an A + 1 past the header's int is refused.
    EXPECT_EQ(fetch(2592, 1).size(), 2595u);
    th::clearLogs();
    EXPECT_TRUE(fetch(2593, 1).empty());
    EXPECT_TRUE(fetch(-3, 5).empty());
    EXPECT_TRUE(fetch(-2, -1).empty());
    EXPECT_TRUE(fetch(0x7FFFFFFF, 0).empty());
    EXPECT_TRUE(fetch(0x7FFFFFFF, 0x7FFFFFFF).empty());
    EXPECT_EQ(th::logsContaining("refused").size(), 5u) << th::dumpLogs();
    fake->setResult(th::Op::getChannelLogoARGB, 0);
    EXPECT_TRUE(fetch(0, 0).empty());
}

// Without memory for the logo's array, both logos give the caller null and the runtime's
// OutOfMemoryError, and nothing is written into the array that was not made.
TEST_F(ParcelsLogos, ALogoArrayTheRuntimeCannotMakeStopsTheCall) {
    if (!th::jni_rules::installed()) GTEST_SKIP() << "failures are made by the JNI rules layer";
    fake->setResult(th::Op::getLogoData, 1);
    fake->setResult(th::Op::getChannelLogoARGB, 1);
    for (const char* logo : {"getLogoData", "getChannelLogoARGB"}) {
        th::jni_rules::failNextCall("NewIntArray");
        JNIEnv* e = th::env();
        jobject result = e->CallObjectMethod(player, th::playerMethod(logo, "()[I"));
        EXPECT_EQ(result, nullptr) << logo;
        EXPECT_EQ(th::takeExceptionName(), "java.lang.OutOfMemoryError") << logo;
    }
}

// ---- Without a player ----

TEST_F(ParcelsLogos, WithoutAPlayerEveryHandlerReportsAndConvertsNothing) {
    th::callV(player, "release", "()V");
    th::clearLogs();
    jobject good = obtainParcel();
    jstring key = th::env()->NewStringUTF("KEY");
    th::callV(player, "native_getRRTInformation", kOneParcel, good);
    EXPECT_EQ(th::callZ(player, "resetRrtInformation", "()Z"), JNI_FALSE);
    EXPECT_EQ(th::callZ(player, "native_getVChipRatingInfo", kTwoParcels, good, good), JNI_FALSE);
    EXPECT_EQ(th::callZ(player, "setProgramBISSKeyByNumber", kKeySig, 1, 2, key, 3), JNI_FALSE);
    EXPECT_EQ(th::callZ(player, "getEWSInfo", kTwoParcels, good, good), JNI_FALSE);
    EXPECT_EQ(th::callL(player, "getLogoData", "()[I"), nullptr);
    EXPECT_EQ(th::callL(player, "getChannelLogoARGB", "()[I"), nullptr);
    EXPECT_EQ(th::callZ(player, "drawPreviewCCWin", kCaptionSig, nullptr), JNI_FALSE);
    const std::string prefix = "com_vireo_android_tvapi_";
    EXPECT_TRUE(th::hasFatal(prefix + "impl_PlayerImpl_native_getRRTInformation",
                             "com/vireo/android/tvapi/common/exception/TvUnsupportedException"));
    for (const char* handler :
         {"common_PlayerImpl_resetRrtInformation", "impl_PlayerImpl_native_getVChipRatingInfo",
          "common_PlayerImpl_setProgramBISSKeyByNumber", "impl_PlayerImpl_getEWSInfo",
          "impl_PlayerImpl_getLogoData", "impl_PlayerImpl_getChannelLogoARGB",
          "impl_PlayerImpl_drawPreviewCCWin"}) {
        EXPECT_TRUE(th::hasFatal(prefix + handler, kIse)) << handler;
    }
    EXPECT_EQ(th::countLog(D, kSuccessLine), 0) << "nothing converted without a player";
    th::env()->DeleteLocalRef(key);
    recycle(good);
}

}  // namespace
