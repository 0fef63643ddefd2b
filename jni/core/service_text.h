// Text from the player service on its way to a managed String.
#pragma once

#include <jni.h>

#include <cstddef>

namespace pij {

// The number of bytes of the NUL-terminated `text` that the managed runtime would not accept
// as Modified UTF-8, judged as the device's runtime judges it, byte by byte up to the NUL: a
// byte 0xxxxxxx alone; 110xxxxx followed by one 10xxxxxx; 1110xxxx by two; 11110xxx by three
// (four-byte sequences are accepted); anything else is invalid: a lone 10xxxxxx, a byte
// 11111xxx, and every byte of a sequence that another byte or the NUL cuts short. Overlong
// forms and encoded surrogates pass, as they do there.
size_t invalidModifiedUtf8Bytes(const char* text);

// A new managed string of the service's `text`. Valid text passes byte for byte. Text the
// runtime would refuse (on the device, CheckJNI aborts the process for it, and without the
// checker the decoder can read past the NUL after a cut-short sequence) is repaired first:
// each invalid byte becomes U+FFFD, with one ERROR line naming `what`.
jstring newStringFromService(JNIEnv* env, const char* text, const char* what);

}  // namespace pij
