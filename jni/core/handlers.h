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

#include "core/export.h"

// Life cycle (rows 0 to 2).
PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_native_init(JNIEnv*, jobject);
PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_native_setup(JNIEnv*, jobject,
                                                                     jobject weakThis);
PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_native_finalize(JNIEnv*, jobject);

// Video surface and HDMI GPIO (rows 3, 4, 68).
PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_setVideoSurface(JNIEnv*, jobject,
                                                                        jobject surface,
                                                                        jint wtype);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_destoryVideoSurfaceTexture(
    JNIEnv*, jobject, jobject surface);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setHdmiGpio(JNIEnv*, jobject,
                                                                        jintArray gpio);

// Thin commands and queries.
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_startPcModeAtuoTune(JNIEnv*, jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_closeTeletext(JNIEnv*, jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_stopCc(JNIEnv*, jobject);
PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_getPhaseRange(JNIEnv*, jobject);
PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_native_getVideoStandard(JNIEnv*, jobject);
PIJ_EXPORT jint
com_vireo_android_tvapi_impl_PlayerImpl_native_getVideoStandardDetectionState(JNIEnv*, jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_doesCcExist(JNIEnv*, jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_isHdmiMode(JNIEnv*, jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_isSignalStable(JNIEnv*, jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_hasTeletextSignal(JNIEnv*, jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_hasTeletextClockSignal(JNIEnv*,
                                                                                   jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_isTeletextDisplayed(JNIEnv*, jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_isTeletextSubtitleChannel(JNIEnv*,
                                                                                      jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_native_openTeletext(JNIEnv*, jobject,
                                                                                jint);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_native_sendTeletextCommand(JNIEnv*,
                                                                                       jobject,
                                                                                       jint);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setTeletextLanguageGroup(JNIEnv*,
                                                                                     jobject, jint);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_native_openPAT(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setHPosition(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setPhase(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setSize(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setVPosition(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_startCc(JNIEnv*, jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_disableAft(JNIEnv*, jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_enableAft(JNIEnv*, jobject);
PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_initAtvVif(JNIEnv*, jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_isAftEnabled(JNIEnv*, jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_saveAtvProgram(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_playCurrentProgram(JNIEnv*, jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setManualTuneByFreq(JNIEnv*, jobject,
                                                                                jint);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setManualTuneByRf(JNIEnv*, jobject,
                                                                              jshort);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_changeManualScanRF(JNIEnv*, jobject,
                                                                               jint);
PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_switchAudioTrack(JNIEnv*, jobject, jint);
PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_getDtvRouteCount(JNIEnv*, jobject);
PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_setDtvRoute(JNIEnv*, jobject, jshort);
PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_setFavoriteRegion(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_switchDtvRoute(JNIEnv*, jobject,
                                                                           jshort);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_unlockChannel(JNIEnv*, jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setMirror(JNIEnv*, jobject, jboolean);
PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_native_setParental(JNIEnv*, jobject, jint);
PIJ_EXPORT jstring com_vireo_android_tvapi_impl_PlayerImpl_getLanguageCode(JNIEnv*, jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_native_setCountry(JNIEnv*, jobject,
                                                                              jint);
PIJ_EXPORT jstring com_vireo_android_tvapi_impl_PlayerImpl_getCountryCode(JNIEnv*, jobject);
PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_enableAutoClock(JNIEnv*, jobject);
PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_disableAutoClock(JNIEnv*, jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setAudioMode(JNIEnv*, jobject, jint);
PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_native_setTimeZone(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_enableAutoScartOut(JNIEnv*, jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_disableAutoScartOut(JNIEnv*, jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_sendMheg5Command(JNIEnv*, jobject,
                                                                             jshort);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_sendMheg5IcsCommand(JNIEnv*, jobject,
                                                                                jint, jshort);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_isMheg5Running(JNIEnv*, jobject);
PIJ_EXPORT jstring com_vireo_android_tvapi_impl_PlayerImpl_getMheg5PfgContent(JNIEnv*, jobject);
PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_native_setChannelChangeFreezeMode(JNIEnv*,
                                                                                          jobject,
                                                                                          jboolean);
PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_startAutoStandardDetection(JNIEnv*,
                                                                                   jobject);
PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_native_forceVideoStandard(JNIEnv*, jobject,
                                                                                  jint);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_native_detectInputSource(JNIEnv*,
                                                                                     jobject, jint);
PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_initOfflineDetection(JNIEnv*, jobject);
PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_setDebugMode(JNIEnv*, jobject, jboolean);
PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_native_getChinaDvbcRegion(JNIEnv*, jobject);
PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_native_setChinaDvbcRegion(JNIEnv*, jobject,
                                                                                  jint);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_autostartApplication(JNIEnv*, jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_startApplication(JNIEnv*, jobject,
                                                                             jlong, jlong);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_stopApplication(JNIEnv*, jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_enableGinga(JNIEnv*, jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_disableGigna(JNIEnv*, jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_isGingaEnabled(JNIEnv*, jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_isGingaRunning(JNIEnv*, jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setVChipGuideline(JNIEnv*, jobject,
                                                                              jshort, jshort,
                                                                              jshort, jshort);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_getCurrentVChipBlockStatus(JNIEnv*,
                                                                                       jobject);
PIJ_EXPORT jboolean
com_vireo_android_tvapi_impl_PlayerImpl_enterPassToUnlockUnratedByUser(JNIEnv*, jobject, jboolean);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_enterPassToUnlockByUser(JNIEnv*,
                                                                                    jobject,
                                                                                    jboolean);
PIJ_EXPORT jstring com_vireo_android_tvapi_impl_PlayerImpl_getCurrentRatingInformation(JNIEnv*,
                                                                                       jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_native_setAudioMute(JNIEnv*, jobject,
                                                                                jint, jint);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_native_atsc_setAntennaType(JNIEnv*,
                                                                                       jobject,
                                                                                       jint);
PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_setCcMode(JNIEnv*, jobject, jint);
PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_getCcMode(JNIEnv*, jobject);
PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_getAirChannelType(JNIEnv*, jobject);
PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_getAntennaType(JNIEnv*, jobject);
PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_getCurrentEventStatus(JNIEnv*, jobject,
                                                                              jint);
PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_setCurrentEventStatus(JNIEnv*, jobject,
                                                                              jint, jint);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setAutoSync(JNIEnv*, jobject, jboolean);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_createPreviewCCWin(JNIEnv*, jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_exitPreviewCCWin(JNIEnv*, jobject);
PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_getCurrentSatelliteCount(JNIEnv*, jobject);
PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_getCurrentSatelliteNumber(JNIEnv*, jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setCurrentSatelliteNumber(JNIEnv*,
                                                                                      jobject,
                                                                                      jint);
PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_getTransponderCount(JNIEnv*, jobject, jint);
PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_getCurrentTransponderNumber(JNIEnv*,
                                                                                    jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setCurrentTransponderNumber(JNIEnv*,
                                                                                        jobject,
                                                                                        jint);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_deleteSatelliteInfo(JNIEnv*, jobject,
                                                                                jint);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_deleteTransponderInfo(JNIEnv*, jobject,
                                                                                  jint, jint);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_verifySlotFrequency(JNIEnv*, jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setDishLNBPowerMode(JNIEnv*, jobject,
                                                                                jint);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setDish22KMode(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setDishToneburstMode(JNIEnv*, jobject,
                                                                                 jint);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setDiSEqCSwitchPort(JNIEnv*, jobject,
                                                                                jint, jint);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_sendDiSEqCMotorCommand(JNIEnv*, jobject,
                                                                                   jint);
PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_setUserLocationCode(JNIEnv*, jobject, jint);
PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_getUserLocationCode(JNIEnv*, jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setProgramSortByType(JNIEnv*, jobject,
                                                                                 jint);
PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_getUserLocationCount(JNIEnv*, jobject);
PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_changeSetting(JNIEnv*, jobject, jint);
PIJ_EXPORT jint com_vireo_android_tvapi_common_PlayerImpl_getHdmiEdidVersionBySource(JNIEnv*,
                                                                                     jobject, jint);
PIJ_EXPORT jboolean com_vireo_android_tvapi_common_PlayerImpl_setHdmiEdidVersionBySource(JNIEnv*,
                                                                                         jobject,
                                                                                         jint,
                                                                                         jint);
PIJ_EXPORT void com_vireo_android_tvapi_common_PlayerImpl_clearProgramBISSKeyByNumber(JNIEnv*,
                                                                                      jobject, jint,
                                                                                      jint);

// Key translation.
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_processKey(JNIEnv*, jobject,
                                                                       jint keyCode, jboolean flag);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_sendMheg5Key(JNIEnv*, jobject,
                                                                         jint keyCode);

// Picture information.
PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getAspectRatio(JNIEnv*, jobject);
PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getVideoInfo(JNIEnv*, jobject);
PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getCurrentSignalInformation(JNIEnv*,
                                                                                       jobject);

// DTV audio information.
PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getAudioInfo(JNIEnv*, jobject);
PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getAudioInfo_ex(JNIEnv*, jobject);

// Multiplex and RF information.
PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getRFInfo(JNIEnv*, jobject, jint, jint);
PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getCurrentMuxInfo(JNIEnv*, jobject);
PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getMuxInfoByProgramNumber(JNIEnv*,
                                                                                     jobject, jint,
                                                                                     jshort);
PIJ_EXPORT jintArray com_vireo_android_tvapi_impl_PlayerImpl_native_getNitFrequencyByDtvRegion(
    JNIEnv*, jobject, jint region);

// Demodulator information.
PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getDTVDemodVersion(JNIEnv*, jobject,
                                                                              jint);
PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getDemodDVBTInfo(JNIEnv*, jobject);
PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getDemodDVBCInfo(JNIEnv*, jobject);

// ATSC emergency alerts and the unsupported ATSC calls.
PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getTSUpdateInfo(JNIEnv*, jobject, jint);
PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_setEasProgressDone(JNIEnv*, jobject);
PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_setEasAudioDesired(JNIEnv*, jobject,
                                                                           jboolean);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_getEasProgressSatus(JNIEnv*, jobject);
PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getEASInProgress(JNIEnv*, jobject);

// Satellites and transponders.
PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getSatelliteInfo(JNIEnv*, jobject, jint);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_updateSatelliteInfo(JNIEnv*, jobject,
                                                                                jint, jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_addSatelliteInfo(JNIEnv*, jobject,
                                                                             jobject);
PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getTransponderInfo(JNIEnv*, jobject,
                                                                              jint, jint);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_updateTransponderInfo(JNIEnv*, jobject,
                                                                                  jint, jint,
                                                                                  jobject);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_addTransponderInfo(JNIEnv*, jobject,
                                                                               jint, jobject);

// ISDB emergency warning and user locations.
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_getEWSInfo(JNIEnv*, jobject,
                                                                       jobject request,
                                                                       jobject reply);
PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getEWBSInfo(JNIEnv*, jobject,
                                                                       jint areaCode);
PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_setEWBSOpInfo(JNIEnv*, jobject, jint op,
                                                                      jint value);
PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getEWBSOpInfo(JNIEnv*, jobject, jint op);
PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getUserLocationInfo(JNIEnv*, jobject,
                                                                               jint index);

// Parcel exchanges.
PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_native_getRRTInformation(JNIEnv*, jobject,
                                                                                 jobject reply);
// Written with two further ints that the "()Z" registration never passes and that are
// never read.
PIJ_EXPORT jboolean com_vireo_android_tvapi_common_PlayerImpl_resetRrtInformation(JNIEnv*, jobject,
                                                                                  jint, jint);
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_native_getVChipRatingInfo(
    JNIEnv*, jobject, jobject request, jobject reply);
PIJ_EXPORT void com_vireo_android_tvapi_common_PlayerImpl_getAllBISSProgramInfo(JNIEnv*, jobject,
                                                                                jobject reply);
PIJ_EXPORT jboolean com_vireo_android_tvapi_common_PlayerImpl_setProgramBISSKeyByNumber(
    JNIEnv*, jobject, jint, jint, jstring key, jint keyLength);

// Caption preview and channel logos.
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_drawPreviewCCWin(JNIEnv*, jobject,
                                                                             jobject setting);
PIJ_EXPORT jintArray com_vireo_android_tvapi_impl_PlayerImpl_getLogoData(JNIEnv*, jobject);
PIJ_EXPORT jintArray com_vireo_android_tvapi_impl_PlayerImpl_getChannelLogoARGB(JNIEnv*, jobject);
