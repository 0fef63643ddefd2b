// The service's event numbering (events/service_events.def), as the event tests walk it: each
// number the service reports through its generic notification, the listener operation that
// reports the same event (none for the four with a parcel), and the name of the managed
// field whose code both must post.
#pragma once

#include "core/PlayerImpl.h"

struct EventRow {
    int number;
    void (PlayerImplListener::*op)(int, int);
    const char* name;   // the operation without "PostEvent_"
    const char* field;  // without "TVPLAYER_"
};

// The library names each code after its field, with an E in front.
inline const EventRow kEventRows[] = {
#define PIJ_EVENT(number, code, operation) \
    {number, &PlayerImplListener::operation, &#operation[sizeof("PostEvent_") - 1], &#code[1]},
#define PIJ_EVENT_OWN PIJ_EVENT
#define PIJ_PARCEL_EVENT(number, code) {number, nullptr, nullptr, &#code[1]},
#define PIJ_CALLBACK_EVENT(number, code)
#include "events/service_events.def"
#undef PIJ_EVENT
#undef PIJ_EVENT_OWN
#undef PIJ_PARCEL_EVENT
#undef PIJ_CALLBACK_EVENT
};

// The numbers of the service's generic callback.
struct CallbackRow {
    int number;
    const char* field;
};
inline const CallbackRow kCallbackRows[] = {
#define PIJ_EVENT(number, code, operation)
#define PIJ_EVENT_OWN PIJ_EVENT
#define PIJ_PARCEL_EVENT(number, code)
#define PIJ_CALLBACK_EVENT(number, code) {number, &#code[1]},
#include "events/service_events.def"
#undef PIJ_EVENT
#undef PIJ_EVENT_OWN
#undef PIJ_PARCEL_EVENT
#undef PIJ_CALLBACK_EVENT
};
