// Multiplex, RF, NIT, demodulator and ATSC alert value objects, read back through the VM.
#include <android/log.h>
#include <gtest/gtest.h>

#include <cstring>
#include <sstream>
#include <string>
#include <tuple>

#include "core/PlayerImpl.h"
#include "harness/fields.h"
#include "harness/jvm_harness.h"
#include "harness/player_test.h"
#include "marshal/atsc_eas.h"
#include "marshal/demod.h"
#include "marshal/multiplex.h"
#include "double/fake_player.h"

namespace {

constexpr int D = ANDROID_LOG_DEBUG;
constexpr int E = ANDROID_LOG_ERROR;
const char* kIpc = "com/vireo/android/tvapi/common/exception/TvIpcException";
const char* kState = "java/lang/IllegalStateException";
const char* kUnsupported = "com/vireo/android/tvapi/common/exception/TvUnsupportedException";

const char* kMuxSig = "()Lcom/vireo/android/tvapi/dtv/dvb/vo/DvbMuxInfo;";
const char* kMuxBySig = "(IS)Lcom/vireo/android/tvapi/dtv/dvb/vo/DvbMuxInfo;";
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

using ValuesMuxDemodEas = th::PlayerTest;

TEST_F(ValuesMuxDemodEas, WithoutAPlayerEachBuilderLogsItsClassAndReturnsNull) {
    th::callV(player, "release", "()V");
    th::clearLogs();
    // The exported handler, its report and what the managed call returned.
    const std::tuple<const char*, int, const char*, jobject> cases[] = {
        {"getCurrentMuxInfo", 2508, kIpc, th::callL(player, "getCurrentMuxInfo", kMuxSig)},
        {"getMuxInfoByProgramNumber", 2584, kIpc,
         th::callL(player, "getMuxInfoByProgramNumber", kMuxBySig, 1, jshort{2})},
        {"getRFInfo", 2389, kIpc, th::callL(player, "native_getRfInfo", kRfSig, 1, 2)},
        {"native_getNitFrequencyByDtvRegion", 2944, kState,
         th::callL(player, "native_getNitFrequencyByDtvRegion", "(I)[I", 3)},
        {"getDTVDemodVersion", 3270, kState,
         th::callL(player, "native_getDTVDemodVersion", kVersionSig, 0)},
        {"getDemodDVBTInfo", 3378, kState, th::callL(player, "getDemodDVBTInfo", kDvbtSig)},
        {"getDemodDVBCInfo", 3457, kState, th::callL(player, "getDemodDVBCInfo", kDvbcSig)},
        {"getEASInProgress", 3721, kIpc, th::callL(player, "getEASInProgress", kEasSig)},
    };
    for (const auto& [handler, line, cls, result] : cases) {
        EXPECT_EQ(result, nullptr) << handler;
        EXPECT_EQ(th::countLog(E, fatal(handler, line, cls)), 1) << th::dumpLogs();
    }
}

TEST_F(ValuesMuxDemodEas, UnsupportedAlertMethodsOnlyReportAndLeaveThePlayerAlone) {
    EXPECT_EQ(th::callL(player, "getTSUpdateInfo", kTsSig, 5), nullptr);
    th::callV(player, "setEasProgressDone", "()V");
    th::callV(player, "setEasAudioDesired", "(Z)V", JNI_TRUE);
    EXPECT_EQ(th::callZ(player, "getEasProgressSatus", "()Z"), JNI_FALSE);
    EXPECT_TRUE(fake->calls().empty());
    for (const auto& [name, line] :
         {std::pair{"getTSUpdateInfo", 3668}, std::pair{"setEasProgressDone", 3681},
          std::pair{"setEasAudioDesired", 3693}, std::pair{"getEasProgressSatus", 3705}}) {
        EXPECT_EQ(th::countLog(E, fatal(name, line, kUnsupported)), 1) << name;
    }
    EXPECT_EQ(th::logs().size(), 8u) << "a trace and a report each: " << th::dumpLogs();
}

// ---- Multiplex, RF and NIT ----

TEST_F(ValuesMuxDemodEas, BothMultiplexQueriesZeroExtendAndPassTheirArguments) {
    // In record order, every field a value of its own; rfNumber 200 has its top bit set.
    const DvbMuxInfoRec rec{0xFFFF, 0x8000, 3,    0x1234, 0x233A, 0x3001, 0xFFFE, 200, 474000,
                            -1,     111,    6875, 0xFF,   0xABCD, 1,      0x90,   8,   0xF0};
    auto fill = [rec](const th::OutArgs& o) { o.at<DvbMuxInfoRec>(0) = rec; };
    fake->onCall(th::Op::getCurrentMuxInfo, fill);
    fake->onCall(th::Op::getMuxInfoByProgramNumber, fill);
    for (jobject m :
         {th::callL(player, "getCurrentMuxInfo", kMuxSig),
          th::callL(player, "getMuxInfoByProgramNumber", kMuxBySig, 1001, jshort{-5})}) {
        ASSERT_NE(m, nullptr);
        const std::string want =
            "satTableId:I=65535 networkTableID:I=32768 refCnt:I=3 transportStreamId:I=4660 "
            "originalNetworkId:I=9018 networkId:I=12289 cellID:I=65534 rfNumber:S=200 "
            "frequency:I=474000 lossSignalFrequency:I=-1 lossSignalStartTime:I=111 "
            "symbRate:I=6875 modulationMode:S=255 plpID:I=43981 lpCoding:Z=1 satID:S=144 "
            "bandwidth:S=8 polarityPilotsReserved:I=240";
        EXPECT_EQ(th::fields(m, want), want);
        th::env()->DeleteLocalRef(m);
    }
    auto args = fake->callsOf(th::Op::getMuxInfoByProgramNumber).at(0).args;
    EXPECT_EQ(args.at(0), 1001);
    EXPECT_EQ(args.at(1), -5) << "a negative short passes unchanged";
}

TEST_F(ValuesMuxDemodEas, RfInfoCarriesItsArgumentsAndName) {
    fake->onCall(th::Op::getRfInfo, [](const th::OutArgs& o) {
        o.at<RfInfoRec>(0) = {0xFFF0, 177500, 1, android::String8("CH 5A")};
    });
    jobject rf = th::callL(player, "native_getRfInfo", kRfSig, 2, -7);
    ASSERT_NE(rf, nullptr);
    EXPECT_EQ(th::fields(rf, "rfPhyNum:S=-16 frequency:I=177500 isVHF:Z=1"),
              "rfPhyNum:S=-16 frequency:I=177500 isVHF:Z=1");
    EXPECT_EQ(th::getStr(rf, "rfName"), "CH 5A");
    th::env()->DeleteLocalRef(rf);
    auto args = fake->callsOf(th::Op::getRfInfo).at(0).args;
    EXPECT_EQ(args.at(0), 2);
    EXPECT_EQ(args.at(1), -7);
}

TEST_F(ValuesMuxDemodEas, NitFrequenciesArePairedAndARefusalIsNull) {
    fake->setResult(th::Op::getNitFrequencyByDtvRegion, 1);
    fake->onCall(th::Op::getNitFrequencyByDtvRegion, [](const th::OutArgs& o) {
        o.at<int32_t>(0) = 506000;
        o.at<int32_t>(1) = -2;
    });
    auto a =
        static_cast<jintArray>(th::callL(player, "native_getNitFrequencyByDtvRegion", "(I)[I", 9));
    EXPECT_EQ(th::ints(a), (std::vector<jint>{506000, -2}));
    th::env()->DeleteLocalRef(a);
    EXPECT_EQ(fake->callsOf(th::Op::getNitFrequencyByDtvRegion).at(0).args.at(0), 9);

    // Only bit 0 of the answer counts: 2 is a refusal.
    th::clearLogs();
    fake->setResult(th::Op::getNitFrequencyByDtvRegion, 2);
    EXPECT_EQ(th::callL(player, "native_getNitFrequencyByDtvRegion", "(I)[I", 9), nullptr);
    EXPECT_EQ(th::countLog(E, fatal("native_getNitFrequencyByDtvRegion", 2950, kState)), 1)
        << th::dumpLogs();
}

// ---- Demodulator ----

TEST_F(ValuesMuxDemodEas, DemodVersionKeepsEveryByteZeroExtended) {
    fake->onCall(th::Op::getDTVDemodVersion, [](const th::OutArgs& o) {
        // name "A", 0, "C", 0xC3; version "01"; build "02"; changelist "1234567", 0xFF
        std::memcpy(&o.at<DtvDemodVersionRec>(0), "A\0C\30301021234567\377", 16);
    });
    jobject v = th::callL(player, "native_getDTVDemodVersion", kVersionSig, 4);
    ASSERT_NE(v, nullptr);
    EXPECT_EQ(th::numbers<jchar>(v, "name", "[C"), "65,0,67,195") << "a zero byte is kept inside";
    EXPECT_EQ(th::numbers<jchar>(v, "version", "[C"), "48,49");
    EXPECT_EQ(th::numbers<jchar>(v, "build", "[C"), "48,50");
    EXPECT_EQ(th::numbers<jchar>(v, "changelist", "[C"), "49,50,51,52,53,54,55,255");
    th::env()->DeleteLocalRef(v);
    EXPECT_EQ(fake->callsOf(th::Op::getDTVDemodVersion).at(0).args.at(0), 4);
}

TEST_F(ValuesMuxDemodEas, DemodStateCarriesItsBitsOrIsNullSilentlyWhenRefused) {
    fake->onCall(th::Op::getDemodDVBTInfo, [](const th::OutArgs& o) {
        o.at<DtvDemodDvbtInfoRec>(0) = {0x8001, 0x80, 1.5f, -0.25f, 0xFFFF, 0xF0, 0xF1, 0xF2, 0xF3,
                                        0xF4,   0xF5, 0xF6, 0xF7,   0xF8,   0xF9, 0xFA, 0xFB, 0xFC};
    });
    fake->onCall(th::Op::getDemodDVBCInfo, [](const th::OutArgs& o) {
        o.at<DtvDemodDvbcInfoRec>(0) = {3, 40000,  0x81, 0xFFFFFFFFu, 1, 0,  0xFE, 123456,
                                        2, 0x8000, 99,   0x80000000u, 7, 64, 6900};
    });
    fake->setResult(th::Op::getDemodDVBTInfo, 1);
    fake->setResult(th::Op::getDemodDVBCInfo, 1);

    jobject t = th::callL(player, "getDemodDVBTInfo", kDvbtSig);
    ASSERT_NE(t, nullptr);
    const std::string dvbt =
        "u16Version:S=-32767 u16DemodState:B=-128 u16ChannelLength:S=-1 u8Fft:B=-16 "
        "u8Constel:B=-15 u8Gi:B=-14 u8HpCr:B=-13 u8LpCr:B=-12 u8Hiearchy:B=-11 u8Fd:B=-10 "
        "u8ChLen:B=-9 u8SnrSel:B=-8 u8PertoneNum:B=-7 u8DigAci:B=-6 u8FlagCi:B=-5 u8TdCoef:B=-4";
    EXPECT_EQ(th::fields(t, dvbt), dvbt);
    EXPECT_FLOAT_EQ(th::getF(t, "SfoValue"), 1.5f);
    EXPECT_FLOAT_EQ(th::getF(t, "TotalCfo"), -0.25f);
    th::env()->DeleteLocalRef(t);

    jobject c = th::callL(player, "getDemodDVBCInfo", kDvbcSig);
    ASSERT_NE(c, nullptr);
    const std::string dvbc =
        "u16Version:S=3 u16SymbolRate:S=-25536 eQamMode:B=-127 u32IFFreq:I=-1 bSpecInv:Z=1 "
        "bSerialTS:Z=0 u8SarValue:B=-2 u32ChkScanTimeStart:I=123456 eLockStatus:B=2 "
        "u16Strength:S=-32768 u16Quality:S=99 u32Intp:I=-2147483648 u32FcFs:I=7 u8Qam:B=64 "
        "u16SymbolRateHal:S=6900";
    EXPECT_EQ(th::fields(c, dvbc), dvbc);
    th::env()->DeleteLocalRef(c);

    // Bit 0 clear: refused, null, and nothing beyond the trace line.
    for (const auto& [method, sig] :
         {std::pair{"getDemodDVBTInfo", kDvbtSig}, std::pair{"getDemodDVBCInfo", kDvbcSig}}) {
        th::clearLogs();
        fake->setResult(th::opNamed(method).value(), 2);
        EXPECT_EQ(th::callL(player, method, sig), nullptr);
        EXPECT_EQ(th::logs().size(), 1u) << th::dumpLogs();
        EXPECT_TRUE(th::hasLog(D, method));
    }
}

// ---- ATSC alert ----

TEST_F(ValuesMuxDemodEas, AlertArraysAreWholeWithTheRecordsMixedSignedness) {
    fake->onCall(th::Op::getEASInProgress, [](const th::OutArgs& o) {
        auto& r = o.at<MwAtscEasInfoRec>(0);
        std::memset(&r, 0, sizeof r);  // no location or exception counted: whole arrays anyway
        r.u8VerNum = static_cast<int8_t>(0xFF);
        r.u16EAS_EventID = static_cast<int16_t>(0x8000);
        std::memcpy(r.au8EAS_OriginatorCode, "WX\xC8", 3);
        r.u32EventStartTime = 0xFFFFFFF0u;
        r.u16DetailsMajorNum = 0xFFFF;
        r.u16DetailsMinorNum = 0x8000;
        r.astException[0] = {2, 0x8000, 0xFFFF, INT16_MIN};
        r.astLocationCode[0] = {INT8_MIN, -1, -1};
        r.astLocationCode[30] = {12, 3, 4567};
        std::memcpy(r.au8EAS_EventCode, "RWT", 3);
        r.au8NatActText[127] = static_cast<int8_t>(0xFF);
        std::memcpy(r.au8AlertText, "A\xFF", 2);
        r.au8AlertText[511] = 0x7F;
    });
    jobject a = th::callL(player, "getEASInProgress", kEasSig);
    ASSERT_NE(a, nullptr);
    JNIEnv* e = th::env();
    const std::string top =
        "u8VerNum:I=-1 u16EAS_EventID:I=-32768 u32EventStartTime:I=-16 "
        "u16DetailsMajorNum:I=65535 u16DetailsMinorNum:I=32768";
    EXPECT_EQ(th::fields(a, top), top);
    EXPECT_EQ(th::numbers<jint>(a, "au8EAS_OriginatorCode", "[I"), "87,88,-56");

    // Entries of the 31-entry arrays: 0x8000 is 32768 in the unsigned major number and -32768
    // in the signed source id next to it; the flag byte 2 is stored as it is.
    const std::string vo = "com/vireo/android/tvapi/dtv/vo/";
    auto expectEntry = [&](const char* field, const char* cls, jsize i, const std::string& want) {
        auto arr = static_cast<jobjectArray>(th::getL(a, field, ("[L" + vo + cls + ";").c_str()));
        EXPECT_EQ(e->GetArrayLength(arr), 31) << field;
        jobject x = e->GetObjectArrayElement(arr, i);
        EXPECT_EQ(th::fields(x, want), want) << field << "[" << i << "]";
        e->DeleteLocalRef(x);
        e->DeleteLocalRef(arr);
    };
    const std::string flag2 =
        std::to_string(th::rawBooleanStore((vo + "VapiPsipEasException").c_str(), "bInBandRef", 2));
    expectEntry("astException", "VapiPsipEasException", 0,
                "bInBandRef:Z=" + flag2 +
                    " u16ExcMajorNum:I=32768 u16ExcMinorNum:I=65535 u16ExcOOB_SrcID:I=-32768");
    expectEntry("astLocationCode", "VapiPsipEasLocationCode", 0,
                "u8StateCode:I=-128 u8CountySubdivision:I=-1 u16CountyCode:I=-1");
    expectEntry("astLocationCode", "VapiPsipEasLocationCode", 30,
                "u8StateCode:I=12 u8CountySubdivision:I=3 u16CountyCode:I=4567");

    // Text bytes as signed shorts, every array at its full length past the zeros.
    auto zeros = [](int n) {  // "0," n times
        std::string s;
        for (int i = 0; i < n; ++i) s += "0,";
        return s;
    };
    EXPECT_EQ(th::numbers<jshort>(a, "au8EAS_EventCode", "[S"), "82,87,84,0,0");
    EXPECT_EQ(th::numbers<jshort>(a, "au8NatActText", "[S"), zeros(127) + "-1");
    EXPECT_EQ(th::numbers<jshort>(a, "au8AlertText", "[S"), "65,-1," + zeros(509) + "127");
    e->DeleteLocalRef(a);
}

}  // namespace
