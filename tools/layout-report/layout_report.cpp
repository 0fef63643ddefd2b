// Native-only layout report: the sizes and field offsets of every record the player service
// fills or reads, the positions of the service interface's virtual operations, and the key
// translations of the key-forwarding handlers (key_report.cpp). Built for the workstation and
// for the AArch64 device; the cross-build script runs both and diffs the reports, so any
// difference between the two targets fails. Slot positions and key translations are also
// checked here against the service's documented operation order and key behaviour.
//
// Output: one "record", "field", "slot" or "key" line per item, then a "FAIL ..." line for
// everything out of place. Exit status 1 when anything failed.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "core/PlayerImpl.h"
#include "marshal/atsc_eas.h"
#include "marshal/audio.h"
#include "marshal/caption_logo.h"
#include "marshal/demod.h"
#include "marshal/isdb.h"
#include "marshal/multiplex.h"
#include "marshal/picture.h"
#include "marshal/satellite.h"
#include "native_report.h"
#include "surface/video_surface.h"

int native_report::failures = 0;

namespace {

int& gFailures = native_report::failures;

// ---- Records -----------------------------------------------------------------------------

struct FieldRow {
    const char* record;
    const char* field;  // nullptr: the row describes the record itself
    size_t offset;
    size_t size;
    size_t align;
};

#define R(T) FieldRow{#T, nullptr, 0, sizeof(T), alignof(T)},
#define F(T, f) FieldRow{#T, #f, offsetof(T, f), sizeof(T::f), 0},
// clang-format off
const FieldRow kFields[] = {
    R(VideoArcInfoRec) F(VideoArcInfoRec, arcType) F(VideoArcInfoRec, threeDimensionArcType)
        F(VideoArcInfoRec, adjArcLeft) F(VideoArcInfoRec, adjArcRight) F(VideoArcInfoRec, adjArcUp)
        F(VideoArcInfoRec, adjArcDown) F(VideoArcInfoRec, bSetCusWin)
    R(VideoInfoRec) F(VideoInfoRec, hResolution) F(VideoInfoRec, vResolution)
        F(VideoInfoRec, frameRate) F(VideoInfoRec, modeIndex) F(VideoInfoRec, enScanType)
        F(VideoInfoRec, arcDescriptionType) F(VideoInfoRec, arcType) F(VideoInfoRec, afdAspectRatio)
    R(DtvProgramSignalInfoRec) F(DtvProgramSignalInfoRec, rfNumber)
        F(DtvProgramSignalInfoRec, modulationMode) F(DtvProgramSignalInfoRec, amMode)
        F(DtvProgramSignalInfoRec, quality) F(DtvProgramSignalInfoRec, strength)
        F(DtvProgramSignalInfoRec, symbolRate) F(DtvProgramSignalInfoRec, networkName)
    R(LangIso639Rec) F(LangIso639Rec, audioMode) F(LangIso639Rec, audioType)
        F(LangIso639Rec, isoLangInfo) F(LangIso639Rec, isValid)
    R(AudioInfoRec) F(AudioInfoRec, aacProfileAndLevel) F(AudioInfoRec, aacType)
        F(AudioInfoRec, audioPid) F(AudioInfoRec, audioType) F(AudioInfoRec, broadcastMixAd)
        F(AudioInfoRec, isoLangInfo)
    R(DtvAudioInfoRec) F(DtvAudioInfoRec, audioLangNum) F(DtvAudioInfoRec, audioInfos)
        F(DtvAudioInfoRec, currentAudioIndex) F(DtvAudioInfoRec, currentChannelMode)
    R(DvbMuxInfoRec) F(DvbMuxInfoRec, satTableId) F(DvbMuxInfoRec, networkTableID)
        F(DvbMuxInfoRec, refCnt) F(DvbMuxInfoRec, transportStreamId)
        F(DvbMuxInfoRec, originalNetworkId) F(DvbMuxInfoRec, networkId) F(DvbMuxInfoRec, cellID)
        F(DvbMuxInfoRec, rfNumber) F(DvbMuxInfoRec, frequency) F(DvbMuxInfoRec, lossSignalFrequency)
        F(DvbMuxInfoRec, lossSignalStartTime) F(DvbMuxInfoRec, symbRate)
        F(DvbMuxInfoRec, modulationMode) F(DvbMuxInfoRec, plpID) F(DvbMuxInfoRec, lpCoding)
        F(DvbMuxInfoRec, satID) F(DvbMuxInfoRec, bandwidth) F(DvbMuxInfoRec, polarityPilotsReserved)
    R(RfInfoRec) F(RfInfoRec, rfPhyNum) F(RfInfoRec, frequency) F(RfInfoRec, isVHF)
        F(RfInfoRec, rfName)
    R(DtvDemodVersionRec) F(DtvDemodVersionRec, name) F(DtvDemodVersionRec, version)
        F(DtvDemodVersionRec, build) F(DtvDemodVersionRec, changelist)
    R(DtvDemodDvbtInfoRec) F(DtvDemodDvbtInfoRec, u16Version) F(DtvDemodDvbtInfoRec, u16DemodState)
        F(DtvDemodDvbtInfoRec, SfoValue) F(DtvDemodDvbtInfoRec, TotalCfo)
        F(DtvDemodDvbtInfoRec, u16ChannelLength) F(DtvDemodDvbtInfoRec, u8Fft)
        F(DtvDemodDvbtInfoRec, u8Constel) F(DtvDemodDvbtInfoRec, u8Gi)
        F(DtvDemodDvbtInfoRec, u8HpCr) F(DtvDemodDvbtInfoRec, u8LpCr)
        F(DtvDemodDvbtInfoRec, u8Hiearchy) F(DtvDemodDvbtInfoRec, u8Fd)
        F(DtvDemodDvbtInfoRec, u8ChLen) F(DtvDemodDvbtInfoRec, u8SnrSel)
        F(DtvDemodDvbtInfoRec, u8PertoneNum) F(DtvDemodDvbtInfoRec, u8DigAci)
        F(DtvDemodDvbtInfoRec, u8FlagCi) F(DtvDemodDvbtInfoRec, u8TdCoef)
    R(DtvDemodDvbcInfoRec) F(DtvDemodDvbcInfoRec, u16Version) F(DtvDemodDvbcInfoRec, u16SymbolRate)
        F(DtvDemodDvbcInfoRec, eQamMode) F(DtvDemodDvbcInfoRec, u32IFFreq)
        F(DtvDemodDvbcInfoRec, bSpecInv) F(DtvDemodDvbcInfoRec, bSerialTS)
        F(DtvDemodDvbcInfoRec, u8SarValue) F(DtvDemodDvbcInfoRec, u32ChkScanTimeStart)
        F(DtvDemodDvbcInfoRec, eLockStatus) F(DtvDemodDvbcInfoRec, u16Strength)
        F(DtvDemodDvbcInfoRec, u16Quality) F(DtvDemodDvbcInfoRec, u32Intp)
        F(DtvDemodDvbcInfoRec, u32FcFs) F(DtvDemodDvbcInfoRec, u8Qam)
        F(DtvDemodDvbcInfoRec, u16SymbolRateHal)
    R(VapiPsipEasLocationCodeRec) F(VapiPsipEasLocationCodeRec, u8StateCode)
        F(VapiPsipEasLocationCodeRec, u8CountySubdivision)
        F(VapiPsipEasLocationCodeRec, u16CountyCode)
    R(VapiPsipEasExceptionRec) F(VapiPsipEasExceptionRec, bInBandRef)
        F(VapiPsipEasExceptionRec, u16ExcMajorNum) F(VapiPsipEasExceptionRec, u16ExcMinorNum)
        F(VapiPsipEasExceptionRec, u16ExcOOB_SrcID)
    R(MwAtscEasInfoRec) F(MwAtscEasInfoRec, u8VerNum) F(MwAtscEasInfoRec, u16EAS_EventID)
        F(MwAtscEasInfoRec, au8EAS_OriginatorCode) F(MwAtscEasInfoRec, u8AlertTimeRemain)
        F(MwAtscEasInfoRec, u32EventStartTime) F(MwAtscEasInfoRec, u16EventDuration)
        F(MwAtscEasInfoRec, u8AlertPriority) F(MwAtscEasInfoRec, u16DetailsMajorNum)
        F(MwAtscEasInfoRec, u16DetailsMinorNum) F(MwAtscEasInfoRec, u8LocationCodeCount)
        F(MwAtscEasInfoRec, astLocationCode) F(MwAtscEasInfoRec, u8ExceptionCount)
        F(MwAtscEasInfoRec, astException) F(MwAtscEasInfoRec, au8EAS_EventCode)
        F(MwAtscEasInfoRec, au8NatActText) F(MwAtscEasInfoRec, au8AlertText)
    R(SatelliteInfoRec) F(SatelliteInfoRec, satName) F(SatelliteInfoRec, lowLOF)
        F(SatelliteInfoRec, hiLOF) F(SatelliteInfoRec, lnbType) F(SatelliteInfoRec, lnbFreq)
        F(SatelliteInfoRec, diseqcLevel) F(SatelliteInfoRec, toneburstType)
        F(SatelliteInfoRec, swt10Port) F(SatelliteInfoRec, swt11Port) F(SatelliteInfoRec, e22KOnOff)
        F(SatelliteInfoRec, lnbPwrOnOff) F(SatelliteInfoRec, ov12VOnOff)
        F(SatelliteInfoRec, position) F(SatelliteInfoRec, angle) F(SatelliteInfoRec, numberOfTp)
        F(SatelliteInfoRec, satelliteId) F(SatelliteInfoRec, channelId)
        F(SatelliteInfoRec, frequency) F(SatelliteInfoRec, mdu) F(SatelliteInfoRec, pin)
        F(SatelliteInfoRec, lnbIdx)
    R(DvbsTransponderInfoRec) F(DvbsTransponderInfoRec, frequency)
        F(DvbsTransponderInfoRec, symbolRate) F(DvbsTransponderInfoRec, polarity)
        F(DvbsTransponderInfoRec, satelliteId) F(DvbsTransponderInfoRec, rf)
        F(DvbsTransponderInfoRec, tpId)
    R(LocationInfoRec) F(LocationInfoRec, locationName) F(LocationInfoRec, longitude)
        F(LocationInfoRec, latitude)
    R(CaptionOptionSettingRec) F(CaptionOptionSettingRec, currProgInfoFGColor)
        F(CaptionOptionSettingRec, currProgInfoBGColor)
        F(CaptionOptionSettingRec, currProgInfoFGOpacity)
        F(CaptionOptionSettingRec, currProgInfoBGOpacity)
        F(CaptionOptionSettingRec, currProgInfoFontSize)
        F(CaptionOptionSettingRec, currProgInfoFontStyle)
        F(CaptionOptionSettingRec, currProgInfoEdgeStyle)
        F(CaptionOptionSettingRec, currProgInfoEdgeColor)
        F(CaptionOptionSettingRec, currProgInfoItalicsAttr)
        F(CaptionOptionSettingRec, currProgInfoUnderlineAttr)
    R(HdmiGpioRec) F(HdmiGpioRec, values)
};
// clang-format on
#undef R
#undef F

void reportRecords() {
    for (const FieldRow& row : kFields) {
        if (row.field == nullptr) {
            std::printf("record %s size %zu align %zu\n", row.record, row.size, row.align);
        } else {
            std::printf("field %s.%s offset %zu size %zu\n", row.record, row.field, row.offset,
                        row.size);
        }
    }
}

// ---- Virtual operation slots -------------------------------------------------------------

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

// One row per operation in the service's documented order; Gap(n) stands for n operations
// this library never calls. The expected slot of a row is its position in this list.
struct SlotRow {
    const char* name;  // nullptr for a gap
    long actual;       // gap rows: the number of slots skipped
};

#define OP(C, name) SlotRow{#name, slotOf(&C::name)},
#define GAP(n) SlotRow{nullptr, n},

// The proxy, as the service documents its table.
#define P(name) OP(PlayerImpl, name)
// clang-format off
const SlotRow kProxySlots[] = {
    GAP(13)
    P(startPcModeAtuoTune) P(closeTeletext) P(stopCc) P(getAspectRatio) P(getPhaseRange)
    P(getVideoInfo) P(getVideoStandard) P(getVideoStandardDetectionState) P(doesCcExist)
    P(isHdmiMode) P(isSignalStable) P(hasTeletextSignal) P(hasTeletextClockSignal)
    P(isTeletextDisplayed) P(isTeletextSubtitleChannel) P(openTeletext) P(sendTeletextCommand)
    P(setTeletextLanguageGroup) P(openPAT) P(setHPosition) P(setPhase) P(setSize) P(setVPosition)
    P(startCc) P(setMirror) P(disableAutoScartOut) P(enableAutoScartOut) P(sendMheg5Command)
    P(sendMheg5IcsCommand) P(isMheg5Running) P(initOfflineDetection) P(detectInputSource)
    P(setHdmiGpio) P(setCcMode) P(getCcMode) P(getAirChannelType)
    GAP(1)
    P(exitPreviewCCWin) P(createPreviewCCWin) P(drawPreviewCCWin) P(disableAft) P(enableAft)
    P(initAtvVif) P(isAftEnabled) P(saveAtvProgram) P(setChannelChangeFreezeMode)
    P(startAutoStandardDetection) P(forceVideoStandard) P(getAudioInfo) P(getRfInfo)
    P(playCurrentProgram) P(setManualTuneByFreq) P(setManualTuneByRf) P(changeManualScanRF)
    P(switchAudioTrack) P(setAudioMode) P(getEWSInfo) P(getAudioInfo_ex) P(getCurrentMuxInfo)
    P(getDtvRouteCount) P(getMuxInfoByProgramNumber) P(setDtvRoute) P(setFavoriteRegion)
    P(switchDtvRoute) P(unlockChannel) P(getCountryCode) P(setCountry) P(setParental)
    P(getLanguageCode) P(enableAutoClock) P(disableAutoClock) P(getMheg5PfgContent)
    P(setTimeZone) P(setDebugMode) P(getCurrentSignalInformation) P(getNitFrequencyByDtvRegion)
    P(getChinaDvbcRegion) P(setChinaDvbcRegion) P(changeSetting)
    GAP(2)
    P(setUserLocationCode) P(getUserLocationCode)
    GAP(2)
    P(getAntennaType) P(autostartApplication) P(startApplication) P(stopApplication)
    P(enableGinga) P(disableGigna) P(isGingaEnabled) P(isGingaRunning) P(processKey)
    GAP(1)
    P(setCurrentEventStatus) P(getCurrentEventStatus) P(getChannelLogoARGB) P(getEWBSInfo)
    P(setEWBSOpInfo) P(getEWBSOpInfo) P(setVChipGuideline)
    GAP(3)
    P(getEASInProgress) P(getCurrentVChipBlockStatus) P(enterPassToUnlockUnratedByUser)
    P(enterPassToUnlockByUser) P(getCurrentRatingInformation) P(setAudioMute)
    P(getRRTInformation) P(resetRrtInformation) P(atsc_setAntennaType) P(getDTVDemodVersion)
    P(getDemodDVBTInfo) P(getDemodDVBCInfo) P(setAutoSync) P(getLogoData)
    P(getVChipRatingInfo) P(getCurrentSatelliteCount) P(getSatelliteInfo)
    P(getCurrentSatelliteNumber) P(setCurrentSatelliteNumber) P(getTransponderCount)
    P(getCurrentTransponderNumber) P(setCurrentTransponderNumber) P(getTransponderInfo)
    P(updateSatelliteInfo) P(updateTransponderInfo) P(addSatelliteInfo) P(addTransponderInfo)
    P(deleteSatelliteInfo) P(deleteTransponderInfo) P(verifySlotFrequency)
    P(setDishLNBPowerMode) P(setDish22KMode) P(setDishToneburstMode) P(setDiSEqCSwitchPort)
    P(sendDiSEqCMotorCommand) P(getUserLocationCount) P(getUserLocationInfo)
    P(setProgramSortByType)
    GAP(6)
    P(getHdmiEdidVersionBySource) P(setHdmiEdidVersionBySource) P(getAllBISSProgramInfo)
    P(setProgramBISSKeyByNumber) P(clearProgramBISSKeyByNumber)
};
// clang-format on
#undef P

// The callback interface, in the service's declaration order.
#define L(name) OP(PlayerImplListener, name)
// clang-format off
const SlotRow kListenerSlots[] = {
    L(notify) L(notifyCB) L(PostEvent_ChannelNameReady) L(PostEvent_AtvAutoTuning)
    L(PostEvent_ManualTuning) L(PostEvent_DtvAutoTuning) L(PostEvent_ProgramInfoReady)
    L(PostEvent_SignalLock) L(PostEvent_SignalUnlock) L(PostEvent_PopupDialog)
    L(PostEvent_ScreenSaverMode) L(PostEvent_CiLoadCredentialFail) L(PostEvent_EpgTimerSimulcast)
    L(PostEvent_HbbtvStatusMode) L(PostEvent_Mheg5StatusMode) L(PostEvent_Mheg5ReturnKey)
    L(PostEvent_OadHandler) L(PostEvent_OadDownload) L(PostEvent_PvrPlaybackTime)
    L(PostEvent_PvrPlaybackSpeedChange) L(PostEvent_PvrRecordTime) L(PostEvent_PvrRecordSize)
    L(PostEvent_PvrRecordStop) L(PostEvent_PvrPlaybackStop) L(PostEvent_PvrPlaybackBegin)
    L(PostEvent_PvrTimeshiftBefore) L(PostEvent_PvrTimeshiftAfter) L(PostEvent_OverRun)
    L(PostEvent_UsbRemoved) L(PostEvent_CiPlusProtection) L(PostEvent_ParentalControl)
    L(PostEvent_AlwaysTimeshiftProgramReady) L(PostEvent_AlwaysTimeShiftProgramNotReady)
    L(PostEvent_PvrCiPlusRetentionLimit) L(PostEvent_AutoUpdateScan) L(PostEvent_TsChange)
    L(PostEvent_PopupScanDialogLossSignal) L(PostEvent_PopupScanDialogNewMultiplex)
    L(PostEvent_PopupScanDialogFreqChange) L(PostEvent_RctPresence) L(PostEvent_ChangeTtxStatus)
    L(PostEvent_PriComponentMissing) L(PostEvent_AudioModeChange) L(PostEvent_Mheg5EventHandler)
    L(PostEvent_OadTimeOut) L(PostEvent_GingaStatusMode) L(PostEvent_HbbtvEvent)
    L(PostEvent_EpgUpdateList) L(PostEvent_SnServiceDeadth) L(PostEvent_4k2kHDMIDisablePip)
    L(PostEvent_4k2kHDMIDisablePop) L(PostEvent_4k2kHDMIDisableDualView)
    L(PostEvent_4k2kHDMIDisableTravelingMode) L(PostEvent_OPRefreshQuery)
    L(PostEvent_OPServiceList) L(PostEvent_ExitOPServiceList) L(PostEvent_Emerency_Alert)
    L(PostEvent_DtvChannelInfoUpdate) L(PostEvent_EpgUpdate)
};
// clang-format on
#undef L
#undef OP
#undef GAP

// A class derived with one new virtual operation: that operation lands right after the
// base's last slot, which tells where the base's table (destructor pair included) ends.
struct ProxyProbe : PlayerImpl {
    virtual void probe();
};
struct ListenerProbe : PlayerImplListener {
    virtual void probe();
};

// Prints every row and checks it; returns the slot after the last operation.
template <size_t N>
long checkSlots(const char* cls, const SlotRow (&rows)[N]) {
    long expected = 0;
    for (const SlotRow& row : rows) {
        if (row.name == nullptr) {
            expected += row.actual;
            continue;
        }
        std::printf("slot %s::%s %ld\n", cls, row.name, row.actual);
        if (row.actual != expected) {
            std::printf("FAIL slot %s::%s is %ld, the service has it at %ld\n", cls, row.name,
                        row.actual, expected);
            ++gFailures;
        }
        ++expected;
    }
    return expected;
}

void checkTableEnd(const char* cls, long lastOperationEnd, long probeSlot, long expectedEnd) {
    std::printf("slot %s table-end %ld\n", cls, probeSlot);
    // The destructor pair follows the last operation.
    if (probeSlot != lastOperationEnd + 2 || (expectedEnd >= 0 && probeSlot != expectedEnd)) {
        std::printf("FAIL %s: table ends at %ld, expected the destructor pair at %ld and %ld\n",
                    cls, probeSlot, lastOperationEnd, lastOperationEnd + 1);
        ++gFailures;
    }
}

}  // namespace

int main() {
#if defined(__aarch64__)
    std::fprintf(stderr, "layout report for aarch64\n");
#elif defined(__x86_64__)
    std::fprintf(stderr, "layout report for x86-64\n");
#endif
    reportRecords();
    long proxyEnd = checkSlots("PlayerImpl", kProxySlots);
    checkTableEnd("PlayerImpl", proxyEnd, slotOf(&ProxyProbe::probe), -1);
    long listenerEnd = checkSlots("PlayerImplListener", kListenerSlots);
    // 59 operations, then the destructor pair at 59 and 60.
    checkTableEnd("PlayerImplListener", listenerEnd, slotOf(&ListenerProbe::probe), 61);
    native_report::reportKeys();
    std::fprintf(stderr, "%zu layout rows, %zu + %zu slot rows, %d failed\n",
                 sizeof kFields / sizeof kFields[0], sizeof kProxySlots / sizeof kProxySlots[0],
                 sizeof kListenerSlots / sizeof kListenerSlots[0], gFailures);
    return gFailures == 0 ? 0 : 1;
}
