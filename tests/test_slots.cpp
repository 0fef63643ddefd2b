// The proxy and its listener are called through their tables of virtual operations, so each
// operation must sit at the slot the service library gives it. The expected slots below are
// transcribed from the service's interface documentation, in its order (13 leading operations
// we never call; runs the library skips), not from our header.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <initializer_list>

#include "core/PlayerImpl.h"

namespace {

// On the Itanium C++ ABI (LP64) a pointer to a virtual member function holds 1 + 8 x slot.
template <typename PMF>
long slotOf(PMF pmf) {
    uintptr_t raw = 0;
    static_assert(sizeof(PMF) >= sizeof(raw), "pointer to member function");
    std::memcpy(&raw, &pmf, sizeof raw);
    EXPECT_EQ(raw % 8, 1u) << "not a virtual operation";
    return static_cast<long>((raw - 1) / 8);
}

// An operation and the slot it sits at, or (no name) a run of `slot` operations skipped.
struct Op {
    Op(const char* n, long s) : name(n), slot(s) {}
    const char* name;
    long slot;
};
#define SKIP(n) Op(nullptr, n)
#define P(op) Op(#op, slotOf(&PlayerImpl::op))
#define L(event) Op("PostEvent_" #event, slotOf(&PlayerImplListener::PostEvent_##event))

// The operations, in documented order, take consecutive slots from `first`.
template <typename... Ops>
void expectInOrder(long first, Ops... ops) {
    long slot = first;
    for (const Op& o : {ops...}) {
        if (o.name == nullptr) {
            slot += o.slot;
        } else {
            EXPECT_EQ(o.slot, slot++) << o.name;
        }
    }
}

TEST(Slots, PlayerOperationsSitWhereTheServiceLibraryPutsThem) {
    expectInOrder(
        13, P(startPcModeAtuoTune), P(closeTeletext), P(stopCc), P(getAspectRatio),
        P(getPhaseRange), P(getVideoInfo), P(getVideoStandard), P(getVideoStandardDetectionState),
        P(doesCcExist), P(isHdmiMode), P(isSignalStable), P(hasTeletextSignal),
        P(hasTeletextClockSignal), P(isTeletextDisplayed), P(isTeletextSubtitleChannel),
        P(openTeletext), P(sendTeletextCommand), P(setTeletextLanguageGroup), P(openPAT),
        P(setHPosition), P(setPhase), P(setSize), P(setVPosition), P(startCc), P(setMirror),
        P(disableAutoScartOut), P(enableAutoScartOut), P(sendMheg5Command), P(sendMheg5IcsCommand),
        P(isMheg5Running), P(initOfflineDetection), P(detectInputSource), P(setHdmiGpio),
        P(setCcMode), P(getCcMode), P(getAirChannelType), SKIP(1), P(exitPreviewCCWin),
        P(createPreviewCCWin), P(drawPreviewCCWin), P(disableAft), P(enableAft), P(initAtvVif),
        P(isAftEnabled), P(saveAtvProgram), P(setChannelChangeFreezeMode),
        P(startAutoStandardDetection), P(forceVideoStandard), P(getAudioInfo), P(getRfInfo),
        P(playCurrentProgram), P(setManualTuneByFreq), P(setManualTuneByRf), P(changeManualScanRF),
        P(switchAudioTrack), P(setAudioMode), P(getEWSInfo), P(getAudioInfo_ex),
        P(getCurrentMuxInfo), P(getDtvRouteCount), P(getMuxInfoByProgramNumber), P(setDtvRoute),
        P(setFavoriteRegion), P(switchDtvRoute), P(unlockChannel), P(getCountryCode), P(setCountry),
        P(setParental), P(getLanguageCode), P(enableAutoClock), P(disableAutoClock),
        P(getMheg5PfgContent), P(setTimeZone), P(setDebugMode), P(getCurrentSignalInformation),
        P(getNitFrequencyByDtvRegion), P(getChinaDvbcRegion), P(setChinaDvbcRegion),
        P(changeSetting), SKIP(2), P(setUserLocationCode), P(getUserLocationCode), SKIP(2),
        P(getAntennaType), P(autostartApplication), P(startApplication), P(stopApplication),
        P(enableGinga), P(disableGigna), P(isGingaEnabled), P(isGingaRunning), P(processKey),
        SKIP(1), P(setCurrentEventStatus), P(getCurrentEventStatus), P(getChannelLogoARGB),
        P(getEWBSInfo), P(setEWBSOpInfo), P(getEWBSOpInfo), P(setVChipGuideline), SKIP(3),
        P(getEASInProgress), P(getCurrentVChipBlockStatus), P(enterPassToUnlockUnratedByUser),
        P(enterPassToUnlockByUser), P(getCurrentRatingInformation), P(setAudioMute),
        P(getRRTInformation), P(resetRrtInformation), P(atsc_setAntennaType), P(getDTVDemodVersion),
        P(getDemodDVBTInfo), P(getDemodDVBCInfo), P(setAutoSync), P(getLogoData),
        P(getVChipRatingInfo), P(getCurrentSatelliteCount), P(getSatelliteInfo),
        P(getCurrentSatelliteNumber), P(setCurrentSatelliteNumber), P(getTransponderCount),
        P(getCurrentTransponderNumber), P(setCurrentTransponderNumber), P(getTransponderInfo),
        P(updateSatelliteInfo), P(updateTransponderInfo), P(addSatelliteInfo),
        P(addTransponderInfo), P(deleteSatelliteInfo), P(deleteTransponderInfo),
        P(verifySlotFrequency), P(setDishLNBPowerMode), P(setDish22KMode), P(setDishToneburstMode),
        P(setDiSEqCSwitchPort), P(sendDiSEqCMotorCommand), P(getUserLocationCount),
        P(getUserLocationInfo), P(setProgramSortByType), SKIP(6), P(getHdmiEdidVersionBySource),
        P(setHdmiEdidVersionBySource), P(getAllBISSProgramInfo), P(setProgramBISSKeyByNumber),
        P(clearProgramBISSKeyByNumber));
}

TEST(Slots, ListenerOperationsSitWhereTheServiceCallsThem) {
    // The two dispatchers, then the 57 event operations (the destructor pair follows).
    using Listener = PlayerImplListener;
    const auto notify =
        static_cast<void (Listener::*)(int, const android::Parcel&)>(&Listener::notify);
    expectInOrder(0, Op("notify", slotOf(notify)), Op("notifyCB", slotOf(&Listener::notifyCB)),
                  L(ChannelNameReady), L(AtvAutoTuning), L(ManualTuning), L(DtvAutoTuning),
                  L(ProgramInfoReady), L(SignalLock), L(SignalUnlock), L(PopupDialog),
                  L(ScreenSaverMode), L(CiLoadCredentialFail), L(EpgTimerSimulcast),
                  L(HbbtvStatusMode), L(Mheg5StatusMode), L(Mheg5ReturnKey), L(OadHandler),
                  L(OadDownload), L(PvrPlaybackTime), L(PvrPlaybackSpeedChange), L(PvrRecordTime),
                  L(PvrRecordSize), L(PvrRecordStop), L(PvrPlaybackStop), L(PvrPlaybackBegin),
                  L(PvrTimeshiftBefore), L(PvrTimeshiftAfter), L(OverRun), L(UsbRemoved),
                  L(CiPlusProtection), L(ParentalControl), L(AlwaysTimeshiftProgramReady),
                  L(AlwaysTimeShiftProgramNotReady), L(PvrCiPlusRetentionLimit), L(AutoUpdateScan),
                  L(TsChange), L(PopupScanDialogLossSignal), L(PopupScanDialogNewMultiplex),
                  L(PopupScanDialogFreqChange), L(RctPresence), L(ChangeTtxStatus),
                  L(PriComponentMissing), L(AudioModeChange), L(Mheg5EventHandler), L(OadTimeOut),
                  L(GingaStatusMode), L(HbbtvEvent), L(EpgUpdateList), L(SnServiceDeadth),
                  L(4k2kHDMIDisablePip), L(4k2kHDMIDisablePop), L(4k2kHDMIDisableDualView),
                  L(4k2kHDMIDisableTravelingMode), L(OPRefreshQuery), L(OPServiceList),
                  L(ExitOPServiceList), L(Emerency_Alert), L(DtvChannelInfoUpdate), L(EpgUpdate));
}

}  // namespace
