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

jint readCode(JNIEnv* env, jclass clazz, const char* field) {
    jfieldID id = env->GetStaticFieldID(clazz, field, "I");
    return env->GetStaticIntField(clazz, id);
}

}  // namespace

// Nothing is tested: a missing field leaves the runtime's pending error and the reads go
// on.
void readEventCodes(JNIEnv* env, jclass clazz) {
#define PIJ_EV_READ(name) gEventCodes[E##name] = readCode(env, clazz, "TVPLAYER_" #name);
#define PIJ_EV_DISCARD(name) (void)readCode(env, clazz, "TVPLAYER_" #name);
    PIJ_EVENT_CODES(PIJ_EV_READ, PIJ_EV_DISCARD)
#undef PIJ_EV_READ
#undef PIJ_EV_DISCARD
}

}  // namespace pij
