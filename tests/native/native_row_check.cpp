// What the compiler decides about native rows (core/native_row.h): each case below is a
// handler type and a signature the check must accept or refuse, chosen where a slip would
// pass a plain comparison of letters. Nothing runs; the build of this file is the test.
#include <jni.h>

#include "core/native_row.h"

namespace cases {
void noneStatic(JNIEnv*, jclass);
jboolean flag(JNIEnv*, jobject);
jint number(JNIEnv*, jobject, jint);
jboolean withTwoInts(JNIEnv*, jobject, jint, jint);
jstring text(JNIEnv*, jobject);
jintArray ints(JNIEnv*, jobject, jintArray);
jobjectArray objects(JNIEnv*, jobject);
jboolean mixed(JNIEnv*, jobject, jint, jint, jstring, jint);
}  // namespace cases

using pij::handlerFits;
using namespace cases;

static_assert(handlerFits("()V", noneStatic), "a static method's handler takes the class");
static_assert(!handlerFits("()I", flag), "jboolean is not jint");
static_assert(!handlerFits("(S)I", number), "jshort is not jint");
static_assert(!handlerFits("()Z", withTwoInts), "the extra ints of a handler written so");
static_assert(handlerFits("(IILjava/lang/String;I)Z", mixed), "a string among ints");
static_assert(!handlerFits("(IILjava/lang/Object;I)Z", mixed), "jstring takes only String");
static_assert(!handlerFits("()Ljava/lang/StringBuilder;", text), "a longer name is another class");
static_assert(!handlerFits("([I)[[I", ints), "an array of arrays is not jintArray");
static_assert(handlerFits("()[[I", objects), "an array of arrays is an array of references");
static_assert(!handlerFits("()[I", objects), "not an array of numbers");
static_assert(!handlerFits("()VV", flag), "something after the return type");
static_assert(!handlerFits("(I", number), "an unclosed list");
static_assert(!handlerFits("(Ljava/lang/Object)Z", mixed), "a class name without its ';'");
