// Satellites, transponders, EWBS warnings and user locations between the player's records and
// the managed value objects, through a real VM.
#include <android/log.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/PlayerImpl.h"
#include "harness/fields.h"
#include "harness/jvm_harness.h"
#include "harness/player_test.h"
#include "marshal/isdb.h"
#include "marshal/satellite.h"
#include "playerimpl_host/fake_player.h"

namespace {

constexpr int D = ANDROID_LOG_DEBUG;
constexpr int I = ANDROID_LOG_INFO;

const char* kSat = "com/vireo/android/tvapi/dtv/dvb/dvbs/vo/SatelliteInfo";
const char* kTp = "com/vireo/android/tvapi/dtv/dvb/dvbs/vo/DvbsTransponderInfo";
const char* kSatSig = "Lcom/vireo/android/tvapi/dtv/dvb/dvbs/vo/SatelliteInfo;";
const char* kTpSig = "Lcom/vireo/android/tvapi/dtv/dvb/dvbs/vo/DvbsTransponderInfo;";

class ValuesSatelliteIsdb : public th::PlayerTest {};

// ---- Satellites ----

TEST_F(ValuesSatelliteIsdb, AddedSatelliteReachesThePlayerNarrowedToItsRecord) {
    jobject sat = th::newObject(kSat);
    th::setStr(sat, "satName", "Astra 19.2E");
    th::setI(sat, "lowLOF", 70000);  // 70000 mod 65536
    th::setI(sat, "hiLOF", 10600);
    th::setI(sat, "lnbFreq", 7);  // the record holds lnbType first: paired by name
    th::setI(sat, "lnbType", 3);
    th::setS(sat, "diseqcLevel", 300);  // 300 mod 256
    th::setS(sat, "position", 255);
    th::setI(sat, "angle", 192);
    th::setI(sat, "numberOfTp", 0x1FFFF);
    th::setS(sat, "satelliteId", 12);
    th::setI(sat, "frequency", 11778);
    th::setZ(sat, "mdu", JNI_TRUE);
    th::setS(sat, "lnbIdx", -1);

    SatelliteInfoRec seen{};
    std::string name;
    fake->onCall("addSatelliteInfo", [&](const host::OutArgs& o) {
        const auto& r = o.at<SatelliteInfoRec>(0);
        seen.lowLOF = r.lowLOF, seen.hiLOF = r.hiLOF, seen.lnbFreq = r.lnbFreq;
        seen.lnbType = r.lnbType, seen.diseqcLevel = r.diseqcLevel, seen.position = r.position;
        seen.angle = r.angle, seen.numberOfTp = r.numberOfTp, seen.satelliteId = r.satelliteId;
        seen.frequency = r.frequency, seen.mdu = r.mdu, seen.lnbIdx = r.lnbIdx;
        name = r.satName.c_str();
    });
    fake->setResult("addSatelliteInfo", 3);
    EXPECT_EQ(
        th::callZ(player, "addSatelliteInfo", (std::string("(") + kSatSig + ")Z").c_str(), sat),
        JNI_TRUE);
    EXPECT_EQ(name, "Astra 19.2E");
    EXPECT_EQ(seen.lowLOF, 4464);
    EXPECT_EQ(seen.hiLOF, 10600);
    EXPECT_EQ(seen.lnbFreq, 7);
    EXPECT_EQ(seen.lnbType, 3);
    EXPECT_EQ(seen.diseqcLevel, 44);
    EXPECT_EQ(seen.position, 255);
    EXPECT_EQ(seen.angle, 192);
    EXPECT_EQ(seen.numberOfTp, 0xFFFF);
    EXPECT_EQ(seen.satelliteId, 12);
    EXPECT_EQ(seen.frequency, 11778);
    EXPECT_EQ(seen.mdu, 1);
    EXPECT_EQ(seen.lnbIdx, 0xFF);

    fake->setResult("addSatelliteInfo", 2);
    EXPECT_EQ(
        th::callZ(player, "addSatelliteInfo", (std::string("(") + kSatSig + ")Z").c_str(), sat),
        JNI_FALSE)
        << "bit 0 of the answer";
    th::env()->DeleteLocalRef(sat);
}

TEST_F(ValuesSatelliteIsdb, UpdateCopiesAnyNameWholeAndGoesOnWithoutOne) {
    const std::string sig = std::string("(I") + kSatSig + ")Z";
    jobject sat = th::newObject(kSat);
    std::string longName(20000, 'x');
    longName += "\xC3\xA9nd";  // a two-byte character at the very end
    th::setStr(sat, "satName", longName.c_str());
    std::vector<std::string> names;
    fake->onCall("updateSatelliteInfo", [&](const host::OutArgs& o) {
        names.push_back(o.at<SatelliteInfoRec>(0).satName.c_str());
    });
    fake->setResult("updateSatelliteInfo", 1);
    EXPECT_EQ(th::callZ(player, "updateSatelliteInfo", sig.c_str(), 6, sat), JNI_TRUE);
    ASSERT_EQ(names.size(), 1u);
    EXPECT_EQ(names[0], longName) << "no length limit";
    EXPECT_EQ(fake->callsOf("updateSatelliteInfo")[0].args[0], 6);

    th::setStr(sat, "satName", nullptr);
    th::clearLogs();
    EXPECT_EQ(th::callZ(player, "updateSatelliteInfo", sig.c_str(), 7, sat), JNI_TRUE);
    EXPECT_TRUE(th::hasLog(D, "Attention the Dtv_DVBS_Satellite_Info Satellite Name is null"));
    ASSERT_EQ(names.size(), 2u) << "a null name still calls the player";
    EXPECT_EQ(names[1], "");
    th::env()->DeleteLocalRef(sat);
}

TEST_F(ValuesSatelliteIsdb, SatelliteRecordComesBackZeroExtended) {
    const std::string sig = std::string("(I)") + kSatSig;
    fake->onCall("getSatelliteInfo", [](const host::OutArgs& o) {
        auto& r = o.at<SatelliteInfoRec>(0);
        r.satName.setTo("Hot Bird");
        r.lowLOF = 0xFFFF;
        r.hiLOF = 10600;
        r.lnbType = 1;
        r.lnbFreq = 2;
        r.diseqcLevel = 0x80;
        r.position = 0xFF;
        r.angle = 130;
        r.satelliteId = 0xFE;
        r.frequency = 0x8000;
        r.mdu = 2;  // a flag byte other than 1
        r.pin = 9;
        r.lnbIdx = 0xFF;
    });
    jobject sat = th::callL(player, "getSatelliteInfo", sig.c_str(), 3);
    ASSERT_NE(sat, nullptr);
    EXPECT_EQ(fake->callsOf("getSatelliteInfo")[0].args[0], 3);
    bool isNull = true;
    EXPECT_EQ(th::getStr(sat, "satName", &isNull), "Hot Bird");
    EXPECT_EQ(th::getI(sat, "lowLOF"), 65535);
    EXPECT_EQ(th::getI(sat, "hiLOF"), 10600);
    EXPECT_EQ(th::getI(sat, "lnbType"), 1);
    EXPECT_EQ(th::getI(sat, "lnbFreq"), 2);
    EXPECT_EQ(th::getS(sat, "diseqcLevel"), 128);
    EXPECT_EQ(th::getS(sat, "position"), 255);
    EXPECT_EQ(th::getI(sat, "angle"), 130);
    EXPECT_EQ(th::getS(sat, "satelliteId"), 254);
    EXPECT_EQ(th::getI(sat, "frequency"), 32768);
    EXPECT_EQ(th::getS(sat, "pin"), 9);
    EXPECT_EQ(th::getS(sat, "lnbIdx"), 255);
    // The byte goes out as it stands; this VM keeps bit 0 of a stored boolean, so 2 reads
    // false here where the device's runtime keeps the byte.
    EXPECT_EQ(th::getZ(sat, "mdu"), JNI_FALSE);
    th::env()->DeleteLocalRef(sat);

    // An index the player does not know: an object anyway, with an empty (not null) name.
    fake->onCall("getSatelliteInfo", [](const host::OutArgs&) {});
    sat = th::callL(player, "getSatelliteInfo", sig.c_str(), 99);
    ASSERT_NE(sat, nullptr);
    EXPECT_EQ(th::getStr(sat, "satName", &isNull), "");
    EXPECT_FALSE(isNull);
    EXPECT_EQ(th::getI(sat, "lowLOF"), 0);
    th::env()->DeleteLocalRef(sat);
}

// ---- Transponders ----

TEST_F(ValuesSatelliteIsdb, TransponderBytesComeBackAsTheirManagedTypes) {
    fake->onCall("getTransponderInfo", [](const host::OutArgs& o) {
        auto& r = o.at<DvbsTransponderInfoRec>(0);
        r.frequency = -5;
        r.symbolRate = 0xFFFF;
        r.polarity = 0xFF;
        r.satelliteId = 0xFF;
        r.rf = 0x81;
        r.tpId = 0xFFFE;
    });
    jobject tp =
        th::callL(player, "getTransponderInfo", (std::string("(II)") + kTpSig).c_str(), 2, 17);
    ASSERT_NE(tp, nullptr);
    auto call = fake->callsOf("getTransponderInfo").at(0);
    EXPECT_EQ(call.args[0], 2);
    EXPECT_EQ(call.args[1], 17);
    EXPECT_EQ(th::getI(tp, "frequency"), -5) << "32 bits as they are";
    EXPECT_EQ(th::getI(tp, "symbolRate"), 65535);
    EXPECT_EQ(th::getB(tp, "polarity"), -1) << "the byte as it is";
    EXPECT_EQ(th::getS(tp, "satelliteId"), 255);
    EXPECT_EQ(th::getS(tp, "rf"), 0x81);
    EXPECT_EQ(th::getI(tp, "tpId"), 0xFFFE);
    th::env()->DeleteLocalRef(tp);
}

TEST_F(ValuesSatelliteIsdb, TransponderReachesThePlayerForAddAndUpdate) {
    jobject tp = th::newObject(kTp);
    th::setI(tp, "frequency", 12603000);
    th::setI(tp, "symbolRate", 0x12345);  // cut to 16 bits
    th::setB(tp, "polarity", -1);
    th::setS(tp, "satelliteId", 200);
    th::setS(tp, "rf", 7);
    th::setI(tp, "tpId", 65535);
    std::vector<DvbsTransponderInfoRec> seen;
    auto keep = [&](const host::OutArgs& o) { seen.push_back(o.at<DvbsTransponderInfoRec>(0)); };
    fake->onCall("addTransponderInfo", keep);
    fake->onCall("updateTransponderInfo", keep);
    fake->setResult("addTransponderInfo", 1);
    fake->setResult("updateTransponderInfo", 0x10);

    EXPECT_EQ(
        th::callZ(player, "addTransponderInfo", (std::string("(I") + kTpSig + ")Z").c_str(), 4, tp),
        JNI_TRUE);
    EXPECT_EQ(th::callZ(player, "updateTransponderInfo",
                        (std::string("(II") + kTpSig + ")Z").c_str(), 4, 9, tp),
              JNI_FALSE);
    ASSERT_EQ(seen.size(), 2u);
    for (const auto& r : seen) {
        EXPECT_EQ(r.frequency, 12603000);
        EXPECT_EQ(r.symbolRate, 0x2345);
        EXPECT_EQ(r.polarity, 0xFF);
        EXPECT_EQ(r.satelliteId, 200);
        EXPECT_EQ(r.rf, 7);
        EXPECT_EQ(r.tpId, 65535);
    }
    EXPECT_EQ(fake->callsOf("addTransponderInfo")[0].args[0], 4);
    auto upd = fake->callsOf("updateTransponderInfo")[0];
    EXPECT_EQ(upd.args[0], 4);
    EXPECT_EQ(upd.args[1], 9);
    th::env()->DeleteLocalRef(tp);
}

// ---- EWBS and user locations ----

TEST_F(ValuesSatelliteIsdb, EwbsCodeListHoldsAtMostAHundredButDataLenTellsAll) {
    const std::string sig = "(I)Lcom/vireo/android/tvapi/dtv/dvb/isdb/vo/EwbsInfo;";
    fake->setResult("getEWBSInfo", -3);
    fake->onCall("getEWBSInfo", [](const host::OutArgs& o) {
        o.at<int32_t>(0) = 7;  // title type
        auto& codes = o.at<std::vector<int32_t>>(1);
        for (int i = 0; i < 150; ++i) codes.push_back(1000 + i);
    });
    jobject info = th::callL(player, "getEWBSInfo", sig.c_str(), 0x2A);
    ASSERT_NE(info, nullptr);
    EXPECT_TRUE(th::hasLog(I, "getEWBSInfo, code = 42"));
    EXPECT_TRUE(th::hasLog(I, "ret = -3"));
    EXPECT_EQ(th::getI(info, "reqAreaCode"), 42);
    EXPECT_EQ(th::getI(info, "returnCode"), -3);
    EXPECT_EQ(th::getI(info, "titleType"), 7);
    EXPECT_EQ(th::getI(info, "dataLen"), 150);
    EXPECT_TRUE(th::hasLog(I, "list size = 100"));
    EXPECT_EQ(th::logsContaining("code[").size(), 100u);
    EXPECT_TRUE(th::hasLog(I, "code[99] = 1099"));
    auto list = static_cast<jintArray>(th::getL(info, "codeList", "[I"));
    ASSERT_NE(list, nullptr);
    ASSERT_EQ(th::env()->GetArrayLength(list), 100);
    std::vector<jint> got(100);
    th::env()->GetIntArrayRegion(list, 0, 100, got.data());
    for (int i = 0; i < 100; ++i) EXPECT_EQ(got[i], 1000 + i) << i;
    th::env()->DeleteLocalRef(list);
    th::env()->DeleteLocalRef(info);

    // No codes: a list of 100 zeros, no code line.
    th::clearLogs();
    fake->onCall("getEWBSInfo", [](const host::OutArgs&) {});
    info = th::callL(player, "getEWBSInfo", sig.c_str(), 1);
    ASSERT_NE(info, nullptr);
    EXPECT_EQ(th::getI(info, "dataLen"), 0);
    EXPECT_EQ(th::getI(info, "titleType"), 0);
    EXPECT_TRUE(th::hasLog(I, "list size = 0"));
    EXPECT_TRUE(th::logsContaining("code[").empty());
    list = static_cast<jintArray>(th::getL(info, "codeList", "[I"));
    ASSERT_EQ(th::env()->GetArrayLength(list), 100);
    th::env()->GetIntArrayRegion(list, 0, 100, got.data());
    for (int i = 0; i < 100; ++i) EXPECT_EQ(got[i], 0) << i;
    th::env()->DeleteLocalRef(list);
    th::env()->DeleteLocalRef(info);
}

TEST_F(ValuesSatelliteIsdb, EwbsOperationsPassTheirValuesThrough) {
    fake->setResult("setEWBSOpInfo", -8);
    EXPECT_EQ(th::callI(player, "setEWBSOpInfo", "(II)I", 3, -4), -8);
    EXPECT_TRUE(th::hasLog(D, "setEWBSOpInfo, 3 -4"));
    EXPECT_TRUE(th::hasLog(D, "ret = -8"));
    auto set = fake->callsOf("setEWBSOpInfo").at(0);
    EXPECT_EQ(set.args[0], 3);
    EXPECT_EQ(set.args[1], -4);

    fake->setResult("getEWBSOpInfo", 5);
    fake->onCall("getEWBSOpInfo", [](const host::OutArgs& o) { o.at<int32_t>(0) = -77; });
    jobject op = th::callL(player, "getEWBSOpInfo",
                           "(I)Lcom/vireo/android/tvapi/dtv/dvb/isdb/vo/EwbsOpInfo;", 11);
    ASSERT_NE(op, nullptr);
    EXPECT_EQ(th::getI(op, "reqOp"), 11);
    EXPECT_EQ(th::getI(op, "returnCode"), 5);
    EXPECT_EQ(th::getI(op, "value"), -77);
    EXPECT_TRUE(th::hasLog(I, "getEWBSOpInfo, op = 11"));
    EXPECT_TRUE(th::hasLog(D, "ret = 5, value = -77"));
    th::env()->DeleteLocalRef(op);
}

TEST_F(ValuesSatelliteIsdb, UserLocationKeepsItsSign) {
    fake->onCall("getUserLocationInfo", [](const host::OutArgs& o) {
        auto& r = o.at<LocationInfoRec>(0);
        r.locationName.setTo("S\xC3\xA3o Paulo");
        r.longitude = -1395;
        r.latitude = -235;
    });
    jobject loc = th::callL(player, "getUserLocationInfo",
                            "(I)Lcom/vireo/android/tvapi/dtv/dvb/dvbs/vo/LocationInfo;", 2);
    ASSERT_NE(loc, nullptr);
    EXPECT_EQ(fake->callsOf("getUserLocationInfo")[0].args[0], 2);
    bool isNull = true;
    EXPECT_EQ(th::getStr(loc, "locationName", &isNull), "S\xC3\xA3o Paulo");
    EXPECT_EQ(th::getI(loc, "longitude"), -1395) << "not 64141";
    EXPECT_EQ(th::getI(loc, "latitude"), -235);
    th::env()->DeleteLocalRef(loc);
}

// ---- Without a player ----

TEST_F(ValuesSatelliteIsdb, WithoutAPlayerEveryHandlerReportsAndAnswersNeutrally) {
    th::callV(player, "release", "()V");
    th::clearLogs();
    jobject sat = th::newObject(kSat);
    jobject tp = th::newObject(kTp);
    const char* ise = "java/lang/IllegalStateException";
    EXPECT_EQ(th::callL(player, "getSatelliteInfo", (std::string("(I)") + kSatSig).c_str(), 0),
              nullptr);
    EXPECT_EQ(th::callZ(player, "updateSatelliteInfo", (std::string("(I") + kSatSig + ")Z").c_str(),
                        0, sat),
              JNI_FALSE);
    EXPECT_EQ(
        th::callZ(player, "addSatelliteInfo", (std::string("(") + kSatSig + ")Z").c_str(), sat),
        JNI_FALSE);
    EXPECT_EQ(th::callL(player, "getTransponderInfo", (std::string("(II)") + kTpSig).c_str(), 0, 0),
              nullptr);
    EXPECT_EQ(th::callZ(player, "updateTransponderInfo",
                        (std::string("(II") + kTpSig + ")Z").c_str(), 0, 0, tp),
              JNI_FALSE);
    EXPECT_EQ(
        th::callZ(player, "addTransponderInfo", (std::string("(I") + kTpSig + ")Z").c_str(), 0, tp),
        JNI_FALSE);
    EXPECT_EQ(th::callL(player, "getEWBSInfo",
                        "(I)Lcom/vireo/android/tvapi/dtv/dvb/isdb/vo/EwbsInfo;", 1),
              nullptr);
    EXPECT_EQ(th::callI(player, "setEWBSOpInfo", "(II)I", 1, 2), 0);
    EXPECT_EQ(th::callL(player, "getEWBSOpInfo",
                        "(I)Lcom/vireo/android/tvapi/dtv/dvb/isdb/vo/EwbsOpInfo;", 1),
              nullptr);
    EXPECT_EQ(th::callL(player, "getUserLocationInfo",
                        "(I)Lcom/vireo/android/tvapi/dtv/dvb/dvbs/vo/LocationInfo;", 1),
              nullptr);
    for (const char* h : {"getSatelliteInfo", "updateSatelliteInfo", "addSatelliteInfo",
                          "getTransponderInfo", "updateTransponderInfo", "addTransponderInfo",
                          "getEWBSInfo", "setEWBSOpInfo", "getEWBSOpInfo", "getUserLocationInfo"}) {
        EXPECT_TRUE(th::hasFatal(std::string("com_vireo_android_tvapi_impl_PlayerImpl_") + h, ise))
            << h << "\n"
            << th::dumpLogs();
    }
    th::env()->DeleteLocalRef(sat);
    th::env()->DeleteLocalRef(tp);
}

}  // namespace
