#include "playerimpl_host/fake_player.h"

namespace host {

std::atomic<int> FakePlayer::sLiveFakes{0};

FakePlayer::FakePlayer() { sLiveFakes.fetch_add(1); }
FakePlayer::~FakePlayer() { sLiveFakes.fetch_sub(1); }

void FakePlayer::onDisconnect() { record("disconnect", {}, {}); }

void FakePlayer::setResult(const std::string& op, int64_t value) {
    std::lock_guard<std::mutex> guard(mLock);
    mResults[op] = value;
}

void FakePlayer::setText(const std::string& op, const std::string& text) {
    std::lock_guard<std::mutex> guard(mLock);
    mTexts[op] = text;
}

void FakePlayer::onCall(const std::string& op, std::function<void(const OutArgs&)> hook) {
    std::lock_guard<std::mutex> guard(mLock);
    mHooks[op] = std::move(hook);
}

std::vector<Call> FakePlayer::calls() const {
    std::lock_guard<std::mutex> guard(mLock);
    return mCalls;
}

std::vector<Call> FakePlayer::callsOf(const std::string& op) const {
    std::vector<Call> out;
    for (const Call& c : calls()) {
        if (c.op == op) out.push_back(c);
    }
    return out;
}

void FakePlayer::clearCalls() {
    std::lock_guard<std::mutex> guard(mLock);
    mCalls.clear();
}

void FakePlayer::fire(std::function<void(PlayerImplListener&)> event, int thread) {
    android::sp<PlayerImplListener> l = listener();
    if (l == nullptr) return;
    runOnServiceThread(thread, [&] { event(*l); });
}

int64_t FakePlayer::record(const char* op, std::vector<int64_t> args, std::vector<void*> outs) {
    std::function<void(const OutArgs&)> hook;
    int64_t result = 0;
    {
        std::lock_guard<std::mutex> guard(mLock);
        mCalls.push_back(Call{op, std::move(args)});
        auto r = mResults.find(op);
        if (r != mResults.end()) result = r->second;
        auto h = mHooks.find(op);
        if (h != mHooks.end()) hook = h->second;
    }
    if (hook) hook(OutArgs{std::move(outs)});
    return result;
}

android::String8 FakePlayer::text(const char* op) const {
    std::lock_guard<std::mutex> guard(mLock);
    auto t = mTexts.find(op);
    return t == mTexts.end() ? android::String8() : android::String8(t->second.c_str());
}

namespace {
std::mutex gLastLock;
android::wp<FakePlayer> gLast;
}  // namespace

void useFakePlayer() {
    setConnectFactory([]() -> android::sp<PlayerImpl> {
        android::sp<FakePlayer> fake = new FakePlayer();
        std::lock_guard<std::mutex> guard(gLastLock);
        gLast = fake;
        return fake;
    });
}

android::sp<FakePlayer> lastFakePlayer() {
    std::lock_guard<std::mutex> guard(gLastLock);
    return gLast.promote();
}

// Every operation, in slot order: record, run the test's hook, answer the test's value.
void FakePlayer::slot00_unused() { record("slot00_unused", {}, {}); }
void FakePlayer::slot01_unused() { record("slot01_unused", {}, {}); }
void FakePlayer::slot02_unused() { record("slot02_unused", {}, {}); }
void FakePlayer::slot03_unused() { record("slot03_unused", {}, {}); }
void FakePlayer::slot04_unused() { record("slot04_unused", {}, {}); }
void FakePlayer::slot05_unused() { record("slot05_unused", {}, {}); }
void FakePlayer::slot06_unused() { record("slot06_unused", {}, {}); }
void FakePlayer::slot07_unused() { record("slot07_unused", {}, {}); }
void FakePlayer::slot08_unused() { record("slot08_unused", {}, {}); }
void FakePlayer::slot09_unused() { record("slot09_unused", {}, {}); }
void FakePlayer::slot10_unused() { record("slot10_unused", {}, {}); }
void FakePlayer::slot11_unused() { record("slot11_unused", {}, {}); }
void FakePlayer::slot12_unused() { record("slot12_unused", {}, {}); }
ProxyBool FakePlayer::startPcModeAtuoTune() {
    return static_cast<ProxyBool>(record("startPcModeAtuoTune", {}, {}));
}
ProxyBool FakePlayer::closeTeletext() {
    return static_cast<ProxyBool>(record("closeTeletext", {}, {}));
}
ProxyBool FakePlayer::stopCc() {
    return static_cast<ProxyBool>(record("stopCc", {}, {}));
}
void FakePlayer::getAspectRatio(VideoArcInfoRec& out) { record("getAspectRatio", {reinterpret_cast<int64_t>(&out)}, {static_cast<void*>(&out)}); }
int32_t FakePlayer::getPhaseRange() {
    return static_cast<int32_t>(record("getPhaseRange", {}, {}));
}
void FakePlayer::getVideoInfo(VideoInfoRec& out) { record("getVideoInfo", {reinterpret_cast<int64_t>(&out)}, {static_cast<void*>(&out)}); }
int32_t FakePlayer::getVideoStandard() {
    return static_cast<int32_t>(record("getVideoStandard", {}, {}));
}
int32_t FakePlayer::getVideoStandardDetectionState() {
    return static_cast<int32_t>(record("getVideoStandardDetectionState", {}, {}));
}
ProxyBool FakePlayer::doesCcExist() {
    return static_cast<ProxyBool>(record("doesCcExist", {}, {}));
}
ProxyBool FakePlayer::isHdmiMode() {
    return static_cast<ProxyBool>(record("isHdmiMode", {}, {}));
}
ProxyBool FakePlayer::isSignalStable() {
    return static_cast<ProxyBool>(record("isSignalStable", {}, {}));
}
ProxyBool FakePlayer::hasTeletextSignal() {
    return static_cast<ProxyBool>(record("hasTeletextSignal", {}, {}));
}
ProxyBool FakePlayer::hasTeletextClockSignal() {
    return static_cast<ProxyBool>(record("hasTeletextClockSignal", {}, {}));
}
ProxyBool FakePlayer::isTeletextDisplayed() {
    return static_cast<ProxyBool>(record("isTeletextDisplayed", {}, {}));
}
ProxyBool FakePlayer::isTeletextSubtitleChannel() {
    return static_cast<ProxyBool>(record("isTeletextSubtitleChannel", {}, {}));
}
ProxyBool FakePlayer::openTeletext(int32_t mode) {
    return static_cast<ProxyBool>(record("openTeletext", {static_cast<int64_t>(mode)}, {}));
}
ProxyBool FakePlayer::sendTeletextCommand(int32_t command) {
    return static_cast<ProxyBool>(record("sendTeletextCommand", {static_cast<int64_t>(command)}, {}));
}
ProxyBool FakePlayer::setTeletextLanguageGroup(int32_t group) {
    return static_cast<ProxyBool>(record("setTeletextLanguageGroup", {static_cast<int64_t>(group)}, {}));
}
ProxyBool FakePlayer::openPAT(int32_t mode) {
    return static_cast<ProxyBool>(record("openPAT", {static_cast<int64_t>(mode)}, {}));
}
ProxyBool FakePlayer::setHPosition(int32_t value) {
    return static_cast<ProxyBool>(record("setHPosition", {static_cast<int64_t>(value)}, {}));
}
ProxyBool FakePlayer::setPhase(int32_t value) {
    return static_cast<ProxyBool>(record("setPhase", {static_cast<int64_t>(value)}, {}));
}
ProxyBool FakePlayer::setSize(int32_t value) {
    return static_cast<ProxyBool>(record("setSize", {static_cast<int64_t>(value)}, {}));
}
ProxyBool FakePlayer::setVPosition(int32_t value) {
    return static_cast<ProxyBool>(record("setVPosition", {static_cast<int64_t>(value)}, {}));
}
ProxyBool FakePlayer::startCc() {
    return static_cast<ProxyBool>(record("startCc", {}, {}));
}
ProxyBool FakePlayer::setMirror(bool enable) {
    return static_cast<ProxyBool>(record("setMirror", {static_cast<int64_t>(enable)}, {}));
}
ProxyBool FakePlayer::disableAutoScartOut() {
    return static_cast<ProxyBool>(record("disableAutoScartOut", {}, {}));
}
ProxyBool FakePlayer::enableAutoScartOut() {
    return static_cast<ProxyBool>(record("enableAutoScartOut", {}, {}));
}
ProxyBool FakePlayer::sendMheg5Command(int16_t command) {
    return static_cast<ProxyBool>(record("sendMheg5Command", {static_cast<int64_t>(command)}, {}));
}
ProxyBool FakePlayer::sendMheg5IcsCommand(int32_t command, int16_t param) {
    return static_cast<ProxyBool>(record("sendMheg5IcsCommand", {static_cast<int64_t>(command), static_cast<int64_t>(param)}, {}));
}
ProxyBool FakePlayer::isMheg5Running() {
    return static_cast<ProxyBool>(record("isMheg5Running", {}, {}));
}
void FakePlayer::initOfflineDetection() { record("initOfflineDetection", {}, {}); }
ProxyBool FakePlayer::detectInputSource(int32_t source, int32_t flag) {
    return static_cast<ProxyBool>(record("detectInputSource", {static_cast<int64_t>(source), static_cast<int64_t>(flag)}, {}));
}
ProxyBool FakePlayer::setHdmiGpio(HdmiGpioRec* gpio) {
    return static_cast<ProxyBool>(record("setHdmiGpio", {reinterpret_cast<int64_t>(gpio)}, {static_cast<void*>(gpio)}));
}
void FakePlayer::setCcMode(int32_t mode) { record("setCcMode", {static_cast<int64_t>(mode)}, {}); }
int32_t FakePlayer::getCcMode() {
    return static_cast<int32_t>(record("getCcMode", {}, {}));
}
int32_t FakePlayer::getAirChannelType() {
    return static_cast<int32_t>(record("getAirChannelType", {}, {}));
}
void FakePlayer::slot49_unused() { record("slot49_unused", {}, {}); }
ProxyBool FakePlayer::exitPreviewCCWin() {
    return static_cast<ProxyBool>(record("exitPreviewCCWin", {}, {}));
}
ProxyBool FakePlayer::createPreviewCCWin() {
    return static_cast<ProxyBool>(record("createPreviewCCWin", {}, {}));
}
ProxyBool FakePlayer::drawPreviewCCWin(CaptionOptionSettingRec& setting) {
    return static_cast<ProxyBool>(record("drawPreviewCCWin", {reinterpret_cast<int64_t>(&setting)}, {static_cast<void*>(&setting)}));
}
ProxyBool FakePlayer::disableAft() {
    return static_cast<ProxyBool>(record("disableAft", {}, {}));
}
ProxyBool FakePlayer::enableAft() {
    return static_cast<ProxyBool>(record("enableAft", {}, {}));
}
void FakePlayer::initAtvVif() { record("initAtvVif", {}, {}); }
ProxyBool FakePlayer::isAftEnabled() {
    return static_cast<ProxyBool>(record("isAftEnabled", {}, {}));
}
ProxyBool FakePlayer::saveAtvProgram(int32_t program) {
    return static_cast<ProxyBool>(record("saveAtvProgram", {static_cast<int64_t>(program)}, {}));
}
void FakePlayer::setChannelChangeFreezeMode(bool freeze) { record("setChannelChangeFreezeMode", {static_cast<int64_t>(freeze)}, {}); }
void FakePlayer::startAutoStandardDetection() { record("startAutoStandardDetection", {}, {}); }
void FakePlayer::forceVideoStandard(int32_t standard) { record("forceVideoStandard", {static_cast<int64_t>(standard)}, {}); }
void FakePlayer::getAudioInfo(DtvAudioInfoRec& out) { record("getAudioInfo", {reinterpret_cast<int64_t>(&out)}, {static_cast<void*>(&out)}); }
void FakePlayer::getRfInfo(int32_t type, int32_t index, RfInfoRec& out) { record("getRfInfo", {static_cast<int64_t>(type), static_cast<int64_t>(index), reinterpret_cast<int64_t>(&out)}, {static_cast<void*>(&out)}); }
ProxyBool FakePlayer::playCurrentProgram() {
    return static_cast<ProxyBool>(record("playCurrentProgram", {}, {}));
}
ProxyBool FakePlayer::setManualTuneByFreq(int32_t frequency) {
    return static_cast<ProxyBool>(record("setManualTuneByFreq", {static_cast<int64_t>(frequency)}, {}));
}
ProxyBool FakePlayer::setManualTuneByRf(int16_t rf) {
    return static_cast<ProxyBool>(record("setManualTuneByRf", {static_cast<int64_t>(rf)}, {}));
}
ProxyBool FakePlayer::changeManualScanRF(int32_t rf) {
    return static_cast<ProxyBool>(record("changeManualScanRF", {static_cast<int64_t>(rf)}, {}));
}
void FakePlayer::switchAudioTrack(int32_t track) { record("switchAudioTrack", {static_cast<int64_t>(track)}, {}); }
ProxyBool FakePlayer::setAudioMode(int32_t mode) {
    return static_cast<ProxyBool>(record("setAudioMode", {static_cast<int64_t>(mode)}, {}));
}
ProxyBool FakePlayer::getEWSInfo(android::Parcel* request, android::Parcel* reply) {
    return static_cast<ProxyBool>(record("getEWSInfo", {reinterpret_cast<int64_t>(request), reinterpret_cast<int64_t>(reply)}, {static_cast<void*>(request), static_cast<void*>(reply)}));
}
void FakePlayer::getAudioInfo_ex(DtvAudioInfoRec& out) { record("getAudioInfo_ex", {reinterpret_cast<int64_t>(&out)}, {static_cast<void*>(&out)}); }
void FakePlayer::getCurrentMuxInfo(DvbMuxInfoRec& out) { record("getCurrentMuxInfo", {reinterpret_cast<int64_t>(&out)}, {static_cast<void*>(&out)}); }
int32_t FakePlayer::getDtvRouteCount() {
    return static_cast<int32_t>(record("getDtvRouteCount", {}, {}));
}
void FakePlayer::getMuxInfoByProgramNumber(int32_t program, int16_t type, DvbMuxInfoRec& out) { record("getMuxInfoByProgramNumber", {static_cast<int64_t>(program), static_cast<int64_t>(type), reinterpret_cast<int64_t>(&out)}, {static_cast<void*>(&out)}); }
void FakePlayer::setDtvRoute(int16_t route) { record("setDtvRoute", {static_cast<int64_t>(route)}, {}); }
void FakePlayer::setFavoriteRegion(int32_t region) { record("setFavoriteRegion", {static_cast<int64_t>(region)}, {}); }
ProxyBool FakePlayer::switchDtvRoute(int16_t route) {
    return static_cast<ProxyBool>(record("switchDtvRoute", {static_cast<int64_t>(route)}, {}));
}
ProxyBool FakePlayer::unlockChannel() {
    return static_cast<ProxyBool>(record("unlockChannel", {}, {}));
}
void FakePlayer::getCountryCode(android::String8& out) {
    record("getCountryCode", {reinterpret_cast<int64_t>(&out)}, {static_cast<void*>(&out)});
    out = text("getCountryCode");
}
ProxyBool FakePlayer::setCountry(int32_t country) {
    return static_cast<ProxyBool>(record("setCountry", {static_cast<int64_t>(country)}, {}));
}
void FakePlayer::setParental(int32_t level) { record("setParental", {static_cast<int64_t>(level)}, {}); }
void FakePlayer::getLanguageCode(android::String8& out) {
    record("getLanguageCode", {reinterpret_cast<int64_t>(&out)}, {static_cast<void*>(&out)});
    out = text("getLanguageCode");
}
void FakePlayer::enableAutoClock() { record("enableAutoClock", {}, {}); }
void FakePlayer::disableAutoClock() { record("disableAutoClock", {}, {}); }
void FakePlayer::getMheg5PfgContent(android::String8& out) {
    record("getMheg5PfgContent", {reinterpret_cast<int64_t>(&out)}, {static_cast<void*>(&out)});
    out = text("getMheg5PfgContent");
}
void FakePlayer::setTimeZone(int32_t zone) { record("setTimeZone", {static_cast<int64_t>(zone)}, {}); }
void FakePlayer::setDebugMode(bool on) { record("setDebugMode", {static_cast<int64_t>(on)}, {}); }
void FakePlayer::getCurrentSignalInformation(DtvProgramSignalInfoRec& out) { record("getCurrentSignalInformation", {reinterpret_cast<int64_t>(&out)}, {static_cast<void*>(&out)}); }
ProxyBool FakePlayer::getNitFrequencyByDtvRegion(int32_t region, int32_t* first, int32_t* second) {
    return static_cast<ProxyBool>(record("getNitFrequencyByDtvRegion", {static_cast<int64_t>(region), reinterpret_cast<int64_t>(first), reinterpret_cast<int64_t>(second)}, {static_cast<void*>(first), static_cast<void*>(second)}));
}
int32_t FakePlayer::getChinaDvbcRegion() {
    return static_cast<int32_t>(record("getChinaDvbcRegion", {}, {}));
}
void FakePlayer::setChinaDvbcRegion(int32_t region) { record("setChinaDvbcRegion", {static_cast<int64_t>(region)}, {}); }
void FakePlayer::changeSetting(int32_t setting) { record("changeSetting", {static_cast<int64_t>(setting)}, {}); }
void FakePlayer::slot92_unused() { record("slot92_unused", {}, {}); }
void FakePlayer::slot93_unused() { record("slot93_unused", {}, {}); }
void FakePlayer::setUserLocationCode(int32_t code) { record("setUserLocationCode", {static_cast<int64_t>(code)}, {}); }
int32_t FakePlayer::getUserLocationCode() {
    return static_cast<int32_t>(record("getUserLocationCode", {}, {}));
}
void FakePlayer::slot96_unused() { record("slot96_unused", {}, {}); }
void FakePlayer::slot97_unused() { record("slot97_unused", {}, {}); }
int32_t FakePlayer::getAntennaType() {
    return static_cast<int32_t>(record("getAntennaType", {}, {}));
}
ProxyBool FakePlayer::autostartApplication() {
    return static_cast<ProxyBool>(record("autostartApplication", {}, {}));
}
ProxyBool FakePlayer::startApplication(int64_t orgId, int64_t appId) {
    return static_cast<ProxyBool>(record("startApplication", {static_cast<int64_t>(orgId), static_cast<int64_t>(appId)}, {}));
}
ProxyBool FakePlayer::stopApplication() {
    return static_cast<ProxyBool>(record("stopApplication", {}, {}));
}
ProxyBool FakePlayer::enableGinga() {
    return static_cast<ProxyBool>(record("enableGinga", {}, {}));
}
ProxyBool FakePlayer::disableGigna() {
    return static_cast<ProxyBool>(record("disableGigna", {}, {}));
}
ProxyBool FakePlayer::isGingaEnabled() {
    return static_cast<ProxyBool>(record("isGingaEnabled", {}, {}));
}
ProxyBool FakePlayer::isGingaRunning() {
    return static_cast<ProxyBool>(record("isGingaRunning", {}, {}));
}
ProxyBool FakePlayer::processKey(int32_t key, bool pressed) {
    return static_cast<ProxyBool>(record("processKey", {static_cast<int64_t>(key), static_cast<int64_t>(pressed)}, {}));
}
void FakePlayer::slot107_unused() { record("slot107_unused", {}, {}); }
void FakePlayer::setCurrentEventStatus(int32_t event, bool status) { record("setCurrentEventStatus", {static_cast<int64_t>(event), static_cast<int64_t>(status)}, {}); }
int32_t FakePlayer::getCurrentEventStatus(int32_t event) {
    return static_cast<int32_t>(record("getCurrentEventStatus", {static_cast<int64_t>(event)}, {}));
}
ProxyBool FakePlayer::getChannelLogoARGB(uint32_t* pixels, int32_t capacity, int32_t* a, int32_t* b) {
    return static_cast<ProxyBool>(record("getChannelLogoARGB", {reinterpret_cast<int64_t>(pixels), static_cast<int64_t>(capacity), reinterpret_cast<int64_t>(a), reinterpret_cast<int64_t>(b)}, {static_cast<void*>(pixels), static_cast<void*>(a), static_cast<void*>(b)}));
}
int32_t FakePlayer::getEWBSInfo(int32_t areaCode, int32_t* titleType, std::vector<int32_t>* codes) {
    return static_cast<int32_t>(record("getEWBSInfo", {static_cast<int64_t>(areaCode), reinterpret_cast<int64_t>(titleType), reinterpret_cast<int64_t>(codes)}, {static_cast<void*>(titleType), static_cast<void*>(codes)}));
}
int32_t FakePlayer::setEWBSOpInfo(int32_t op, int32_t value) {
    return static_cast<int32_t>(record("setEWBSOpInfo", {static_cast<int64_t>(op), static_cast<int64_t>(value)}, {}));
}
int32_t FakePlayer::getEWBSOpInfo(int32_t op, int32_t* value) {
    return static_cast<int32_t>(record("getEWBSOpInfo", {static_cast<int64_t>(op), reinterpret_cast<int64_t>(value)}, {static_cast<void*>(value)}));
}
ProxyBool FakePlayer::setVChipGuideline(int16_t a, int16_t b, int16_t c, int16_t d) {
    return static_cast<ProxyBool>(record("setVChipGuideline", {static_cast<int64_t>(a), static_cast<int64_t>(b), static_cast<int64_t>(c), static_cast<int64_t>(d)}, {}));
}
void FakePlayer::slot115_unused() { record("slot115_unused", {}, {}); }
void FakePlayer::slot116_unused() { record("slot116_unused", {}, {}); }
void FakePlayer::slot117_unused() { record("slot117_unused", {}, {}); }
void FakePlayer::getEASInProgress(MwAtscEasInfoRec& out) { record("getEASInProgress", {reinterpret_cast<int64_t>(&out)}, {static_cast<void*>(&out)}); }
void FakePlayer::getCurrentVChipBlockStatus(uint8_t& blocked) { record("getCurrentVChipBlockStatus", {reinterpret_cast<int64_t>(&blocked)}, {static_cast<void*>(&blocked)}); }
ProxyBool FakePlayer::enterPassToUnlockUnratedByUser(bool unlock) {
    return static_cast<ProxyBool>(record("enterPassToUnlockUnratedByUser", {static_cast<int64_t>(unlock)}, {}));
}
ProxyBool FakePlayer::enterPassToUnlockByUser(bool unlock) {
    return static_cast<ProxyBool>(record("enterPassToUnlockByUser", {static_cast<int64_t>(unlock)}, {}));
}
android::String8 FakePlayer::getCurrentRatingInformation() {
    record("getCurrentRatingInformation", {}, {});
    return text("getCurrentRatingInformation");
}
ProxyBool FakePlayer::setAudioMute(int32_t type, int32_t source) {
    return static_cast<ProxyBool>(record("setAudioMute", {static_cast<int64_t>(type), static_cast<int64_t>(source)}, {}));
}
void FakePlayer::getRRTInformation(android::Parcel* request, android::Parcel* reply) { record("getRRTInformation", {reinterpret_cast<int64_t>(request), reinterpret_cast<int64_t>(reply)}, {static_cast<void*>(request), static_cast<void*>(reply)}); }
ProxyBool FakePlayer::resetRrtInformation() {
    return static_cast<ProxyBool>(record("resetRrtInformation", {}, {}));
}
void FakePlayer::atsc_setAntennaType(int32_t type) { record("atsc_setAntennaType", {static_cast<int64_t>(type)}, {}); }
void FakePlayer::getDTVDemodVersion(int32_t type, DtvDemodVersionRec& out) { record("getDTVDemodVersion", {static_cast<int64_t>(type), reinterpret_cast<int64_t>(&out)}, {static_cast<void*>(&out)}); }
ProxyBool FakePlayer::getDemodDVBTInfo(DtvDemodDvbtInfoRec& out) {
    return static_cast<ProxyBool>(record("getDemodDVBTInfo", {reinterpret_cast<int64_t>(&out)}, {static_cast<void*>(&out)}));
}
ProxyBool FakePlayer::getDemodDVBCInfo(DtvDemodDvbcInfoRec& out) {
    return static_cast<ProxyBool>(record("getDemodDVBCInfo", {reinterpret_cast<int64_t>(&out)}, {static_cast<void*>(&out)}));
}
ProxyBool FakePlayer::setAutoSync(bool on) {
    return static_cast<ProxyBool>(record("setAutoSync", {static_cast<int64_t>(on)}, {}));
}
ProxyBool FakePlayer::getLogoData(uint8_t* bytes, int32_t* a, int32_t* b) {
    return static_cast<ProxyBool>(record("getLogoData", {reinterpret_cast<int64_t>(bytes), reinterpret_cast<int64_t>(a), reinterpret_cast<int64_t>(b)}, {static_cast<void*>(bytes), static_cast<void*>(a), static_cast<void*>(b)}));
}
ProxyBool FakePlayer::getVChipRatingInfo(android::Parcel* request, android::Parcel* reply) {
    return static_cast<ProxyBool>(record("getVChipRatingInfo", {reinterpret_cast<int64_t>(request), reinterpret_cast<int64_t>(reply)}, {static_cast<void*>(request), static_cast<void*>(reply)}));
}
int32_t FakePlayer::getCurrentSatelliteCount() {
    return static_cast<int32_t>(record("getCurrentSatelliteCount", {}, {}));
}
void FakePlayer::getSatelliteInfo(int32_t index, SatelliteInfoRec& out) { record("getSatelliteInfo", {static_cast<int64_t>(index), reinterpret_cast<int64_t>(&out)}, {static_cast<void*>(&out)}); }
int32_t FakePlayer::getCurrentSatelliteNumber() {
    return static_cast<int32_t>(record("getCurrentSatelliteNumber", {}, {}));
}
ProxyBool FakePlayer::setCurrentSatelliteNumber(int32_t number) {
    return static_cast<ProxyBool>(record("setCurrentSatelliteNumber", {static_cast<int64_t>(number)}, {}));
}
int32_t FakePlayer::getTransponderCount(int32_t satellite) {
    return static_cast<int32_t>(record("getTransponderCount", {static_cast<int64_t>(satellite)}, {}));
}
int32_t FakePlayer::getCurrentTransponderNumber() {
    return static_cast<int32_t>(record("getCurrentTransponderNumber", {}, {}));
}
ProxyBool FakePlayer::setCurrentTransponderNumber(int32_t number) {
    return static_cast<ProxyBool>(record("setCurrentTransponderNumber", {static_cast<int64_t>(number)}, {}));
}
void FakePlayer::getTransponderInfo(int32_t satellite, int32_t index, DvbsTransponderInfoRec& out) { record("getTransponderInfo", {static_cast<int64_t>(satellite), static_cast<int64_t>(index), reinterpret_cast<int64_t>(&out)}, {static_cast<void*>(&out)}); }
ProxyBool FakePlayer::updateSatelliteInfo(int32_t index, SatelliteInfoRec& in) {
    return static_cast<ProxyBool>(record("updateSatelliteInfo", {static_cast<int64_t>(index), reinterpret_cast<int64_t>(&in)}, {static_cast<void*>(&in)}));
}
ProxyBool FakePlayer::updateTransponderInfo(int32_t satellite, int32_t index, DvbsTransponderInfoRec& in) {
    return static_cast<ProxyBool>(record("updateTransponderInfo", {static_cast<int64_t>(satellite), static_cast<int64_t>(index), reinterpret_cast<int64_t>(&in)}, {static_cast<void*>(&in)}));
}
ProxyBool FakePlayer::addSatelliteInfo(SatelliteInfoRec& in) {
    return static_cast<ProxyBool>(record("addSatelliteInfo", {reinterpret_cast<int64_t>(&in)}, {static_cast<void*>(&in)}));
}
ProxyBool FakePlayer::addTransponderInfo(int32_t satellite, DvbsTransponderInfoRec& in) {
    return static_cast<ProxyBool>(record("addTransponderInfo", {static_cast<int64_t>(satellite), reinterpret_cast<int64_t>(&in)}, {static_cast<void*>(&in)}));
}
ProxyBool FakePlayer::deleteSatelliteInfo(int32_t index) {
    return static_cast<ProxyBool>(record("deleteSatelliteInfo", {static_cast<int64_t>(index)}, {}));
}
ProxyBool FakePlayer::deleteTransponderInfo(int32_t satellite, int32_t index) {
    return static_cast<ProxyBool>(record("deleteTransponderInfo", {static_cast<int64_t>(satellite), static_cast<int64_t>(index)}, {}));
}
ProxyBool FakePlayer::verifySlotFrequency() {
    return static_cast<ProxyBool>(record("verifySlotFrequency", {}, {}));
}
ProxyBool FakePlayer::setDishLNBPowerMode(int32_t mode) {
    return static_cast<ProxyBool>(record("setDishLNBPowerMode", {static_cast<int64_t>(mode)}, {}));
}
ProxyBool FakePlayer::setDish22KMode(int32_t mode) {
    return static_cast<ProxyBool>(record("setDish22KMode", {static_cast<int64_t>(mode)}, {}));
}
ProxyBool FakePlayer::setDishToneburstMode(int32_t mode) {
    return static_cast<ProxyBool>(record("setDishToneburstMode", {static_cast<int64_t>(mode)}, {}));
}
ProxyBool FakePlayer::setDiSEqCSwitchPort(int32_t level, int32_t port) {
    return static_cast<ProxyBool>(record("setDiSEqCSwitchPort", {static_cast<int64_t>(level), static_cast<int64_t>(port)}, {}));
}
ProxyBool FakePlayer::sendDiSEqCMotorCommand(int32_t command) {
    return static_cast<ProxyBool>(record("sendDiSEqCMotorCommand", {static_cast<int64_t>(command)}, {}));
}
int32_t FakePlayer::getUserLocationCount() {
    return static_cast<int32_t>(record("getUserLocationCount", {}, {}));
}
void FakePlayer::getUserLocationInfo(int32_t index, LocationInfoRec& out) { record("getUserLocationInfo", {static_cast<int64_t>(index), reinterpret_cast<int64_t>(&out)}, {static_cast<void*>(&out)}); }
ProxyBool FakePlayer::setProgramSortByType(int32_t type) {
    return static_cast<ProxyBool>(record("setProgramSortByType", {static_cast<int64_t>(type)}, {}));
}
void FakePlayer::slot156_unused() { record("slot156_unused", {}, {}); }
void FakePlayer::slot157_unused() { record("slot157_unused", {}, {}); }
void FakePlayer::slot158_unused() { record("slot158_unused", {}, {}); }
void FakePlayer::slot159_unused() { record("slot159_unused", {}, {}); }
void FakePlayer::slot160_unused() { record("slot160_unused", {}, {}); }
void FakePlayer::slot161_unused() { record("slot161_unused", {}, {}); }
int32_t FakePlayer::getHdmiEdidVersionBySource(int32_t source) {
    return static_cast<int32_t>(record("getHdmiEdidVersionBySource", {static_cast<int64_t>(source)}, {}));
}
ProxyBool FakePlayer::setHdmiEdidVersionBySource(int32_t source, int32_t version) {
    return static_cast<ProxyBool>(record("setHdmiEdidVersionBySource", {static_cast<int64_t>(source), static_cast<int64_t>(version)}, {}));
}
void FakePlayer::getAllBISSProgramInfo(android::Parcel* reply) { record("getAllBISSProgramInfo", {reinterpret_cast<int64_t>(reply)}, {static_cast<void*>(reply)}); }
ProxyBool FakePlayer::setProgramBISSKeyByNumber(int32_t program, int32_t type, uint8_t* key, int32_t length) {
    return static_cast<ProxyBool>(record("setProgramBISSKeyByNumber", {static_cast<int64_t>(program), static_cast<int64_t>(type), reinterpret_cast<int64_t>(key), static_cast<int64_t>(length)}, {static_cast<void*>(key)}));
}
void FakePlayer::clearProgramBISSKeyByNumber(int32_t program, int32_t type) { record("clearProgramBISSKeyByNumber", {static_cast<int64_t>(program), static_cast<int64_t>(type)}, {}); }

}  // namespace host
