// The thin natives: each forwards one command or query to the player and converts its
// answer. Rows are in the order of the managed table.
#include "commands/thin_rows.h"

using pij::bit0;

// clang-format off
ROW(jboolean, closeTeletext, NOARGS, "closeTeletext", bit0(p.closeTeletext()), false, 1349, TvIpc)
ROW(jint, getPhaseRange, NOARGS, "getPhaseRange", p.getPhaseRange(), -1, 1422, TvIpc)
ROW(jint, native_getVideoStandardDetectionState, NOARGS, "getVideoStandardDetectionState",
    p.getVideoStandardDetectionState() & 0xFF, 255, 1498, TvIpc)
VOID_ROW(initAtvVif, NOARGS, "initAtvVif", p.initAtvVif(), 1839, TvIpc)
ROW(jstring, getLanguageCode, NOARGS, "getLanguageCode",
    pij::textFrom(env, [&](android::String8& t) { p.getLanguageCode(t); }), nullptr, 1910, TvIpc)
// clang-format on
