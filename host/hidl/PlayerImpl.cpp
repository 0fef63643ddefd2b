// The proxy class of the workstation's player service library: the non-virtual members the
// bridge imports by name, and a do-nothing body for every operation (the workstation's
// proxies, the simulated TV and the test double, override what they serve).
#include <memory>
#include <limits>

#include "core/PlayerImpl.h"
#include "playerimpl_host/host_player.h"

PlayerImpl::PlayerImpl() = default;
PlayerImpl::~PlayerImpl() = default;
PlayerImplListener::~PlayerImplListener() = default;

void PlayerImpl::disconnect() {
    if (auto* self = dynamic_cast<host::HostPlayer*>(this)) {
        self->mDisconnected.store(true);
        host::HostPlayer::sDisconnects.fetch_add(1);
        self->onDisconnect();
    }
}

void PlayerImpl::setListener(const android::sp<PlayerImplListener>& listener) {
    if (auto* self = dynamic_cast<host::HostPlayer*>(this)) {
        {
            std::lock_guard<std::mutex> guard(self->mListenerLock);
            self->mListener = listener;
        }
        self->onListenerChanged();
    }
}

void PlayerImpl::slot00_unused() { }
void PlayerImpl::slot01_unused() { }
void PlayerImpl::slot02_unused() { }
void PlayerImpl::slot03_unused() { }
void PlayerImpl::slot04_unused() { }
void PlayerImpl::slot05_unused() { }
void PlayerImpl::slot06_unused() { }
void PlayerImpl::slot07_unused() { }
void PlayerImpl::slot08_unused() { }
void PlayerImpl::slot09_unused() { }
void PlayerImpl::slot10_unused() { }
void PlayerImpl::slot11_unused() { }
void PlayerImpl::slot12_unused() { }
ProxyBool PlayerImpl::startPcModeAtuoTune() { return ProxyBool(); }
ProxyBool PlayerImpl::closeTeletext() { return ProxyBool(); }
ProxyBool PlayerImpl::stopCc() { return ProxyBool(); }
void PlayerImpl::getAspectRatio(VideoArcInfoRec&) { }
int32_t PlayerImpl::getPhaseRange() { return int32_t(); }
void PlayerImpl::getVideoInfo(VideoInfoRec&) { }
int32_t PlayerImpl::getVideoStandard() { return int32_t(); }
int32_t PlayerImpl::getVideoStandardDetectionState() { return int32_t(); }
ProxyBool PlayerImpl::doesCcExist() { return ProxyBool(); }
ProxyBool PlayerImpl::isHdmiMode() { return ProxyBool(); }
ProxyBool PlayerImpl::isSignalStable() { return ProxyBool(); }
ProxyBool PlayerImpl::hasTeletextSignal() { return ProxyBool(); }
ProxyBool PlayerImpl::hasTeletextClockSignal() { return ProxyBool(); }
ProxyBool PlayerImpl::isTeletextDisplayed() { return ProxyBool(); }
ProxyBool PlayerImpl::isTeletextSubtitleChannel() { return ProxyBool(); }
ProxyBool PlayerImpl::openTeletext(int32_t) { return ProxyBool(); }
ProxyBool PlayerImpl::sendTeletextCommand(int32_t) { return ProxyBool(); }
ProxyBool PlayerImpl::setTeletextLanguageGroup(int32_t) { return ProxyBool(); }
ProxyBool PlayerImpl::openPAT(int32_t) { return ProxyBool(); }
ProxyBool PlayerImpl::setHPosition(int32_t) { return ProxyBool(); }
ProxyBool PlayerImpl::setPhase(int32_t) { return ProxyBool(); }
ProxyBool PlayerImpl::setSize(int32_t) { return ProxyBool(); }
ProxyBool PlayerImpl::setVPosition(int32_t) { return ProxyBool(); }
ProxyBool PlayerImpl::startCc() { return ProxyBool(); }
ProxyBool PlayerImpl::setMirror(bool) { return ProxyBool(); }
ProxyBool PlayerImpl::disableAutoScartOut() { return ProxyBool(); }
ProxyBool PlayerImpl::enableAutoScartOut() { return ProxyBool(); }
ProxyBool PlayerImpl::sendMheg5Command(int16_t) { return ProxyBool(); }
ProxyBool PlayerImpl::sendMheg5IcsCommand(int32_t, int16_t) { return ProxyBool(); }
ProxyBool PlayerImpl::isMheg5Running() { return ProxyBool(); }
void PlayerImpl::initOfflineDetection() { }
ProxyBool PlayerImpl::detectInputSource(int32_t, int32_t) { return ProxyBool(); }
ProxyBool PlayerImpl::setHdmiGpio(HdmiGpioRec*) { return ProxyBool(); }
void PlayerImpl::setCcMode(int32_t) { }
int32_t PlayerImpl::getCcMode() { return int32_t(); }
int32_t PlayerImpl::getAirChannelType() { return int32_t(); }
void PlayerImpl::slot49_unused() { }
ProxyBool PlayerImpl::exitPreviewCCWin() { return ProxyBool(); }
ProxyBool PlayerImpl::createPreviewCCWin() { return ProxyBool(); }
ProxyBool PlayerImpl::drawPreviewCCWin(CaptionOptionSettingRec&) { return ProxyBool(); }
ProxyBool PlayerImpl::disableAft() { return ProxyBool(); }
ProxyBool PlayerImpl::enableAft() { return ProxyBool(); }
void PlayerImpl::initAtvVif() { }
ProxyBool PlayerImpl::isAftEnabled() { return ProxyBool(); }
ProxyBool PlayerImpl::saveAtvProgram(int32_t) { return ProxyBool(); }
void PlayerImpl::setChannelChangeFreezeMode(bool) { }
void PlayerImpl::startAutoStandardDetection() { }
void PlayerImpl::forceVideoStandard(int32_t) { }
void PlayerImpl::getAudioInfo(DtvAudioInfoRec&) { }
void PlayerImpl::getRfInfo(int32_t, int32_t, RfInfoRec&) { }
ProxyBool PlayerImpl::playCurrentProgram() { return ProxyBool(); }
ProxyBool PlayerImpl::setManualTuneByFreq(int32_t) { return ProxyBool(); }
ProxyBool PlayerImpl::setManualTuneByRf(int16_t) { return ProxyBool(); }
ProxyBool PlayerImpl::changeManualScanRF(int32_t) { return ProxyBool(); }
void PlayerImpl::switchAudioTrack(int32_t) { }
ProxyBool PlayerImpl::setAudioMode(int32_t) { return ProxyBool(); }
ProxyBool PlayerImpl::getEWSInfo(android::Parcel*, android::Parcel*) { return ProxyBool(); }
void PlayerImpl::getAudioInfo_ex(DtvAudioInfoRec&) { }
void PlayerImpl::getCurrentMuxInfo(DvbMuxInfoRec&) { }
int32_t PlayerImpl::getDtvRouteCount() { return int32_t(); }
void PlayerImpl::getMuxInfoByProgramNumber(int32_t, int16_t, DvbMuxInfoRec&) { }
void PlayerImpl::setDtvRoute(int16_t) { }
void PlayerImpl::setFavoriteRegion(int32_t) { }
ProxyBool PlayerImpl::switchDtvRoute(int16_t) { return ProxyBool(); }
ProxyBool PlayerImpl::unlockChannel() { return ProxyBool(); }
void PlayerImpl::getCountryCode(android::String8&) { }
ProxyBool PlayerImpl::setCountry(int32_t) { return ProxyBool(); }
void PlayerImpl::setParental(int32_t) { }
void PlayerImpl::getLanguageCode(android::String8&) { }
void PlayerImpl::enableAutoClock() { }
void PlayerImpl::disableAutoClock() { }
void PlayerImpl::getMheg5PfgContent(android::String8&) { }
void PlayerImpl::setTimeZone(int32_t) { }
void PlayerImpl::setDebugMode(bool) { }
void PlayerImpl::getCurrentSignalInformation(DtvProgramSignalInfoRec&) { }
ProxyBool PlayerImpl::getNitFrequencyByDtvRegion(int32_t, int32_t*, int32_t*) { return ProxyBool(); }
int32_t PlayerImpl::getChinaDvbcRegion() { return int32_t(); }
void PlayerImpl::setChinaDvbcRegion(int32_t) { }
void PlayerImpl::changeSetting(int32_t) { }
void PlayerImpl::slot92_unused() { }
void PlayerImpl::slot93_unused() { }
void PlayerImpl::setUserLocationCode(int32_t) { }
int32_t PlayerImpl::getUserLocationCode() { return int32_t(); }
void PlayerImpl::slot96_unused() { }
void PlayerImpl::slot97_unused() { }
int32_t PlayerImpl::getAntennaType() { return int32_t(); }
ProxyBool PlayerImpl::autostartApplication() { return ProxyBool(); }
ProxyBool PlayerImpl::startApplication(int64_t, int64_t) { return ProxyBool(); }
ProxyBool PlayerImpl::stopApplication() { return ProxyBool(); }
ProxyBool PlayerImpl::enableGinga() { return ProxyBool(); }
ProxyBool PlayerImpl::disableGigna() { return ProxyBool(); }
ProxyBool PlayerImpl::isGingaEnabled() { return ProxyBool(); }
ProxyBool PlayerImpl::isGingaRunning() { return ProxyBool(); }
ProxyBool PlayerImpl::processKey(int32_t, bool) { return ProxyBool(); }
void PlayerImpl::slot107_unused() { }
void PlayerImpl::setCurrentEventStatus(int32_t, bool) { }
int32_t PlayerImpl::getCurrentEventStatus(int32_t) { return int32_t(); }
ProxyBool PlayerImpl::getChannelLogoARGB(uint32_t*, int32_t, int32_t*, int32_t*) { return ProxyBool(); }
int32_t PlayerImpl::getEWBSInfo(int32_t, int32_t*, std::vector<int32_t>*) { return int32_t(); }
int32_t PlayerImpl::setEWBSOpInfo(int32_t, int32_t) { return int32_t(); }
int32_t PlayerImpl::getEWBSOpInfo(int32_t, int32_t*) { return int32_t(); }
ProxyBool PlayerImpl::setVChipGuideline(int16_t, int16_t, int16_t, int16_t) { return ProxyBool(); }
void PlayerImpl::slot115_unused() { }
void PlayerImpl::slot116_unused() { }
void PlayerImpl::slot117_unused() { }
void PlayerImpl::getEASInProgress(MwAtscEasInfoRec&) { }
void PlayerImpl::getCurrentVChipBlockStatus(uint8_t&) { }
ProxyBool PlayerImpl::enterPassToUnlockUnratedByUser(bool) { return ProxyBool(); }
ProxyBool PlayerImpl::enterPassToUnlockByUser(bool) { return ProxyBool(); }
android::String8 PlayerImpl::getCurrentRatingInformation() { return android::String8(); }
ProxyBool PlayerImpl::setAudioMute(int32_t, int32_t) { return ProxyBool(); }
void PlayerImpl::getRRTInformation(android::Parcel*, android::Parcel*) { }
ProxyBool PlayerImpl::resetRrtInformation() { return ProxyBool(); }
void PlayerImpl::atsc_setAntennaType(int32_t) { }
void PlayerImpl::getDTVDemodVersion(int32_t, DtvDemodVersionRec&) { }
ProxyBool PlayerImpl::getDemodDVBTInfo(DtvDemodDvbtInfoRec&) { return ProxyBool(); }
ProxyBool PlayerImpl::getDemodDVBCInfo(DtvDemodDvbcInfoRec&) { return ProxyBool(); }
ProxyBool PlayerImpl::setAutoSync(bool) { return ProxyBool(); }
ProxyBool PlayerImpl::getLogoData(uint8_t*, int32_t*, int32_t*) { return ProxyBool(); }
ProxyBool PlayerImpl::getVChipRatingInfo(android::Parcel*, android::Parcel*) { return ProxyBool(); }
int32_t PlayerImpl::getCurrentSatelliteCount() { return int32_t(); }
void PlayerImpl::getSatelliteInfo(int32_t, SatelliteInfoRec&) { }
int32_t PlayerImpl::getCurrentSatelliteNumber() { return int32_t(); }
ProxyBool PlayerImpl::setCurrentSatelliteNumber(int32_t) { return ProxyBool(); }
int32_t PlayerImpl::getTransponderCount(int32_t) { return int32_t(); }
int32_t PlayerImpl::getCurrentTransponderNumber() { return int32_t(); }
ProxyBool PlayerImpl::setCurrentTransponderNumber(int32_t) { return ProxyBool(); }
void PlayerImpl::getTransponderInfo(int32_t, int32_t, DvbsTransponderInfoRec&) { }
ProxyBool PlayerImpl::updateSatelliteInfo(int32_t, SatelliteInfoRec&) { return ProxyBool(); }
ProxyBool PlayerImpl::updateTransponderInfo(int32_t, int32_t, DvbsTransponderInfoRec&) { return ProxyBool(); }
ProxyBool PlayerImpl::addSatelliteInfo(SatelliteInfoRec&) { return ProxyBool(); }
ProxyBool PlayerImpl::addTransponderInfo(int32_t, DvbsTransponderInfoRec&) { return ProxyBool(); }
ProxyBool PlayerImpl::deleteSatelliteInfo(int32_t) { return ProxyBool(); }
ProxyBool PlayerImpl::deleteTransponderInfo(int32_t, int32_t) { return ProxyBool(); }
ProxyBool PlayerImpl::verifySlotFrequency() { return ProxyBool(); }
ProxyBool PlayerImpl::setDishLNBPowerMode(int32_t) { return ProxyBool(); }
ProxyBool PlayerImpl::setDish22KMode(int32_t) { return ProxyBool(); }
ProxyBool PlayerImpl::setDishToneburstMode(int32_t) { return ProxyBool(); }
ProxyBool PlayerImpl::setDiSEqCSwitchPort(int32_t, int32_t) { return ProxyBool(); }
ProxyBool PlayerImpl::sendDiSEqCMotorCommand(int32_t) { return ProxyBool(); }
int32_t PlayerImpl::getUserLocationCount() { return int32_t(); }
void PlayerImpl::getUserLocationInfo(int32_t, LocationInfoRec&) { }
ProxyBool PlayerImpl::setProgramSortByType(int32_t) { return ProxyBool(); }
void PlayerImpl::slot156_unused() { }
void PlayerImpl::slot157_unused() { }
void PlayerImpl::slot158_unused() { }
void PlayerImpl::slot159_unused() { }
void PlayerImpl::slot160_unused() { }
void PlayerImpl::slot161_unused() { }
int32_t PlayerImpl::getHdmiEdidVersionBySource(int32_t) { return int32_t(); }
ProxyBool PlayerImpl::setHdmiEdidVersionBySource(int32_t, int32_t) { return ProxyBool(); }
void PlayerImpl::getAllBISSProgramInfo(android::Parcel*) { }
ProxyBool PlayerImpl::setProgramBISSKeyByNumber(int32_t, int32_t, uint8_t*, int32_t) { return ProxyBool(); }
void PlayerImpl::clearProgramBISSKeyByNumber(int32_t, int32_t) { }
