#include "core/log.h"

#include "events/event_codes.h"

namespace pij {

jint gEventCodes[kEventCodeCount] = {};

const char* const kEventCodeFields[] = {
#define PIJ_EV_NAME(name) "TVPLAYER_" #name,
    PIJ_EVENT_CODES(PIJ_EV_NAME, PIJ_EV_NAME)
#undef PIJ_EV_NAME
};
const int kEventCodeFieldCount = sizeof(kEventCodeFields) / sizeof(kEventCodeFields[0]);
static_assert(sizeof(kEventCodeFields) / sizeof(kEventCodeFields[0]) == 63,
              "the managed class declares 63 event codes");

namespace {

bool readCode(JNIEnv* env, jclass clazz, const char* field, jint* value) {
    jfieldID id = env->GetStaticFieldID(clazz, field, "I");
    if (id == nullptr) return false;
    *value = env->GetStaticIntField(clazz, id);
    return true;
}

}  // namespace

// Stops at the first field the managed class lacks, with the runtime's error pending.
bool readEventCodes(JNIEnv* env, jclass clazz) {
    jint discarded = 0;
#define PIJ_EV_READ(name) \
    if (!readCode(env, clazz, "TVPLAYER_" #name, &gEventCodes[E##name])) return false;
#define PIJ_EV_DISCARD(name) \
    if (!readCode(env, clazz, "TVPLAYER_" #name, &discarded)) return false;
    PIJ_EVENT_CODES(PIJ_EV_READ, PIJ_EV_DISCARD)
#undef PIJ_EV_READ
#undef PIJ_EV_DISCARD
    return true;
}

}  // namespace pij
