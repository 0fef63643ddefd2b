// The thin natives: each forwards one command or query to the player and converts its
// answer. One function per handler, grouped by family (a family shares the failure line's
// exception class, and its source lines run together); each reads as its entry trace, the
// frame with its failure line (function, source line, exception class) and value without a
// player, then the operation and its conversion.
//
// Conversions: bit0() keeps bit 0 of a proxy boolean; asBool() passes a managed boolean (or
// int) as true exactly when it is non-zero; int16 and int64 arguments pass as received;
// "& 0xFF" and the uint16_t/int16_t casts are the narrowing queries.
#include "core/log.h"

#include <utils/String8.h>

#include <cstdint>

#include "commands/conversions.h"
#include "core/frame.h"
#include "core/handlers.h"

using android::String8;
using pij::asBool;
using pij::bit0;
using pij::byteFrom;
using pij::Exc;
using pij::textFrom;
using pij::textOf;
using pij::withPlayer;
using pij::withPlayerOrEnd;

// ---- Picture, teletext, closed captions, ATV (TvIpcException) ----
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_startPcModeAtuoTune(JNIEnv* env,
                                                                                jobject thiz) {
    ALOGD("startPcModeAtuoTune");
    return withPlayer<jboolean>(env, thiz, {__func__, 1331, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.startPcModeAtuoTune()); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_closeTeletext(JNIEnv* env,
                                                                          jobject thiz) {
    ALOGD("closeTeletext");
    return withPlayer<jboolean>(env, thiz, {__func__, 1349, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.closeTeletext()); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_stopCc(JNIEnv* env, jobject thiz) {
    ALOGD("stopCc");
    return withPlayer<jboolean>(env, thiz, {__func__, 1367, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.stopCc()); });
}

PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_getPhaseRange(JNIEnv* env, jobject thiz) {
    ALOGD("getPhaseRange");
    return withPlayer<jint>(env, thiz, {__func__, 1422, Exc::TvIpc}, -1,
                            [&](PlayerImpl& p) { return p.getPhaseRange(); });
}

PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_native_getVideoStandard(JNIEnv* env,
                                                                                jobject thiz) {
    ALOGD("getVideoStandard");
    return withPlayer<jint>(env, thiz, {__func__, 1480, Exc::TvIpc}, -1,
                            [&](PlayerImpl& p) { return p.getVideoStandard(); });
}

PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_native_getVideoStandardDetectionState(
    JNIEnv* env, jobject thiz) {
    ALOGD("getVideoStandardDetectionState");
    return withPlayer<jint>(env, thiz, {__func__, 1498, Exc::TvIpc}, 255, [&](PlayerImpl& p) {
        return p.getVideoStandardDetectionState() & 0xFF;
    });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_doesCcExist(JNIEnv* env, jobject thiz) {
    ALOGD("doesCcExist");
    return withPlayer<jboolean>(env, thiz, {__func__, 1516, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.doesCcExist()); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_isHdmiMode(JNIEnv* env, jobject thiz) {
    ALOGD("isHdmiMode");
    return withPlayer<jboolean>(env, thiz, {__func__, 1534, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.isHdmiMode()); });
}

// No entry line: the result is logged after the call instead.
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_isSignalStable(JNIEnv* env,
                                                                           jobject thiz) {
    return withPlayer<jboolean>(env, thiz, {__func__, 1551, Exc::TvIpc}, false, [&](PlayerImpl& p) {
        const jboolean r = bit0(p.isSignalStable());
        ALOGD("isSignalStable, ret = %d", static_cast<int>(r));
        return r;
    });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_hasTeletextSignal(JNIEnv* env,
                                                                              jobject thiz) {
    ALOGD("hasTeletextSignal");
    return withPlayer<jboolean>(env, thiz, {__func__, 1570, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.hasTeletextSignal()); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_hasTeletextClockSignal(JNIEnv* env,
                                                                                   jobject thiz) {
    ALOGD("hasTeletextClockSignal");
    return withPlayer<jboolean>(env, thiz, {__func__, 1588, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.hasTeletextClockSignal()); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_isTeletextDisplayed(JNIEnv* env,
                                                                                jobject thiz) {
    ALOGD("isTeletextDisplayed");
    return withPlayer<jboolean>(env, thiz, {__func__, 1606, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.isTeletextDisplayed()); });
}

PIJ_EXPORT jboolean
com_vireo_android_tvapi_impl_PlayerImpl_isTeletextSubtitleChannel(JNIEnv* env, jobject thiz) {
    ALOGD("isTeletextSubtitleChannel");
    return withPlayer<jboolean>(env, thiz, {__func__, 1624, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.isTeletextSubtitleChannel()); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_native_openTeletext(JNIEnv* env,
                                                                                jobject thiz,
                                                                                jint mode) {
    ALOGD("openTeletext");
    return withPlayer<jboolean>(env, thiz, {__func__, 1642, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.openTeletext(mode)); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_native_sendTeletextCommand(
    JNIEnv* env, jobject thiz, jint command) {
    ALOGD("sendTeletextCommand");
    return withPlayer<jboolean>(env, thiz, {__func__, 1660, Exc::TvIpc}, false, [&](PlayerImpl& p) {
        return bit0(p.sendTeletextCommand(command));
    });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setTeletextLanguageGroup(JNIEnv* env,
                                                                                     jobject thiz,
                                                                                     jint group) {
    ALOGI("setTeletextLanguageGroup");
    return withPlayer<jboolean>(env, thiz, {__func__, 1678, Exc::TvIpc}, false, [&](PlayerImpl& p) {
        return bit0(p.setTeletextLanguageGroup(group));
    });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_native_openPAT(JNIEnv* env,
                                                                           jobject thiz,
                                                                           jint mode) {
    ALOGD("openPAT");
    return withPlayer<jboolean>(env, thiz, {__func__, 1696, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.openPAT(mode)); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setHPosition(JNIEnv* env, jobject thiz,
                                                                         jint value) {
    ALOGD("setHPosition");
    return withPlayer<jboolean>(env, thiz, {__func__, 1714, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.setHPosition(value)); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setPhase(JNIEnv* env, jobject thiz,
                                                                     jint value) {
    ALOGD("setPhase");
    return withPlayer<jboolean>(env, thiz, {__func__, 1732, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.setPhase(value)); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setSize(JNIEnv* env, jobject thiz,
                                                                    jint value) {
    ALOGD("setSize");
    return withPlayer<jboolean>(env, thiz, {__func__, 1750, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.setSize(value)); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setVPosition(JNIEnv* env, jobject thiz,
                                                                         jint value) {
    ALOGD("setVPosition");
    return withPlayer<jboolean>(env, thiz, {__func__, 1768, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.setVPosition(value)); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_startCc(JNIEnv* env, jobject thiz) {
    ALOGD("startCc");
    return withPlayer<jboolean>(env, thiz, {__func__, 1786, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.startCc()); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_disableAft(JNIEnv* env, jobject thiz) {
    ALOGD("disableAft");
    return withPlayer<jboolean>(env, thiz, {__func__, 1804, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.disableAft()); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_enableAft(JNIEnv* env, jobject thiz) {
    ALOGD("enableAft");
    return withPlayer<jboolean>(env, thiz, {__func__, 1822, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.enableAft()); });
}

PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_initAtvVif(JNIEnv* env, jobject thiz) {
    ALOGD("initAtvVif");
    withPlayer(env, thiz, {__func__, 1839, Exc::TvIpc}, [&](PlayerImpl& p) { p.initAtvVif(); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_isAftEnabled(JNIEnv* env,
                                                                         jobject thiz) {
    ALOGD("isAftEnabled");
    return withPlayer<jboolean>(env, thiz, {__func__, 1857, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.isAftEnabled()); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_saveAtvProgram(JNIEnv* env,
                                                                           jobject thiz,
                                                                           jint program) {
    ALOGD("saveAtvProgram");
    return withPlayer<jboolean>(env, thiz, {__func__, 1875, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.saveAtvProgram(program)); });
}

// ---- Parental, country, clock, audio mode, scart, MHEG-5 (TvIpcException) ----
PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_native_setParental(JNIEnv* env,
                                                                           jobject thiz,
                                                                           jint level) {
    ALOGD("native_setParental");
    withPlayer(env, thiz, {__func__, 1893, Exc::TvIpc},
               [&](PlayerImpl& p) { p.setParental(level); });
}

PIJ_EXPORT jstring com_vireo_android_tvapi_impl_PlayerImpl_getLanguageCode(JNIEnv* env,
                                                                           jobject thiz) {
    ALOGD("getLanguageCode");
    return withPlayer<jstring>(
        env, thiz, {__func__, 1910, Exc::TvIpc}, nullptr, [&](PlayerImpl& p) {
            return textFrom(env, "getLanguageCode", [&](String8& t) { p.getLanguageCode(t); });
        });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_native_setCountry(JNIEnv* env,
                                                                              jobject thiz,
                                                                              jint country) {
    ALOGD("setCountry");
    return withPlayer<jboolean>(env, thiz, {__func__, 1929, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.setCountry(country)); });
}

PIJ_EXPORT jstring com_vireo_android_tvapi_impl_PlayerImpl_getCountryCode(JNIEnv* env,
                                                                          jobject thiz) {
    ALOGD("getCountryCode");
    return withPlayer<jstring>(
        env, thiz, {__func__, 1947, Exc::TvIpc}, nullptr, [&](PlayerImpl& p) {
            return textFrom(env, "getCountryCode", [&](String8& t) { p.getCountryCode(t); });
        });
}

PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_enableAutoClock(JNIEnv* env, jobject thiz) {
    ALOGD("enableAutoClock");
    withPlayer(env, thiz, {__func__, 1966, Exc::TvIpc},
               [&](PlayerImpl& p) { p.enableAutoClock(); });
}

PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_disableAutoClock(JNIEnv* env,
                                                                         jobject thiz) {
    ALOGD("disableAutoClock");
    withPlayer(env, thiz, {__func__, 1983, Exc::TvIpc},
               [&](PlayerImpl& p) { p.disableAutoClock(); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setAudioMode(JNIEnv* env, jobject thiz,
                                                                         jint mode) {
    ALOGD("setAudioMode, mode = %d", mode);
    return withPlayer<jboolean>(env, thiz, {__func__, 2000, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.setAudioMode(mode)); });
}

PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_native_setTimeZone(JNIEnv* env,
                                                                           jobject thiz,
                                                                           jint zone) {
    ALOGD("setTimeZone");
    withPlayer(env, thiz, {__func__, 2016, Exc::TvIpc},
               [&](PlayerImpl& p) { p.setTimeZone(zone); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_enableAutoScartOut(JNIEnv* env,
                                                                               jobject thiz) {
    ALOGD("enableAutoScartOut");
    return withPlayer<jboolean>(env, thiz, {__func__, 2032, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.enableAutoScartOut()); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_disableAutoScartOut(JNIEnv* env,
                                                                                jobject thiz) {
    ALOGD("disableAutoScartOut");
    return withPlayer<jboolean>(env, thiz, {__func__, 2050, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.disableAutoScartOut()); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_sendMheg5Command(JNIEnv* env,
                                                                             jobject thiz,
                                                                             jshort command) {
    ALOGD("sendMheg5Command");
    return withPlayer<jboolean>(env, thiz, {__func__, 2068, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.sendMheg5Command(command)); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_sendMheg5IcsCommand(JNIEnv* env,
                                                                                jobject thiz,
                                                                                jint command,
                                                                                jshort param) {
    ALOGD("sendMheg5IcsCommand");
    return withPlayer<jboolean>(env, thiz, {__func__, 2158, Exc::TvIpc}, false, [&](PlayerImpl& p) {
        return bit0(p.sendMheg5IcsCommand(command, param));
    });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_isMheg5Running(JNIEnv* env,
                                                                           jobject thiz) {
    ALOGD("isMheg5Running");
    return withPlayer<jboolean>(env, thiz, {__func__, 2174, Exc::IllegalState}, false,
                                [&](PlayerImpl& p) { return bit0(p.isMheg5Running()); });
}

PIJ_EXPORT jstring com_vireo_android_tvapi_impl_PlayerImpl_getMheg5PfgContent(JNIEnv* env,
                                                                              jobject thiz) {
    ALOGD("getMheg5PfgContent");
    return withPlayer<jstring>(env, thiz, {__func__, 2190, Exc::TvIpc}, nullptr,
                               [&](PlayerImpl& p) {
                                   return textFrom(env, "getMheg5PfgContent",
                                                   [&](String8& t) { p.getMheg5PfgContent(t); });
                               });
}

PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_native_setChannelChangeFreezeMode(
    JNIEnv* env, jobject thiz, jboolean freeze) {
    ALOGD("setChannelChangeFreezeMode");
    withPlayer(env, thiz, {__func__, 2209, Exc::TvIpc},
               [&](PlayerImpl& p) { p.setChannelChangeFreezeMode(asBool(freeze)); });
}

// ---- DTV tuning and routes (TvIpcException) ----
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_playCurrentProgram(JNIEnv* env,
                                                                               jobject thiz) {
    ALOGD("playCurrentProgram");
    return withPlayer<jboolean>(env, thiz, {__func__, 2420, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.playCurrentProgram()); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setManualTuneByFreq(JNIEnv* env,
                                                                                jobject thiz,
                                                                                jint frequency) {
    ALOGD("setManualTuneByFreq");
    return withPlayer<jboolean>(env, thiz, {__func__, 2438, Exc::TvIpc}, false, [&](PlayerImpl& p) {
        return bit0(p.setManualTuneByFreq(frequency));
    });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setManualTuneByRf(JNIEnv* env,
                                                                              jobject thiz,
                                                                              jshort rf) {
    ALOGD("setManualTuneByRf");
    return withPlayer<jboolean>(env, thiz, {__func__, 2456, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.setManualTuneByRf(rf)); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_changeManualScanRF(JNIEnv* env,
                                                                               jobject thiz,
                                                                               jint rf) {
    ALOGD("changeManualScanRF");
    return withPlayer<jboolean>(env, thiz, {__func__, 2474, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.changeManualScanRF(rf)); });
}

PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_switchAudioTrack(JNIEnv* env, jobject thiz,
                                                                         jint track) {
    ALOGD("switchAudioTrack");
    withPlayer(env, thiz, {__func__, 2491, Exc::TvIpc},
               [&](PlayerImpl& p) { p.switchAudioTrack(track); });
}

PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_getDtvRouteCount(JNIEnv* env,
                                                                         jobject thiz) {
    ALOGD("getDtvRouteCount");
    return withPlayer<jint>(env, thiz, {__func__, 2567, Exc::TvIpc}, -1,
                            [&](PlayerImpl& p) { return p.getDtvRouteCount(); });
}

PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_setDtvRoute(JNIEnv* env, jobject thiz,
                                                                    jshort route) {
    ALOGD("setDtvRoute");
    withPlayer(env, thiz, {__func__, 2642, Exc::TvIpc},
               [&](PlayerImpl& p) { p.setDtvRoute(route); });
}

PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_setFavoriteRegion(JNIEnv* env, jobject thiz,
                                                                          jint region) {
    ALOGD("setFavoriteRegion");
    withPlayer(env, thiz, {__func__, 2659, Exc::TvIpc},
               [&](PlayerImpl& p) { p.setFavoriteRegion(region); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_switchDtvRoute(JNIEnv* env,
                                                                           jobject thiz,
                                                                           jshort route) {
    ALOGD("switchDtvRoute");
    return withPlayer<jboolean>(env, thiz, {__func__, 2677, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.switchDtvRoute(route)); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_unlockChannel(JNIEnv* env,
                                                                          jobject thiz) {
    ALOGD("unlockChannel");
    return withPlayer<jboolean>(env, thiz, {__func__, 2695, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.unlockChannel()); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setMirror(JNIEnv* env, jobject thiz,
                                                                      jboolean enable) {
    ALOGD("setMirror");
    return withPlayer<jboolean>(env, thiz, {__func__, 2714, Exc::TvIpc}, false,
                                [&](PlayerImpl& p) { return bit0(p.setMirror(asBool(enable))); });
}

// ---- Standard detection, input source, debug (mostly IllegalStateException) ----
// Bound at two rows of the native table; no entry line.
PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_startAutoStandardDetection(JNIEnv* env,
                                                                                   jobject thiz) {
    withPlayer(env, thiz, {__func__, 2725, Exc::IllegalState},
               [&](PlayerImpl& p) { p.startAutoStandardDetection(); });
}

PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_native_forceVideoStandard(JNIEnv* env,
                                                                                  jobject thiz,
                                                                                  jint standard) {
    withPlayer(env, thiz, {__func__, 2735, Exc::IllegalState},
               [&](PlayerImpl& p) { p.forceVideoStandard(standard); });
}

// The operation's second argument is always 0.
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_native_detectInputSource(JNIEnv* env,
                                                                                     jobject thiz,
                                                                                     jint source) {
    ALOGD("native_detectInputSource");
    return withPlayer<jboolean>(env, thiz, {__func__, 2824, Exc::TvIpc}, false, [&](PlayerImpl& p) {
        return bit0(p.detectInputSource(source, 0));
    });
}

PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_initOfflineDetection(JNIEnv* env,
                                                                             jobject thiz) {
    ALOGD("initOfflineDetection");
    withPlayer(env, thiz, {__func__, 2875, Exc::IllegalState},
               [&](PlayerImpl& p) { p.initOfflineDetection(); });
}

PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_setDebugMode(JNIEnv* env, jobject thiz,
                                                                     jboolean on) {
    ALOGD("setDebugMode");
    withPlayer(env, thiz, {__func__, 2891, Exc::IllegalState},
               [&](PlayerImpl& p) { p.setDebugMode(asBool(on)); });
}

PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_native_getChinaDvbcRegion(JNIEnv* env,
                                                                                  jobject thiz) {
    ALOGD("native_getChinaDvbcRegion");
    return withPlayer<jint>(env, thiz, {__func__, 2972, Exc::IllegalState}, -1,
                            [&](PlayerImpl& p) { return p.getChinaDvbcRegion(); });
}

PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_native_setChinaDvbcRegion(JNIEnv* env,
                                                                                  jobject thiz,
                                                                                  jint region) {
    ALOGD("native_setChinaDvbcRegion");
    withPlayer(env, thiz, {__func__, 2988, Exc::IllegalState},
               [&](PlayerImpl& p) { p.setChinaDvbcRegion(region); });
}

PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_getAntennaType(JNIEnv* env, jobject thiz) {
    ALOGD("getAntennaType");
    return withPlayer<jint>(env, thiz, {__func__, 3004, Exc::IllegalState}, -1, [&](PlayerImpl& p) {
        return static_cast<uint16_t>(p.getAntennaType());
    });
}

// ---- Interactive applications (IllegalStateException) ----
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_autostartApplication(JNIEnv* env,
                                                                                 jobject thiz) {
    ALOGD("autostartApplication");
    return withPlayer<jboolean>(env, thiz, {__func__, 3019, Exc::IllegalState}, false,
                                [&](PlayerImpl& p) { return bit0(p.autostartApplication()); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_startApplication(JNIEnv* env,
                                                                             jobject thiz,
                                                                             jlong orgId,
                                                                             jlong appId) {
    ALOGD("startApplication");
    return withPlayer<jboolean>(
        env, thiz, {__func__, 3035, Exc::IllegalState}, false,
        [&](PlayerImpl& p) { return bit0(p.startApplication(orgId, appId)); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_stopApplication(JNIEnv* env,
                                                                            jobject thiz) {
    ALOGD("stopApplication");
    return withPlayer<jboolean>(env, thiz, {__func__, 3051, Exc::IllegalState}, false,
                                [&](PlayerImpl& p) { return bit0(p.stopApplication()); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_enableGinga(JNIEnv* env, jobject thiz) {
    ALOGD("enableGinga");
    return withPlayer<jboolean>(env, thiz, {__func__, 3067, Exc::IllegalState}, false,
                                [&](PlayerImpl& p) { return bit0(p.enableGinga()); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_disableGigna(JNIEnv* env,
                                                                         jobject thiz) {
    ALOGD("disableGigna");
    return withPlayer<jboolean>(env, thiz, {__func__, 3083, Exc::IllegalState}, false,
                                [&](PlayerImpl& p) { return bit0(p.disableGigna()); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_isGingaEnabled(JNIEnv* env,
                                                                           jobject thiz) {
    ALOGD("isGingaEnabled");
    return withPlayer<jboolean>(env, thiz, {__func__, 3099, Exc::IllegalState}, false,
                                [&](PlayerImpl& p) { return bit0(p.isGingaEnabled()); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_isGingaRunning(JNIEnv* env,
                                                                           jobject thiz) {
    ALOGD("isGingaRunning");
    return withPlayer<jboolean>(env, thiz, {__func__, 3115, Exc::IllegalState}, false,
                                [&](PlayerImpl& p) { return bit0(p.isGingaRunning()); });
}

// ---- Ratings, mute, antenna, captions, event status (IllegalStateException) ----
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setVChipGuideline(
    JNIEnv* env, jobject thiz, jshort guideline1, jshort guideline2, jshort guideline3,
    jshort guideline4) {
    ALOGD("SetVChipGuideline");
    return withPlayer<jboolean>(
        env, thiz, {__func__, 3154, Exc::IllegalState}, false, [&](PlayerImpl& p) {
            return bit0(p.setVChipGuideline(guideline1, guideline2, guideline3, guideline4));
        });
}

// Returns the byte the operation stores, whole; the operation's own result is not used.
PIJ_EXPORT jboolean
com_vireo_android_tvapi_impl_PlayerImpl_getCurrentVChipBlockStatus(JNIEnv* env, jobject thiz) {
    ALOGD("getCurrentVChipBlockStatus");
    return withPlayer<jboolean>(
        env, thiz, {__func__, 3171, Exc::IllegalState}, false, [&](PlayerImpl& p) {
            return byteFrom([&](uint8_t& b) { p.getCurrentVChipBlockStatus(b); });
        });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_enterPassToUnlockUnratedByUser(
    JNIEnv* env, jobject thiz, jboolean unlock) {
    ALOGD("enterPassToUnlockUnratedByUser");
    return withPlayer<jboolean>(
        env, thiz, {__func__, 3189, Exc::IllegalState}, false,
        [&](PlayerImpl& p) { return bit0(p.enterPassToUnlockUnratedByUser(asBool(unlock))); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_enterPassToUnlockByUser(
    JNIEnv* env, jobject thiz, jboolean unlock) {
    ALOGD("enterPassToUnlockByUser");
    return withPlayer<jboolean>(
        env, thiz, {__func__, 3205, Exc::IllegalState}, false,
        [&](PlayerImpl& p) { return bit0(p.enterPassToUnlockByUser(asBool(unlock))); });
}

PIJ_EXPORT jstring
com_vireo_android_tvapi_impl_PlayerImpl_getCurrentRatingInformation(JNIEnv* env, jobject thiz) {
    ALOGD("getCurrentRatingInformation");
    return withPlayer<jstring>(
        env, thiz, {__func__, 3221, Exc::IllegalState}, nullptr, [&](PlayerImpl& p) {
            return textOf(env, "getCurrentRatingInformation", p.getCurrentRatingInformation());
        });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_native_setAudioMute(JNIEnv* env,
                                                                                jobject thiz,
                                                                                jint type,
                                                                                jint source) {
    ALOGD("native_setAudioMute");
    return withPlayer<jboolean>(env, thiz, {__func__, 3237, Exc::IllegalState}, false,
                                [&](PlayerImpl& p) { return bit0(p.setAudioMute(type, source)); });
}

// Always true; the operation answers nothing.
PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_native_atsc_setAntennaType(JNIEnv* env,
                                                                                       jobject thiz,
                                                                                       jint type) {
    ALOGD("native_atsc_setAntennaType");
    return withPlayerOrEnd(
        env, thiz, {__func__, 3254, Exc::IllegalState},
        [&](PlayerImpl& p) -> jboolean { return (p.atsc_setAntennaType(type), JNI_TRUE); });
}

PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_setCcMode(JNIEnv* env, jobject thiz,
                                                                  jint mode) {
    ALOGD("setCcMode");
    withPlayerOrEnd(env, thiz, {__func__, 3333, Exc::IllegalState},
                    [&](PlayerImpl& p) { p.setCcMode(mode); });
}

PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_getCcMode(JNIEnv* env, jobject thiz) {
    ALOGD("getCcMode");
    return withPlayerOrEnd(env, thiz, {__func__, 3348, Exc::IllegalState},
                           [&](PlayerImpl& p) -> jint { return p.getCcMode(); });
}

PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_getAirChannelType(JNIEnv* env,
                                                                          jobject thiz) {
    ALOGD("getAirChannelType");
    return withPlayerOrEnd(env, thiz, {__func__, 3363, Exc::IllegalState},
                           [&](PlayerImpl& p) -> jint { return p.getAirChannelType(); });
}

PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_getCurrentEventStatus(JNIEnv* env,
                                                                              jobject thiz,
                                                                              jint event) {
    ALOGD("getCurrentEventStatus");
    return withPlayer<jint>(env, thiz, {__func__, 3527, Exc::IllegalState}, 0,
                            [&](PlayerImpl& p) { return p.getCurrentEventStatus(event); });
}

// The second managed int is the boolean status.
PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_setCurrentEventStatus(JNIEnv* env,
                                                                              jobject thiz,
                                                                              jint event,
                                                                              jint status) {
    ALOGD("setCurrentEventStatus");
    withPlayerOrEnd(env, thiz, {__func__, 3544, Exc::IllegalState},
                    [&](PlayerImpl& p) { p.setCurrentEventStatus(event, asBool(status)); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setAutoSync(JNIEnv* env, jobject thiz,
                                                                        jboolean on) {
    ALOGD("setAutoSync");
    return withPlayer<jboolean>(env, thiz, {__func__, 3559, Exc::IllegalState}, false,
                                [&](PlayerImpl& p) { return bit0(p.setAutoSync(asBool(on))); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_createPreviewCCWin(JNIEnv* env,
                                                                               jobject thiz) {
    ALOGD("createPreviewCCWin");
    return withPlayer<jboolean>(env, thiz, {__func__, 3816, Exc::IllegalState}, false,
                                [&](PlayerImpl& p) { return bit0(p.createPreviewCCWin()); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_exitPreviewCCWin(JNIEnv* env,
                                                                             jobject thiz) {
    ALOGD("exitPreviewCCWin");
    return withPlayer<jboolean>(env, thiz, {__func__, 3833, Exc::IllegalState}, false,
                                [&](PlayerImpl& p) { return bit0(p.exitPreviewCCWin()); });
}

// ---- Satellites, dish, user location, sorting (IllegalStateException) ----
PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_getCurrentSatelliteCount(JNIEnv* env,
                                                                                 jobject thiz) {
    ALOGD("getCurrentSatelliteCount");
    return withPlayer<jint>(env, thiz, {__func__, 3959, Exc::IllegalState}, 0,
                            [&](PlayerImpl& p) { return p.getCurrentSatelliteCount(); });
}

PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_getCurrentSatelliteNumber(JNIEnv* env,
                                                                                  jobject thiz) {
    ALOGD("getCurrentSatelliteNumber");
    return withPlayer<jint>(env, thiz, {__func__, 4039, Exc::IllegalState}, 0,
                            [&](PlayerImpl& p) { return p.getCurrentSatelliteNumber(); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setCurrentSatelliteNumber(JNIEnv* env,
                                                                                      jobject thiz,
                                                                                      jint number) {
    ALOGD("setCurrentSatelliteNumber");
    return withPlayer<jboolean>(
        env, thiz, {__func__, 4054, Exc::IllegalState}, false,
        [&](PlayerImpl& p) { return bit0(p.setCurrentSatelliteNumber(number)); });
}

PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_getTransponderCount(JNIEnv* env,
                                                                            jobject thiz,
                                                                            jint satellite) {
    ALOGD("getTransponderCount");
    return withPlayer<jint>(env, thiz, {__func__, 4069, Exc::IllegalState}, 0,
                            [&](PlayerImpl& p) { return p.getTransponderCount(satellite); });
}

PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_getCurrentTransponderNumber(JNIEnv* env,
                                                                                    jobject thiz) {
    ALOGD("getCurrentTransponderNumber");
    return withPlayer<jint>(env, thiz, {__func__, 4084, Exc::IllegalState}, 0,
                            [&](PlayerImpl& p) { return p.getCurrentTransponderNumber(); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setCurrentTransponderNumber(
    JNIEnv* env, jobject thiz, jint number) {
    ALOGD("setCurrentTransponderNumber");
    return withPlayer<jboolean>(
        env, thiz, {__func__, 4099, Exc::IllegalState}, false,
        [&](PlayerImpl& p) { return bit0(p.setCurrentTransponderNumber(number)); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_deleteSatelliteInfo(JNIEnv* env,
                                                                                jobject thiz,
                                                                                jint index) {
    ALOGD("deleteSatelliteInfo");
    return withPlayer<jboolean>(env, thiz, {__func__, 4370, Exc::IllegalState}, false,
                                [&](PlayerImpl& p) { return bit0(p.deleteSatelliteInfo(index)); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_deleteTransponderInfo(JNIEnv* env,
                                                                                  jobject thiz,
                                                                                  jint satellite,
                                                                                  jint index) {
    ALOGD("deleteTransponderInfo");
    return withPlayer<jboolean>(
        env, thiz, {__func__, 4386, Exc::IllegalState}, false,
        [&](PlayerImpl& p) { return bit0(p.deleteTransponderInfo(satellite, index)); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_verifySlotFrequency(JNIEnv* env,
                                                                                jobject thiz) {
    ALOGD("verifySlotFrequency");
    return withPlayer<jboolean>(env, thiz, {__func__, 4402, Exc::IllegalState}, false,
                                [&](PlayerImpl& p) { return bit0(p.verifySlotFrequency()); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setDishLNBPowerMode(JNIEnv* env,
                                                                                jobject thiz,
                                                                                jint mode) {
    ALOGD("setDishLNBPowerMode");
    return withPlayer<jboolean>(env, thiz, {__func__, 4418, Exc::IllegalState}, false,
                                [&](PlayerImpl& p) { return bit0(p.setDishLNBPowerMode(mode)); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setDish22KMode(JNIEnv* env,
                                                                           jobject thiz,
                                                                           jint mode) {
    ALOGD("setDish22KMode");
    return withPlayer<jboolean>(env, thiz, {__func__, 4434, Exc::IllegalState}, false,
                                [&](PlayerImpl& p) { return bit0(p.setDish22KMode(mode)); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setDishToneburstMode(JNIEnv* env,
                                                                                 jobject thiz,
                                                                                 jint mode) {
    ALOGD("setDishToneburstMode");
    return withPlayer<jboolean>(env, thiz, {__func__, 4450, Exc::IllegalState}, false,
                                [&](PlayerImpl& p) { return bit0(p.setDishToneburstMode(mode)); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setDiSEqCSwitchPort(JNIEnv* env,
                                                                                jobject thiz,
                                                                                jint level,
                                                                                jint port) {
    ALOGD("setDiSEqCSwitchPort");
    return withPlayer<jboolean>(
        env, thiz, {__func__, 4466, Exc::IllegalState}, false,
        [&](PlayerImpl& p) { return bit0(p.setDiSEqCSwitchPort(level, port)); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_sendDiSEqCMotorCommand(JNIEnv* env,
                                                                                   jobject thiz,
                                                                                   jint command) {
    ALOGD("sendDiSEqCMotorCommand");
    return withPlayer<jboolean>(
        env, thiz, {__func__, 4482, Exc::IllegalState}, false,
        [&](PlayerImpl& p) { return bit0(p.sendDiSEqCMotorCommand(command)); });
}

PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_setUserLocationCode(JNIEnv* env,
                                                                            jobject thiz,
                                                                            jint code) {
    ALOGD("setUserLocationCode, code = %d", code);
    withPlayer(env, thiz, {__func__, 4498, Exc::IllegalState},
               [&](PlayerImpl& p) { p.setUserLocationCode(code); });
}

// No entry line: the code is logged after the call.
PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_getUserLocationCode(JNIEnv* env,
                                                                            jobject thiz) {
    return withPlayer<jint>(env, thiz, {__func__, 4512, Exc::IllegalState}, 0, [&](PlayerImpl& p) {
        const jint r = p.getUserLocationCode();
        ALOGD("getUserLocationCode, code = %d", static_cast<int>(r));
        return r;
    });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setProgramSortByType(JNIEnv* env,
                                                                                 jobject thiz,
                                                                                 jint type) {
    ALOGD("setProgramSortByType, type = %d", type);
    return withPlayer<jboolean>(env, thiz, {__func__, 4654, Exc::IllegalState}, false,
                                [&](PlayerImpl& p) { return bit0(p.setProgramSortByType(type)); });
}

PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_getUserLocationCount(JNIEnv* env,
                                                                             jobject thiz) {
    ALOGD("getUserLocationCount");
    return withPlayer<jint>(env, thiz, {__func__, 4670, Exc::IllegalState}, 0,
                            [&](PlayerImpl& p) { return p.getUserLocationCount(); });
}

PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_changeSetting(JNIEnv* env, jobject thiz,
                                                                      jint setting) {
    ALOGD("native_changeSetting");
    withPlayer(env, thiz, {__func__, 4715, Exc::TvIpc},
               [&](PlayerImpl& p) { p.changeSetting(setting); });
}

// ---- HDMI EDID and BISS keys (com_vireo_android_tvapi_common_ names) ----
PIJ_EXPORT jint com_vireo_android_tvapi_common_PlayerImpl_getHdmiEdidVersionBySource(JNIEnv* env,
                                                                                     jobject thiz,
                                                                                     jint source) {
    ALOGD("getHdmiEdidVersionBySource inputSource = %d", source);
    return withPlayer<jint>(env, thiz, {__func__, 4732, Exc::IllegalState}, 0, [&](PlayerImpl& p) {
        const jint r = static_cast<int16_t>(p.getHdmiEdidVersionBySource(source));
        ALOGD("re = %d", static_cast<int>(r));
        return r;
    });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_common_PlayerImpl_setHdmiEdidVersionBySource(
    JNIEnv* env, jobject thiz, jint source, jint version) {
    ALOGD("setHdmiEdidVersionBySource inputSource = %d, hdmiEdidVersion = %d", source, version);
    return withPlayer<jboolean>(
        env, thiz, {__func__, 4751, Exc::IllegalState}, false, [&](PlayerImpl& p) {
            const jboolean r = bit0(p.setHdmiEdidVersionBySource(source, version));
            ALOGD("re = %d", static_cast<int>(r));
            return r;
        });
}

PIJ_EXPORT void com_vireo_android_tvapi_common_PlayerImpl_clearProgramBISSKeyByNumber(JNIEnv* env,
                                                                                      jobject thiz,
                                                                                      jint program,
                                                                                      jint type) {
    ALOGD("clearProgramBISSKeyByNumber progNumber = %d, progType = %d", program, type);
    withPlayer(env, thiz, {__func__, 4814, Exc::IllegalState},
               [&](PlayerImpl& p) { p.clearProgramBISSKeyByNumber(program, type); });
}
