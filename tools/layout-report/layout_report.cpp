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
#include "service_slots.h"
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

using service_slots::slotOf;

// One row per operation in the service's order (player_operations.def, service_slots.h); a
// gap row stands for an operation this library never calls. The expected slot of a row is its
// position in the list.
struct SlotRow {
    const char* name;  // nullptr for a gap
    long actual;       // gap rows: the number of slots skipped
};

#define PIJ_PLAYER_OP(result, name, parameters, arguments) \
    SlotRow{#name, slotOf(&PlayerImpl::name)},
#define PIJ_PLAYER_PLACEHOLDER(name) SlotRow{nullptr, 1},
const SlotRow kProxySlots[] = {
#include "core/player_operations.def"
};
#undef PIJ_PLAYER_OP
#undef PIJ_PLAYER_PLACEHOLDER
#define PIJ_LISTENER_OP(name, parameters) SlotRow{#name, slotOf(&PlayerImplListener::name)},
#define PIJ_LISTENER_EVENT(name) PIJ_LISTENER_OP(name, )
#define PIJ_LISTENER_PARCEL_EVENT(name) PIJ_LISTENER_OP(name, )
const SlotRow kListenerSlots[] = {
#include "core/listener_operations.def"
};
#undef PIJ_LISTENER_OP
#undef PIJ_LISTENER_EVENT
#undef PIJ_LISTENER_PARCEL_EVENT

using service_slots::ListenerProbe;
using service_slots::ProxyProbe;

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
