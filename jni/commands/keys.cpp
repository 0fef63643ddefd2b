// Remote keys: the managed side speaks the platform's key numbering, the player its own.
// Each handler translates through its constant table (first matching row wins) and
// forwards the player's code; a key that is not in the handler's table is dropped silently.
#include "core/log.h"

#include <cstddef>
#include <cstdint>

#include "core/frame.h"
#include "core/handlers.h"

namespace {

struct KeyRow {
    int32_t managed;
    int32_t player;
};

// Managed code -> player code for the player's general key handling.
constexpr KeyRow kGeneralKeys[] = {
    {19, 0xF002},   // DPAD_UP
    {20, 0xF003},   // DPAD_DOWN
    {21, 0xF000},   // DPAD_LEFT
    {22, 0xF001},   // DPAD_RIGHT
    {23, 0x000D},   // DPAD_CENTER
    {66, 0x000D},   // ENTER
    {7, 0x0030},    // DIGIT_0
    {8, 0x0031},    // DIGIT_1
    {9, 0x0032},    // DIGIT_2
    {10, 0x0033},   // DIGIT_3
    {11, 0x0034},   // DIGIT_4
    {12, 0x0035},   // DIGIT_5
    {13, 0x0036},   // DIGIT_6
    {14, 0x0037},   // DIGIT_7
    {15, 0x0038},   // DIGIT_8
    {16, 0x0039},   // DIGIT_9
    {166, 0xF046},  // CHANNEL_UP
    {167, 0xF047},  // CHANNEL_DOWN
    {82, 0xF012},   // MENU
    {4, 0xF062},    // BACK
    {126, 0xF051},  // MEDIA_PLAY
    {127, 0xF00A},  // MEDIA_PAUSE
    {86, 0xF052},   // MEDIA_STOP
    {90, 0xF049},   // MEDIA_FAST_FORWARD
    {89, 0xF077},   // MEDIA_REWIND
    {87, 0xF05C},   // MEDIA_NEXT
    {88, 0xF05B},   // MEDIA_PREVIOUS
    {130, 0xF056},  // MEDIA_RECORD
    {0, 0x0000},    // no key: forwarded as 0
    {165, 0xF014},  // INFO
    {183, 0xF042},  // PROG_RED
    {184, 0xF043},  // PROG_GREEN
    {185, 0xF044},  // PROG_YELLOW
    {186, 0xF045},  // PROG_BLUE
    {172, 0xF07C},  // GUIDE
    {229, 0xF075},  // LAST_CHANNEL
    {255, 0xF022},  // TV_ZOOM_MODE
    {233, 0xF06A},  // TV_TELETEXT
};
static_assert(sizeof(kGeneralKeys) / sizeof(kGeneralKeys[0]) == 38, "general key rows");

// Managed code -> the MHEG-5 engine's own key numbers. No channel, menu, record,
// last-channel or zoom rows: those keys are not offered to the engine.
constexpr KeyRow kMheg5Keys[] = {
    {19, 7},    // DPAD_UP
    {20, 11},   // DPAD_DOWN
    {21, 12},   // DPAD_LEFT
    {22, 15},   // DPAD_RIGHT
    {23, 13},   // DPAD_CENTER
    {66, 13},   // ENTER
    {7, 16},    // DIGIT_0
    {8, 17},    // DIGIT_1
    {9, 18},    // DIGIT_2
    {10, 19},   // DIGIT_3
    {11, 20},   // DIGIT_4
    {12, 21},   // DIGIT_5
    {13, 22},   // DIGIT_6
    {14, 23},   // DIGIT_7
    {15, 24},   // DIGIT_8
    {16, 25},   // DIGIT_9
    {4, 9},     // BACK
    {126, 97},  // MEDIA_PLAY
    {127, 96},  // MEDIA_PAUSE
    {86, 113},  // MEDIA_STOP
    {90, 116},  // MEDIA_FAST_FORWARD
    {89, 117},  // MEDIA_REWIND
    {87, 114},  // MEDIA_NEXT
    {88, 115},  // MEDIA_PREVIOUS
    {0, 0},     // no key: forwarded as 0
    {165, 27},  // INFO
    {183, 28},  // PROG_RED
    {184, 29},  // PROG_GREEN
    {185, 51},  // PROG_YELLOW
    {186, 52},  // PROG_BLUE
    {172, 38},  // GUIDE
    {233, 53},  // TV_TELETEXT
};
static_assert(sizeof(kMheg5Keys) / sizeof(kMheg5Keys[0]) == 32, "MHEG-5 key rows");

// The first row whose managed code is `key`, or null.
template <size_t N>
const KeyRow* findKey(const KeyRow (&table)[N], int32_t key) {
    for (const KeyRow& row : table) {
        if (row.managed == key) return &row;
    }
    return nullptr;
}

}  // namespace

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_processKey(JNIEnv* env, jobject thiz,
                                                                       jint keyCode,
                                                                       jboolean flag) {
    ALOGD("processKey");
    return pij::withPlayer(env, thiz, pij::Site{__func__, 3131, pij::Exc::IllegalState},
                           jboolean{JNI_FALSE}, [&](PlayerImpl& p) -> jboolean {
                               const KeyRow* row = findKey(kGeneralKeys, keyCode);
                               if (row == nullptr) return JNI_FALSE;
                               ALOGD("processKey translate trom %d to %d", row->managed,
                                     row->player);
                               return pij::bit0(p.processKey(row->player, flag != 0));
                           });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_sendMheg5Key(JNIEnv* env, jobject thiz,
                                                                         jint keyCode) {
    ALOGD("sendMheg5Key");
    return pij::withPlayer(
        env, thiz, pij::Site{__func__, 2133, pij::Exc::TvIpc}, jboolean{JNI_FALSE},
        [&](PlayerImpl& p) -> jboolean {
            const KeyRow* row = findKey(kMheg5Keys, keyCode);
            if (row == nullptr) return JNI_FALSE;
            ALOGD("sendMheg5Key translate from %d to %d", row->managed, row->player);
            // The engine's key numbers fit the command's 16 bits.
            return pij::bit0(p.sendMheg5Command(static_cast<int16_t>(row->player)));
        });
}
