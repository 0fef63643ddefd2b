#include "core/log.h"

#include "core/service_text.h"

#include <string>

namespace pij {
namespace {

// The length of the sequence a lead byte announces, 0 for a byte that cannot start one.
size_t sequenceLength(unsigned char lead) {
    if (lead < 0x80) return 1;
    if ((lead & 0xE0) == 0xC0) return 2;
    if ((lead & 0xF0) == 0xE0) return 3;
    if ((lead & 0xF8) == 0xF0) return 4;
    return 0;  // 10xxxxxx alone, or 11111xxx
}

// The length of the complete sequence at `at`, 0 when the byte there is invalid.
size_t validSequenceAt(const unsigned char* at) {
    const size_t n = sequenceLength(*at);
    for (size_t k = 1; k < n; ++k) {
        if ((at[k] & 0xC0) != 0x80) return 0;  // cut short, by another byte or by the NUL
    }
    return n;
}

const char kReplacement[] = "\xEF\xBF\xBD";  // U+FFFD

}  // namespace

size_t invalidModifiedUtf8Bytes(const char* text) {
    size_t invalid = 0;
    for (auto* at = reinterpret_cast<const unsigned char*>(text); *at != 0;) {
        const size_t n = validSequenceAt(at);
        if (n == 0) {
            ++invalid;
            ++at;
        } else {
            at += n;
        }
    }
    return invalid;
}

jstring newStringFromService(JNIEnv* env, const char* text, const char* what) {
    const size_t invalid = invalidModifiedUtf8Bytes(text);
    if (invalid == 0) return env->NewStringUTF(text);

    std::string repaired;
    for (auto* at = reinterpret_cast<const unsigned char*>(text); *at != 0;) {
        const size_t n = validSequenceAt(at);
        if (n == 0) {
            repaired += kReplacement;
            ++at;
        } else {
            repaired.append(reinterpret_cast<const char*>(at), n);
            at += n;
        }
    }
    ALOGE("%s: the service's text is not valid Modified UTF-8; %zu byte(s) replaced by U+FFFD",
          what, invalid);
    return env->NewStringUTF(repaired.c_str());
}

}  // namespace pij
