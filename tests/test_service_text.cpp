// Text from the player service that the managed runtime would refuse as Modified UTF-8: each
// invalid byte becomes U+FFFD, with one ERROR line per repaired text; valid text passes
// unchanged. Run through the commands that return text, the value objects that carry a name
// and the digital scan event's parcel.
#include <android/log.h>
#include <gtest/gtest.h>
#include <utils/String8.h>

#include <functional>
#include <string>
#include <vector>

#include "core/PlayerImpl.h"
#include "harness/fields.h"
#include "harness/jvm_harness.h"
#include "harness/player_test.h"
#include "marshal/multiplex.h"
#include "marshal/picture.h"
#include "marshal/satellite.h"
#include "double/fake_player.h"
#include "playerimpl_host/host_player.h"

namespace {

constexpr int E = ANDROID_LOG_ERROR;
const std::string kFffd = "\xEF\xBF\xBD";

struct TextCase {
    const char* service;   // what the service hands over
    std::string managed;   // what the managed string holds, as Modified UTF-8
    size_t repairedBytes;  // 0: passes unchanged, no line
};

const std::vector<TextCase>& cases() {
    static const std::vector<TextCase> all = {
        {"\x80", kFffd, 1},                    // a lone continuation byte
        {"\xFF\xFE", kFffd + kFffd, 2},        // bytes no sequence starts with
        {"caf\xE9", "caf" + kFffd, 1},         // three-byte lead cut by the end
        {"A\xC3", "A" + kFffd, 1},             // two-byte lead cut by the end
        {"\xE2\x82", kFffd + kFffd, 2},        // cut short: lead and its one follower
        {"ok\xC3(x", "ok" + kFffd + "(x", 1},  // cut short by an ASCII byte
        {"S\xC3\xA3o Paulo \xE2\x82\xAC", "S\xC3\xA3o Paulo \xE2\x82\xAC", 0},  // valid, as is
        {"", "", 0},
    };
    return all;
}

class ServiceText : public th::PlayerTest {
protected:
    ServiceText() : PlayerTest(kSkipInChild | kClearEvents) {}

    // Runs `fetch` once per case with the service answering `c.service`, and checks the
    // managed text and the ERROR lines.
    void check(const char* what, const std::function<std::string(const TextCase&)>& fetch) {
        for (const TextCase& c : cases()) {
            th::clearLogs();
            EXPECT_EQ(fetch(c), c.managed) << what << " given \"" << c.service << "\"";
            const auto lines = th::logsContaining("not valid Modified UTF-8");
            if (c.repairedBytes == 0) {
                EXPECT_TRUE(lines.empty()) << th::dumpLogs();
                continue;
            }
            ASSERT_EQ(lines.size(), 1u) << what << "\n" << th::dumpLogs();
            EXPECT_EQ(lines[0].prio, E);
            EXPECT_EQ(lines[0].text,
                      std::string(what) + ": the service's text is not valid Modified UTF-8; " +
                          std::to_string(c.repairedBytes) + " byte(s) replaced by U+FFFD");
        }
    }
    std::string text(jobject s) {
        std::string t = th::toStdString(static_cast<jstring>(s));
        th::env()->DeleteLocalRef(s);
        return t;
    }
    std::string name(jobject o, const char* field) {
        std::string t = th::getStr(o, field);
        th::env()->DeleteLocalRef(o);
        return t;
    }
};

TEST_F(ServiceText, CommandsThatReturnText) {
    check("getLanguageCode", [&](const TextCase& c) {
        fake->setText(th::Op::getLanguageCode, c.service);
        return text(th::callL(player, "getLanguageCode", "()Ljava/lang/String;"));
    });
    check("getCurrentRatingInformation", [&](const TextCase& c) {
        fake->setText(th::Op::getCurrentRatingInformation, c.service);
        return text(th::callL(player, "getCurrentRatingInformation", "()Ljava/lang/String;"));
    });
}

TEST_F(ServiceText, NamesInValueObjects) {
    check("getCurrentSignalInformation", [&](const TextCase& c) {
        fake->onCall(th::Op::getCurrentSignalInformation, [&](const th::OutArgs& o) {
            o.at<DtvProgramSignalInfoRec>(0).networkName = android::String8(c.service);
        });
        return name(th::callL(player, "getCurrentSignalInformation",
                              "()Lcom/vireo/android/tvapi/common/vo/DtvProgramSignalInfo;"),
                    "networkName");
    });
    check("getRFInfo", [&](const TextCase& c) {
        fake->onCall(th::Op::getRfInfo, [&](const th::OutArgs& o) {
            o.at<RfInfoRec>(0).rfName = android::String8(c.service);
        });
        return name(th::callL(player, "native_getRfInfo",
                              "(II)Lcom/vireo/android/tvapi/dtv/vo/RfInfo;", 0, 0),
                    "rfName");
    });
    check("getSatelliteInfo", [&](const TextCase& c) {
        fake->onCall(th::Op::getSatelliteInfo, [&](const th::OutArgs& o) {
            o.at<SatelliteInfoRec>(0).satName = android::String8(c.service);
        });
        return name(th::callL(player, "getSatelliteInfo",
                              "(I)Lcom/vireo/android/tvapi/dtv/dvb/dvbs/vo/SatelliteInfo;", 0),
                    "satName");
    });
}

TEST_F(ServiceText, TheDigitalScanNameFromItsParcel) {
    check("PostEvent_DtvAutoTuning", [&](const TextCase& c) {
        android::Parcel p;
        for (int32_t v = 1; v <= 11; ++v) p.writeInt32(v);
        p.writeString8(android::String8(c.service));
        p.writeInt32(5);
        p.setDataPosition(0);
        th::clearEvents();
        host::runOnServiceThread(0, [&] { fake->listener()->PostEvent_DtvAutoTuning(p); });
        std::vector<th::Event> evs = th::events();
        EXPECT_EQ(evs.size(), 1u);
        std::string t = evs.empty() ? "" : th::getStr(evs[0].obj, "rfSignalName");
        th::releaseEvents(evs);
        return t;
    });
}

}  // namespace
