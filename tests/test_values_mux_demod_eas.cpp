// Multiplex, RF, NIT, demodulator and ATSC alert value objects, read back through the VM.
#include <android/log.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "core/PlayerImpl.h"
#include "harness/fields.h"
#include "harness/jvm_harness.h"
#include "harness/player_test.h"
#include "marshal/atsc_eas.h"
#include "marshal/demod.h"
#include "marshal/multiplex.h"
#include "playerimpl_host/fake_player.h"

namespace {

constexpr int D = ANDROID_LOG_DEBUG;
constexpr int E = ANDROID_LOG_ERROR;
const char* kIpc = "com/vireo/android/tvapi/common/exception/TvIpcException";
const char* kState = "java/lang/IllegalStateException";
const char* kUnsupported = "com/vireo/android/tvapi/common/exception/TvUnsupportedException";

const char* kMuxSig = "Lcom/vireo/android/tvapi/dtv/dvb/vo/DvbMuxInfo;";
const char* kRfSig = "(II)Lcom/vireo/android/tvapi/dtv/vo/RfInfo;";
const char* kVersionSig = "(I)Lcom/vireo/android/tvapi/dtv/vo/DtvDemodVersion;";
const char* kDvbtSig = "()Lcom/vireo/android/tvapi/dtv/dvb/dvbt/DtvDemodDvbtInfo;";
const char* kDvbcSig = "()Lcom/vireo/android/tvapi/dtv/dvb/dvbc/DtvDemodDvbcInfo;";
const char* kEasSig = "()Lcom/vireo/android/tvapi/dtv/vo/MwAtscEasInfo;";
const char* kTsSig = "(I)Lcom/vireo/android/tvapi/dtv/atsc/vo/AtscScanChannelNotify;";

std::string fatal(const char* handler, int line, const char* cls) {
    return th::fatalLine(std::string("com_vireo_android_tvapi_impl_PlayerImpl_") + handler, line,
                         cls);
}

class ValuesMuxDemodEas : public th::PlayerTest {
protected:
    void dropPlayer() {
        th::callV(player, "release", "()V");
        th::clearLogs();
    }
};

TEST_F(ValuesMuxDemodEas, WithoutAPlayerEachBuilderLogsItsClassAndReturnsNull) {
    dropPlayer();
    JNIEnv* e = th::env();
    struct Case {
        const char* handler;
        int line;
        const char* cls;
        jobject result;
    };
    std::string mux = std::string("()") + kMuxSig;
    std::string muxBy = std::string("(IS)") + kMuxSig;
    const Case cases[] = {
        {"getCurrentMuxInfo", 2508, kIpc, th::callL(player, "getCurrentMuxInfo", mux.c_str())},
        {"getMuxInfoByProgramNumber", 2584, kIpc,
         th::callL(player, "getMuxInfoByProgramNumber", muxBy.c_str(), 1, jshort{2})},
        {"getRFInfo", 2389, kIpc, th::callL(player, "native_getRfInfo", kRfSig, 1, 2)},
        {"native_getNitFrequencyByDtvRegion", 2944, kState,
         th::callL(player, "native_getNitFrequencyByDtvRegion", "(I)[I", 3)},
        {"getDTVDemodVersion", 3270, kState,
         th::callL(player, "native_getDTVDemodVersion", kVersionSig, 0)},
        {"getDemodDVBTInfo", 3378, kState, th::callL(player, "getDemodDVBTInfo", kDvbtSig)},
        {"getDemodDVBCInfo", 3457, kState, th::callL(player, "getDemodDVBCInfo", kDvbcSig)},
        {"getEASInProgress", 3721, kIpc, th::callL(player, "getEASInProgress", kEasSig)},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.handler);
        EXPECT_EQ(c.result, nullptr);
        EXPECT_EQ(th::countLog(E, fatal(c.handler, c.line, c.cls)), 1) << th::dumpLogs();
    }
    EXPECT_TRUE(th::hasLog(D, "getRFInfo"));
    EXPECT_FALSE(e->ExceptionCheck());
    renewPlayer();
}

TEST_F(ValuesMuxDemodEas, UnsupportedAlertMethodsOnlyReportWithOrWithoutAPlayer) {
    for (int round = 0; round < 2; ++round) {
        SCOPED_TRACE(round == 0 ? "with a player" : "without a player");
        if (round == 1) dropPlayer();
        fake->clearCalls();
        th::clearLogs();
        EXPECT_EQ(th::callL(player, "getTSUpdateInfo", kTsSig, 5), nullptr);
        th::callV(player, "setEasProgressDone", "()V");
        th::callV(player, "setEasAudioDesired", "(Z)V", JNI_TRUE);
        EXPECT_EQ(th::callZ(player, "getEasProgressSatus", "()Z"), JNI_FALSE);
        EXPECT_TRUE(fake->calls().empty()) << "the player is never touched";
        const struct {
            const char* name;
            int line;
        } rows[] = {{"getTSUpdateInfo", 3668},
                    {"setEasProgressDone", 3681},
                    {"setEasAudioDesired", 3693},
                    {"getEasProgressSatus", 3705}};
        for (const auto& r : rows) {
            EXPECT_TRUE(th::hasLog(D, r.name)) << r.name;
            EXPECT_EQ(th::countLog(E, fatal(r.name, r.line, kUnsupported)), 1) << th::dumpLogs();
        }
        EXPECT_EQ(th::logs().size(), 8u) << th::dumpLogs();
    }
    renewPlayer();
}

// ---- Multiplex, RF and NIT ----

DvbMuxInfoRec sampleMux() {
    DvbMuxInfoRec r{};
    r.satTableId = 0xFFFF;
    r.networkTableID = 0x8000;
    r.refCnt = 3;
    r.transportStreamId = 0x1234;
    r.originalNetworkId = 0x233A;
    r.networkId = 0x3001;
    r.cellID = 0xFFFE;
    r.rfNumber = 200;
    r.frequency = 474000;
    r.lossSignalFrequency = -1;
    r.lossSignalStartTime = 111;
    r.symbRate = 6875;
    r.modulationMode = 0xFF;
    r.plpID = 0xABCD;
    r.lpCoding = 1;
    r.satID = 0x90;
    r.bandwidth = 8;
    r.polarityPilotsReserved = 0xF0;
    return r;
}

void expectSampleMux(jobject m) {
    ASSERT_NE(m, nullptr);
    EXPECT_EQ(th::getI(m, "satTableId"), 65535);
    EXPECT_EQ(th::getI(m, "networkTableID"), 32768);
    EXPECT_EQ(th::getI(m, "refCnt"), 3);
    EXPECT_EQ(th::getI(m, "transportStreamId"), 0x1234);
    EXPECT_EQ(th::getI(m, "originalNetworkId"), 0x233A);
    EXPECT_EQ(th::getI(m, "networkId"), 0x3001);
    EXPECT_EQ(th::getI(m, "cellID"), 0xFFFE);
    EXPECT_EQ(th::getS(m, "rfNumber"), 200) << "zero-extended, not -56";
    EXPECT_EQ(th::getI(m, "frequency"), 474000);
    EXPECT_EQ(th::getI(m, "lossSignalFrequency"), -1);
    EXPECT_EQ(th::getI(m, "lossSignalStartTime"), 111);
    EXPECT_EQ(th::getI(m, "symbRate"), 6875);
    EXPECT_EQ(th::getS(m, "modulationMode"), 255);
    EXPECT_EQ(th::getI(m, "plpID"), 0xABCD);
    EXPECT_EQ(th::getZ(m, "lpCoding"), JNI_TRUE);
    EXPECT_EQ(th::getS(m, "satID"), 0x90);
    EXPECT_EQ(th::getS(m, "bandwidth"), 8);
    EXPECT_EQ(th::getI(m, "polarityPilotsReserved"), 0xF0);
}

TEST_F(ValuesMuxDemodEas, BothMultiplexQueriesZeroExtendAndPassTheirArguments) {
    const DvbMuxInfoRec rec = sampleMux();
    auto fill = [rec](const host::OutArgs& o) { o.at<DvbMuxInfoRec>(0) = rec; };
    fake->onCall("getCurrentMuxInfo", fill);
    fake->onCall("getMuxInfoByProgramNumber", fill);

    std::string sig = std::string("()") + kMuxSig;
    jobject m = th::callL(player, "getCurrentMuxInfo", sig.c_str());
    expectSampleMux(m);
    th::env()->DeleteLocalRef(m);

    sig = std::string("(IS)") + kMuxSig;
    m = th::callL(player, "getMuxInfoByProgramNumber", sig.c_str(), 1001, jshort{-5});
    expectSampleMux(m);
    th::env()->DeleteLocalRef(m);
    auto calls = fake->callsOf("getMuxInfoByProgramNumber");
    ASSERT_EQ(calls.size(), 1u);
    ASSERT_GE(calls[0].args.size(), 2u);
    EXPECT_EQ(calls[0].args[0], 1001);
    EXPECT_EQ(calls[0].args[1], -5) << "a negative short passes unchanged";
    EXPECT_TRUE(th::hasLog(D, "getCurrentMuxInfo"));
    EXPECT_TRUE(th::hasLog(D, "getMuxInfoByProgramNumber"));
}

TEST_F(ValuesMuxDemodEas, RfInfoCarriesItsArgumentsAndName) {
    std::string name;
    fake->onCall("getRfInfo", [&](const host::OutArgs& o) {
        auto& r = o.at<RfInfoRec>(0);
        r.rfPhyNum = 0xFFF0;
        r.frequency = 177500;
        r.isVHF = 1;
        r.rfName = android::String8(name.c_str());
    });
    jobject rf = th::callL(player, "native_getRfInfo", kRfSig, 2, -7);
    ASSERT_NE(rf, nullptr);
    EXPECT_EQ(th::getS(rf, "rfPhyNum"), -16);
    EXPECT_EQ(th::getI(rf, "frequency"), 177500);
    EXPECT_EQ(th::getZ(rf, "isVHF"), JNI_TRUE);
    bool isNull = true;
    EXPECT_EQ(th::getStr(rf, "rfName", &isNull), "");
    EXPECT_FALSE(isNull) << "an empty name is an empty string";
    th::env()->DeleteLocalRef(rf);
    auto calls = fake->callsOf("getRfInfo");
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].args[0], 2);
    EXPECT_EQ(calls[0].args[1], -7);

    name = "CH 5A";
    rf = th::callL(player, "native_getRfInfo", kRfSig, 0, 0);
    EXPECT_EQ(th::getStr(rf, "rfName", nullptr), "CH 5A");
    th::env()->DeleteLocalRef(rf);
}

TEST_F(ValuesMuxDemodEas, NitFrequenciesArePairedAndARefusalIsNull) {
    fake->setResult("getNitFrequencyByDtvRegion", 1);
    fake->onCall("getNitFrequencyByDtvRegion", [](const host::OutArgs& o) {
        o.at<int32_t>(0) = 506000;
        o.at<int32_t>(1) = -2;
    });
    auto a =
        static_cast<jintArray>(th::callL(player, "native_getNitFrequencyByDtvRegion", "(I)[I", 9));
    ASSERT_NE(a, nullptr);
    ASSERT_EQ(th::env()->GetArrayLength(a), 2);
    jint v[2];
    th::env()->GetIntArrayRegion(a, 0, 2, v);
    EXPECT_EQ(v[0], 506000);
    EXPECT_EQ(v[1], -2);
    th::env()->DeleteLocalRef(a);
    EXPECT_EQ(fake->callsOf("getNitFrequencyByDtvRegion")[0].args[0], 9);
    EXPECT_EQ(th::countLog(E, fatal("native_getNitFrequencyByDtvRegion", 2950, kState)), 0);

    // Only bit 0 of the answer counts: 2 is a refusal.
    fake->setResult("getNitFrequencyByDtvRegion", 2);
    EXPECT_EQ(th::callL(player, "native_getNitFrequencyByDtvRegion", "(I)[I", 9), nullptr);
    EXPECT_EQ(th::countLog(E, fatal("native_getNitFrequencyByDtvRegion", 2950, kState)), 1)
        << th::dumpLogs();
    EXPECT_EQ(th::countLog(D, "native_getNitFrequencyByDtvRegion"), 2);
}

// ---- Demodulator ----

TEST_F(ValuesMuxDemodEas, DemodVersionKeepsEveryByteZeroExtended) {
    fake->onCall("getDTVDemodVersion", [](const host::OutArgs& o) {
        auto& r = o.at<DtvDemodVersionRec>(0);
        std::memcpy(r.name, "A\0C\xC3", 4);
        std::memcpy(r.version, "01", 2);
        std::memcpy(r.build, "02", 2);
        std::memcpy(r.changelist, "1234567\xFF", 8);
    });
    jobject v = th::callL(player, "native_getDTVDemodVersion", kVersionSig, 4);
    ASSERT_NE(v, nullptr);
    EXPECT_EQ(th::numbers<jchar>(v, "name", "[C"), "65,0,67,195") << "a zero byte is kept inside";
    EXPECT_EQ(th::numbers<jchar>(v, "version", "[C"), "48,49");
    EXPECT_EQ(th::numbers<jchar>(v, "build", "[C"), "48,50");
    EXPECT_EQ(th::numbers<jchar>(v, "changelist", "[C"), "49,50,51,52,53,54,55,255");
    th::env()->DeleteLocalRef(v);
    EXPECT_EQ(fake->callsOf("getDTVDemodVersion")[0].args[0], 4);
    EXPECT_TRUE(th::hasLog(D, "getDTVDemodVersion"));
}

TEST_F(ValuesMuxDemodEas, DvbtStateCarriesBytesAndFloatsOrNullWhenRefused) {
    fake->onCall("getDemodDVBTInfo", [](const host::OutArgs& o) {
        auto& r = o.at<DtvDemodDvbtInfoRec>(0);
        r.u16Version = 0x8001;
        r.u16DemodState = 0x80;
        r.SfoValue = 1.5f;
        r.TotalCfo = -0.25f;
        r.u16ChannelLength = 0xFFFF;
        uint8_t* bytes = &r.u8Fft;
        for (int i = 0; i < 13; ++i) bytes[i] = static_cast<uint8_t>(0xF0 + i);
    });
    fake->setResult("getDemodDVBTInfo", 1);
    jobject t = th::callL(player, "getDemodDVBTInfo", kDvbtSig);
    ASSERT_NE(t, nullptr);
    EXPECT_EQ(th::getS(t, "u16Version"), static_cast<jshort>(0x8001));
    EXPECT_EQ(th::getB(t, "u16DemodState"), -128);
    EXPECT_FLOAT_EQ(th::getF(t, "SfoValue"), 1.5f);
    EXPECT_FLOAT_EQ(th::getF(t, "TotalCfo"), -0.25f);
    EXPECT_EQ(th::getS(t, "u16ChannelLength"), -1);
    const char* names[] = {"u8Fft",      "u8Constel", "u8Gi",    "u8HpCr",   "u8LpCr",
                           "u8Hiearchy", "u8Fd",      "u8ChLen", "u8SnrSel", "u8PertoneNum",
                           "u8DigAci",   "u8FlagCi",  "u8TdCoef"};
    for (int i = 0; i < 13; ++i)
        EXPECT_EQ(th::getB(t, names[i]), static_cast<jbyte>(0xF0 + i)) << names[i];
    th::env()->DeleteLocalRef(t);

    th::clearLogs();
    fake->setResult("getDemodDVBTInfo", 2);  // bit 0 clear: refused
    EXPECT_EQ(th::callL(player, "getDemodDVBTInfo", kDvbtSig), nullptr);
    ASSERT_EQ(th::logs().size(), 1u) << "nothing beyond the trace line: " << th::dumpLogs();
    EXPECT_TRUE(th::hasLog(D, "getDemodDVBTInfo"));
}

TEST_F(ValuesMuxDemodEas, DvbcStateKeepsBitsOrIsNullSilently) {
    fake->onCall("getDemodDVBCInfo", [](const host::OutArgs& o) {
        auto& r = o.at<DtvDemodDvbcInfoRec>(0);
        r.u16Version = 3;
        r.u16SymbolRate = 40000;
        r.eQamMode = 0x81;
        r.u32IFFreq = 0xFFFFFFFFu;
        r.bSpecInv = 1;
        r.bSerialTS = 0;
        r.u8SarValue = 0xFE;
        r.u32ChkScanTimeStart = 123456;
        r.eLockStatus = 2;
        r.u16Strength = 0x8000;
        r.u16Quality = 99;
        r.u32Intp = 0x80000000u;
        r.u32FcFs = 7;
        r.u8Qam = 64;
        r.u16SymbolRateHal = 6900;
    });
    fake->setResult("getDemodDVBCInfo", 1);
    jobject c = th::callL(player, "getDemodDVBCInfo", kDvbcSig);
    ASSERT_NE(c, nullptr);
    EXPECT_EQ(th::getS(c, "u16Version"), 3);
    EXPECT_EQ(th::getS(c, "u16SymbolRate"), -25536);
    EXPECT_EQ(th::getB(c, "eQamMode"), static_cast<jbyte>(0x81));
    EXPECT_EQ(th::getI(c, "u32IFFreq"), -1);
    EXPECT_EQ(th::getZ(c, "bSpecInv"), JNI_TRUE);
    EXPECT_EQ(th::getZ(c, "bSerialTS"), JNI_FALSE);
    EXPECT_EQ(th::getB(c, "u8SarValue"), -2);
    EXPECT_EQ(th::getI(c, "u32ChkScanTimeStart"), 123456);
    EXPECT_EQ(th::getB(c, "eLockStatus"), 2);
    EXPECT_EQ(th::getS(c, "u16Strength"), -32768);
    EXPECT_EQ(th::getS(c, "u16Quality"), 99);
    EXPECT_EQ(th::getI(c, "u32Intp"), static_cast<jint>(0x80000000u));
    EXPECT_EQ(th::getI(c, "u32FcFs"), 7);
    EXPECT_EQ(th::getB(c, "u8Qam"), 64);
    EXPECT_EQ(th::getS(c, "u16SymbolRateHal"), 6900);
    th::env()->DeleteLocalRef(c);

    th::clearLogs();
    fake->setResult("getDemodDVBCInfo", 0);
    EXPECT_EQ(th::callL(player, "getDemodDVBCInfo", kDvbcSig), nullptr);
    ASSERT_EQ(th::logs().size(), 1u) << th::dumpLogs();
    EXPECT_TRUE(th::hasLog(D, "getDemodDVBCInfo"));
}

// ---- ATSC alert ----

TEST_F(ValuesMuxDemodEas, AlertArraysAreWholeWithTheRecordsMixedSignedness) {
    fake->onCall("getEASInProgress", [](const host::OutArgs& o) {
        auto& r = o.at<MwAtscEasInfoRec>(0);
        std::memset(&r, 0, sizeof r);
        r.u8VerNum = static_cast<int8_t>(0xFF);
        r.u16EAS_EventID = static_cast<int16_t>(0x8000);
        r.au8EAS_OriginatorCode[0] = 'W';
        r.au8EAS_OriginatorCode[1] = 'X';
        r.au8EAS_OriginatorCode[2] = static_cast<int8_t>(0xC8);
        r.u8AlertTimeRemain = 100;
        r.u32EventStartTime = 0xFFFFFFF0u;
        r.u16EventDuration = -30;
        r.u8AlertPriority = static_cast<int8_t>(0xC8);
        r.u16DetailsMajorNum = 0xFFFF;
        r.u16DetailsMinorNum = 0x8000;
        r.u8LocationCodeCount = 0;  // the arrays are whole all the same
        r.u8ExceptionCount = 0;
        r.astException[0] = {2, 0x8000, 0xFFFF, static_cast<int16_t>(0x8000)};
        r.astException[30] = {1, 7, 8, 9};
        r.astLocationCode[0] = {static_cast<int8_t>(0x80), static_cast<int8_t>(0xFF),
                                static_cast<int16_t>(0xFFFF)};
        r.astLocationCode[30] = {12, 3, 4567};
        std::memcpy(r.au8EAS_EventCode, "RWT", 3);
        r.au8NatActText[127] = static_cast<int8_t>(0xFF);
        r.au8AlertText[0] = 0x41;
        r.au8AlertText[1] = static_cast<int8_t>(0xFF);
        r.au8AlertText[511] = 0x7F;
    });
    jobject a = th::callL(player, "getEASInProgress", kEasSig);
    ASSERT_NE(a, nullptr);
    JNIEnv* e = th::env();

    EXPECT_EQ(th::getI(a, "u8VerNum"), -1);
    EXPECT_EQ(th::getI(a, "u16EAS_EventID"), -32768);
    EXPECT_EQ(th::numbers<jint>(a, "au8EAS_OriginatorCode", "[I"), "87,88,-56");
    EXPECT_EQ(th::getI(a, "u8AlertTimeRemain"), 100);
    EXPECT_EQ(th::getI(a, "u32EventStartTime"), -16);
    EXPECT_EQ(th::getI(a, "u16EventDuration"), -30);
    EXPECT_EQ(th::getI(a, "u8AlertPriority"), -56);
    EXPECT_EQ(th::getI(a, "u16DetailsMajorNum"), 65535);
    EXPECT_EQ(th::getI(a, "u16DetailsMinorNum"), 32768);
    EXPECT_EQ(th::getI(a, "u8LocationCodeCount"), 0);
    EXPECT_EQ(th::getI(a, "u8ExceptionCount"), 0);

    auto exc = static_cast<jobjectArray>(
        th::getL(a, "astException", "[Lcom/vireo/android/tvapi/dtv/vo/VapiPsipEasException;"));
    ASSERT_EQ(e->GetArrayLength(exc), 31);
    jobject x = e->GetObjectArrayElement(exc, 0);
    EXPECT_EQ(th::getI(x, "u16ExcMajorNum"), 32768) << "unsigned: zero-extended";
    EXPECT_EQ(th::getI(x, "u16ExcMinorNum"), 65535);
    EXPECT_EQ(th::getI(x, "u16ExcOOB_SrcID"), -32768) << "signed: sign-extended";
    EXPECT_EQ(
        th::getZ(x, "bInBandRef"),
        th::rawBooleanStore("com/vireo/android/tvapi/dtv/vo/VapiPsipEasException", "bInBandRef", 2))
        << "the flag byte 2 is stored as it is";
    EXPECT_NE(th::getZ(x, "bInBandRef"), JNI_TRUE);
    e->DeleteLocalRef(x);
    x = e->GetObjectArrayElement(exc, 30);
    EXPECT_EQ(th::getZ(x, "bInBandRef"), JNI_TRUE);
    EXPECT_EQ(th::getI(x, "u16ExcMajorNum") * 100 + th::getI(x, "u16ExcMinorNum") * 10 +
                  th::getI(x, "u16ExcOOB_SrcID"),
              789);
    e->DeleteLocalRef(x);
    e->DeleteLocalRef(exc);

    auto loc = static_cast<jobjectArray>(th::getL(
        a, "astLocationCode", "[Lcom/vireo/android/tvapi/dtv/vo/VapiPsipEasLocationCode;"));
    ASSERT_EQ(e->GetArrayLength(loc), 31);
    x = e->GetObjectArrayElement(loc, 0);
    EXPECT_EQ(th::getI(x, "u8StateCode"), -128);
    EXPECT_EQ(th::getI(x, "u8CountySubdivision"), -1);
    EXPECT_EQ(th::getI(x, "u16CountyCode"), -1);
    e->DeleteLocalRef(x);
    x = e->GetObjectArrayElement(loc, 30);
    EXPECT_EQ(th::getI(x, "u8StateCode"), 12);
    EXPECT_EQ(th::getI(x, "u8CountySubdivision"), 3);
    EXPECT_EQ(th::getI(x, "u16CountyCode"), 4567);
    e->DeleteLocalRef(x);
    e->DeleteLocalRef(loc);

    EXPECT_EQ(th::numbers<jshort>(a, "au8EAS_EventCode", "[S"), "82,87,84,0,0");
    std::string nat = th::numbers<jshort>(a, "au8NatActText", "[S");
    EXPECT_EQ(std::count(nat.begin(), nat.end(), ',') + 1, 128);
    EXPECT_EQ(nat.substr(nat.size() - 3), ",-1");
    std::string alert = th::numbers<jshort>(a, "au8AlertText", "[S");
    EXPECT_EQ(std::count(alert.begin(), alert.end(), ',') + 1, 512)
        << "the full length, past the zero";
    EXPECT_EQ(alert.substr(0, 6), "65,-1,");
    EXPECT_EQ(alert.substr(alert.size() - 4), ",127");
    e->DeleteLocalRef(a);

    EXPECT_TRUE(th::hasLog(D, "getEASInProgress"));
    EXPECT_TRUE(th::hasLog(D, "RETURN  jobject_EasInfo"));
}

}  // namespace
