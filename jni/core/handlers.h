// Prototypes of every handler the native table registers, under the exported names their
// failure lines print. The table (native_table.cpp) and the file that defines a handler
// both include this header, so a handler whose parameters drift from its row fails to
// build.
//
// Handlers are named after the managed method unless their file says otherwise: the
// surface pair (setVideoSurface, destoryVideoSurfaceTexture), the value-object builders
// that drop "native_" (getAspectRatio, getRFInfo, getDTVDemodVersion), and the event-status
// pair, which drops the managed leading underscore. Rows 112 and 145 to 149 carry the
// com_vireo_android_tvapi_common_ package form.
#pragma once

#include <jni.h>

#include "core/log.h"

#define PIJ_IMPL(name) com_vireo_android_tvapi_impl_PlayerImpl_##name
#define PIJ_COMMON(name) com_vireo_android_tvapi_common_PlayerImpl_##name

// Life cycle (rows 0 to 2).
PIJ_EXPORT void PIJ_IMPL(native_init)(JNIEnv*, jobject);
PIJ_EXPORT void PIJ_IMPL(native_setup)(JNIEnv*, jobject, jobject weakThis);
PIJ_EXPORT void PIJ_IMPL(native_finalize)(JNIEnv*, jobject);

// Video surface and HDMI GPIO (rows 3, 4, 68).
PIJ_EXPORT void PIJ_IMPL(setVideoSurface)(JNIEnv*, jobject, jobject surface, jint wtype);
PIJ_EXPORT jboolean PIJ_IMPL(destoryVideoSurfaceTexture)(JNIEnv*, jobject, jobject surface);
PIJ_EXPORT jboolean PIJ_IMPL(setHdmiGpio)(JNIEnv*, jobject, jintArray gpio);

// Thin commands and queries.
PIJ_EXPORT jboolean PIJ_IMPL(startPcModeAtuoTune)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(closeTeletext)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(stopCc)(JNIEnv*, jobject);
PIJ_EXPORT jint PIJ_IMPL(getPhaseRange)(JNIEnv*, jobject);
PIJ_EXPORT jint PIJ_IMPL(native_getVideoStandard)(JNIEnv*, jobject);
PIJ_EXPORT jint PIJ_IMPL(native_getVideoStandardDetectionState)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(doesCcExist)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(isHdmiMode)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(isSignalStable)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(hasTeletextSignal)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(hasTeletextClockSignal)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(isTeletextDisplayed)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(isTeletextSubtitleChannel)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(native_openTeletext)(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean PIJ_IMPL(native_sendTeletextCommand)(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean PIJ_IMPL(setTeletextLanguageGroup)(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean PIJ_IMPL(native_openPAT)(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean PIJ_IMPL(setHPosition)(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean PIJ_IMPL(setPhase)(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean PIJ_IMPL(setSize)(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean PIJ_IMPL(setVPosition)(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean PIJ_IMPL(startCc)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(disableAft)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(enableAft)(JNIEnv*, jobject);
PIJ_EXPORT void PIJ_IMPL(initAtvVif)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(isAftEnabled)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(saveAtvProgram)(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean PIJ_IMPL(playCurrentProgram)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(setManualTuneByFreq)(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean PIJ_IMPL(setManualTuneByRf)(JNIEnv*, jobject, jshort);
PIJ_EXPORT jboolean PIJ_IMPL(changeManualScanRF)(JNIEnv*, jobject, jint);
PIJ_EXPORT void PIJ_IMPL(switchAudioTrack)(JNIEnv*, jobject, jint);
PIJ_EXPORT jint PIJ_IMPL(getDtvRouteCount)(JNIEnv*, jobject);
PIJ_EXPORT void PIJ_IMPL(setDtvRoute)(JNIEnv*, jobject, jshort);
PIJ_EXPORT void PIJ_IMPL(setFavoriteRegion)(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean PIJ_IMPL(switchDtvRoute)(JNIEnv*, jobject, jshort);
PIJ_EXPORT jboolean PIJ_IMPL(unlockChannel)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(setMirror)(JNIEnv*, jobject, jboolean);
PIJ_EXPORT void PIJ_IMPL(native_setParental)(JNIEnv*, jobject, jint);
PIJ_EXPORT jstring PIJ_IMPL(getLanguageCode)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(native_setCountry)(JNIEnv*, jobject, jint);
PIJ_EXPORT jstring PIJ_IMPL(getCountryCode)(JNIEnv*, jobject);
PIJ_EXPORT void PIJ_IMPL(enableAutoClock)(JNIEnv*, jobject);
PIJ_EXPORT void PIJ_IMPL(disableAutoClock)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(setAudioMode)(JNIEnv*, jobject, jint);
PIJ_EXPORT void PIJ_IMPL(native_setTimeZone)(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean PIJ_IMPL(enableAutoScartOut)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(disableAutoScartOut)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(sendMheg5Command)(JNIEnv*, jobject, jshort);
PIJ_EXPORT jboolean PIJ_IMPL(sendMheg5IcsCommand)(JNIEnv*, jobject, jint, jshort);
PIJ_EXPORT jboolean PIJ_IMPL(isMheg5Running)(JNIEnv*, jobject);
PIJ_EXPORT jstring PIJ_IMPL(getMheg5PfgContent)(JNIEnv*, jobject);
PIJ_EXPORT void PIJ_IMPL(native_setChannelChangeFreezeMode)(JNIEnv*, jobject, jboolean);
PIJ_EXPORT void PIJ_IMPL(startAutoStandardDetection)(JNIEnv*, jobject);
PIJ_EXPORT void PIJ_IMPL(native_forceVideoStandard)(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean PIJ_IMPL(native_detectInputSource)(JNIEnv*, jobject, jint);
PIJ_EXPORT void PIJ_IMPL(initOfflineDetection)(JNIEnv*, jobject);
PIJ_EXPORT void PIJ_IMPL(setDebugMode)(JNIEnv*, jobject, jboolean);
PIJ_EXPORT jint PIJ_IMPL(native_getChinaDvbcRegion)(JNIEnv*, jobject);
PIJ_EXPORT void PIJ_IMPL(native_setChinaDvbcRegion)(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean PIJ_IMPL(autostartApplication)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(startApplication)(JNIEnv*, jobject, jlong, jlong);
PIJ_EXPORT jboolean PIJ_IMPL(stopApplication)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(enableGinga)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(disableGigna)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(isGingaEnabled)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(isGingaRunning)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(setVChipGuideline)(JNIEnv*, jobject, jshort, jshort, jshort, jshort);
PIJ_EXPORT jboolean PIJ_IMPL(getCurrentVChipBlockStatus)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(enterPassToUnlockUnratedByUser)(JNIEnv*, jobject, jboolean);
PIJ_EXPORT jboolean PIJ_IMPL(enterPassToUnlockByUser)(JNIEnv*, jobject, jboolean);
PIJ_EXPORT jstring PIJ_IMPL(getCurrentRatingInformation)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(native_setAudioMute)(JNIEnv*, jobject, jint, jint);
PIJ_EXPORT jboolean PIJ_IMPL(native_atsc_setAntennaType)(JNIEnv*, jobject, jint);
PIJ_EXPORT void PIJ_IMPL(setCcMode)(JNIEnv*, jobject, jint);
PIJ_EXPORT jint PIJ_IMPL(getCcMode)(JNIEnv*, jobject);
PIJ_EXPORT jint PIJ_IMPL(getAirChannelType)(JNIEnv*, jobject);
PIJ_EXPORT jint PIJ_IMPL(getAntennaType)(JNIEnv*, jobject);
PIJ_EXPORT jint PIJ_IMPL(getCurrentEventStatus)(JNIEnv*, jobject, jint);
PIJ_EXPORT void PIJ_IMPL(setCurrentEventStatus)(JNIEnv*, jobject, jint, jint);
PIJ_EXPORT jboolean PIJ_IMPL(setAutoSync)(JNIEnv*, jobject, jboolean);
PIJ_EXPORT jboolean PIJ_IMPL(createPreviewCCWin)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(exitPreviewCCWin)(JNIEnv*, jobject);
PIJ_EXPORT jint PIJ_IMPL(getCurrentSatelliteCount)(JNIEnv*, jobject);
PIJ_EXPORT jint PIJ_IMPL(getCurrentSatelliteNumber)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(setCurrentSatelliteNumber)(JNIEnv*, jobject, jint);
PIJ_EXPORT jint PIJ_IMPL(getTransponderCount)(JNIEnv*, jobject, jint);
PIJ_EXPORT jint PIJ_IMPL(getCurrentTransponderNumber)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(setCurrentTransponderNumber)(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean PIJ_IMPL(deleteSatelliteInfo)(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean PIJ_IMPL(deleteTransponderInfo)(JNIEnv*, jobject, jint, jint);
PIJ_EXPORT jboolean PIJ_IMPL(verifySlotFrequency)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(setDishLNBPowerMode)(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean PIJ_IMPL(setDish22KMode)(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean PIJ_IMPL(setDishToneburstMode)(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean PIJ_IMPL(setDiSEqCSwitchPort)(JNIEnv*, jobject, jint, jint);
PIJ_EXPORT jboolean PIJ_IMPL(sendDiSEqCMotorCommand)(JNIEnv*, jobject, jint);
PIJ_EXPORT void PIJ_IMPL(setUserLocationCode)(JNIEnv*, jobject, jint);
PIJ_EXPORT jint PIJ_IMPL(getUserLocationCode)(JNIEnv*, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(setProgramSortByType)(JNIEnv*, jobject, jint);
PIJ_EXPORT jint PIJ_IMPL(getUserLocationCount)(JNIEnv*, jobject);
PIJ_EXPORT void PIJ_IMPL(changeSetting)(JNIEnv*, jobject, jint);
PIJ_EXPORT jint PIJ_COMMON(getHdmiEdidVersionBySource)(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean PIJ_COMMON(setHdmiEdidVersionBySource)(JNIEnv*, jobject, jint, jint);
PIJ_EXPORT void PIJ_COMMON(clearProgramBISSKeyByNumber)(JNIEnv*, jobject, jint, jint);

// Key translation.
PIJ_EXPORT jboolean PIJ_IMPL(processKey)(JNIEnv*, jobject, jint keyCode, jboolean flag);
PIJ_EXPORT jboolean PIJ_IMPL(sendMheg5Key)(JNIEnv*, jobject, jint keyCode);

// Picture information.
PIJ_EXPORT jobject PIJ_IMPL(getAspectRatio)(JNIEnv*, jobject);
PIJ_EXPORT jobject PIJ_IMPL(getVideoInfo)(JNIEnv*, jobject);
PIJ_EXPORT jobject PIJ_IMPL(getCurrentSignalInformation)(JNIEnv*, jobject);

// DTV audio information.
PIJ_EXPORT jobject PIJ_IMPL(getAudioInfo)(JNIEnv*, jobject);
PIJ_EXPORT jobject PIJ_IMPL(getAudioInfo_ex)(JNIEnv*, jobject);

// Multiplex and RF information.
PIJ_EXPORT jobject PIJ_IMPL(getRFInfo)(JNIEnv*, jobject, jint, jint);
PIJ_EXPORT jobject PIJ_IMPL(getCurrentMuxInfo)(JNIEnv*, jobject);
PIJ_EXPORT jobject PIJ_IMPL(getMuxInfoByProgramNumber)(JNIEnv*, jobject, jint, jshort);
PIJ_EXPORT jintArray PIJ_IMPL(native_getNitFrequencyByDtvRegion)(JNIEnv*, jobject, jint region);

// Demodulator information.
PIJ_EXPORT jobject PIJ_IMPL(getDTVDemodVersion)(JNIEnv*, jobject, jint);
PIJ_EXPORT jobject PIJ_IMPL(getDemodDVBTInfo)(JNIEnv*, jobject);
PIJ_EXPORT jobject PIJ_IMPL(getDemodDVBCInfo)(JNIEnv*, jobject);

// ATSC emergency alerts and the unsupported ATSC calls.
PIJ_EXPORT jobject PIJ_IMPL(getTSUpdateInfo)(JNIEnv*, jobject, jint);
PIJ_EXPORT void PIJ_IMPL(setEasProgressDone)(JNIEnv*, jobject);
PIJ_EXPORT void PIJ_IMPL(setEasAudioDesired)(JNIEnv*, jobject, jboolean);
PIJ_EXPORT jboolean PIJ_IMPL(getEasProgressSatus)(JNIEnv*, jobject);
PIJ_EXPORT jobject PIJ_IMPL(getEASInProgress)(JNIEnv*, jobject);

// Satellites and transponders.
PIJ_EXPORT jobject PIJ_IMPL(getSatelliteInfo)(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean PIJ_IMPL(updateSatelliteInfo)(JNIEnv*, jobject, jint, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(addSatelliteInfo)(JNIEnv*, jobject, jobject);
PIJ_EXPORT jobject PIJ_IMPL(getTransponderInfo)(JNIEnv*, jobject, jint, jint);
PIJ_EXPORT jboolean PIJ_IMPL(updateTransponderInfo)(JNIEnv*, jobject, jint, jint, jobject);
PIJ_EXPORT jboolean PIJ_IMPL(addTransponderInfo)(JNIEnv*, jobject, jint, jobject);

// ISDB emergency warning and user locations.
PIJ_EXPORT jboolean PIJ_IMPL(getEWSInfo)(JNIEnv*, jobject, jobject request, jobject reply);
PIJ_EXPORT jobject PIJ_IMPL(getEWBSInfo)(JNIEnv*, jobject, jint areaCode);
PIJ_EXPORT jint PIJ_IMPL(setEWBSOpInfo)(JNIEnv*, jobject, jint op, jint value);
PIJ_EXPORT jobject PIJ_IMPL(getEWBSOpInfo)(JNIEnv*, jobject, jint op);
PIJ_EXPORT jobject PIJ_IMPL(getUserLocationInfo)(JNIEnv*, jobject, jint index);

// Parcel exchanges.
PIJ_EXPORT void PIJ_IMPL(native_getRRTInformation)(JNIEnv*, jobject, jobject reply);
// Written with two further ints that the "()Z" registration never passes and that are
// never read.
PIJ_EXPORT jboolean PIJ_COMMON(resetRrtInformation)(JNIEnv*, jobject, jint, jint);
PIJ_EXPORT jboolean PIJ_IMPL(native_getVChipRatingInfo)(JNIEnv*, jobject, jobject request,
                                                        jobject reply);
PIJ_EXPORT void PIJ_COMMON(getAllBISSProgramInfo)(JNIEnv*, jobject, jobject reply);
PIJ_EXPORT jboolean PIJ_COMMON(setProgramBISSKeyByNumber)(JNIEnv*, jobject, jint, jint,
                                                          jstring key, jint keyLength);

// Caption preview and channel logos.
PIJ_EXPORT jboolean PIJ_IMPL(drawPreviewCCWin)(JNIEnv*, jobject, jobject setting);
PIJ_EXPORT jintArray PIJ_IMPL(getLogoData)(JNIEnv*, jobject);
PIJ_EXPORT jintArray PIJ_IMPL(getChannelLogoARGB)(JNIEnv*, jobject);
