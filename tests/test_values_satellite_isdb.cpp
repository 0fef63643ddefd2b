// Satellites, transponders, EWBS warnings and user locations between the player's records and
// the managed value objects, through a real VM.
#include <android/log.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "core/PlayerImpl.h"
#include "harness/fields.h"
#include "harness/jvm_harness.h"
#include "harness/player_test.h"
#include "marshal/isdb.h"
#include "marshal/satellite.h"
#include "double/fake_player.h"

namespace {

constexpr int D = ANDROID_LOG_DEBUG;
constexpr int I = ANDROID_LOG_INFO;

const char* kSat = "com/vireo/android/tvapi/dtv/dvb/dvbs/vo/SatelliteInfo";
const char* kTp = "com/vireo/android/tvapi/dtv/dvb/dvbs/vo/DvbsTransponderInfo";
const char* kGetSatSig = "(I)Lcom/vireo/android/tvapi/dtv/dvb/dvbs/vo/SatelliteInfo;";
const char* kAddSatSig = "(Lcom/vireo/android/tvapi/dtv/dvb/dvbs/vo/SatelliteInfo;)Z";
const char* kUpdSatSig = "(ILcom/vireo/android/tvapi/dtv/dvb/dvbs/vo/SatelliteInfo;)Z";
const char* kGetTpSig = "(II)Lcom/vireo/android/tvapi/dtv/dvb/dvbs/vo/DvbsTransponderInfo;";
const char* kAddTpSig = "(ILcom/vireo/android/tvapi/dtv/dvb/dvbs/vo/DvbsTransponderInfo;)Z";
const char* kUpdTpSig = "(IILcom/vireo/android/tvapi/dtv/dvb/dvbs/vo/DvbsTransponderInfo;)Z";
const char* kEwbsSig = "(I)Lcom/vireo/android/tvapi/dtv/dvb/isdb/vo/EwbsInfo;";
const char* kSetEwbsOpSig = "(II)I";
const char* kEwbsOpSig = "(I)Lcom/vireo/android/tvapi/dtv/dvb/isdb/vo/EwbsOpInfo;";
const char* kLocationSig = "(I)Lcom/vireo/android/tvapi/dtv/dvb/dvbs/vo/LocationInfo;";

// Every numeric field of the records, in record order, to compare in one go.
auto numbers(const SatelliteInfoRec& r) {
    return std::make_tuple(r.lowLOF, r.hiLOF, r.lnbType, r.lnbFreq, r.diseqcLevel, r.toneburstType,
                           r.swt10Port, r.swt11Port, r.e22KOnOff, r.lnbPwrOnOff, r.ov12VOnOff,
                           r.position, r.angle, r.numberOfTp, r.satelliteId, r.channelId,
                           r.frequency, r.mdu, r.pin, r.lnbIdx);
}
auto numbers(const DvbsTransponderInfoRec& r) {
    return std::make_tuple(r.frequency, r.symbolRate, r.polarity, r.satelliteId, r.rf, r.tpId);
}

using ValuesSatelliteIsdb = th::PlayerTest;

// ---- Satellites and transponders ----

TEST_F(ValuesSatelliteIsdb, SatelliteFieldsCrossBothWaysEachToItsOwnPlace) {
    // Each field a value of its own, each cut to its record width on the way in: lowLOF 70000
    // is 4464, diseqcLevel 300 is 44, numberOfTp 0x1FFFF is 0xFFFF and lnbIdx -1 is 0xFF.
    jobject sat = th::newObject(kSat);
    th::setStr(sat, "satName", "Astra 19.2E");
    th::fields(sat,
               "lowLOF:I=70000 hiLOF:I=10600 lnbFreq:I=7 lnbType:I=3 diseqcLevel:S=300 "
               "toneburstType:S=4 swt10Port:S=5 swt11Port:S=6 e22KOnOff:S=8 lnbPwrOnOff:S=9 "
               "ov12VOnOff:S=10 position:S=250 angle:I=192 numberOfTp:I=131071 satelliteId:S=12 "
               "channelId:S=13 frequency:I=11778 mdu:Z=1 pin:S=14 lnbIdx:S=-1",
               true);
    const android::String8 name("Astra 19.2E");
    SatelliteInfoRec want{name, 4464, 10600, 3,      7,  44, 4,     5, 6,  8,   9,
                          10,   250,  192,   0xFFFF, 12, 13, 11778, 1, 14, 0xFF};
    SatelliteInfoRec seen{};
    fake->onCall(th::Op::addSatelliteInfo,
                 [&](const th::OutArgs& o) { seen = o.at<SatelliteInfoRec>(0); });
    fake->setResult(th::Op::addSatelliteInfo, 3);
    EXPECT_EQ(th::callZ(player, "addSatelliteInfo", kAddSatSig, sat), JNI_TRUE);
    EXPECT_STREQ(seen.satName.c_str(), "Astra 19.2E");
    EXPECT_EQ(numbers(seen), numbers(want));
    th::env()->DeleteLocalRef(sat);

    // The same record back, zero-extended, with the flag byte 2 stored as it stands: it reads
    // what a plain store of 2 gives on this VM, not true.
    want.mdu = 2;
    fake->onCall(th::Op::getSatelliteInfo,
                 [&](const th::OutArgs& o) { o.at<SatelliteInfoRec>(0) = want; });
    sat = th::callL(player, "getSatelliteInfo", kGetSatSig, 3);
    ASSERT_NE(sat, nullptr);
    EXPECT_EQ(fake->callsOf(th::Op::getSatelliteInfo).at(0).args.at(0), 3);
    EXPECT_EQ(th::getStr(sat, "satName"), "Astra 19.2E");
    const std::string back =
        "lowLOF:I=4464 hiLOF:I=10600 lnbFreq:I=7 lnbType:I=3 diseqcLevel:S=44 toneburstType:S=4 "
        "swt10Port:S=5 swt11Port:S=6 e22KOnOff:S=8 lnbPwrOnOff:S=9 ov12VOnOff:S=10 "
        "position:S=250 angle:I=192 numberOfTp:I=65535 satelliteId:S=12 channelId:S=13 "
        "frequency:I=11778 pin:S=14 lnbIdx:S=255 mdu:Z=" +
        std::to_string(th::rawBooleanStore(kSat, "mdu", 2));
    EXPECT_EQ(th::fields(sat, back), back);
    EXPECT_NE(th::getZ(sat, "mdu"), JNI_TRUE);
    th::env()->DeleteLocalRef(sat);
}

// mdu is the one managed boolean reduced on its way to the service: whatever byte the field
// holds, add and update give the record 1 for any non-zero byte and 0 for 0.
TEST_F(ValuesSatelliteIsdb, TheSatelliteFlagReachesThePlayerAsZeroOrOne) {
    std::vector<int> seen;
    auto record = [&](const th::OutArgs& o) { seen.push_back(o.at<SatelliteInfoRec>(0).mdu); };
    fake->onCall(th::Op::addSatelliteInfo, record);
    fake->onCall(th::Op::updateSatelliteInfo, record);
    jclass raw = th::findClass("com/vireo/test/RawBoolean");
    jmethodID put =
        th::env()->GetStaticMethodID(raw, "put", "(Ljava/lang/Object;Ljava/lang/String;B)V");
    jobject sat = th::newObject(kSat);
    jstring mdu = th::env()->NewStringUTF("mdu");
    for (jbyte byte : {2, 0, -128, 1}) {
        th::env()->CallStaticVoidMethod(raw, put, sat, mdu, byte);
        th::failOnPendingException();
        th::callZ(player, "addSatelliteInfo", kAddSatSig, sat);
        th::callZ(player, "updateSatelliteInfo", kUpdSatSig, 1, sat);
    }
    th::env()->DeleteLocalRef(mdu);
    th::env()->DeleteLocalRef(sat);
    EXPECT_EQ(seen, (std::vector<int>{1, 1, 0, 0, 1, 1, 1, 1}));
}

TEST_F(ValuesSatelliteIsdb, UpdateCopiesAnyNameWholeAndGoesOnWithoutOne) {
    const std::string longName = std::string(20000, 'x') + "\xC3\xA9nd";  // no length limit
    std::vector<std::string> names;
    fake->onCall(th::Op::updateSatelliteInfo, [&](const th::OutArgs& o) {
        names.push_back(o.at<SatelliteInfoRec>(0).satName.c_str());
    });
    jobject sat = th::newObject(kSat);
    for (const char* name : {longName.c_str(), static_cast<const char*>(nullptr)}) {
        th::setStr(sat, "satName", name);
        th::callZ(player, "updateSatelliteInfo", kUpdSatSig, 6, sat);
    }
    th::env()->DeleteLocalRef(sat);
    EXPECT_EQ(names, (std::vector<std::string>{longName, ""})) << "a null name calls the player";
    EXPECT_TRUE(th::hasLog(D, "Attention the Dtv_DVBS_Satellite_Info Satellite Name is null"));
    EXPECT_EQ(fake->callsOf(th::Op::updateSatelliteInfo).at(0).args.at(0), 6);
}

TEST_F(ValuesSatelliteIsdb, TransponderFieldsCrossBothWays) {
    // Out: the byte polarity as it is, the others zero-extended, the frequency bit for bit.
    fake->onCall(th::Op::getTransponderInfo, [](const th::OutArgs& o) {
        o.at<DvbsTransponderInfoRec>(0) = {-5, 0xFFFF, 0xFF, 0xFF, 0x81, 0xFFFE};
    });
    jobject tp = th::callL(player, "getTransponderInfo", kGetTpSig, 2, 17);
    ASSERT_NE(tp, nullptr);
    const std::string want =
        "frequency:I=-5 symbolRate:I=65535 polarity:B=-1 satelliteId:S=255 rf:S=129 tpId:I=65534";
    EXPECT_EQ(th::fields(tp, want), want);
    th::env()->DeleteLocalRef(tp);
    auto args = fake->callsOf(th::Op::getTransponderInfo).at(0).args;
    EXPECT_EQ(args.at(0), 2);
    EXPECT_EQ(args.at(1), 17);

    // In, through add and update alike: each value cut to its record width.
    tp = th::newObject(kTp);
    th::fields(tp,
               "frequency:I=12603000 symbolRate:I=74565 polarity:B=-1 satelliteId:S=200 rf:S=7 "
               "tpId:I=65535",
               true);
    std::vector<DvbsTransponderInfoRec> seen;
    auto keep = [&](const th::OutArgs& o) { seen.push_back(o.at<DvbsTransponderInfoRec>(0)); };
    fake->onCall(th::Op::addTransponderInfo, keep);
    fake->onCall(th::Op::updateTransponderInfo, keep);
    fake->setResult(th::Op::addTransponderInfo, 1);
    EXPECT_EQ(th::callZ(player, "addTransponderInfo", kAddTpSig, 4, tp), JNI_TRUE);
    EXPECT_EQ(th::callZ(player, "updateTransponderInfo", kUpdTpSig, 4, 9, tp), JNI_FALSE);
    th::env()->DeleteLocalRef(tp);
    ASSERT_EQ(seen.size(), 2u);
    const DvbsTransponderInfoRec in{12603000, 0x2345, 0xFF, 200, 7, 65535};
    for (const auto& r : seen) EXPECT_EQ(numbers(r), numbers(in));
    EXPECT_EQ(fake->callsOf(th::Op::addTransponderInfo).at(0).args.at(0), 4);
    args = fake->callsOf(th::Op::updateTransponderInfo).at(0).args;
    EXPECT_EQ(args.at(0), 4);
    EXPECT_EQ(args.at(1), 9);
}

// ---- EWBS and user locations ----

TEST_F(ValuesSatelliteIsdb, EwbsCodeListHoldsAtMostAHundredButDataLenTellsAll) {
    int reported = 0;
    fake->setResult(th::Op::getEWBSInfo, -3);
    fake->onCall(th::Op::getEWBSInfo, [&](const th::OutArgs& o) {
        o.at<int32_t>(0) = 7;  // title type
        for (int i = 0; i < reported; ++i) o.at<std::vector<int32_t>>(1).push_back(1000 + i);
    });
    for (int n : {150, 0}) {
        SCOPED_TRACE(n);
        reported = n;
        const int listed = std::min(n, 100);
        th::clearLogs();
        jobject info = th::callL(player, "getEWBSInfo", kEwbsSig, 42);
        ASSERT_NE(info, nullptr);
        const std::string want =
            "reqAreaCode:I=42 returnCode:I=-3 titleType:I=7 dataLen:I=" + std::to_string(n);
        EXPECT_EQ(th::fields(info, want), want);
        std::vector<jint> codes(100, 0);
        for (int i = 0; i < listed; ++i) codes[i] = 1000 + i;
        EXPECT_EQ(th::getInts(info, "codeList"), codes) << "always 100 entries";
        th::env()->DeleteLocalRef(info);
        EXPECT_TRUE(th::hasLog(I, "getEWBSInfo, code = 42"));
        EXPECT_TRUE(th::hasLog(I, "list size = " + std::to_string(listed)));
        EXPECT_EQ(th::logsContaining("code[").size(), static_cast<size_t>(listed));
    }
}

TEST_F(ValuesSatelliteIsdb, EwbsOperationsAndUserLocationsPassTheirValuesThrough) {
    fake->setResult(th::Op::setEWBSOpInfo, -8);
    EXPECT_EQ(th::callI(player, "setEWBSOpInfo", kSetEwbsOpSig, 3, -4), -8);
    EXPECT_EQ(fake->callsOf(th::Op::setEWBSOpInfo).at(0).args, (std::vector<int64_t>{3, -4}));

    fake->setResult(th::Op::getEWBSOpInfo, 5);
    fake->onCall(th::Op::getEWBSOpInfo, [](const th::OutArgs& o) { o.at<int32_t>(0) = -77; });
    jobject op = th::callL(player, "getEWBSOpInfo", kEwbsOpSig, 11);
    ASSERT_NE(op, nullptr);
    EXPECT_EQ(th::fields(op, "reqOp:I= returnCode:I= value:I="),
              "reqOp:I=11 returnCode:I=5 value:I=-77");
    th::env()->DeleteLocalRef(op);

    fake->onCall(th::Op::getUserLocationInfo, [](const th::OutArgs& o) {
        o.at<LocationInfoRec>(0) = {android::String8("S\xC3\xA3o Paulo"), -1395, -235};
    });
    jobject loc = th::callL(player, "getUserLocationInfo", kLocationSig, 2);
    ASSERT_NE(loc, nullptr);
    EXPECT_EQ(th::getStr(loc, "locationName"), "S\xC3\xA3o Paulo");
    EXPECT_EQ(th::fields(loc, "longitude:I= latitude:I="), "longitude:I=-1395 latitude:I=-235");
    th::env()->DeleteLocalRef(loc);
    EXPECT_EQ(fake->callsOf(th::Op::getUserLocationInfo).at(0).args.at(0), 2);
}

TEST_F(ValuesSatelliteIsdb, WithoutAPlayerEveryHandlerReportsAndAnswersNeutrally) {
    th::callV(player, "release", "()V");
    th::clearLogs();
    // Null value objects: nothing is read before the player is looked at.
    EXPECT_EQ(th::callL(player, "getSatelliteInfo", kGetSatSig, 0), nullptr);
    EXPECT_EQ(th::callZ(player, "updateSatelliteInfo", kUpdSatSig, 0, nullptr), JNI_FALSE);
    EXPECT_EQ(th::callZ(player, "addSatelliteInfo", kAddSatSig, nullptr), JNI_FALSE);
    EXPECT_EQ(th::callL(player, "getTransponderInfo", kGetTpSig, 0, 0), nullptr);
    EXPECT_EQ(th::callZ(player, "updateTransponderInfo", kUpdTpSig, 0, 0, nullptr), JNI_FALSE);
    EXPECT_EQ(th::callZ(player, "addTransponderInfo", kAddTpSig, 0, nullptr), JNI_FALSE);
    EXPECT_EQ(th::callL(player, "getEWBSInfo", kEwbsSig, 1), nullptr);
    EXPECT_EQ(th::callI(player, "setEWBSOpInfo", kSetEwbsOpSig, 1, 2), 0);
    EXPECT_EQ(th::callL(player, "getEWBSOpInfo", kEwbsOpSig, 1), nullptr);
    EXPECT_EQ(th::callL(player, "getUserLocationInfo", kLocationSig, 1), nullptr);
    for (const char* h : {"getSatelliteInfo", "updateSatelliteInfo", "addSatelliteInfo",
                          "getTransponderInfo", "updateTransponderInfo", "addTransponderInfo",
                          "getEWBSInfo", "setEWBSOpInfo", "getEWBSOpInfo", "getUserLocationInfo"}) {
        EXPECT_TRUE(th::hasFatal(std::string("com_vireo_android_tvapi_impl_PlayerImpl_") + h,
                                 "java/lang/IllegalStateException"))
            << h;
    }
}

}  // namespace
