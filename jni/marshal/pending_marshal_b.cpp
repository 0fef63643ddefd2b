// Placeholder handlers, registered so the native table is whole while the real ones are
// written. Each answers its neutral value without touching the player. Delete a line when
// its handler lands; delete the file when it is empty.
#include "core/handlers.h"

PIJ_EXPORT void PIJ_IMPL(setVideoSurface)(JNIEnv*, jobject, jobject, jint) {}
PIJ_EXPORT jboolean PIJ_IMPL(destoryVideoSurfaceTexture)(JNIEnv*, jobject, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(setHdmiGpio)(JNIEnv*, jobject, jintArray) { return {}; }
PIJ_EXPORT jobject PIJ_IMPL(getSatelliteInfo)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(updateSatelliteInfo)(JNIEnv*, jobject, jint, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(addSatelliteInfo)(JNIEnv*, jobject, jobject) { return {}; }
PIJ_EXPORT jobject PIJ_IMPL(getTransponderInfo)(JNIEnv*, jobject, jint, jint) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(updateTransponderInfo)(JNIEnv*, jobject, jint, jint, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(addTransponderInfo)(JNIEnv*, jobject, jint, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(getEWSInfo)(JNIEnv*, jobject, jobject, jobject) { return {}; }
PIJ_EXPORT jobject PIJ_IMPL(getEWBSInfo)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT jint PIJ_IMPL(setEWBSOpInfo)(JNIEnv*, jobject, jint, jint) { return {}; }
PIJ_EXPORT jobject PIJ_IMPL(getEWBSOpInfo)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT jobject PIJ_IMPL(getUserLocationInfo)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT void PIJ_IMPL(native_getRRTInformation)(JNIEnv*, jobject, jobject) {}
PIJ_EXPORT jboolean PIJ_COMMON(resetRrtInformation)(JNIEnv*, jobject, jint, jint) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(native_getVChipRatingInfo)(JNIEnv*, jobject, jobject, jobject) { return {}; }
PIJ_EXPORT void PIJ_COMMON(getAllBISSProgramInfo)(JNIEnv*, jobject, jobject) {}
PIJ_EXPORT jboolean PIJ_COMMON(setProgramBISSKeyByNumber)(JNIEnv*, jobject, jint, jint, jstring, jint) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(drawPreviewCCWin)(JNIEnv*, jobject, jobject) { return {}; }
PIJ_EXPORT jintArray PIJ_IMPL(getLogoData)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jintArray PIJ_IMPL(getChannelLogoARGB)(JNIEnv*, jobject) { return {}; }
