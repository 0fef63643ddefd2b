// The service's order of virtual operations, for the proxy (PlayerImpl) and for the callback
// interface it calls (PlayerImplListener), and the way to read an operation's slot from the
// compiler. Shared by the layout report and the ABI check, so the order is written down once.
//
// Each list is an X-macro: OP(name) is the next operation, GAP(n) stands for n operations this
// library never calls (the placeholders slotNN_unused of core/PlayerImpl.h). The expected slot
// of an operation is its position in its list; the destructor pair follows the last one.
#pragma once

#include <cstdint>
#include <cstring>

#include "core/PlayerImpl.h"

namespace service_slots {

// A pointer to a virtual member function holds the operation's byte offset in the table of
// virtual operations. The generic C++ ABI (x86-64) marks "virtual" with bit 0 of the pointer
// word (1 + 8 x slot); the ARM variant (AArch64) keeps the pointer word as 8 x slot and marks
// "virtual" with bit 0 of the adjustment word. Returns -1 for a non-virtual member.
template <typename Pmf>
long slotOf(Pmf pmf) {
    static_assert(sizeof(Pmf) == 2 * sizeof(void*), "two-word member function pointer");
    struct {
        uintptr_t ptr;
        intptr_t adj;
    } raw;
    std::memcpy(&raw, &pmf, sizeof raw);
#if defined(__aarch64__) || defined(__arm__)
    if ((raw.adj & 1) == 0) return -1;
    return static_cast<long>(raw.ptr / sizeof(void*));
#else
    if ((raw.ptr & 1) == 0) return -1;
    return static_cast<long>((raw.ptr - 1) / sizeof(void*));
#endif
}

// A class derived with one new virtual operation: that operation lands right after the
// base's last slot, which tells where the base's table (destructor pair included) ends.
struct ProxyProbe : PlayerImpl {
    virtual void probe();
};
struct ListenerProbe : PlayerImplListener {
    virtual void probe();
};

}  // namespace service_slots

// The proxy, as the service documents its table.
// clang-format off
#define PIJ_PROXY_SLOTS(OP, GAP) \
    GAP(13) \
    OP(startPcModeAtuoTune) OP(closeTeletext) OP(stopCc) OP(getAspectRatio) OP(getPhaseRange) \
    OP(getVideoInfo) OP(getVideoStandard) OP(getVideoStandardDetectionState) OP(doesCcExist) \
    OP(isHdmiMode) OP(isSignalStable) OP(hasTeletextSignal) OP(hasTeletextClockSignal) \
    OP(isTeletextDisplayed) OP(isTeletextSubtitleChannel) OP(openTeletext) OP(sendTeletextCommand) \
    OP(setTeletextLanguageGroup) OP(openPAT) OP(setHPosition) OP(setPhase) OP(setSize) OP(setVPosition) \
    OP(startCc) OP(setMirror) OP(disableAutoScartOut) OP(enableAutoScartOut) OP(sendMheg5Command) \
    OP(sendMheg5IcsCommand) OP(isMheg5Running) OP(initOfflineDetection) OP(detectInputSource) \
    OP(setHdmiGpio) OP(setCcMode) OP(getCcMode) OP(getAirChannelType) \
    GAP(1) \
    OP(exitPreviewCCWin) OP(createPreviewCCWin) OP(drawPreviewCCWin) OP(disableAft) OP(enableAft) \
    OP(initAtvVif) OP(isAftEnabled) OP(saveAtvProgram) OP(setChannelChangeFreezeMode) \
    OP(startAutoStandardDetection) OP(forceVideoStandard) OP(getAudioInfo) OP(getRfInfo) \
    OP(playCurrentProgram) OP(setManualTuneByFreq) OP(setManualTuneByRf) OP(changeManualScanRF) \
    OP(switchAudioTrack) OP(setAudioMode) OP(getEWSInfo) OP(getAudioInfo_ex) OP(getCurrentMuxInfo) \
    OP(getDtvRouteCount) OP(getMuxInfoByProgramNumber) OP(setDtvRoute) OP(setFavoriteRegion) \
    OP(switchDtvRoute) OP(unlockChannel) OP(getCountryCode) OP(setCountry) OP(setParental) \
    OP(getLanguageCode) OP(enableAutoClock) OP(disableAutoClock) OP(getMheg5PfgContent) \
    OP(setTimeZone) OP(setDebugMode) OP(getCurrentSignalInformation) OP(getNitFrequencyByDtvRegion) \
    OP(getChinaDvbcRegion) OP(setChinaDvbcRegion) OP(changeSetting) \
    GAP(2) \
    OP(setUserLocationCode) OP(getUserLocationCode) \
    GAP(2) \
    OP(getAntennaType) OP(autostartApplication) OP(startApplication) OP(stopApplication) \
    OP(enableGinga) OP(disableGigna) OP(isGingaEnabled) OP(isGingaRunning) OP(processKey) \
    GAP(1) \
    OP(setCurrentEventStatus) OP(getCurrentEventStatus) OP(getChannelLogoARGB) OP(getEWBSInfo) \
    OP(setEWBSOpInfo) OP(getEWBSOpInfo) OP(setVChipGuideline) \
    GAP(3) \
    OP(getEASInProgress) OP(getCurrentVChipBlockStatus) OP(enterPassToUnlockUnratedByUser) \
    OP(enterPassToUnlockByUser) OP(getCurrentRatingInformation) OP(setAudioMute) \
    OP(getRRTInformation) OP(resetRrtInformation) OP(atsc_setAntennaType) OP(getDTVDemodVersion) \
    OP(getDemodDVBTInfo) OP(getDemodDVBCInfo) OP(setAutoSync) OP(getLogoData) \
    OP(getVChipRatingInfo) OP(getCurrentSatelliteCount) OP(getSatelliteInfo) \
    OP(getCurrentSatelliteNumber) OP(setCurrentSatelliteNumber) OP(getTransponderCount) \
    OP(getCurrentTransponderNumber) OP(setCurrentTransponderNumber) OP(getTransponderInfo) \
    OP(updateSatelliteInfo) OP(updateTransponderInfo) OP(addSatelliteInfo) OP(addTransponderInfo) \
    OP(deleteSatelliteInfo) OP(deleteTransponderInfo) OP(verifySlotFrequency) \
    OP(setDishLNBPowerMode) OP(setDish22KMode) OP(setDishToneburstMode) OP(setDiSEqCSwitchPort) \
    OP(sendDiSEqCMotorCommand) OP(getUserLocationCount) OP(getUserLocationInfo) \
    OP(setProgramSortByType) \
    GAP(6) \
    OP(getHdmiEdidVersionBySource) OP(setHdmiEdidVersionBySource) OP(getAllBISSProgramInfo) \
    OP(setProgramBISSKeyByNumber) OP(clearProgramBISSKeyByNumber)

// The callback interface, in the service's declaration order.
#define PIJ_LISTENER_SLOTS(OP) \
    OP(notify) OP(notifyCB) OP(PostEvent_ChannelNameReady) OP(PostEvent_AtvAutoTuning) \
    OP(PostEvent_ManualTuning) OP(PostEvent_DtvAutoTuning) OP(PostEvent_ProgramInfoReady) \
    OP(PostEvent_SignalLock) OP(PostEvent_SignalUnlock) OP(PostEvent_PopupDialog) \
    OP(PostEvent_ScreenSaverMode) OP(PostEvent_CiLoadCredentialFail) OP(PostEvent_EpgTimerSimulcast) \
    OP(PostEvent_HbbtvStatusMode) OP(PostEvent_Mheg5StatusMode) OP(PostEvent_Mheg5ReturnKey) \
    OP(PostEvent_OadHandler) OP(PostEvent_OadDownload) OP(PostEvent_PvrPlaybackTime) \
    OP(PostEvent_PvrPlaybackSpeedChange) OP(PostEvent_PvrRecordTime) OP(PostEvent_PvrRecordSize) \
    OP(PostEvent_PvrRecordStop) OP(PostEvent_PvrPlaybackStop) OP(PostEvent_PvrPlaybackBegin) \
    OP(PostEvent_PvrTimeshiftBefore) OP(PostEvent_PvrTimeshiftAfter) OP(PostEvent_OverRun) \
    OP(PostEvent_UsbRemoved) OP(PostEvent_CiPlusProtection) OP(PostEvent_ParentalControl) \
    OP(PostEvent_AlwaysTimeshiftProgramReady) OP(PostEvent_AlwaysTimeShiftProgramNotReady) \
    OP(PostEvent_PvrCiPlusRetentionLimit) OP(PostEvent_AutoUpdateScan) OP(PostEvent_TsChange) \
    OP(PostEvent_PopupScanDialogLossSignal) OP(PostEvent_PopupScanDialogNewMultiplex) \
    OP(PostEvent_PopupScanDialogFreqChange) OP(PostEvent_RctPresence) OP(PostEvent_ChangeTtxStatus) \
    OP(PostEvent_PriComponentMissing) OP(PostEvent_AudioModeChange) OP(PostEvent_Mheg5EventHandler) \
    OP(PostEvent_OadTimeOut) OP(PostEvent_GingaStatusMode) OP(PostEvent_HbbtvEvent) \
    OP(PostEvent_EpgUpdateList) OP(PostEvent_SnServiceDeadth) OP(PostEvent_4k2kHDMIDisablePip) \
    OP(PostEvent_4k2kHDMIDisablePop) OP(PostEvent_4k2kHDMIDisableDualView) \
    OP(PostEvent_4k2kHDMIDisableTravelingMode) OP(PostEvent_OPRefreshQuery) \
    OP(PostEvent_OPServiceList) OP(PostEvent_ExitOPServiceList) OP(PostEvent_Emerency_Alert) \
    OP(PostEvent_DtvChannelInfoUpdate) OP(PostEvent_EpgUpdate)
// clang-format on
