// The player service proxy and its callback interface, as the closed PlayerImpl_hidl
// library lays them out. Only the order of the virtual operations matters to us: we call
// every operation through the proxy's table of virtual operations, so each declaration
// below sits at the slot the service library gives it. Slots the bridge never calls are
// kept as placeholders so that the ones after them stay where they are.
//
// Slot numbers in the comments are 0-based positions in PlayerImpl's primary table.
#pragma once

#include <cstdint>
#include <vector>

#include "core/parcel.h"
#include <utils/RefBase.h>
#include <utils/String8.h>

// Booleans answered by the proxy travel as one byte; the service does not promise 0 or 1
// in it, so we read the byte as a number and keep bit 0 ourselves.
using ProxyBool = uint8_t;

// Native records exchanged with the proxy; each is laid out by the file that marshals it.
struct VideoArcInfoRec;
struct VideoInfoRec;
struct DtvProgramSignalInfoRec;
struct DtvAudioInfoRec;
struct RfInfoRec;
struct DvbMuxInfoRec;
struct MwAtscEasInfoRec;
struct DtvDemodVersionRec;
struct DtvDemodDvbtInfoRec;
struct DtvDemodDvbcInfoRec;
struct SatelliteInfoRec;
struct DvbsTransponderInfoRec;
struct LocationInfoRec;
struct CaptionOptionSettingRec;
struct HdmiGpioRec;

class PlayerImplListener;

class PlayerImpl : public virtual android::RefBase {
public:
    // Non-virtual members, imported by name.
    static android::sp<PlayerImpl> connect();
    void disconnect();
    void setListener(const android::sp<PlayerImplListener>& listener);

    // Slots 0-12: operations this library does not call.
    virtual void slot00_unused();
    virtual void slot01_unused();
    virtual void slot02_unused();
    virtual void slot03_unused();
    virtual void slot04_unused();
    virtual void slot05_unused();
    virtual void slot06_unused();
    virtual void slot07_unused();
    virtual void slot08_unused();
    virtual void slot09_unused();
    virtual void slot10_unused();
    virtual void slot11_unused();
    virtual void slot12_unused();

    virtual ProxyBool startPcModeAtuoTune();                          // 13
    virtual ProxyBool closeTeletext();                                // 14
    virtual ProxyBool stopCc();                                       // 15
    virtual void getAspectRatio(VideoArcInfoRec& out);                // 16
    virtual int32_t getPhaseRange();                                  // 17
    virtual void getVideoInfo(VideoInfoRec& out);                     // 18
    virtual int32_t getVideoStandard();                               // 19
    virtual int32_t getVideoStandardDetectionState();                 // 20
    virtual ProxyBool doesCcExist();                                  // 21
    virtual ProxyBool isHdmiMode();                                   // 22
    virtual ProxyBool isSignalStable();                               // 23
    virtual ProxyBool hasTeletextSignal();                            // 24
    virtual ProxyBool hasTeletextClockSignal();                       // 25
    virtual ProxyBool isTeletextDisplayed();                          // 26
    virtual ProxyBool isTeletextSubtitleChannel();                    // 27
    virtual ProxyBool openTeletext(int32_t mode);                     // 28
    virtual ProxyBool sendTeletextCommand(int32_t command);           // 29
    virtual ProxyBool setTeletextLanguageGroup(int32_t group);        // 30
    virtual ProxyBool openPAT(int32_t mode);                          // 31
    virtual ProxyBool setHPosition(int32_t value);                    // 32
    virtual ProxyBool setPhase(int32_t value);                        // 33
    virtual ProxyBool setSize(int32_t value);                         // 34
    virtual ProxyBool setVPosition(int32_t value);                    // 35
    virtual ProxyBool startCc();                                      // 36
    virtual ProxyBool setMirror(bool enable);                         // 37
    virtual ProxyBool disableAutoScartOut();                          // 38
    virtual ProxyBool enableAutoScartOut();                           // 39
    virtual ProxyBool sendMheg5Command(int16_t command);              // 40
    virtual ProxyBool sendMheg5IcsCommand(int32_t command, int16_t param);  // 41
    virtual ProxyBool isMheg5Running();                               // 42
    virtual void initOfflineDetection();                              // 43
    virtual ProxyBool detectInputSource(int32_t source, int32_t flag);  // 44
    virtual ProxyBool setHdmiGpio(HdmiGpioRec* gpio);                 // 45
    virtual void setCcMode(int32_t mode);                             // 46
    virtual int32_t getCcMode();                                      // 47
    virtual int32_t getAirChannelType();                              // 48
    virtual void slot49_unused();                                     // 49
    virtual ProxyBool exitPreviewCCWin();                             // 50
    virtual ProxyBool createPreviewCCWin();                           // 51
    virtual ProxyBool drawPreviewCCWin(CaptionOptionSettingRec& setting);  // 52
    virtual ProxyBool disableAft();                                   // 53
    virtual ProxyBool enableAft();                                    // 54
    virtual void initAtvVif();                                        // 55
    virtual ProxyBool isAftEnabled();                                 // 56
    virtual ProxyBool saveAtvProgram(int32_t program);                // 57
    virtual void setChannelChangeFreezeMode(bool freeze);             // 58
    virtual void startAutoStandardDetection();                        // 59
    virtual void forceVideoStandard(int32_t standard);                // 60
    virtual void getAudioInfo(DtvAudioInfoRec& out);                  // 61
    virtual void getRfInfo(int32_t type, int32_t index, RfInfoRec& out);  // 62
    virtual ProxyBool playCurrentProgram();                           // 63
    virtual ProxyBool setManualTuneByFreq(int32_t frequency);         // 64
    virtual ProxyBool setManualTuneByRf(int16_t rf);                  // 65
    virtual ProxyBool changeManualScanRF(int32_t rf);                 // 66
    virtual void switchAudioTrack(int32_t track);                     // 67
    virtual ProxyBool setAudioMode(int32_t mode);                     // 68
    virtual ProxyBool getEWSInfo(android::Parcel* request, android::Parcel* reply);  // 69
    virtual void getAudioInfo_ex(DtvAudioInfoRec& out);               // 70
    virtual void getCurrentMuxInfo(DvbMuxInfoRec& out);               // 71
    virtual int32_t getDtvRouteCount();                               // 72
    virtual void getMuxInfoByProgramNumber(int32_t program, int16_t type, DvbMuxInfoRec& out);  // 73
    virtual void setDtvRoute(int16_t route);                          // 74
    virtual void setFavoriteRegion(int32_t region);                   // 75
    virtual ProxyBool switchDtvRoute(int16_t route);                  // 76
    virtual ProxyBool unlockChannel();                                // 77
    virtual void getCountryCode(android::String8& out);               // 78
    virtual ProxyBool setCountry(int32_t country);                    // 79
    virtual void setParental(int32_t level);                          // 80
    virtual void getLanguageCode(android::String8& out);              // 81
    virtual void enableAutoClock();                                   // 82
    virtual void disableAutoClock();                                  // 83
    virtual void getMheg5PfgContent(android::String8& out);           // 84
    virtual void setTimeZone(int32_t zone);                           // 85
    virtual void setDebugMode(bool on);                               // 86
    virtual void getCurrentSignalInformation(DtvProgramSignalInfoRec& out);  // 87
    virtual ProxyBool getNitFrequencyByDtvRegion(int32_t region, int32_t* first, int32_t* second);  // 88
    virtual int32_t getChinaDvbcRegion();                             // 89
    virtual void setChinaDvbcRegion(int32_t region);                  // 90
    virtual void changeSetting(int32_t setting);                      // 91
    virtual void slot92_unused();                                     // 92
    virtual void slot93_unused();                                     // 93
    virtual void setUserLocationCode(int32_t code);                   // 94
    virtual int32_t getUserLocationCode();                            // 95
    virtual void slot96_unused();                                     // 96
    virtual void slot97_unused();                                     // 97
    virtual int32_t getAntennaType();                                 // 98
    virtual ProxyBool autostartApplication();                         // 99
    virtual ProxyBool startApplication(int64_t orgId, int64_t appId); // 100
    virtual ProxyBool stopApplication();                              // 101
    virtual ProxyBool enableGinga();                                  // 102
    virtual ProxyBool disableGigna();                                 // 103
    virtual ProxyBool isGingaEnabled();                               // 104
    virtual ProxyBool isGingaRunning();                               // 105
    virtual ProxyBool processKey(int32_t key, bool pressed);          // 106
    virtual void slot107_unused();                                    // 107
    virtual void setCurrentEventStatus(int32_t event, bool status);   // 108
    virtual int32_t getCurrentEventStatus(int32_t event);             // 109
    virtual ProxyBool getChannelLogoARGB(uint32_t* pixels, int32_t capacity, int32_t* a,
                                         int32_t* b);                 // 110
    virtual int32_t getEWBSInfo(int32_t areaCode, int32_t* titleType,
                                std::vector<int32_t>* codes);         // 111
    virtual int32_t setEWBSOpInfo(int32_t op, int32_t value);         // 112
    virtual int32_t getEWBSOpInfo(int32_t op, int32_t* value);        // 113
    virtual ProxyBool setVChipGuideline(int16_t a, int16_t b, int16_t c, int16_t d);  // 114
    virtual void slot115_unused();                                    // 115
    virtual void slot116_unused();                                    // 116
    virtual void slot117_unused();                                    // 117
    virtual void getEASInProgress(MwAtscEasInfoRec& out);             // 118
    virtual void getCurrentVChipBlockStatus(uint8_t& blocked);        // 119
    virtual ProxyBool enterPassToUnlockUnratedByUser(bool unlock);    // 120
    virtual ProxyBool enterPassToUnlockByUser(bool unlock);           // 121
    virtual android::String8 getCurrentRatingInformation();           // 122
    virtual ProxyBool setAudioMute(int32_t type, int32_t source);     // 123
    virtual void getRRTInformation(android::Parcel* request, android::Parcel* reply);  // 124
    virtual ProxyBool resetRrtInformation();                          // 125
    virtual void atsc_setAntennaType(int32_t type);                   // 126
    virtual void getDTVDemodVersion(int32_t type, DtvDemodVersionRec& out);  // 127
    virtual ProxyBool getDemodDVBTInfo(DtvDemodDvbtInfoRec& out);     // 128
    virtual ProxyBool getDemodDVBCInfo(DtvDemodDvbcInfoRec& out);     // 129
    virtual ProxyBool setAutoSync(bool on);                           // 130
    virtual ProxyBool getLogoData(uint8_t* bytes, int32_t* a, int32_t* b);  // 131
    virtual ProxyBool getVChipRatingInfo(android::Parcel* request, android::Parcel* reply);  // 132
    virtual int32_t getCurrentSatelliteCount();                       // 133
    virtual void getSatelliteInfo(int32_t index, SatelliteInfoRec& out);  // 134
    virtual int32_t getCurrentSatelliteNumber();                      // 135
    virtual ProxyBool setCurrentSatelliteNumber(int32_t number);      // 136
    virtual int32_t getTransponderCount(int32_t satellite);           // 137
    virtual int32_t getCurrentTransponderNumber();                    // 138
    virtual ProxyBool setCurrentTransponderNumber(int32_t number);    // 139
    virtual void getTransponderInfo(int32_t satellite, int32_t index,
                                    DvbsTransponderInfoRec& out);     // 140
    virtual ProxyBool updateSatelliteInfo(int32_t index, SatelliteInfoRec& in);  // 141
    virtual ProxyBool updateTransponderInfo(int32_t satellite, int32_t index,
                                            DvbsTransponderInfoRec& in);  // 142
    virtual ProxyBool addSatelliteInfo(SatelliteInfoRec& in);         // 143
    virtual ProxyBool addTransponderInfo(int32_t satellite, DvbsTransponderInfoRec& in);  // 144
    virtual ProxyBool deleteSatelliteInfo(int32_t index);             // 145
    virtual ProxyBool deleteTransponderInfo(int32_t satellite, int32_t index);  // 146
    virtual ProxyBool verifySlotFrequency();                          // 147
    virtual ProxyBool setDishLNBPowerMode(int32_t mode);              // 148
    virtual ProxyBool setDish22KMode(int32_t mode);                   // 149
    virtual ProxyBool setDishToneburstMode(int32_t mode);             // 150
    virtual ProxyBool setDiSEqCSwitchPort(int32_t level, int32_t port);  // 151
    virtual ProxyBool sendDiSEqCMotorCommand(int32_t command);        // 152
    virtual int32_t getUserLocationCount();                           // 153
    virtual void getUserLocationInfo(int32_t index, LocationInfoRec& out);  // 154
    virtual ProxyBool setProgramSortByType(int32_t type);             // 155
    virtual void slot156_unused();                                    // 156
    virtual void slot157_unused();                                    // 157
    virtual void slot158_unused();                                    // 158
    virtual void slot159_unused();                                    // 159
    virtual void slot160_unused();                                    // 160
    virtual void slot161_unused();                                    // 161
    virtual int32_t getHdmiEdidVersionBySource(int32_t source);       // 162
    virtual ProxyBool setHdmiEdidVersionBySource(int32_t source, int32_t version);  // 163
    virtual void getAllBISSProgramInfo(android::Parcel* reply);       // 164
    virtual ProxyBool setProgramBISSKeyByNumber(int32_t program, int32_t type, uint8_t* key,
                                                int32_t length);      // 165
    virtual void clearProgramBISSKeyByNumber(int32_t program, int32_t type);  // 166

    // Slots 167 and 168: the destructor pair.
    virtual ~PlayerImpl();

protected:
    PlayerImpl();
};

// The callback interface the proxy calls with events. All operations but the destructor
// are pure; JNIVSrvListener implements them.
class PlayerImplListener : public virtual android::RefBase {
public:
    virtual void notify(int msg, const android::Parcel& obj) = 0;                          // 0
    virtual void notifyCB(int event, int ext1, int ext2, const android::Parcel* obj) = 0;  // 1
    virtual void PostEvent_ChannelNameReady(int ext1, int ext2) = 0;                       // 2
    virtual void PostEvent_AtvAutoTuning(const android::Parcel& p) = 0;                    // 3
    virtual void PostEvent_ManualTuning(const android::Parcel& p) = 0;                     // 4
    virtual void PostEvent_DtvAutoTuning(const android::Parcel& p) = 0;                    // 5
    virtual void PostEvent_ProgramInfoReady(int ext1, int ext2) = 0;                       // 6
    virtual void PostEvent_SignalLock(int ext1, int ext2) = 0;                             // 7
    virtual void PostEvent_SignalUnlock(int ext1, int ext2) = 0;                           // 8
    virtual void PostEvent_PopupDialog(int ext1, int ext2) = 0;                            // 9
    virtual void PostEvent_ScreenSaverMode(int ext1, int ext2) = 0;                        // 10
    virtual void PostEvent_CiLoadCredentialFail(int ext1, int ext2) = 0;                   // 11
    virtual void PostEvent_EpgTimerSimulcast(int ext1, int ext2) = 0;                      // 12
    virtual void PostEvent_HbbtvStatusMode(int ext1, int ext2) = 0;                        // 13
    virtual void PostEvent_Mheg5StatusMode(int ext1, int ext2) = 0;                        // 14
    virtual void PostEvent_Mheg5ReturnKey(int ext1, int ext2) = 0;                         // 15
    virtual void PostEvent_OadHandler(int ext1, int ext2) = 0;                             // 16
    virtual void PostEvent_OadDownload(int ext1, int ext2) = 0;                            // 17
    virtual void PostEvent_PvrPlaybackTime(int ext1, int ext2) = 0;                        // 18
    virtual void PostEvent_PvrPlaybackSpeedChange(int ext1, int ext2) = 0;                 // 19
    virtual void PostEvent_PvrRecordTime(int ext1, int ext2) = 0;                          // 20
    virtual void PostEvent_PvrRecordSize(int ext1, int ext2) = 0;                          // 21
    virtual void PostEvent_PvrRecordStop(int ext1, int ext2) = 0;                          // 22
    virtual void PostEvent_PvrPlaybackStop(int ext1, int ext2) = 0;                        // 23
    virtual void PostEvent_PvrPlaybackBegin(int ext1, int ext2) = 0;                       // 24
    virtual void PostEvent_PvrTimeshiftBefore(int ext1, int ext2) = 0;                     // 25
    virtual void PostEvent_PvrTimeshiftAfter(int ext1, int ext2) = 0;                      // 26
    virtual void PostEvent_OverRun(int ext1, int ext2) = 0;                                // 27
    virtual void PostEvent_UsbRemoved(int ext1, int ext2) = 0;                             // 28
    virtual void PostEvent_CiPlusProtection(int ext1, int ext2) = 0;                       // 29
    virtual void PostEvent_ParentalControl(int ext1, int ext2) = 0;                        // 30
    virtual void PostEvent_AlwaysTimeshiftProgramReady(int ext1, int ext2) = 0;            // 31
    virtual void PostEvent_AlwaysTimeShiftProgramNotReady(int ext1, int ext2) = 0;         // 32
    virtual void PostEvent_PvrCiPlusRetentionLimit(int ext1, int ext2) = 0;                // 33
    virtual void PostEvent_AutoUpdateScan(int ext1, int ext2) = 0;                         // 34
    virtual void PostEvent_TsChange(int ext1, int ext2) = 0;                               // 35
    virtual void PostEvent_PopupScanDialogLossSignal(int ext1, int ext2) = 0;              // 36
    virtual void PostEvent_PopupScanDialogNewMultiplex(int ext1, int ext2) = 0;            // 37
    virtual void PostEvent_PopupScanDialogFreqChange(int ext1, int ext2) = 0;              // 38
    virtual void PostEvent_RctPresence(int ext1, int ext2) = 0;                            // 39
    virtual void PostEvent_ChangeTtxStatus(int ext1, int ext2) = 0;                        // 40
    virtual void PostEvent_PriComponentMissing(int ext1, int ext2) = 0;                    // 41
    virtual void PostEvent_AudioModeChange(int ext1, int ext2) = 0;                        // 42
    virtual void PostEvent_Mheg5EventHandler(int ext1, int ext2) = 0;                      // 43
    virtual void PostEvent_OadTimeOut(int ext1, int ext2) = 0;                             // 44
    virtual void PostEvent_GingaStatusMode(int ext1, int ext2) = 0;                        // 45
    virtual void PostEvent_HbbtvEvent(const android::Parcel& p) = 0;                       // 46
    virtual void PostEvent_EpgUpdateList(int ext1, int ext2) = 0;                          // 47
    virtual void PostEvent_SnServiceDeadth(int ext1, int ext2) = 0;                        // 48
    virtual void PostEvent_4k2kHDMIDisablePip(int ext1, int ext2) = 0;                     // 49
    virtual void PostEvent_4k2kHDMIDisablePop(int ext1, int ext2) = 0;                     // 50
    virtual void PostEvent_4k2kHDMIDisableDualView(int ext1, int ext2) = 0;                // 51
    virtual void PostEvent_4k2kHDMIDisableTravelingMode(int ext1, int ext2) = 0;           // 52
    virtual void PostEvent_OPRefreshQuery(int ext1, int ext2) = 0;                         // 53
    virtual void PostEvent_OPServiceList(int ext1, int ext2) = 0;                          // 54
    virtual void PostEvent_ExitOPServiceList(int ext1, int ext2) = 0;                      // 55
    virtual void PostEvent_Emerency_Alert(int ext1, int ext2) = 0;                         // 56
    virtual void PostEvent_DtvChannelInfoUpdate(int ext1, int ext2) = 0;                   // 57
    virtual void PostEvent_EpgUpdate(int ext1, int ext2) = 0;                              // 58

    // Slots 59 and 60: the destructor pair.
    virtual ~PlayerImplListener();
};
