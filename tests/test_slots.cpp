// The proxy and its listener are called through their tables of virtual operations, so each
// operation must sit at the slot the service library gives it. The expected slots below are
// transcribed from the service's interface documentation (13 leading operations we never
// call; gaps where the library skips operations), not from our header.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

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

#define SLOT(cls, op, n) {#op, slotOf(&cls::op), n}

struct Expect {
    const char* op;
    long actual;
    long slot;
};

TEST(Slots, PlayerOperationsSitWhereTheServiceLibraryPutsThem) {
    const Expect table[] = {
        SLOT(PlayerImpl, startPcModeAtuoTune, 13), SLOT(PlayerImpl, closeTeletext, 14),
        SLOT(PlayerImpl, stopCc, 15), SLOT(PlayerImpl, getAspectRatio, 16),
        SLOT(PlayerImpl, getPhaseRange, 17), SLOT(PlayerImpl, getVideoInfo, 18),
        SLOT(PlayerImpl, getVideoStandard, 19), SLOT(PlayerImpl, getVideoStandardDetectionState, 20),
        SLOT(PlayerImpl, doesCcExist, 21), SLOT(PlayerImpl, isHdmiMode, 22),
        SLOT(PlayerImpl, isSignalStable, 23), SLOT(PlayerImpl, hasTeletextSignal, 24),
        SLOT(PlayerImpl, hasTeletextClockSignal, 25), SLOT(PlayerImpl, isTeletextDisplayed, 26),
        SLOT(PlayerImpl, isTeletextSubtitleChannel, 27), SLOT(PlayerImpl, openTeletext, 28),
        SLOT(PlayerImpl, sendTeletextCommand, 29), SLOT(PlayerImpl, setTeletextLanguageGroup, 30),
        SLOT(PlayerImpl, openPAT, 31), SLOT(PlayerImpl, setHPosition, 32),
        SLOT(PlayerImpl, setPhase, 33), SLOT(PlayerImpl, setSize, 34),
        SLOT(PlayerImpl, setVPosition, 35), SLOT(PlayerImpl, startCc, 36),
        SLOT(PlayerImpl, setMirror, 37), SLOT(PlayerImpl, disableAutoScartOut, 38),
        SLOT(PlayerImpl, enableAutoScartOut, 39), SLOT(PlayerImpl, sendMheg5Command, 40),
        SLOT(PlayerImpl, sendMheg5IcsCommand, 41), SLOT(PlayerImpl, isMheg5Running, 42),
        SLOT(PlayerImpl, initOfflineDetection, 43), SLOT(PlayerImpl, detectInputSource, 44),
        SLOT(PlayerImpl, setHdmiGpio, 45), SLOT(PlayerImpl, setCcMode, 46),
        SLOT(PlayerImpl, getCcMode, 47), SLOT(PlayerImpl, getAirChannelType, 48),
        // one operation skipped
        SLOT(PlayerImpl, exitPreviewCCWin, 50), SLOT(PlayerImpl, createPreviewCCWin, 51),
        SLOT(PlayerImpl, drawPreviewCCWin, 52), SLOT(PlayerImpl, disableAft, 53),
        SLOT(PlayerImpl, enableAft, 54), SLOT(PlayerImpl, initAtvVif, 55),
        SLOT(PlayerImpl, isAftEnabled, 56), SLOT(PlayerImpl, saveAtvProgram, 57),
        SLOT(PlayerImpl, setChannelChangeFreezeMode, 58),
        SLOT(PlayerImpl, startAutoStandardDetection, 59), SLOT(PlayerImpl, forceVideoStandard, 60),
        SLOT(PlayerImpl, getAudioInfo, 61), SLOT(PlayerImpl, getRfInfo, 62),
        SLOT(PlayerImpl, playCurrentProgram, 63), SLOT(PlayerImpl, setManualTuneByFreq, 64),
        SLOT(PlayerImpl, setManualTuneByRf, 65), SLOT(PlayerImpl, changeManualScanRF, 66),
        SLOT(PlayerImpl, switchAudioTrack, 67), SLOT(PlayerImpl, setAudioMode, 68),
        SLOT(PlayerImpl, getEWSInfo, 69), SLOT(PlayerImpl, getAudioInfo_ex, 70),
        SLOT(PlayerImpl, getCurrentMuxInfo, 71), SLOT(PlayerImpl, getDtvRouteCount, 72),
        SLOT(PlayerImpl, getMuxInfoByProgramNumber, 73), SLOT(PlayerImpl, setDtvRoute, 74),
        SLOT(PlayerImpl, setFavoriteRegion, 75), SLOT(PlayerImpl, switchDtvRoute, 76),
        SLOT(PlayerImpl, unlockChannel, 77), SLOT(PlayerImpl, getCountryCode, 78),
        SLOT(PlayerImpl, setCountry, 79), SLOT(PlayerImpl, setParental, 80),
        SLOT(PlayerImpl, getLanguageCode, 81), SLOT(PlayerImpl, enableAutoClock, 82),
        SLOT(PlayerImpl, disableAutoClock, 83), SLOT(PlayerImpl, getMheg5PfgContent, 84),
        SLOT(PlayerImpl, setTimeZone, 85), SLOT(PlayerImpl, setDebugMode, 86),
        SLOT(PlayerImpl, getCurrentSignalInformation, 87),
        SLOT(PlayerImpl, getNitFrequencyByDtvRegion, 88), SLOT(PlayerImpl, getChinaDvbcRegion, 89),
        SLOT(PlayerImpl, setChinaDvbcRegion, 90), SLOT(PlayerImpl, changeSetting, 91),
        // two operations skipped
        SLOT(PlayerImpl, setUserLocationCode, 94), SLOT(PlayerImpl, getUserLocationCode, 95),
        // two operations skipped
        SLOT(PlayerImpl, getAntennaType, 98), SLOT(PlayerImpl, autostartApplication, 99),
        SLOT(PlayerImpl, startApplication, 100), SLOT(PlayerImpl, stopApplication, 101),
        SLOT(PlayerImpl, enableGinga, 102), SLOT(PlayerImpl, disableGigna, 103),
        SLOT(PlayerImpl, isGingaEnabled, 104), SLOT(PlayerImpl, isGingaRunning, 105),
        SLOT(PlayerImpl, processKey, 106),
        // one operation skipped
        SLOT(PlayerImpl, setCurrentEventStatus, 108), SLOT(PlayerImpl, getCurrentEventStatus, 109),
        SLOT(PlayerImpl, getChannelLogoARGB, 110), SLOT(PlayerImpl, getEWBSInfo, 111),
        SLOT(PlayerImpl, setEWBSOpInfo, 112), SLOT(PlayerImpl, getEWBSOpInfo, 113),
        SLOT(PlayerImpl, setVChipGuideline, 114),
        // three operations skipped
        SLOT(PlayerImpl, getEASInProgress, 118), SLOT(PlayerImpl, getCurrentVChipBlockStatus, 119),
        SLOT(PlayerImpl, enterPassToUnlockUnratedByUser, 120),
        SLOT(PlayerImpl, enterPassToUnlockByUser, 121),
        SLOT(PlayerImpl, getCurrentRatingInformation, 122), SLOT(PlayerImpl, setAudioMute, 123),
        SLOT(PlayerImpl, getRRTInformation, 124), SLOT(PlayerImpl, resetRrtInformation, 125),
        SLOT(PlayerImpl, atsc_setAntennaType, 126), SLOT(PlayerImpl, getDTVDemodVersion, 127),
        SLOT(PlayerImpl, getDemodDVBTInfo, 128), SLOT(PlayerImpl, getDemodDVBCInfo, 129),
        SLOT(PlayerImpl, setAutoSync, 130), SLOT(PlayerImpl, getLogoData, 131),
        SLOT(PlayerImpl, getVChipRatingInfo, 132), SLOT(PlayerImpl, getCurrentSatelliteCount, 133),
        SLOT(PlayerImpl, getSatelliteInfo, 134), SLOT(PlayerImpl, getCurrentSatelliteNumber, 135),
        SLOT(PlayerImpl, setCurrentSatelliteNumber, 136), SLOT(PlayerImpl, getTransponderCount, 137),
        SLOT(PlayerImpl, getCurrentTransponderNumber, 138),
        SLOT(PlayerImpl, setCurrentTransponderNumber, 139), SLOT(PlayerImpl, getTransponderInfo, 140),
        SLOT(PlayerImpl, updateSatelliteInfo, 141), SLOT(PlayerImpl, updateTransponderInfo, 142),
        SLOT(PlayerImpl, addSatelliteInfo, 143), SLOT(PlayerImpl, addTransponderInfo, 144),
        SLOT(PlayerImpl, deleteSatelliteInfo, 145), SLOT(PlayerImpl, deleteTransponderInfo, 146),
        SLOT(PlayerImpl, verifySlotFrequency, 147), SLOT(PlayerImpl, setDishLNBPowerMode, 148),
        SLOT(PlayerImpl, setDish22KMode, 149), SLOT(PlayerImpl, setDishToneburstMode, 150),
        SLOT(PlayerImpl, setDiSEqCSwitchPort, 151), SLOT(PlayerImpl, sendDiSEqCMotorCommand, 152),
        SLOT(PlayerImpl, getUserLocationCount, 153), SLOT(PlayerImpl, getUserLocationInfo, 154),
        SLOT(PlayerImpl, setProgramSortByType, 155),
        // six operations skipped
        SLOT(PlayerImpl, getHdmiEdidVersionBySource, 162),
        SLOT(PlayerImpl, setHdmiEdidVersionBySource, 163),
        SLOT(PlayerImpl, getAllBISSProgramInfo, 164),
        SLOT(PlayerImpl, setProgramBISSKeyByNumber, 165),
        SLOT(PlayerImpl, clearProgramBISSKeyByNumber, 166),
    };
    EXPECT_EQ(sizeof(table) / sizeof(table[0]), 139u) << "every operation the bridge calls";
    for (const Expect& e : table) EXPECT_EQ(e.actual, e.slot) << e.op;
}

TEST(Slots, ListenerOperationsSitWhereTheServiceCallsThem) {
    // The service's listener interface, in declaration order: the two dispatchers, then the
    // 57 event operations; the destructor pair follows at 59 and 60.
    const char* const order[] = {
        "notify", "notifyCB", "PostEvent_ChannelNameReady", "PostEvent_AtvAutoTuning",
        "PostEvent_ManualTuning", "PostEvent_DtvAutoTuning", "PostEvent_ProgramInfoReady",
        "PostEvent_SignalLock", "PostEvent_SignalUnlock", "PostEvent_PopupDialog",
        "PostEvent_ScreenSaverMode", "PostEvent_CiLoadCredentialFail", "PostEvent_EpgTimerSimulcast",
        "PostEvent_HbbtvStatusMode", "PostEvent_Mheg5StatusMode", "PostEvent_Mheg5ReturnKey",
        "PostEvent_OadHandler", "PostEvent_OadDownload", "PostEvent_PvrPlaybackTime",
        "PostEvent_PvrPlaybackSpeedChange", "PostEvent_PvrRecordTime", "PostEvent_PvrRecordSize",
        "PostEvent_PvrRecordStop", "PostEvent_PvrPlaybackStop", "PostEvent_PvrPlaybackBegin",
        "PostEvent_PvrTimeshiftBefore", "PostEvent_PvrTimeshiftAfter", "PostEvent_OverRun",
        "PostEvent_UsbRemoved", "PostEvent_CiPlusProtection", "PostEvent_ParentalControl",
        "PostEvent_AlwaysTimeshiftProgramReady", "PostEvent_AlwaysTimeShiftProgramNotReady",
        "PostEvent_PvrCiPlusRetentionLimit", "PostEvent_AutoUpdateScan", "PostEvent_TsChange",
        "PostEvent_PopupScanDialogLossSignal", "PostEvent_PopupScanDialogNewMultiplex",
        "PostEvent_PopupScanDialogFreqChange", "PostEvent_RctPresence", "PostEvent_ChangeTtxStatus",
        "PostEvent_PriComponentMissing", "PostEvent_AudioModeChange", "PostEvent_Mheg5EventHandler",
        "PostEvent_OadTimeOut", "PostEvent_GingaStatusMode", "PostEvent_HbbtvEvent",
        "PostEvent_EpgUpdateList", "PostEvent_SnServiceDeadth", "PostEvent_4k2kHDMIDisablePip",
        "PostEvent_4k2kHDMIDisablePop", "PostEvent_4k2kHDMIDisableDualView",
        "PostEvent_4k2kHDMIDisableTravelingMode", "PostEvent_OPRefreshQuery",
        "PostEvent_OPServiceList", "PostEvent_ExitOPServiceList", "PostEvent_Emerency_Alert",
        "PostEvent_DtvChannelInfoUpdate", "PostEvent_EpgUpdate",
    };
    using L = PlayerImplListener;
    const Expect actual[] = {
        {"notify", slotOf(static_cast<void (L::*)(int, const android::Parcel&)>(&L::notify)), 0},
        {"notifyCB", slotOf(&L::notifyCB), 0},
#define OP(name) {#name, slotOf(&L::name), 0}
        OP(PostEvent_ChannelNameReady), OP(PostEvent_AtvAutoTuning), OP(PostEvent_ManualTuning),
        OP(PostEvent_DtvAutoTuning), OP(PostEvent_ProgramInfoReady), OP(PostEvent_SignalLock),
        OP(PostEvent_SignalUnlock), OP(PostEvent_PopupDialog), OP(PostEvent_ScreenSaverMode),
        OP(PostEvent_CiLoadCredentialFail), OP(PostEvent_EpgTimerSimulcast),
        OP(PostEvent_HbbtvStatusMode), OP(PostEvent_Mheg5StatusMode), OP(PostEvent_Mheg5ReturnKey),
        OP(PostEvent_OadHandler), OP(PostEvent_OadDownload), OP(PostEvent_PvrPlaybackTime),
        OP(PostEvent_PvrPlaybackSpeedChange), OP(PostEvent_PvrRecordTime),
        OP(PostEvent_PvrRecordSize), OP(PostEvent_PvrRecordStop), OP(PostEvent_PvrPlaybackStop),
        OP(PostEvent_PvrPlaybackBegin), OP(PostEvent_PvrTimeshiftBefore),
        OP(PostEvent_PvrTimeshiftAfter), OP(PostEvent_OverRun), OP(PostEvent_UsbRemoved),
        OP(PostEvent_CiPlusProtection), OP(PostEvent_ParentalControl),
        OP(PostEvent_AlwaysTimeshiftProgramReady), OP(PostEvent_AlwaysTimeShiftProgramNotReady),
        OP(PostEvent_PvrCiPlusRetentionLimit), OP(PostEvent_AutoUpdateScan), OP(PostEvent_TsChange),
        OP(PostEvent_PopupScanDialogLossSignal), OP(PostEvent_PopupScanDialogNewMultiplex),
        OP(PostEvent_PopupScanDialogFreqChange), OP(PostEvent_RctPresence),
        OP(PostEvent_ChangeTtxStatus), OP(PostEvent_PriComponentMissing),
        OP(PostEvent_AudioModeChange), OP(PostEvent_Mheg5EventHandler), OP(PostEvent_OadTimeOut),
        OP(PostEvent_GingaStatusMode), OP(PostEvent_HbbtvEvent), OP(PostEvent_EpgUpdateList),
        OP(PostEvent_SnServiceDeadth), OP(PostEvent_4k2kHDMIDisablePip),
        OP(PostEvent_4k2kHDMIDisablePop), OP(PostEvent_4k2kHDMIDisableDualView),
        OP(PostEvent_4k2kHDMIDisableTravelingMode), OP(PostEvent_OPRefreshQuery),
        OP(PostEvent_OPServiceList), OP(PostEvent_ExitOPServiceList),
        OP(PostEvent_Emerency_Alert), OP(PostEvent_DtvChannelInfoUpdate), OP(PostEvent_EpgUpdate),
#undef OP
    };
    ASSERT_EQ(sizeof(actual) / sizeof(actual[0]), sizeof(order) / sizeof(order[0]));
    for (size_t i = 0; i < sizeof(order) / sizeof(order[0]); ++i) {
        EXPECT_STREQ(actual[i].op, order[i]);
        EXPECT_EQ(actual[i].actual, static_cast<long>(i)) << order[i];
    }
}

}  // namespace
