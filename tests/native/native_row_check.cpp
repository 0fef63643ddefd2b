// What the compiler decides about native rows (core/native_row.h): each case below is a
// handler type and a signature the check must accept or refuse. Nothing runs; the build of
// this file is the test.
#include <jni.h>

#include "core/native_row.h"

namespace cases {
void none(JNIEnv*, jobject);
void noneStatic(JNIEnv*, jclass);
jboolean flag(JNIEnv*, jobject);
jint number(JNIEnv*, jobject, jint);
jint shortNumber(JNIEnv*, jobject, jshort);
jboolean twoLongs(JNIEnv*, jobject, jlong, jlong);
jboolean withTwoInts(JNIEnv*, jobject, jint, jint);
jobject object(JNIEnv*, jobject, jint);
jstring text(JNIEnv*, jobject);
jclass klass(JNIEnv*, jobject);
jintArray ints(JNIEnv*, jobject, jintArray);
jarray anyArray(JNIEnv*, jobject);
jobjectArray objects(JNIEnv*, jobject);
jboolean mixed(JNIEnv*, jobject, jint, jint, jstring, jint);
jboolean parcels(JNIEnv*, jobject, jobject, jobject);
}  // namespace cases

using pij::handlerFits;
using namespace cases;

// The return type.
static_assert(handlerFits("()V", none), "void");
static_assert(handlerFits("()V", noneStatic), "a static method's handler takes the class");
static_assert(!handlerFits("()Z", none), "void handler for a boolean method");
static_assert(!handlerFits("()V", flag), "boolean handler for a void method");
static_assert(!handlerFits("()I", flag), "jboolean is not jint");

// Number and kind of parameters.
static_assert(handlerFits("(I)I", number), "one int");
static_assert(!handlerFits("()I", number), "a parameter the method does not pass");
static_assert(!handlerFits("(II)I", number), "a parameter the handler does not take");
static_assert(!handlerFits("(S)I", number), "jshort is not jint");
static_assert(!handlerFits("(I)I", shortNumber), "nor the other way");
static_assert(!handlerFits("(J)I", number), "jlong is not jint");
static_assert(handlerFits("(JJ)Z", twoLongs), "two longs");
static_assert(!handlerFits("(II)Z", twoLongs), "two ints are not two longs");
static_assert(!handlerFits("()Z", withTwoInts), "the extra ints of a handler written so");
static_assert(handlerFits("(IILjava/lang/String;I)Z", mixed), "a string among ints");
static_assert(!handlerFits("(IILjava/lang/Object;I)Z", mixed), "jstring takes only String");

// References and their refinements.
static_assert(handlerFits("(I)Lcom/vireo/android/tvapi/dtv/vo/RfInfo;", object), "any class");
static_assert(handlerFits("(I)[I", object), "an array is a reference too");
static_assert(!handlerFits("(I)I", object), "a number is not a reference");
static_assert(handlerFits("()Ljava/lang/String;", text), "String");
static_assert(!handlerFits("()Ljava/lang/Object;", text), "jstring for another class");
static_assert(!handlerFits("()Ljava/lang/StringBuilder;", text), "a longer name is another class");
static_assert(handlerFits("()Ljava/lang/Class;", klass), "Class");
static_assert(handlerFits("([I)[I", ints), "int arrays");
static_assert(!handlerFits("([J)[I", ints), "a long array is not jintArray");
static_assert(!handlerFits("([I)[[I", ints), "an array of arrays is not jintArray");
static_assert(handlerFits("()[J", anyArray), "jarray for any array");
static_assert(!handlerFits("()Ljava/lang/Object;", anyArray), "but not for an object");
static_assert(handlerFits("()[Ljava/lang/String;", objects), "an array of references");
static_assert(handlerFits("()[[I", objects), "an array of arrays");
static_assert(!handlerFits("()[I", objects), "not an array of numbers");
static_assert(handlerFits("(Landroid/os/Parcel;Landroid/os/Parcel;)Z", parcels), "two objects");

// Text that is no signature.
static_assert(!handlerFits("", none), "empty");
static_assert(!handlerFits("V", none), "no parameter list");
static_assert(!handlerFits("()", none), "no return type");
static_assert(!handlerFits("()VV", none), "something after the return type");
static_assert(!handlerFits("(I", number), "an unclosed list");
static_assert(!handlerFits("(V)V", none), "void as a parameter");
static_assert(!handlerFits("(Ljava/lang/Object)Z", parcels), "a class name without its ';'");
static_assert(!handlerFits("(L;L;)Z", parcels), "an empty class name");
static_assert(!handlerFits("(X)I", number), "an unknown letter");
static_assert(!handlerFits("()[V", anyArray), "an array of void");
