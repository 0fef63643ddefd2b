// Placeholder handlers, registered so the native table is whole while the real ones are
// written. Each answers its neutral value without touching the player. Delete a line when
// its handler lands; delete the file when it is empty.
#include "core/handlers.h"

PIJ_EXPORT jobject PIJ_IMPL(getAspectRatio)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jobject PIJ_IMPL(getVideoInfo)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jobject PIJ_IMPL(getCurrentSignalInformation)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jobject PIJ_IMPL(getAudioInfo)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jobject PIJ_IMPL(getAudioInfo_ex)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jobject PIJ_IMPL(getRFInfo)(JNIEnv*, jobject, jint, jint) { return {}; }
PIJ_EXPORT jobject PIJ_IMPL(getCurrentMuxInfo)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jobject PIJ_IMPL(getMuxInfoByProgramNumber)(JNIEnv*, jobject, jint, jshort) { return {}; }
PIJ_EXPORT jintArray PIJ_IMPL(native_getNitFrequencyByDtvRegion)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT jobject PIJ_IMPL(getDTVDemodVersion)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT jobject PIJ_IMPL(getDemodDVBTInfo)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jobject PIJ_IMPL(getDemodDVBCInfo)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jobject PIJ_IMPL(getTSUpdateInfo)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT void PIJ_IMPL(setEasProgressDone)(JNIEnv*, jobject) {}
PIJ_EXPORT void PIJ_IMPL(setEasAudioDesired)(JNIEnv*, jobject, jboolean) {}
PIJ_EXPORT jboolean PIJ_IMPL(getEasProgressSatus)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jobject PIJ_IMPL(getEASInProgress)(JNIEnv*, jobject) { return {}; }
